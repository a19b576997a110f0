#include "connection/ConexionMessages.h"

#include <QStringList>

namespace zlx::ConexionMessages {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString ListErrors(const std::vector<ado::ErrorRecord>& errors) {
    if (errors.empty())
        return QStringLiteral(
            "El servidor SQL no ha retornado ningún mensaje desde la última operación");
    QString text = QStringLiteral("El servidor SQL ha retornado ");
    text += errors.size() == 1 ? QStringLiteral("el siguiente mensaje:")
                               : QStringLiteral("los siguientes %1 mensajes:").arg(errors.size());
    text += kCrLf;
    for (std::size_t i = 0; i < errors.size(); ++i)
        text += QStringLiteral("  #%1: Status=%2 (%3)")
                    .arg(i + 1)
                    .arg(errors[i].nativeError)
                    .arg(errors[i].description) +
                kCrLf;
    return text;
}

} // namespace

QString CodeText(int nError, const QString& cInfo) {
    switch (nError) {
    case 2:
        return QStringLiteral("La conexión con el servidor de datos se ha interrumpido.<BR>"
                              "Tal vez sea un problema en el servidor o en la red de enlace.<BR>"
                              "La aplicación puede mostrar múltiples errores; se recomienda<BR>"
                              "que la finalice tan pronto como sea posible.");
    case 3:
        return QStringLiteral("En este momento la base de datos no se puede abrir.<BR>"
                              "Tal vez sea porque otro usuario la esté usando en este momento.");
    case 4:
        return QStringLiteral(
            "No pudo conectarse al servidor SQL.<BR>"
            "No existe un servidor con ese nombre, o no acepta nuevas conexiones.<BR>"
            "Tal vez no se encuentra activo o no es posible comunicarse en este momento.");
    case 5:
        return QStringLiteral("No pudo iniciarse la sesión.<BR>"
                              "Compruebe el nombre de usuario y contraseña.");
    case 6:
        return QStringLiteral("Parámetro 'xCampos' del método 'Insert' debe ser un 'Array'.");
    case 7:
        return QStringLiteral("Valor no permitido en el método 'Insert'.<BR>") + cInfo;
    case 8:
        return QStringLiteral("El método 'CadInsert' no admite valores nulos.");
    case 9:
        return QStringLiteral("Se ha producido un error en el método 'XLock'.");
    case 10:
        return QStringLiteral(
            "El método 'XLock' no pudo quitar un bloqueo porque no había sido puesto.");
    case 11:
        return QStringLiteral("El método 'XLock' ha actualizado un bloqueo anterior.");
    case 12:
        return QStringLiteral(
            "Se ha producido un error al intentar leer el \"Registro\" del servidor.");
    default:
        return {};
    }
}

ComposedMessage Compose(int nError, const QString& description, std::int32_t errorNumber,
                        const QString& cInfo, const Translate& translate) {
    QString message = QStringLiteral("El error se ha producido en la clase 'cConexion'.<BR>") +
                      CodeText(nError, cInfo);
    QString title = QStringLiteral("Se ha detectado un error");
    if (translate) {
        message = translate(message);
        title = translate(title);
    }
    QString text =
        description.isEmpty()
            ? QStringLiteral("No hay descripción del error (no ha generado un mensaje concreto)")
            : QStringLiteral("Descripción del error:<BR><B>") + description +
                  QStringLiteral("</B>");
    text += QStringLiteral("<BR><BR>") + message + QStringLiteral("<BR>Código del error: ") +
            QString::number(errorNumber) + QStringLiteral("<BR><BR>");
    if (!cInfo.isEmpty())
        text += QStringLiteral("Información adicional:<BR><B>") + cInfo + QStringLiteral("</B>");
    return {text, title};
}

QString ServerUnreachableDescription() {
    const QStringList lines = {
        QString(),
        QStringLiteral("No existe el servidor SQL o se ha denegado el acceso al mismo."),
        QStringLiteral(
            "Existen muchas posibles causas para este problema. Compruebe las siguientes:"),
        QStringLiteral("  1. El servidor está apagado."),
        QStringLiteral("  2. Los equipos que conectan este puesto al servidor están apagados."),
        QStringLiteral("  3. Hay un error en la conexión entre este puesto y el servidor."),
        QStringLiteral("  4. Este puesto no está conectado al servidor."),
        QStringLiteral("  5. Un \"<I>cortafuegos</I>\" o \"<I>antivirus</I>\" está bloqueando "
                       "la conexión."),
        QStringLiteral("  6. El servidor ha cambiado de nombre desde que se instaló."),
        QStringLiteral("  7. El servidor SQL no está escuchando (el servicio <I>MSSQLSERVER</I> "
                       "está detenido)."),
        QStringLiteral("  8. El servidor está saturado y no acepta más conexiones (pruebe a "
                       "reiniciarlo)."),
        QStringLiteral("  9. La contraseña necesaria para acceder a él no es válida."),
        QString(),
        QStringLiteral("Hay más posibles causas pero éstas son las más probables.")};
    return lines.join(kCrLf);
}

QString ServerMessages(const std::vector<ado::ErrorRecord>& errors) {
    return ListErrors(errors);
}

QString NativeCodeCheck(std::int32_t nSearchedCode, const std::vector<ado::ErrorRecord>& errors,
                        bool found) {
    return QStringLiteral("Comprobando estado SQL (se busca el código %1):").arg(nSearchedCode) +
           kCrLf + ListErrors(errors) +
           (found ? QStringLiteral("Se encontró el código buscado")
                  : QStringLiteral("NO SE ENCONTRÓ el código buscado"));
}

QString ErrorDump(std::int32_t runtimeNumber, const QString& runtimeDescription,
                  const std::vector<ado::ErrorRecord>& errors, std::size_t upTo) {
    QString text;
    if (runtimeNumber != 0)
        text =
            QStringLiteral("Error RTE: %1, %2").arg(runtimeNumber).arg(runtimeDescription) + kCrLf;
    for (std::size_t i = 0; i <= upTo && i < errors.size(); ++i) {
        const ado::ErrorRecord& e = errors[i];
        text += QStringLiteral("Error ADO: %1\r").arg(e.number) +
                QStringLiteral("Description: %1\r").arg(e.description) +
                QStringLiteral("Source: %1\r").arg(e.source) + QStringLiteral("HelpFile: \r") +
                QStringLiteral("HelpContext: 0\r") +
                QStringLiteral("NativeError: %1\r").arg(e.nativeError) +
                QStringLiteral("SqlState: %1\r").arg(e.sqlState);
    }
    return text;
}

} // namespace zlx::ConexionMessages
