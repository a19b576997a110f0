#pragma once
// SQLite's AUTOINCREMENT identities kept as SQL Server keeps its identities: a value taken in a
// transaction that is rolled back stays taken (SQLite's counter goes back with the
// transaction), and DBCC CHECKIDENT may set the next identity below the values a table holds or
// below 1 (SQLite never hands out a row id at or under the highest one): such a table's next
// single-row INSERTs name their identity themselves, so that a value already there is a
// duplicate key, until the counter is past the table's values again. A table whose identity
// counts by a step other than 1 names it in every INSERT.

#include "platform/tsql/EngineDialect.h"

#include <QHash>
#include <QSet>

namespace zlx::tsql {

class SqliteIdentities {
public:
    // A table named by its schema and its name as the catalog keeps it.
    struct Table {
        QString schema;
        QString name;
        QString Key() const { return schema + u'.' + name.toLower(); }
    };

    // Whether the table's counter has handed out a value: SQLite keeps none before the first,
    // or `start`, a step before the seed, where CREATE TABLE wrote one.
    static bool Taken(EngineAccess& access, const Table& table, std::int64_t start);
    // The next identity of `column` becomes value + 1.
    void Set(EngineAccess& access, const Table& table, const QString& column, std::int64_t value);
    // The next identity follows the highest value of `column` when that is past it.
    void Raise(EngineAccess& access, const Table& table, const QString& column);
    // For a table whose next identity is below what SQLite would give or that counts by a
    // step: `insert` naming its identity, answering it; empty otherwise (and for an INSERT
    // that names the identity itself). Throws 0x80040E14 for an INSERT of several rows into
    // such a table.
    QString ExplicitInsert(EngineAccess& access, const Table& table, const QString& insert,
                           const QString& column);
    // Whether some table's INSERTs name their identity (ExplicitInsert has work to do).
    bool AnyNamed() const { return !m_below.isEmpty() || !m_steps.isEmpty(); }

    // IDENTITY(seed, step) with a step other than 1: what the column's definition carries so
    // that MarkedStep reads the step back from the table's definition (1 when it has none).
    static QString StepMark(std::int64_t step);
    static std::int64_t MarkedStep(const QString& definition);
    // An identity written without PRIMARY KEY or UNIQUE is still SQLite's row id, which holds a
    // value once: the mark tells its duplicates (which SQL Server would keep) apart.
    static QString KeylessMark() { return QStringLiteral(" /* zlx_identity_keyless */"); }
    static bool MarkedKeyless(const QString& definition) {
        return definition.contains(KeylessMark().trimmed());
    }
    // The same for a seed other than 1 (which SELECT ... INTO copies).
    static QString SeedMark(std::int64_t seed);
    static std::int64_t MarkedSeed(const QString& definition);
    // Such a table's INSERTs name their identity, the last one plus the step.
    void NoteStep(const Table& table, std::int64_t step);

    void NoteTaken(const Table& table, std::int64_t value);
    // After a rollback (to a savepoint too): the counters are put back up to the values taken.
    void RolledBack(EngineAccess& access);
    void Forget() { m_taken.clear(); }

private:
    // `insert` with `column` set to `value`, answering it.
    static QString Naming(EngineAccess& access, const Table& table, const QString& insert,
                          const QString& column, std::int64_t value);

    QSet<QString> m_below;                                  // tables whose next identity is below
    QHash<QString, std::int64_t> m_steps;                   // tables counting by another step
    QHash<QString, std::pair<Table, std::int64_t>> m_taken; // the highest taken per table
};

} // namespace zlx::tsql
