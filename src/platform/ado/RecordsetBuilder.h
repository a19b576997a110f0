#pragma once
// Fills a Recordset from a driver's results: the first result of the batch goes into the
// target, each further one into a recordset queued for NextRecordset. Emits FetchProgress
// every 1,000 rows, honours MaxRecords and stops at Cancel keeping the rows fetched so far.

#include "platform/ado/Field.h"
#include "platform/engines/Driver.h"

#include <cstdint>
#include <memory>

namespace zlx::ado {

class Recordset;

class RecordsetBuilder : public ResultSink {
public:
    static constexpr std::int64_t kProgressEvery = 1000;

    explicit RecordsetBuilder(Recordset& target);

    // The field a driver's column becomes.
    static FieldDefinition DefinitionOf(const ColumnInfo& column);

    void BeginRowset(const std::vector<ColumnInfo>& columns) override;
    bool Row(std::vector<Variant>& values) override;
    void EndRowset() override;
    void RowsAffected(std::int64_t count) override;

    void RequestCancel() { m_cancelled = true; }
    bool Cancelled() const { return m_cancelled; }
    bool Fetching() const { return m_fetching; }
    // Closes the rowset being fetched after a cancel or an error, keeping its rows.
    void Finish();
    std::int64_t RowsFetched() const { return m_rows; }

private:
    Recordset& NextTarget();
    Recordset& m_target;
    Recordset* m_current = nullptr;
    int m_results = 0;
    bool m_fetching = false;
    bool m_cancelled = false;
    std::int64_t m_rows = 0;
};

} // namespace zlx::ado
