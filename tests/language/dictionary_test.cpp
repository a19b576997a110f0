#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "connection/cConexion.h"
#include "language/cIdioma.h"
#include "platform/companion/cMsgBox.h"
#include "support/ServerDatabaseTest.h"

#include <QWidget>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// The translation table of a database on the embedded server folder and on PostgreSQL.
class Dictionary : public test::ServerDatabaseTest {
protected:
    Dictionary() : ServerDatabaseTest("dicc") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE idioma (ZolmarID INT NOT NULL IDENTITY(1,1), clave VARCHAR(30), idioma "
            "INT, texto VARCHAR(500), traduccion VARCHAR(500), revisar INT)");
        Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', 5, 'Guardar', "
            "'Save')");
        Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', 5, 'Cancelar', "
            "'')");
        Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', 2, 'Guardar', "
            "'Desar')");
        Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', 5, '&Sí', '&Yes')");
        Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', 5, 'Cliente', "
            "'Customer')");
    }
    long Count(const QString& where) {
        return m_cn->Execute("SELECT count(*) FROM idioma WHERE " + where, zlxExecuteReturn_Value)
            .ToLong();
    }
};

} // namespace

TEST(DictionaryLanguages, ListAndNames) {
    cIdioma idioma;
    ASSERT_EQ(idioma.oMatrizIdiomas()->Rows(), 10);
    EXPECT_EQ(idioma.oMatrizIdiomas()->GetValue(2, 6).ToString(), "Inglés");
    EXPECT_EQ(idioma.Name(), "Castellano");
    idioma.Idioma(zlxIdiomaAleman);
    EXPECT_EQ(idioma.Name(), "Alemán");
    idioma.Idioma(42);
    EXPECT_EQ(idioma.Name(), "");
    // Without a dictionary texts come back as given.
    EXPECT_EQ(idioma.Msg("Guardar"), "Guardar");
}

TEST_P(Dictionary, TranslatesFromTheLoadedLanguage) {
    cIdioma idioma;
    idioma.Init(m_cn, zlxIdiomaIngles, m_database);
    EXPECT_EQ(idioma.Msg("Guardar"), "Save");
    EXPECT_EQ(idioma.Msg("Guardar   "), "Save");   // trailing blanks are not part of the text
    EXPECT_EQ(idioma.Msg("Cancelar"), "Cancelar"); // not translated yet
    EXPECT_EQ(idioma.Msg("Desconocido"), "Desconocido");
    EXPECT_EQ(idioma.Msg("   "), "   ");
    EXPECT_EQ(Count("1=1"), 5); // nothing learnt outside learning mode

    idioma.Init(m_cn, zlxIdiomaCatalan, m_database);
    EXPECT_EQ(idioma.Msg("Guardar"), "Desar");
    idioma.Init(m_cn, zlxIdiomaDefault, m_database);
    EXPECT_EQ(idioma.Idioma(), zlxIdiomaCastellano);
    idioma.ModoAprendizaje(true);
    EXPECT_EQ(idioma.Msg("Texto nuevo"), "Texto nuevo");
    EXPECT_EQ(Count("texto = 'Texto nuevo'"), 0); // Castellano is never learnt

    cMsgBox box;
    cIdioma english;
    english.Init(m_cn, zlxIdiomaIngles, m_database);
    english.SetMsgBoxStrings(box);
    EXPECT_EQ(box.Captions().yes, "&Yes");
    EXPECT_EQ(box.Captions().no, "&No");
}

TEST_P(Dictionary, LearningModeRecordsUnknownTextsAndFlagsChangedOnes) {
    cIdioma idioma;
    idioma.Init(m_cn, zlxIdiomaIngles, m_database);
    idioma.ModoAprendizaje(true);
    EXPECT_EQ(idioma.Msg("Albarán"), "Albarán");
    EXPECT_EQ(Count("texto = 'Albarán' AND idioma = 5"), 1);
    EXPECT_EQ(idioma.Msg("Albarán"), "Albarán"); // known now: not recorded twice
    EXPECT_EQ(Count("texto = 'Albarán'"), 1);
    EXPECT_EQ(idioma.Msg(QString(501, u'x')), QString(501, u'x'));
    EXPECT_EQ(Count("texto LIKE 'xxxx%'"), 0);
    idioma.Msg(QString(500, u'y'));
    EXPECT_EQ(Count("texto LIKE 'yyyy%'"), 1);

    // A learnt text has no translation yet (Null): a dictionary loaded now passes it over.
    cIdioma reloaded;
    reloaded.Init(m_cn, zlxIdiomaIngles, m_database);
    EXPECT_EQ(reloaded.Msg("Albarán"), "Albarán");

    // A text learnt after the dictionary was loaded is found in the table.
    Run("UPDATE idioma SET traduccion = 'Delivery note' WHERE texto = 'Albarán'");
    EXPECT_EQ(idioma.Msg("Albarán"), "Delivery note");

    // Under a key, a row whose translation is the text asked for is the same entry: its
    // source text is rewritten and flagged for review.
    Run("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('frmPedido', 5, "
        "'Pedido viejo', 'Order')");
    EXPECT_EQ(idioma.Msg("Order", "frmPedido"), "Order");
    EXPECT_EQ(Count("clave = 'frmPedido' AND texto = 'Order' AND revisar = 1"), 1);

    // A table that is not there: the statement is shown.
    cIdioma broken;
    broken.Init(m_cn, zlxIdiomaIngles, "nada");
    broken.ModoAprendizaje(true);
    m_messages.Clear();
    EXPECT_EQ(broken.Msg("Hola"), "Hola");
    ASSERT_FALSE(m_messages.Messages().empty());
    EXPECT_EQ(m_messages.Last().title, "Error traduciendo texto");
    EXPECT_TRUE(m_messages.Last().text.startsWith("Instrucción SQL: SELECT zolmarID, texto, "
                                                  "traduccion FROM nada..idioma WHERE idioma=5"));
}

TEST_P(Dictionary, FormStringsTranslateTheFormAndItsControls) {
    EnsureWidgetsApplication();
    cIdioma idioma;
    idioma.Init(m_cn, zlxIdiomaIngles, m_database);
    QWidget form;
    form.setWindowTitle("Cliente");
    QObject save(&form), name(&form), other(&form), bare(&form);
    save.setObjectName("btnGuardar");
    save.setProperty("Caption", "Guardar");
    save.setProperty("ToolTip", "Cliente");
    name.setObjectName("getNombre");
    name.setProperty("Caption", "Guardar"); // a text box translates only its tool tip
    name.setProperty("ToolTip", "Guardar");
    other.setObjectName("xyzOtro");
    other.setProperty("Caption", "Guardar");
    bare.setObjectName("lblSinPropiedades");
    idioma.FormStrings(&form);
    EXPECT_EQ(form.windowTitle(), "Customer");
    EXPECT_EQ(save.property("Caption").toString(), "Save");
    EXPECT_EQ(save.property("ToolTip").toString(), "Customer");
    EXPECT_EQ(name.property("Caption").toString(), "Guardar");
    EXPECT_EQ(name.property("ToolTip").toString(), "Save");
    EXPECT_EQ(other.property("Caption").toString(), "Guardar");
    EXPECT_FALSE(bare.property("Caption").isValid());
}

ZLX_ON_SERVER_ENGINES(Dictionary);
