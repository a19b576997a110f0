#include "platform/ado/FilterCriteria.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/Fields.h"
#include "platform/engines/TextOrder.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>

namespace zlx::ado {

namespace {

struct Token {
    enum class Kind { End, LParen, RParen, Word, Operator, Text, DateText } kind = Kind::End;
    QString text;
};

class Lexer {
public:
    explicit Lexer(const QString& text) : m_text(text) {}

    Token Next() {
        SkipBlanks();
        if (m_pos >= m_text.size()) return {};
        const QChar c = m_text[m_pos];
        if (c == u'(' || c == u')') {
            ++m_pos;
            return {c == u'(' ? Token::Kind::LParen : Token::Kind::RParen, QString(c)};
        }
        if (c == u'=' || c == u'<' || c == u'>') return ReadOperator();
        if (c == u'\'') return {Token::Kind::Text, ReadQuoted(u'\'')};
        if (c == u'#') return {Token::Kind::DateText, ReadQuoted(u'#')};
        if (c == u'[') return {Token::Kind::Word, ReadBracketed()};
        return {Token::Kind::Word, ReadWord()};
    }

private:
    void SkipBlanks() {
        while (m_pos < m_text.size() && m_text[m_pos].isSpace())
            ++m_pos;
    }

    Token ReadOperator() {
        QString op(m_text[m_pos++]);
        if (m_pos < m_text.size() && op != u"=" &&
            (m_text[m_pos] == u'=' || (op == u"<" && m_text[m_pos] == u'>'))) {
            op += m_text[m_pos++];
        }
        return {Token::Kind::Operator, op};
    }

    // Quoted text; the quote doubled inside stands for itself.
    QString ReadQuoted(QChar quote) {
        QString out;
        ++m_pos;
        while (m_pos < m_text.size()) {
            const QChar c = m_text[m_pos++];
            if (c != quote) {
                out += c;
            } else if (m_pos < m_text.size() && m_text[m_pos] == quote) {
                out += c;
                ++m_pos;
            } else {
                return out;
            }
        }
        RaiseAdoError(adErrInvalidArgument, QStringLiteral("Unterminated value in criteria."));
    }

    QString ReadBracketed() {
        const qsizetype close = m_text.indexOf(u']', m_pos);
        if (close < 0) RaiseAdoError(adErrInvalidArgument, QStringLiteral("Missing ']'."));
        QString name = m_text.mid(m_pos + 1, close - m_pos - 1);
        m_pos = close + 1;
        return name;
    }

    QString ReadWord() {
        const qsizetype start = m_pos;
        while (m_pos < m_text.size()) {
            const QChar c = m_text[m_pos];
            if (c.isSpace() || c == u'(' || c == u')' || c == u'=' || c == u'<' || c == u'>' ||
                c == u'\'' || c == u'#') {
                break;
            }
            ++m_pos;
        }
        return m_text.mid(start, m_pos - start);
    }

    const QString& m_text;
    qsizetype m_pos = 0;
};

bool IsWord(const Token& t, const char* keyword) {
    return t.kind == Token::Kind::Word &&
           t.text.compare(QLatin1String(keyword), Qt::CaseInsensitive) == 0;
}

Date ParseDateLiteral(const QString& text) {
    static const char* const kFormats[] = {
        "yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss", "yyyy-MM-ddTHH:mm:ss", "yyyy-MM-dd HH:mm",
        "M/d/yyyy",   "M/d/yyyy H:mm:ss",    "M/d/yyyy H:mm",       "yyyyMMdd"};
    const QString trimmed = text.trimmed();
    for (const char* format : kFormats) {
        const QDateTime dt = QDateTime::fromString(trimmed, QLatin1String(format));
        if (dt.isValid()) {
            const QDate d = dt.date();
            const QTime t = dt.time();
            return MakeDate(d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second());
        }
    }
    RaiseAdoError(adErrInvalidArgument, QStringLiteral("Bad date #%1#.").arg(text));
}

bool IsDateType(DataTypeEnum type) {
    return type == adDate || type == adDBDate || type == adDBTime || type == adDBTimeStamp;
}

} // namespace

// Recursive descent over the criteria: or-list of and-lists of clauses or groups.
class CriteriaParser {
public:
    CriteriaParser(FilterCriteria& out, const QString& text, const Fields& fields,
                   const std::vector<ColumnStore>& columns)
        : m_out(out), m_lexer(text), m_fields(fields), m_columns(columns) {
        Advance();
    }

    int ParseAll(bool singleClause) {
        const int root = singleClause ? ParseClause() : ParseOr();
        if (m_token.kind != Token::Kind::End) {
            RaiseAdoError(adErrInvalidArgument,
                          QStringLiteral("Unexpected '%1' in criteria.").arg(m_token.text));
        }
        return root;
    }

private:
    void Advance() { m_token = m_lexer.Next(); }

