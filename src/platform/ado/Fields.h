#pragma once
// The Fields collection of a Recordset: lookup by position or by name (case-insensitive),
// and Append while the recordset is closed and has no connection.

#include "platform/ado/Field.h"

#include <memory>
#include <vector>

namespace zlx::ado {

class Fields {
public:
    explicit Fields(Recordset& owner) : m_owner(owner) {}

    int Count() const { return static_cast<int>(m_items.size()); }
    // By 0-based position; 3265 when out of range.
    Field& Item(int index);
    const Field& Item(int index) const;
    // By name; 3265 when no field has it.
    Field& Item(const QString& name);
    const Field& Item(const QString& name) const;
    Field& Item(const char* name) { return Item(QString::fromUtf8(name)); }
    const Field& Item(const char* name) const { return Item(QString::fromUtf8(name)); }
    // By a Variant holding a name or a number, as VB's Fields(x).
    Field& Item(const Variant& key) { return Item(PositionOf(key)); }
    const Field& Item(const Variant& key) const { return Item(PositionOf(key)); }
    Field& operator[](int index) { return Item(index); }
    Field& operator[](const QString& name) { return Item(name); }

    // -1 when no field has the name.
    int IndexOf(const QString& name) const;

    // Fields.Append(name, type, definedSize, attributes); 3367 for a name already present,
    // 3219 on an open or connected recordset.
    Field& Append(const QString& name, DataTypeEnum type, std::int32_t definedSize = 0,
                  std::int32_t attributes = adFldUnspecified);
    Field& Append(const FieldDefinition& definition);
    // Adds a field while a recordset is being filled from a result: names may repeat or be
    // empty (SELECT 1, 2; a self-join), as the engine names them; a name then finds the
    // first such field and every one is reachable by position.
    Field& Define(const FieldDefinition& definition);
    void Clear() { m_items.clear(); }

private:
    int PositionOf(const Variant& key) const; // 3265 for an unknown name, 3001 for a non-key

    Recordset& m_owner;
    std::vector<std::unique_ptr<Field>> m_items;
};

} // namespace zlx::ado
