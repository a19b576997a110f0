#include "platform/tsql/QualifiedNameWriter.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"

#include <QSet>

namespace zlx::tsql {

QualifiedNameWriter::QualifiedNameWriter(const StatementTokens& tokens,
                                         const TranslationContext& context)
    : m_t(tokens), m_context(context), m_dialect(DialectOf(context)) {}

size_t QualifiedNameWriter::Write(size_t i, QString& out) {
    const Token& first = m_t[i];
    if (NamesConstraint(i)) {
        out += first.leading +
               m_dialect.ConstraintName(first.text, first.kind == TokenKind::QuotedName);
        return i + 1;
    }
    if ((m_t.WordAt(i - 1, u"FROM") || m_t.WordAt(i - 1, u"JOIN")) &&
        IsUnprovidedSystemTable(first.text))
        ThrowUnsupported(first.text.toLower());
    // A name on its own, the usual case, is written without taking it apart.
    const bool qualified = m_t.SymbolAt(i + 1, u".") && m_t.At(i + 2) &&
                           m_t[i + 1].leading.isEmpty() && m_t[i + 2].leading.isEmpty();
    if (!qualified && !IsCatalogTable(first.text) &&
        !(m_context.locksSchema && first.text.compare(u"locks", Qt::CaseInsensitive) == 0)) {
        out += first.leading;
        out += NeedsQuotes(i) ? m_dialect.QuoteName(first.text) : first.text;
        return i + 1;
    }
    struct Part {
        QString name;
        bool quoted;
    };
    std::vector<Part> parts{{m_t[i].text, NeedsQuotes(i)}};
    size_t j = i + 1;
    while (m_t.SymbolAt(j, u".") && m_t.At(j + 1) && m_t[j].leading.isEmpty() &&
           m_t[j + 1].leading.isEmpty()) {
        if (m_t[j + 1].IsSymbol(u".")) {
            parts.push_back({QString(), false}); // db..t
            ++j;
            continue;
        }
        if (m_t[j + 1].kind != TokenKind::Word && m_t[j + 1].kind != TokenKind::QuotedName) break;
        parts.push_back({m_t[j + 1].text, NeedsQuotes(j + 1)});
        j += 2;
    }
    auto isOwner = [](const Part& part) {
        return part.name.isEmpty() || part.name.compare(u"dbo", Qt::CaseInsensitive) == 0;
    };
    // Only db..t and db.dbo.t name another database; a.b is a column of table (or alias)
    // a, or table b of owner a.
    const bool inDatabase = parts.size() == 3 && isOwner(parts[1]);
    if (inDatabase) parts.erase(parts.begin() + 1);
    if (parts.size() == 2 && isOwner(parts[0])) parts.erase(parts.begin());
    if (parts.size() == 2) {
        if (const QString view = InformationSchemaView(parts[0].name, parts[1].name);
            !view.isEmpty()) {
            out += m_t[i].leading + view;
            return j;
        }
    }
    const QString catalog = CatalogTable(parts.back().name);
    if (!catalog.isEmpty()) {
        out += m_t[i].leading + catalog;
        return j;
    }
    if (m_context.locksSchema && parts.back().name.compare(u"locks", Qt::CaseInsensitive) == 0) {
        const QString database = parts.size() == 2 ? parts[0].name : QString();
        out += m_t[i].leading + m_context.locksSchema(database) + QStringLiteral(".locks");
        return j;
    }
    if (inDatabase && parts.size() == 2) {
        m_databases << parts[0].name;
        if (m_context.databaseAlias) parts[0] = {m_context.databaseAlias(parts[0].name), false};
    }
    QStringList written;
    for (const Part& part : parts)
        written << (part.quoted ? m_dialect.QuoteName(part.name) : part.name);
    out += m_t[i].leading + written.join(u'.');
    return j;
}

// A [name], or a word the engine reserves used as a name (a call such as LIMIT ( keeps it).
bool QualifiedNameWriter::NeedsQuotes(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind == TokenKind::QuotedName) return true;
    return token.kind == TokenKind::Word && m_dialect.ReservesWord(token.text) &&
           !m_t.SymbolAt(i + 1, u"(");
}

