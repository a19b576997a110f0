#include "platform/tsql/LargeTextRefusals.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr std::int32_t kIncompatibleOperands = 402;
constexpr std::int32_t kNotSortable = 306;

QString OperatorName(const QString& op) {
    if (op == u"=") return QStringLiteral("equal to");
    if (op == u"<>" || op == u"!=") return QStringLiteral("not equal to");
    if (op == u"<") return QStringLiteral("less than");
    if (op == u">") return QStringLiteral("greater than");
    if (op == u"<=") return QStringLiteral("less than or equal to");
    return QStringLiteral("greater than or equal to");
}

// The catalogs' names are sysname on SQL Server; the engines hold them in long texts.
bool ReadsCatalog(const StatementTokens& tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& token) {
        return IsAnyWord(token, {u"sysobjects", u"syscolumns", u"sysdatabases", u"sysprocesses",
                                 u"INFORMATION_SCHEMA"});
    });
}

} // namespace

QString LargeTextRefusals::LargeTextType(const StatementTokens& tokens,
                                         const StatementColumns& columns,
                                         const TranslationContext& context, size_t last) {
    if (!IsName(tokens[last]) || tokens.SymbolAt(last + 1, u".") ||
        tokens.SymbolAt(last + 1, u"(") || ReadsCatalog(tokens))
        return {};
    // Only a column of the statement's own tables: a name known only across the database may
    // stand for another column.
    const TableColumn* column = columns.Find(last);
    const QString type = column ? column->type.toUpper() : QString();
    if (type != u"TEXT" && type != u"NTEXT") return {};
    // A Jet file's TEXT is a short text, which compares and sorts.
    return DialectOf(context).JetDates() ? QString() : type.toLower();
}

void LargeTextRefusals::Check() const {
    for (size_t i = 0; i < m_t.size(); ++i) {
        const QString type = LargeTextType(m_t, m_columns, m_context, i);
        if (type.isEmpty()) continue;
        const size_t first = NameStart(i);
        const bool after = first > 0 && m_t.IsComparison(first - 1);
        if (after || m_t.IsComparison(i + 1)) {
            const size_t op = after ? first - 1 : i + 1;
            const QString other = OperandTypeName(after ? m_t.PrimaryStart(op - 1) : op + 1);
            ThrowStatementError(
                QStringLiteral("The data types %1 and %2 are incompatible in the "
                               "%3 operator.")
                    .arg(after ? other : type, after ? type : other, OperatorName(m_t[op].text)),
                kIncompatibleOperands);
        }
        if (IsSortKey(first, i))
            ThrowStatementError(u"The text, ntext, and image data types cannot be compared or "
                                u"sorted, except when using IS NULL or LIKE operator."_qs,
                                kNotSortable);
    }
}

size_t LargeTextRefusals::NameStart(size_t last) const {
    size_t first = last;
    while (first >= 2 && m_t[first - 1].IsSymbol(u".") && IsName(m_t[first - 2]))
        first -= 2;
    return first;
}

QString LargeTextRefusals::OperandTypeName(size_t first) const {
    const Token* token = m_t.At(first);
    if (!token) return QStringLiteral("varchar");
    if (token->kind == TokenKind::String)
        return token->national ? QStringLiteral("nvarchar") : QStringLiteral("varchar");
    if (token->kind == TokenKind::Number)
        return token->text.contains(u'.') ? QStringLiteral("numeric") : QStringLiteral("int");
    const size_t end = m_t.PrimaryEnd(first);
    if (end > first && m_t.NamedColumn(first, end)) {
        const QString type = m_columns.Type(end - 1);
        if (!type.isEmpty()) return type.section(u'(', 0, 0).toLower();
    }
    return QStringLiteral("varchar");
}

bool LargeTextRefusals::IsSortKey(size_t first, size_t last) const {
    const Token* next = m_t.At(last + 1);
    const bool ends = !next || next->IsSymbol(u",") || next->IsSymbol(u")") ||
                      IsAnyWord(*next, {u"ASC", u"DESC", u"HAVING", u"ORDER", u"UNION"});
    if (!ends || first == 0) return false;
    for (size_t k = first, depth = 0; k-- > 0;) {
        if (m_t[k].IsSymbol(u")")) {
            ++depth;
        } else if (m_t[k].IsSymbol(u"(")) {
            if (depth-- == 0) return false;
        } else if (depth == 0 && m_t[k].IsWord(u"BY")) {
            return k + 1 == first || m_t[first - 1].IsSymbol(u",");
        } else if (depth == 0 && (IsClauseWord(m_t[k]) || m_t[k].IsWord(u"SELECT"))) {
            return false;
        }
    }
    return false;
}

} // namespace zlx::tsql
