#pragma once
// Field values to and from their bytes in a DBF record. The writing format is chosen by the
// value's kind, the reading by the field's type letter.

#include "platform/dbfformat/DbfCodePage.h"
#include "platform/variant/Variant.h"

#include <cstddef>

namespace zlx::DbfFieldCodec {

// Reads `length` bytes of a field of type `type` with `decimals` decimal places. Text is in
// `codePage`; in a Visual FoxPro table B is a binary double (elsewhere a memo block number).
// I, Y, B and T are Visual FoxPro's binary integer, currency, double and date-time.
Variant Decode(char type, const char* bytes, std::size_t length, std::size_t decimals,
               const DbfCodePage& codePage = {}, bool visualFoxPro = false);
// As Decode, a text being decoded into `text` (its buffer reused when no other string shares
// it) and answered as a Variant sharing it.
Variant DecodeReusing(char type, const char* bytes, std::size_t length, std::size_t decimals,
                      const DbfCodePage& codePage, bool visualFoxPro, QString& text);

// Writes the value into `length` bytes; false (the bytes untouched) when it does not fit.
bool Encode(const Variant& value, char* bytes, std::size_t length, std::size_t decimals,
            const DbfCodePage& codePage = {});

} // namespace zlx::DbfFieldCodec
