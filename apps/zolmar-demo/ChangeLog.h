#pragma once
// The change log of a client as the form lists it: the LogFichas rows the record toolbar
// writes for each saved edit and each deletion, their Valores text decoded into readable
// lines. An item is the character 2, an operation ("+" filled, "*" changed, "-" cleared or
// deleted), the field name, the character 3 and the value, or the old and new values
// separated by another character 3.

#include "connection/cConexion.h"

#include <QDateTime>
#include <QStringList>
#include <vector>

namespace zlx::demo {

// One row of the log as the form lists it.
struct ChangeLogRow {
    QDateTime fecha;
    std::int32_t idUsuario = 0;
    bool borrado = false;
    QStringList cambios;
};

class ChangeLog {
public:
    // The rows of one record, the newest first.
    static std::vector<ChangeLogRow> Read(cConexion& oCn, const QString& cTabla,
                                          std::int32_t nIdFicha);
    // The items of a Valores text as readable lines ("nombre: «Ana» → «Ana María»").
    static QStringList Describe(const QString& cValores);
};

} // namespace zlx::demo
