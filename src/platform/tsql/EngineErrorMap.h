#pragma once
// Gives an engine's error the native number and SQLSTATE that SQL Server would report, so
// that the library's checks (deadlock, duplicate key, missing table...) work on any engine.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlTranslator.h"

namespace zlx::tsql {

ado::ErrorRecord MappedRecord(const ado::ErrorRecord& record, Target target);
ado::AdoError MappedError(const ado::AdoError& error, Target target);

} // namespace zlx::tsql
