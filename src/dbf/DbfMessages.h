#pragma once
// Texts of the messages cDBF reports, in one place.

#include "platform/dbfformat/DbfTexts.h"

#include <QString>
#include <cstdint>

namespace zlx::DbfMessages {

inline const QString kCreateTitle = QStringLiteral("Error creando DBF");
inline QString UnsupportedType(const QString& letter) {
    return QStringLiteral("Error en 'cDBF.AddColumn()': tipo <") + letter +
           QStringLiteral("> no soportado.'");
}
inline const QString kLengthRequired = QStringLiteral(
    "Error en 'cDBF.AddColumn()': debe especificar la longitud para los datos de tipo <C> y <N>.'");
inline const QString kBadArguments =
    QStringLiteral("Error en 'cDBF.AddColumn()': argumentos incorrectos.'");

inline const QString kRecordReadFailed = DbfTexts::kRecordReadFailed;
inline const QString kRecordReadTitle = DbfTexts::kRecordReadTitle;
inline QString WrongRecordNumber(quint32 recordCount) {
    return QStringLiteral("El fichero tiene actualmente ") + QString::number(recordCount) +
           QStringLiteral(" registros.");
}
inline const QString kWrongRecordNumberTitle = QStringLiteral("Número de registro incorrecto");

inline QString NoSuchField(const QString& name) {
    return QStringLiteral("No existe el campo: '") + name + QStringLiteral("'");
}
inline QString FieldReadTitle(int offset) {
    return QStringLiteral("Error accediendo al registro actual. Offset=") + QString::number(offset);
}
inline QString FieldWriteTitle(int offset) {
    return QStringLiteral("Error actualizando el registro actual. Offset=") +
           QString::number(offset);
}

inline const QString kInsertWriteFailed =
    QStringLiteral("No ha podido escribirse el nuevo registro en el disco.");
inline const QString kNotInserting =
    QStringLiteral("No está insertando un registro. Debe ejecutarse el método BeginInsert().");
inline const QString kInsertTitle = QStringLiteral("Error añadiendo registro al fichero DBF");

inline const QString kFlushFailed =
    QStringLiteral("No ha podido actualizarse el registro en el disco.");
inline const QString kNoCurrentRecord =
    QStringLiteral("No existe un registro actual válido. Por lo tanto no puede actualizarse.");
inline const QString kFlushTitle = QStringLiteral("Error actualizando el fichero DBF");

inline const QString kHeaderWriteFailed =
    QStringLiteral("No ha podido actualizarse la cabecera del fichero.");
inline const QString kHeaderWriteTitle =
    QStringLiteral("Error actualizando el número de registros");

inline const QString kOpenTitle = DbfTexts::kOpenTitle;
inline QString UnavailableCodePage(std::int32_t number) {
    return QStringLiteral("La página de códigos ") + QString::number(number) +
           QStringLiteral(" no está disponible.");
}

} // namespace zlx::DbfMessages
