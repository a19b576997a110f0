#pragma once
// SQLite: the embedded server folder (databases are files, reached from one another by
// ATTACH; each database's `locks` table in a file of its own) or a single Jet database file.
// Text columns compare under NOCASE; identities are AUTOINCREMENT row ids; columns change by
// rebuilding their table.

#include "platform/engines/SqliteServerFolder.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/KeyConstraints.h"
#include "platform/tsql/SqliteIdentities.h"
#include "platform/tsql/SqliteTableRebuild.h"

#include <QSet>

namespace zlx::tsql {

class SqliteDialect : public EngineDialect {
public:
    explicit SqliteDialect(EngineAccess* access = nullptr) : EngineDialect(access) {}

    QString DatePart(DateUnit unit, const QString& value, int dateFirst) const override;
    QString DateName(DateUnit unit, const QString& value, int dateFirst,
                     bool spanish) const override;
    QString DateAdd(DateUnit unit, const QString& count, const QString& value) const override;
    QString DateDiff(DateUnit unit, const QString& from, const QString& to) const override;
    QString DatePlusDays(const QString& value, const QString& days) const override;
    QString NumberAsDate(const QString& value, DateOrder order) const override;
    QString EndOfMonth(const QString& value, const QString& months) const override;
    QString DateText(const QString& value, int style, int digits, bool spanish) const override;
    QString TextToDate(const QString& text, DateOrder order) const override;
    QString IsDate(const QString& text, DateOrder order) const override;
    QString AsDateType(const QString& value, const ado::DateType& type) const override;
    QString DateTypeLiteral(const QString& storedText, const ado::DateType& type) const override;
    QString TypedDateResult(const QString& value, const ado::DateType& type) const override;
    QString DateLiteral(const QString& isoLiteral) const override;
    QString CurrentDatabaseName() const override;
    QString CheckedDivisor(const QString& divisor) const override;
    QString PaddedText(const QString& value, int length) const override;
    QString IntegerCast(const QString& value, const QString& type) const override;
    QString IntegerResult(const QString& value, const QString& type) const override;
    QString MoneyQuotient(const QString& dividend, const QString& divisor) const override;
    QString DecimalRemainder(const QString& dividend, const QString& divisor,
                             int scale) const override;
    bool ChecksIntegerArithmetic(const QString&) const override { return false; }
    QString ScaledDecimal(const QString& value, int precision, int scale) const override;
    QString StoredBit(const QString& value) const override;
    QString BitCast(const QString& value) const override;
    QString RealCast(const QString& value) const override;
    QString DateDays(const QString& value) const override;
    QString DateNumber(const QString& value) const override;
    QString DateDifference(const QString& later, const QString& earlier) const override;
    QString DateOnly(const QString& value) const override;
    QString CastType(const QString& type) const override;
    QString BinaryHex(const QString& value) const override;
    QString IntegerBytes(const QString& value, int count) const override;
    QString TextCast(const QString& value, const QString& type) const override;
    QString SizedTextColumnType(const QString& type) const override;
    QString DomainColumnType(const QString& type) const override;
    QString ColumnType(const QString& type) const override;
    bool ReservesWord(const QString& word) const override;
    QString ColumnCheck(const QString& column, const QString& type) const override;
    QString BinaryLiteral(const QString& hexDigits) const override;
    QString RowLocator() const override { return QStringLiteral("rowid"); }
    QString SingleValueAggregate() const override { return QStringLiteral("zlx_single"); }
    QString TextResultCollation() const override;
    QString CaseInsensitiveCollation() const override;
    QString CollatedText(const QString& value) const override;
    IdentitySpelling Identity(std::int64_t seed, std::int64_t step) const override;
    QString Autoincrement() const override;
    bool MarksAutoincrementKey() const override { return true; }
    QString StringAggregate(const QString& value, const QString& separator,
                            const QString& order) const override;
    bool HasDefaultValues() const override { return false; }
    // SQLite has no grouping sets, no comparison with a subquery's ALL, ANY or SOME and no
    // INCLUDE columns of an index.
    bool LacksClause(const QString&) const override { return true; }
    bool SchemaOnIndexName() const override { return true; }

