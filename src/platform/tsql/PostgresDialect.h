#pragma once
// PostgreSQL: a SQL Server database is a schema of the PostgreSQL database, text columns
// compare under a case-insensitive ICU collation, identities are identity columns.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/KeyConstraints.h"

namespace zlx::tsql {

class PostgresDialect : public EngineDialect {
public:
    explicit PostgresDialect(EngineAccess* access = nullptr) : EngineDialect(access) {}

    QString QuoteName(const QString& name) const override;
    QString ConstraintName(const QString& name, bool quoted) const override;
    bool ReservesWord(const QString& word) const override;
    QString StringAggregate(const QString& value, const QString& separator,
                            const QString& order) const override;
    QString DatePart(DateUnit unit, const QString& value, int dateFirst) const override;
    QString DateName(DateUnit unit, const QString& value, int dateFirst,
                     bool spanish) const override;
    QString DateAdd(DateUnit unit, const QString& count, const QString& value) const override;
    QString DateDiff(DateUnit unit, const QString& from, const QString& to) const override;
    QString DatePlusDays(const QString& value, const QString& days) const override;
    QString NumberAsDate(const QString& value, DateOrder order) const override;
    QString EndOfMonth(const QString& value, const QString& months) const override;
    QString DateText(const QString& value, int style, int digits, bool spanish) const override;
    int SecondDigits() const override { return 6; }
    QString TimeOnFirstDay(const QString& time) const override;
    QString TextToDate(const QString& text, DateOrder order) const override;
    QString IsDate(const QString& text, DateOrder order) const override;
    QString AsDateType(const QString& value, const ado::DateType& type) const override;
    QString DateTypeLiteral(const QString& storedText, const ado::DateType& type) const override;
    QString DateColumnType(const ado::DateType& type) const override;
    QString DateLiteral(const QString& isoLiteral) const override;
    QString CurrentDatabaseName() const override;
    QString TruncatingCast(const QString& value, const QString& engineType) const override;
    QString IntegerCast(const QString& value, const QString& type) const override;
    QString IntegerResult(const QString& value, const QString& type) const override;
    QString MoneyQuotient(const QString& dividend, const QString& divisor) const override;
    bool ChecksIntegerArithmetic(const QString& type) const override;
    QString WidenedOperand(const QString& value) const override;
    QString DateOnly(const QString& value) const override;
    QString CastType(const QString& type) const override;
    QString BinaryHex(const QString& value) const override;
    QString IntegerBytes(const QString& value, int count) const override;
    QString TextCast(const QString& value, const QString& type) const override;
    QString ColumnCheck(const QString& column, const QString& type) const override;
    QString ColumnType(const QString& type) const override;
    QString SizedTextColumnType(const QString& type) const override;
    QString DomainColumnType(const QString& type) const override;
    bool RunDefinition(const Tokens& statement) override;
    QString StoredBit(const QString& value) const override;
    QString BitCast(const QString& value) const override;
    QString DateDays(const QString& value) const override;
    QString DateNumber(const QString& value) const override;
    QString DateDifference(const QString& later, const QString& earlier) const override;
    QString RealCast(const QString& value) const override;
    bool KeepsTypeLength(const QString& type) const override;
    QString BinaryLiteral(const QString& hexDigits) const override;
    QString RowLocator() const override { return QStringLiteral("ctid"); }
    QString FirstRowsWithTies(const QString& count) const override {
        return QStringLiteral(" FETCH FIRST %1 ROWS WITH TIES").arg(count);
    }
    bool TrailingBlanksCount() const override { return true; }
    QString NationalTextMark() const override;
    QString CaseInsensitiveCollation() const override;
    QString CollatedText(const QString& value) const override;
    IdentitySpelling Identity(std::int64_t seed, std::int64_t step) const override;
    QString Autoincrement() const override;
    QString LikeOperator(bool negated) const override;
    QString EscapedPattern(const QString& pattern, const QString& escape) const override;
    QString NullsOrder(bool descending) const override;
    QString AlterColumnTypeWord() const override;
    QString ColumnNullability(const QString& column, bool notNull) const override;

    QStringList CatalogStatements(const QString& applicationName) override;
    QString DatabaseAlias(const QString& database) override;
    QString ColumnTypeNamed(const QString& column) override;
    QString TextColumnCount(const QString& column) const override;
    QString DateColumnCount(const QString& column) const override;
    QString IntegerColumnCount(const QString& column) const override;
    QString NullableColumnCount(const QString& column) const override;
    void CreateDatabase(const QString& database) override;
    void DropDatabase(const QString& database) override;
    void ChangeDefault(const QString& table, const QString& column, const QString& value) override;
    void NameDefault(const QString& table, const QString& column, const QString& name) override;
    bool DropNamedDefault(const QString& table, const QString& name) override;
    bool HasConstraint(const QString& table, const QString& name) override;
    QString CheckDefinition(const QString& table, const QString& name) override;
    bool DropConstraint(const QString& table, const QString& name) override;
    std::vector<ForeignKey> ForeignKeysAround(const QString& tsqlTable) override;
    QString IndexesQuery(const QString& schema) const override;
    QString TruncateSql(const QString& table) const override;
    bool TruncateRestartsIdentity() const override { return true; }
    QString ExclusiveLockSql(const QString& table) const override;
    QString InsertReturningIdentity(const QString& insert, const QString& column) const override;
    QString FindIdentityColumn(const QString& table) override;
    TableColumns ColumnsOf(const QString& table) override;
    void SetIdentity(const QString& table, const QString& column, std::int64_t value) override;
    bool IdentityTaken(const QString& table, const QString& column) override;
    QString CurrentIdentity(const QString& table, const TableColumn& identity) const override;
    void RaiseIdentity(const QString& table, const QString& column) override;
    QString ReindexSql(const QString& table) const override;
    ado::ErrorRecord MapRecord(const ado::ErrorRecord& record) const override;

protected:
    std::span<const FunctionSpelling> Functions() const override;
    std::span<const FunctionSpelling> BuiltinSpellings() const override;
    QString TryInteger(const QString& value, const QString& type) const override;
    QString TryDecimal(const QString& value, int precision, int scale) const override;
    QString TryFloat(const QString& value) const override;

private:
    KeyConstraints m_keyConstraints; // by constraint name
};

} // namespace zlx::tsql
