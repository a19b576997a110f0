#include "platform/ado/ColumnStore.h"

#include "platform/ado/AdoErrorTexts.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace zlx::ado {

namespace {

bool IsTextType(DataTypeEnum type) {
    switch (type) {
    case adBSTR:
    case adChar:
    case adWChar:
    case adVarChar:
    case adVarWChar:
    case adLongVarChar:
    case adLongVarWChar:
    case adGUID:
        return true;
    default:
        return false;
    }
}

constexpr std::uint8_t kWideDecimal = 0xFF;

std::int64_t CheckedRange(std::int64_t v, std::int64_t low, std::int64_t high) {
    if (v < low || v > high) throw VariantError(vbErrOverflow, QStringLiteral("Overflow"));
    return v;
}

// Whether an integer type holds `v` as it is (Set's conversion would refuse it otherwise).
bool HoldsInteger(DataTypeEnum type, std::int64_t v) {
    switch (type) {
    case adBoolean:
        return false; // a flag keeps VB's True, not the number
    case adUnsignedTinyInt:
        return v >= 0 && v <= 255;
    case adTinyInt:
        return v >= -128 && v <= 127;
    case adSmallInt:
        return v >= std::numeric_limits<std::int16_t>::min() &&
               v <= std::numeric_limits<std::int16_t>::max();
    case adInteger:
        return v >= std::numeric_limits<std::int32_t>::min() &&
               v <= std::numeric_limits<std::int32_t>::max();
    case adUnsignedSmallInt:
        return v >= 0 && v <= 65535;
    case adUnsignedInt:
        return v >= 0 && v <= std::numeric_limits<std::uint32_t>::max();
    default:
        return true;
    }
}

// |v| for v >= 0, |v| - 1 below: the bits that bound a value's magnitude.
std::uint64_t MagnitudeBits(std::int64_t v) {
    const auto bits = static_cast<std::uint64_t>(v);
    return bits ^ (0 - (bits >> 63));
}

} // namespace

ColumnStore::ColumnStore(DataTypeEnum type, std::int32_t definedSize, bool isLong,
                         TextColumn::Layout texts)
    : m_type(type), m_kind(KindOf(type)),
      m_maxChars(isLong || type == adLongVarChar || type == adLongVarWChar || type == adGUID
                     ? 0
                     : definedSize),
      m_texts(texts) {}

ColumnStore::Kind ColumnStore::KindOf(DataTypeEnum type) {
    switch (type) {
    case adTinyInt:
    case adSmallInt:
    case adInteger:
    case adBigInt:
    case adUnsignedTinyInt:
    case adUnsignedSmallInt:
    case adUnsignedInt:
    case adUnsignedBigInt:
    case adBoolean:
        return Kind::Integer;
    case adCurrency:
        return Kind::Currency;
    case adNumeric:
    case adDecimal:
    case adVarNumeric:
        return Kind::Decimal;
    case adSingle:
    case adDouble:
    case adDate:
    case adDBDate:
    case adDBTime:
    case adDBTimeStamp:
        return Kind::Real;
    default:
        return IsTextType(type) ? Kind::Text : Kind::Other;
    }
}

void ColumnStore::Reserve(std::size_t rows) {
    switch (m_kind) {
    case Kind::Integer:
    case Kind::Currency:
        m_ints.reserve(rows);
        break;
    case Kind::Real:
        m_reals.reserve(rows);
        break;
    case Kind::Decimal:
        m_ints.reserve(rows);
        m_reals.reserve(rows);
        m_scales.reserve(rows);
        break;
    case Kind::Text:
        m_texts.Reserve(rows);
        break;
    case Kind::Other:
        m_others.reserve(rows);
        break;
    }
}

void ColumnStore::AppendDefault() {
    switch (m_kind) {
    case Kind::Integer:
    case Kind::Currency:
        m_ints.push_back(0);
        break;
    case Kind::Real:
        m_reals.push_back(0.0);
        break;
    case Kind::Decimal:
        m_ints.push_back(0);
        m_reals.push_back(0.0);
        m_scales.push_back(0);
        break;
    case Kind::Text:
        m_texts.Append(QString());
        break;
    case Kind::Other:
        m_others.emplace_back();
        break;
    }
    EndAppend();
}

