#pragma once
// The allocator of the column arrays. A block of a huge page (2 MB) or more is a mapping of
// its own, placed on a huge-page boundary and backed by huge pages where the kernel can: on a
// virtual machine filling fresh 4 KB pages costs microseconds each, a huge page one fault per
// 2 MB, and unmapping it returns it at once. The C library's allocator would serve the same
// sizes from its heap once a big block has been freed (it raises its mapping threshold), so
// a second load landed on 4 KB pages. Smaller blocks come from operator new. Values are
// default-initialised: a vector resized for values about to be written is not zeroed first.

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

namespace zlx::ado {

// The bytes of a huge page.
inline constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

// Blocks of `bytes`, aligned at least for any value; std::bad_alloc when there is no room.
void* AllocateLargeBlock(std::size_t bytes);
void FreeLargeBlock(void* block, std::size_t bytes) noexcept;

template <class T> class HugePageAllocator {
public:
    using value_type = T;

    HugePageAllocator() = default;
    template <class U> HugePageAllocator(const HugePageAllocator<U>&) noexcept {}

    T* allocate(std::size_t count) {
        return static_cast<T*>(AllocateLargeBlock(count * sizeof(T)));
    }
    void deallocate(T* values, std::size_t count) noexcept {
        FreeLargeBlock(values, count * sizeof(T));
    }
    // Without arguments a value is default-initialised (left as it is for numbers).
    template <class U> void construct(U* at) noexcept(noexcept(::new (static_cast<void*>(at)) U)) {
        ::new (static_cast<void*>(at)) U;
    }
    template <class U, class... Args> void construct(U* at, Args&&... args) {
        ::new (static_cast<void*>(at)) U(std::forward<Args>(args)...);
    }

    friend bool operator==(const HugePageAllocator&, const HugePageAllocator&) { return true; }
};

template <class T> using LargeVector = std::vector<T, HugePageAllocator<T>>;

} // namespace zlx::ado
