#pragma once
// Room for the rows of a big load. An array of a few megabytes or more is given whole huge
// pages (the kernel places such a mapping on a huge-page boundary) and the kernel is asked to
// back it with them, so that filling it costs one page fault per 2 MB rather than one per
// 4 KB: on a virtual machine each fault can cost microseconds.

#include <cstddef>
#include <vector>

namespace zlx::ado {

// The number of values of `size` bytes to reserve for `count`: `count`, or past one huge
// page as many as fill whole huge pages with the allocator's header.
std::size_t HugePageRoom(std::size_t count, std::size_t size);
// Advises the kernel to back the pages of [data, data + bytes) with huge pages where it can;
// nothing for small ranges or where the system has no such advice.
void AdviseHugePages(const void* data, std::size_t bytes);

template <class T> void ReserveLarge(std::vector<T>& values, std::size_t count) {
    if (count <= values.capacity()) return;
    values.reserve(HugePageRoom(count, sizeof(T)));
    AdviseHugePages(values.data(), values.capacity() * sizeof(T));
}

} // namespace zlx::ado
