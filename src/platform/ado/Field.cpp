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

} // namespace

Field::Field(Recordset& owner, int index, FieldDefinition definition)
    : m_owner(owner), m_index(index), m_def(std::move(definition)) {
    CompleteFixedSize(m_def);
    if (m_def.attributes == adFldUnspecified) {
        m_def.attributes = adFldUpdatable | adFldIsNullable | adFldMayBeNull;
        if (IsFixedSize(m_def.type)) m_def.attributes |= adFldFixed;
    }
    if (m_def.keyColumn) m_def.attributes |= adFldKeyColumn;
    m_properties.Add(QStringLiteral("Optimize"), Variant(false),
                     [this](const Variant& v) { m_owner.SetFieldOptimized(m_index, v.ToBool()); });
    m_properties.Add(QStringLiteral("BASECOLUMNNAME"), Variant(m_def.baseColumn));
    m_properties.Add(QStringLiteral("BASETABLENAME"), Variant(m_def.baseTable));
    m_properties.Add(QStringLiteral("KEYCOLUMN"), Variant(m_def.keyColumn));
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

} // namespace zlx::ado
