#include "platform/ado/HugePageAllocator.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace zlx::ado {

namespace {

#if defined(__linux__)
std::size_t WholePages(std::size_t bytes) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

// A mapping one huge page longer than needed, cut back to the part that starts on a
// huge-page boundary. Its length is not rounded up to whole huge pages: the kernel backs the
// whole huge pages inside it with huge pages and the rest with ordinary ones, so a block
// holds no more memory than its values fill.
void* MapHugePages(std::size_t bytes) {
    const std::size_t length = WholePages(bytes);
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
        munmap(block, WholePages(bytes));
        return;
    }
#endif
    ::operator delete(block);
}

} // namespace zlx::ado
