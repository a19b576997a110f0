#include "platform/tsql/EngineErrorMap.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {
namespace {

// SQLite's extended result codes that carry a meaning of their own here.
constexpr int kSqliteConstraintPrimaryKey = 1555;
constexpr int kSqliteConstraintUnique = 2067;
constexpr int kSqliteBusy = 5;
constexpr int kSqliteIoErr = 10;

std::int32_t SqliteNative(const ado::ErrorRecord& record) {
    const QString text = record.description;
    if (record.nativeError == kSqliteConstraintPrimaryKey) return ado::kNativeDuplicateKey;
    if (record.nativeError == kSqliteConstraintUnique) return ado::kNativeDuplicateIndexKey;
    if (text.contains(u"no such table")) return ado::kNativeInvalidObject;
    if (text.contains(u"no such column")) return ado::kNativeInvalidColumn;
    if ((record.nativeError & 0xff) == kSqliteBusy) return ado::kNativeDeadlock;
    return record.nativeError;
}

std::int32_t PostgresNative(const ado::ErrorRecord& record) {
    const QString& state = record.sqlState;
    if (state == u"40P01" || state == u"40001") return ado::kNativeDeadlock;
    if (state == u"23505")
        return record.description.contains(u"_pkey") ||
                       record.description.contains(u"_PKEY_", Qt::CaseInsensitive)
                   ? ado::kNativeDuplicateKey
                   : ado::kNativeDuplicateIndexKey;
    if (state == u"42P01") return ado::kNativeInvalidObject;
    if (state == u"42703") return ado::kNativeInvalidColumn;
    if (state == u"22001") return ado::kNativeTruncation;
    return record.nativeError;
}

bool LinkBroken(const ado::ErrorRecord& record, Target target) {
    if (target == Target::PostgreSQL)
        return record.sqlState.startsWith(u"08") || record.sqlState == u"57P01";
    return (record.nativeError & 0xff) == kSqliteIoErr;
}

} // namespace

ado::ErrorRecord MappedRecord(const ado::ErrorRecord& record, Target target) {
    ado::ErrorRecord mapped = record;
    mapped.nativeError = target == Target::SQLite ? SqliteNative(record) : PostgresNative(record);
    if (LinkBroken(record, target)) mapped.sqlState = QString::fromLatin1(ado::kSqlStateLinkLost);
    return mapped;
}

ado::AdoError MappedError(const ado::AdoError& error, Target target) {
    std::vector<ado::ErrorRecord> records;
    for (const ado::ErrorRecord& record : error.Records())
        records.push_back(MappedRecord(record, target));
    return ado::AdoError(error.Number(), error.Description(), std::move(records));
}

} // namespace zlx::tsql
