#pragma once
// Connection.Errors: the provider's error records of the last operation that failed.

#include "platform/engines/AdoError.h"

#include <vector>

namespace zlx::ado {

class Errors {
public:
    int Count() const { return static_cast<int>(m_records.size()); }
    // Zero-based, as ADO's Errors(i); raises 3265 when out of range.
    const ErrorRecord& Item(int index) const;
    // Every record, for the error-kind questions (IsLinkLost and the rest, ErrorKinds.h).
    const std::vector<ErrorRecord>& Records() const { return m_records; }
    void Clear() { m_records.clear(); }

    // Keeps the records of `error`; an error without records is listed as one record.
    void Fill(const AdoError& error);
    void Add(const ErrorRecord& record) { m_records.push_back(record); }

private:
    std::vector<ErrorRecord> m_records;
};

} // namespace zlx::ado
