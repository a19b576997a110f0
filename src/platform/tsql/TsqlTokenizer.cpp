#include "platform/tsql/TsqlTokenizer.h"

#include "platform/tsql/TsqlErrors.h"

#include <QStringList>

namespace zlx::tsql {
namespace {

bool IsWordStart(QChar c) {
    return c.isLetter() || c == u'_' || c == u'#';
}
bool IsWordPart(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'$';
}

class Lexer {
public:
    explicit Lexer(const QString& sql) : m_sql(sql) {}

    Tokens Run() {
        Tokens tokens;
        QString leading;
        while (m_pos < m_sql.size()) {
            if (SkipBlankOrComment(leading)) continue;
            Token token = Next();
            token.leading = std::exchange(leading, QString());
            tokens.push_back(std::move(token));
        }
        if (!leading.isEmpty()) {
            // Trailing blanks ride on an empty symbol so that nothing of the text is lost.
            tokens.push_back(Token{TokenKind::Symbol, QString(), leading});
        }
        return tokens;
    }

private:
    QChar At(qsizetype i) const { return i < m_sql.size() ? m_sql[i] : QChar(); }

    bool SkipBlankOrComment(QString& leading) {
        const QChar c = m_sql[m_pos];
        if (c.isSpace()) {
            leading += c;
            ++m_pos;
            return true;
        }
        if (c == u'-' && At(m_pos + 1) == u'-') {
            const qsizetype end = m_sql.indexOf(u'\n', m_pos);
            const qsizetype stop = end < 0 ? m_sql.size() : end;
            leading += m_sql.mid(m_pos, stop - m_pos);
            m_pos = stop;
            return true;
        }
        if (c == u'/' && At(m_pos + 1) == u'*') {
            const qsizetype end = m_sql.indexOf(QStringLiteral("*/"), m_pos + 2);
            if (end < 0) ThrowStatementError(QStringLiteral("Missing end comment mark '*/'."), 113);
            leading += m_sql.mid(m_pos, end + 2 - m_pos);
            m_pos = end + 2;
            return true;
        }
        return false;
    }

    Token Next() {
        const QChar c = m_sql[m_pos];
        if ((c == u'N' || c == u'n') && At(m_pos + 1) == u'\'') {
            ++m_pos;
            Token token = Quoted(u'\'', TokenKind::String);
            token.national = true;
            return token;
        }
        if (c == u'\'') return Quoted(u'\'', TokenKind::String);
        if (c == u'[') return Quoted(u']', TokenKind::QuotedName);
        if (c == u'"') return Quoted(u'"', TokenKind::QuotedName);
        if (c == u'@') return Variable();
        if (c.isDigit() || (c == u'.' && At(m_pos + 1).isDigit())) return Number();
        if (IsWordStart(c)) return Take(TokenKind::Word, [](QChar ch) { return IsWordPart(ch); });
        return Symbol();
    }

    // A quoted run; the closing character doubled stands for itself.
    Token Quoted(QChar close, TokenKind kind) {
        QString value;
        qsizetype i = m_pos + 1;
        for (;;) {
            if (i >= m_sql.size()) {
                ThrowStatementError(
                    QStringLiteral("Unclosed quotation mark after the character string '%1'.")
                        .arg(value),
                    105);
            }
            if (m_sql[i] == close) {
                if (At(i + 1) == close) {
                    value += close;
                    i += 2;
                    continue;
                }
                break;
            }
            value += m_sql[i++];
        }
        m_pos = i + 1;
        return Token{kind, value, {}};
    }

    Token Variable() {
        const bool global = At(m_pos + 1) == u'@';
        const qsizetype start = m_pos;
        m_pos += global ? 2 : 1;
        while (m_pos < m_sql.size() && IsWordPart(m_sql[m_pos]))
            ++m_pos;
        return Token{
            global ? TokenKind::Global : TokenKind::Variable, m_sql.mid(start, m_pos - start), {}};
    }

    Token Number() {
        if (m_sql[m_pos] == u'0' && (At(m_pos + 1) == u'x' || At(m_pos + 1) == u'X')) {
            const qsizetype start = m_pos;
            m_pos += 2;
            while (m_pos < m_sql.size() && isxdigit(m_sql[m_pos].toLatin1()))
                ++m_pos;
            return Token{TokenKind::Number, m_sql.mid(start, m_pos - start), {}};
        }
        const qsizetype start = m_pos;
        while (m_pos < m_sql.size() && (m_sql[m_pos].isDigit() || m_sql[m_pos] == u'.'))
            ++m_pos;
        if ((At(m_pos) == u'e' || At(m_pos) == u'E') &&
            (At(m_pos + 1).isDigit() ||
             ((At(m_pos + 1) == u'-' || At(m_pos + 1) == u'+') && At(m_pos + 2).isDigit()))) {
            m_pos += 2;
            while (m_pos < m_sql.size() && m_sql[m_pos].isDigit())
                ++m_pos;
        }
        return Token{TokenKind::Number, m_sql.mid(start, m_pos - start), {}};
    }

    template <typename Pred> Token Take(TokenKind kind, Pred part) {
        const qsizetype start = m_pos++;
        while (m_pos < m_sql.size() && part(m_sql[m_pos]))
            ++m_pos;
        return Token{kind, m_sql.mid(start, m_pos - start), {}};
    }

    Token Symbol() {
        static const QStringList twoChar = {
            QStringLiteral("<>"), QStringLiteral("<="), QStringLiteral(">="), QStringLiteral("!="),
            QStringLiteral("!<"), QStringLiteral("!>"), QStringLiteral("||"), QStringLiteral("::")};
        const QString pair = m_sql.mid(m_pos, 2);
        const qsizetype length = twoChar.contains(pair) ? 2 : 1;
        const QString text = m_sql.mid(m_pos, length);
        m_pos += length;
        return Token{TokenKind::Symbol, text, {}};
    }

    const QString& m_sql;
    qsizetype m_pos = 0;
};

QString Quote(const QString& text, QChar open, QChar close) {
    QString doubled = text;
    doubled.replace(close, QString(2, close));
    return open + doubled + close;
}

} // namespace

Tokens Tokenize(const QString& sql) {
    return Lexer(sql).Run();
}

QString TokensToSql(const Tokens& tokens) {
    QString out;
    for (const Token& token : tokens) {
        out += token.leading;
        switch (token.kind) {
        case TokenKind::QuotedName:
            out += Quote(token.text, u'[', u']');
            break;
        case TokenKind::String:
            out += (token.national ? QStringLiteral("N") : QString()) +
                   Quote(token.text, u'\'', u'\'');
            break;
        default:
            out += token.text;
        }
    }
    return out;
}

} // namespace zlx::tsql
