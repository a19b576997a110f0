#pragma once
// A result sink that writes every result event of a batch as one line of text: "rowset",
// "row <values joined by |>" (NULL for a null), "end", "count <n>"; and one that also keeps the
// columns and values of the first rowset.

#include "platform/engines/Driver.h"

#include <QStringList>

namespace zlx::test {

class RecordingSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>&) override {
        events << QStringLiteral("rowset");
    }
    bool Row(std::vector<Variant>& values) override {
        QStringList cells;
        for (const Variant& value : values)
            cells << (value.IsNull() ? QStringLiteral("NULL") : value.ToInvariantString());
        events << QStringLiteral("row ") + cells.join(u'|');
        return true;
    }
    void EndRowset() override { events << QStringLiteral("end"); }
    void RowsAffected(std::int64_t count) override {
        events << QStringLiteral("count %1").arg(count);
    }
    QStringList events;
};

// The columns and the first row's values of the first rowset of a batch, as the driver gave them.
class ColumnsSink : public RecordingSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        if (columns.empty()) columns = described;
        RecordingSink::BeginRowset(described);
    }
    bool Row(std::vector<Variant>& values) override {
        if (firstRow.empty()) firstRow = values;
        return RecordingSink::Row(values);
    }
    std::vector<ado::ColumnInfo> columns;
    std::vector<Variant> firstRow;
};

} // namespace zlx::test
