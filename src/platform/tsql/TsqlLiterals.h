#pragma once
// T-SQL literals as SQL Server reads them: quoting a text, binary literals, a text read as a
// number (with SQL Server's conversion errors), INT overflow, LIKE escapes and trailing blanks.

#include "platform/tsql/TsqlToken.h"

#include <QString>

namespace zlx::tsql {

// 'value' with its quotes doubled.
QString QuoteString(const QString& value);

bool IsBinaryLiteral(const Token& number);

// The digits of 0x... as whole bytes: an odd count gets a leading zero, as SQL Server
// reads 0x123 as 0x0123.
QString HexDigits(const QString& literal);

// 'yyyymmdd' or a text with slashes that begins with a digit: what NormalizedDateLiteral
// reads when it is a possible date.
bool HasDateShape(const QString& text);

QString WithoutTrailingBlanks(const QString& text);

qint64 CheckedInt(qint64 value);

// A text that must read as an integer; SQL Server's error 245 when it does not.
void RequireIntegerText(const QString& text);

// A text literal as a number of the type of `number`; SQL Server's error when it is none.
QString TextAsNumber(const QString& text, const Token& number);

QString WithoutEscapes(const QString& pattern, QChar escape);

} // namespace zlx::tsql
