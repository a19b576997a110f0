#pragma once
// Names as the engine knows them: db..t and db.dbo.t become the engine's name of that database
// and t, dbo.t becomes t, [names] the engine's quoting; SQL Server's catalog tables and the
// `locks` table of another database are the session's views of them.

#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TranslationContext.h"

namespace zlx::tsql {

class QualifiedNameWriter {
public:
    QualifiedNameWriter(const StatementTokens& tokens, const TranslationContext& context);

    // Names, possibly qualified: db..t and db.dbo.t become db.t, dbo.t becomes t; the SQL
    // Server catalog tables become queries over the engine's catalog.
    // Writes the name that begins at `i`; answers the index after it.
    size_t Write(size_t i, QString& out);

    // The databases named in db..t so far, as written.
    const QStringList& Databases() const { return m_databases; }

private:
    // The SQL Server catalog tables are views of the session (master..sysdatabases included).
    static bool IsUnprovidedSystemTable(const QString& table);
    static bool IsCatalogTable(const QString& table);
    bool NeedsQuotes(size_t i) const;
    // The name of CONSTRAINT name CHECK, PRIMARY, UNIQUE, FOREIGN or REFERENCES (not a DEFAULT's).
    bool NamesConstraint(size_t i) const;

    static QString CatalogTable(const QString& table);
    static QString InformationSchemaView(const QString& schema, const QString& view);

    const StatementTokens& m_t;
    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    QStringList m_databases;
};

} // namespace zlx::tsql
