#pragma once
// An ADO connection to a workbook of the test's own folder, and its statements' results as
// rows of text.

#include "TestWorkbooks.h"
#include "platform/ado/Connection.h"
#include "support/TemporaryFolder.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

namespace zlx::test {

// Every rowset's columns and its rows, each value as ToInvariantString gives it ("NULL" for
// Null) joined by "|".
struct CollectedRows : ado::ResultSink {
    std::vector<ado::ColumnInfo> columns;
    QStringList rows;
    std::vector<std::vector<Variant>> values;
    void BeginRowset(const std::vector<ado::ColumnInfo>& c) override { columns = c; }
    bool Row(std::vector<Variant>& row) override;
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
};

class WorkbookSession : public ::testing::Test {
protected:
    QString PathOf(const QString& name) const { return m_folder.filePath(name); }
    void Open(const QString& path);
    CollectedRows Query(const QString& sql);
    void Run(const QString& sql);
    // The description of the error `sql` raises, "" when it runs.
    QString ErrorOf(const QString& sql);
    static QByteArray Bytes(const QString& path);

    TemporaryFolder m_folder;
    std::unique_ptr<ado::Connection> m_cn;
};

} // namespace zlx::test
