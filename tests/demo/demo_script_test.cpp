// The demo's client form driven through the script language (zolmar-demo --json) on each
// server engine: the toolbar's events reach the script before the form handles them, controls
// are typed into by name, the form's own checks and messages answer, and the database and the
// change log show what was done.

#include "QtPrinters.h"
#include "connection/cConexion.h"
#include "support/EngineTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <unistd.h>

using namespace zlx;
using namespace zlx::test;

namespace {

class DemoScript : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        m_demo.setProcessChannelMode(QProcess::SeparateChannels);
        m_demo.start(ZOLMAR_DEMO_BIN, {"--json"});
        ASSERT_TRUE(m_demo.waitForStarted(30000));
    }
    void TearDown() override {
        if (m_demo.state() != QProcess::NotRunning) {
            m_demo.closeWriteChannel();
            if (!m_demo.waitForFinished(60000)) m_demo.kill();
        }
        if (Stopped()) return;
        cConexion cleanup;
        if (cleanup.Init(zlxDataProvider_MSDE, {}, Server()))
            cleanup.Execute("DROP DATABASE " + m_database, 0, Variant(0), true);
    }

    // One line to the demo and its answer.
    QJsonObject Send(QString line) {
        line.replace("SERVER", Server()).replace("DATABASE", m_database);
        m_demo.write(line.toUtf8() + '\n');
        while (!m_demo.canReadLine())
            if (!m_demo.waitForReadyRead(120000)) {
                ADD_FAILURE() << "no answer to " << line.toStdString() << ": "
                              << m_demo.readAllStandardError().toStdString();
                return {};
            }
        return QJsonDocument::fromJson(m_demo.readLine()).object();
    }
    // The same, when an error in the answer fails the test.
    QJsonObject Line(const QString& line) {
        const QJsonObject parsed = Send(line);
        EXPECT_FALSE(parsed.contains(u"error"))
            << line.toStdString() << " -> " << parsed.value(u"error").toString().toStdString();
        for (const QJsonValue& value : parsed.value(u"events").toArray())
            m_events << value.toObject().value(u"name").toString();
        for (const QJsonValue& message : parsed.value(u"messages").toArray())
            m_messages << message.toObject().value(u"title").toString() + u'|' +
                              message.toObject().value(u"text").toString();
        return parsed;
    }
    QJsonValue Ok(const QString& line) { return Line(line).value(u"ok"); }
    QStringList TakeEvents() { return std::exchange(m_events, {}); }
    QStringList TakeMessages() { return std::exchange(m_messages, {}); }
    Variant Value(const QString& sql) {
        cConexion cn;
        EXPECT_TRUE(cn.Init(zlxDataProvider_MSDE, m_database, Server()));
        return cn.Execute(sql, zlxExecuteReturn_Value, Variant("ninguno"));
    }

    QString m_database = "demojson" + QString::number(getpid());
    QProcess m_demo;
    QStringList m_events;
    QStringList m_messages;
};

TEST_P(DemoScript, AnEditingSessionOfTheClientFormIsScripted) {
    Line(R"({"new": "ClientesDemo", "as": "demo"})");
    Line(R"({"call": "demo.Open", "args": ["SERVER", "DATABASE"]})");
    Line(R"({"get": "demo.Ficha", "as": "ficha"})");
    Line(R"({"call": "demo.Control", "args": ["txtNombre"], "as": "nombre"})");
    EXPECT_EQ(Ok(R"({"get": "nombre.Text"})"), "García Pérez, Ana");
    // The notes are a field of the form: the toolbar shows no Comentario button.
    EXPECT_EQ(Ok(R"({"call": "ficha.BtnVisible", "args": [4]})"), false);
    EXPECT_EQ(Ok(R"({"call": "ficha.BtnVisible", "args": [3]})"), true);

    // Edit the name and save through the form's button: the toolbar's events in order, the
    // row and the change log the form lists.
    Line(R"({"call": "ficha.DoAction", "args": [1]})");
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeShowForm", "Modificar", "ModificarDefaults",
                                         "EnabledControls", "ShowForm", "GoingToEditMode"}));
    Line(R"({"set": "nombre.Text", "value": "García Pérez, Ana María"})");
    EXPECT_EQ(Ok(R"({"call": "demo.Guardar"})"), true);
    EXPECT_EQ(TakeEvents().mid(0, 2), QStringList({"Saving", "QuitarBloqueos"}));
    EXPECT_EQ(Value("SELECT nombre FROM clientes WHERE codigo='C0001'").ToString(),
              "García Pérez, Ana María");
    const QJsonArray log = Ok(R"({"get": "demo.ChangeLog"})").toArray();
    ASSERT_EQ(log.size(), 1);
    EXPECT_TRUE(
        log[0].toString().contains("nombre: «García Pérez, Ana» → «García Pérez, Ana María»"))
        << log[0].toString().toStdString();

    // A new client without a name: the form's own check refuses the save and says why.
    Line(R"({"call": "ficha.DoAction", "args": [0]})");
    EXPECT_EQ(Ok(R"({"get": "ficha.IsNewRecord"})"), true);
    EXPECT_EQ(Ok(R"({"call": "demo.Guardar"})"), false);
    EXPECT_EQ(TakeMessages().join('\n').toStdString(),
              "No se puede guardar el cliente|El <B>nombre</B> del cliente no puede quedar vacío.");
    EXPECT_EQ(Ok(R"({"call": "demo.Cancelar"})"), true);
    EXPECT_EQ(Ok(R"({"get": "ficha.IsShowing"})"), true);

    // Delete the shown client, confirming the question with its check box.
    const std::int32_t clients = Value("SELECT COUNT(*) FROM clientes").ToLong();
    const std::int32_t shown = Ok(R"({"get": "demo.CurrentID"})").toInt();
    TakeEvents();
    Line(R"({"call": "ficha.DoAction", "args": [2]})");
    EXPECT_TRUE(TakeEvents().contains("Borrando"));
    EXPECT_EQ(Value("SELECT COUNT(*) FROM clientes").ToLong(), clients - 1);
    EXPECT_EQ(
        Value("SELECT COUNT(*) FROM clientes WHERE ZolmarID=" + QString::number(shown)).ToLong(),
        0);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM locks").ToLong(), 0);
}

TEST_P(DemoScript, AnUnreachableDatabaseIsAScriptError) {
    Line(R"({"new": "ClientesDemo", "as": "demo"})");
    EXPECT_FALSE(Send(R"({"call": "demo.Open", "args": ["postgres:host=127.0.0.1 port=1", "x"]})")
                     .value(u"error")
                     .toString()
                     .isEmpty());
    // The demo goes on answering, and says what is missing.
    EXPECT_TRUE(Send(R"({"get": "demo.Ficha"})")
                    .value(u"error")
                    .toString()
                    .contains("the client form is not open (call Open)"));
}

ZLX_ON_SERVER_ENGINES(DemoScript);

} // namespace
