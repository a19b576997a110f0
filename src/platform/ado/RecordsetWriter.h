#pragma once
// The statements that save a record's changes to the one table a recordset was read from,
// addressing the record by its key columns: INSERT for a new record, UPDATE of the changed
// fields, DELETE.

#include "platform/ado/Fields.h"

#include <QString>
#include <vector>

namespace zlx::ado {

class RecordsetWriter {
public:
    explicit RecordsetWriter(const Fields& fields);

    // False when the fields do not come from one table with a key: nothing can be written.
    bool CanWrite() const { return !m_table.isEmpty() && !m_keys.empty(); }
    const QString& Table() const { return m_table; }
    // The key field when the table has exactly one key column, else -1.
    int SingleKey() const { return m_keys.size() == 1 ? m_keys.front() : -1; }

    QString InsertSql(const std::vector<Variant>& values) const;
    // Empty when no field changed.
    QString UpdateSql(const std::vector<Variant>& original,
                      const std::vector<Variant>& current) const;
    QString DeleteSql(const std::vector<Variant>& original) const;

    // A value as SQL text: 'text' with quotes doubled, numbers with ".", dates as
    // 'yyyymmdd hh:mm:ss', booleans 1/0, Byte arrays as 0x..., NULL.
    static QString Literal(const Variant& value);

private:
    QString ColumnName(int field) const;
    QString WhereKey(const std::vector<Variant>& original) const;
    const Fields& m_fields;
    QString m_table;
    std::vector<int> m_keys;
};

} // namespace zlx::ado
