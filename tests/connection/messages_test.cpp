#include "QtPrinters.h"
#include "connection/ConexionMessages.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::ConexionMessages;

TEST(ConexionMessages, ComposedMessageLayout) {
    const ComposedMessage m = Compose(5, "Login failed", -2147217843, "");
    EXPECT_EQ(m.title, "Se ha detectado un error");
    EXPECT_EQ(m.text, "Descripción del error:<BR><B>Login failed</B><BR><BR>"
                      "El error se ha producido en la clase 'cConexion'.<BR>"
                      "No pudo iniciarse la sesión.<BR>Compruebe el nombre de usuario y "
                      "contraseña.<BR>Código del error: -2147217843<BR><BR>");
    const ComposedMessage info = Compose(13, "", 0, "Error en el método 'Execute'.\r");
    EXPECT_EQ(info.text, "No hay descripción del error (no ha generado un mensaje concreto)"
                         "<BR><BR>El error se ha producido en la clase 'cConexion'.<BR>"
                         "<BR>Código del error: 0<BR><BR>Información adicional:<BR>"
                         "<B>Error en el método 'Execute'.\r</B>");
    const ComposedMessage translated =
        Compose(9, "d", 1, "", [](const QString& t) { return "[" + t + "]"; });
    EXPECT_EQ(translated.title, "[Se ha detectado un error]");
    EXPECT_TRUE(translated.text.contains(
        "<BR><BR>[El error se ha producido en la clase 'cConexion'.<BR>Se ha producido un "
        "error en el método 'XLock'.]<BR>Código"));
    EXPECT_EQ(CodeText(7, "Posición: (Col.=2) Valor: "),
              "Valor no permitido en el método 'Insert'.<BR>Posición: (Col.=2) Valor: ");
    EXPECT_EQ(CodeText(14, "x"), "");
    EXPECT_EQ(CodeText(12, ""),
              "Se ha producido un error al intentar leer el \"Registro\" del servidor.");
}

TEST(ConexionMessages, UnreachableServerListsTheNineCauses) {
    const QString text = ServerUnreachableDescription();
    EXPECT_TRUE(text.startsWith("\r\nNo existe el servidor SQL o se ha denegado el acceso al "
                                "mismo.\r\n"));
    EXPECT_TRUE(text.contains("\r\n  5. Un \"<I>cortafuegos</I>\" o \"<I>antivirus</I>\" está "
                              "bloqueando la conexión.\r\n"));
    EXPECT_TRUE(text.endsWith("válida.\r\n\r\nHay más posibles causas pero éstas son las más "
                              "probables."));
    EXPECT_EQ(text.count("\r\n"), 13);
}

TEST(ConexionMessages, ServerMessageListingsAndDumps) {
    EXPECT_EQ(ServerMessages({}),
              "El servidor SQL no ha retornado ningún mensaje desde la última operación");
    const std::vector<ado::ErrorRecord> one = {{1, "Bad %1 thing", "src", 208, "42S02", ""}};
    EXPECT_EQ(ServerMessages(one),
              "El servidor SQL ha retornado el siguiente mensaje:\r\n  #1: Status=208 (Bad %1 "
              "thing)\r\n");
    const std::vector<ado::ErrorRecord> two = {{1, "a", "s", 4035, "", ""},
                                               {2, "b", "s", 3014, "", ""}};
    EXPECT_EQ(NativeCodeCheck(4035, two, true),
              "Comprobando estado SQL (se busca el código 4035):\r\nEl servidor SQL ha "
              "retornado los siguientes 2 mensajes:\r\n  #1: Status=4035 (a)\r\n  #2: "
              "Status=3014 (b)\r\nSe encontró el código buscado");
    EXPECT_EQ(NativeCodeCheck(1, {}, false),
              "Comprobando estado SQL (se busca el código 1):\r\nEl servidor SQL no ha "
              "retornado ningún mensaje desde la última operaciónNO SE ENCONTRÓ el código "
              "buscado");
    EXPECT_EQ(ErrorDump(5, "Invalid", two, 0),
              "Error RTE: 5, Invalid\r\nError ADO: 1\rDescription: a\rSource: s\rHelpFile: "
              "\rHelpContext: 0\rNativeError: 4035\rSqlState: \r");
    EXPECT_EQ(ErrorDump(0, "", two, 1).count("Error ADO: "), 2);
}