    int AddNode(FilterCriteria::Node::Kind kind, int left, int right) {
        m_out.m_nodes.push_back({kind, left, right});
        return static_cast<int>(m_out.m_nodes.size()) - 1;
    }

    int ParseOr() {
        int left = ParseAnd();
        while (IsWord(m_token, "OR")) {
            Advance();
            left = AddNode(FilterCriteria::Node::Kind::Or, left, ParseAnd());
        }
        return left;
    }

    int ParseAnd() {
        int left = ParseFactor();
        while (IsWord(m_token, "AND")) {
            Advance();
            left = AddNode(FilterCriteria::Node::Kind::And, left, ParseFactor());
        }
        return left;
    }

    int ParseFactor() {
        if (m_token.kind != Token::Kind::LParen) return ParseClause();
        Advance();
        const int inner = ParseOr();
        if (m_token.kind != Token::Kind::RParen) {
            RaiseAdoError(adErrInvalidArgument, QStringLiteral("Missing ')' in criteria."));
        }
        Advance();
        return inner;
    }

    int ParseClause() {
        if (m_token.kind != Token::Kind::Word || m_token.text.isEmpty()) {
            RaiseAdoError(adErrInvalidArgument, QStringLiteral("Field name expected."));
        }
        FilterCriteria::Clause clause;
        clause.column = m_fields.IndexOf(m_token.text);
        if (clause.column < 0) {
            RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(m_token.text));
        }
        Advance();
        clause.op = ParseOperator();
        Advance();
        SetValue(clause);
        Advance();
        m_out.m_clauses.push_back(std::move(clause));
        return AddNode(FilterCriteria::Node::Kind::Clause,
                       static_cast<int>(m_out.m_clauses.size()) - 1, -1);
    }

    FilterCriteria::Operator ParseOperator() {
        using Op = FilterCriteria::Operator;
        if (IsWord(m_token, "LIKE")) return Op::Like;
        if (m_token.kind == Token::Kind::Operator) {
            const QString& t = m_token.text;
            if (t == u"=") return Op::Equal;
            if (t == u"<>") return Op::NotEqual;
            if (t == u"<") return Op::Less;
            if (t == u">") return Op::Greater;
            if (t == u"<=") return Op::LessEqual;
            if (t == u">=") return Op::GreaterEqual;
        }
        RaiseAdoError(adErrInvalidArgument, QStringLiteral("Operator expected."));
    }

    // The literal, converted once to the representation its column compares with.
    void SetValue(FilterCriteria::Clause& clause) {
        using Op = FilterCriteria::Operator;
        const ColumnStore& column = m_columns[clause.column];
        const ColumnStore::Kind kind = column.GetKind();
        if (IsWord(m_token, "NULL")) {
            if (clause.op != Op::Equal && clause.op != Op::NotEqual) {
                RaiseAdoError(adErrInvalidArgument, QStringLiteral("Null needs = or <>."));
            }
            clause.isNull = true;
            return;
        }
        Variant literal = Literal();
        if (clause.op == Op::Like) {
            if (m_token.kind != Token::Kind::Text ||
                (kind != ColumnStore::Kind::Text && kind != ColumnStore::Kind::Other)) {
                RaiseAdoError(adErrInvalidArgument, QStringLiteral("LIKE needs a text."));
            }
            SetLikePattern(clause, m_token.text);
            return;
        }
        try {
            switch (kind) {
            case ColumnStore::Kind::Text:
                clause.text = literal.VarType() == vbString ? literal.ToString()
                                                            : literal.ToInvariantString();
                return;
            case ColumnStore::Kind::Other:
                clause.value = literal;
                return;
            default:
                clause.number = IsDateType(column.Type()) && literal.VarType() == vbString
                                    ? literal.ToDate().value
                                    : literal.ToDouble();
                return;
            }
        } catch (const VariantError&) {
            RaiseAdoError(adErrDataConversion,
                          QStringLiteral("Value '%1' does not suit the field.").arg(m_token.text));
        }
    }

    Variant Literal() const {
        switch (m_token.kind) {
        case Token::Kind::Text:
            return Variant(m_token.text);
        case Token::Kind::DateText:
            return Variant(ParseDateLiteral(m_token.text));
        case Token::Kind::Word: {
            bool ok = false;
            const double number = m_token.text.toDouble(&ok);
            if (ok) return Variant(number);
            break;
        }
        default:
            break;
        }
        RaiseAdoError(adErrInvalidArgument, QStringLiteral("Value expected."));
    }

    static bool IsWildcard(QChar c) { return c == u'*' || c == u'%'; }

