#include "QtPrinters.h"
#include "platform/variant/Variant.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

int ErrorNumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const VariantError& e) {
        return e.Number();
    }
    return 0;
}

} // namespace

TEST(VariantKinds, VarTypeAndTypeNameFollowVb) {
    struct Case {
        Variant value;
        VbVarType type;
        const char* name;
    };
    const Case cases[] = {
        {Variant(), vbEmpty, "Empty"},
        {Variant::Null(), vbNull, "Null"},
        {Variant(std::int16_t(1)), vbInteger, "Integer"},
        {Variant(1), vbLong, "Long"},
        {Variant(1.5f), vbSingle, "Single"},
        {Variant(1.5), vbDouble, "Double"},
        {Variant(Currency{15000}), vbCurrency, "Currency"},
        {Variant(MakeDate(2024, 2, 29)), vbDate, "Date"},
        {Variant("x"), vbString, "String"},
        {Variant(ObjectPtr()), vbObject, "Nothing"},
        {Variant(true), vbBoolean, "Boolean"},
        {Variant::FromInt64(5), vbDecimal, "Decimal"},
        {Variant(std::uint8_t(7)), vbByte, "Byte"},
        {Variant::Array({1, 2}), static_cast<VbVarType>(vbArray | vbVariant), "Variant()"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.value.VarType(), c.type) << c.name;
        EXPECT_EQ(c.value.TypeName(), QString::fromUtf8(c.name));
    }
    struct Named : Object {
        QString TypeName() const override { return QStringLiteral("cMatriz"); }
    };
    const Variant object(std::make_shared<Named>());
    EXPECT_EQ(object.TypeName(), "cMatriz");
    EXPECT_NE(object.As<Named>(), nullptr);
    EXPECT_TRUE(Variant::Missing().IsMissing());
    EXPECT_FALSE(Variant(ErrorValue{5}).IsMissing());
}

TEST(VariantConversions, IntegerConversionsRoundHalvesToEvenAndCheckRange) {
    EXPECT_EQ(Variant(2.5).ToLong(), 2);
    EXPECT_EQ(Variant(3.5).ToLong(), 4);
    EXPECT_EQ(Variant(-2.5).ToLong(), -2);
    EXPECT_EQ(Variant(-3.5).ToInt(), -4);
    EXPECT_EQ(Variant(2.5000001).ToInt(), 3);
    EXPECT_EQ(Variant(true).ToInt(), -1);
    EXPECT_EQ(Variant("  12 ").ToLong(), 12);
    EXPECT_EQ(Variant("1,5").ToLong(), 2);
    EXPECT_EQ(Variant("&HFF").ToLong(), 255);
    EXPECT_EQ(Variant(Currency{25000}).ToLong(), 2); // 2.5
    EXPECT_EQ(Variant(Currency{35000}).ToLong(), 4); // 3.5
    EXPECT_EQ(Variant(32767.4).ToInt(), 32767);
    EXPECT_EQ(ErrorNumberOf([] { Variant(32767.5).ToInt(); }), vbErrOverflow);
    EXPECT_EQ(ErrorNumberOf([] { Variant(2147483647.5).ToLong(); }), vbErrOverflow);
    EXPECT_EQ(ErrorNumberOf([] { Variant(-1).ToByte(); }), vbErrOverflow);
    EXPECT_EQ(ErrorNumberOf([] { Variant("abc").ToLong(); }), vbErrTypeMismatch);
    EXPECT_EQ(ErrorNumberOf([] { Variant::Null().ToLong(); }), vbErrInvalidUseOfNull);
    EXPECT_EQ(ErrorNumberOf([] { Variant::Array({1}).ToDouble(); }), vbErrTypeMismatch);
    EXPECT_EQ(Variant().ToLong(), 0);
    EXPECT_EQ(Variant::FromInt64(9007199254740993LL).ToInt64(), 9007199254740993LL);
}

