#include "platform/tsql/SqliteIdentities.h"

#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

QString Quoted(const QString& value) {
    return SqlString(value) + QStringLiteral(" COLLATE NOCASE");
}

std::optional<std::int64_t> Counter(EngineAccess& access, const SqliteIdentities::Table& table) {
    const auto rows =
        access.Query(QStringLiteral("SELECT seq FROM %1.sqlite_sequence WHERE name = %2")
                         .arg(table.schema, Quoted(table.name)));
    if (rows.empty() || rows[0][0].IsNull()) return std::nullopt;
    return rows[0][0].ToLong();
}

std::optional<std::int64_t> Highest(EngineAccess& access, const SqliteIdentities::Table& table,
                                    const QString& column) {
    const auto rows = access.Query(
        QStringLiteral("SELECT max(%1) FROM %2.\"%3\"").arg(column, table.schema, table.name));
    if (rows.empty() || rows[0][0].IsNull()) return std::nullopt;
    return rows[0][0].ToLong();
}

void WriteCounter(EngineAccess& access, const SqliteIdentities::Table& table, std::int64_t value) {
    access.Run(QStringLiteral("DELETE FROM %1.sqlite_sequence WHERE name = %2")
                   .arg(table.schema, Quoted(table.name)));
    access.Run(QStringLiteral("INSERT INTO %1.sqlite_sequence (name, seq) VALUES (%2, %3)")
                   .arg(table.schema, SqlString(table.name))
                   .arg(value));
}

// Whether the engine INSERT is of one row written in VALUES (...) at its end.
bool OneValuesRow(const Tokens& tokens) {
    int depth = 0;
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].IsSymbol(u"("))
            ++depth;
        else if (tokens[i].IsSymbol(u")"))
            --depth;
        else if (depth == 0 && tokens[i].IsWord(u"VALUES")) {
            if (i + 1 == tokens.size() || !tokens[i + 1].IsSymbol(u"(")) return false;
            for (size_t j = i + 1; j < tokens.size(); ++j) {
                if (tokens[j].IsSymbol(u"("))
                    ++depth;
                else if (tokens[j].IsSymbol(u")") && --depth == 0)
                    return j + 1 == tokens.size();
            }
            return false;
        }
    }
    return false;
}

// Whether the engine INSERT's column list, before VALUES, names `column`.
bool NamesColumn(const Tokens& tokens, const QString& column) {
    for (size_t i = 0;
         i < tokens.size() && !tokens[i].IsWord(u"VALUES") && !tokens[i].IsWord(u"SELECT"); ++i)
        if ((tokens[i].kind == TokenKind::Word || tokens[i].kind == TokenKind::QuotedName) &&
            tokens[i].text.compare(column, Qt::CaseInsensitive) == 0 && i > 0 &&
            (tokens[i - 1].IsSymbol(u"(") || tokens[i - 1].IsSymbol(u",")))
            return true;
    return false;
}

// The number of the mark /* zlx_identity_<what> n */ in a table's definition; 1 without one.
std::int64_t MarkedNumber(const QString& definition, const QString& what) {
    const QRegularExpression mark(QStringLiteral(R"(/\* zlx_identity_%1 (-?\d+) \*/)").arg(what));
    const QRegularExpressionMatch match = mark.match(definition);
    return match.hasMatch() ? match.captured(1).toLongLong() : 1;
}

} // namespace

bool SqliteIdentities::Taken(EngineAccess& access, const Table& table, std::int64_t start) {
    const std::optional<std::int64_t> counter = Counter(access, table);
    return counter && *counter != start;
}

void SqliteIdentities::Set(EngineAccess& access, const Table& table, const QString& column,
                           std::int64_t value) {
    WriteCounter(access, table, value);
    m_taken.remove(table.Key());
    const std::optional<std::int64_t> highest = Highest(access, table, column);
    if (value < 0 || (highest && value < *highest))
        m_below.insert(table.Key());
    else
        m_below.remove(table.Key());
}

void SqliteIdentities::Raise(EngineAccess& access, const Table& table, const QString& column) {
    const std::optional<std::int64_t> highest = Highest(access, table, column);
    const std::optional<std::int64_t> counter = Counter(access, table);
    if (highest && (!counter || *highest > *counter)) Set(access, table, column, *highest);
}

