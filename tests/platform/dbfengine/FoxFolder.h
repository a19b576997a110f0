#pragma once
// Test helper: a FoxPro folder of its own, reached through an ADO connection with the string
// the library builds for the FoxPro provider, and its statements' results as plain rows.

#include "platform/ado/Connection.h"
#include "platform/engines/RecordingSink.h"
#include "support/TemporaryFolder.h"

#include <QStringList>

namespace zlx::dbfengine::testing {

QString FoxConnectionString(const QString& folder, const QString& deleted = QStringLiteral("Yes"));

class FoxFolder {
public:
    explicit FoxFolder(const QString& deleted = QStringLiteral("Yes"));
    QString Path(const QString& name) const { return m_dir.filePath(name); }
    QString Folder() const { return m_dir.path(); }
    ado::Connection& Connection() { return *m_connection; }

    // Runs a batch; its last rowset's rows (none when it returned none).
    std::vector<std::vector<Variant>> Rows(const QString& sql);
    // The first rowset's columns and rows.
    ado::testing::RecordedRowset Rowset(const QString& sql);
    void Run(const QString& sql);
    // The rows of a query as text: values joined by "|", rows by ";".
    QString Text(const QString& sql);
    // The description of the error the batch raises; empty when it raises none.
    QString Error(const QString& sql);

private:
    zlx::test::TemporaryFolder m_dir;
    ado::ConnectionPtr m_connection;
};

} // namespace zlx::dbfengine::testing
