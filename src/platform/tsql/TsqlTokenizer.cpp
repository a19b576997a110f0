#include "platform/tsql/TsqlTokenizer.h"

#include "platform/tsql/TsqlErrors.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace zlx::tsql {
namespace {

bool IsWordStart(QChar c) {
    return c.isLetter() || c == u'_' || c == u'#';
}
bool IsWordPart(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'#' || c == u'$';
}

// A piece of `sql`. One ASCII character (a blank, a comma, a parenthesis), the commonest piece,
// is shared rather than allocated each time.
QString Piece(const QString& sql, qsizetype start, qsizetype length) {
    static const std::array<QString, 128> kOneCharacter = [] {
        std::array<QString, 128> texts;
        for (char16_t c = 0; c < 128; ++c)
            texts[c] = QString(QChar(c));
        return texts;
    }();
    if (length == 0) return {};
    if (length == 1 && sql[start].unicode() < 128) return kOneCharacter[sql[start].unicode()];
    return sql.mid(start, length);
}

class Lexer {
public:
    explicit Lexer(const QString& sql) : m_sql(sql) {}

    Tokens Run() {
        Tokens tokens;
        while (m_pos < m_sql.size()) {
            const qsizetype blanks = m_pos;
            while (m_pos < m_sql.size() && SkipBlankOrComment()) {
            }
            QString leading = Piece(m_sql, blanks, m_pos - blanks);
            if (m_pos == m_sql.size()) {
                // Trailing blanks ride on an empty symbol so that nothing of the text is lost.
                if (!leading.isEmpty())
                    tokens.push_back(Token{TokenKind::Symbol, QString(), leading});
                break;
            }
            Token token = Next();
            token.leading = std::move(leading);
            tokens.push_back(std::move(token));
        }
        return tokens;
    }

private:
    QChar At(qsizetype i) const { return i < m_sql.size() ? m_sql[i] : QChar(); }

    bool SkipBlankOrComment() {
        const QChar c = m_sql[m_pos];
        if (c.isSpace()) {
            ++m_pos;
            return true;
        }
        if (c == u'-' && At(m_pos + 1) == u'-') {
            const qsizetype end = m_sql.indexOf(u'\n', m_pos);
            m_pos = end < 0 ? m_sql.size() : end;
            return true;
        }
        if (c == u'/' && At(m_pos + 1) == u'*') {
            const qsizetype end = m_sql.indexOf(QStringLiteral("*/"), m_pos + 2);
            if (end < 0) ThrowStatementError(QStringLiteral("Missing end comment mark '*/'."), 113);
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
        qsizetype from = m_pos + 1;
        for (;;) {
            const qsizetype at = m_sql.indexOf(close, from);
            if (at < 0) {
                ThrowStatementError(
                    QStringLiteral("Unclosed quotation mark after the character string '%1'.")
                        .arg(value + m_sql.mid(from)),
                    105);
            }
            value += QStringView(m_sql).mid(from, at - from);
            if (At(at + 1) != close) {
                m_pos = at + 1;
                return Token{kind, value, {}};
            }
            value += close;
            from = at + 2;
        }
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
        return Token{TokenKind::Number, Piece(m_sql, start, m_pos - start), {}};
    }

    template <typename Pred> Token Take(TokenKind kind, Pred part) {
        const qsizetype start = m_pos++;
        while (m_pos < m_sql.size() && part(m_sql[m_pos]))
            ++m_pos;
        return Token{kind, Piece(m_sql, start, m_pos - start), {}};
    }

    Token Symbol() {
        static constexpr char16_t kPairs[][2] = {{u'<', u'>'}, {u'<', u'='}, {u'>', u'='},
                                                 {u'!', u'='}, {u'!', u'<'}, {u'!', u'>'},
                                                 {u'|', u'|'}, {u':', u':'}};
        const QChar first = m_sql[m_pos], second = At(m_pos + 1);
        const bool pair = std::any_of(std::begin(kPairs), std::end(kPairs), [&](const auto& p) {
            return first == p[0] && second == p[1];
        });
        const qsizetype length = pair ? 2 : 1;
        const QString text = Piece(m_sql, m_pos, length);
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
