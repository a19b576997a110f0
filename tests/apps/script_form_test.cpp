// A whole editing session of a data-entry form driven by `zolmar script` lines: a form with
// two bound edit controls and the record toolbar over a table, on each server engine.

#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "script/ScriptSession.h"
#include "support/ServerDatabaseTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zlx::test {
namespace {

class ScriptFormTest : public ServerDatabaseTest {
protected:
    ScriptFormTest() : ServerDatabaseTest("scriptform") {}
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40), "
            "ciudad VARCHAR(40), FechaModificacion DATETIME)");
        Run("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
            "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
            "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName VARCHAR(50))");
        Run("INSERT INTO clientes (nombre, ciudad) VALUES ('Berta', 'Soria')");
    }
    void TearDown() override {
        m_session.reset(); // the form and its toolbar go while the database is there
        ServerDatabaseTest::TearDown();
    }
    void Run(const QString& sql) { ASSERT_TRUE(m_cn->Execute(sql).ToBool()) << sql.toStdString(); }

    // The answer to one line; a line that fails fails the test.
    QJsonObject Line(const QString& line) {
        const QByteArray answer = m_session->Answer(line.toUtf8());
        const QJsonObject parsed = QJsonDocument::fromJson(answer).object();
        EXPECT_FALSE(parsed.contains(u"error"))
            << line.toStdString() << " -> " << answer.toStdString();
        m_toolbarEvents += ToolbarEvents(parsed);
        for (const QJsonValue& message : parsed.value(u"messages").toArray())
            m_shown << message.toObject().value(u"title").toString() + u'|' +
                           message.toObject().value(u"text").toString();
        return parsed;
    }
    // The toolbar's events of an answer as "Name(arguments)".
    static QStringList ToolbarEvents(const QJsonObject& answer) {
        QStringList events;
        for (const QJsonValue& value : answer.value(u"events").toArray()) {
            const QJsonObject event = value.toObject();
            if (event.value(u"source").toString() != u"ficha1") continue;
            const QByteArray args =
                QJsonDocument(event.value(u"args").toArray()).toJson(QJsonDocument::Compact);
            events << event.value(u"name").toString() + u'(' +
                          QString::fromUtf8(args.mid(1).chopped(1)) + u')';
        }
        return events;
    }
    QStringList TakeEvents() { return std::exchange(m_toolbarEvents, {}); }
    QStringList TakeMessages() { return std::exchange(m_shown, {}); }
    // The rows "nombre ciudad" whose values are these.
    std::int32_t Rows(const QString& nombre, const QString& ciudad) {
        return m_cn->RecCount("clientes",
                              "nombre = '" + nombre + "' AND ciudad = '" + ciudad + "'");
    }
    // A line with the test's server and database in it.
    QString Fill(QString line) {
        return line.replace("SERVER", Server()).replace("DATABASE", m_database);
    }

    std::unique_ptr<ScriptSession> m_session = std::make_unique<ScriptSession>();
    QStringList m_toolbarEvents;
    QStringList m_shown;
};

