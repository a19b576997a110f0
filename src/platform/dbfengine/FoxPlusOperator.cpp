#include "platform/dbfengine/FoxPlusOperator.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSet>
#include <optional>
#include <sqlite3.h>
#include <vector>

namespace zlx::dbfengine::FoxPlusOperator {

namespace {

// A piece of the statement at one level of parentheses; a parenthesised group (with the name
// of the function it calls) is one operand.
struct Piece {
    enum class Kind { Space, Word, Operand, Operator } kind;
    QString text;
};

const QSet<QString>& Keywords() {
    static const QSet<QString> words = {
        "SELECT",  "FROM",   "WHERE",  "AND",    "OR",     "NOT",    "ON",     "JOIN",   "INNER",
        "LEFT",    "RIGHT",  "OUTER",  "FULL",   "CROSS",  "GROUP",  "BY",     "ORDER",  "HAVING",
        "AS",      "SET",    "VALUES", "WHEN",   "THEN",   "ELSE",   "END",    "CASE",   "LIKE",
        "BETWEEN", "IN",     "IS",     "ASC",    "DESC",   "LIMIT",  "UNION",  "ALL",    "DISTINCT",
        "INTO",    "UPDATE", "INSERT", "DELETE", "ESCAPE", "EXISTS", "OFFSET", "COLLATE"};
    return words;
}

bool IsKeyword(const Piece& piece) {
    return piece.kind == Piece::Kind::Word && Keywords().contains(piece.text.toUpper());
}

bool IsOperand(const Piece& piece) {
    return piece.kind == Piece::Kind::Operand ||
           (piece.kind == Piece::Kind::Word && !IsKeyword(piece));
}

// Operators that bind tighter than "+" stay inside an operand; the others end it.
bool EndsOperand(const Piece& piece) {
    if (IsKeyword(piece)) return true;
    if (piece.kind != Piece::Kind::Operator) return false;
    return piece.text != u"*" && piece.text != u"/" && piece.text != u"%" && piece.text != u"." &&
           piece.text != u"-" && piece.text != u"+";
}

qsizetype QuotedEnd(const QString& text, qsizetype start, QChar close) {
    qsizetype i = start + 1;
    while (i < text.size()) {
        if (text[i] == close) {
            if (close != u']' && i + 1 < text.size() && text[i + 1] == close) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return text.size();
}

qsizetype WhileEnd(const QString& text, qsizetype i, bool (*accept)(QChar)) {
    while (i < text.size() && accept(text[i]))
        ++i;
    return i;
}

bool IsWordChar(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c == u'@' || c == u'#';
}

bool IsNumberChar(QChar c) {
    return c.isDigit() || c == u'.';
}

bool IsSpace(QChar c) {
    return c.isSpace();
}

QString Joined(const std::vector<Piece>& pieces, std::size_t from, std::size_t to) {
    QString text;
    for (std::size_t i = from; i < to; ++i)
        text += pieces[i].text;
    return text;
}

std::size_t PreviousNonSpace(const std::vector<Piece>& pieces, std::size_t at) {
    while (at > 0 && pieces[at - 1].kind == Piece::Kind::Space)
        --at;
    return at; // one past the piece found; 0 when there is none
}

// Where the operand left of pieces[plus] starts (plus itself when there is none).
std::size_t LeftStart(const std::vector<Piece>& pieces, std::size_t plus) {
    std::size_t start = plus;
    for (std::size_t i = plus; i > 0; --i) {
        const Piece& piece = pieces[i - 1];
        if (piece.kind == Piece::Kind::Space) continue;
        if (EndsOperand(piece)) break;
        start = i - 1;
    }
    return start;
}

// One past the operand right of pieces[plus] (plus + 1 when there is none): it takes a leading
// sign, then stops at the next "+" or "-" between operands.
std::size_t RightEnd(const std::vector<Piece>& pieces, std::size_t plus) {
    std::size_t end = plus + 1;
    bool seenOperand = false;
    bool afterOperand = false; // a sign after an operator belongs to the next operand
    for (std::size_t i = plus + 1; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
        if (piece.kind == Piece::Kind::Space) continue;
        const bool sign = piece.text == u"+" || piece.text == u"-";
        if (EndsOperand(piece) || (sign && afterOperand)) break;
        afterOperand = IsOperand(piece);
        seenOperand = seenOperand || afterOperand;
        end = i + 1;
    }
    return seenOperand ? end : plus + 1;
}

// Each binary "+" of one level, left to right, becomes one operand fox_plus(left, right).
void RewriteLevel(std::vector<Piece>& pieces) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (pieces[i].kind != Piece::Kind::Operator || pieces[i].text != u"+") continue;
        const std::size_t before = PreviousNonSpace(pieces, i);
        if (before == 0 || !IsOperand(pieces[before - 1])) continue; // a sign
        const std::size_t start = LeftStart(pieces, i);
        const std::size_t end = RightEnd(pieces, i);
        if (start == i || end == i + 1) continue;
        const QString call =
            QStringLiteral("fox_plus(%1, %2)")
                .arg(Joined(pieces, start, before).trimmed(), Joined(pieces, i + 1, end).trimmed());
        pieces.erase(pieces.begin() + static_cast<long>(start) + 1,
                     pieces.begin() + static_cast<long>(end));
        pieces[start] = {Piece::Kind::Operand, call};
        i = start;
    }
}

// Reads one level from text[pos] up to its closing parenthesis (or the end), rewritten.
QString ReadLevel(const QString& text, qsizetype& pos) {
    std::vector<Piece> pieces;
    while (pos < text.size() && text[pos] != u')') {
        const QChar c = text[pos];
        qsizetype end = pos + 1;
        Piece::Kind kind = Piece::Kind::Operator;
        if (c == u'(') {
            ++pos;
            QString group = u'(' + ReadLevel(text, pos);
            if (pos < text.size()) group += text[pos++];
            // A name right before its parentheses is a function call, one operand with them.
            if (!pieces.empty() && pieces.back().kind == Piece::Kind::Word &&
                (!IsKeyword(pieces.back()) || pieces.back().text.toUpper() == u"LEFT" ||
                 pieces.back().text.toUpper() == u"RIGHT")) {
                pieces.back() = {Piece::Kind::Operand, pieces.back().text + group};
            } else {
                pieces.push_back({Piece::Kind::Operand, group});
            }
            continue;
        }
        if (c == u'\'' || c == u'"' || c == u'[') {
            end = QuotedEnd(text, pos, c == u'[' ? QChar(u']') : c);
            kind = c == u'\'' ? Piece::Kind::Operand : Piece::Kind::Word;
        } else if (c.isDigit() || (c == u'.' && pos + 1 < text.size() && text[pos + 1].isDigit())) {
            end = WhileEnd(text, pos, IsNumberChar);
            kind = Piece::Kind::Operand;
        } else if (IsWordChar(c)) {
            end = WhileEnd(text, pos, IsWordChar);
            kind = Piece::Kind::Word;
        } else if (c.isSpace()) {
            end = WhileEnd(text, pos, IsSpace);
            kind = Piece::Kind::Space;
        } else if (QStringLiteral("<>!|").contains(c) && pos + 1 < text.size() &&
                   QStringLiteral("=>|").contains(text[pos + 1])) {
            end = pos + 2;
        }
        pieces.push_back({kind, text.mid(pos, end - pos)});
        pos = end;
    }
    RewriteLevel(pieces);
    return Joined(pieces, 0, pieces.size());
}

// FoxPro's dates are ISO texts in this engine.
std::optional<QDateTime> DateOf(const QString& text, bool& withTime) {
    static const QRegularExpression iso(
        QStringLiteral(R"(^\d{4}-\d{2}-\d{2}( \d{2}:\d{2}:\d{2})?$)"));
    const auto match = iso.match(text);
    if (!match.hasMatch()) return std::nullopt;
    withTime = match.capturedLength(1) > 0;
    const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
    const QTime time =
        withTime ? QTime::fromString(text.mid(11), QStringLiteral("HH:mm:ss")) : QTime(0, 0);
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    return QDateTime(date, time, Qt::UTC); // no daylight saving between local clock readings
}

QString TextOf(sqlite3_value* value) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                             sqlite3_value_bytes(value));
}

