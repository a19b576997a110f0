#pragma once
// An ADO connection string ("Provider=...;Server=...;Database=...") read into its pairs,
// and the engine that serves it.

#include "platform/engines/Driver.h"

#include <QString>
#include <utility>
#include <vector>

namespace zlx::ado {

class ConnectionString {
public:
    enum class Engine {
        None,         // nothing this library can open (an empty or unknown provider)
        SqliteFolder, // Server=sqlite:<folder>
        SqliteFile,   // a Jet Data Source: one database file
        Postgres,     // Server=postgres:<libpq conninfo>
        Odbc,         // any other server: ODBC (FreeTDS for SQL Server)
        DbfFolder,    // SourceDB=<folder> of .dbf tables
        Workbook      // Extended Properties=EXCEL ...
    };

    ConnectionString() = default;
    explicit ConnectionString(const QString& text);

    const QString& Text() const { return m_text; }
    // The value of the first pair whose key is one of `keys` (case-insensitive), "" if none.
    QString Value(std::initializer_list<const char*> keys) const;
    bool Has(std::initializer_list<const char*> keys) const;

    QString Provider() const { return Value({"Provider"}); }
    QString Server() const;
    QString Database() const;
    QString UserId() const;
    QString Password() const;

    Engine Which() const;
    // What the engine's driver connects to; `user`/`password` given to Open win over the
    // string's own.
    ConnectParams Params(const QString& user, const QString& password) const;

private:
    QString OdbcTarget(const QString& user, const QString& password) const;
    static QString QuoteOdbc(const QString& value);

    QString m_text;
    std::vector<std::pair<QString, QString>> m_pairs;
};

} // namespace zlx::ado
