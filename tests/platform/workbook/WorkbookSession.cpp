#include "WorkbookSession.h"

#include <QFile>

namespace zlx::test {

bool CollectedRows::Row(std::vector<Variant>& row) {
    QStringList texts;
    for (const Variant& value : row)
        texts << (value.IsNull() ? QStringLiteral("NULL") : value.ToInvariantString());
    rows << texts.join(u'|');
    values.push_back(row);
    return true;
}

void WorkbookSession::Open(const QString& path) {
    m_cn = std::make_unique<ado::Connection>();
    m_cn->Open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Extended Properties=EXCEL "
                              "8.0;Data Source=") +
               path);
}

CollectedRows WorkbookSession::Query(const QString& sql) {
    CollectedRows rows;
    m_cn->ExecuteInto(sql, rows);
    return rows;
}

void WorkbookSession::Run(const QString& sql) {
    ado::DiscardingSink sink;
    m_cn->ExecuteInto(sql, sink);
}

QString WorkbookSession::ErrorOf(const QString& sql) {
    try {
        Run(sql);
    } catch (const ado::AdoError& error) {
        return error.Description();
    }
    return {};
}

QByteArray WorkbookSession::Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace zlx::test
