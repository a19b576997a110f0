#include "platform/ado/Field.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/ColumnStore.h"
#include "platform/ado/Recordset.h"

namespace zlx::ado {

namespace {

// ADO's size and precision for the fixed-size types.
void CompleteFixedSize(FieldDefinition& def) {
    struct Fixed {
        DataTypeEnum type;
        std::int32_t size;
        std::uint8_t precision;
    };
    static constexpr Fixed kFixed[] = {{adTinyInt, 1, 3},      {adUnsignedTinyInt, 1, 3},
                                       {adSmallInt, 2, 5},     {adUnsignedSmallInt, 2, 5},
                                       {adInteger, 4, 10},     {adUnsignedInt, 4, 10},
                                       {adBigInt, 8, 19},      {adUnsignedBigInt, 8, 20},
                                       {adSingle, 4, 7},       {adDouble, 8, 15},
                                       {adCurrency, 8, 19},    {adDate, 8, 0},
                                       {adDBTimeStamp, 16, 0}, {adDBDate, 6, 0},
                                       {adDBTime, 6, 0},       {adBoolean, 2, 0},
                                       {adNumeric, 19, 18},    {adDecimal, 19, 18},
                                       {adGUID, 16, 0}};
    for (const Fixed& f : kFixed) {
        if (f.type != def.type) continue;
        if (def.definedSize <= 0) def.definedSize = f.size;
        if (def.precision == 0) def.precision = f.precision;
        return;
    }
}

bool IsFixedSize(DataTypeEnum type) {
    if (type == adChar || type == adWChar || type == adBinary) return true;
    return ColumnStore::KindOf(type) != ColumnStore::Kind::Text && type != adVarBinary &&
           type != adLongVarBinary && type != adBinary && type != adVariant;
}

// Text pieces are strings; binary pieces are Byte arrays.
Variant Concatenated(const Variant& head, const Variant& tail) {
    if (head.IsNull() || head.IsEmpty()) return tail;
    if (head.IsArray() || tail.IsArray()) {
        const VariantArrayPtr first = head.ToArray(), second = tail.ToArray();
        if (first && second) {
            const auto a = first->Bytes(), b = second->Bytes();
            if (a && b) return Variant::FromBytes(*a + *b);
        }
        std::vector<Variant> bytes;
        for (const Variant& part : {head, tail}) {
            if (const VariantArrayPtr array = part.ToArray())
                bytes.insert(bytes.end(), array->Data().begin(), array->Data().end());
            else
                RaiseAdoError(adErrDataConversion);
        }
        return Variant::Array(std::move(bytes));
    }
    return Variant(head.ToString() + tail.ToString());
}

Variant Piece(const Variant& value, std::int32_t from, std::int32_t length) {
    if (const VariantArrayPtr array = value.ToArray()) {
        if (const auto bytes = array->Bytes()) {
            const QByteArray piece = bytes->mid(from, length);
            return piece.isEmpty() ? Variant::Null() : Variant::FromBytes(piece);
        }
        const auto& data = array->Data();
        const auto begin = data.begin() + std::min<std::size_t>(from, data.size());
        const auto end =
            data.begin() + std::min<std::size_t>(std::size_t(from) + length, data.size());
        return begin == end ? Variant::Null() : Variant::Array(std::vector<Variant>(begin, end));
    }
    const QString text = value.ToString();
    return from >= text.size() ? Variant::Null() : Variant(text.mid(from, length));
}

} // namespace

FieldDefinition Field::Completed(FieldDefinition definition) {
    CompleteFixedSize(definition);
    if (definition.attributes == adFldUnspecified) {
        definition.attributes = adFldUpdatable | adFldIsNullable | adFldMayBeNull;
        if (IsFixedSize(definition.type)) definition.attributes |= adFldFixed;
    }
    if (definition.keyColumn) definition.attributes |= adFldKeyColumn;
    return definition;
}

Field::Field(Recordset& owner, int index, FieldDefinition definition)
    : m_owner(owner), m_index(index), m_def(Completed(std::move(definition))) {
    m_properties.Add(QStringLiteral("Optimize"), Variant(false),
                     [this](const Variant& v) { m_owner.SetFieldOptimized(m_index, v.ToBool()); });
    m_properties.Add(QStringLiteral("BASECOLUMNNAME"), Variant(m_def.baseColumn));
    m_properties.Add(QStringLiteral("BASETABLENAME"), Variant(m_def.baseTable));
    m_properties.Add(QStringLiteral("KEYCOLUMN"), Variant(m_def.keyColumn));
}

void Field::SetBaseColumn(const QString& table, const QString& column, bool key) {
    m_def.baseTable = table;
    m_def.baseColumn = column;
    m_def.keyColumn = key;
    if (key) m_def.attributes |= adFldKeyColumn;
    m_properties.SetItem(QStringLiteral("BASECOLUMNNAME"), Variant(column));
    m_properties.SetItem(QStringLiteral("BASETABLENAME"), Variant(table));
    m_properties.SetItem(QStringLiteral("KEYCOLUMN"), Variant(key));
}

void Field::SetPrecision(std::uint8_t precision) {
    if (m_owner.State() != adStateClosed) RaiseAdoError(adErrIllegalOperation);
    m_def.precision = precision;
}

void Field::SetNumericScale(std::uint8_t scale) {
    if (m_owner.State() != adStateClosed) RaiseAdoError(adErrIllegalOperation);
    m_def.numericScale = scale;
}

Variant Field::Value() const {
    return m_owner.CurrentValue(m_index);
}

void Field::SetValue(const Variant& value) {
    m_owner.SetCurrentValue(m_index, value);
}

Variant Field::OriginalValue() const {
    return m_owner.CurrentOriginalValue(m_index);
}

std::int32_t Field::ActualSize() const {
    const Variant value = Value();
    if (value.IsNull()) return 0;
    if (ColumnStore::KindOf(m_def.type) == ColumnStore::Kind::Text) {
        return static_cast<std::int32_t>(value.ToString().size());
    }
    return m_def.definedSize;
}

void Field::AppendChunk(const Variant& data) {
    if (!(m_def.attributes & adFldLong)) RaiseAdoError(adErrFeatureNotAvailable);
    Variant pending;
    const bool appending = m_owner.PendingValue(m_index, pending);
    SetValue(appending ? Concatenated(pending, data) : data);
}

Variant Field::GetChunk(std::int32_t length) {
    if (!(m_def.attributes & adFldLong)) RaiseAdoError(adErrFeatureNotAvailable);
    if (length < 0) RaiseAdoError(adErrInvalidArgument);
    const Variant record = m_owner.Bookmark();
    if (!(record.Equals(m_chunkRecord))) {
        m_chunkRecord = record;
        m_chunkOffset = 0;
    }
    const Variant value = Value();
    if (value.IsNull()) return value;
    const Variant piece = Piece(value, m_chunkOffset, length);
    m_chunkOffset += length;
    return piece;
}

} // namespace zlx::ado