void ResultText(sqlite3_context* context, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

bool IsNumber(int type) {
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

void AddNumbers(sqlite3_context* context, sqlite3_value* a, sqlite3_value* b) {
    if (sqlite3_value_type(a) == SQLITE_INTEGER && sqlite3_value_type(b) == SQLITE_INTEGER) {
        sqlite3_int64 sum = 0;
        if (!__builtin_add_overflow(sqlite3_value_int64(a), sqlite3_value_int64(b), &sum)) {
            sqlite3_result_int64(context, sum);
            return;
        }
    }
    sqlite3_result_double(context, sqlite3_value_double(a) + sqlite3_value_double(b));
}

// A date moves by days, a datetime by seconds, as in FoxPro.
bool AddToDate(sqlite3_context* context, sqlite3_value* date, sqlite3_value* amount) {
    bool withTime = false;
    const std::optional<QDateTime> value = DateOf(TextOf(date), withTime);
    if (!value) return false;
    const double step = sqlite3_value_double(amount);
    if (withTime)
        ResultText(context, value->addSecs(static_cast<qint64>(step))
                                .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    else
        ResultText(context, value->date()
                                .addDays(static_cast<qint64>(step))
                                .toString(QStringLiteral("yyyy-MM-dd")));
    return true;
}

void Plus(sqlite3_context* context, int, sqlite3_value** argv) {
    sqlite3_value* a = argv[0];
    sqlite3_value* b = argv[1];
    const int left = sqlite3_value_type(a);
    const int right = sqlite3_value_type(b);
    if (left == SQLITE_NULL || right == SQLITE_NULL) return sqlite3_result_null(context);
    if (IsNumber(left) && IsNumber(right)) return AddNumbers(context, a, b);
    if (left == SQLITE_TEXT && right == SQLITE_TEXT)
        return ResultText(context, TextOf(a) + TextOf(b));
    if ((left == SQLITE_TEXT && IsNumber(right) && AddToDate(context, a, b)) ||
        (right == SQLITE_TEXT && IsNumber(left) && AddToDate(context, b, a)))
        return;
    sqlite3_result_error(context, "Operator/operand type mismatch.", -1);
}

} // namespace

QString AsFunctionCalls(const QString& statement) {
    if (!statement.contains(u'+')) return statement;
    QString rewritten;
    qsizetype pos = 0;
    while (pos < statement.size()) {
        rewritten += ReadLevel(statement, pos);
        if (pos < statement.size()) rewritten += statement[pos++]; // an unmatched ")"
    }
    return rewritten;
}

void Install(sqlite3* db) {
    sqlite3_create_function_v2(db, "fox_plus", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Plus,
                               nullptr, nullptr, nullptr);
}

} // namespace zlx::dbfengine::FoxPlusOperator