TEST(VariantConversions, StringsUseSpanishSeparatorsAndVbNumberForms) {
    EXPECT_EQ(Variant(1.5).ToString(), "1,5");
    EXPECT_EQ(Variant(-0.25).ToString(), "-0,25");
    EXPECT_EQ(Variant(1e16).ToString(), "1E+16");
    EXPECT_EQ(Variant(0.00001).ToString(), "1E-05");
    EXPECT_EQ(Variant(0.0001).ToString(), "0,0001");
    EXPECT_EQ(Variant(123456789012345.0).ToString(), "123456789012345");
    EXPECT_EQ(Variant(0.1 + 0.2).ToString(), "0,3");
    // Fifteen digits of a value that needs more: its 16th digit, exactly 5, rounds up.
    EXPECT_EQ(Variant(33110032036284.25).ToString(), "33110032036284,3");
    EXPECT_EQ(Variant(-1.1732521780045051e16).ToString(), "-1,17325217800451E+16");
    EXPECT_EQ(Variant(1.1f).ToString(), "1,1");
    EXPECT_EQ(Variant(1.5).ToInvariantString(), "1.5");
    EXPECT_EQ(Variant(Currency{15000}).ToString(), "1,5");
    EXPECT_EQ(Variant(Currency{-1}).ToInvariantString(), "-0.0001");
    EXPECT_EQ(Variant(true).ToString(), "True");
    EXPECT_EQ(Variant(std::int16_t(-7)).ToString(), "-7");
    EXPECT_EQ(Variant().ToString(), "");
    EXPECT_EQ(ErrorNumberOf([] { Variant::Null().ToString(); }), vbErrInvalidUseOfNull);
}

TEST(VariantConversions, DatesPrintAsShortSpanishDatesAndReadBack) {
    EXPECT_EQ(Variant(MakeDate(2024, 3, 5)).ToString(), "05/03/2024");
    EXPECT_EQ(Variant(MakeDate(2024, 3, 5, 14, 7, 9)).ToString(), "05/03/2024 14:07:09");
    EXPECT_EQ(Variant(MakeDate(1899, 12, 30, 6, 0, 0)).ToString(), "06:00:00");
    EXPECT_EQ(Variant(MakeDate(2024, 3, 5, 14, 7, 9)).ToInvariantString(), "2024-03-05 14:07:09");
    EXPECT_EQ(Variant(BlankDate()).ToInvariantString(), "1753-01-01 00:00:00");
    EXPECT_DOUBLE_EQ(MakeDate(1900, 1, 1).value, 2.0);
    EXPECT_DOUBLE_EQ(MakeDate(1899, 12, 29, 6).value, -1.25);

    int y, m, d, h, n, s;
    SplitDate(MakeDate(1753, 1, 1, 23, 59, 59), y, m, d, h, n, s);
    EXPECT_EQ((std::vector<int>{y, m, d, h, n, s}), (std::vector<int>{1753, 1, 1, 23, 59, 59}));

    EXPECT_EQ(Variant("31/12/2023 10:30").ToDate(), MakeDate(2023, 12, 31, 10, 30));
    EXPECT_EQ(Variant("2023-12-31T10:30:05").ToDate(), MakeDate(2023, 12, 31, 10, 30, 5));
    EXPECT_EQ(Variant("1/2/29").ToDate(), MakeDate(2029, 2, 1));
    EXPECT_EQ(Variant("1/2/30").ToDate(), MakeDate(1930, 2, 1));
    EXPECT_TRUE(Variant("29/02/2024").IsDate());
    EXPECT_FALSE(Variant("30/02/2024").IsDate());
    EXPECT_EQ(ErrorNumberOf([] { Variant("mañana").ToDate(); }), vbErrTypeMismatch);
}

