#include "platform/variant/Variant.h"

#include "platform/variant/NumberText.h"

#include <QDate>
#include <QRegularExpression>
#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>

namespace zlx {

namespace {

using Int128 = __int128;
using UInt128 = unsigned __int128;

// Storage indexes, in the order of Variant::Storage.
enum Kind {
    kEmpty,
    kNull,
    kInteger,
    kLong,
    kSingle,
    kDouble,
    kCurrency,
    kDate,
    kString,
    kObject,
    kError,
    kBoolean,
    kDecimal,
    kByte,
    kArray
};

constexpr UInt128 kDecimalLimit = UInt128(1) << 96;

[[noreturn]] void ThrowTypeMismatch() {
    throw VariantError(vbErrTypeMismatch, QStringLiteral("Type mismatch"));
}
[[noreturn]] void ThrowOverflow() {
    throw VariantError(vbErrOverflow, QStringLiteral("Overflow"));
}
[[noreturn]] void ThrowInvalidNull() {
    throw VariantError(vbErrInvalidUseOfNull, QStringLiteral("Invalid use of Null"));
}

UInt128 PowerOfTen(int exponent) {
    UInt128 result = 1;
    for (int i = 0; i < exponent; ++i)
        result *= 10;
    return result;
}

// Divides by 10^scale rounding halves to even, as VB's integer conversions do.
Int128 DivideRoundEven(Int128 value, int scale) {
    if (scale == 0) return value;
    const Int128 divisor = static_cast<Int128>(PowerOfTen(scale));
    Int128 quotient = value / divisor;
    const Int128 remainder = value % divisor;
    const Int128 twice = (remainder < 0 ? -remainder : remainder) * 2;
    if (twice > divisor || (twice == divisor && quotient % 2 != 0)) quotient += value < 0 ? -1 : 1;
    return quotient;
}

UInt128 Mantissa(const Decimal& d) {
    return (UInt128(d.hi) << 64) | d.lo;
}

Decimal MakeDecimal(UInt128 mantissa, int scale, bool negative) {
    Decimal d;
    d.lo = static_cast<std::uint64_t>(mantissa);
    d.hi = static_cast<std::uint32_t>(mantissa >> 64);
    d.scale = static_cast<std::uint8_t>(scale);
    d.negative = negative && mantissa != 0;
    return d;
}

Int128 SignedMantissa(const Decimal& d) {
    const auto m = static_cast<Int128>(Mantissa(d));
    return d.negative ? -m : m;
}

double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double diff = value - floor;
    if (diff > 0.5) return floor + 1;
    if (diff < 0.5) return floor;
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

template <class Int> Int RoundToInteger(double value) {
    if (std::isnan(value)) ThrowOverflow();
    const double rounded = RoundHalfEven(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        ThrowOverflow();
    return static_cast<Int>(rounded);
}

template <class Int> Int CheckedNarrow(std::int64_t value) {
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
        ThrowOverflow();
    return static_cast<Int>(value);
}

std::int64_t CheckedInt64(Int128 value) {
    if (value < std::numeric_limits<std::int64_t>::min() ||
        value > std::numeric_limits<std::int64_t>::max())
        ThrowOverflow();
    return static_cast<std::int64_t>(value);
}

QString TwoDigits(int value) {
    return QString::number(value).rightJustified(2, u'0');
}

QString FormatDate(Date d, bool invariant) {
    int year, month, day, hour, minute, second;
    SplitDate(d, year, month, day, hour, minute, second);
    const QString time = TwoDigits(hour) + u':' + TwoDigits(minute) + u':' + TwoDigits(second);
    if (invariant)
        return QString::number(year).rightJustified(4, u'0') + u'-' + TwoDigits(month) + u'-' +
               TwoDigits(day) + u' ' + time;
    const bool hasTime = hour != 0 || minute != 0 || second != 0;
    const bool hasDay = std::trunc(d.value) != 0.0;
    const QString date = TwoDigits(day) + u'/' + TwoDigits(month) + u'/' +
                         QString::number(year).rightJustified(4, u'0');
    if (!hasDay && hasTime) return time;
    return hasTime ? date + u' ' + time : date;
}

QString FormatCurrency(Currency c, QChar separator) {
    Decimal d = MakeDecimal(static_cast<UInt128>(c.scaled < 0 ? -static_cast<Int128>(c.scaled)
                                                              : static_cast<Int128>(c.scaled)),
                            4, c.scaled < 0);
    QString text = d.ToString();
    if (separator != u'.') text.replace(u'.', separator);
    return text;
}

QString SingleToString(float value, QChar separator) {
    return QString::asprintf("%.7G", static_cast<double>(value)).replace(u'.', separator);
}

// Parses a date or time written as people write them: dd/mm/yyyy [hh:mm[:ss]],
// yyyy-mm-dd[ |T]hh:mm:ss, or a time alone.
bool ParseDateText(const QString& input, Date& out) {
    static const QRegularExpression dmy(QStringLiteral(
        R"(^(\d{1,2})[/\-.](\d{1,2})[/\-.](\d{2}|\d{4})(?:\s+(\d{1,2}):(\d{2})(?::(\d{2}))?)?$)"));
    static const QRegularExpression ymd(QStringLiteral(
        R"(^(\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2})(?:\.\d+)?)?)?$)"));
    static const QRegularExpression timeOnly(QStringLiteral(R"(^(\d{1,2}):(\d{2})(?::(\d{2}))?$)"));
    const QString text = input.trimmed();
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
    if (auto m = dmy.match(text); m.hasMatch()) {
        day = m.captured(1).toInt();
        month = m.captured(2).toInt();
        year = m.captured(3).toInt();
        if (m.captured(3).size() == 2) year += year < 30 ? 2000 : 1900;
        hour = m.captured(4).toInt();
        minute = m.captured(5).toInt();
        second = m.captured(6).toInt();
    } else if (auto m2 = ymd.match(text); m2.hasMatch()) {
        year = m2.captured(1).toInt();
        month = m2.captured(2).toInt();
        day = m2.captured(3).toInt();
        hour = m2.captured(4).toInt();
        minute = m2.captured(5).toInt();
        second = m2.captured(6).toInt();
    } else if (auto m3 = timeOnly.match(text); m3.hasMatch()) {
        hour = m3.captured(1).toInt();
        minute = m3.captured(2).toInt();
        second = m3.captured(3).toInt();
    } else {
        return false;
    }
    if (!QDate::isValid(year, month, day) || hour > 23 || minute > 59 || second > 59) return false;
    out = MakeDate(year, month, day, hour, minute, second);
    return true;
}

bool ParseBoolText(const QString& text, bool& out) {
    const QString t = text.trimmed();
    if (t.compare(u"True", Qt::CaseInsensitive) == 0 ||
        t.compare(u"Verdadero", Qt::CaseInsensitive) == 0) {
        out = true;
        return true;
    }
    if (t.compare(u"False", Qt::CaseInsensitive) == 0 ||
        t.compare(u"Falso", Qt::CaseInsensitive) == 0) {
        out = false;
        return true;
    }
    return false;
}

double StringToDouble(const QString& text) {
    const auto normalised = NumberText::Normalise(text);
    if (!normalised) ThrowTypeMismatch();
    return normalised->toDouble();
}

int Sign(double d) {
    return d < 0 ? -1 : (d > 0 ? 1 : 0);
}

bool IsIntegralKind(std::size_t kind) {
    return kind == kInteger || kind == kLong || kind == kByte || kind == kBoolean || kind == kEmpty;
}

bool IsNumberKind(std::size_t kind) {
    return IsIntegralKind(kind) || kind == kSingle || kind == kDouble || kind == kCurrency ||
           kind == kDecimal || kind == kDate;
}

} // namespace

// ---------------------------------------------------------------------------------------

VariantError::VariantError(int number, const QString& description)
    : std::runtime_error(description.toStdString()), m_number(number) {}

Currency Currency::FromDouble(double value) {
    // Through the double's 15 significant digits, so 0.00015 rounds as written, not as stored.
    return FromDecimal(Decimal::FromDouble(value));
}

Currency Currency::FromDecimal(const Decimal& d) {
    if (d.scale > 4) return Currency{CheckedInt64(DivideRoundEven(SignedMantissa(d), d.scale - 4))};
    return Currency{CheckedInt64(SignedMantissa(d) * static_cast<Int128>(PowerOfTen(4 - d.scale)))};
}

Decimal Decimal::FromDouble(double value) {
    if (!std::isfinite(value)) ThrowOverflow();
    bool ok = false;
    const Decimal d = FromString(QString::number(value, 'g', 15), &ok);
    if (!ok) ThrowOverflow();
    return d;
}

Decimal Decimal::FromString(const QString& text, bool* ok) {
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*([+-]?)(\d*)(?:\.(\d*))?(?:[eE]([+-]?\d+))?\s*$)"));
    const auto m = pattern.match(text);
    const bool shaped = m.hasMatch() && (m.capturedLength(2) + m.capturedLength(3)) > 0;
    if (ok) *ok = false;
    if (!shaped) return {};
    QString digits = m.captured(2) + m.captured(3);
    int scale = static_cast<int>(m.captured(3).size()) - m.captured(4).toInt();
    if (scale < 0) {
        digits += QString(-scale, u'0');
        scale = 0;
    }
    while (digits.size() > 1 && digits.startsWith(u'0'))
        digits.remove(0, 1);
    // More than 28 decimals: drop the excess, rounding half to even.
    Int128 mantissa = 0;
    int dropped = scale > 28 ? scale - 28 : 0;
    const qsizetype keep = std::max<qsizetype>(0, digits.size() - dropped);
    for (qsizetype i = 0; i < keep; ++i) {
        mantissa = mantissa * 10 + (digits[i].unicode() - u'0');
        if (static_cast<UInt128>(mantissa) >= kDecimalLimit) return {};
    }
    if (dropped > 0) {
        Int128 tail = 0;
        for (qsizetype i = keep; i < digits.size(); ++i)
            tail = tail * 10 + (digits[i].unicode() - u'0');
        const Int128 half = static_cast<Int128>(PowerOfTen(int(digits.size() - keep))) / 2;
        if (tail > half || (tail == half && mantissa % 2 != 0)) ++mantissa;
        scale = 28;
    }
    if (ok) *ok = true;
    return MakeDecimal(static_cast<UInt128>(mantissa), scale, m.captured(1) == u"-");
}

double Decimal::ToDouble() const {
    const long double m = static_cast<long double>(Mantissa(*this));
    const long double value = m / static_cast<long double>(PowerOfTen(scale));
    return static_cast<double>(negative ? -value : value);
}

QString Decimal::ToString() const {
    QString digits;
    UInt128 m = Mantissa(*this);
    do {
        digits.prepend(QChar(u'0' + static_cast<int>(m % 10)));
        m /= 10;
    } while (m != 0);
    if (scale > 0) {
        if (digits.size() <= scale) digits = QString(scale - digits.size() + 1, u'0') + digits;
        digits.insert(digits.size() - scale, u'.');
        while (digits.endsWith(u'0'))
            digits.chop(1);
        if (digits.endsWith(u'.')) digits.chop(1);
    }
    return negative && digits != u"0" ? u'-' + digits : digits;
}

int Decimal::Compare(const Decimal& other) const {
    // Integer parts first, then the fractions brought to 28 decimals (both fit in 128 bits).
    const Int128 a = SignedMantissa(*this), b = SignedMantissa(other);
    const Int128 divA = static_cast<Int128>(PowerOfTen(scale));
    const Int128 divB = static_cast<Int128>(PowerOfTen(other.scale));
    const Int128 intA = a / divA, intB = b / divB;
    if (intA != intB) return intA < intB ? -1 : 1;
    const Int128 fracA = (a % divA) * static_cast<Int128>(PowerOfTen(28 - scale));
    const Int128 fracB = (b % divB) * static_cast<Int128>(PowerOfTen(28 - other.scale));
    return fracA == fracB ? 0 : (fracA < fracB ? -1 : 1);
}

// ---------------------------------------------------------------------------------------

VariantArray::VariantArray(std::vector<Bound> bounds) : m_bounds(std::move(bounds)) {
    std::size_t size = m_bounds.empty() ? 0 : 1;
    for (const Bound& b : m_bounds)
        size *= static_cast<std::size_t>(std::max(0, b.count));
    m_data.resize(size);
}

std::int32_t VariantArray::LBound(int dimension) const {
    if (dimension < 1 || dimension > Rank())
        throw VariantError(vbErrSubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    return m_bounds[dimension - 1].lower;
}

std::int32_t VariantArray::UBound(int dimension) const {
    return LBound(dimension) + m_bounds[dimension - 1].count - 1;
}

std::size_t VariantArray::Offset(const std::vector<std::int32_t>& indexes) const {
    if (indexes.size() != m_bounds.size())
        throw VariantError(vbErrSubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    std::size_t offset = 0, stride = 1;
    for (std::size_t d = 0; d < m_bounds.size(); ++d) {
        const std::int64_t pos = std::int64_t(indexes[d]) - m_bounds[d].lower;
        if (pos < 0 || pos >= m_bounds[d].count)
            throw VariantError(vbErrSubscriptOutOfRange, QStringLiteral("Subscript out of range"));
        offset += static_cast<std::size_t>(pos) * stride;
        stride *= static_cast<std::size_t>(m_bounds[d].count);
    }
    return offset;
}

std::shared_ptr<VariantArray> VariantArray::FromBytes(QByteArray bytes) {
    auto array = std::make_shared<VariantArray>();
    array->m_bounds = {{0, static_cast<std::int32_t>(bytes.size())}};
    array->m_bytes = std::move(bytes);
    array->m_compact = true;
    return array;
}

void VariantArray::Expand() const {
    if (!m_compact) return;
    m_data.reserve(static_cast<std::size_t>(m_bytes.size()));
    for (const char byte : std::as_const(m_bytes))
        m_data.emplace_back(static_cast<std::uint8_t>(byte));
    m_bytes.clear();
    m_compact = false;
}

std::size_t VariantArray::Size() const {
    return m_compact ? static_cast<std::size_t>(m_bytes.size()) : m_data.size();
}

std::optional<QByteArray> VariantArray::Bytes() const {
    if (m_compact) return m_bytes;
    if (Rank() != 1) return std::nullopt;
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(m_data.size()));
    for (const Variant& item : m_data) {
        const std::uint8_t* byte = item.Get<std::uint8_t>();
        if (!byte) return std::nullopt;
        bytes.append(static_cast<char>(*byte));
    }
    return bytes;
}

Variant& VariantArray::At(std::int32_t i) {
    return Data()[Offset({i})];
}
const Variant& VariantArray::At(std::int32_t i) const {
    return Data()[Offset({i})];
}
Variant& VariantArray::At(std::int32_t i, std::int32_t j) {
    return Data()[Offset({i, j})];
}
const Variant& VariantArray::At(std::int32_t i, std::int32_t j) const {
    return Data()[Offset({i, j})];
}
Variant& VariantArray::At(const std::vector<std::int32_t>& indexes) {
    return Data()[Offset(indexes)];
}
const Variant& VariantArray::At(const std::vector<std::int32_t>& indexes) const {
    return Data()[Offset(indexes)];
}

void VariantArray::RedimPreserveLast(std::int32_t newUpper) {
    Expand();
    if (m_bounds.empty())
        throw VariantError(vbErrSubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    Bound& last = m_bounds.back();
    const std::int32_t newCount = std::max(0, newUpper - last.lower + 1);
    // The last index varies slowest, so its elements are whole blocks at the end.
    const std::size_t block = last.count > 0 ? m_data.size() / last.count : 0;
    std::size_t inner = 1;
    for (std::size_t d = 0; d + 1 < m_bounds.size(); ++d)
        inner *= static_cast<std::size_t>(m_bounds[d].count);
    last.count = newCount;
    m_data.resize((block ? block : inner) * static_cast<std::size_t>(newCount));
}

// ---------------------------------------------------------------------------------------

Variant Variant::FromInt64(std::int64_t v) {
    const bool negative = v < 0;
    const UInt128 magnitude = negative ? UInt128(-(Int128(v))) : UInt128(v);
    return Variant(MakeDecimal(magnitude, 0, negative));
}

Variant Variant::Array(std::vector<Variant> items) {
    auto array = std::make_shared<VariantArray>(
        std::vector<VariantArray::Bound>{{0, static_cast<std::int32_t>(items.size())}});
    array->Data() = std::move(items);
    return Variant(array);
}

Variant Variant::FromBytes(QByteArray bytes) {
    return Variant(VariantArray::FromBytes(std::move(bytes)));
}

Variant Variant::MakeArray(std::vector<VariantArray::Bound> bounds) {
    return Variant(std::make_shared<VariantArray>(std::move(bounds)));
}

VbVarType Variant::VarType() const {
    static constexpr VbVarType kinds[] = {vbEmpty,  vbNull,     vbInteger, vbLong,   vbSingle,
                                          vbDouble, vbCurrency, vbDate,    vbString, vbObject,
                                          vbError,  vbBoolean,  vbDecimal, vbByte};
    if (m_value.index() == kArray) return static_cast<VbVarType>(vbArray | vbVariant);
    return kinds[m_value.index()];
}

QString Variant::TypeName() const {
    switch (m_value.index()) {
    case kEmpty:
        return QStringLiteral("Empty");
    case kNull:
        return QStringLiteral("Null");
    case kInteger:
        return QStringLiteral("Integer");
    case kLong:
        return QStringLiteral("Long");
    case kSingle:
        return QStringLiteral("Single");
    case kDouble:
        return QStringLiteral("Double");
    case kCurrency:
        return QStringLiteral("Currency");
    case kDate:
        return QStringLiteral("Date");
    case kString:
        return QStringLiteral("String");
    case kObject: {
        const auto& object = std::get<ObjectPtr>(m_value);
        return object ? object->TypeName() : QStringLiteral("Nothing");
    }
    case kError:
        return QStringLiteral("Error");
    case kBoolean:
        return QStringLiteral("Boolean");
    case kDecimal:
        return QStringLiteral("Decimal");
    case kByte:
        return QStringLiteral("Byte");
    default:
        return QStringLiteral("Variant()");
    }
}

bool Variant::IsArray() const {
    return m_value.index() == kArray;
}
bool Variant::IsObject() const {
    return m_value.index() == kObject;
}

bool Variant::IsNumeric() const {
    const std::size_t kind = m_value.index();
    if (kind == kString) return NumberText::Normalise(std::get<QString>(m_value)).has_value();
    return IsNumberKind(kind) && kind != kDate;
}

bool Variant::IsNumber() const {
    const std::size_t kind = m_value.index();
    return IsNumberKind(kind) && kind != kDate && kind != kBoolean && kind != kEmpty;
}

bool Variant::IsDate() const {
    if (m_value.index() == kDate) return true;
    Date ignored;
    return m_value.index() == kString && ParseDateText(std::get<QString>(m_value), ignored);
}

bool Variant::IsMissing() const {
    const auto* e = std::get_if<ErrorValue>(&m_value);
    return e && e->code == static_cast<std::int32_t>(0x80020004);
}

bool Variant::ToBool() const {
    switch (m_value.index()) {
    case kEmpty:
        return false;
    case kNull:
        ThrowInvalidNull();
    case kBoolean:
        return std::get<bool>(m_value);
    case kString: {
        bool value = false;
        if (ParseBoolText(std::get<QString>(m_value), value)) return value;
        return StringToDouble(std::get<QString>(m_value)) != 0.0;
    }
    case kCurrency:
        return std::get<Currency>(m_value).scaled != 0;
    case kDecimal:
        return Mantissa(std::get<Decimal>(m_value)) != 0;
    default:
        return ToDouble() != 0.0;
    }
}

std::uint8_t Variant::ToByte() const {
    return CheckedNarrow<std::uint8_t>(ToInt64());
}
std::int16_t Variant::ToInt() const {
    return CheckedNarrow<std::int16_t>(ToInt64());
}
std::int32_t Variant::ToLong() const {
    return CheckedNarrow<std::int32_t>(ToInt64());
}

std::int64_t Variant::ToInt64() const {
    switch (m_value.index()) {
    case kEmpty:
        return 0;
    case kNull:
        ThrowInvalidNull();
    case kInteger:
        return std::get<std::int16_t>(m_value);
    case kLong:
        return std::get<std::int32_t>(m_value);
    case kByte:
        return std::get<std::uint8_t>(m_value);
    case kBoolean:
        return std::get<bool>(m_value) ? -1 : 0;
    case kCurrency:
        return CheckedInt64(DivideRoundEven(std::get<Currency>(m_value).scaled, 4));
    case kDecimal: {
        const Decimal& d = std::get<Decimal>(m_value);
        return CheckedInt64(DivideRoundEven(SignedMantissa(d), d.scale));
    }
    case kString: {
        const auto normalised = NumberText::Normalise(std::get<QString>(m_value));
        if (!normalised) ThrowTypeMismatch();
        bool ok = false;
        const qlonglong exact = normalised->toLongLong(&ok);
        return ok ? exact : RoundToInteger<std::int64_t>(normalised->toDouble());
    }
    default:
        return RoundToInteger<std::int64_t>(ToDouble());
    }
}

float Variant::ToSingle() const {
    const double value = ToDouble();
    if (std::isfinite(value) && std::fabs(value) > FLT_MAX) ThrowOverflow();
    return static_cast<float>(value);
}

double Variant::ToDouble() const {
    switch (m_value.index()) {
    case kEmpty:
        return 0.0;
    case kNull:
        ThrowInvalidNull();
    case kInteger:
        return std::get<std::int16_t>(m_value);
    case kLong:
        return std::get<std::int32_t>(m_value);
    case kSingle:
        return std::get<float>(m_value);
    case kDouble:
        return std::get<double>(m_value);
    case kCurrency:
        return std::get<Currency>(m_value).ToDouble();
    case kDate:
        return std::get<Date>(m_value).value;
    case kString:
        return StringToDouble(std::get<QString>(m_value));
    case kBoolean:
        return std::get<bool>(m_value) ? -1.0 : 0.0;
    case kDecimal:
        return std::get<Decimal>(m_value).ToDouble();
    case kByte:
        return std::get<std::uint8_t>(m_value);
    default:
        ThrowTypeMismatch();
    }
}

Currency Variant::ToCurrency() const {
    switch (m_value.index()) {
    case kCurrency:
        return std::get<Currency>(m_value);
    case kDecimal:
        return Currency::FromDecimal(std::get<Decimal>(m_value));
    case kString:
        return Currency::FromDecimal(ToDecimal());
    default:
        if (IsIntegralKind(m_value.index()))
            return Currency{CheckedInt64(Int128(ToInt64()) * 10000)};
        return Currency::FromDouble(ToDouble());
    }
}

Decimal Variant::ToDecimal() const {
    switch (m_value.index()) {
    case kDecimal:
        return std::get<Decimal>(m_value);
    case kCurrency: {
        const std::int64_t scaled = std::get<Currency>(m_value).scaled;
        const Int128 wide = scaled;
        return MakeDecimal(static_cast<UInt128>(wide < 0 ? -wide : wide), 4, scaled < 0);
    }
    case kString: {
        const auto normalised = NumberText::Normalise(std::get<QString>(m_value));
        bool ok = false;
        const Decimal d = normalised ? Decimal::FromString(*normalised, &ok) : Decimal{};
        if (!normalised) ThrowTypeMismatch();
        if (!ok) ThrowOverflow();
        return d;
    }
    default:
        if (IsIntegralKind(m_value.index())) return FromInt64(ToInt64()).ToDecimal();
        return Decimal::FromDouble(ToDouble());
    }
}

Date Variant::ToDate() const {
    switch (m_value.index()) {
    case kDate:
        return std::get<Date>(m_value);
    case kString: {
        Date d;
        if (ParseDateText(std::get<QString>(m_value), d)) return d;
        return Date{StringToDouble(std::get<QString>(m_value))};
    }
    default:
        return Date{ToDouble()};
    }
}

QString Variant::ToString() const {
    switch (m_value.index()) {
    case kEmpty:
        return {};
    case kNull:
        ThrowInvalidNull();
    case kInteger:
        return QString::number(std::get<std::int16_t>(m_value));
    case kLong:
        return QString::number(std::get<std::int32_t>(m_value));
    case kByte:
        return QString::number(std::get<std::uint8_t>(m_value));
    case kSingle:
        return SingleToString(std::get<float>(m_value), u',');
    case kDouble:
        return DoubleToString(std::get<double>(m_value), u',');
    case kCurrency:
        return FormatCurrency(std::get<Currency>(m_value), u',');
    case kDecimal:
        return std::get<Decimal>(m_value).ToString().replace(u'.', u',');
    case kDate:
        return FormatDate(std::get<Date>(m_value), false);
    case kString:
        return std::get<QString>(m_value);
    case kBoolean:
        return std::get<bool>(m_value) ? QStringLiteral("True") : QStringLiteral("False");
    default:
        ThrowTypeMismatch();
    }
}

QString Variant::ToInvariantString() const {
    switch (m_value.index()) {
    case kSingle:
        return SingleToString(std::get<float>(m_value), u'.');
    case kDouble:
        return DoubleToString(std::get<double>(m_value), u'.');
    case kCurrency:
        return FormatCurrency(std::get<Currency>(m_value), u'.');
    case kDecimal:
        return std::get<Decimal>(m_value).ToString();
    case kDate:
        return FormatDate(std::get<Date>(m_value), true);
    default:
        return ToString();
    }
}

ObjectPtr Variant::ToObject() const {
    if (const auto* object = std::get_if<ObjectPtr>(&m_value)) return *object;
    throw VariantError(vbErrObjectRequired, QStringLiteral("Object required"));
}

VariantArrayPtr Variant::ToArray() const {
    const auto* array = std::get_if<VariantArrayPtr>(&m_value);
    return array ? *array : nullptr;
}

int Variant::Compare(const Variant& other, bool textCompare) const {
    const std::size_t a = m_value.index(), b = other.m_value.index();
    if (a == kNull || b == kNull) return 2;
    if (a == kString && b == kString) {
        const int c = std::get<QString>(m_value).compare(std::get<QString>(other.m_value),
                                                         textCompare ? Qt::CaseInsensitive
                                                                     : Qt::CaseSensitive);
        return Sign(c);
    }
    // Empty takes the other side's kind: "" against a string, 0 against a number.
    if (a == kEmpty && b == kString) return std::get<QString>(other.m_value).isEmpty() ? 0 : -1;
    if (a == kString && b == kEmpty) return std::get<QString>(m_value).isEmpty() ? 0 : 1;
    if (IsNumberKind(a) && IsNumberKind(b)) {
        if ((a == kDecimal || a == kCurrency) && (b == kDecimal || b == kCurrency))
            return ToDecimal().Compare(other.ToDecimal());
        if (IsIntegralKind(a) && IsIntegralKind(b))
            return Sign(static_cast<double>(ToInt64() - other.ToInt64()));
        return Sign(ToDouble() - other.ToDouble());
    }
    // A number is less than a string, as VB orders mixed variants.
    if (IsNumberKind(a) && b == kString) return -1;
    if (a == kString && IsNumberKind(b)) return 1;
    if (a == kObject && b == kObject)
        return std::get<ObjectPtr>(m_value) == std::get<ObjectPtr>(other.m_value) ? 0 : 2;
    if (a == kError && b == kError)
        return std::get<ErrorValue>(m_value).code == std::get<ErrorValue>(other.m_value).code ? 0
                                                                                              : 2;
    return 2;
}

bool Variant::Equals(const Variant& other) const {
    const std::size_t a = m_value.index(), b = other.m_value.index();
    if (a == kNull || b == kNull || a == kArray || b == kArray) return false;
    if ((a == kString && b != kString && b != kEmpty) ||
        (b == kString && a != kString && a != kEmpty))
        return false;
    return Compare(other) == 0;
}

// ---------------------------------------------------------------------------------------

Date MakeDate(int year, int month, int day, int hour, int minute, int second) {
    static const qint64 epoch = QDate(1899, 12, 30).toJulianDay();
    const double days = static_cast<double>(QDate(year, month, day).toJulianDay() - epoch);
    const double fraction = (hour * 3600.0 + minute * 60.0 + second) / 86400.0;
    // OLE dates before the epoch keep the time as a positive fraction away from zero.
    return Date{days >= 0 ? days + fraction : days - fraction};
}

void SplitDate(Date d, int& year, int& month, int& day, int& hour, int& minute, int& second) {
    static const qint64 epoch = QDate(1899, 12, 30).toJulianDay();
    double wholeDays = std::trunc(d.value);
    auto seconds = static_cast<qint64>(std::llround(std::fabs(d.value - wholeDays) * 86400.0));
    if (seconds >= 86400) {
        seconds -= 86400;
        wholeDays += d.value < 0 ? -1 : 1;
    }
    const QDate date = QDate::fromJulianDay(epoch + static_cast<qint64>(wholeDays));
    year = date.year();
    month = date.month();
    day = date.day();
    hour = static_cast<int>(seconds / 3600);
    minute = static_cast<int>(seconds / 60 % 60);
    second = static_cast<int>(seconds % 60);
}

Date BlankDate() {
    return MakeDate(1753, 1, 1);
}

namespace {

// The number of significant digits of the shortest text that reads back as `value`.
int ShortestDigits(double value) {
    char text[32];
    const auto written =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
    return static_cast<int>(std::count_if(text, std::find(text, written.ptr, 'e'),
                                          [](char c) { return c >= '0' && c <= '9'; }));
}

} // namespace

QString DoubleToString(double value, QChar decimalSeparator) {
    if (value == 0.0) return QStringLiteral("0");
    // %G switches to the exponent form where VB does (below 1E-04, from 1E+15 up). A value
    // whose shortest text has at most 15 digits rounds to that text whoever rounds it, so the
    // quick conversion serves; longer ones keep Qt's rounding of their 16th digit.
    if (!std::isfinite(value) || ShortestDigits(value) > 15)
        return QString::asprintf("%.15G", value).replace(u'.', decimalSeparator);
    char text[32];
    const auto written =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15);
    QString result = QString::fromLatin1(text, written.ptr - text);
    for (QChar& c : result) {
        if (c == u'.') c = decimalSeparator;
        if (c == u'e') c = u'E';
    }
    return result;
}

} // namespace zlx
