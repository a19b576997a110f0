#include "platform/tsql/TsqlTranslator.h"

#include "platform/tsql/CaseComparisons.h"
#include "platform/tsql/ConditionPlacement.h"
#include "platform/tsql/DataStatementRewriter.h"
#include "platform/tsql/DistinctTexts.h"
#include "platform/tsql/ConstraintNames.h"
#include "platform/tsql/LargeTextRefusals.h"
#include "platform/tsql/NiladicFunctions.h"
#include "platform/tsql/OffsetFetch.h"
#include "platform/tsql/QueryHints.h"
#include "platform/tsql/RecursionLimit.h"
#include "platform/tsql/SelectAliases.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/StatementWriter.h"
#include "platform/tsql/StoredValues.h"
#include "platform/tsql/TableDefinitionRewriter.h"
#include "platform/tsql/TypedExpressions.h"
#include "platform/tsql/UnsupportedClauses.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

namespace zlx::tsql {
namespace {

bool ValidDateTime(int y, int m, int d, int hh, int mi, int ss) {
    return y >= 1753 && QDate::isValid(y, m, d) && QTime::isValid(hh, mi, ss);
}

// A common table expression may read itself on SQL Server; PostgreSQL allows that only after
// WITH RECURSIVE, which both engines take for any list.
void MarkCtesRecursive(StatementTokens& tokens) {
    if (!tokens.WordAt(0, u"WITH") || tokens.WordAt(1, u"RECURSIVE")) return;
    tokens.insert(tokens.begin() + 1, Token{TokenKind::Word, QStringLiteral("RECURSIVE"), u" "_qs});
}

} // namespace

QString EngineIndexName(const QString& table, const QString& index) {
    return table + u'_' + index;
}

QString NormalizedDateLiteral(const QString& text, bool dayMonthYear) {
    static const QRegularExpression compact(
        QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})(?: (\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    static const QRegularExpression slashed(
        QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})(?: (\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    int y = 0, m = 0, d = 0;
    QRegularExpressionMatch match = compact.match(text);
    if (match.hasMatch()) {
        y = match.captured(1).toInt();
        m = match.captured(2).toInt();
        d = match.captured(3).toInt();
    } else if (dayMonthYear && (match = slashed.match(text)).hasMatch()) {
        d = match.captured(1).toInt();
        m = match.captured(2).toInt();
        y = match.captured(3).toInt();
    } else {
        return QString();
    }
    const int hh = match.captured(4).toInt(), mi = match.captured(5).toInt(),
              ss = match.captured(6).toInt();
    if (!ValidDateTime(y, m, d, hh, mi, ss)) return QString();
    return QStringLiteral("%1-%2-%3 %4:%5:%6")
        .arg(y, 4, 10, QChar(u'0'))
        .arg(m, 2, 10, QChar(u'0'))
        .arg(d, 2, 10, QChar(u'0'))
        .arg(hh, 2, 10, QChar(u'0'))
        .arg(mi, 2, 10, QChar(u'0'))
        .arg(ss, 2, 10, QChar(u'0'));
}

TsqlTranslator::TsqlTranslator(TranslationContext context) : m_context(std::move(context)) {}

// The passes that rewrite a statement's forms in place, then its writing in the engine's SQL.
Translation TsqlTranslator::Translate(const Tokens& statement) const {
    StatementTokens tokens(statement);
    UnsupportedClauses(tokens, DialectOf(m_context)).Check();
    ConditionPlacement(tokens).Check();
    NiladicFunctions(tokens).Rewrite();
    Translation translation;
    NameUnnamedConstraints(tokens);
    TableDefinitionRewriter definitions(tokens, m_context);
    translation.identityStart = definitions.Rewrite();
    if (!definitions.DeferredDefault().empty())
        translation.defaultAfterAdd = {definitions.DeferredDefaultColumn(),
                                       u'(' + Expression(definitions.DeferredDefault()).trimmed() +
                                           u')'};
    DataStatementRewriter(tokens, DialectOf(m_context)).Rewrite();
    CaseComparisons(tokens).Rewrite();
    MarkCtesRecursive(tokens);
    RecursionLimit(tokens, m_context).Apply();
    OffsetFetch(tokens).Rewrite();
    QueryHints(tokens).Remove();
    SelectAliases(tokens).Rewrite();
    StoredValues stored(tokens, m_context);
    stored.NameInsertedColumns();
    stored.PrepareStoredValues();
    LargeTextRefusals(tokens, m_context).Check();
    TypedExpressions(tokens, m_context).Prepare();
    DistinctTexts(tokens, m_context).Collate();
    StatementWriter writer(tokens, m_context, stored);
    translation.sql = writer.Write();
    translation.exclusiveTables = writer.ExclusiveTables();
    translation.databases = writer.Databases();
    return translation;
}

} // namespace zlx::tsql