    QStringList CatalogStatements(const QString& applicationName) override;
    void RefreshCatalog(const QString& batch) override;
    void DatabaseChanged() override { m_attached.clear(); } // a reopen drops every attachment
    bool JetDates() const override { return !IsServerFolder(); }
    QString DatabaseAlias(const QString& database) override;
    bool KeepsLocksApart() const override { return IsServerFolder(); }
    QString LocksSchema(const QString& database) override;
    QString ColumnDefault(const QString& table, const QString& column) override;
    QString ColumnTypeNamed(const QString& column) override;
    QString TextColumnCount(const QString& column) const override;
    QString DateColumnCount(const QString& column) const override;
    QString IntegerColumnCount(const QString& column) const override;
    bool RefusalKeepsTransaction() const override { return true; }
    void CreateDatabase(const QString& database) override;
    void DropDatabase(const QString& database) override;
    void ChangeDefault(const QString& table, const QString& column, const QString& value) override;
    void NameDefault(const QString& table, const QString& column, const QString& name) override;
    bool DropNamedDefault(const QString& table, const QString& name) override;
    bool HasConstraint(const QString& table, const QString& name) override;
    QString CheckDefinition(const QString& table, const QString& name) override;
    ado::AdoError WithBrokenKeyNamed(const ado::AdoError& error,
                                     const std::function<void()>& rerun) override;
    std::vector<ForeignKey> ForeignKeysAround(const QString& tsqlTable) override;
    QString IndexesQuery(const QString& schema) const override;
    bool RunDefinition(const Tokens& statement) override;
    bool AddCheckConstraint(const QString& table, const QString& constraint) override;
    QString TruncateSql(const QString& table) const override;
    QString ExclusiveLockSql(const QString& table) const override;
    QString LastIdentitySql() const override;
    QString FindIdentityColumn(const QString& table) override;
    TableColumns ColumnsOf(const QString& table) override;
    void SetIdentity(const QString& table, const QString& column, std::int64_t value) override;
    bool IdentityTaken(const QString& table, const QString& column) override;
    QString CurrentIdentity(const QString& table, const TableColumn& identity) const override;
    void RaiseIdentity(const QString& table, const QString& column) override;
    QString InsertReturningIdentity(const QString& insert, const QString& column) const override;
    void NoteIdentityTaken(const QString& table, std::int64_t value) override;
    void IdentitiesRolledBack(bool ended) override;
    void IdentitiesCommitted() override { m_identities.Forget(); }
    QString ReindexSql(const QString& table) const override;
    ado::ErrorRecord MapRecord(const ado::ErrorRecord& record) const override;

protected:
    std::span<const FunctionSpelling> Functions() const override;
    std::span<const FunctionSpelling> BuiltinSpellings() const override;
    QString TryInteger(const QString& value, const QString& type) const override;
    QString TryDecimal(const QString& value, int precision, int scale) const override;
    QString TryFloat(const QString& value) const override;

private:
    // Whether `schema` is the main file, temp or an attached database (another name holds no
    // tables, and reading its catalog would fail).
    bool HasSchema(const QString& schema);
    static QString ColumnCount(const QString& column, const char* typeCondition);
    ado::SqliteServerFolder Folder() const;
    void RequireDatabaseFile(const QString& database) const;
    void Attach(const QString& file, const QString& alias);
    QStringList ObjectViews(const QString& locksSchema) const;
    QStringList InformationSchemaViews() const;
    SqliteTableRebuild Rebuilder(const QString& table);
    void AddForeignKey(const Tokens& statement);
    void AddKeyConstraint(const Tokens& statement);

    void NoteKeyConstraints(const QString& schema, const QString& table);
    // Notes whether `column`, the table's identity, holds a value once only because it is the
    // row id (marked keyless, without a unique index of its own).
    void NoteKeyless(const QString& schema, const QString& table, const QString& column,
                     bool marked);

    QStringList m_attached;          // aliases of the attached files
    KeyConstraints m_keyConstraints; // by the "t.a, t.b" that SQLite's message names
    QSet<QString> m_keyless;         // "t.c" of the keyless identities, as m_keyConstraints
    mutable SqliteIdentities m_identities;
    // Whether the connection's target is a server folder; every translation asks, so the
    // file system is asked again only while the answer is no.
    bool IsServerFolder() const;
    mutable QString m_folderTarget;
    mutable bool m_serverFolder = false;
};

} // namespace zlx::tsql
