#include "platform/ado/Catalog.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace zlx::ado {
namespace {

constexpr std::int32_t kDatabaseExists = static_cast<std::int32_t>(0x80040E17);

QString Literal(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

bool SameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool IsKeyName(const QString& name) {
    return name.contains(QStringLiteral("_PKEY_"), Qt::CaseInsensitive);
}

// The engines name an index made by CREATE INDEX i ON t as t_i (indexes are named per schema
// there); the catalog answers the name the library gave it. Key constraints keep their name.
QString LibraryIndexName(const QString& engineName, const QString& table, bool primaryKey) {
    const QString prefix = table + u'_';
    if (primaryKey || IsKeyName(engineName) || !engineName.startsWith(prefix, Qt::CaseInsensitive))
        return engineName;
    return engineName.mid(prefix.size());
}

QString TypeOfObject(const QString& xtype) {
    const QString kind = xtype.trimmed().toUpper();
    if (kind == u"V") return QStringLiteral("VIEW");
    if (kind == u"S") return QStringLiteral("SYSTEM TABLE");
    return QStringLiteral("TABLE");
}

// Rows of an index listing (name, primary, unique, column) grouped into indexes, in order.
std::vector<CatalogIndex> GroupIndexRows(const std::vector<std::vector<Variant>>& rows,
                                         const QString& table) {
    std::vector<CatalogIndex> indexes;
    for (const auto& row : rows) {
        const QString name = row[0].ToString();
        const bool primary = row[1].ToLong() != 0;
        if (indexes.empty() || indexes.back().Name != LibraryIndexName(name, table, primary))
            indexes.push_back(
                {LibraryIndexName(name, table, primary), primary, row[2].ToLong() != 0, {}});
        indexes.back().Columns << row[3].ToString();
    }
    return indexes;
}

[[noreturn]] void ThrowNotFound() {
    throw AdoError(adErrItemNotFound,
                   QStringLiteral("Item cannot be found in the collection corresponding to the "
                                  "requested name or ordinal."));
}

} // namespace

void Catalog::Create(const QString& connectionString) {
    const ConnectionString text(connectionString);
    if (text.Which() != ConnectionString::Engine::SqliteFile)
        throw AdoError(adErrFeatureNotAvailable,
                       QStringLiteral("Operation is not supported for this type of object."));
    if (QFileInfo::exists(text.Value({"Data Source"})))
        throw AdoError(kDatabaseExists, QStringLiteral("Database already exists."));
    Connection connection; // opening a Jet string makes the missing file
    connection.Open(connectionString);
    connection.Close();
}

Connection& Catalog::Open() const {
    if (!m_connection)
        throw AdoError(adErrObjectClosed,
                       QStringLiteral("Operation is not allowed when the object is closed."));
    return *m_connection;
}

ConnectionString::Engine Catalog::Engine() const {
    return ConnectionString(Open().ConnectionString()).Which();
}

std::vector<std::vector<Variant>> Catalog::QueryRows(Connection& connection, const QString& sql) {
    long affected = -1;
    const RecordsetPtr rs = connection.Execute(sql, affected);
    std::vector<std::vector<Variant>> rows;
    for (; rs && !rs->IsEOF(); rs->MoveNext()) {
        std::vector<Variant>& row = rows.emplace_back();
        for (int i = 0; i < rs->GetFields().Count(); ++i)
            row.push_back(rs->GetFields().Item(i).Value());
    }
    return rows;
}

std::vector<std::vector<Variant>> Catalog::Rows(const QString& sql) const {
    return QueryRows(Open(), sql);
}

void Catalog::Run(const QString& sql) const {
    long affected = -1;
    Open().Execute(sql, affected, static_cast<long>(adCmdText) | adExecuteNoRecords);
}

std::vector<CatalogTable> Catalog::Tables() {
    std::vector<CatalogTable> tables;
    for (const auto& row : Rows(QStringLiteral(
             "SELECT name, xtype FROM sysobjects WHERE xtype IN ('U', 'V', 'S') ORDER BY name")))
        tables.push_back({row[0].ToString(), TypeOfObject(row[1].ToString())});
    return tables;
}

std::optional<CatalogTable> Catalog::Table(const QString& name) {
    for (CatalogTable& table : Tables())
        if (SameName(table.Name, name)) return table;
    return std::nullopt;
}

std::vector<CatalogColumn> Catalog::Columns(const QString& table) {
    if (!Table(table)) ThrowNotFound();
    long affected = -1;
    const RecordsetPtr rs =
        Open().Execute(QStringLiteral("SELECT * FROM %1 WHERE 1 = 0").arg(table), affected);
    const bool postgres = Engine() == ConnectionString::Engine::Postgres;
    std::vector<CatalogColumn> columns;
    for (int i = 0; i < rs->GetFields().Count(); ++i) {
        const Field& field = rs->GetFields().Item(i);
        CatalogColumn column{field.Name(), field.Type(), field.DefinedSize(), field.Precision(),
                             field.NumericScale()};
        // MONEY is numeric(19,4) on PostgreSQL, and syscolumns calls that money.
        if (postgres && column.Type == adNumeric && column.Precision == 19 &&
            column.NumericScale == 4)
            column = {column.Name, adCurrency, 8, 19, 255};
        columns.push_back(column);
    }
    return columns;
}

std::vector<CatalogIndex> Catalog::Indexes(const QString& table) {
    switch (Engine()) {
    case ConnectionString::Engine::SqliteFile:
    case ConnectionString::Engine::SqliteFolder:
        return SqliteIndexes(table);
    case ConnectionString::Engine::Postgres:
        return PostgresIndexes(table);
    case ConnectionString::Engine::DbfFolder:
    case ConnectionString::Engine::Workbook:
        // Free tables and sheets are read in file order: they carry no index.
        if (!Table(table)) ThrowNotFound();
        return {};
    default:
        return SqlServerIndexes(table);
    }
}

// The schema that holds the table: the main file, else the database's attached locks file.
QString Catalog::SqliteSchemaOf(const QString& table) const {
    const QString locks = Open().DefaultDatabase().toLower() + QStringLiteral("_locks");
    const auto rows = Rows(QStringLiteral("SELECT schema FROM pragma_table_list WHERE name = %1 "
                                          "COLLATE NOCASE AND schema IN ('main', %2) ORDER BY "
                                          "schema = 'main' DESC")
                               .arg(Literal(table), Literal(locks)));
    if (rows.empty()) ThrowNotFound();
    return rows.front().at(0).ToString();
}

std::vector<CatalogIndex> Catalog::SqliteIndexes(const QString& table) const {
    const QString schema = SqliteSchemaOf(table);
    std::vector<CatalogIndex> indexes;
    bool hasKeyIndex = false;
    // pragma_index_list: seq, name, unique, origin, partial
    for (const auto& row : Rows(QStringLiteral("SELECT * FROM pragma_index_list(%1, %2)")
                                    .arg(Literal(table), Literal(schema)))) {
        const QString name = row.at(1).ToString();
        const bool primary = row.at(3).ToString() == u"pk" || IsKeyName(name);
        hasKeyIndex = hasKeyIndex || primary;
        CatalogIndex index{
            LibraryIndexName(name, table, primary), primary, row.at(2).ToLong() != 0, {}};
        for (const auto& column :
             Rows(QStringLiteral("SELECT name FROM pragma_index_info(%1, %2) ORDER BY seqno")
                      .arg(Literal(name), Literal(schema))))
            index.Columns << column.at(0).ToString();
        indexes.push_back(index);
    }
    if (hasKeyIndex) return indexes;
    // An INTEGER PRIMARY KEY is the table's row id, not an index of its own: its named
    // constraint stands for the key.
    const auto definition = Rows(QStringLiteral("SELECT sql FROM %1.sqlite_master WHERE type = "
                                                "'table' AND name = %2 COLLATE NOCASE")
                                     .arg(schema, Literal(table)));
    static const QRegularExpression constraint(
        QStringLiteral("CONSTRAINT\\s+(\\w+)\\s+PRIMARY\\s+KEY"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match =
        constraint.match(definition.empty() ? QString() : definition[0][0].ToString());
    if (!match.hasMatch()) return indexes;
    CatalogIndex key{match.captured(1), true, true, {}};
    for (const auto& column : Rows(QStringLiteral("SELECT name FROM pragma_table_info(%1, %2) "
                                                  "WHERE pk > 0 ORDER BY pk")
                                       .arg(Literal(table), Literal(schema))))
        key.Columns << column.at(0).ToString();
    indexes.insert(indexes.begin(), key);
    return indexes;
}

std::vector<CatalogIndex> Catalog::PostgresIndexes(const QString& table) const {
    QHash<int, QString> names;
    for (const auto& row : Rows(QStringLiteral("SELECT attnum, CAST(attname AS VARCHAR(128)) FROM "
                                               "pg_attribute WHERE attrelid = to_regclass(%1) "
                                               "AND attnum > 0")
                                    .arg(Literal(table))))
        names.insert(row[0].ToLong(), row[1].ToString());
    std::vector<std::vector<Variant>> rows;
    for (const auto& row :
         Rows(QStringLiteral(
                  "SELECT CAST(i.relname AS VARCHAR(128)) AS index_name, CASE WHEN "
                  "x.indisprimary THEN 1 ELSE 0 END AS is_primary, CASE WHEN "
                  "x.indisunique THEN 1 ELSE 0 END AS is_unique, CAST(x.indkey AS "
                  "VARCHAR(200)) AS index_keys FROM pg_index x JOIN pg_class i ON i.oid = "
                  "x.indexrelid WHERE x.indrelid = to_regclass(%1) ORDER BY 1")
                  .arg(Literal(table)))) {
        // indkey lists the indexed columns' numbers, separated by blanks
        for (const QString& number : row[3].ToString().split(u' ', Qt::SkipEmptyParts))
            rows.push_back({row[0], row[1], row[2], Variant(names.value(number.toInt()))});
    }
    return GroupIndexRows(rows, table);
}

std::vector<CatalogIndex> Catalog::SqlServerIndexes(const QString& table) const {
    return GroupIndexRows(
        Rows(QStringLiteral(
                 "SELECT i.name, i.is_primary_key, i.is_unique, c.name FROM sys.indexes i JOIN "
                 "sys.index_columns ic ON ic.object_id = i.object_id AND ic.index_id = "
                 "i.index_id JOIN sys.columns c ON c.object_id = ic.object_id AND c.column_id = "
                 "ic.column_id WHERE i.object_id = object_id(%1) ORDER BY i.name, ic.key_ordinal")
                 .arg(Literal(table))),
        table);
}

void Catalog::AppendIndex(const QString& table, const CatalogIndex& index) {
    const QString columns = index.Columns.join(QStringLiteral(", "));
    if (index.PrimaryKey)
        Run(QStringLiteral("ALTER TABLE %1 ADD CONSTRAINT %2 PRIMARY KEY (%3)")
                .arg(table, index.Name, columns));
    else
        Run(QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                .arg(index.Unique ? QStringLiteral("UNIQUE ") : QString(), index.Name, table,
                     columns));
}

void Catalog::DeleteIndex(const QString& table, const QString& name) {
    for (const CatalogIndex& index : Indexes(table)) {
        if (!SameName(index.Name, name)) continue;
        Run(index.PrimaryKey
                ? QStringLiteral("ALTER TABLE %1 DROP CONSTRAINT %2").arg(table, index.Name)
                : QStringLiteral("DROP INDEX %1.%2").arg(table, index.Name));
        return;
    }
    ThrowNotFound();
}

void Catalog::RenameColumn(const QString& table, const QString& oldName, const QString& newName) {
    Run(QStringLiteral("EXEC sp_rename %1, %2, 'COLUMN'")
            .arg(Literal(table + QStringLiteral(".[") + oldName + u']'), Literal(newName)));
}

} // namespace zlx::ado