    static void SetLikePattern(FilterCriteria::Clause& clause, QString pattern) {
        if (!pattern.isEmpty() && IsWildcard(pattern.front())) {
            clause.likeStart = true;
            pattern.remove(0, 1);
        }
        if (!pattern.isEmpty() && IsWildcard(pattern.back())) {
            clause.likeEnd = true;
            pattern.chop(1);
        }
        for (QChar c : pattern) {
            if (IsWildcard(c)) {
                RaiseAdoError(adErrInvalidArgument,
                              QStringLiteral("Wildcards are allowed only at the ends."));
            }
        }
        clause.text = pattern;
    }

    FilterCriteria& m_out;
    Lexer m_lexer;
    const Fields& m_fields;
    const std::vector<ColumnStore>& m_columns;
    Token m_token;
};

FilterCriteria FilterCriteria::Compile(const QString& text, const Fields& fields,
                                       const std::vector<ColumnStore>& columns, bool singleClause) {
    FilterCriteria criteria;
    criteria.m_columns = &columns;
    CriteriaParser parser(criteria, text, fields, columns);
    criteria.m_root = parser.ParseAll(singleClause);
    return criteria;
}

bool FilterCriteria::Matches(std::size_t row) const {
    return Evaluate(m_root, row);
}

bool FilterCriteria::IsSingleEquality(int& column, Variant& value) const {
    if (m_root < 0 || m_nodes[m_root].kind != Node::Kind::Clause) return false;
    const Clause& clause = m_clauses[m_nodes[m_root].left];
    if (clause.op != Operator::Equal || clause.isNull) return false;
    column = clause.column;
    const ColumnStore::Kind kind = (*m_columns)[column].GetKind();
    if (kind == ColumnStore::Kind::Text)
        value = Variant(clause.text);
    else if (kind == ColumnStore::Kind::Other)
        value = clause.value;
    else
        value = Variant(clause.number);
    return true;
}

bool FilterCriteria::Evaluate(int node, std::size_t row) const {
    const Node& n = m_nodes[node];
    switch (n.kind) {
    case Node::Kind::And:
        return Evaluate(n.left, row) && Evaluate(n.right, row);
    case Node::Kind::Or:
        return Evaluate(n.left, row) || Evaluate(n.right, row);
    case Node::Kind::Clause:
        break;
    }
    return ClauseMatches(m_clauses[n.left], row);
}

namespace {

template <class T> bool Compare(FilterCriteria::Operator op, const T& order) {
    using Op = FilterCriteria::Operator;
    switch (op) {
    case Op::Equal:
        return order == 0;
    case Op::NotEqual:
        return order != 0;
    case Op::Less:
        return order < 0;
    case Op::Greater:
        return order > 0;
    case Op::LessEqual:
        return order <= 0;
    case Op::GreaterEqual:
        return order >= 0;
    case Op::Like:
        break;
    }
    return false;
}

bool LikeMatches(const FilterCriteria::Clause& clause, QStringView cell) {
    if (clause.likeStart && clause.likeEnd) return cell.contains(clause.text, Qt::CaseInsensitive);
    if (clause.likeEnd) return cell.startsWith(clause.text, Qt::CaseInsensitive);
    if (clause.likeStart) return cell.endsWith(clause.text, Qt::CaseInsensitive);
    return cell.compare(clause.text, Qt::CaseInsensitive) == 0;
}

} // namespace

namespace {

// Equality ignores case; an order puts accented letters next to their base letter, as Sort
// and the engines' text columns do (ASCII texts, the common case, take the plain way).
int CompareTexts(FilterCriteria::Operator op, QStringView cell, const QString& value) {
    const auto ascii = [](QStringView text) {
        return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    };
    if (op == FilterCriteria::Operator::Equal || op == FilterCriteria::Operator::NotEqual ||
        (ascii(cell) && ascii(value)))
        return cell.compare(value, Qt::CaseInsensitive);
    return TextOrder::Compare(cell.toString(), value);
}

} // namespace

bool FilterCriteria::ClauseMatches(const Clause& clause, std::size_t row) const {
    const ColumnStore& column = (*m_columns)[clause.column];
    const bool null = column.IsNull(row);
    if (clause.isNull) return (clause.op == Operator::Equal) == null;
    if (null) return false;
    switch (column.GetKind()) {
    case ColumnStore::Kind::Text: {
        const QStringView cell = column.TextAt(row);
        if (clause.op == Operator::Like) return LikeMatches(clause, cell);
        return Compare(clause.op, CompareTexts(clause.op, cell, clause.text));
    }
    case ColumnStore::Kind::Other: {
        const Variant cell = column.Get(row);
        if (clause.op == Operator::Like) return LikeMatches(clause, cell.ToString());
        try {
            const int order = cell.Compare(clause.value, true);
            return order != 2 && Compare(clause.op, order);
        } catch (const VariantError&) {
            return false;
        }
    }
    default: {
        const double cell = column.NumberAt(row);
        return Compare(clause.op, cell < clause.number ? -1 : (cell > clause.number ? 1 : 0));
    }
    }
}

} // namespace zlx::ado