TEST_P(ScriptFormTest, AFormAndItsToolbarAddEditAndDeleteARecord) {
    Line(R"({"new": "cConexion", "as": "cn"})");
    Line(Fill(R"({"call": "cn.Init", "args": [2, "", "SERVER"]})"));
    Line(Fill(R"({"set": "cn.DBName", "value": "DATABASE"})"));
    Line(R"({"new": "cFichaDB", "as": "cursor"})");
    Line(R"({"call": "cursor.Init", "args": [{"ref": "cn"}, "clientes", "nombre"]})");
    Line(R"({"call": "cursor.MoveFirst"})");
    Line(R"({"new": "cGlobales", "as": "glob"})");
    Line(R"({"set": "glob.oCn", "value": {"ref": "cn"}})");
    EXPECT_EQ(Line(R"({"new": "ScriptForm", "as": "frm"})").value(u"ok"), "frm");
    Line(R"({"set": "frm.ID_User", "value": 7})");
    EXPECT_EQ(
        Line(
            R"({"call": "frm.AddControl", "args": ["get", "getNombre", "nombre"], "as": "getNombre"})")
            .value(u"ok")
            .toObject()
            .value(u"object"),
        "getNombre");
    Line(
        R"({"call": "frm.AddControl", "args": ["get", "getCiudad", "ciudad"], "as": "getCiudad"})");
    Line(R"({"call": "frm.AddFicha", "as": "ficha1"})");
    EXPECT_EQ(Line(R"({"get": "frm.Ficha"})").value(u"ok").toObject().value(u"object"), "ficha1");
    Line(R"({"call": "ficha1.BindControls", "args": [{"ref": "cursor"}]})");
    Line(
        R"({"call": "ficha1.AsociarFicha", "args": [{"ref": "cursor"}, "clientes", 7, 1, {"ref": "glob"}]})");
    EXPECT_EQ(Line(R"({"get": "getNombre.Text"})").value(u"ok"), "Berta");
    EXPECT_EQ(TakeEvents(), QStringList({"EnabledButtons(true,true,true,true,true,true)",
                                         "BeforeShowForm()", "ShowForm()"}));

    // New, type, save.
    EXPECT_EQ(Line(R"({"call": "ficha1.DoAction", "args": [0]})").value(u"ok"), 0);
    EXPECT_EQ(TakeEvents(),
              QStringList({R"(Nuevo(false,"",""))", "NuevoDefaults(false)",
                           "EnabledControls(false)", "ShowForm()", "GoingToEditMode()"}));
    EXPECT_EQ(Line(R"({"get": "ficha1.IsNewRecord"})").value(u"ok"), true);
    Line(R"({"set": "getNombre.Text", "value": "Ana"})");
    Line(R"({"set": "getCiudad.Text", "value": "Lugo"})");
    EXPECT_EQ(Line(R"({"call": "ficha1.Def_Guardar"})").value(u"ok"), true);
    EXPECT_EQ(TakeEvents(),
              QStringList({"SaveDataForNewRecord()", "Saving(false)", "QuitarBloqueos()",
                           "EnabledButtons(true,true,true,true,true,true)", "BeforeShowForm()",
                           "ShowForm()"}));
    EXPECT_EQ(Rows("Ana", "Lugo"), 1);

    // Edit, type, a save the handler vetoes, then the save.
    Line(R"({"call": "ficha1.DoAction", "args": [1]})");
    EXPECT_EQ(TakeEvents(),
              QStringList({"BeforeShowForm()", R"(Modificar(false,""))", "ModificarDefaults()",
                           "EnabledControls(true)", "ShowForm()", "GoingToEditMode()"}));
    Line(R"({"set": "getCiudad.Text", "value": "Vigo"})");
    Line(R"({"handle": "ficha1.Saving", "set": {"lCancel": true}})");
    EXPECT_EQ(Line(R"({"call": "ficha1.Def_Guardar"})").value(u"ok"), false);
    EXPECT_EQ(TakeEvents(), QStringList({"Saving(false)"})); // the veto, then nothing
    EXPECT_EQ(Rows("Ana", "Lugo"), 1);
    EXPECT_EQ(Line(R"({"call": "ficha1.Def_Guardar"})").value(u"ok"), true);
    EXPECT_EQ(TakeEvents(), QStringList({"Saving(false)", "QuitarBloqueos()",
                                         "EnabledButtons(true,true,true,true,true,true)",
                                         "BeforeShowForm()", "ShowForm()"}));
    EXPECT_EQ(Rows("Ana", "Vigo"), 1);
    EXPECT_TRUE(TakeMessages().isEmpty());

    // Delete: refused at the confirmation, then confirmed.
    Line(R"({"answers": [2]})");
    const QString asked = "Confirme, por favor|Normalmente, no debería eliminarse ninguna "
                          "ficha.\r¿Realmente desea eliminar esta ficha?";
    EXPECT_EQ(Line(R"({"call": "ficha1.Def_Borrar"})").value(u"ok"), false);
    EXPECT_EQ(TakeEvents(), QStringList());
    EXPECT_EQ(TakeMessages(), QStringList({asked}));
    EXPECT_EQ(Rows("Ana", "Vigo"), 1);
    EXPECT_EQ(Line(R"({"call": "ficha1.Def_Borrar"})").value(u"ok"), true);
    EXPECT_EQ(TakeEvents(), QStringList({"Borrando(false,true)"}));
    EXPECT_EQ(TakeMessages(), QStringList({asked}));
    EXPECT_EQ(Rows("Ana", "Vigo"), 0);
    EXPECT_EQ(m_cn->RecCount("clientes"), 1);
    EXPECT_EQ(m_cn->RecCount("locks"), 0);
}

ZLX_ON_SERVER_ENGINES(ScriptFormTest);

} // namespace
} // namespace zlx::test
