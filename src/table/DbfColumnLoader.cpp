#include "table/DbfColumnLoader.h"

namespace zlx {

namespace {

using Kind = DbfFieldCodec::PlainValue::Kind;

// What the column's kind and type make of a number field's plain values; nothing when its
// values do not go in as they are read.
std::optional<Kind> NumberKindOf(const ado::ColumnStore& column) {
    switch (column.GetKind()) {
    case ado::ColumnStore::Kind::Integer:
        if (column.Type() == ado::adInteger) return Kind::Integer;
        return std::nullopt;
    case ado::ColumnStore::Kind::Currency:
        return Kind::Currency;
    case ado::ColumnStore::Kind::Real:
        if (column.Type() == ado::adDouble) return Kind::Double;
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<DbfColumnLoader> DbfColumnLoader::For(const DbfTable& dbf, const DbfField& field,
                                                    ado::ColumnStore& column) {
    if (!dbf.StandsAlone(field)) return std::nullopt;
    const ado::ColumnStore::Kind kind = column.GetKind();
    const auto loader = [&](Shape shape) { return DbfColumnLoader(dbf, field, column, shape); };
    switch (field.type) {
    case 'C':
    case 'V':
        if (kind != ado::ColumnStore::Kind::Text || !dbf.CodePage().DecodesByteForByte())
            return std::nullopt;
        return loader(Shape::Text);
    case 'D':
        if (kind != ado::ColumnStore::Kind::Real || column.Type() == ado::adSingle)
            return std::nullopt;
        return loader(Shape::Date);
    case 'L':
        if (kind != ado::ColumnStore::Kind::Integer || column.Type() == ado::adBoolean)
            return std::nullopt;
        return loader(Shape::Logical);
    case 'N':
    case 'F':
        switch (NumberKindOf(column).value_or(Kind::Null)) {
        case Kind::Integer:
            return loader(Shape::Integer);
        case Kind::Currency:
            return loader(Shape::Currency);
        case Kind::Double:
            return loader(Shape::Real);
        default:
            return std::nullopt;
        }
    default:
        return std::nullopt;
    }
}

DbfColumnLoader::DbfColumnLoader(const DbfTable& dbf, const DbfField& field,
                                 ado::ColumnStore& column, Shape shape)
    : m_codePage(&dbf.CodePage()), m_recordLength(dbf.RecordLength()), m_offset(field.offset),
      m_length(field.length), m_decimals(field.decimals), m_column(&column), m_shape(shape) {}

std::size_t DbfColumnLoader::Read(const char* records, std::size_t count) {
    switch (m_shape) {
    case Shape::Text:
        return count; // decoded straight into the column as they are appended
    case Shape::Date:
        ReadDates(records, count);
        return count;
    case Shape::Logical:
        ReadLogicals(records, count);
        return count;
    default:
        return ReadNumbers(records, count);
    }
}

std::size_t DbfColumnLoader::ReadNumbers(const char* records, std::size_t count) {
    const Kind wanted = m_shape == Shape::Integer    ? Kind::Integer
                        : m_shape == Shape::Currency ? Kind::Currency
                                                     : Kind::Double;
    const bool real = wanted == Kind::Double;
    if (real)
        m_reals.resize(count);
    else
        m_integers.resize(count);
    DbfFieldCodec::PlainValue value;
    const char* bytes = records + m_offset;
    for (std::size_t i = 0; i < count; ++i, bytes += m_recordLength) {
        if (!DbfFieldCodec::DecodePlainNumber(bytes, m_length, m_decimals, value) ||
            value.kind != wanted)
            return i;
        if (real)
            m_reals[i] = value.real;
        else
            m_integers[i] = value.integer;
    }
    return count;
}

void DbfColumnLoader::ReadDates(const char* records, std::size_t count) {
    m_reals.resize(count);
    m_nulls.assign(count, 0);
    const char* bytes = records + m_offset;
    for (std::size_t i = 0; i < count; ++i, bytes += m_recordLength) {
        const std::optional<Date> date = DbfFieldCodec::DateValue(bytes, m_length);
        m_reals[i] = date ? date->value : 0.0;
        m_nulls[i] = date ? 0 : 1;
    }
}

void DbfColumnLoader::ReadLogicals(const char* records, std::size_t count) {
    m_integers.resize(count);
    const char* bytes = records + m_offset;
    for (std::size_t i = 0; i < count; ++i, bytes += m_recordLength)
        m_integers[i] = DbfFieldCodec::LogicalValue(bytes, m_length) ? 1 : 0;
}

void DbfColumnLoader::Append(const char* records, std::size_t count) {
    switch (m_shape) {
    case Shape::Text:
        AppendTexts(records, count);
        return;
    case Shape::Currency:
        m_column->AppendCurrencies(m_integers.data(), count);
        return;
    case Shape::Integer:
    case Shape::Logical:
        m_column->AppendIntegers(m_integers.data(), count);
        return;
    case Shape::Date:
        m_column->AppendReals(m_reals.data(), m_nulls.data(), count);
        return;
    case Shape::Real:
        m_column->AppendReals(m_reals.data(), nullptr, count);
        return;
    }
}

void DbfColumnLoader::AppendTexts(const char* records, std::size_t count) {
    const char* first = records + m_offset;
    m_column->AppendWrittenTexts(count, m_length, [&](std::size_t i, char16_t* out) {
        m_codePage->DecodeBytes(first + i * m_recordLength, m_length, out);
        return static_cast<std::size_t>(m_length);
    });
}

} // namespace zlx
