#pragma once
// SQLite: the embedded server folder (databases are files, reached from one another by
// ATTACH; each database's `locks` table in a file of its own) or a single Jet database file.
// Text columns compare under NOCASE; identities are AUTOINCREMENT row ids; columns change by
// rebuilding their table.

#include "platform/engines/SqliteServerFolder.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SqliteTableRebuild.h"

namespace zlx::tsql {

class SqliteDialect : public EngineDialect {
public:
    explicit SqliteDialect(EngineAccess* access = nullptr) : EngineDialect(access) {}

    QString DatePart(DateUnit unit, const QString& value) const override;
    QString DateOnly(const QString& value) const override;
    QString CastType(const QString& type) const override;
    QString BinaryLiteral(const QString& hexDigits) const override;
    QString TextResultCollation() const override;
    QString CaseInsensitiveCollation() const override;
    IdentitySpelling Identity(std::int64_t seed, std::int64_t step) const override;
    QString Autoincrement() const override;
    bool MarksAutoincrementKey() const override { return true; }
    bool HasDefaultValues() const override { return false; }
    bool SchemaOnIndexName() const override { return true; }

    QStringList CatalogStatements(const QString& applicationName) override;
    void RefreshCatalog(const QString& batch) override;
    void DatabaseChanged() override { m_attached.clear(); } // a reopen drops every attachment
    bool JetDates() const override { return !Folder().IsFolder(); }
    QString DatabaseAlias(const QString& database) override;
    bool KeepsLocksApart() const override { return Folder().IsFolder(); }
    QString LocksSchema(const QString& database) override;
    QString ColumnDefault(const QString& table, const QString& column) override;
    QString TextColumnCount(const QString& column) const override;
    bool RefusalKeepsTransaction() const override { return true; }
    void CreateDatabase(const QString& database) override;
    void DropDatabase(const QString& database) override;
    void ChangeDefault(const QString& table, const QString& column, const QString& value) override;
    QString IndexesQuery(const QString& schema) const override;
    bool RunDefinition(const Tokens& statement) override;
    QString TruncateSql(const QString& table) const override;
    QString ExclusiveLockSql(const QString& table) const override;
    QString LastIdentitySql() const override;
    QString FindIdentityColumn(const QString& table) override;
    void SetIdentity(const QString& table, const QString& column, std::int64_t value) override;
    QString ReindexSql(const QString& table) const override;
    ado::ErrorRecord MapRecord(const ado::ErrorRecord& record) const override;

protected:
    std::span<const FunctionSpelling> Functions() const override;

private:
    ado::SqliteServerFolder Folder() const;
    void RequireDatabaseFile(const QString& database) const;
    void Attach(const QString& file, const QString& alias);
    QStringList ObjectViews(const QString& locksSchema) const;
    SqliteTableRebuild Rebuilder(const QString& table);

    QStringList m_attached; // aliases of the attached files
};

} // namespace zlx::tsql
