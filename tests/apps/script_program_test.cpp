// Drives the built `zolmar script` program as another language would: a connection on a
// server engine, a database, a table, rows in and out, a result object used by its name, a
// message box answered from the queue, events and a handler, and errors that leave the
// session going.

#include "QtPrinters.h"
#include "support/EngineTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class ScriptProgram : public zlx::test::EngineTest {
protected:
    // Runs the lines (%SERVER% and %DB% replaced) through one `zolmar script`; the answer lines.
    QStringList Run(const QStringList& lines) {
        QProcess process;
        process.start(QStringLiteral(ZOLMAR_BIN), {QStringLiteral("script")});
        for (QString line : lines)
            process.write(line.replace("%SERVER%", Server()).replace("%DB%", m_database).toUtf8() +
                          '\n');
        process.closeWriteChannel();
        if (!process.waitForFinished(120000)) return {};
        EXPECT_EQ(process.exitCode(), 0);
        QStringList answers = QString::fromUtf8(process.readAllStandardOutput()).split(u'\n');
        if (answers.endsWith(QString())) answers.removeLast();
        return answers;
    }

    // The answer without its events (they come last).
    static QString Head(const QString& answer) {
        const qsizetype events = answer.indexOf(QStringLiteral(",\"events\":"));
        return events < 0 ? answer : answer.left(events) + u'}';
    }
    // The arguments of each event of that name in the answer.
    static QJsonArray Events(const QString& answer, const QString& name) {
        QJsonArray args;
        const QJsonObject parsed = QJsonDocument::fromJson(answer.toUtf8()).object();
        for (const QJsonValue event : parsed.value("events").toArray())
            if (event.toObject().value("name") == name) args.append(event.toObject().value("args"));
        return args;
    }
    static QJsonArray Json(const char* text) { return QJsonDocument::fromJson(text).array(); }

    QString m_database = QStringLiteral("zscript") + QString::number(getpid());
};

