#pragma once
// The values an INSERT's VALUES or an UPDATE's SET list stores, as SQL Server stores them in the
// column's type: decimals rounded to the column's scale, CHAR(n) texts padded, texts in number,
// BIT or date columns converted (or refused with SQL Server's error), trailing blanks of stored
// texts dropped on an engine whose comparisons count them. Looks the target table's columns up once
// per statement.

#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TranslationContext.h"

#include <optional>
#include <vector>

namespace zlx::tsql {

class StoredValues {
public:
    StoredValues(StatementTokens& tokens, const TranslationContext& context);

    // INSERT INTO t VALUES ... or SELECT ... without a column list into a table with an
    // identity: SQL Server gives the values to the other columns, which are named.
    void NameInsertedColumns();

    // On an engine whose numeric columns keep any number, what an INSERT's VALUES or an
    // UPDATE's SET list stores in a DECIMAL or MONEY column is rounded to the column's scale
    // (and held to its precision) by the engine's function; on one whose text columns keep
    // any text, what it stores in a CHAR(n) column is padded to n by the engine's function; on
    // one whose BIT columns take only 0 and 1, what it stores in one becomes 0 or 1.
    // What INSERT ... SELECT stores in a number column is converted as SQL Server converts it
    // (a text of "12.5" into an INT is error 245), on every engine.
    void PrepareStoredValues();

    // On an engine whose text comparisons count trailing blanks, a string literal loses them
    // where it is compared (an operand of =, <>, <, >, <= or >=, of IN and its list's values)
    // outside an UPDATE's SET list, so that it compares with another literal or a TEXT value as on
    // SQL Server; a stored one keeps them (the engine's sized text columns ignore them in
    // comparisons).
    bool DropsTrailingBlanks(size_t i) const;

    // A text stored in a column of another type, converted as SQL Server converts it; empty
    // when the literal is written as it is.
    QString StoredText(size_t i);

    // A blank text is 0 in a number column and the date numbered 0 in a date column; a
    // DECIMAL has no such reading. Empty: the text stays a text.
    QString BlankAs(ColumnKind kind) const;

    // The column that the literal at `i` is stored in: a whole value of an INSERT's VALUES or
    // SELECT list, or of an UPDATE's SET list. Its name is empty when it is not known (an INSERT
    // without column list into a table whose columns are unknown), its kind unset when the
    // table's columns are unknown. nullopt for any other literal.
    struct StoredColumn {
        QString name;
        std::optional<ColumnKind> kind;
        QString type; // the column's T-SQL type, when its kind is known
    };
    std::optional<StoredColumn> StoredColumnOf(size_t i);

private:
    // A value stored by an INSERT or UPDATE: tokens [first, last) going into `column`.
    struct StoredItem {
        size_t first;
        size_t last;
        QString column;
    };

    // The values of each row of VALUES, with the column each goes into.
    std::vector<StoredItem> InsertedItems() const;

    // The c = value items of an UPDATE's SET list.
    std::vector<StoredItem> SetItems() const;

    bool IsInsertedValue(size_t i) const;

    // INSERT ... SELECT, the SELECT at `select`: each value of its list converted to its column.
    void ConvertSelectedValues(size_t select);
    // Where the value of a select list item [first, last) ends, before its alias.
    size_t ValueEnd(size_t first, size_t last) const;
    // Each item wrapped in its column's call (`converting`: ConvertingCall, else StoringCall).
    void WrapItems(const std::vector<StoredItem>& items, bool converting);
    void Wrap(size_t first, size_t last, const QString& call);
    // The engine's CAST of a value into a number column, as SQL Server converts it; for other
    // columns StoringCall.
    QString ConvertingCall(const TableColumn& column) const;
    // The place of the literal at `i` in the select list of an INSERT ... SELECT when it is a
    // whole value there; nullopt otherwise.
    std::optional<size_t> SelectedPosition(size_t i) const;

    // The engine's call, its value written \x01, that stores a value in `column` as SQL Server
    // does; empty: the value goes in as it is.
    QString StoringCall(const TableColumn& column) const;

    // The table an INSERT or UPDATE stores in, with an INSERT's column list when it has one.
    struct StoreTargetColumns {
        TableColumns columns;
        std::optional<QStringList> listed;
    };

    StoreTargetColumns StoreTarget(bool insert) const;

    // A whole value of an UPDATE's SET list: c = <literal> followed by a comma, WHERE, FROM or
    // the end.
    bool IsWholeSetValue(size_t i) const;

    bool InSetList(size_t i) const;

    StatementTokens& m_t;
    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
    std::optional<StoreTargetColumns> m_target; // what StoredColumnOf looked up
};

} // namespace zlx::tsql
