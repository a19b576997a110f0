#pragma once
// FoxPro's "+" adds numbers, joins texts and moves dates by days (datetimes by seconds), while
// SQLite's adds numbers only. Every binary "+" of a statement becomes a call of fox_plus,
// which decides by its operands' values; the operands are found by SQL's precedence ("*" and
// "/" bind tighter, "+" and "-" go left to right, comparisons and keywords end an operand).

#include <QString>

struct sqlite3;

namespace zlx::dbfengine::FoxPlusOperator {

// The statement (already in SQLite's words) with each binary "+" as fox_plus(left, right).
QString AsFunctionCalls(const QString& statement);
// Installs fox_plus on the connection.
void Install(sqlite3* db);

} // namespace zlx::dbfengine::FoxPlusOperator
