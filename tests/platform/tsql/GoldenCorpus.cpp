#include "GoldenCorpus.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <stdexcept>

namespace zlx::test {

namespace {

QStringList Lines(const QString& name) {
    QFile file(QDir(QStringLiteral(ZLX_GOLDEN_DIR)).filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read golden/" + name.toStdString());
    QString text = QString::fromUtf8(file.readAll());
    if (text.endsWith(u'\n')) text.chop(1);
    return text.split(u'\n');
}

QString Unescaped(QString text) {
    static const QRegularExpression control(QStringLiteral("\\\\x([0-9A-Fa-f]{2})"));
    QRegularExpressionMatch match;
    for (qsizetype from = 0; (from = text.indexOf(control, from, &match)) >= 0; ++from)
        text.replace(from, match.capturedLength(), QChar(match.captured(1).toUShort(nullptr, 16)));
    return text;
}

GoldenCase ReadCase(const QString& name) {
    GoldenCase golden{name, {}, {}, {}, {}, {}};
    QString section;
    QStringList statement;
    const auto statementEnds = [&] {
        const QString text = Unescaped(statement.join(u'\n'));
        if (section == u"T-SQL") golden.tsql = text;
        if (section == u"SQLite") golden.sqlite = text;
        if (section == u"PostgreSQL") golden.postgres = text;
        statement.clear();
    };
    for (const QString& line : Lines(name)) {
        if (line.startsWith(u"-- ")) {
            const QString header = line.mid(3);
            static const QStringList headers = {QStringLiteral("T-SQL"),
                                                QStringLiteral("SQLite"),
                                                QStringLiteral("PostgreSQL"),
                                                QStringLiteral("result"),
                                                QStringLiteral("result on SQLite"),
                                                QStringLiteral("result on PostgreSQL")};
            if (headers.contains(header)) {
                statementEnds();
                section = header;
                continue;
            }
            if (section.isEmpty()) continue; // the description
        }
        if (section.startsWith(u"result")) {
            if (section != u"result on PostgreSQL") golden.sqliteResult << Unescaped(line);
            if (section != u"result on SQLite") golden.postgresResult << Unescaped(line);
        } else if (!section.isEmpty()) {
            statement << line;
        }
    }
    statementEnds();
    if (golden.tsql.isEmpty() || golden.sqlite.isEmpty() || golden.postgres.isEmpty())
        throw std::runtime_error("golden/" + name.toStdString() + " lacks a statement");
    return golden;
}

std::vector<GoldenCase> ReadCorpus() {
    std::vector<GoldenCase> corpus;
    const QStringList names =
        QDir(QStringLiteral(ZLX_GOLDEN_DIR))
            .entryList({QStringLiteral("[0-9][0-9][0-9]-*.sql")}, QDir::Files, QDir::Name);
    for (const QString& name : names)
        corpus.push_back(ReadCase(name));
    return corpus;
}

} // namespace

const std::vector<GoldenCase>& GoldenCorpus() {
    static const std::vector<GoldenCase> corpus = ReadCorpus();
    return corpus;
}

QStringList GoldenTables() {
    QStringList statements;
    for (const QString& line : Lines(QStringLiteral("tables.sql")))
        if (!line.startsWith(u"--") && !line.trimmed().isEmpty()) statements << line;
    return statements;
}

bool ResultLineMatches(const QString& expected, const QString& actual) {
    if (!expected.contains(u"{any}")) return expected == actual;
    QString pattern = QRegularExpression::escape(expected);
    pattern.replace(QStringLiteral("\\{any\\}"), QStringLiteral("[^|]*"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern))
        .match(actual)
        .hasMatch();
}

} // namespace zlx::test
