#include "platform/tsql/SystemCatalog.h"

namespace zlx::tsql {
namespace {

// One kind of column: the LIKE pattern of its type text, its xtype and its length (a number,
// or "n" for the declared size, "2n" for twice it, "p" for a decimal's storage size).
struct TypeRule {
    const char* pattern;
    int xtype;
    const char* length;
};

// clang-format off
const TypeRule kSqliteRules[] = {
    {"INT", 56, "4"}, {"INTEGER", 56, "4"}, {"SMALLINT", 52, "2"}, {"TINYINT", 48, "1"},
    {"BIGINT", 127, "8"}, {"BIT", 104, "1"}, {"FLOAT", 62, "8"}, {"REAL", 59, "4"},
    {"DATETIME", 61, "8"}, {"SMALLDATETIME", 58, "4"}, {"MONEY", 60, "8"},
    {"DECIMAL%", 106, "p"}, {"NUMERIC%", 108, "p"}, {"NVARCHAR%", 231, "2n"}, {"VARCHAR%", 167, "n"},
    {"NCHAR%", 239, "2n"}, {"CHAR%", 175, "n"}, {"NTEXT", 99, "16"}, {"TEXT", 35, "16"}, {"IMAGE", 34, "16"},
};
const TypeRule kPostgresRules[] = {
    {"integer", 56, "4"}, {"smallint", 52, "2"}, {"bigint", 127, "8"}, {"boolean", 104, "1"},
    {"double precision", 62, "8"}, {"real", 59, "4"}, {"timestamp(0)%", 58, "4"}, {"timestamp%", 61, "8"},
    {"numeric(19,4)", 60, "8"}, {"numeric%", 108, "p"}, {"character varying%", 167, "n"},
    {"character(%", 175, "n"}, {"text", 35, "16"}, {"bytea", 34, "16"},
};
// clang-format on

QString DeclaredSize(Target target, const QString& type) {
    return target == Target::SQLite
               ? QStringLiteral("CAST(substr(%1, instr(%1, '(') + 1) AS INTEGER)").arg(type)
               : QStringLiteral("CAST(substring(%1 from '\\((\\d+)') AS integer)").arg(type);
}

QString LengthOf(const TypeRule& rule, Target target, const QString& type) {
    const QString length = QString::fromLatin1(rule.length);
    const QString size = DeclaredSize(target, type);
    if (length == u"n") return size;
    if (length == u"2n") return QStringLiteral("2 * ") + size;
    if (length == u"p")
        return QStringLiteral("CASE WHEN %1 <= 9 THEN 5 WHEN %1 <= 19 THEN 9 WHEN %1 <= 28 THEN 13 "
                              "ELSE 17 END")
            .arg(size);
    return length;
}

template <typename Column> QString CaseOver(Target target, const QString& typeText, Column column) {
    const QString type =
        target == Target::SQLite ? QStringLiteral("upper(%1)").arg(typeText) : typeText;
    QString out = QStringLiteral("CASE");
    auto add = [&](const TypeRule& rule) {
        out += QStringLiteral(" WHEN %1 LIKE '%2' THEN %3")
                   .arg(type, QString::fromLatin1(rule.pattern), column(rule, type));
    };
    if (target == Target::SQLite) {
        for (const TypeRule& rule : kSqliteRules)
            add(rule);
    } else {
        for (const TypeRule& rule : kPostgresRules)
            add(rule);
    }
    return out + QStringLiteral(" END");
}

} // namespace

QString XtypeExpression(Target target, const QString& typeText) {
    return CaseOver(target, typeText, [](const TypeRule& rule, const QString&) {
        return QString::number(rule.xtype);
    });
}

QString LengthExpression(Target target, const QString& typeText) {
    return CaseOver(target, typeText, [target](const TypeRule& rule, const QString& type) {
        return LengthOf(rule, target, type);
    });
}

QStringList CatalogStatements(Target target, const QString& applicationName) {
    if (target == Target::PostgreSQL) {
        const QString type = QStringLiteral("format_type(a.atttypid, a.atttypmod)");
        // Names compare without regard to case, as in SQL Server's default collation.
        return {
            QStringLiteral(
                "CREATE COLLATION IF NOT EXISTS pg_temp.zlx_ci (provider = icu, locale = "
                "'und-u-ks-level2', deterministic = false)"),
            // The collation of the database's text columns, made once in its schema (a
            // second connection making it at the same moment is not an error).
            QStringLiteral(
                "DO $$ BEGIN IF current_schema() IS NOT NULL AND NOT EXISTS (SELECT 1 FROM "
                "pg_collation WHERE collname = 'zlx_nocase' AND collnamespace = "
                "CAST(current_schema() AS regnamespace)) THEN CREATE COLLATION zlx_nocase "
                "(provider = icu, locale = 'und-u-ks-level2', deterministic = false); END IF; "
                "EXCEPTION WHEN unique_violation OR duplicate_object THEN NULL; END $$"),
            QStringLiteral("SET application_name = '%1'")
                .arg(QString(applicationName).replace(u'\'', QStringLiteral("''"))),
            QStringLiteral("CREATE OR REPLACE TEMP VIEW sysprocesses AS SELECT pid AS spid, "
                           "split_part(application_name, ':', 1) COLLATE pg_temp.zlx_ci AS "
                           "hostname, CASE WHEN application_name ~ "
                           "'^[^:]+:[0-9]+$' THEN CAST(split_part(application_name, ':', 2) AS "
                           "integer) END AS "
                           "hostprocess FROM pg_stat_activity"),
            QStringLiteral(
                "CREATE OR REPLACE TEMP VIEW sysdatabases AS SELECT CAST(nspname AS text) COLLATE "
                "pg_temp.zlx_ci AS "
                "name, "
                "CAST('' AS text) AS filename FROM pg_namespace WHERE nspname NOT LIKE 'pg_%' AND "
                "nspname <> 'information_schema'"),
            QStringLiteral(
                "CREATE OR REPLACE TEMP VIEW sysobjects AS SELECT CAST(c.relname AS text) COLLATE "
                "pg_temp.zlx_ci "
                "AS name, CAST(c.oid AS integer) AS id, CASE c.relkind WHEN 'r' THEN 'U' WHEN 'v' "
                "THEN "
                "'V' ELSE 'I' END AS xtype FROM pg_class c WHERE c.relnamespace = "
                "CAST(current_schema() AS regnamespace) AND c.relkind IN ('r', 'v', 'i')"),
            QStringLiteral(
                "CREATE OR REPLACE TEMP VIEW syscolumns AS SELECT CAST(a.attname AS text) COLLATE "
                "pg_temp.zlx_ci AS "
                "name, "
                "CAST(a.attrelid AS integer) AS id, %1 AS xtype, %2 AS length FROM pg_attribute a "
                "WHERE a.attnum > 0 AND NOT a.attisdropped")
                .arg(XtypeExpression(target, type), LengthExpression(target, type)),
        };
    }
    return QStringList{
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS sysdatabases (name TEXT COLLATE "
                              "NOCASE, filename TEXT)"),
               QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS sysprocesses (hostname TEXT "
                              "COLLATE NOCASE, hostprocess INTEGER)"),
           } +
           SqliteObjectViews(QString());
}

// Objects of the main file and, when given, of the database's attached `locks` file (their
// ids moved past the main file's so that the two never meet).
QStringList SqliteObjectViews(const QString& locksSchema) {
    const auto objects = [](const QString& schema, int offset) {
        return QStringLiteral("SELECT name COLLATE NOCASE AS name, rowid + %1 AS id, CASE type "
                              "WHEN 'table' THEN 'U' WHEN 'view' THEN 'V' ELSE 'I' END AS xtype "
                              "FROM \"%2\".sqlite_master WHERE name NOT LIKE 'sqlite_%'")
            .arg(offset)
            .arg(schema);
    };
    const auto columns = [](const QString& schema, int offset) {
        return QStringLiteral("SELECT p.name COLLATE NOCASE AS name, m.rowid + %1 AS id, %2 AS "
                              "xtype, %3 AS length FROM \"%4\".sqlite_master m, "
                              "pragma_table_info(m.name, '%4') p WHERE m.type = 'table'")
            .arg(offset)
            .arg(XtypeExpression(Target::SQLite, QStringLiteral("p.type")),
                 LengthExpression(Target::SQLite, QStringLiteral("p.type")), schema);
    };
    constexpr int kLocksIds = 1000000;
    QString objectsView = objects(QStringLiteral("main"), 0);
    QString columnsView = columns(QStringLiteral("main"), 0);
    if (!locksSchema.isEmpty()) {
        objectsView += QStringLiteral(" UNION ALL ") + objects(locksSchema, kLocksIds);
        columnsView += QStringLiteral(" UNION ALL ") + columns(locksSchema, kLocksIds);
    }
    return {QStringLiteral("DROP VIEW IF EXISTS temp.sysobjects"),
            QStringLiteral("CREATE TEMP VIEW sysobjects AS ") + objectsView,
            QStringLiteral("DROP VIEW IF EXISTS temp.syscolumns"),
            QStringLiteral("CREATE TEMP VIEW syscolumns AS ") + columnsView};
}

} // namespace zlx::tsql
