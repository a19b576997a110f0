#include "platform/tsql/ConstraintNames.h"

#include "platform/tsql/TsqlTokenizer.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr qsizetype kNameLength = 30; // of a name SQL Server makes, digits included
constexpr qsizetype kTableLength = 9;

// Eight hexadecimal digits that `key` always gives.
QString Digits(const QString& key) {
    return QString::fromLatin1(
        QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Md5).left(4).toHex().toUpper());
}

// <kind>__<table>__[<column>__]<digits>.
QString MadeName(QStringView kind, const QString& table, const QString& column,
                 const QString& key) {
    const QString cutTable = table.left(kTableLength);
    if (column.isEmpty()) return QStringLiteral("%1__%2__%3").arg(kind, cutTable, Digits(key));
    const qsizetype columnRoom = kNameLength - 16 - cutTable.size();
    return QStringLiteral("%1__%2__%3__%4")
        .arg(kind, cutTable, column.left(columnRoom), Digits(key));
}

// Where the key of the REFERENCES at `references` begins: its FOREIGN KEY (...) when written,
// else REFERENCES itself.
size_t KeyStart(const StatementTokens& t, size_t references) {
    size_t at = references;
    if (at > 0 && t[at - 1].IsSymbol(u")")) at = t.Open(at - 1);
    return at >= 2 && t.WordAt(at - 1, u"KEY") && t.WordAt(at - 2, u"FOREIGN") ? at - 2
                                                                               : references;
}

// The column whose definition holds the constraint at `start`; empty for a table's constraint
// (which begins its own piece).
QString DeclaringColumn(const StatementTokens& t, size_t start, size_t add) {
    const size_t first = std::max(t.ColumnDefinitionAround(start).first, add + 1);
    return first < start && IsName(t[first]) ? t[first].text : QString();
}

// The key's first column: the first in FOREIGN KEY (...), else the column it is declared on.
QString KeyColumn(const StatementTokens& t, size_t start, size_t add) {
    if (t[start].IsWord(u"FOREIGN") && t.SymbolAt(start + 2, u"(") && t.At(start + 3))
        return t[start + 3].text;
    return DeclaringColumn(t, start, add);
}

// The last part of the qualified name that begins at `name`.
QString LastPart(const StatementTokens& t, size_t name) {
    const size_t end = t.QualifiedNameEnd(name);
    return end > name ? t[end - 1].text : QString();
}

// CONSTRAINT `name` written before the constraint at `start`.
void WriteName(StatementTokens& t, size_t start, const QString& name) {
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    const TokenKind kind = plain.match(name).hasMatch() ? TokenKind::Word : TokenKind::QuotedName;
    const QString leading = t[start].leading;
    t[start].leading = QStringLiteral(" ");
    t.Splice(start, start,
             {Token{TokenKind::Word, QStringLiteral("CONSTRAINT"), leading},
              Token{kind, name, QStringLiteral(" ")}});
}

// Where the statement's definitions begin (0 for CREATE TABLE, its ADD for ALTER TABLE), with
// its table; nullopt for other statements and for a #temporary table, whose constraints hold
// nothing on SQL Server and keep the engine's names.
std::optional<std::pair<size_t, QString>> Definitions(const StatementTokens& t) {
    const bool create = t.WordAt(0, u"CREATE") && t.WordAt(1, u"TABLE");
    if (!create && !(t.WordAt(0, u"ALTER") && t.WordAt(1, u"TABLE"))) return std::nullopt;
    const QString table = LastPart(t, 2);
    if (table.isEmpty() || table.startsWith(u'#')) return std::nullopt;
    if (create) return std::pair{size_t{0}, table};
    size_t add = t.QualifiedNameEnd(2);
    // ALTER TABLE t WITH CHECK | NOCHECK ADD ...
    if (t.WordAt(add, u"WITH")) add += 2;
    if (!t.WordAt(add, u"ADD")) return std::nullopt;
    return std::pair{add, table};
}

