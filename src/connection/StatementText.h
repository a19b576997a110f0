#pragma once
// The SQL texts the connection builds around the caller's statements: row-count and identity
// wrappers, INSERT and UPDATE from value lists, counting and maxima, and the wrapping of a
// long statement for messages.

#include "connection/SqlConstants.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <QStringList>

namespace zlx::StatementText {

// "SET NOCOUNT ON ; <sql> ; SELECT @@RowCount ; SET NOCOUNT OFF" (no extra ";" when the
// statement ends with one).
QString WithRowCount(const QString& cSQL);
// The same with "SELECT @@Identity; SET NOCOUNT OFF".
QString WithIdentity(const QString& cSQL);

// One value as a piece of a VALUES or SET list, ending with ","; an empty piece means the
// value cannot be written (Null outside SQL Server, Empty, Boolean, objects, arrays).
QString ValuePiece(const Variant& value, int provider);

// "INSERT INTO <table> <fields> VALUES (": the pieces and ") " follow.
QString InsertHead(const QString& cTabla, const QString& fields);
// The field list "(a,b,c)" from an array of names.
QString FieldList(const Variant& xCampos);

QString RecCount(const QString& cTabla, const QString& cWhere);
QString ValorMasAlto(const QString& cTabla, const QString& cCampo, int provider);
QString StructureQuery(const QString& cTable, const QString& cFields);

// The statement cut into lines of at most 120 characters, each followed by CR: a line ends
// after its last ", ", else its last " ", else its last ",", else at 120 characters.
QString WrapLines(const QString& cSQL);

// The version parts of a product version text ("10.50.1600.1"): major, minor, build and
// revision, each read as a number and rounded.
struct Version {
    std::int32_t major = 0, minor = 0, build = 0, revision = 0;
    Currency number; // major.minor
};
Version ParseVersion(const QString& text);

// The database named in a server message ("... base de datos 'X' ..."): the text between its
// first and last apostrophe, empty when it has none.
QString QuotedName(const QString& description);

} // namespace zlx::StatementText
