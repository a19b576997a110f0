// Runs the built `zolmar` program as a user would and checks its exact output.

#include "QtPrinters.h"
#include "ZolmarProgram.h"
#include "zolmar.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using zlx::test::ProgramRun;
using zlx::test::Zolmar;

TEST(ZolmarProgram, VersionAndUsage) {
    const ProgramRun version = Zolmar({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out, "zolmar " + zlx::LibraryVersion().toUtf8() + "\n");
    EXPECT_EQ(Zolmar({"nada"}).exitCode, 2);
    EXPECT_EQ(Zolmar({}).exitCode, 2);
}

TEST(ZolmarProgram, BatchAnswersEachLineInOrder) {
    const QByteArray input = QString::fromUtf8(
                                 R"({"fn": "Num2Text", "args": [0.25]}
{"fn": "Num2Text", "args": [1000001]}
{"fn": "Num2Text", "args": [200, 2, "peseta", "pesetas", "", "", true]}
{"fn": "Num2Text", "args": [-1234.5, 0, "", "", "", "", false, false]}
{"fn": "Long2Text", "args": [2147483647]}
{"fn": "Long2Text", "args": [-21]}
{"fn": "String2ID", "args": ["-0042"]}
{"fn": "ValidarNombre", "args": ["*x", false]}
oops
{"fn": "Num2Text", "args": ["uno"]}
{"fn": "Long2Text", "args": [0]}
)")
                                 .toUtf8();
    const ProgramRun batch = Zolmar({"batch"}, input);
    EXPECT_EQ(batch.exitCode, 0);
    const QStringList lines = QString::fromUtf8(batch.out).split(u'\n');
    const QStringList expected = {
        R"({"ok":"veinticinco céntimos de euro"})",
        R"({"ok":"un millón, un euro"})",
        R"({"ok":"doscientas pesetas"})",
        // With no decimals the half carries into the whole part.
        R"({"ok":"menos mil doscientos treinta y cinco"})",
        R"({"ok":"dos mil ciento cuarenta y siete millones, cuatrocientos ochenta y tres mil )"
        R"(seiscientos cuarenta y siete"})",
        R"({"ok":"menos veintiuno"})",
        R"({"ok":42})",
        R"({"ok":""})",
        R"({"error":"invalid JSON: illegal value"})",
        R"({"error":"Type mismatch"})",
        R"({"ok":"cero"})",
        "",
    };
    ASSERT_EQ(lines.size(), expected.size()) << batch.out.toStdString();
    for (qsizetype i = 0; i < expected.size(); ++i)
        EXPECT_EQ(lines[i], expected[i]) << i;
}

TEST(ZolmarProgram, DemoRunsTheLibraryEndToEnd) {
    const ProgramRun demo = Zolmar({"demo"});
    EXPECT_EQ(demo.exitCode, 0);
    const QStringList lines = QString::fromUtf8(demo.out).split(u'\n');
    ASSERT_GT(lines.size(), 3);
    EXPECT_EQ(lines[0], "ZolmarDataComponents " + zlx::LibraryVersion());
    EXPECT_TRUE(lines[1].startsWith("Registro de la biblioteca: /")) << lines[1].toStdString();
    EXPECT_TRUE(lines[1].endsWith("/ZolmarDataCtl.log")) << lines[1].toStdString();
    EXPECT_TRUE(lines[2].endsWith(" Procedimiento de inicio realizado con éxito"))
        << lines[2].toStdString();
    for (const char* line :
         {"Interruptores: HabilitarRegistro_LogFichas=False CtlFichaReadOnly=False "
          "AutoReconectar=False",
          "Num2Text(1234.56) = mil doscientos treinta y cuatro euros con cincuenta y seis céntimos",
          "Num2Text(21000, pesetas, femenino) = veintiuna mil pesetas",
          "Long2Text(1515) = mil quinientos quince", "ValorEnLista(3, Array(1, 2, 3)) = True",
          "ValorEnLista(\"3\", Array(1, 2, 3)) = False", "String2ID(\"-123x\") = 123",
          "[información] Información",
          "Importe: mil doscientos treinta y cuatro euros con cincuenta y seis céntimos",
          "Servidor embebido: versión 8", "Nuevo cliente: ZolmarID = 4", "RecCount(clientes) = 4",
          "Filas cambiadas en Sevilla: 2",
          "Total: 3146,25 = tres mil ciento cuarenta y seis euros con veinticinco céntimos",
          "DBF exportado: 4 registros", "  O'Brien|45", "  Pérez|80,25"})
        EXPECT_TRUE(lines.contains(QString::fromUtf8(line))) << line;
    // The message's markup line break becomes a line of its own.
    const qsizetype amount = lines.indexOf(
        "Importe: mil doscientos treinta y cuatro euros con cincuenta y seis céntimos");
    ASSERT_GE(amount, 0);
    EXPECT_EQ(lines.value(amount + 1), QString::fromUtf8("Operación terminada."));
}

