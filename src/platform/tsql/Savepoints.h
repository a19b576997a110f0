#pragma once
// SAVE TRAN[SACTION] name and ROLLBACK TRAN[SACTION] name back to it: the savepoints of the
// session's open transaction, kept on the engine as its own savepoints.

#include "platform/tsql/TsqlToken.h"

#include <QStringList>
#include <functional>

namespace zlx::tsql {

class EngineDialect;

class Savepoints {
public:
    using RunSql = std::function<void(const QString& sql)>;

    // Whether the statement is SAVE TRAN[SACTION] name; `name` receives the name.
    static bool IsSave(const Tokens& statement, QString& name);
    // Sets the savepoint; outside a transaction it is SQL Server's error 628.
    void Save(const QString& name, bool inTransaction, const EngineDialect& dialect,
              const RunSql& run);
    // Rolls back to the savepoint `name` and answers true; false when there is none of that name.
    bool RollBackTo(const QString& name, const EngineDialect& dialect, const RunSql& run);
    // A new transaction has none.
    void Clear() { m_names.clear(); }

private:
    QStringList m_names; // in the order they were set
};

} // namespace zlx::tsql
