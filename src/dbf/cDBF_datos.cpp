#include "dbf/cDBF.h"
#include "table/cDatos.h"

#include <QFile>

namespace zlx {

// The table writes the file (cDatos.CreateDBF); this object then holds it open.
bool cDBF::CreateFromDatos(const QString& cFileName, cDatos& oDatos, bool lCopyData) {
    CloseDBF();
    if (oDatos.CreateDBF(cFileName, lCopyData) && OpenRaw(cFileName)) return true;
    CloseDBF();
    QFile::remove(cFileName);
    return false;
}

} // namespace zlx
