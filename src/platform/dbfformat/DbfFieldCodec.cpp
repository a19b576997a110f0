#include "platform/dbfformat/DbfFieldCodec.h"

#include "platform/variant/NumberText.h"

#include <QDate>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace zlx::DbfFieldCodec {

namespace {

// A plain decimal text ("  -12.50 "): digits and scale, without allocating. Anything else
// (exponents, signs inside, more than 18 digits) is left to the general reader.
struct FixedNumber {
    std::int64_t digits = 0;
    int scale = 0;
};

// Writers pad numbers with blanks, some with NULs.
bool IsPadding(char c) {
    return c == ' ' || c == '\0';
}

std::optional<FixedNumber> ParseFixed(const char* bytes, std::size_t length) {
    std::size_t i = 0;
    while (i < length && IsPadding(bytes[i]))
        ++i;
    std::size_t end = length;
    while (end > i && IsPadding(bytes[end - 1]))
        --end;
    const bool negative = i < end && bytes[i] == '-';
    if (negative) ++i;
    FixedNumber number;
    int digitCount = 0;
    bool point = false;
    for (; i < end; ++i) {
        const char c = bytes[i];
        if (c == '.' && !point) {
            point = true;
        } else if (c >= '0' && c <= '9' && digitCount < 18) {
            number.digits = number.digits * 10 + (c - '0');
            ++digitCount;
            number.scale += point ? 1 : 0;
        } else {
            return std::nullopt;
        }
    }
    if (negative) number.digits = -number.digits;
    return number;
}

QString TrimmedText(const char* bytes, std::size_t length) {
    return QString::fromLatin1(
        QByteArray(bytes, static_cast<qsizetype>(length)).replace('\0', ' ').trimmed());
}

double GeneralValue(const char* bytes, std::size_t length) {
    return NumberText::Val(TrimmedText(bytes, length));
}

constexpr std::int64_t kPowersOfTen[] = {1, 10, 100, 1000, 10000};
// Exact doubles: an exact integer divided by one of them rounds correctly.
constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                        1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

Variant DecodeNumber(const char* bytes, std::size_t length, std::size_t decimals) {
    const bool currency = decimals >= 1 && decimals <= 4;
    try {
        if (PlainValue plain; DecodePlainNumber(bytes, length, decimals, plain)) {
            switch (plain.kind) {
            case PlainValue::Kind::Currency:
                return Currency{plain.integer};
            case PlainValue::Kind::Integer:
                return static_cast<std::int32_t>(plain.integer);
            default:
                return plain.real;
            }
        }
        const double value = GeneralValue(bytes, length);
        if (decimals > 4) return value;
        if (currency || (length >= 10 && length <= 14)) return Currency::FromDouble(value);
        if (length < 10) return static_cast<std::int32_t>(value);
        bool ok = false;
        const Decimal exact = Decimal::FromString(TrimmedText(bytes, length), &ok);
        return ok ? exact : Decimal::FromDouble(value);
    } catch (const VariantError&) {
        return GeneralValue(bytes,
                            length); // too wide for its kind (damaged file): keep it readable
    }
}

int DigitsValue(const char* bytes, std::size_t count) {
    const std::optional<FixedNumber> fixed = ParseFixed(bytes, count);
    return fixed && fixed->scale == 0 ? static_cast<int>(fixed->digits)
                                      : static_cast<int>(GeneralValue(bytes, count));
}

bool IsCalendarDate(int year, int month, int day) {
    static constexpr int kDaysInMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 1 || month < 1 || month > 12 || day < 1) return false;
    // Bitwise, not short-circuit: the dates of a file change from record to record, and
    // branches on them would be mispredicted.
    const bool leap = ((year % 4 == 0) & (year % 100 != 0)) | (year % 400 == 0);
    return day <= kDaysInMonth[month - 1] + ((month == 2) & leap);
}

// The days from 1899-12-30 (day 0 of the dates) to a calendar date of the Gregorian
// calendar, counted back before 1582 as well, as MakeDate counts them.
std::int64_t DayNumber(int year, int month, int day) {
    const std::int64_t y = year - (month <= 2 ? 1 : 0);
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    constexpr std::int64_t kDayZero = 693899; // 1899-12-30, in days from 0000-03-01
    return era * 146097 + dayOfEra - kDayZero;
}

