#include "platform/tsql/StatementColumns.h"

#include "platform/tsql/TsqlTokenizer.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

// Words that end a FROM list at its query's level.
bool EndsTableList(const Token& token) {
    return IsAnyWord(token, {u"ON", u"WHERE", u"GROUP", u"ORDER", u"HAVING", u"SET", u"OPTION"});
}

bool IsAlias(const Token* token) {
    return token && IsName(*token) && !IsClauseWord(*token) && !EndsTableList(*token) &&
           !IsAnyWord(*token, {u"WITH", u"FULL", u"UNION", u"EXCEPT", u"INTERSECT"});
}

// LEFT, RIGHT and FULL name outer joins unless they call the text functions LEFT and RIGHT.
bool IsOuterJoin(const StatementTokens& tokens, size_t i) {
    return IsAnyWord(tokens[i], {u"LEFT", u"RIGHT", u"FULL"}) && !tokens.SymbolAt(i + 1, u"(");
}

// db..t and db.dbo.t: the name [name, end) has two dots.
bool NamesAnotherDatabase(const StatementTokens& tokens, size_t name, size_t end) {
    const auto dot = [](const Token& token) { return token.IsSymbol(u"."); };
    return std::count_if(tokens.begin() + static_cast<std::ptrdiff_t>(name),
                         tokens.begin() + static_cast<std::ptrdiff_t>(end), dot) > 1;
}

} // namespace

StatementColumns::StatementColumns(const StatementTokens& tokens, const TranslationContext& context)
    : m_t(tokens), m_context(context) {}

const TableColumn* StatementColumns::Find(size_t i) const {
    if (i >= m_t.size() || !IsName(m_t[i])) return nullptr;
    if (!m_read) ReadTables();
    if (i >= 2 && m_t.SymbolAt(i - 1, u"."))
        return IsName(m_t[i - 2]) ? FindQualified(m_t[i - 2].text, m_t[i].text, m_queryOf[i])
                                  : nullptr;
    return FindBare(m_t[i].text, m_queryOf[i]);
}

bool StatementColumns::IsText(size_t i) const {
    if (const TableColumn* column = Find(i)) return column->kind == ColumnKind::Text;
    return Ask(m_context.isTextColumn, m_t[i], false);
}

bool StatementColumns::IsDate(size_t i) const {
    if (const TableColumn* column = Find(i)) return column->kind == ColumnKind::Date;
    return Ask(m_context.isDateColumn, m_t[i], false);
}

bool StatementColumns::IsInteger(size_t i) const {
    if (const TableColumn* column = Find(i)) return column->kind == ColumnKind::Integer;
    return Ask(m_context.isIntegerColumn, m_t[i], false);
}

QString StatementColumns::Type(size_t i) const {
    if (const TableColumn* column = Find(i)) return column->type.toUpper().remove(u' ');
    return m_context.columnType ? m_context.columnType(m_t[i].text) : QString();
}

bool StatementColumns::MayBeNull(size_t i) const {
    const TableColumn* column = Find(i);
    if (!column) return Ask(m_context.mayBeNull, m_t[i], true);
    if (!column->notNull) return true;
    for (size_t query = m_queryOf[i]; query != kNone; query = m_queries[query].outer)
        if (m_queries[query].outerJoined) return true;
    return false;
}

bool StatementColumns::Ask(const std::function<bool(const QString&)>& question, const Token& name,
                           bool unset) {
    return question ? question(name.text) : unset;
}

// One pass over the tokens: each "(" that opens a SELECT and each UNION begins a query, and
// the names after FROM, JOIN, UPDATE, DELETE and the commas of a FROM list are its tables.
void StatementColumns::ReadTables() const {
    m_read = true;
    m_queryOf.assign(m_t.size(), 0);
    m_queries = {Query{kNone, false, false}};
    struct Open {
        size_t query;
        bool listing;
    };
    std::vector<Open> open;
    size_t query = 0;
    bool listing = false; // within the FROM list of `query`
    for (size_t i = 0; i < m_t.size(); ++i) {
        const Token& token = m_t[i];
        if (token.IsSymbol(u"(")) {
            open.push_back({query, listing});
            listing = false;
            if (m_t.WordAt(i + 1, u"SELECT")) {
                m_queries.push_back({query, false, false});
                query = m_queries.size() - 1;
            }
        } else if (token.IsSymbol(u")") && !open.empty()) {
            query = open.back().query;
            listing = open.back().listing;
            open.pop_back();
        } else if (IsAnyWord(token, {u"UNION", u"EXCEPT", u"INTERSECT"})) {
            m_queries.push_back({m_queries[query].outer, false, false});
            query = m_queries.size() - 1;
            listing = false;
        } else if (IsAnyWord(token, {u"FROM", u"JOIN", u"UPDATE"}) ||
                   (token.IsWord(u"DELETE") && !m_t.WordAt(i + 1, u"FROM")) ||
                   (listing && token.IsSymbol(u","))) {
            ReadTable(i + 1, query);
            listing = !token.IsWord(u"UPDATE") && !token.IsWord(u"DELETE");
        } else if (IsOuterJoin(m_t, i)) {
            m_queries[query].outerJoined = true;
        } else if (EndsTableList(token)) {
            listing = false;
        }
        m_queryOf[i] = query;
    }
    m_columns.resize(m_tables.size());
}

void StatementColumns::ReadTable(size_t name, size_t query) const {
    const size_t end = m_t.QualifiedNameEnd(name);
    // A derived table's columns are not known; another database's (db..t, db.dbo.t) are not
    // read before the statement runs.
    if (end == name || NamesAnotherDatabase(m_t, name, end)) {
        m_queries[query].unreadable = true;
        return;
    }
    const Token* alias = m_t.At(m_t.WordAt(end, u"AS") ? end + 1 : end);
    m_tables.push_back({TokensToSql(Tokens(m_t.begin() + name, m_t.begin() + end)).trimmed(),
                        m_t[end - 1].text, IsAlias(alias) ? alias->text : QString(), query});
}

const TableColumns& StatementColumns::ColumnsOf(size_t table) const {
    std::optional<TableColumns>& columns = m_columns[table];
    if (!columns)
        columns = m_context.tableColumns ? m_context.tableColumns(m_tables[table].written)
                                         : TableColumns();
    return *columns;
}

// A table with an alias is named by its alias alone.
const TableColumn* StatementColumns::FindQualified(const QString& qualifier, const QString& column,
                                                   size_t query) const {
    for (; query != kNone; query = m_queries[query].outer) {
        for (size_t k = 0; k < m_tables.size(); ++k) {
            const NamedTable& table = m_tables[k];
            const QString& named = table.alias.isEmpty() ? table.name : table.alias;
            if (table.query == query && SameTextIgnoringCase(named, qualifier))
                return FindColumn(ColumnsOf(k), column);
        }
    }
    return nullptr;
}

// The first table of the nearest query that has the column: a name two tables of one query
// have is the engine's error, as it is SQL Server's (209).
const TableColumn* StatementColumns::FindBare(const QString& column, size_t query) const {
    for (; query != kNone; query = m_queries[query].outer) {
        bool unreadable = m_queries[query].unreadable;
        for (size_t k = 0; k < m_tables.size(); ++k) {
            if (m_tables[k].query != query) continue;
            const TableColumns& columns = ColumnsOf(k);
            if (const TableColumn* found = FindColumn(columns, column)) return found;
            unreadable = unreadable || columns.empty();
        }
        // A table whose columns are not known may hold it.
        if (unreadable) return nullptr;
    }
    return nullptr;
}

} // namespace zlx::tsql
