#pragma once
// SQL Server's xtype and length of a column as SQL expressions over the engine's type text, for
// the syscolumns views that each dialect makes.

#include <QString>
#include <span>

namespace zlx::tsql {

// One kind of column: the LIKE pattern of its type text, its xtype and its length (a number,
// or "n" for the declared size, "2n" for twice it, "p" for a decimal's storage size; "-1" is a
// (MAX) type's).
struct TypeRule {
    const char* pattern;
    int xtype;
    const char* length;
};

// How an engine's type texts are read.
struct CatalogTypes {
    std::span<const TypeRule> rules;
    const char* typeText;     // the text the patterns match, %1 the type: "upper(%1)"
    const char* declaredSize; // the size in "type(n)", %1 the type
};

QString XtypeExpression(const CatalogTypes& types, const QString& typeText);
QString LengthExpression(const CatalogTypes& types, const QString& typeText);
// INFORMATION_SCHEMA.COLUMNS' DATA_TYPE ('varchar', 'int' ...) and CHARACTER_MAXIMUM_LENGTH
// (characters of a text, bytes of a binary value; NULL for other types).
QString DataTypeExpression(const CatalogTypes& types, const QString& typeText);
QString CharacterLengthExpression(const CatalogTypes& types, const QString& typeText);

} // namespace zlx::tsql
