// `zolmar dbf create` then `zolmar dbf dump`: the JSON that comes back.

#include "DbfCommand.h"

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
