#pragma once
// What a running batch knows of its errors: the error each CATCH block handles, which
// ERROR_NUMBER(), ERROR_MESSAGE(), ERROR_SEVERITY(), ERROR_STATE(), ERROR_LINE() and
// ERROR_PROCEDURE() answer (NULL outside CATCH), and the errors RAISERROR sent without ending
// the batch. One batch and the texts it runs with EXEC share it.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"

#include <optional>
#include <vector>

namespace zlx::tsql {

struct BatchError {
    ado::AdoError error; // as raised: THROW without arguments raises it again
    int severity = 16;
    int state = 1;
    int line = 1;
    bool keepsTransaction = false; // RAISERROR's: XACT_ABORT does not end the transaction

    std::int32_t Number() const;
    QString Message() const;
};

class BatchErrors {
public:
    // Notes how `error` was raised, unless the failure being handled was noted already (by a
    // text run with EXEC, or by RAISERROR and THROW, which know their severity and state).
    void Note(const BatchError& raised);
    // The failure noted for `error`, forgotten here; severity 16 and state 1 when none was.
    BatchError Take(const ado::AdoError& error, int line);

    void EnterCatch(BatchError error) { m_catching.push_back(std::move(error)); }
    void LeaveCatch() { m_catching.pop_back(); }
    // The error the innermost CATCH block running handles; nullptr outside CATCH.
    const BatchError* Current() const { return m_catching.empty() ? nullptr : &m_catching.back(); }

    // An error of RAISERROR outside TRY: the batch goes on, and ends with it.
    void Defer(const ado::ErrorRecord& record) { m_deferred.push_back(record); }
    const std::vector<ado::ErrorRecord>& Deferred() const { return m_deferred; }

    // `statement` with the error functions and XACT_STATE() (`transactionState`) replaced by
    // their values; with `placeholders`, by values of their types (to check it).
    Tokens Substitute(const Tokens& statement, int transactionState, bool placeholders) const;

private:
    std::optional<BatchError> m_noted;
    std::vector<BatchError> m_catching;
    std::vector<ado::ErrorRecord> m_deferred;
};

} // namespace zlx::tsql
