#include "platform/ado/LargeReserve.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace zlx::ado {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
// What the C library's allocator adds to a large block (glibc: 16 bytes, kept aligned).
constexpr std::size_t kAllocatorHeader = 32;

} // namespace

std::size_t HugePageRoom(std::size_t count, std::size_t size) {
    const std::size_t bytes = count * size;
    if (size == 0 || bytes < kHugePage) return count;
    const std::size_t pages = (bytes + kAllocatorHeader + kHugePage - 1) / kHugePage;
    return (pages * kHugePage - kAllocatorHeader) / size;
}

void AdviseHugePages(const void* data, std::size_t bytes) {
#if defined(MADV_HUGEPAGE)
    if (bytes < kHugePage) return;
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(data) & ~(page - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(data) + bytes + page - 1) & ~(page - 1);
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
    (void)data;
    (void)bytes;
#endif
}

} // namespace zlx::ado
