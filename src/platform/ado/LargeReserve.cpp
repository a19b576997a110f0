#include "platform/ado/LargeReserve.h"

namespace zlx::ado {

std::size_t HugePageRoom(std::size_t count, std::size_t size) {
    const std::size_t bytes = count * size;
    if (size == 0 || bytes < kHugePageBytes) return count;
    const std::size_t pages = (bytes + kHugePageBytes - 1) / kHugePageBytes;
    return pages * kHugePageBytes / size;
}

} // namespace zlx::ado
