#include "platform/tsql/Savepoints.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {
namespace {

constexpr std::int32_t kNativeSaveWithoutTransaction = 628;

} // namespace

bool Savepoints::IsSave(const Tokens& statement, QString& name) {
    if (statement.size() != 3 || !statement[0].IsWord(u"SAVE") ||
        !(statement[1].IsWord(u"TRAN") || statement[1].IsWord(u"TRANSACTION")))
        return false;
    name = statement[2].text;
    return true;
}

void Savepoints::Save(const QString& name, bool inTransaction, const EngineDialect& dialect,
                      const RunSql& run) {
    if (!inTransaction)
        ThrowStatementError(
            QStringLiteral("Cannot issue SAVE TRANSACTION when there is no active transaction."),
            kNativeSaveWithoutTransaction, QStringLiteral("25000"));
    run(QStringLiteral("SAVEPOINT ") + dialect.QuoteName(name));
    m_names << name;
}

// The savepoint stays, as on SQL Server; those set after it go.
bool Savepoints::RollBackTo(const QString& name, const EngineDialect& dialect, const RunSql& run) {
    const qsizetype at = m_names.lastIndexOf(name);
    if (at < 0) return false;
    run(QStringLiteral("ROLLBACK TO SAVEPOINT ") + dialect.QuoteName(name));
    m_names.resize(at + 1);
    return true;
}

} // namespace zlx::tsql
