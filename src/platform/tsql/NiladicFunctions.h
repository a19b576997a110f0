#pragma once
// SQL Server's functions written without parentheses: CURRENT_TIMESTAMP (GETDATE()),
// CURRENT_USER and SESSION_USER (USER_NAME()) and SYSTEM_USER (SUSER_SNAME()). The engines
// know some of these words and answer them otherwise (SQLite's CURRENT_TIMESTAMP is a text of
// the UTC time), so each is written as the call SQL Server defines it to be.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class NiladicFunctions {
public:
    explicit NiladicFunctions(StatementTokens& tokens) : m_t(tokens) {}

    void Rewrite();

private:
    StatementTokens& m_t;
};

} // namespace zlx::tsql
