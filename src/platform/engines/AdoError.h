#pragma once
// The error raised inside the platform layer: an ADO error number, a description and the
// provider's error records (what Connection.Errors lists).

#include <QString>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace zlx::ado {

// One record of Connection.Errors.
struct ErrorRecord {
    std::int32_t number = 0; // ADO number or HRESULT (0x80040E14 ...)
    QString description;
    QString source;               // "Microsoft OLE DB Provider for SQL Server", "SQLite", ...
    std::int32_t nativeError = 0; // the engine's own code (SQL Server numbers after mapping)
    QString sqlState;             // five characters, "08S01" when the link is broken
    QString detail; // the engine's detail line when it gives one (PostgreSQL's DETAIL)
};

class AdoError : public std::runtime_error {
public:
    AdoError(std::int32_t number, const QString& description,
             std::vector<ErrorRecord> records = {});
    std::int32_t Number() const { return m_number; }
    QString Description() const { return QString::fromUtf8(what()); }
    const std::vector<ErrorRecord>& Records() const { return m_records; }

private:
    std::int32_t m_number;
    std::vector<ErrorRecord> m_records;
};

} // namespace zlx::ado
