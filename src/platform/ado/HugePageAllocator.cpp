#include "platform/ado/HugePageAllocator.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace zlx::ado {

namespace {

std::size_t WholeHugePages(std::size_t bytes) {
    return (bytes + kHugePageBytes - 1) / kHugePageBytes * kHugePageBytes;
}

#if defined(__linux__)
// A mapping one huge page longer than needed, cut back to the part that starts on a
// huge-page boundary.
void* MapHugePages(std::size_t bytes) {
    const std::size_t length = WholeHugePages(bytes);
    void* mapped = mmap(nullptr, length + kHugePageBytes, PROT_READ | PROT_WRITE,
                        MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    const auto start = reinterpret_cast<std::uintptr_t>(mapped);
    const std::uintptr_t aligned = (start + kHugePageBytes - 1) & ~(kHugePageBytes - 1);
    if (aligned > start) munmap(mapped, aligned - start);
    const std::uintptr_t end = start + length + kHugePageBytes;
    if (end > aligned + length)
        munmap(reinterpret_cast<void*>(aligned + length), end - aligned - length);
    void* block = reinterpret_cast<void*>(aligned);
#if defined(MADV_HUGEPAGE)
    madvise(block, length, MADV_HUGEPAGE);
#endif
    return block;
}
#endif

} // namespace

void* AllocateLargeBlock(std::size_t bytes) {
#if defined(__linux__)
    if (bytes >= kHugePageBytes) return MapHugePages(bytes);
#endif
    return ::operator new(bytes);
}

void FreeLargeBlock(void* block, std::size_t bytes) noexcept {
#if defined(__linux__)
    if (bytes >= kHugePageBytes) {
        munmap(block, WholeHugePages(bytes));
        return;
    }
#endif
    ::operator delete(block);
}

} // namespace zlx::ado
