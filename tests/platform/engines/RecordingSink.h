#pragma once
// Test helper: a ResultSink that keeps every result of a batch, in order.

#include "platform/engines/Driver.h"

#include <QStringList>

namespace zlx::ado::testing {

struct RecordedRowset {
    std::vector<ColumnInfo> columns;
    std::vector<std::vector<Variant>> rows;
};

class RecordingSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>& columns) override {
        rowsets.push_back({columns, {}});
        events << QStringLiteral("rowset");
    }
    bool Row(std::vector<Variant>& values) override {
        rowsets.back().rows.push_back(values);
        return stopAfter < 0 || static_cast<int>(rowsets.back().rows.size()) < stopAfter;
    }
    void EndRowset() override {
        events.back() += QStringLiteral(" %1").arg(rowsets.back().rows.size());
    }
    void RowsAffected(std::int64_t count) override {
        events << QStringLiteral("affected %1").arg(count);
    }
    void Info(const ErrorRecord& record) override { infos.push_back(record); }

    QStringList events; // "rowset <rows>" or "affected <count>"
    std::vector<RecordedRowset> rowsets;
    std::vector<ErrorRecord> infos;
    int stopAfter = -1;
};

} // namespace zlx::ado::testing
