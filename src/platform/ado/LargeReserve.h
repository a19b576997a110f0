#pragma once
// Room for the rows of a big load in the column arrays (see HugePageAllocator): an array of a
// huge page or more is given whole huge pages, as many values as fill them.

#include "platform/ado/HugePageAllocator.h"

#include <cstddef>
#include <vector>

namespace zlx::ado {

// The number of values of `size` bytes to reserve for `count`: `count`, or past one huge
// page as many as fill whole huge pages.
std::size_t HugePageRoom(std::size_t count, std::size_t size);

template <class T, class Allocator>
void ReserveLarge(std::vector<T, Allocator>& values, std::size_t count) {
    if (count > values.capacity()) values.reserve(HugePageRoom(count, sizeof(T)));
}

} // namespace zlx::ado