Variant DecodeDate(const char* bytes, std::size_t length) {
    const std::optional<Date> date = DateValue(bytes, length);
    return date ? Variant(*date) : Variant::Null();
}

template <class T> T LittleEndian(const char* bytes) {
    std::make_unsigned_t<T> value = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        value = static_cast<std::make_unsigned_t<T>>((value << 8) |
                                                     static_cast<unsigned char>(bytes[i]));
    return static_cast<T>(value);
}

// Visual FoxPro's date-time: a Julian day number, then milliseconds since midnight, both
// 32-bit; day 0 is an empty value. Kept to the second, as the program shows it.
Variant DecodeDateTime(const char* bytes, std::size_t length) {
    if (length < 8) return Variant::Null();
    const QDate day = QDate::fromJulianDay(LittleEndian<std::int32_t>(bytes));
    const std::int32_t milliseconds = LittleEndian<std::int32_t>(bytes + 4);
    if (LittleEndian<std::int32_t>(bytes) <= 0 || !day.isValid() || milliseconds < 0 ||
        milliseconds >= 86400000)
        return Variant::Null();
    // Half a second rounds up, but never into the next day.
    const int seconds = std::min(86399, static_cast<int>((milliseconds + 500) / 1000));
    return MakeDate(day.year(), day.month(), day.day(), seconds / 3600, seconds / 60 % 60,
                    seconds % 60);
}

Variant DecodeBinaryNumber(char type, const char* bytes, std::size_t length) {
    if (type == 'I' && length >= 4) return LittleEndian<std::int32_t>(bytes);
    if (type == 'Y' && length >= 8) return Currency{LittleEndian<std::int64_t>(bytes)};
    if (type == 'B' && length >= 8)
        return std::bit_cast<double>(LittleEndian<std::uint64_t>(bytes));
    return Variant::Null();
}

// The number with `decimals` places, halves away from zero, "." as separator.
QByteArray FormatNumber(const Variant& value, std::size_t decimals) {
    if (const auto* whole = value.Get<std::int32_t>(); whole && decimals == 0)
        return QByteArray::number(*whole);
    const double scale = std::pow(10.0, static_cast<double>(decimals));
    double rounded = std::round(value.ToDouble() * scale) / scale;
    if (rounded == 0.0) rounded = 0.0; // no "-0"
    return QByteArray::number(rounded, 'f', static_cast<int>(decimals));
}

QByteArray FormatDate(const Variant& value) {
    int year, month, day, hour, minute, second;
    SplitDate(value.ToDate(), year, month, day, hour, minute, second);
    return QStringLiteral("%1%2%3")
        .arg(year, 4, 10, QLatin1Char('0'))
        .arg(month, 2, 10, QLatin1Char('0'))
        .arg(day, 2, 10, QLatin1Char('0'))
        .toLatin1();
}

} // namespace

// A plain decimal text read into the kind its field's shape gives it: currency for one to
// four decimals and for whole numbers of 10 to 14 characters, a Long below 10 characters, a
// double past four decimals. False when the text or its shape needs the general reading.
bool DecodePlainNumber(const char* bytes, std::size_t length, std::size_t decimals,
                       PlainValue& value) {
    const std::optional<FixedNumber> fixed = ParseFixed(bytes, length);
    if (!fixed) return false;
    const bool currency = decimals >= 1 && decimals <= 4;
    if ((currency || (decimals == 0 && length >= 10 && length <= 14)) && fixed->scale <= 4) {
        value.kind = PlainValue::Kind::Currency;
        value.integer = fixed->digits * kPowersOfTen[4 - fixed->scale];
    } else if (decimals == 0 && length < 10 && fixed->scale == 0) {
        value.kind = PlainValue::Kind::Integer;
        value.integer = static_cast<std::int32_t>(fixed->digits);
    } else if (decimals > 4 && std::llabs(fixed->digits) < (std::int64_t{1} << 53)) {
        value.kind = PlainValue::Kind::Double;
        value.real = static_cast<double>(fixed->digits) / kExactPowersOfTen[fixed->scale];
    } else {
        return false;
    }
    return true;
}

