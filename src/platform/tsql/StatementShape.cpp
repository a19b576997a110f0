#include "platform/tsql/StatementShape.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/StatementTokens.h"

#include <algorithm>
#include <cstdint>

namespace zlx::tsql {

namespace {

// Writes a key into room reserved for it beforehand: one statement's key takes a few hundred
// characters, and appending them one at a time to a QString was a third of an INSERT's check.
class KeyWriter {
public:
    explicit KeyWriter(QString& key) : m_next(reinterpret_cast<char16_t*>(key.data())) {}
    void Put(char16_t c) { *m_next++ = c; }
    // A length as two characters, so that no text can pass for the boundary between two others.
    void PutSized(const QString& text) {
        const auto size = static_cast<std::uint32_t>(text.size());
        Put(static_cast<char16_t>(size & 0xFFFF));
        Put(static_cast<char16_t>(size >> 16));
        std::copy_n(text.utf16(), size, m_next);
        m_next += size;
    }
    char16_t* Next() const { return m_next; }

private:
    char16_t* m_next;
};

bool IsComparison(const Token& token) {
    if (token.kind != TokenKind::Symbol) return false;
    for (QStringView symbol : {u"=", u"<>", u"!=", u"<", u">", u"<=", u">="})
        if (token.text == symbol) return true;
    return false;
}

} // namespace

StatementShape::StatementShape(const Tokens& statement, const Settings& settings)
    : m_settings(settings) {
    qsizetype size = 3; // the settings, then at most 6 characters a token besides its texts
    for (const Token& token : statement)
        size += 6 + token.leading.size() + token.text.size();
    m_key.resize(size);
    KeyWriter key(m_key);
    key.Put(settings.dayMonthYear ? u'd' : u'm');
    key.Put(static_cast<char16_t>(settings.dateFirst));
    key.Put(settings.spanishNames ? u's' : u'e');
    const bool insert = !statement.empty() && statement.front().IsWord(u"INSERT");
    for (std::size_t i = 0; i < statement.size(); ++i) {
        const Token& token = statement[i];
        key.Put(static_cast<char16_t>(u'A' + static_cast<int>(token.kind)));
        key.PutSized(token.leading);
        if (IsSlot(statement, i, insert)) {
            key.Put(u'#');
            m_slots.push_back(i);
            m_values.push_back(EngineText(token));
            AddParameter(token);
            continue;
        }
        key.Put(token.national ? u'N' : u'-');
        key.PutSized(token.text);
    }
    m_key.truncate(key.Next() - reinterpret_cast<const char16_t*>(m_key.constData()));
}

// Where the translator writes a literal as it stands whatever its value (or, stored, converts
// it by its column's kind alone): the right-hand operand of a comparison with a column,
// followed by a keyword, a closing parenthesis or the end, in a SELECT or DELETE; a whole
// value of an INSERT's VALUES row. An operand of arithmetic, a call's argument, a LIKE
// pattern, a TOP count, a value of an UPDATE's SET list or a text that could read as a date
// is left in the key.
bool StatementShape::IsSlot(const Tokens& statement, std::size_t i, bool insert) {
    const Token& first = statement.front();
    const Token& token = statement[i];
    if (insert)
        return (IsPlainText(token) || IsPlainNumber(token)) && IsValuesRowItem(statement, i);
    if (!first.IsWord(u"SELECT") && !first.IsWord(u"DELETE")) return false;
    if (!IsPlainText(token) && !IsSmallWholeNumber(token)) return false;
    if (i < 2 || !IsComparison(statement[i - 1]) || !IsName(statement[i - 2])) return false;
    if (i + 1 == statement.size()) return true;
    const Token& next = statement[i + 1];
    return next.kind == TokenKind::Word || next.IsSymbol(u")");
}

// A text that keeps its blanks and its reading whatever it holds: no blank at its end (which
// comparisons drop on some engines, and a blank text is a number column's 0), no possible
// date ('yyyymmdd...', 'dd/mm/yyyy') and not a BIT's TRUE or FALSE.
bool StatementShape::IsPlainText(const Token& token) {
    if (token.kind != TokenKind::String || token.national || token.text.isEmpty()) return false;
    if (token.text.back().isSpace()) return false;
    const QStringView word = QStringView(token.text).trimmed();
    if (word.compare(u"TRUE", Qt::CaseInsensitive) == 0 ||
        word.compare(u"FALSE", Qt::CaseInsensitive) == 0)
        return false;
    return !token.text.front().isDigit() || (token.text.size() < 8 && !token.text.contains(u'/'));
}

// 1 to 999,999,999: no binary, decimal or exponent form, no 0 (a date column's day 0), far
// from the INT range's end.
bool StatementShape::IsSmallWholeNumber(const Token& token) {
    if (token.kind != TokenKind::Number || token.text.isEmpty() || token.text.size() > 9 ||
        token.text.front() == u'0')
        return false;
    for (const QChar c : token.text)
        if (c < u'0' || c > u'9') return false;
    return true;
}

// Digits with a fraction or none (12, 0.25): no sign, exponent or binary form.
bool StatementShape::IsPlainNumber(const Token& token) {
    if (token.kind != TokenKind::Number || token.text.isEmpty() || token.text.size() > 18)
        return false;
    const qsizetype point = token.text.indexOf(u'.');
    for (qsizetype k = 0; k < token.text.size(); ++k) {
        const QChar c = token.text[k];
        if (k != point && (c < u'0' || c > u'9')) return false;
    }
    return point != 0 && point != token.text.size() - 1;
}

// A decimal is left written: its double might not be the one the engine reads in the text.
void StatementShape::AddParameter(const Token& literal) {
    if (literal.kind == TokenKind::String) {
        m_bindable = m_bindable && !literal.text.contains(QChar(0));
        m_parameters.emplace_back(literal.text);
        return;
    }
    bool whole = false;
    m_parameters.emplace_back(literal.text.toLongLong(&whole));
    m_bindable = m_bindable && whole;
}

QString StatementShape::EngineText(const Token& token) {
    return token.kind == TokenKind::String ? SqlString(token.text) : token.text;
}

// Stand-ins of the literals' own classes: a text beginning with a letter, a nine-digit number.
QString StatementShape::StandInValue(std::size_t slot, TokenKind kind) {
    if (kind == TokenKind::String) return QStringLiteral("zlx%1\x01").arg(slot);
    return QString::number(987600000 + static_cast<int>(slot));
}

QString StatementShape::StandInText(std::size_t slot, const Tokens& statement) const {
    const Token& literal = statement[m_slots[slot]];
    Token standIn = literal;
    standIn.text = StandInValue(slot, literal.kind);
    return EngineText(standIn);
}

Tokens StatementShape::WithStandIns(const Tokens& statement) const {
    Tokens copy = statement;
    for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
        const QString value = StandInValue(slot, statement[m_slots[slot]].kind);
        for (const Token& token : statement)
            if (token.text.contains(value)) return {};
        copy[m_slots[slot]].text = value;
    }
    return copy;
}

} // namespace zlx::tsql
