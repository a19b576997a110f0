#pragma once
// The record change log: the field values of a record captured before and after a change (or
// before a delete) into a three-column matrix (name, first value, second value), the
// differences encoded into one text, and one row written into the LogFichas table with who,
// from where, when, which table and record and what kind of operation. It knows nothing of
// the form: the record form passes the user, station, main database, table and identity.

#include "connection/cConexion.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/cMatriz.h"

namespace zlx {

// Who changed which record: what a LogFichas row says besides the date and the values.
struct LogFichasOrigin {
    std::int32_t nIdUsuario = 0;
    std::int32_t nIdPuesto = 0;
    // The main database, whose LogFichas receives the rows of tables named with a prefix.
    QString cMainDB;
    // The form's table name, as given to the form (an owner or database prefix allowed).
    QString cTabla;
    std::int32_t nIdFicha = 0;
};

class FichaChangeLog {
public:
    static constexpr int nMaxValores = 7900;

    // Captures the current values of oFichaDB's fields: with lPrimera into column 2 (and the
    // names into column 1), else into column 3. A null oMatriz is created with one row per
    // field. With lAlternate (a second cursor whose values go into the same matrix) the names
    // carry the cursor's table and "." in front, lPrimera adds rows at the end and a second
    // capture fills the last rows.
    static void Capture(cMatrizPtr& oMatriz, bool lPrimera, const cFichaDB& oFichaDB,
                        bool lAlternate = false);

    // The encoded differences of a capture, cut to nMaxValores characters; empty when
    // nothing differs (or, for a delete, when every value is empty, "0" or "01/01/1753").
    static QString Valores(const cMatriz& oMatriz, bool lDelete);

    // A cell as the comparison reads it (Empty and Null are "").
    static QString ValueText(const Variant& xValue);

    // "LogFichas", or cMainDB + "..LogFichas" when cTabla carries a prefix.
    static QString LogTable(const QString& cTabla, const QString& cMainDB);

    // The INSERT of one log row, the date given.
    static QString InsertStatement(const cConexion& oCn, const LogFichasOrigin& origin,
                                   bool lDelete, const QString& cValores, const Date& dFecha);

    // Writes the row of a capture with the current date; errors are ignored. True when a row
    // was written; false when there was nothing to write or the statement failed.
    static bool Write(cConexion& oCn, const cMatrizPtr& oMatriz, bool lDelete,
                      const LogFichasOrigin& origin);
};

} // namespace zlx
