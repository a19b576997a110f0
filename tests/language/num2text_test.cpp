#include "QtPrinters.h"
#include "language/cIdioma.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

QString Euros(double n) {
    return cIdioma().Num2Text(n);
}
QString Pesetas(double n) {
    return cIdioma().Num2Text(n, 2, "peseta", "pesetas", "céntimo", "céntimos", true);
}
QString Plain(std::int32_t n) {
    return cIdioma().Long2Text(n);
}

} // namespace

TEST(Num2Text, CurrencyDefaults) {
    const std::pair<double, const char*> cases[] = {
        {0, "cero euros"},
        {1, "un euro"},
        {16, "dieciséis euros"},
        {21, "veintiuno euros"},
        {22, "veintidós euros"},
        {31, "treinta y uno euros"},
        {100, "cien euros"},
        {101, "ciento uno euros"},
        {500, "quinientos euros"},
        {1000, "mil euros"},
        {1001, "mil un euros"},
        {21000, "veintiun mil euros"},
        {1000000, "un millón de euros"},
        {1000001, "un millón, un euro"},
        {2500000, "dos millones, quinientos mil euros"},
        {1000000000000, "un billón de euros"},
        {1.01, "un euro con un céntimo"},
        {1.5, "un euro con cincuenta céntimos"},
        {0.25, "veinticinco céntimos de euro"},
        {0.01, "un céntimo de euro"},
        {-5, "menos cinco euros"},
        {0.001, "cero euros"},
    };
    for (const auto& [number, words] : cases)
        EXPECT_EQ(Euros(number), QString::fromUtf8(words)) << number;
}

TEST(Num2Text, WordsForEveryRangeOfTheRules) {
    EXPECT_EQ(Plain(10), "diez");
    EXPECT_EQ(Plain(15), "quince");
    EXPECT_EQ(Plain(17), "diecisiete");
    EXPECT_EQ(Plain(20), "veinte");
    EXPECT_EQ(Plain(23), "veintitrés");
    EXPECT_EQ(Plain(26), "veintiséis");
    EXPECT_EQ(Plain(99), "noventa y nueve");
    EXPECT_EQ(Plain(110), "ciento diez");
    EXPECT_EQ(Plain(777), "setecientos setenta y siete");
    EXPECT_EQ(Plain(900), "novecientos");
    EXPECT_EQ(Plain(1515), "mil quinientos quince");
    EXPECT_EQ(Plain(11000), "once mil");
    EXPECT_EQ(Plain(31001), "treinta y un mil un");
    EXPECT_EQ(Plain(101000), "ciento un mil");
    EXPECT_EQ(Plain(999999), "novecientos noventa y nueve mil novecientos noventa y nueve");
    EXPECT_EQ(Plain(2000000), "dos millones de"); // the empty unit text keeps its " de "
    EXPECT_EQ(Plain(21000000), "veintiuno millones de");
    EXPECT_EQ(Plain(1001001), "un millón, mil un");
    EXPECT_EQ(Plain(2147483647),
              "dos mil ciento cuarenta y siete millones, cuatrocientos ochenta y tres mil "
              "seiscientos cuarenta y siete");
    EXPECT_EQ(Plain(0), "cero");
    EXPECT_EQ(Plain(-21), "menos veintiuno");
    EXPECT_EQ(Euros(3000000000000.0), "tres billones de euros");
    EXPECT_EQ(Euros(1000000000001.0), "un billón, un euro");
}

TEST(Num2Text, FeminineAppliesToEveryGroupAndTheFraction) {
    EXPECT_EQ(Pesetas(200), "doscientas pesetas");
    EXPECT_EQ(Pesetas(1), "una peseta");
    EXPECT_EQ(Pesetas(21000), "veintiuna mil pesetas");
    EXPECT_EQ(Pesetas(1001), "mil una pesetas");
    EXPECT_EQ(Pesetas(0.01), "una céntimo de peseta");
    EXPECT_EQ(Pesetas(541.21), "quinientas cuarenta y una pesetas con veintiuna céntimos");
}

TEST(Num2Text, FractionsUnitsAndDecimals) {
    cIdioma idioma;
    EXPECT_EQ(idioma.Num2Text(12.5, 2, "", "", "", "", false, false), "doce  con cincuenta");
    EXPECT_EQ(idioma.Num2Text(2.675), "dos euros con sesenta y ocho céntimos");
    EXPECT_EQ(idioma.Num2Text(0.999), "un euro");
    EXPECT_EQ(
        idioma.Num2Text(3.14159, 3, "metro", "metros", "milímetro", "milímetros", false, false),
        "tres metros con ciento cuarenta y dos milímetros");
    EXPECT_EQ(idioma.Num2Text(7.9, 0), "ocho euros");
    EXPECT_EQ(idioma.Num2Text(-0.5), "menos cincuenta céntimos de euro");
    EXPECT_EQ(idioma.Num2Text(5, 2, "dólar", "dólares"), "cinco dólares");
}

TEST(Num2Text, UnitsTeensAndHundredsOfEveryKind) {
    const char* const units[] = {"un",   "dos",   "tres", "cuatro", "cinco",
                                 "seis", "siete", "ocho", "nueve"};
    for (int n = 1; n <= 9; ++n)
        EXPECT_EQ(Plain(n), QString::fromUtf8(units[n - 1])) << n;
    EXPECT_EQ(Plain(11), "once");
    EXPECT_EQ(Plain(16), QString::fromUtf8("dieciséis"));
    EXPECT_EQ(Plain(19), "diecinueve");
    EXPECT_EQ(Plain(21), "veintiuno");
    EXPECT_EQ(Plain(29), "veintinueve");
    EXPECT_EQ(Plain(36), "treinta y seis");
    EXPECT_EQ(Plain(200), "doscientos");
    EXPECT_EQ(Plain(301), "trescientos uno");
    EXPECT_EQ(Plain(415), "cuatrocientos quince");
    EXPECT_EQ(Plain(666), "seiscientos sesenta y seis");
    EXPECT_EQ(Plain(822), QString::fromUtf8("ochocientos veintidós"));
    EXPECT_EQ(Plain(1100), "mil cien");
    EXPECT_EQ(Plain(100100), "cien mil cien");
    EXPECT_EQ(Plain(111000), "ciento once mil");
    EXPECT_EQ(Plain(561000), "quinientos sesenta y un mil");
    EXPECT_EQ(Pesetas(500), "quinientas pesetas");
    EXPECT_EQ(Pesetas(961), "novecientas sesenta y una pesetas");
    EXPECT_EQ(Pesetas(100), "cien pesetas");
}

TEST(Num2Text, GroupsJoinWithCommasAndLimits) {
    EXPECT_EQ(Euros(1000000000000.0 + 1000000.0),
              QString::fromUtf8("un billón, un millón de euros"));
    EXPECT_EQ(Euros(2000000000000.5),
              QString::fromUtf8("dos billones de euros con cincuenta céntimos"));
    EXPECT_EQ(Euros(21000000.01), QString::fromUtf8("veintiuno millones de euros con un céntimo"));
    EXPECT_EQ(Pesetas(2000001), QString::fromUtf8("dos millones, una peseta"));
    EXPECT_EQ(Pesetas(1000000), QString::fromUtf8("un millón de pesetas"));
    EXPECT_EQ(Plain(-2147483647 - 1),
              QString::fromUtf8("menos dos mil ciento cuarenta y siete millones, cuatrocientos "
                                "ochenta y tres mil seiscientos cuarenta y ocho"));
    EXPECT_EQ(Euros(-0.001), "cero euros");
    EXPECT_EQ(Euros(1e18), "");
}