void ColumnStore::AppendNull() {
    AppendDefault();
    SetNull(m_size - 1, true);
}

void ColumnStore::Append(const Variant& value) {
    if (AppendDirect(value)) return;
    AppendDefault();
    try {
        Set(m_size - 1, value);
    } catch (...) {
        SetNull(m_size - 1, true);
        throw;
    }
}

void ColumnStore::EndAppend(std::size_t count) {
    m_size += count;
    if (!m_null.empty()) m_null.resize(m_size, 0);
}

// The values fetched most often go in without the general conversion: a text that fits, and
// numbers, flags and dates already of the column's kind.
bool ColumnStore::AppendDirect(const Variant& value) {
    switch (m_kind) {
    case Kind::Text: {
        const QString* text = value.Get<QString>();
        if (!text || (m_maxChars > 0 && text->size() > m_maxChars)) return false;
        m_texts.Append(*text);
        EndAppend();
        return true;
    }
    case Kind::Integer:
        if (const auto* flag = value.Get<bool>(); flag && m_type == adBoolean) {
            m_ints.push_back(*flag ? -1 : 0); // VB's True
            EndAppend();
            return true;
        }
        if (const auto* v = value.Get<std::int32_t>()) return AppendInteger(*v);
        if (const auto* v = value.Get<std::int16_t>()) return AppendInteger(*v);
        return false;
    case Kind::Currency: {
        const auto* v = value.Get<Currency>();
        return v && AppendCurrency(v->scaled);
    }
    case Kind::Real:
        if (const auto* v = value.Get<Date>()) return AppendReal(v->value);
        if (const auto* v = value.Get<double>()) return AppendReal(*v);
        return false;
    case Kind::Decimal:
        if (!value.Get<Decimal>() && !value.Get<Currency>()) return false;
        AppendDefault();
        StoreDecimal(m_size - 1, value.ToDecimal());
        return true;
    case Kind::Other:
        return false;
    }
    return false;
}

bool ColumnStore::AppendInteger(std::int64_t value) {
    if (m_kind != Kind::Integer || !HoldsInteger(m_type, value)) return false;
    AppendIntegers(&value, 1);
    return true;
}

bool ColumnStore::AppendCurrency(std::int64_t scaled) {
    if (m_kind != Kind::Currency) return false;
    AppendCurrencies(&scaled, 1);
    return true;
}

bool ColumnStore::AppendReal(double value) {
    if (m_kind != Kind::Real || m_type == adSingle) return false;
    AppendReals(&value, nullptr, 1);
    return true;
}

void ColumnStore::AppendIntegers(const std::int64_t* values, std::size_t count) {
    m_ints.insert(m_ints.end(), values, values + count);
    EndAppend(count);
}

void ColumnStore::AppendCurrencies(const std::int64_t* scaled, std::size_t count) {
    std::uint64_t magnitudes = 0;
    for (std::size_t i = 0; i < count; ++i)
        magnitudes |= MagnitudeBits(scaled[i]);
    m_magnitudes |= magnitudes;
    AppendIntegers(scaled, count);
}

void ColumnStore::AppendReals(const double* values, const std::uint8_t* nulls, std::size_t count) {
    const std::size_t first = m_size;
    m_reals.insert(m_reals.end(), values, values + count);
    EndAppend(count);
    for (std::size_t i = 0; nulls && i < count; ++i) {
        if (nulls[i]) SetNull(first + i, true);
    }
}

bool ColumnStore::AppendText(QStringView text) {
    if (m_kind != Kind::Text || (m_maxChars > 0 && text.size() > m_maxChars)) return false;
    m_texts.Append(text);
    EndAppend();
    return true;
}

void ColumnStore::Clear() {
    m_size = 0;
    m_null.clear();
    m_nullCount = 0;
    m_magnitudes = 0;
    m_ints.clear();
    m_reals.clear();
    m_scales.clear();
    m_wideDecimals.clear();
    m_texts.Clear();
    m_others.clear();
}

