#include "platform/dbfformat/DbfBinaryFields.h"

#include <QDate>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace zlx::DbfBinaryFields {

namespace {

template <class T> void PutLittleEndian(T value, char* bytes) {
    auto raw = static_cast<std::make_unsigned_t<T>>(value);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bytes[i] = static_cast<char>(raw & 0xff);
        raw = static_cast<std::make_unsigned_t<T>>(raw >> 8);
    }
}

bool EncodeDateTime(const Variant& value, char* bytes) {
    int year, month, day, hour, minute, second;
    SplitDate(value.ToDate(), year, month, day, hour, minute, second);
    const QDate date(year, month, day);
    if (!date.isValid()) return false;
    PutLittleEndian(static_cast<std::int32_t>(date.toJulianDay()), bytes);
    PutLittleEndian(static_cast<std::int32_t>(((hour * 60 + minute) * 60 + second) * 1000),
                    bytes + 4);
    return true;
}

bool EncodeInteger(const Variant& value, char* bytes) {
    const double number = std::round(value.ToDouble());
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max())
        return false;
    PutLittleEndian(static_cast<std::int32_t>(number), bytes);
    return true;
}

} // namespace

bool Handles(char type) {
    return type == 'I' || type == 'Y' || type == 'B' || type == 'T';
}

bool Encode(char type, const Variant& value, char* bytes, std::size_t length) {
    const std::size_t needed = type == 'I' ? 4 : 8;
    if (!Handles(type) || length < needed) return false;
    char encoded[8] = {};
    try {
        if (!value.IsNull() && !value.IsEmpty()) {
            switch (type) {
            case 'I':
                if (!EncodeInteger(value, encoded)) return false;
                break;
            case 'Y':
                PutLittleEndian(value.ToCurrency().scaled, encoded);
                break;
            case 'B':
                PutLittleEndian(std::bit_cast<std::uint64_t>(value.ToDouble()), encoded);
                break;
            default:
                if (!EncodeDateTime(value, encoded)) return false;
            }
        }
    } catch (const VariantError&) {
        return false;
    }
    std::memcpy(bytes, encoded, needed);
    return true;
}

} // namespace zlx::DbfBinaryFields
