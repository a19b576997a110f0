#include "QtPrinters.h"
#include "connection/WhereBuilder.h"

#include <QObject>
#include <QVariant>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

QString Typed(const QString& text, int mode = zlxWhere_Like) {
    QObject control;
    control.setProperty("Alias", "C");
    control.setProperty("Campo", mode == zlxWhere_Codigos ? "codigo" : "nombre");
    control.setProperty("Text", text);
    return WhereBuilder::ControlCondition(control, mode);
}

} // namespace

TEST(Str2Where, SearchLanguageInLikeMode) {
    EXPECT_EQ(Typed("gar"), " AND C.nombre LIKE 'gar%'");
    EXPECT_EQ(Typed("  gar "), " AND C.nombre LIKE 'gar%'");
    EXPECT_EQ(Typed("*gar*"), " AND C.nombre LIKE '%gar%'");
    EXPECT_EQ(Typed("gar*cia"), " AND C.nombre LIKE 'gar%cia'");
    EXPECT_EQ(Typed("10%"), " AND C.nombre LIKE '10|%' ESCAPE '|'");
    EXPECT_EQ(Typed("a_b"), " AND C.nombre LIKE 'a|_b%' ESCAPE '|'");
    EXPECT_EQ(Typed("|*"), " AND C.nombre LIKE '*'");
    EXPECT_EQ(Typed("a|*b"), " AND C.nombre LIKE 'a*b'");
    EXPECT_EQ(Typed("O'Neil"), " AND C.nombre LIKE 'O''Neil%'");
    EXPECT_EQ(Typed("*"), " AND C.nombre<>''");
    EXPECT_EQ(Typed("''"), " AND C.nombre=''");
    EXPECT_EQ(Typed(""), "");
    EXPECT_EQ(Typed("**casa roja"),
              " AND (((C.nombre) LIKE '%casa%') AND ((C.nombre) LIKE '%roja%'))");
}

TEST(Str2Where, ComparisonsAndWordLists) {
    EXPECT_EQ(Typed("M", zlxWhere_MayorIgual), " AND C.nombre>='M'");
    EXPECT_EQ(Typed("M  ", zlxWhere_Distinto), " AND C.nombre<>'M'");
    EXPECT_EQ(Typed("   ", zlxWhere_Igual), "");
    EXPECT_EQ(Typed("casa", zlxWhere_ListaPalabras), " AND (((C.nombre) LIKE '%casa%'))");
    EXPECT_EQ(WhereBuilder::Condition("n", Variant(2.5), zlxWhere_Mayor), " AND n>2.5");
    EXPECT_EQ(WhereBuilder::Condition("d", Variant(BlankDate()), zlxWhere_Igual), "");
    EXPECT_EQ(WhereBuilder::Condition("d", Variant(MakeDate(2024, 3, 5)), zlxWhere_Menor),
              " AND d<'05/03/2024'");
    EXPECT_EQ(WhereBuilder::Condition("", Variant(), zlxWhere_Like), "");
}

TEST(Str2Where, CodeListsAndRanges) {
    EXPECT_EQ(
        Typed("1, 5-9, -3, 20-, 0, 7", zlxWhere_Codigos),
        " AND ((C.codigo BETWEEN 5 AND 9) OR C.codigo<=3 OR C.codigo>=20 OR C.codigo IN (1, 7))");
    EXPECT_EQ(Typed("0, ,", zlxWhere_Codigos), "");
    EXPECT_EQ(Typed("4", zlxWhere_Codigos), " AND (C.codigo IN (4))");
}

TEST(CheckBoxes2Where, BitsAndEnumerations) {
    const std::vector<Variant> boxes{Variant(std::int32_t(1)), Variant(std::int32_t(0)),
                                     Variant(std::int32_t(1))};
    const std::vector<Variant> values{Variant(std::int32_t(1)), Variant(std::int32_t(2)),
                                      Variant(std::int32_t(4))};
    EXPECT_EQ(WhereBuilder::CheckBoxes(boxes, "estado", zlxChk2Where_Alguno, values),
              " AND (estado & 5)>0");
    EXPECT_EQ(WhereBuilder::CheckBoxes(boxes, "estado", zlxChk2Where_Todos, values),
              " AND (estado & 5)=5");
    EXPECT_EQ(WhereBuilder::CheckBoxes(boxes, "estado", zlxChk2Where_Enumerados, values),
              " AND estado IN (1,4)");
    const std::vector<Variant> none(3, Variant(std::int32_t(0)));
    EXPECT_EQ(WhereBuilder::CheckBoxes(none, "estado", zlxChk2Where_Alguno, values), "");
    EXPECT_EQ(WhereBuilder::CheckBoxes(none, "estado", zlxChk2Where_Enumerados, values), "");
}

TEST(ReplaceWhere, SwapsPiecesIncludingTheFirstCondition) {
    EXPECT_EQ(
        WhereBuilder::ReplaceWhere("SELECT * FROM t WHERE a=1 AND b=2", {" AND a=1"}, {" AND a=3"}),
        "SELECT * FROM t WHERE b=2 AND a=3");
}

TEST(Str2Where, AnyTypedTextGivesAnAppendablePieceOrNothing) {
    const QString alphabet = QStringLiteral("ab*|%_'- ,0123456789");
    std::uint32_t seed = 12345;
    for (int n = 0; n < 20000; ++n) {
        QString text;
        seed = seed * 1664525u + 1013904223u;
        const int length = static_cast<int>(seed >> 28);
        for (int i = 0; i < length; ++i) {
            seed = seed * 1664525u + 1013904223u;
            text += alphabet.at(static_cast<qsizetype>((seed >> 16) % alphabet.size()));
        }
        for (int mode = zlxWhere_Like; mode <= zlxWhere_ListaPalabras; ++mode) {
            const QString piece = WhereBuilder::Condition("f", Variant(text), mode);
            EXPECT_TRUE(piece.isEmpty() || piece.startsWith(" AND")) << qPrintable(text);
        }
    }
}
