#include "QtPrinters.h"
#include "connection/SqlText.h"
#include "connection/TypeMapping.h"

#include <gtest/gtest.h>

using namespace zlx;

TEST(PonComillas, QuotesDoublesApostrophesAndTrimsAfterWildcards) {
    EXPECT_EQ(SqlText::PonComillas(Variant("O'Brien")), "'O''Brien'");
    EXPECT_EQ(SqlText::PonComillas(Variant::Null()), "''");
    EXPECT_EQ(SqlText::PonComillas(Variant("ab"), zlxLikeConstantsAll), "'%ab%'");
    EXPECT_EQ(SqlText::PonComillas(Variant("ab"), zlxLikeConstantsBefore), "'%ab'");
    EXPECT_EQ(SqlText::PonComillas(Variant("ab  "), zlxLikeConstantsAfter), "'ab  %'");
    EXPECT_EQ(SqlText::PonComillas(Variant("ab  ")), "'ab'");
    EXPECT_EQ(SqlText::PonComillas(Variant(QString("a") + QChar(0) + "b")), "'a b'");
    EXPECT_EQ(SqlText::PonComillas(Variant(std::int32_t(42))), "'42'");
}

TEST(SqlText, DateAndTimeExpressions) {
    EXPECT_EQ(SqlText::SoloFecha("f.Alta"), "CAST(FLOOR(CAST(f.Alta AS FLOAT)) AS DATETIME)");
    EXPECT_EQ(SqlText::SoloHora("h"), "RIGHT('00'+RTRIM(CAST(DATEPART(hh,h) AS CHAR)),2) + ':' + "
                                      "RIGHT('00'+RTRIM(CAST(DATEPART(mi,h) AS CHAR)),2)");
    EXPECT_EQ(SqlText::SoloHora("h", true),
              "RIGHT('00'+RTRIM(CAST(DATEPART(hh,h) AS CHAR)),2) + ':' + "
              "RIGHT('00'+RTRIM(CAST(DATEPART(mi,h) AS CHAR)),2) + ':' + "
              "RIGHT('00'+RTRIM(CAST(DATEPART(ss,h) AS CHAR)),2)");
}

TEST(FiltroPorPalabras, EveryWordMustOccurAndBlanksAddNothing) {
    QString filter;
    EXPECT_TRUE(SqlText::FiltroPorPalabras("nombre", "**casa  roja", filter));
    EXPECT_EQ(filter, " (((nombre) LIKE '%casa%') AND ((nombre) LIKE '%roja%'))");

    QString untouched = "x";
    EXPECT_FALSE(SqlText::FiltroPorPalabras("nombre", "casa roja", untouched));
    EXPECT_EQ(untouched, "x");

    QString none;
    EXPECT_FALSE(SqlText::FiltroPorPalabras("nombre", "**   ", none));
    EXPECT_EQ(none, "");
}

TEST(TypeMapping, AdoLibraryAndServerTypes) {
    EXPECT_EQ(TypeMapping::ZlxToAdo(zlxTblColumnTypeDate, zlxDataProvider_JET40), 7);
    EXPECT_EQ(TypeMapping::ZlxToAdo(zlxTblColumnTypeDate), 133);
    EXPECT_EQ(TypeMapping::ZlxToAdo(zlxTblColumnTypeDateTime), 135);
    EXPECT_EQ(TypeMapping::ZlxToAdo(99), 0);
    EXPECT_EQ(TypeMapping::AdoToZlx(11), zlxTblColumnTypeI1);
    EXPECT_EQ(TypeMapping::AdoToZlx(202), zlxTblColumnTypeChar);
    EXPECT_EQ(TypeMapping::AdoToZlx(203), zlxTblColumnTypeMemo);
    EXPECT_FALSE(TypeMapping::AdoToZlx(64).has_value());
    // Every library type maps to ADO and back to itself, but for the ones ADO merges.
    for (int t = zlxTblColumnTypeI2; t <= zlxTblColumnTypeDecimal; ++t)
        EXPECT_EQ(TypeMapping::AdoToZlx(TypeMapping::ZlxToAdo(t)), t) << t;
    EXPECT_EQ(TypeMapping::AdoToDisplay(131), zlxDisplayNumber);
    EXPECT_EQ(TypeMapping::AdoToDisplay(133), zlxDisplayDate);
    EXPECT_EQ(TypeMapping::AdoToDisplay(205), zlxDisplayText);
    EXPECT_FALSE(TypeMapping::AdoToDisplay(64).has_value());
    EXPECT_EQ(TypeMapping::ZlxToDisplay(zlxTblColumnTypeCurrency), zlxDisplayNumber);
    EXPECT_EQ(TypeMapping::ZlxToDisplay(zlxTblColumnTypeTime), zlxDisplayDate);
    EXPECT_EQ(TypeMapping::ZlxToDisplay(zlxTblColumnTypeImage), zlxDisplayText);
    EXPECT_EQ(TypeMapping::SqlServerToZlx(167), zlxTblColumnTypeChar);
    EXPECT_EQ(TypeMapping::SqlServerToZlx(60), zlxTblColumnTypeCurrency);
    EXPECT_EQ(TypeMapping::SqlServerToZlx(99), zlxTblColumnTypeNone);
}
