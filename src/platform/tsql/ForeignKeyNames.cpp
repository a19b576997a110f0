#include "platform/tsql/ForeignKeyNames.h"

#include "platform/tsql/TsqlTokenizer.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr qsizetype kNameLength = 30; // of a name SQL Server makes, digits included
constexpr qsizetype kTableLength = 9;

// Where the key of the REFERENCES at `references` begins: its FOREIGN KEY (...) when written,
// else REFERENCES itself.
size_t KeyStart(const StatementTokens& t, size_t references) {
    size_t at = references;
    if (at > 0 && t[at - 1].IsSymbol(u")")) at = t.Open(at - 1);
    return at >= 2 && t.WordAt(at - 1, u"KEY") && t.WordAt(at - 2, u"FOREIGN") ? at - 2
                                                                               : references;
}

// The key's first column: the first in FOREIGN KEY (...), else the column it is declared on.
QString KeyColumn(const StatementTokens& t, size_t start, size_t add) {
    if (t[start].IsWord(u"FOREIGN") && t.SymbolAt(start + 2, u"(") && t.At(start + 3))
        return t[start + 3].text;
    const size_t first = std::max(t.ColumnDefinitionAround(start).first, add + 1);
    return t.At(first) && IsName(t[first]) ? t[first].text : QString();
}

// The last part of the qualified name that begins at `name`.
QString LastPart(const StatementTokens& t, size_t name) {
    const size_t end = t.QualifiedNameEnd(name);
    return end > name ? t[end - 1].text : QString();
}

} // namespace

QString SqlServerForeignKeyName(const QString& table, const QString& column,
                                const QString& referenced, int ordinal) {
    const QString key = QStringLiteral("%1|%2|%3|%4").arg(table, column, referenced).arg(ordinal);
    const QByteArray digits =
        QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Md5).left(4).toHex().toUpper();
    const QString cutTable = table.left(kTableLength);
    const qsizetype columnRoom = kNameLength - 16 - cutTable.size();
    return QStringLiteral("FK__%1__%2__%3")
        .arg(cutTable, column.left(columnRoom), QString::fromLatin1(digits));
}

void NameUnnamedForeignKeys(StatementTokens& t) {
    const bool create = t.WordAt(0, u"CREATE") && t.WordAt(1, u"TABLE");
    if (!create && !(t.WordAt(0, u"ALTER") && t.WordAt(1, u"TABLE"))) return;
    const QString table = LastPart(t, 2);
    // A #temporary table's keys hold nothing on SQL Server; its names are the engine's.
    if (table.isEmpty() || table.startsWith(u'#')) return;
    const size_t add = create ? 0 : t.QualifiedNameEnd(2);
    if (!create && !t.WordAt(add, u"ADD")) return;
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    int ordinal = 0;
    for (size_t i = add; i < t.size(); ++i) {
        if (!t[i].IsWord(u"REFERENCES")) continue;
        const size_t start = KeyStart(t, i);
        ++ordinal;
        if (start >= 2 && t.WordAt(start - 2, u"CONSTRAINT")) continue;
        const QString column = KeyColumn(t, start, add);
        if (column.isEmpty()) continue;
        const QString name = SqlServerForeignKeyName(table, column, LastPart(t, i + 1), ordinal);
        const TokenKind kind =
            plain.match(name).hasMatch() ? TokenKind::Word : TokenKind::QuotedName;
        const QString leading = t[start].leading;
        t[start].leading = QStringLiteral(" ");
        t.Splice(start, start,
                 {Token{TokenKind::Word, QStringLiteral("CONSTRAINT"), leading},
                  Token{kind, name, QStringLiteral(" ")}});
        i += 2;
    }
}

Tokens WithForeignKeysNamed(const Tokens& statement) {
    StatementTokens tokens(statement);
    NameUnnamedForeignKeys(tokens);
    return Tokens(tokens.begin(), tokens.end());
}

} // namespace zlx::tsql
