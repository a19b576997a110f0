#include "platform/tsql/SelectInto.h"

#include "platform/tsql/SelectList.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QStringList>

namespace zlx::tsql {
namespace {

bool IsName(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName;
}

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

Tokens SelectInto::CreateTable(const std::vector<ado::ColumnInfo>& columns) const {
    QStringList definitions;
    for (const ado::ColumnInfo& column : columns)
        definitions << Bracketed(column.name) + u' ' + ColumnTypeText(column) + u" NULL"_qs;
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
