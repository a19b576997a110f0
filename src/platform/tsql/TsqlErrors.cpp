#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

void ThrowStatementError(const QString& description, std::int32_t native, const QString& sqlState) {
    ado::ErrorRecord record;
    record.number = kAdoCommandFailed;
    record.description = description;
    record.source = QStringLiteral("Microsoft OLE DB Provider for SQL Server");
    record.nativeError = native;
    record.sqlState = sqlState;
    throw ado::AdoError(kAdoCommandFailed, description, {record});
}

void ThrowUnsupported(const QString& construct) {
    ThrowStatementError(QStringLiteral("Construcción T-SQL no soportada: ") + construct,
                        kNativeSyntax);
}

} // namespace zlx::tsql
