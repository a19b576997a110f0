#include "platform/ado/ColumnStore.h"

#include "platform/ado/AdoErrorTexts.h"

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

std::int64_t CheckedRange(std::int64_t v, std::int64_t low, std::int64_t high) {
    if (v < low || v > high) throw VariantError(vbErrOverflow, QStringLiteral("Overflow"));
    return v;
}

} // namespace

ColumnStore::ColumnStore(DataTypeEnum type, std::int32_t definedSize, bool isLong)
    : m_type(type), m_kind(KindOf(type)),
      m_maxChars(isLong || type == adLongVarChar || type == adLongVarWChar || type == adGUID
                     ? 0
                     : definedSize) {}

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
    m_null.reserve(rows);
    switch (m_kind) {
    case Kind::Integer:
    case Kind::Currency:
        m_ints.reserve(rows);
        break;
    case Kind::Real:
        m_reals.reserve(rows);
        break;
    case Kind::Decimal:
        m_reals.reserve(rows);
        m_decimals.reserve(rows);
        break;
    case Kind::Text:
        m_texts.reserve(rows);
        break;
    case Kind::Other:
        m_others.reserve(rows);
        break;
    }
}

void ColumnStore::AppendNull() {
    m_null.push_back(1);
    switch (m_kind) {
    case Kind::Integer:
    case Kind::Currency:
        m_ints.push_back(0);
        break;
    case Kind::Real:
        m_reals.push_back(0.0);
        break;
    case Kind::Decimal:
        m_reals.push_back(0.0);
        m_decimals.emplace_back();
        break;
    case Kind::Text:
        m_texts.emplace_back();
        break;
    case Kind::Other:
        m_others.emplace_back();
        break;
    }
}

void ColumnStore::Clear() {
    m_null.clear();
    m_ints.clear();
    m_reals.clear();
    m_decimals.clear();
    m_texts.clear();
    m_others.clear();
}

void ColumnStore::Set(std::size_t row, const Variant& value) {
    if (value.IsNull() || value.IsEmpty()) {
        m_null[row] = 1;
        return;
    }
    try {
        StoreConverted(row, value);
    } catch (const VariantError& e) {
        RaiseAdoError(adErrDataConversion, e.Description());
    }
    m_null[row] = 0;
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
        QString text = value.ToString();
        if (m_maxChars > 0 && text.size() > m_maxChars) {
            RaiseAdoError(adHrMultipleStep, QStringLiteral("The text is longer than the field."));
        }
        m_texts[row] = std::move(text);
        return;
    }
    case Kind::Decimal:
        m_decimals[row] = value.ToDecimal();
        m_reals[row] = m_decimals[row].ToDouble();
        return;
    case Kind::Other:
        m_others[row] = value;
        return;
    }
}

Variant ColumnStore::Get(std::size_t row) const {
    if (m_null[row]) return Variant::Null();
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
        return Variant(m_decimals[row]);
    case Kind::Text:
        return Variant(m_texts[row]);
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
    if (m_null[row])
        throw VariantError(vbErrInvalidUseOfNull, QStringLiteral("Invalid use of Null"));
    switch (m_kind) {
    case Kind::Currency:
        value = Currency{m_ints[row]};
        break;
    case Kind::Decimal:
        value = Currency::FromDecimal(m_decimals[row]);
        break;
    case Kind::Integer:
        value = Variant::FromInt64(m_ints[row]).ToCurrency();
        break;
    default:
        value = Get(row).ToCurrency();
    }
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
        return Variant(m_texts[row]).ToDouble();
    case Kind::Other:
        return m_others[row].ToDouble();
    }
    return 0.0;
}

} // namespace zlx::ado