bool QualifiedNameWriter::NamesConstraint(size_t i) const {
    if (!m_t.WordAt(i - 1, u"CONSTRAINT")) return false;
    for (QStringView kind : {u"CHECK", u"PRIMARY", u"UNIQUE", u"FOREIGN", u"REFERENCES"})
        if (m_t.WordAt(i + 1, kind)) return true;
    return false;
}

bool QualifiedNameWriter::IsCatalogTable(const QString& table) {
    for (const char16_t* name : {u"sysobjects", u"syscolumns", u"sysdatabases", u"sysprocesses"})
        if (table.compare(QStringView(name), Qt::CaseInsensitive) == 0) return true;
    return false;
}

// SQL Server's other system tables of every database and of master, which the session does not
// make: an engine would answer 208 as for a table the database lacks.
bool QualifiedNameWriter::IsUnprovidedSystemTable(const QString& table) {
    static const QSet<QString> tables = {u"sysindexes"_qs,
                                         u"sysindexkeys"_qs,
                                         u"systypes"_qs,
                                         u"sysusers"_qs,
                                         u"syscomments"_qs,
                                         u"sysconstraints"_qs,
                                         u"sysreferences"_qs,
                                         u"sysforeignkeys"_qs,
                                         u"sysfiles"_qs,
                                         u"sysfilegroups"_qs,
                                         u"syslogins"_qs,
                                         u"sysservers"_qs,
                                         u"syspermissions"_qs,
                                         u"sysprotects"_qs,
                                         u"sysdepends"_qs,
                                         u"sysmembers"_qs,
                                         u"syslocks"_qs,
                                         u"sysmessages"_qs,
                                         u"syslanguages"_qs,
                                         u"sysconfigures"_qs,
                                         u"sysaltfiles"_qs,
                                         u"syscharsets"_qs,
                                         u"sysdevices"_qs,
                                         u"sysperfinfo"_qs,
                                         u"sysfulltextcatalogs"_qs,
                                         u"syscacheobjects"_qs,
                                         u"sysremotelogins"_qs};
    return tables.contains(table.toLower());
}

// INFORMATION_SCHEMA.TABLES and .COLUMNS are views the session makes, named zlx_information_*:
// PostgreSQL's own have other names, types and cases, and SQLite has none. The other views of
// INFORMATION_SCHEMA and SQL Server's sys catalog views are refused.
QString QualifiedNameWriter::InformationSchemaView(const QString& schema, const QString& view) {
    static const QStringList catalogViews = {u"objects"_qs,
                                             u"tables"_qs,
                                             u"columns"_qs,
                                             u"views"_qs,
                                             u"indexes"_qs,
                                             u"index_columns"_qs,
                                             u"schemas"_qs,
                                             u"types"_qs,
                                             u"databases"_qs,
                                             u"foreign_keys"_qs,
                                             u"key_constraints"_qs,
                                             u"check_constraints"_qs,
                                             u"default_constraints"_qs,
                                             u"identity_columns"_qs,
                                             u"procedures"_qs};
    if (schema.compare(u"sys", Qt::CaseInsensitive) == 0 &&
        catalogViews.contains(view, Qt::CaseInsensitive))
        ThrowUnsupported(QStringLiteral("sys.") + view);
    if (schema.compare(u"INFORMATION_SCHEMA", Qt::CaseInsensitive) != 0) return {};
    for (const char16_t* name : {u"tables", u"columns"})
        if (view.compare(QStringView(name), Qt::CaseInsensitive) == 0)
            return u"zlx_information_"_qs + QString::fromUtf16(name);
    ThrowUnsupported(QStringLiteral("INFORMATION_SCHEMA.") + view);
}

QString QualifiedNameWriter::CatalogTable(const QString& table) {
    return IsCatalogTable(table) ? table.toLower() : QString();
}

} // namespace zlx::tsql
