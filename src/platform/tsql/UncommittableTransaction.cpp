#include "platform/tsql/UncommittableTransaction.h"

#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

void RefuseInUncommittableTransaction(const Tokens& statement, const QString& transactionName) {
    const Token& first = statement.front();
    if (first.IsWord(u"ROLLBACK")) {
        const bool named = statement.size() > 2 &&
                           (statement[1].IsWord(u"TRAN") || statement[1].IsWord(u"TRANSACTION"));
        if (named && statement[2].text.compare(transactionName, Qt::CaseInsensitive) != 0)
            ThrowStatementError(QStringLiteral("The current transaction cannot be committed and "
                                               "cannot be rolled back to a savepoint. Roll back "
                                               "the entire transaction."),
                                3931, QStringLiteral("25000"));
        return;
    }
    const bool writes =
        IsAnyWord(first, {u"INSERT", u"UPDATE", u"DELETE", u"MERGE", u"CREATE", u"ALTER", u"DROP",
                          u"TRUNCATE", u"SAVE", u"COMMIT", u"DBCC"}) ||
        (first.kind == TokenKind::Word && first.text.startsWith(u"sp_", Qt::CaseInsensitive)) ||
        (IsAnyWord(first, {u"EXEC", u"EXECUTE"}) && statement.size() > 1 &&
         !statement[1].IsSymbol(u"("));
    if (writes)
        ThrowStatementError(QStringLiteral("The current transaction cannot be committed and "
                                           "cannot support operations that write to the log "
                                           "file. Roll back the transaction."),
                            3930, QStringLiteral("25000"));
}

void ThrowUncommittableAtBatchEnd() {
    ThrowStatementError(QStringLiteral("Uncommittable transaction is detected at the end of the "
                                       "batch. The transaction is rolled back."),
                        3998, QStringLiteral("25000"));
}

} // namespace zlx::tsql
