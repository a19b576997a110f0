#pragma once
// What a recordset opened on a batch would show as its first value, without the recordset:
// the first column of the first row of the batch's first result, converted to that column's
// type as the recordset stores it. The rest of the rows and results are read through (the
// engine still counts them and still raises their errors) and dropped.

#include "platform/engines/Driver.h"

namespace zlx::ado {

class FirstValueSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>& columns) override;
    bool Row(std::vector<Variant>& values) override;
    void EndRowset() override { m_reading = false; }
    void RowsAffected(std::int64_t count) override;

    // Whether the first result returns rows: a recordset on the batch would be open.
    bool Opened() const { return m_first == First::Rowset; }
    // Whether it returned at least one row.
    bool HasRow() const { return m_hasRow; }
    // The first value of that row (Null for a rowset without columns).
    const Variant& Value() const { return m_value; }

private:
    enum class First { None, Count, Rowset };
    First m_first = First::None;
    bool m_reading = false; // the rows arriving are the first result's
    bool m_hasRow = false;
    ColumnInfo m_column;
    bool m_hasColumn = false;
    Variant m_value = Variant::Null();
};

} // namespace zlx::ado