void ColumnStore::SetNull(std::size_t row, bool null) {
    if (null && m_null.empty()) m_null.assign(m_size, 0);
    if (m_null.empty() || m_null[row] == (null ? 1 : 0)) return;
    m_null[row] = null ? 1 : 0;
    if (null)
        ++m_nullCount;
    else
        --m_nullCount;
}

bool ColumnStore::HasNoNulls() const {
    return m_nullCount == 0;
}

void ColumnStore::Set(std::size_t row, const Variant& value) {
    if (value.IsNull() || value.IsEmpty()) {
        SetNull(row, true);
        return;
    }
    try {
        StoreConverted(row, value);
    } catch (const VariantError& e) {
        RaiseAdoError(adErrDataConversion, e.Description());
    }
    SetNull(row, false);
}

void ColumnStore::StoreConverted(std::size_t row, const Variant& value) {
    switch (m_kind) {
    case Kind::Integer:
        switch (m_type) {
        case adBoolean:
            m_ints[row] = value.ToBool() ? -1 : 0; // VB's True
            return;
        case adUnsignedTinyInt:
            m_ints[row] = value.ToByte();
            return;
        case adTinyInt:
            m_ints[row] = CheckedRange(value.ToInt(), -128, 127);
            return;
        case adSmallInt:
            m_ints[row] = value.ToInt();
            return;
        case adInteger:
            m_ints[row] = value.ToLong();
            return;
        case adUnsignedSmallInt:
            m_ints[row] = CheckedRange(value.ToLong(), 0, 65535);
            return;
        case adUnsignedInt:
            m_ints[row] =
                CheckedRange(value.ToInt64(), 0, std::numeric_limits<std::uint32_t>::max());
            return;
        default:
            m_ints[row] = value.ToInt64();
            return;
        }
    case Kind::Currency:
        m_ints[row] = value.ToCurrency().scaled;
        m_magnitudes |= MagnitudeBits(m_ints[row]);
        return;
    case Kind::Real:
        if (m_type == adSingle)
            m_reals[row] = value.ToSingle();
        else if (m_type == adDouble)
            m_reals[row] = value.ToDouble();
        else
            m_reals[row] = value.ToDate().value;
        return;
    case Kind::Text: {
        const QString text = value.ToString();
        if (m_maxChars > 0 && text.size() > m_maxChars) {
            RaiseAdoError(adHrMultipleStep, QStringLiteral("The text is longer than the field."));
        }
        m_texts.Set(row, text);
        return;
    }
    case Kind::Decimal:
        StoreDecimal(row, value.ToDecimal());
        return;
    case Kind::Other:
        m_others[row] = value;
        return;
    }
}

// Decimals whose mantissa fits 63 bits (nearly all) are kept as that signed mantissa and
// their scale; a negative zero keeps its sign among the wide ones.
void ColumnStore::StoreDecimal(std::size_t row, const Decimal& value) {
    const bool narrow =
        value.hi == 0 &&
        value.lo <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) &&
        !(value.lo == 0 && value.negative);
    if (narrow) {
        const auto mantissa = static_cast<std::int64_t>(value.lo);
        m_ints[row] = value.negative ? -mantissa : mantissa;
        m_scales[row] = value.scale;
    } else if (m_scales[row] == kWideDecimal) {
        m_wideDecimals[static_cast<std::size_t>(m_ints[row])] = value;
    } else {
        m_ints[row] = static_cast<std::int64_t>(m_wideDecimals.size());
        m_scales[row] = kWideDecimal;
        m_wideDecimals.push_back(value);
    }
    m_reals[row] = value.ToDouble();
}

Decimal ColumnStore::DecimalAt(std::size_t row) const {
    if (m_scales[row] == kWideDecimal) return m_wideDecimals[static_cast<std::size_t>(m_ints[row])];
    const std::int64_t mantissa = m_ints[row];
    Decimal value;
    value.lo = mantissa < 0 ? 0 - static_cast<std::uint64_t>(mantissa)
                            : static_cast<std::uint64_t>(mantissa);
    value.scale = m_scales[row];
    value.negative = mantissa < 0;
    return value;
}

