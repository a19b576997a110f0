#pragma once
// Writing Visual FoxPro's binary fields: I (32-bit integer), Y (currency scaled by 10,000),
// B (double) and T (date-time: Julian day and milliseconds since midnight), little-endian.
// Reading them is DbfFieldCodec's.

#include "platform/variant/Variant.h"

#include <cstddef>

namespace zlx::DbfBinaryFields {

// Types this writer handles.
bool Handles(char type);
// Writes the value into `length` bytes of a field of `type`; Null and Empty write zeros.
// False (the bytes untouched) when the value does not convert or does not fit.
bool Encode(char type, const Variant& value, char* bytes, std::size_t length);

} // namespace zlx::DbfBinaryFields
