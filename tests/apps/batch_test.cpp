#include "BatchFunctions.h"
#include "BatchRunner.h"
#include "QtPrinters.h"

#include <QTemporaryFile>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

QByteArray Answer(const char* line) {
    return AnswerBatchLine(QByteArray(line), LibraryBatchFunctions());
}

} // namespace

TEST(Batch, LibraryFunctionsWithTheirDefaults) {
    EXPECT_EQ(Answer(R"({"fn": "Num2Text", "args": [1.5]})"),
              QString::fromUtf8(R"({"ok":"un euro con cincuenta céntimos"})").toUtf8());
    EXPECT_EQ(Answer(R"({"fn":"Num2Text","args":[21000,2,"peseta","pesetas","","",true,true]})"),
              R"({"ok":"veintiuna mil pesetas"})");
    EXPECT_EQ(Answer(R"({"fn":"Num2Text","args":[12.5,2,"","","","",false,false]})"),
              R"({"ok":"doce  con cincuenta"})");
    // Integer parameters convert as CLng does: 2.5 rounds to 2 decimals.
    EXPECT_EQ(Answer(R"({"fn":"Num2Text","args":[3.14159,2.5,"metro","metros"]})"),
              QString::fromUtf8(R"({"ok":"tres metros con catorce céntimos"})").toUtf8());
    EXPECT_EQ(Answer(R"({"fn":"Long2Text","args":[1515]})"), R"({"ok":"mil quinientos quince"})");
    EXPECT_EQ(Answer(R"({"fn":"Long2Text","args":["21"]})"), R"({"ok":"veintiuno"})");
    EXPECT_EQ(Answer(R"({"fn":"String2ID","args":["-123x"]})"), R"({"ok":123})");
    EXPECT_EQ(Answer(R"({"fn":"String2ID","args":[-45]})"), R"({"ok":45})");
    EXPECT_EQ(Answer(R"({"fn":"ValidarNombre","args":["Pérez"]})"), R"({"ok":""})");
    EXPECT_NE(Answer(R"({"fn":"ValidarNombre","args":["-5"]})"), R"({"ok":""})");
    EXPECT_EQ(Answer(R"({"fn":"ValidarNombre","args":["-5",true,true,true,false]})"),
              R"({"ok":""})");
}

TEST(Batch, SqlTextFunctions) {
    EXPECT_EQ(Answer(R"({"fn":"PonComillas","args":["O'Neil  "]})"), R"({"ok":"'O''Neil'"})");
    EXPECT_EQ(Answer(R"({"fn":"PonComillas","args":["gar",3]})"), R"({"ok":"'%gar%'"})");
    EXPECT_EQ(Answer(R"({"fn":"PonComillas","args":[null]})"), R"({"ok":"''"})");
    EXPECT_EQ(Answer(R"({"fn":"SoloFecha","args":["f"]})"),
              R"j({"ok":"CAST(FLOOR(CAST(f AS FLOAT)) AS DATETIME)"})j");
    EXPECT_TRUE(Answer(R"({"fn":"SoloHora","args":["f",true]})").contains("DATEPART(ss,f)"));
    EXPECT_EQ(Answer(R"({"fn":"FiltroPorPalabras","args":["c","**casa roja"]})"),
              R"j({"ok":" (((c) LIKE '%casa%') AND ((c) LIKE '%roja%'))"})j");
    EXPECT_EQ(Answer(R"({"fn":"FiltroPorPalabras","args":["c","casa"]})"), R"({"ok":""})");
    EXPECT_EQ(Answer(R"({"fn":"Str2Where","args":[0,"gar*cia","C.nombre"]})"),
              R"({"ok":" AND C.nombre LIKE 'gar%cia'"})");
    EXPECT_EQ(Answer(R"({"fn":"Str2Where","args":[0,"gar",""]})"), R"({"ok":null})");
    EXPECT_EQ(Answer(R"({"fn":"CheckBoxes2Where","args":[[true,false,true],"estado",1,[1,2,4]]})"),
              R"({"ok":" AND (estado & 5)>0"})");
    EXPECT_EQ(Answer(R"({"fn":"CheckBoxes2Where","args":[[true,false,true],"estado",0,[1,2,4]]})"),
              R"j({"ok":" AND estado IN (1,4)"})j");
    EXPECT_EQ(
        Answer(
            R"({"fn":"ReplaceWhere","args":["SELECT * FROM t WHERE a=1 AND b=2","a=1 AND ",[" AND c=3"]]})"),
        R"({"ok":"SELECT * FROM t WHERE b=2 AND c=3"})");
}

TEST(Batch, BadLinesAnswerAnErrorText) {
    EXPECT_TRUE(Answer("").startsWith(R"({"error":"invalid JSON: )"));
    EXPECT_TRUE(Answer(R"({"fn": "Num2Text", "args": [1)").startsWith(R"({"error":"invalid JSON)"));
    EXPECT_EQ(Answer("[1]"), R"({"error":"a call must be a JSON object"})");
    EXPECT_EQ(Answer(R"({"args": [1]})"), R"({"error":"\"fn\" must be a function name"})");
    EXPECT_EQ(Answer(R"({"fn": "Num2Text", "args": 1})"),
              R"({"error":"\"args\" must be an array"})");
    EXPECT_EQ(Answer(R"({"fn": "Nada", "args": []})"), R"({"error":"unknown function \"Nada\""})");
    EXPECT_EQ(Answer(R"({"fn": "Long2Text"})"),
              R"({"error":"Long2Text takes 1 arguments, got 0"})");
    EXPECT_EQ(Answer(R"({"fn": "Num2Text", "args": [1,2,"","","","",false,true,0]})"),
              R"({"error":"Num2Text takes 1 to 8 arguments, got 9"})");
    EXPECT_EQ(Answer(R"({"fn": "Long2Text", "args": ["doce"]})"), R"({"error":"Type mismatch"})");
    EXPECT_EQ(Answer(R"({"fn": "Long2Text", "args": [3000000000]})"), R"({"error":"Overflow"})");
    EXPECT_EQ(Answer(R"({"fn": "Num2Text", "args": [null]})"),
              R"({"error":"Invalid use of Null"})");
    EXPECT_EQ(Answer(R"({"fn": "Num2Text", "args": [{"hex": "0"}]})"),
              R"({"error":"invalid hex \"0\""})");
}

