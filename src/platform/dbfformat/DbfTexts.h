#pragma once
// Texts about reading DBF files that both cDBF and cDatos.LoadFile_DBF report.

#include <QString>

namespace zlx::DbfTexts {

inline const QString kOpenTitle = QStringLiteral("Error abriendo el fichero DBF");
inline const QString kRecordReadFailed =
    QStringLiteral("No ha podido leerse el registro del disco.");
inline const QString kRecordReadTitle = QStringLiteral("Error leyendo el fichero DBF");

} // namespace zlx::DbfTexts
