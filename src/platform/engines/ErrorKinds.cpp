#include "platform/engines/ErrorKinds.h"

#include "platform/engines/AdoConstants.h"
#include "platform/engines/SqlServerErrors.h"

#include <algorithm>

namespace zlx::ado {
namespace {

template <typename Test> bool AnyRecord(std::span<const ErrorRecord> records, Test test) {
    return std::any_of(records.begin(), records.end(), test);
}

bool AnyNative(std::span<const ErrorRecord> records, std::initializer_list<std::int32_t> natives) {
    return AnyRecord(records, [&](const ErrorRecord& record) {
        return std::find(natives.begin(), natives.end(), record.nativeError) != natives.end();
    });
}

bool AnyNumber(std::span<const ErrorRecord> records, std::int32_t number) {
    return AnyRecord(records, [&](const ErrorRecord& record) { return record.number == number; });
}

} // namespace

bool IsLinkLost(std::span<const ErrorRecord> records) {
    return AnyRecord(records, [](const ErrorRecord& record) {
        return record.sqlState == QLatin1StringView(kSqlStateLinkLost);
    });
}

bool IsDeadlock(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeDeadlock});
}

bool IsTimeout(std::span<const ErrorRecord> records) {
    return AnyNumber(records, adHrTimeout);
}

bool IsCanceled(std::span<const ErrorRecord> records) {
    return AnyNumber(records, adHrCanceled);
}

bool IsDuplicateKey(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeDuplicateKey, kNativeDuplicateIndexKey});
}

bool IsUnknownObject(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeInvalidObject});
}

bool IsUnknownColumn(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeInvalidColumn});
}

bool IsDatabaseUnavailable(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeDatabaseOffline, kNativeDatabaseShutDown});
}

bool IsUnknownDatabase(std::span<const ErrorRecord> records) {
    return AnyNative(records, {kNativeCannotOpenDatabase});
}

bool IsConnectFailed(std::span<const ErrorRecord> records) {
    return AnyNumber(records, adHrConnectFailed);
}

} // namespace zlx::ado
