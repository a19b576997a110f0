#pragma once
// A transaction an error made uncommittable inside TRY (XACT_STATE() -1): it can only be rolled
// back whole. Reading goes on; what would write to it (a data or definition statement, SAVE,
// COMMIT, a system procedure) is SQL Server's 3930, a ROLLBACK to a savepoint its 3931.

#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

// Throws when `statement` may not run in an uncommittable transaction named `transactionName`.
void RefuseInUncommittableTransaction(const Tokens& statement, const QString& transactionName);

// The error of a batch that ends with its transaction uncommittable, rolled back then (3998).
void ThrowUncommittableAtBatchEnd();

} // namespace zlx::tsql
