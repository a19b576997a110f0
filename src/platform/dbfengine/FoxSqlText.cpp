#include "platform/dbfengine/FoxSqlText.h"

#include "platform/dbfengine/FoxPlusOperator.h"

#include <QRegularExpression>

namespace zlx::dbfengine::FoxSqlText {

namespace {

// Where the string that opens at `start` (with its quote character) ends, past its closing
// quote; a doubled quote inside is part of the text.
qsizetype StringEnd(const QString& text, qsizetype start) {
    const QChar quote = text[start];
    qsizetype i = start + 1;
    while (i < text.size()) {
        if (text[i] == quote) {
            if (i + 1 < text.size() && text[i + 1] == quote) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return text.size();
}

QString SingleQuoted(const QString& inner) {
    QString text = inner;
    return u'\'' + text.replace(u'\'', QStringLiteral("''")) + u'\'';
}

// "abc" in FoxPro is a string: it becomes 'abc'.
QString DoubleQuotedString(const QString& literal) {
    QString inner = literal.mid(1, literal.size() - 2);
    inner.replace(QStringLiteral("\"\""), QStringLiteral("\""));
    return SingleQuoted(inner);
}

// {^2024-01-31}, {^2024-01-31 10:20:30}, {d '2024-01-31'}, {ts '...'} and the empty {}.
QString DateConstant(const QString& braced) {
    static const QRegularExpression strict(QStringLiteral(
        R"(^\{\s*\^\s*(\d{4})[-/.](\d{1,2})[-/.](\d{1,2})(?:[ ,T]+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*\}$)"));
    static const QRegularExpression escape(QStringLiteral(R"(^\{\s*(?:d|ts|t)\s+'([^']*)'\s*\}$)"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QString inner = braced.mid(1, braced.size() - 2).trimmed();
    if (inner.isEmpty() || inner == u"/" || inner == u"^") return QStringLiteral("NULL");
    if (const auto match = escape.match(braced); match.hasMatch())
        return SingleQuoted(match.captured(1));
    const auto match = strict.match(braced);
    if (!match.hasMatch()) return braced;
    QString text = QStringLiteral("%1-%2-%3")
                       .arg(match.captured(1))
                       .arg(match.captured(2).toInt(), 2, 10, QLatin1Char('0'))
                       .arg(match.captured(3).toInt(), 2, 10, QLatin1Char('0'));
    if (match.capturedLength(4) > 0)
        text += QStringLiteral(" %1:%2:%3")
                    .arg(match.captured(4).toInt(), 2, 10, QLatin1Char('0'))
                    .arg(match.captured(5))
                    .arg(match.captured(6).isEmpty() ? QStringLiteral("00") : match.captured(6));
    return SingleQuoted(text);
}

QString DottedWord(const QString& word) {
    const QString upper = word.toUpper();
    if (upper == u".T.") return QStringLiteral("1");
    if (upper == u".F.") return QStringLiteral("0");
    if (upper == u".NULL.") return QStringLiteral("NULL");
    if (upper == u".AND.") return QStringLiteral(" AND ");
    if (upper == u".OR.") return QStringLiteral(" OR ");
    if (upper == u".NOT.") return QStringLiteral(" NOT ");
    return word;
}

// The text outside strings rewritten piece by piece.
QString Rewrite(const QString& text) {
    static const QRegularExpression dotted(QStringLiteral(R"(^\.(?:T|F|NULL|AND|OR|NOT)\.)"),
                                           QRegularExpression::CaseInsensitiveOption);
    QString out;
    out.reserve(text.size());
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        if (c == u'\'' || c == u'"') {
            const qsizetype end = StringEnd(text, i);
            const QString literal = text.mid(i, end - i);
            out += c == u'"' ? DoubleQuotedString(literal) : literal;
            i = end;
        } else if (c == u'{') {
            const qsizetype close = text.indexOf(u'}', i);
            const qsizetype end = close < 0 ? text.size() : close + 1;
            out += DateConstant(text.mid(i, end - i));
            i = end;
        } else if (c == u'.' && (i == 0 || !text[i - 1].isLetterOrNumber())) {
            const auto match = dotted.match(QStringView(text).mid(i));
            if (match.hasMatch()) {
                out += DottedWord(match.captured(0));
                i += match.capturedLength(0);
            } else {
                out += c;
                ++i;
            }
        } else if (c == u'=' && i + 1 < text.size() && text[i + 1] == u'=') {
            out += u'=';
            i += 2;
        } else {
            out += c;
            ++i;
        }
    }
    return out;
}

// SELECT [ALL|DISTINCT] TOP n [PERCENT] ...: the TOP clause goes, a LIMIT ends the statement.
QString TopAsLimit(const QString& statement) {
    static const QRegularExpression top(
        QStringLiteral(R"(^(\s*SELECT\s+(?:ALL\s+|DISTINCT\s+)?)TOP\s+(\d+)\s+)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = top.match(statement);
    if (!match.hasMatch()) return statement;
    QString rest = statement.mid(match.capturedEnd(0)).trimmed();
    while (rest.endsWith(u';'))
        rest.chop(1);
    return match.captured(1) + rest + QStringLiteral(" LIMIT ") + match.captured(2);
}

} // namespace

QStringList Statements(const QString& batch) {
    QStringList statements;
    qsizetype start = 0;
    qsizetype i = 0;
    while (i <= batch.size()) {
        if (i < batch.size() && (batch[i] == u'\'' || batch[i] == u'"')) {
            i = StringEnd(batch, i);
            continue;
        }
        if (i == batch.size() || batch[i] == u';') {
            const QString statement = batch.mid(start, i - start).trimmed();
            if (!statement.isEmpty()) statements << statement;
            start = i + 1;
        }
        ++i;
    }
    return statements;
}

QString ToSqlite(const QString& statement) {
    return FoxPlusOperator::AsFunctionCalls(TopAsLimit(Rewrite(statement)));
}

QString FirstWord(const QString& statement) {
    const QString trimmed = statement.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && (trimmed[end].isLetter() || trimmed[end] == u'_'))
        ++end;
    return trimmed.left(end).toUpper();
}

} // namespace zlx::dbfengine::FoxSqlText
