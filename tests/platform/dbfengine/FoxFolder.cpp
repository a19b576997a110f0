#include "FoxFolder.h"

namespace zlx::dbfengine::testing {

QString FoxConnectionString(const QString& folder, const QString& deleted) {
    return QStringLiteral("Provider=MSDASQL;Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;"
                          "Deleted=%1;Exclusive=No;Null=Yes;Collate=Machine;BackgroundFetch=Yes;"
                          "SourceDB=%2")
        .arg(deleted, folder);
}

FoxFolder::FoxFolder(const QString& deleted) : m_connection(std::make_shared<ado::Connection>()) {
    m_connection->Open(FoxConnectionString(m_dir.path(), deleted));
}

ado::testing::RecordedRowset FoxFolder::Rowset(const QString& sql) {
    ado::testing::RecordingSink sink;
    m_connection->ExecuteInto(sql, sink);
    return sink.rowsets.empty() ? ado::testing::RecordedRowset{} : sink.rowsets.back();
}

std::vector<std::vector<Variant>> FoxFolder::Rows(const QString& sql) {
    return Rowset(sql).rows;
}

void FoxFolder::Run(const QString& sql) {
    ado::testing::RecordingSink sink;
    m_connection->ExecuteInto(sql, sink);
}

QString FoxFolder::Text(const QString& sql) {
    QStringList rows;
    for (const auto& row : Rows(sql)) {
        QStringList values;
        for (const Variant& value : row)
            values << (value.IsNull() ? QStringLiteral("NULL") : value.ToInvariantString());
        rows << values.join(u'|');
    }
    return rows.join(u';');
}

QString FoxFolder::Error(const QString& sql) {
    try {
        Run(sql);
    } catch (const ado::AdoError& error) {
        return error.Description();
    }
    return {};
}

} // namespace zlx::dbfengine::testing