Variant ColumnStore::Get(std::size_t row) const {
    if (IsNull(row)) return Variant::Null();
    switch (m_kind) {
    case Kind::Integer: {
        const std::int64_t v = m_ints[row];
        switch (m_type) {
        case adBoolean:
            return Variant(v != 0);
        case adUnsignedTinyInt:
            return Variant(static_cast<std::uint8_t>(v));
        case adTinyInt:
        case adSmallInt:
            return Variant(static_cast<std::int16_t>(v));
        case adInteger:
        case adUnsignedSmallInt:
            return Variant(static_cast<std::int32_t>(v));
        default:
            return Variant::FromInt64(v);
        }
    }
    case Kind::Currency:
        return Variant(Currency{m_ints[row]});
    case Kind::Real:
        if (m_type == adSingle) return Variant(static_cast<float>(m_reals[row]));
        if (m_type == adDouble) return Variant(m_reals[row]);
        return Variant(Date{m_reals[row]});
    case Kind::Decimal:
        return Variant(DecimalAt(row));
    case Kind::Text:
        return Variant(m_texts.Get(row));
    case Kind::Other:
        return m_others[row];
    }
    return Variant::Null();
}

bool ColumnStore::CurrencyAt(std::size_t row, Currency& value) const {
    const bool number = m_kind == Kind::Currency || m_kind == Kind::Decimal ||
                        (m_kind == Kind::Integer && m_type != adBoolean) ||
                        (m_kind == Kind::Real && (m_type == adSingle || m_type == adDouble));
    if (!number) return false;
    if (IsNull(row))
        throw VariantError(vbErrInvalidUseOfNull, QStringLiteral("Invalid use of Null"));
    switch (m_kind) {
    case Kind::Currency:
        value = Currency{m_ints[row]};
        break;
    case Kind::Decimal:
        value = Currency::FromDecimal(DecimalAt(row));
        break;
    case Kind::Integer:
        value = Variant::FromInt64(m_ints[row]).ToCurrency();
        break;
    default:
        value = Get(row).ToCurrency();
    }
    return true;
}

// True when no partial sum of `count` currency values of the column can leave 64 bits,
// whatever their order: every magnitude ever stored below 2^b and fewer than 2^n rows, with
// b + n at most 63.
bool ColumnStore::AddsUpWithoutOverflow(std::size_t count) const {
    const int valueBits = 64 - std::countl_zero(m_magnitudes);
    const int countBits = 64 - std::countl_zero(static_cast<std::uint64_t>(count));
    return valueBits + countBits <= 63;
}

bool ColumnStore::CurrencyTotal(const std::vector<std::uint32_t>& rows, Currency& total) const {
    if (m_kind == Kind::Currency && HasNoNulls() && AddsUpWithoutOverflow(rows.size())) {
        // No partial sum overflows, so the order does not matter: all rows (a view holds each
        // row once) are added up in store order.
        std::uint64_t sum = 0;
        if (rows.size() == m_size) {
            for (std::int64_t v : m_ints)
                sum += static_cast<std::uint64_t>(v);
        } else {
            for (std::uint32_t row : rows)
                sum += static_cast<std::uint64_t>(m_ints[row]);
        }
        total = Currency{static_cast<std::int64_t>(sum)};
        return true;
    }
    Currency sum;
    for (std::uint32_t row : rows) {
        Currency value;
        if (!CurrencyAt(row, value)) return false;
        if (__builtin_add_overflow(sum.scaled, value.scaled, &sum.scaled))
            throw VariantError(vbErrOverflow, QStringLiteral("Overflow"));
    }
    total = sum;
    return true;
}

double ColumnStore::NumberAt(std::size_t row) const {
    switch (m_kind) {
    case Kind::Integer:
        return static_cast<double>(m_ints[row]);
    case Kind::Currency:
        return static_cast<double>(m_ints[row]) / 10000.0;
    case Kind::Real:
    case Kind::Decimal:
        return m_reals[row];
    case Kind::Text:
        return Variant(m_texts.Get(row)).ToDouble();
    case Kind::Other:
        return m_others[row].ToDouble();
    }
    return 0.0;
}

} // namespace zlx::ado
