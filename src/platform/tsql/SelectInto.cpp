#include "platform/tsql/SelectInto.h"

#include "platform/tsql/SelectList.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QStringList>
#include <algorithm>

namespace zlx::tsql {
namespace {

// Whether the value [first, end) of a select list gives its column a name: a column, an alias
// (AS x, "expression x", x = expression) or *.
bool NamesItsColumn(const Tokens& tokens, size_t first, size_t end) {
    const Token& last = tokens[end - 1];
    if (end - first == 1) return IsName(last) || last.IsSymbol(u"*");
    if (first + 1 < end && IsName(tokens[first]) && tokens[first + 1].IsSymbol(u"=")) return true;
    const Token& before = tokens[end - 2];
    if (last.IsSymbol(u"*")) return before.IsSymbol(u".");
    if (!IsName(last) && last.kind != TokenKind::String) return false;
    if (before.IsWord(u"AS") || before.IsSymbol(u".")) return true;
    // "expression alias": a name right after a closed call or another name, not CASE's END.
    return !last.IsWord(u"END") && (before.IsSymbol(u")") || IsName(before));
}

// The value of the select list's item [first, end) without its alias (x AS a, x a, a = x).
std::pair<size_t, size_t> ValueOf(const StatementTokens& tokens, size_t first, size_t end) {
    if (end > first + 2 && IsName(tokens[first]) && tokens.SymbolAt(first + 1, u"="))
        return {first + 2, end};
    if (end > first + 2 && tokens.WordAt(end - 2, u"AS")) return {first, end - 2};
    const bool aliased = end > first + 1 && IsName(tokens[end - 1]) &&
                         (IsName(tokens[end - 2]) || tokens.SymbolAt(end - 2, u")"));
    return {first, aliased ? end - 1 : end};
}

bool MentionsIdentity(const StatementTokens& tokens, size_t first, size_t end,
                      const TableColumns& table) {
    for (size_t i = first; i < end; ++i) {
        const TableColumn* column = IsName(tokens[i]) ? FindColumn(table, tokens[i].text) : nullptr;
        if (column && column->identity) return true;
    }
    return false;
}

SelectInto::Copy CopyOf(const TableColumn& column) {
    return {column.type.toUpper(), column.notNull || column.identity, column.identity, column.seed,
            column.step};
}

// The T-SQL type of a select list's value [first, end) that names no column, where it shows:
// a text literal's (VARCHAR or NVARCHAR of its length), CAST(x AS type)'s, CONVERT(type, x)'s.
QString ExpressionType(const StatementTokens& tokens, size_t first, size_t end) {
    const Token& token = tokens[first];
    if (end == first + 1 && token.kind == TokenKind::String && !token.text.isEmpty())
        return QStringLiteral("%1(%2)")
            .arg(token.national ? u"NVARCHAR" : u"VARCHAR")
            .arg(token.text.size());
    if (!tokens.SymbolAt(first + 1, u"(") || tokens.Close(first + 1) + 1 != end) return {};
    const QString type = tokens.ConversionType(first);
    // A CAST or CONVERT to a text type without a length gives 30 characters.
    static const QStringList sized = {u"CHAR"_qs,     u"VARCHAR"_qs, u"NCHAR"_qs,
                                      u"NVARCHAR"_qs, u"BINARY"_qs,  u"VARBINARY"_qs};
    return sized.contains(type) ? type + QStringLiteral("(30)") : type;
}

QString Bracketed(const QString& name) {
    return u'[' + QString(name).replace(u"]"_qs, u"]]"_qs) + u']';
}

QString Sized(const char* type, std::int32_t size, std::int32_t longest, const char* longType) {
    if (size <= 0 || size > longest) return QString::fromLatin1(longType);
    return QStringLiteral("%1(%2)").arg(QLatin1String(type)).arg(size);
}

} // namespace

std::optional<SelectInto> SelectInto::Read(const Tokens& statement) {
    if (statement.empty() || !statement[0].IsWord(u"SELECT")) return std::nullopt;
    const SelectList list = SelectList::Read(statement);
    if (list.end >= statement.size() || !statement[list.end].IsWord(u"INTO")) return std::nullopt;
    // t, db..t, db.dbo.t, [#t]
    size_t end = list.end + 1;
    if (end == statement.size() || !IsName(statement[end]))
        ThrowStatementError(QStringLiteral("Incorrect syntax near the keyword 'INTO'."), 156);
    for (++end; end + 1 < statement.size() && statement[end].IsSymbol(u".");) {
        while (end < statement.size() && statement[end].IsSymbol(u"."))
            ++end;
        if (end < statement.size() && IsName(statement[end])) ++end;
    }
    SelectInto into;
    into.target.assign(statement.begin() + static_cast<std::ptrdiff_t>(list.end + 1),
                       statement.begin() + static_cast<std::ptrdiff_t>(end));
    into.source.assign(statement.begin(),
                       statement.begin() + static_cast<std::ptrdiff_t>(list.end));
    into.source.insert(into.source.end(), statement.begin() + static_cast<std::ptrdiff_t>(end),
                       statement.end());
    return into;
}

void SelectInto::CheckColumnNames() const {
    for (const auto& [first, end] : SelectList::Read(source).items) {
        if (!NamesItsColumn(source, first, end))
            ThrowStatementError(
                QStringLiteral("An object or column name is missing or empty. For SELECT INTO "
                               "statements, verify each column has a name. For other statements, "
                               "look for empty alias names. Aliases defined as \"\" or [] are not "
                               "allowed. Change the alias to a valid name."),
                1038);
    }
}

QString SelectInto::SourceTable() const {
    const StatementTokens tokens(source);
    const size_t from = SelectList::Read(source).end;
    if (!tokens.WordAt(from, u"FROM") || tokens.DepthZeroWord(0, u"UNION") < tokens.size() ||
        tokens.DepthZeroWord(0, u"GROUP") < tokens.size())
        return {};
    const size_t end = tokens.QualifiedNameEnd(from + 1);
    size_t next = tokens.WordAt(end, u"AS") ? end + 1 : end;
    if (tokens.At(next) && IsName(tokens[next]) && !IsClauseWord(tokens[next]) &&
        !IsAnyWord(tokens[next], {u"WITH", u"ORDER", u"OPTION", u"HAVING"}))
        ++next; // its alias
    // t WITH (NOLOCK), t (NOLOCK): hints read no other table.
    if (tokens.WordAt(next, u"WITH")) ++next;
    if (tokens.SymbolAt(next, u"(")) next = tokens.Close(next) + 1;
    const bool alone = !tokens.At(next) || IsAnyWord(tokens[next], {u"WHERE", u"ORDER", u"OPTION"});
    if (end == from + 1 || !alone) return {};
    return TokensToSql(Tokens(source.begin() + static_cast<std::ptrdiff_t>(from) + 1,
                              source.begin() + static_cast<std::ptrdiff_t>(end)))
        .trimmed();
}

std::vector<SelectInto::Copy> SelectInto::Copies(const TableColumns& table, size_t count) const {
    const StatementTokens tokens(source);
    std::vector<Copy> copies;
    for (const auto& [first, end] : SelectList::Read(source).items) {
        const auto [value, valueEnd] = ValueOf(tokens, first, end);
        const bool star = tokens.SymbolAt(valueEnd - 1, u"*") &&
                          (valueEnd == value + 1 || tokens.SymbolAt(valueEnd - 2, u"."));
        const Token* name = tokens.NamedColumn(value, valueEnd);
        const TableColumn* column = name ? FindColumn(table, name->text) : nullptr;
        if (star) {
            for (const TableColumn& each : table)
                copies.push_back(CopyOf(each));
        } else if (column) {
            copies.push_back(CopyOf(*column));
        } else {
            // A constant, or an expression of the identity, cannot be NULL.
            const bool constant =
                valueEnd == value + 1 && (tokens[value].kind == TokenKind::String ||
                                          tokens[value].kind == TokenKind::Number);
            copies.push_back(Copy{ExpressionType(tokens, value, valueEnd),
                                  constant || MentionsIdentity(tokens, value, valueEnd, table)});
        }
    }
    if (copies.size() != count) return {};
    // An identity selected twice is copied as a NOT NULL column both times.
    if (std::count_if(copies.begin(), copies.end(), [](const Copy& c) { return c.identity; }) > 1)
        for (Copy& copy : copies)
            copy.identity = false;
    return copies;
}

Tokens SelectInto::CreateTable(const std::vector<ado::ColumnInfo>& columns,
                               const std::vector<Copy>& copies) const {
    QStringList definitions;
    for (size_t k = 0; k < columns.size(); ++k) {
        const Copy copy = k < copies.size() ? copies[k] : Copy{};
        const QString nullability =
            copy.identity
                ? QStringLiteral(" IDENTITY(%1,%2) NOT NULL").arg(copy.seed).arg(copy.step)
            : copy.notNull ? QStringLiteral(" NOT NULL")
                           : QStringLiteral(" NULL");
        const QString type = copy.type.isEmpty() ? ColumnTypeText(columns[k]) : copy.type;
        definitions << Bracketed(columns[k].name) + u' ' + type + nullability;
    }
    return Tokenize(QStringLiteral("CREATE TABLE %1 (%2)")
                        .arg(TokensToSql(target).trimmed(), definitions.join(u", "_qs)));
}

Tokens SelectInto::Insert(const std::vector<ado::ColumnInfo>& columns) const {
    QStringList names;
    for (const ado::ColumnInfo& column : columns)
        names << Bracketed(column.name);
    return Tokenize(QStringLiteral("INSERT INTO %1 (%2) %3")
                        .arg(TokensToSql(target).trimmed(), names.join(u", "_qs),
                             TokensToSql(source).trimmed()));
}

QString ColumnTypeText(const ado::ColumnInfo& column) {
    switch (column.type) {
    case ado::adBoolean:
        return QStringLiteral("BIT");
    case ado::adTinyInt:
    case ado::adUnsignedTinyInt:
        return QStringLiteral("TINYINT");
    case ado::adSmallInt:
        return QStringLiteral("SMALLINT");
    case ado::adInteger:
        return QStringLiteral("INT");
    case ado::adBigInt:
        return QStringLiteral("BIGINT");
    case ado::adSingle:
        return QStringLiteral("REAL");
    case ado::adDouble:
        return QStringLiteral("FLOAT");
    case ado::adCurrency:
        return QStringLiteral("MONEY");
    case ado::adNumeric:
    case ado::adDecimal: {
        const int precision =
            column.precision > 0 && column.precision <= 38 ? column.precision : 18;
        const int scale = column.numericScale <= precision ? column.numericScale : 0;
        return QStringLiteral("DECIMAL(%1,%2)").arg(precision).arg(scale);
    }
    case ado::adDate:
    case ado::adDBDate:
    case ado::adDBTime:
    case ado::adDBTimeStamp:
        return QStringLiteral("DATETIME");
    case ado::adGUID:
        return QStringLiteral("UNIQUEIDENTIFIER");
    case ado::adChar:
        return Sized("CHAR", column.definedSize, 8000, "TEXT");
    case ado::adWChar:
        return Sized("NCHAR", column.definedSize, 4000, "NTEXT");
    case ado::adVarChar:
        return Sized("VARCHAR", column.definedSize, 8000, "TEXT");
    case ado::adLongVarChar:
        return QStringLiteral("TEXT");
    case ado::adLongVarWChar:
        return QStringLiteral("NTEXT");
    case ado::adBinary:
        return Sized("BINARY", column.definedSize, 8000, "IMAGE");
    case ado::adVarBinary:
        return Sized("VARBINARY", column.definedSize, 8000, "IMAGE");
    case ado::adLongVarBinary:
        return QStringLiteral("IMAGE");
    default:
        return Sized("NVARCHAR", column.definedSize, 4000, "NTEXT");
    }
}

} // namespace zlx::tsql
