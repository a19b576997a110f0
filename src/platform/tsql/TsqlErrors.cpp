#include "platform/tsql/TsqlErrors.h"

#include "platform/engines/AdoConstants.h"

namespace zlx::tsql {

void ThrowStatementError(const QString& description, std::int32_t native, const QString& sqlState) {
    ado::ErrorRecord record;
    record.number = ado::adHrCommandFailed;
    record.description = description;
    record.source = QStringLiteral("Microsoft OLE DB Provider for SQL Server");
    record.nativeError = native;
    record.sqlState = sqlState;
    throw ado::AdoError(ado::adHrCommandFailed, description, {record});
}

void ThrowUnsupported(const QString& construct) {
    ThrowStatementError(QStringLiteral("Construcción T-SQL no soportada: ") + construct,
                        ado::kNativeSyntax);
}

} // namespace zlx::tsql
