#pragma once
// CREATE TABLE and ALTER TABLE column definitions for an engine: IDENTITY(seed, step) and Jet's
// AUTOINCREMENT as the engine's identity, the checks that hold a type to SQL Server's limits, text
// columns compared without regard to case, a date column's default 0 and DEFAULT GETDATE().

#include "platform/engines/SqlServerDateTypes.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TranslationContext.h"

#include <cstdint>
#include <optional>

namespace zlx::tsql {

class TableDefinitionRewriter {
public:
    TableDefinitionRewriter(StatementTokens& tokens, const TranslationContext& context);

    // Edits the definitions in place; answers the first value of a new table's identity when
    // the session must set it (see Translation::identityStart).
    std::optional<std::int64_t> Rewrite();
    // ALTER TABLE t ADD c ... DEFAULT x of a column that may be NULL, without WITH VALUES: the
    // rows already there keep NULL, so the column is added without its default, which is set
    // afterwards. The column (as the engine names it) and the default's tokens; empty otherwise.
    const QString& DeferredDefaultColumn() const { return m_deferredColumn; }
    const Tokens& DeferredDefault() const { return m_deferredDefault; }

private:
    void DeferAddedDefault();
    // ALTER TABLE t ALTER COLUMN c type NULL (or NOT NULL): the engine's own clause for the
    // column's nullability, on an engine that takes none after the type.
    void AlterNullability();
    // Where the default expression that begins at `first` ends.
    size_t DefaultEnd(size_t first) const;
    // IDENTITY(1,1) and Jet's AUTOINCREMENT columns become each engine's own identity.
    void PrepareDefinitions();

    // A column type the engine does not hold to SQL Server's limits (a text's length, an
    // integer's range) gets the engine's check after it. Not on ALTER COLUMN, nor on an identity.
    void AddColumnCheck(size_t type);

    // A date column's DEFAULT '20240315' (or '15/03/2024' under DATEFORMAT dmy) is a date,
    // written as the engine keeps dates; in any other column the text stays as written.
    void ReadDefaultAsDate(size_t value);

    // Whether the column definition that `i` is part of has a date type.
    bool IsDateColumnBefore(size_t i) const;

    // A text type right after a column's name (not a CAST's type).
    bool IsTextColumnType(size_t i) const;
    // Whether the word at `i` follows a column's name in its definition (is its type).
    bool FollowsColumnName(size_t i) const;
    // A date type (DATE, TIME(n), DATETIME2(n)...) right after a column's name.
    std::optional<ado::DateType> DateColumnTypeAt(size_t i) const;
    // The date type at `type` as the engine spells it.
    void UseDateColumnType(size_t type, const ado::DateType& dateType);

    // A DECIMAL, VARBINARY or BINARY type right after a column's name.
    bool IsDomainColumnType(size_t i) const;
    // That type as the engine's own type for it (a domain on PostgreSQL).
    void UseDomainType(size_t type);
    // A national text type (NCHAR, NVARCHAR, NTEXT) followed by the engine's mark for it.
    void MarkNationalText(size_t type);
    // A sized text type the engine spells otherwise (a domain on PostgreSQL).
    void UseSizedTextType(size_t type);
    // Text columns compare without regard to case, as in SQL Server's default collation.
    void CollateWithoutCase(size_t type);

    // Whether the identity's column definition makes it a PRIMARY KEY or UNIQUE.
    bool HasOwnKey(size_t identity) const;

    void RetypeAsInteger(size_t identity);

    // An identity spelled as the engine's integer key already makes its column the primary
    // key, so a PRIMARY KEY [CLUSTERED|NONCLUSTERED] written in the same column definition
    // goes. Answers how many tokens before `identity` were removed.
    size_t DropColumnPrimaryKey(size_t identity);

    void MarkAutoincrementKey(size_t from);

    StatementTokens& m_t;
    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    std::optional<std::int64_t> m_identityStart;
    QString m_deferredColumn;
    Tokens m_deferredDefault;
};

} // namespace zlx::tsql