TEST(Batch, FunctionsAreAddedByName) {
    BatchFunctions functions;
    functions.Add("Suma", 2, 3, [](const BatchArguments& a) {
        return Variant(a.Double(0) + a.Double(1) + (a.Given(2) ? a.Double(2) : 100.0));
    });
    EXPECT_EQ(AnswerBatchLine(R"({"fn":"Suma","args":[1,2]})", functions), R"({"ok":103})");
    EXPECT_EQ(AnswerBatchLine(R"({"fn":"Suma","args":[1,2,3]})", functions), R"({"ok":6})");
    EXPECT_EQ(AnswerBatchLine(R"({"fn":"Num2Text","args":[1]})", functions),
              R"({"error":"unknown function \"Num2Text\""})");
}

TEST(Batch, RunAnswersEveryLineInOrder) {
    QTemporaryFile input, output;
    ASSERT_TRUE(input.open());
    ASSERT_TRUE(output.open());
    input.write("{\"fn\":\"Long2Text\",\"args\":[1]}\r\n"
                "not json\n"
                "\n"
                "{\"fn\":\"Long2Text\",\"args\":[100]}"); // no line end on the last line
    input.close();
    output.close();
    std::FILE* in = std::fopen(input.fileName().toLocal8Bit().constData(), "r");
    std::FILE* out = std::fopen(output.fileName().toLocal8Bit().constData(), "w");
    ASSERT_TRUE(in && out);
    EXPECT_EQ(RunBatch(in, out, LibraryBatchFunctions(), false), 0);
    std::fclose(in);
    std::fclose(out);
    ASSERT_TRUE(output.open());
    const QList<QByteArray> lines = output.readAll().split('\n');
    ASSERT_EQ(lines.size(), 5); // four answers and the final line end
    EXPECT_EQ(lines[0], R"({"ok":"un"})");
    EXPECT_TRUE(lines[1].startsWith(R"({"error":"invalid JSON)"));
    EXPECT_TRUE(lines[2].startsWith(R"({"error":"invalid JSON)"));
    EXPECT_EQ(lines[3], R"({"ok":"cien"})");
    EXPECT_EQ(lines[4], "");
}

TEST(Batch, TypeMappingsAndVbNumbers) {
    EXPECT_EQ(Answer(R"({"fn":"DatoADO2ZLX","args":[131]})"), R"({"ok":15})");
    EXPECT_EQ(Answer(R"({"fn":"DatoADO2ZLX","args":[999,5,2]})"), R"({"ok":0})");
    EXPECT_EQ(Answer(R"({"fn":"DatoZLX2ADO","args":[10,1]})"), R"({"ok":7})");
    EXPECT_EQ(Answer(R"({"fn":"DatoZLX2ADO","args":[10]})"), R"({"ok":133})");
    EXPECT_EQ(Answer(R"({"fn":"DatoADO2OCX","args":[135]})"), R"({"ok":2})");
    EXPECT_EQ(Answer(R"({"fn":"DatoZLX2OCX","args":[14]})"), R"({"ok":1})");
    EXPECT_EQ(Answer(R"({"fn":"DatoSQL2ZLX","args":[61]})"), R"({"ok":12})");
    // A leading number is read as VB's Val reads it, blanks inside it skipped.
    EXPECT_NE(Answer(R"({"fn":"ValidarNombre","args":["0 9 Pérez"]})"), R"({"ok":""})");
    EXPECT_EQ(Answer(R"({"fn":"Str2Where","args":[7,"5-2 2, 1)) ; DELETE FROM t","c"]})"),
              R"j({"ok":" AND ((c BETWEEN 5 AND 22) OR c IN ('1)) ; DELETE FROM t'))"})j");
}