// The one column the expression in parentheses at `open` names, by which SQL Server names a
// table's CHECK as it does a column's; empty when it names none or several.
QString OnlyColumn(const StatementTokens& t, size_t open) {
    QString column;
    for (size_t k = open + 1; k < t.Close(open); ++k) {
        const bool name = IsName(t[k]) && !t.SymbolAt(k + 1, u"(") && !t.SymbolAt(k + 1, u".") &&
                          !t.WordAt(k - 1, u"AS") &&
                          !IsAnyWord(t[k], {u"AND", u"OR", u"NOT", u"IN", u"LIKE", u"BETWEEN",
                                            u"IS", u"NULL", u"CASE", u"WHEN", u"THEN", u"ELSE",
                                            u"END", u"ESCAPE", u"COLLATE", u"AS"});
        if (!name || t[k].text.compare(column, Qt::CaseInsensitive) == 0) continue;
        if (!column.isEmpty()) return {};
        column = t[k].text;
    }
    return column;
}

bool Named(const StatementTokens& t, size_t start) {
    return start >= 2 && t.WordAt(start - 2, u"CONSTRAINT");
}

} // namespace

QString SqlServerForeignKeyName(const QString& table, const QString& column,
                                const QString& referenced, int ordinal) {
    return MadeName(u"FK", table, column,
                    QStringLiteral("%1|%2|%3|%4").arg(table, column, referenced).arg(ordinal));
}

QString SqlServerCheckName(const QString& table, const QString& column, int ordinal) {
    return MadeName(u"CK", table, column,
                    QStringLiteral("CHECK|%1|%2|%3").arg(table, column).arg(ordinal));
}

void NameUnnamedConstraints(StatementTokens& t) {
    const auto definitions = Definitions(t);
    if (!definitions) return;
    const auto& [add, table] = *definitions;
    int keys = 0;
    int checks = 0;
    for (size_t i = add; i < t.size(); ++i) {
        QString name;
        size_t start = i;
        if (t[i].IsWord(u"REFERENCES")) {
            start = KeyStart(t, i);
            ++keys;
            const QString column = KeyColumn(t, start, add);
            if (!Named(t, start) && !column.isEmpty())
                name = SqlServerForeignKeyName(table, column, LastPart(t, i + 1), keys);
        } else if (t[i].IsWord(u"CHECK") && t.SymbolAt(i + 1, u"(")) {
            ++checks;
            const QString declaring = DeclaringColumn(t, i, add);
            if (!Named(t, i))
                name = SqlServerCheckName(
                    table, declaring.isEmpty() ? OnlyColumn(t, i + 1) : declaring, checks);
        }
        if (name.isEmpty()) continue;
        WriteName(t, start, name);
        i += 2;
    }
}

Tokens WithConstraintsNamed(const Tokens& statement) {
    StatementTokens tokens(statement);
    NameUnnamedConstraints(tokens);
    return Tokens(tokens.begin(), tokens.end());
}

std::optional<Tokens> WithoutCheckOption(const Tokens& statement) {
    const StatementTokens t(statement);
    if (!t.WordAt(0, u"ALTER") || !t.WordAt(1, u"TABLE")) return std::nullopt;
    Tokens plain = statement;
    const size_t with = t.QualifiedNameEnd(2);
    if (t.WordAt(with, u"WITH") && t.WordAt(with + 1, u"CHECK") && t.WordAt(with + 2, u"ADD"))
        plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(with),
                    plain.begin() + static_cast<std::ptrdiff_t>(with + 2));
    // The owner dbo names the table the plain name names.
    if (with == 5 && IsName(t[2]) && t[2].text.compare(u"dbo", Qt::CaseInsensitive) == 0 &&
        t.SymbolAt(3, u".")) {
        plain.erase(plain.begin() + 2, plain.begin() + 4);
        plain[2].leading = t[2].leading;
    }
    if (plain.size() == statement.size()) return std::nullopt;
    return plain;
}

bool ChecksConstraint(const Tokens& statement) {
    const StatementTokens t(statement);
    if (!t.WordAt(0, u"ALTER") || !t.WordAt(1, u"TABLE")) return false;
    size_t check = t.QualifiedNameEnd(2);
    if (t.WordAt(check, u"WITH") && t.WordAt(check + 1, u"CHECK")) check += 2;
    return t.WordAt(check, u"CHECK") && t.WordAt(check + 1, u"CONSTRAINT") && check + 3 == t.size();
}

} // namespace zlx::tsql
