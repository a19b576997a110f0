#include "platform/engines/DriverErrors.h"

#include "platform/engines/SqlServerMessages.h"

namespace zlx::ado {

ErrorRecord MakeRecord(std::int32_t number, const QString& description, const QString& source,
                       std::int32_t nativeError, const QString& sqlState) {
    ErrorRecord record;
    record.number = number;
    record.description = description;
    record.source = source;
    record.nativeError = nativeError;
    record.sqlState = sqlState;
    return record;
}

void ThrowCommandFailed(const QString& description, const QString& source, std::int32_t nativeError,
                        const QString& sqlState) {
    throw AdoError(adHrCommandFailed, description,
                   {MakeRecord(adHrCommandFailed, description, source, nativeError, sqlState)});
}

void ThrowTimeout(const QString& source) {
    const QString text = QStringLiteral("Timeout expired");
    throw AdoError(adHrTimeout, text, {MakeRecord(adHrTimeout, text, source, 0, "HYT00")});
}

void ThrowCanceled(const QString& source) {
    const QString text = QStringLiteral("Operation cancelled");
    throw AdoError(adHrCanceled, text, {MakeRecord(adHrCanceled, text, source, 0, "HY008")});
}

void ThrowConnectFailed(const QString& description, const QString& source, std::int32_t nativeError,
                        const QString& sqlState) {
    throw AdoError(adHrConnectFailed, description,
                   {MakeRecord(adHrConnectFailed, description, source, nativeError, sqlState)});
}

void ThrowCannotOpenDatabase(const QString& database, const QString& source) {
    ThrowConnectFailed(SqlServerMessages::Text(kNativeCannotOpenDatabase, {database}), source,
                       kNativeCannotOpenDatabase, "42000");
}

void ThrowNotConnected() {
    const QString text = QStringLiteral("Operation is not allowed when the object is closed.");
    throw AdoError(adErrObjectClosed, text);
}

} // namespace zlx::ado