TEST(VariantConversions, CurrencyAndDecimalKeepTheirDigits) {
    EXPECT_EQ(Currency::FromDouble(0.00005).scaled, 0); // half to even
    EXPECT_EQ(Currency::FromDouble(0.00015).scaled, 2);
    EXPECT_EQ(ErrorNumberOf([] { Currency::FromDouble(1e15); }), vbErrOverflow);
    EXPECT_EQ(Variant("1.234,5678").ToCurrency().scaled, 12345678);

    bool ok = false;
    const Decimal big = Decimal::FromString("-79228162514264337593543950335", &ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(big.ToString(), "-79228162514264337593543950335");
    Decimal::FromString("79228162514264337593543950336", &ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(Decimal::FromString("0.000123").ToString(), "0.000123");
    EXPECT_EQ(Decimal::FromString("12.3400").ToString(), "12.34");
    EXPECT_EQ(Decimal::FromString("1.5e3").ToString(), "1500");
    EXPECT_EQ(Decimal::FromDouble(0.1).ToString(), "0.1");
    EXPECT_EQ(Variant(Decimal::FromString("2.5")).ToLong(), 2);
    EXPECT_EQ(Variant(Decimal::FromString("12.345")).ToString(), "12,345");
    EXPECT_EQ(Decimal::FromString("1.10").Compare(Decimal::FromString("1.1")), 0);
    EXPECT_EQ(Decimal::FromString("-0.5").Compare(Decimal::FromString("0.25")), -1);
    EXPECT_EQ(Decimal::FromString("100000000000000000000.0000001")
                  .Compare(Decimal::FromString("100000000000000000000")),
              1);
    EXPECT_EQ(Variant(Decimal::FromString("1.23456")).ToCurrency().scaled, 12346);
}

TEST(VariantConversions, BooleansAndNumericTests) {
    EXPECT_TRUE(Variant("Verdadero").ToBool());
    EXPECT_FALSE(Variant("false").ToBool());
    EXPECT_TRUE(Variant("-1").ToBool());
    EXPECT_FALSE(Variant(0.0).ToBool());
    EXPECT_EQ(ErrorNumberOf([] { Variant("quizás").ToBool(); }), vbErrTypeMismatch);
    EXPECT_TRUE(Variant("1.234.567").IsNumeric());
    EXPECT_EQ(Variant("1.234.567").ToLong(), 1234567);
    EXPECT_TRUE(Variant(" -3,5E+2 ").IsNumeric());
    EXPECT_DOUBLE_EQ(Variant(" -3,5E+2 ").ToDouble(), -350.0);
    EXPECT_FALSE(Variant("").IsNumeric());
    EXPECT_FALSE(Variant("12a").IsNumeric());
    EXPECT_FALSE(Variant::Null().IsNumeric());
    EXPECT_TRUE(Variant().IsNumeric());
    EXPECT_FALSE(Variant(MakeDate(2020, 1, 1)).IsNumeric());
}

TEST(VariantComparison, EqualityIsTheLibraryListRule) {
    EXPECT_EQ(Variant(3), Variant(3.0));
    EXPECT_EQ(Variant(std::int16_t(3)), Variant::FromInt64(3));
    EXPECT_EQ(Variant(true), Variant(-1));
    EXPECT_EQ(Variant(Currency{30000}), Variant(Decimal::FromString("3.0")));
    EXPECT_FALSE(Variant(3) == Variant("3"));
    EXPECT_FALSE(Variant("A") == Variant("a"));
    EXPECT_EQ(Variant("a"), Variant("a"));
    EXPECT_FALSE(Variant::Null() == Variant::Null());
    EXPECT_EQ(Variant(), Variant());
    EXPECT_EQ(Variant(), Variant(0));
    EXPECT_EQ(Variant(), Variant(""));
    EXPECT_EQ(Variant(MakeDate(2020, 1, 1)), Variant(MakeDate(2020, 1, 1)));
    struct Thing : Object {
        QString TypeName() const override { return QStringLiteral("Thing"); }
    };
    const auto a = std::make_shared<Thing>(), b = std::make_shared<Thing>();
    EXPECT_EQ(Variant(a), Variant(a));
    EXPECT_FALSE(Variant(a) == Variant(b));
}

TEST(VariantComparison, OrderingFollowsVbForMixedKinds) {
    EXPECT_EQ(Variant(2).Compare(Variant(10.5)), -1);
    EXPECT_EQ(Variant("b").Compare(Variant("B")), 1);
    EXPECT_EQ(Variant("b").Compare(Variant("B"), true), 0);
    EXPECT_EQ(Variant(99).Compare(Variant("1")), -1);
    EXPECT_EQ(Variant("1").Compare(Variant(99)), 1);
    EXPECT_EQ(Variant::Null().Compare(Variant(1)), 2);
    EXPECT_EQ(Variant().Compare(Variant("x")), -1);
    EXPECT_EQ(Variant(std::int16_t(-5)).Compare(Variant(std::uint8_t(5))), -1);
    EXPECT_EQ(Variant(MakeDate(2020, 1, 2)).Compare(Variant(MakeDate(2020, 1, 1))), 1);
}

TEST(VariantKinds, NumberKindsAreOnlyTheNumericStorage) {
    for (const Variant& v : {Variant(std::int16_t(1)), Variant(1), Variant(1.5f), Variant(2.5),
                             Variant(Currency{1}), Variant::FromInt64(3), Variant(std::uint8_t(4))})
        EXPECT_TRUE(v.IsNumber()) << v.TypeName().toStdString();
    for (const Variant& v : {Variant(), Variant::Null(), Variant(true), Variant("1"),
                             Variant(MakeDate(2020, 1, 1)), Variant::Array({1})})
        EXPECT_FALSE(v.IsNumber()) << v.TypeName().toStdString();
}
