#include "platform/dbfengine/FoxDdl.h"

#include "platform/dbfformat/DbfNewTable.h"
#include "platform/engines/DriverErrors.h"

#include <QRegularExpression>
#include <QStringList>

namespace zlx::dbfengine {

namespace {

const QString kSource = QStringLiteral("Visual FoxPro");
constexpr auto kCase = QRegularExpression::CaseInsensitiveOption;

[[noreturn]] void Refuse(const QString& message) {
    ado::ThrowCommandFailed(message, kSource, 0, "42000");
}

QString Unbracketed(QString name) {
    name = name.trimmed();
    if (name.size() >= 2 && ((name.front() == u'[' && name.back() == u']') ||
                             (name.front() == u'"' && name.back() == u'"')))
        name = name.mid(1, name.size() - 2);
    return name;
}

char TypeLetter(const QString& word) {
    static const QList<std::pair<QStringList, char>> kTypes = {
        {{"C", "CHAR", "CHARACTER", "VARCHAR"}, 'C'},
        {{"N", "NUMERIC", "DECIMAL"}, 'N'},
        {{"F", "FLOAT"}, 'F'},
        {{"D", "DATE"}, 'D'},
        {{"T", "DATETIME"}, 'T'},
        {{"L", "LOGICAL", "BIT"}, 'L'},
        {{"M", "MEMO", "TEXT"}, 'M'},
        {{"I", "INT", "INTEGER"}, 'I'},
        {{"Y", "CURRENCY", "MONEY"}, 'Y'},
        {{"B", "DOUBLE"}, 'B'}};
    for (const auto& [words, letter] : kTypes)
        if (words.contains(word.toUpper())) return letter;
    return 0;
}

// "name TYPE[(n[,d])] [NULL | NOT NULL | UNIQUE | DEFAULT x ...]"
DbfFieldDefinition Column(const QString& text) {
    static const QRegularExpression pattern(
        QStringLiteral(
            R"(^\s*(\[[^\]]+\]|"[^"]+"|\w+)\s+(\w+)\s*(?:\(\s*(\d+)\s*(?:,\s*(\d+)\s*)?\))?)"),
        kCase);
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        Refuse(QStringLiteral("Syntax error in field definition: ") + text.trimmed());
    const QString name = Unbracketed(match.captured(1)).toUpper();
    const char type = TypeLetter(match.captured(2));
    if (type == 0) Refuse(QStringLiteral("Field type is invalid: ") + match.captured(2));
    if (name.size() > 10) Refuse(QStringLiteral("Field name is too long: ") + name);
    const int fixed = DbfNewTable::FixedLength(type);
    const int length = fixed != 0 ? fixed : match.captured(3).toInt();
    const int decimals = type == 'N' || type == 'F' ? match.captured(4).toInt() : 0;
    const int widest = type == 'C' ? 254 : 20;
    if (length < 1 || length > widest || decimals < 0 || (decimals > 0 && decimals >= length - 1))
        Refuse(QStringLiteral("Field %1 has an invalid width or number of decimals.").arg(name));
    return {name.toLatin1(), type, static_cast<std::uint8_t>(length),
            static_cast<std::uint8_t>(decimals)};
}

// The comma-separated parts of a list, commas inside parentheses left alone.
QStringList ListParts(const QString& list) {
    QStringList parts;
    int depth = 0;
    qsizetype start = 0;
    for (qsizetype i = 0; i <= list.size(); ++i) {
        if (i < list.size() && list[i] == u'(') ++depth;
        if (i < list.size() && list[i] == u')') --depth;
        if (i == list.size() || (list[i] == u',' && depth == 0)) {
            if (!list.mid(start, i - start).trimmed().isEmpty())
                parts << list.mid(start, i - start);
            start = i + 1;
        }
    }
    return parts;
}

FoxDdl CreateTable(const QRegularExpressionMatch& match) {
    FoxDdl ddl;
    ddl.table = Unbracketed(match.captured(1));
    QString list = match.captured(2).trimmed();
    if (list.endsWith(u')')) list.chop(1);
    for (const QString& part : ListParts(list)) {
        static const QRegularExpression constraint(
            QStringLiteral(R"(^\s*(PRIMARY\s+KEY|UNIQUE|FOREIGN\s+KEY|CHECK)\b)"), kCase);
        if (!constraint.match(part).hasMatch()) ddl.fields.push_back(Column(part));
    }
    if (ddl.fields.empty()) Refuse(QStringLiteral("A table needs at least one field."));
    return ddl;
}

FoxDdl AlterTable(const QRegularExpressionMatch& match) {
    FoxDdl ddl;
    ddl.table = Unbracketed(match.captured(1));
    const QString action = match.captured(2).toUpper();
    if (action == u"DROP") {
        ddl.kind = FoxDdl::Kind::DropColumn;
        ddl.column =
            Unbracketed(match.captured(3)
                            .split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts)
                            .value(0));
        return ddl;
    }
    ddl.kind = action == u"ADD" ? FoxDdl::Kind::AddColumn : FoxDdl::Kind::AlterColumn;
    ddl.fields.push_back(Column(match.captured(3)));
    return ddl;
}

} // namespace

std::optional<FoxDdl> FoxDdl::Parse(const QString& statement) {
    static const QRegularExpression create(
        QStringLiteral(R"(^\s*CREATE\s+TABLE\s+(\[[^\]]+\]|"[^"]+"|[\w.]+)\s*(?:FREE\s*)?\((.*)$)"),
        kCase | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression alter(
        QStringLiteral(
            R"(^\s*ALTER\s+TABLE\s+(\[[^\]]+\]|"[^"]+"|\w+)\s+(ADD|ALTER|DROP)\s+(?:COLUMN\s+)?(.*)$)"),
        kCase | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression drop(
        QStringLiteral(R"(^\s*DROP\s+TABLE\s+(\[[^\]]+\]|"[^"]+"|\w+)\s*$)"), kCase);
    static const QRegularExpression pack(
        QStringLiteral(R"(^\s*PACK\s+(?:TABLE\s+)?(\[[^\]]+\]|"[^"]+"|\w+)\s*$)"), kCase);
    if (const auto match = create.match(statement); match.hasMatch()) return CreateTable(match);
    if (const auto match = alter.match(statement); match.hasMatch()) return AlterTable(match);
    if (const auto match = drop.match(statement); match.hasMatch())
        return FoxDdl{Kind::DropTable, Unbracketed(match.captured(1)), {}, {}};
    if (const auto match = pack.match(statement); match.hasMatch())
        return FoxDdl{Kind::Pack, Unbracketed(match.captured(1)), {}, {}};
    return std::nullopt;
}

} // namespace zlx::dbfengine
