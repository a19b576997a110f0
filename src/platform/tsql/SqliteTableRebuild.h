#pragma once
// SQLite cannot change a column's type or default in place: the table is made again with the
// changed definition, keeping its rows, indexes and identity counter.

#include "platform/tsql/TsqlToken.h"

#include <functional>

namespace zlx::tsql {

class SqliteTableRebuild {
public:
    // Runs engine SQL and answers the first column of each row.
    using Runner = std::function<QStringList(const QString& sql)>;

    SqliteTableRebuild(Runner run, QString schema, QString table);

    // The column and constraint definitions of CREATE TABLE t (...): the top-level pieces
    // between the first "(" and its ")".
    static std::vector<Tokens> DefinitionPieces(const QString& created);

    // `check` replaces the column's checks of EngineDialect::ColumnCheck (none when empty).
    void ChangeType(const QString& column, const QString& type, const QString& check);
    // An empty value removes the column's default (and its name).
    void ChangeDefault(const QString& column, const QString& value);
    // The column's default takes the name `name` (CONSTRAINT name DEFAULT x), unless named so.
    void NameDefault(const QString& column, const QString& name);
    // The column whose default is named `name`; empty when there is none.
    QString ColumnOfDefault(const QString& name);
    // A table constraint ("CONSTRAINT pk PRIMARY KEY (a, b)") joins the definition.
    void AddConstraint(const QString& constraint);
    // The constraint named `name`, of the table or of a column, leaves the definition; false
    // when the definition names none so.
    bool DropConstraint(const QString& name);

private:
    // The table's definition as made; error 208 when there is no such table.
    QString CreatedSql();
    void RebuildColumn(const QString& column,
                       const std::function<void(Tokens& definition)>& change);
    // Whether FOREIGN KEY constraints were switched off for the rebuild (to be switched on
    // after it).
    bool SwitchForeignKeysOff();
    void CheckForeignKeys();
    // The table made again from its column and constraint definitions as `change` leaves them.
    void Rebuild(const std::function<void(std::vector<Tokens>& pieces)>& change);

    Runner m_run;
    QString m_schema;
    QString m_table;
};

} // namespace zlx::tsql