std::optional<Date> DateValue(const char* bytes, std::size_t length) {
    if (length < 8) return std::nullopt;
    // Eight digits, as nearly every date is written, are read as they stand: all eight are
    // checked at once, as the bytes of one 64-bit word (a byte below '0' borrows into its top
    // bit, one above '9' carries into it once 0x76 is added).
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    constexpr std::uint64_t kZeros = 0x3030303030303030, kTops = 0x8080808080808080;
    const std::uint64_t values = word - kZeros;
    const bool plain = std::endian::native == std::endian::little &&
                       ((values | (values + 0x7676767676767676)) & kTops) == 0;
    const auto digit = [values](int i) { return static_cast<int>((values >> (8 * i)) & 0xFF); };
    const int year =
        plain ? digit(0) * 1000 + digit(1) * 100 + digit(2) * 10 + digit(3) : DigitsValue(bytes, 4);
    const int month = plain ? digit(4) * 10 + digit(5) : DigitsValue(bytes + 4, 2);
    const int day = plain ? digit(6) * 10 + digit(7) : DigitsValue(bytes + 6, 2);
    if (!IsCalendarDate(year, month, day)) return std::nullopt;
    return Date{static_cast<double>(DayNumber(year, month, day))};
}

bool LogicalValue(const char* bytes, std::size_t length) {
    return length == 1 && (bytes[0] == 'Y' || bytes[0] == 'T' || bytes[0] == 'S');
}

Variant Decode(char type, const char* bytes, std::size_t length, std::size_t decimals,
               const DbfCodePage& codePage, bool visualFoxPro) {
    QString text;
    return DecodeReusing(type, bytes, length, decimals, codePage, visualFoxPro, text);
}

Variant DecodeReusing(char type, const char* bytes, std::size_t length, std::size_t decimals,
                      const DbfCodePage& codePage, bool visualFoxPro, QString& text) {
    switch (type) {
    case 'N':
    case 'F':
        return DecodeNumber(bytes, length, decimals);
    case 'I':
    case 'Y':
        return DecodeBinaryNumber(type, bytes, length);
    case 'B':
        if (visualFoxPro) return DecodeBinaryNumber(type, bytes, length);
        break;
    case 'T':
        return DecodeDateTime(bytes, length);
    case 'D':
        return DecodeDate(bytes, length);
    case 'L':
        return LogicalValue(bytes, length);
    default:
        break;
    }
    codePage.DecodeInto(bytes, length, text);
    return text;
}

bool DecodePlain(char type, const char* bytes, std::size_t length, std::size_t decimals,
                 const DbfCodePage& codePage, QString& text, PlainValue& value) {
    switch (type) {
    case 'N':
    case 'F':
        return DecodePlainNumber(bytes, length, decimals, value);
    case 'D':
        if (const std::optional<Date> date = DateValue(bytes, length)) {
            value.kind = PlainValue::Kind::Date;
            value.real = date->value;
        } else {
            value.kind = PlainValue::Kind::Null;
        }
        return true;
    case 'L':
        value.kind = PlainValue::Kind::Logical;
        value.integer = LogicalValue(bytes, length) ? 1 : 0;
        return true;
    case 'C':
    case 'V':
        codePage.DecodeInto(bytes, length, text);
        value.kind = PlainValue::Kind::Text;
        value.text = text;
        return true;
    default:
        return false;
    }
}

bool Encode(const Variant& value, char* bytes, std::size_t length, std::size_t decimals,
            const DbfCodePage& codePage) {
    QByteArray text;
    bool rightAligned = false;
    try {
        if (value.IsEmpty() || value.IsNull()) {
            text.clear();
        } else if (value.IsNumber()) {
            text = FormatNumber(value, decimals);
            rightAligned = true;
            if (static_cast<std::size_t>(text.size()) > length) return false;
        } else if (value.VarType() == vbDate) {
            text = FormatDate(value);
        } else if (value.VarType() == vbBoolean) {
            text = value.ToBool() ? "T" : "F";
        } else {
            text = codePage.Encode(value.ToString());
        }
    } catch (const VariantError&) {
        return false;
    }
    const std::size_t used = std::min(length, static_cast<std::size_t>(text.size()));
    std::memset(bytes, ' ', length);
    std::memcpy(rightAligned ? bytes + (length - used) : bytes, text.constData(), used);
    return true;
}

} // namespace zlx::DbfFieldCodec
