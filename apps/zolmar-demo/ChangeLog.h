#pragma once
// The change log of the client form: each saved edit and each deletion leaves one LogFichas
// row whose Valores text lists the fields that changed. An item is the character 2, an
// operation ("+" filled, "*" changed, "-" cleared or deleted), the field name, the character
// 3 and the value, or the old and new values separated by another character 3.

#include "connection/cConexion.h"
#include "cursor/cFichaDB.h"

#include <QDateTime>
#include <QStringList>
#include <utility>
#include <vector>

namespace zlx::demo {

// The fields of one record, as text, in the recordset's column order.
using RecordValues = std::vector<std::pair<QString, QString>>;

// One row of the log as the form lists it.
struct ChangeLogRow {
    QDateTime fecha;
    std::int32_t idUsuario = 0;
    bool borrado = false;
    QStringList cambios;
};

class ChangeLog {
public:
    static constexpr int nMaxValores = 7900;

    // The current record of the cursor.
    static RecordValues Capture(const cFichaDB& oFicha);
    // The encoded differences; a deletion lists every value that is not empty, "0" or the
    // blank date.
    static QString Valores(const RecordValues& before, const RecordValues& after, bool lDelete);
    // Writes one row for the record; false when there was nothing to write or it failed.
    static bool Write(cConexion& oCn, const QString& cTabla, std::int32_t nIdFicha,
                      std::int32_t nIdUsuario, std::int32_t nIdPuesto, bool lDelete,
                      const QString& cValores);
    // The rows of one record, the newest first.
    static std::vector<ChangeLogRow> Read(cConexion& oCn, const QString& cTabla,
                                          std::int32_t nIdFicha);
    // The items of a Valores text as readable lines ("nombre: «Ana» → «Ana María»").
    static QStringList Describe(const QString& cValores);

private:
    static QString ValueText(const Variant& xValue);
};

} // namespace zlx::demo
