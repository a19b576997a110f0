#include "platform/ado/Fields.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/Recordset.h"

namespace zlx::ado {

Field& Fields::Item(int index) {
    if (index < 0 || index >= Count()) RaiseAdoError(adErrItemNotFound);
    return *m_items[index];
}

const Field& Fields::Item(int index) const {
    if (index < 0 || index >= Count()) RaiseAdoError(adErrItemNotFound);
    return *m_items[index];
}

int Fields::IndexOf(const QString& name) const {
    for (int i = 0; i < Count(); ++i) {
        if (m_items[i]->Name().compare(name, Qt::CaseInsensitive) == 0) return i;
    }
    return -1;
}

Field& Fields::Item(const QString& name) {
    const int index = IndexOf(name);
    if (index < 0) RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(name));
    return *m_items[index];
}

const Field& Fields::Item(const QString& name) const {
    const int index = IndexOf(name);
    if (index < 0) RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(name));
    return *m_items[index];
}

int Fields::PositionOf(const Variant& key) const {
    if (key.VarType() == vbString) return Item(key.ToString()).Index();
    if (!key.IsNumeric()) RaiseAdoError(adErrInvalidArgument);
    const double position = key.ToDouble();
    if (position < 0 || position >= Count()) RaiseAdoError(adErrItemNotFound);
    return static_cast<int>(position);
}

Field& Fields::Append(const QString& name, DataTypeEnum type, std::int32_t definedSize,
                      std::int32_t attributes) {
    FieldDefinition definition;
    definition.name = name;
    definition.type = type;
    definition.definedSize = definedSize;
    definition.attributes = attributes;
    return Append(definition);
}

Field& Fields::Append(const FieldDefinition& definition) {
    if (m_owner.State() != adStateClosed || m_owner.ActiveConnection()) {
        RaiseAdoError(adErrIllegalOperation);
    }
    if (IndexOf(definition.name) >= 0) RaiseAdoError(adErrObjectInCollection);
    return Define(definition);
}

Field& Fields::Define(const FieldDefinition& definition) {
    m_items.push_back(std::make_unique<Field>(m_owner, Count(), definition));
    return *m_items.back();
}

} // namespace zlx::ado
