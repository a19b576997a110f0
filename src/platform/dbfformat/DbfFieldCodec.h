#pragma once
// Field values to and from their bytes in a DBF record. The writing format is chosen by the
// value's kind, the reading by the field's type letter.

#include "platform/dbfformat/DbfCodePage.h"
#include "platform/variant/Variant.h"

#include <QStringView>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace zlx::DbfFieldCodec {

// A value as DecodePlain reads it: the kind Decode's Variant would have, and its contents.
struct PlainValue {
    enum class Kind { Null, Integer, Currency, Double, Date, Logical, Text };
    Kind kind = Kind::Null;
    std::int64_t integer = 0; // Integer (a Long); Currency (scaled by 10,000); Logical (1 or 0)
    double real = 0.0;        // Double; Date (its day number)
    QStringView text;         // Text: the characters of the `text` buffer DecodePlain was given
};

// Reads `length` bytes of a field of type `type` with `decimals` decimal places. Text is in
// `codePage`; in a Visual FoxPro table B is a binary double (elsewhere a memo block number).
// I, Y, B and T are Visual FoxPro's binary integer, currency, double and date-time.
Variant Decode(char type, const char* bytes, std::size_t length, std::size_t decimals,
               const DbfCodePage& codePage = {}, bool visualFoxPro = false);
// As Decode, a text being decoded into `text` (its buffer reused when no other string shares
// it) and answered as a Variant sharing it.
Variant DecodeReusing(char type, const char* bytes, std::size_t length, std::size_t decimals,
                      const DbfCodePage& codePage, bool visualFoxPro, QString& text);

// The value Decode gives, without a Variant, for plain decimal numbers (no exponent, at most
// 18 digits), dates, logicals and character fields (decoded into `text`, as DecodeReusing
// does); false for anything else, which only Decode reads.
bool DecodePlain(char type, const char* bytes, std::size_t length, std::size_t decimals,
                 const DbfCodePage& codePage, QString& text, PlainValue& value);

// DecodePlain's reading of one field type, for a reader that decodes a field record after
// record: a number (false when only Decode reads it), a date (nothing for a blank or
// impossible one, a Null) and a logical (true for Y, T and S).
bool DecodePlainNumber(const char* bytes, std::size_t length, std::size_t decimals,
                       PlainValue& value);
std::optional<Date> DateValue(const char* bytes, std::size_t length);
bool LogicalValue(const char* bytes, std::size_t length);

// Writes the value into `length` bytes; false (the bytes untouched) when it does not fit.
bool Encode(const Variant& value, char* bytes, std::size_t length, std::size_t decimals,
            const DbfCodePage& codePage = {});

} // namespace zlx::DbfFieldCodec
