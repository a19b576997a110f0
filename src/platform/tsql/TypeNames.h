#pragma once
// SQL Server type names and an engine's spelling of them, kept by each dialect as a table.

#include <QString>
#include <optional>
#include <span>

namespace zlx::tsql {

struct TypeName {
    const char* tsql; // upper case
    const char* engine;
};

// The engine's spelling of `type` (upper case), empty when the table has none.
QString LookUpType(std::span<const TypeName> types, const QString& type);

// CHAR(n), VARCHAR(n), NCHAR(n), NVARCHAR(n): a CHAR without a length is 30 characters.
struct SizedText {
    bool variable;
    QString length;
};
std::optional<SizedText> SizedTextType(const QString& type);
// VARCHAR(MAX) or NVARCHAR(MAX) as the sized type of a length no value reaches, so that a CAST
// or CONVERT to it keeps the whole value; any other type as it is.
QString MaxAsLength(const QString& type);
// The bytes a VARBINARY(n) value keeps (VARBINARY alone: 30, as CAST and CONVERT take it; 0 for
// VARBINARY(MAX)); nullopt for any other type.
std::optional<int> VarbinaryLength(const QString& type);

// DECIMAL(p,s), NUMERIC(p,s) (18 digits and scale 0 when not written), MONEY (19,4) and
// SMALLMONEY (10,4): the digits a value may have and the places it is rounded to.
struct DecimalDigits {
    int precision;
    int scale;
};
std::optional<DecimalDigits> DecimalType(const QString& type);

// The digits of an integer type as a DECIMAL counts them (INT is DECIMAL(10,0)); none for any
// other type.
std::optional<DecimalDigits> IntegerDigits(const QString& type);

// A number literal's own digits: 12.50 is DECIMAL(4,2), 3 is DECIMAL(1,0); none for a text
// that is no plain number.
std::optional<DecimalDigits> LiteralDigits(const QString& text);

// CHAR, VARCHAR, NCHAR and NVARCHAR (with a length or not), TEXT and NTEXT.
bool IsTextType(const QString& type);

// NCHAR, NVARCHAR (with a length or not) and NTEXT: two bytes a character.
bool IsNationalType(const QString& type);

// The integer type a comparison converts to: INT for TINYINT, SMALLINT, INT and INTEGER, BIGINT
// for BIGINT; empty for any other type.
QString IntegerTypeOf(const QString& type);

} // namespace zlx::tsql