TEST_P(ScriptProgram, DrivesAConnectionAndItsResultsByName) {
    const QStringList lines = {
        R"({"new": "cConexion", "as": "cn"})",
        R"({"call": "cn.Init", "args": [2, "", "%SERVER%"]})",
        R"({"call": "cn.Execute", "args": ["IF EXISTS (SELECT name FROM sysdatabases WHERE name='%DB%') DROP DATABASE %DB%"]})",
        R"({"call": "cn.Execute", "args": ["CREATE DATABASE %DB%", 1]})",
        R"({"set": "cn.DBName", "value": "%DB%"})",
        R"({"get": "cn.DBName"})",
        R"j({"call": "cn.Execute", "args": ["CREATE TABLE clientes (ZolmarID INT IDENTITY(1,1) NOT NULL, Nombre VARCHAR(40), Saldo MONEY, Alta DATETIME)"]})j",
        R"({"call": "cn.Insert", "args": ["clientes", ["Nombre", "Saldo", "Alta"], ["Pérez", 10.5, {"date": "2024-02-29"}]]})",
        R"({"call": "cn.Insert", "args": ["clientes", ["Nombre", "Saldo"], ["Gómez", -3]]})",
        R"({"call": "cn.Execute", "args": ["SELECT Nombre, Saldo, Alta FROM clientes ORDER BY Nombre", 6]})",
        R"({"call": "cDatos1.RecCount"})",
        R"({"get": "cDatos1.Field", "args": ["Nombre"]})",
        R"({"call": "cDatos1.MoveNext"})",
        R"({"get": "cDatos1.Field", "args": ["alta"]})",
        R"({"call": "cDatos1.Sum", "args": ["Saldo"]})",
        R"({"call": "cn.SQLSelect2Vars", "args": ["SELECT Nombre, Saldo FROM clientes WHERE ZolmarID = 2", null, null]})",
        R"({"call": "cn.Execute", "args": ["SELECT COUNT(*) FROM clientes", 2]})",
        R"({"new": "cAppUI", "as": "ui"})",
        R"({"answers": [2]})",
        R"({"call": "ui.YN_Message", "args": ["¿Borrar a Gómez?"]})",
        R"({"call": "cn.Execute", "args": ["SELECT * FROM nada"]})",
        R"({"call": "cn.GetLastSQLNativeError"})",
        R"({"new": "cDatos", "as": "d"})",
        R"({"call": "d.AsyncQuery", "args": ["SELECT Nombre FROM clientes", {"ref": "cn"}]})",
        R"({"handle": "d.QueryInProgress", "set": {"lUserCancel": true}})",
        R"({"call": "d.AsyncQuery", "args": ["WAITFOR DELAY '00:00:05' ; SELECT Nombre FROM clientes"]})",
        R"({"new": "cNoExiste"})",
        R"({"call": "cn.Ejecutar", "args": ["SELECT 1"]})",
        R"({"call": "cn.Execute"})",
        R"({"call": "cn.Execute", "args": ["SELECT 1", "seis"]})",
        R"({"call": "d.LoadcDatos", "args": [{"ref": "cn"}]})",
        R"({"set": "cn.DBName", "value": "master"})",
        R"({"call": "cn.Execute", "args": ["DROP DATABASE %DB%", 1]})",
    };
    const QStringList answers = Run(lines);
    ASSERT_EQ(answers.size(), lines.size()) << answers.join('\n').toStdString();
    const QStringList expected = {
        R"({"ok":"cn"})",
        R"({"ok":true})",
        R"({"ok":true})",
        R"({"ok":true})",
        R"({"ok":true})",
        R"({"ok":"%DB%"})",
        R"({"ok":true})",
        R"({"ok":0})",
        R"({"ok":0})",
        R"({"ok":{"object":"cDatos1"}})",
        R"({"ok":2})",
        R"({"ok":"Gómez"})",
        R"({"ok":2})",
        R"({"ok":{"date":"2024-02-29 00:00:00"}})",
        R"({"ok":7.5})",
        R"({"ok":true,"out":["Gómez",-3]})",
        R"({"ok":2})",
        R"({"ok":"ui"})",
        R"({"ok":true})",
        R"({"ok":false,"messages":[{"icon":32514,"text":"¿Borrar a Gómez?","buttons":4,"title":"Confirmación"}]})",
        "", // the engine's error: checked below
        R"({"ok":208})",
        R"({"ok":"d"})",
        R"({"ok":2})",
        R"({"ok":true})",
        R"({"ok":0})",
        R"({"error":"unknown class \"cNoExiste\""})",
        R"({"error":"cConexion has no member \"Ejecutar\""})",
        R"({"error":"cConexion.Execute takes 1 to 5 arguments, got 0"})",
        R"({"error":"argument 2: Type mismatch"})",
        R"({"error":"argument 1: a cConexion is not the object this member takes"})",
        R"({"ok":true})",
        R"({"ok":true})",
    };
    ASSERT_EQ(expected.size(), lines.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        if (expected[i].isEmpty()) continue;
        EXPECT_EQ(Head(answers[i]), QString(expected[i]).replace("%DB%", m_database)) << i;
    }

    // The asynchronous open reports itself through the connection's event.
    EXPECT_EQ(Events(answers[1], "ConnectComplete"), Json(R"([[true, ""]])"));
    // A failing statement shows the library's error box; the answer carries it.
    const QJsonObject failed = QJsonDocument::fromJson(answers[20].toUtf8()).object();
    EXPECT_EQ(failed.value("ok"), 0);
    const QJsonArray messages = failed.value("messages").toArray();
    ASSERT_EQ(messages.size(), 1) << answers[20].toStdString();
    EXPECT_EQ(messages[0].toObject().value("icon"), 32513);
    EXPECT_EQ(messages[0].toObject().value("title"), "Se ha detectado un error");
    EXPECT_TRUE(messages[0].toObject().value("text").toString().contains("SELECT * FROM nada"))
        << answers[20].toStdString();
    // The table's progress while it loads; cancelled from the handler at the first report.
    EXPECT_EQ(Events(answers[23], "QueryInProgress"),
              Json(R"([["Realizada consulta; esperando al servidor...", 0],
                       ["Recuperando datos...", 0], ["Completado.", 2]])"));
    EXPECT_EQ(Events(answers[25], "QueryInProgress"),
              Json(R"([["Realizada consulta; esperando al servidor...", 0]])"));
}

ZLX_ON_SERVER_ENGINES(ScriptProgram);

} // namespace