QString SqliteIdentities::StepMark(std::int64_t step) {
    return QStringLiteral(" /* zlx_identity_step %1 */").arg(step);
}

std::int64_t SqliteIdentities::MarkedStep(const QString& definition) {
    return MarkedNumber(definition, QStringLiteral("step"));
}

QString SqliteIdentities::SeedMark(std::int64_t seed) {
    return QStringLiteral(" /* zlx_identity_seed %1 */").arg(seed);
}

std::int64_t SqliteIdentities::MarkedSeed(const QString& definition) {
    return MarkedNumber(definition, QStringLiteral("seed"));
}

void SqliteIdentities::NoteStep(const Table& table, std::int64_t step) {
    if (step == 1)
        m_steps.remove(table.Key());
    else
        m_steps.insert(table.Key(), step);
}

QString SqliteIdentities::ExplicitInsert(EngineAccess& access, const Table& table,
                                         const QString& insert, const QString& column) {
    const std::int64_t step = m_steps.value(table.Key(), 1);
    if (step == 1 && !m_below.contains(table.Key())) return {};
    const Tokens tokens = Tokenize(insert);
    if (NamesColumn(tokens, column)) return {}; // IDENTITY_INSERT
    const std::int64_t next = Counter(access, table).value_or(0) + step;
    if (step == 1) {
        const std::optional<std::int64_t> highest = Highest(access, table, column);
        if (next >= 1 && next > highest.value_or(0)) {
            m_below.remove(table.Key()); // SQLite's own next value is the one due again
            return {};
        }
    }
    if (!OneValuesRow(tokens))
        ThrowUnsupported(step == 1 ? QStringLiteral("INSERT de varias filas en una tabla cuya "
                                                    "identidad DBCC CHECKIDENT puso por debajo "
                                                    "de sus valores")
                                   : QStringLiteral("INSERT de varias filas en una tabla con "
                                                    "IDENTITY(seed, incremento distinto de 1)"));
    // The value counts as taken even when the row is refused, as on SQL Server.
    WriteCounter(access, table, next);
    return Naming(access, table, insert, column, next);
}

QString SqliteIdentities::Naming(EngineAccess& access, const Table& table, const QString& insert,
                                 const QString& column, std::int64_t value) {
    static const QRegularExpression valuesWord(QStringLiteral(R"(\bVALUES\s*\()"),
                                               QRegularExpression::CaseInsensitiveOption);
    QString sql = insert;
    qsizetype values = sql.indexOf(valuesWord);
    const qsizetype list = sql.indexOf(u'(');
    if (list < values) {
        sql.insert(list + 1, column + QStringLiteral(", "));
    } else {
        QStringList names{column};
        for (const auto& row : access.Query(
                 QStringLiteral("SELECT name FROM pragma_table_info(%1, %2) WHERE name <> %3 "
                                "ORDER BY cid")
                     .arg(SqlString(table.name), SqlString(table.schema), SqlString(column))))
            names << u'"' + row.at(0).ToString() + u'"';
        sql.insert(values, u'(' + names.join(QStringLiteral(", ")) + QStringLiteral(") "));
    }
    values = sql.indexOf(valuesWord);
    sql.insert(sql.indexOf(u'(', values) + 1, QString::number(value) + QStringLiteral(", "));
    return sql + QStringLiteral(" RETURNING ") + column;
}

void SqliteIdentities::NoteTaken(const Table& table, std::int64_t value) {
    auto& [noted, highest] = m_taken[table.Key()];
    if (noted.name.isEmpty() || value > highest) noted = table, highest = value;
}

void SqliteIdentities::RolledBack(EngineAccess& access) {
    for (const auto& [table, value] : std::as_const(m_taken)) {
        const auto exists = access.Query(
            QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE type = 'table' AND name = %2")
                .arg(table.schema, Quoted(table.name)));
        if (!exists.empty() && Counter(access, table).value_or(0) < value)
            WriteCounter(access, table, value);
    }
}

} // namespace zlx::tsql
