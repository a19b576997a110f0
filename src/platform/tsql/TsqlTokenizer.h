#pragma once
// Splits T-SQL text into tokens. Throws ado::AdoError 0x80040E14 for an unterminated string,
// quoted name or comment.

#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

Tokens Tokenize(const QString& sql);

// Writes tokens back as T-SQL (names bracketed, strings quoted), each with its leading text.
QString TokensToSql(const Tokens& tokens);

} // namespace zlx::tsql
