// `zolmar dbf create` then `zolmar dbf dump`: the JSON that comes back.

#include "DbfCommand.h"

#include "DbfForeignShapes.h"
#include "DbfTestFiles.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace zlx {
namespace {

struct CommandResult {
    int code;
    QByteArray out;
    QByteArray err;
};

CommandResult RunCommand(const QStringList& args, const QByteArray& input = {}) {
    QByteArray inBytes = input, outBytes, errBytes;
    QBuffer in(&inBytes), out(&outBytes), err(&errBytes);
    in.open(QIODevice::ReadOnly);
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    const int code = RunDbfCommand(args, in, out, err);
    return {code, outBytes, errBytes};
}

TEST(DbfCommand, CreateThenDumpGivesTheSameTable) {
    const QString path = test::ScratchPath(QStringLiteral("cli.dbf"));
    const QByteArray input = R"({"fields": [
        {"name": "name", "type": "C", "length": 6, "decimals": 0},
        {"name": "qty", "type": "N", "length": 5, "decimals": 0},
        {"name": "price", "type": "N", "length": 12, "decimals": 4},
        {"name": "ratio", "type": "N", "length": 10, "decimals": 6},
        {"name": "day", "type": "D", "length": 8, "decimals": 0},
        {"name": "ok", "type": "L", "length": 1, "decimals": 0}],
      "records": [["Pe\"ña", 42, "1234.5678", 0.5, "2024-02-29", true],
                  [null, -7, 3, null, null, false]]})";
    const CommandResult created = RunCommand({"create", path}, input);
    ASSERT_EQ(created.code, 0) << created.err.toStdString();

    const CommandResult dumped = RunCommand({"dump", path});
    ASSERT_EQ(dumped.code, 0) << dumped.err.toStdString();
    const std::string expected =
        R"({"version": 3, "fields": [)"
        R"({"name": "NAME", "type": "C", "length": 6, "decimals": 0}, )"
        R"({"name": "QTY", "type": "N", "length": 5, "decimals": 0}, )"
        R"({"name": "PRICE", "type": "N", "length": 12, "decimals": 4}, )"
        R"({"name": "RATIO", "type": "N", "length": 10, "decimals": 6}, )"
        R"({"name": "DAY", "type": "D", "length": 8, "decimals": 0}, )"
        R"({"name": "OK", "type": "L", "length": 1, "decimals": 0}], "records": [)"
        "\n"
        R"( ["Pe\"ña ", 42, "1234.5678", 0.5, "2024-02-29", true],)"
        "\n"
        R"( ["      ", -7, "3.0000", 0, null, false]]})"
        "\n";
    EXPECT_EQ(dumped.out.toStdString(), expected);
}

TEST(DbfCommand, DumpPrintsEveryValueOfTablesOtherProgramsWrite) {
    for (const test::ForeignShape& shape : test::ForeignShapes()) {
        const CommandResult dumped = RunCommand({"dump", test::WriteShape(shape)});
        EXPECT_EQ(dumped.code, 0) << shape.name;
        EXPECT_EQ(dumped.err.toStdString(), "") << shape.name;
        const QByteArray records = "\"records\": [" + shape.dumpedRecords + "]}\n";
        EXPECT_TRUE(dumped.out.endsWith(records)) << shape.name << "\n"
                                                  << dumped.out.toStdString() << "\nexpected\n"
                                                  << records.toStdString();
    }
}

TEST(DbfCommand, DumpDescribesLongAndVisualFoxProFieldsAndTakesACodePage) {
    CommandResult dumped =
        RunCommand({"dump", test::WriteShape(test::ForeignShapeNamed("longchar"))});
    EXPECT_TRUE(dumped.out.startsWith(
        R"({"version": 245, "fields": [{"name": "TEXT", "type": "C", "length": 300, "decimals": 0}, )"))
        << dumped.out.toStdString();
    dumped = RunCommand({"dump", test::WriteShape(test::ForeignShapeNamed("visualfoxpro"))});
    EXPECT_TRUE(
        dumped.out.contains(R"({"name": "STAMP", "type": "T", "length": 8, "decimals": 0}, )"));
    EXPECT_FALSE(dumped.out.contains("_NullFlags"));

    // The Cyrillic word of a file marked 1251, read as 866 on request.
    const QString cyrillic = test::WriteShape(test::ForeignShapeNamed("cp1251"));
    dumped = RunCommand({"dump", "--codepage", "866", cyrillic});
    EXPECT_EQ(dumped.code, 0);
    EXPECT_TRUE(dumped.out.endsWith("\"records\": [\n [\"╠шЁ\"]]}\n")) << dumped.out.toStdString();
    dumped = RunCommand({"dump", "--codepage", "99999", cyrillic});
    EXPECT_EQ(dumped.code, 1);
    EXPECT_EQ(dumped.err, QByteArray("zolmar dbf: bad code page: Error abriendo el fichero DBF: La "
                                     "página de códigos 99999 no está disponible.\n"));
}

TEST(DbfCommand, ARefusedFileExitsWithItsMessage) {
    test::HandTable t;
    t.version = 0x02;
    t.fields = {{"CODE", 'C', 4}};
    const QString path = test::ScratchPath(QStringLiteral("dbase2.dbf"));
    test::WriteAll(path, test::BuildTable(t));
    const CommandResult dumped = RunCommand({"dump", path});
    EXPECT_EQ(dumped.code, 1);
    EXPECT_EQ(dumped.out, QByteArray());
    EXPECT_EQ(dumped.err.toStdString(),
              "zolmar dbf: cannot open " + path.toStdString() +
                  ": Error abriendo el fichero DBF: No puede leerse el fichero DBF: es de la "
                  "versión dBASE II (0x02), que no se admite.\n");
}

TEST(DbfCommand, FailuresGiveAnExitCodeAndAMessage) {
    const QString path = test::ScratchPath(QStringLiteral("bad.dbf"));
    CommandResult result = RunCommand({"create", path}, "not json");
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.err.startsWith("zolmar dbf create: the input is not a JSON object"));

    result =
        RunCommand({"create", path}, R"({"fields": [{"name": "X", "type": "Q", "length": 1}]})");
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err, QByteArray("zolmar dbf: bad field: Error creando DBF: Error en "
                                     "'cDBF.AddColumn()': tipo <Q> no soportado.'\n"));

    result = RunCommand({"dump", test::ScratchPath(QStringLiteral("none.dbf"))});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.err.startsWith("zolmar dbf: cannot open "));
    EXPECT_EQ(RunCommand({"list"}).code, 2);
}

} // namespace
} // namespace zlx