TEST(ZolmarProgram, SqlShellKeepsOneConnectionAcrossLines) {
    QTemporaryDir folder;
    const QStringList server = {"sql", "--provider", "2", "--server", "sqlite:" + folder.path(),
                                "--db"};
    EXPECT_EQ(Zolmar(server + QStringList{"master", "CREATE DATABASE ventas"}).out,
              "{\"ok\":true,\"nTally\":0}\n");
    const QByteArray input =
        R"j({"sql": "CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), n VARCHAR(9))", "mode": 1}
{"sql": "BEGIN TRANSACTION uno", "mode": 1}
{"sql": "INSERT INTO t (n) VALUES ('ana')", "mode": 9}
{"sql": "INSERT INTO t (n) VALUES ('luis')", "mode": 9}
{"sql": "SELECT @@TRANCOUNT", "mode": 2}
{"sql": "COMMIT TRANSACTION uno", "mode": 1}
{"sql": "UPDATE t SET n = 'x' WHERE ZolmarID = 2", "mode": 0}
{"sql": "SELECT ZolmarID, n FROM t ORDER BY 1", "mode": 4}
{"sql": "SELECT ZolmarID, n FROM t ORDER BY 1", "mode": 7}
nada
)j";
    const ProgramRun run = Zolmar(server + QStringList{"ventas"}, input);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, R"j({"ok":true,"nTally":0}
{"ok":true,"nTally":0}
{"ok":1}
{"ok":2}
{"ok":1}
{"ok":true,"nTally":0}
{"ok":true,"nTally":1}
{"ok":[[1,"ana"],[2,"x"]]}
{"ok":{"columns":["ZolmarID","n"],"rows":[[1,"ana"],[2,"x"]]}}
{"error":"a line must be {\"sql\": TEXT, \"mode\": M}"}
)j");

    const ProgramRun failed =
        Zolmar(server + QStringList{"ventas", "--mode", "2", "SELECT x FROM nada"});
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_TRUE(failed.out.startsWith(
        R"j({"error":{"GetLastError":13,"native":208,"description":"El nombre de objeto 'nada' no es válido.","messages":["Descripción del error:)j"))
        << failed.out.toStdString();
}

TEST(ZolmarProgram, SqlShellAnswersStatementsWithoutRowsInTheModesThatAnswerRows) {
    QTemporaryDir folder;
    const QStringList server = {
        "sql",  "--provider", "2",          "--server", "sqlite:" + folder.path(),
        "--db", "ventas",     "--create-db"};
    const QByteArray input = R"j({"sql": "CREATE TABLE t (n INT)", "mode": 4}
{"sql": "INSERT INTO t VALUES (1)", "mode": 3}
{"sql": "UPDATE t SET n = n + 1", "mode": 4}
{"sql": "UPDATE t SET n = n + 1", "mode": 5}
{"sql": "SELECT n FROM t WHERE n > 9", "mode": 4}
{"sql": "SELECT n FROM t", "mode": 4}
{"sql": "SELECT x FROM nada", "mode": 4}
)j";
    const ProgramRun run = Zolmar(server, input);
    EXPECT_EQ(run.exitCode, 0);
    const QList<QByteArray> lines = run.out.split('\n');
    ASSERT_EQ(lines.size(), 8) << run.out.toStdString();
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(lines[i], R"j({"ok":null,"rowset":false})j") << i;
    EXPECT_EQ(lines[4], R"j({"ok":0})j");
    EXPECT_EQ(lines[5], R"j({"ok":[[3]]})j");
    // Any other failure of a mode that answers rows is still an error.
    EXPECT_TRUE(lines[6].startsWith(R"j({"error":{"GetLastError":13,"native":208,)j"))
        << lines[6].toStdString();
}
