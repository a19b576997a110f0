#include "JsonVariant.h"
#include "QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

Variant FromJson(const char* json) {
    // Wrapped in an array so that scalars parse as documents too.
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray("[") + json + "]");
    return JsonToVariant(document.array().at(0));
}

QByteArray ToJson(const Variant& value) {
    return VariantToJson(value);
}

} // namespace

TEST(JsonToVariant, ScalarsTakeTheirVariantKinds) {
    EXPECT_EQ(FromJson("null").VarType(), vbNull);
    EXPECT_EQ(FromJson("true").VarType(), vbBoolean);
    EXPECT_EQ(FromJson("false").ToLong(), 0);
    EXPECT_EQ(FromJson("true").ToLong(), -1);
    const Variant number = FromJson("12");
    EXPECT_EQ(number.VarType(), vbDouble);
    EXPECT_EQ(number.ToDouble(), 12.0);
    EXPECT_EQ(FromJson("-0.25").ToDouble(), -0.25);
    const Variant text = FromJson("\"Pérez \\\"el\\\" 1\"");
    EXPECT_EQ(text.VarType(), vbString);
    EXPECT_EQ(text.ToString(), QString::fromUtf8("Pérez \"el\" 1"));
}

TEST(JsonToVariant, DatesAndBytes) {
    const Variant date = FromJson(R"({"date": "2024-02-29 13:05:09"})");
    ASSERT_EQ(date.VarType(), vbDate);
    EXPECT_EQ(date.Get<Date>()->value, MakeDate(2024, 2, 29, 13, 5, 9).value);
    EXPECT_EQ(FromJson(R"({"date": "1753-01-01"})").Get<Date>()->value, BlankDate().value);

    const Variant bytes = FromJson(R"({"hex": "00ff7A"})");
    ASSERT_EQ(bytes.VarType(), vbArray | vbVariant);
    const VariantArrayPtr array = bytes.ToArray();
    ASSERT_EQ(array->Size(), 3u);
    EXPECT_EQ(array->LBound(), 0);
    EXPECT_EQ(array->At(0).VarType(), vbByte);
    EXPECT_EQ(array->At(1).ToLong(), 255);
    EXPECT_EQ(array->At(2).ToLong(), 0x7a);
}

TEST(JsonToVariant, ArraysNestWithLowerBoundZero) {
    const Variant value = FromJson(R"([1, "a", [null, {"date": "2000-01-01 00:00:00"}]])");
    const VariantArrayPtr outer = value.ToArray();
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->LBound(), 0);
    EXPECT_EQ(outer->UBound(), 2);
    EXPECT_EQ(outer->At(1).ToString(), "a");
    const VariantArrayPtr inner = outer->At(2).ToArray();
    ASSERT_TRUE(inner);
    EXPECT_TRUE(inner->At(0).IsNull());
    EXPECT_EQ(inner->At(1).VarType(), vbDate);
    EXPECT_EQ(FromJson("[]").ToArray()->Size(), 0u);
}

TEST(JsonToVariant, RejectsWhatHasNoVariantForm) {
    for (const char* json :
         {R"({"date": "2024-02-30 00:00:00"})", R"({"date": "29/02/2024"})",
          R"({"date": "2024-02-29T10:00:00"})", R"({"date": 5})", R"({"hex": "abc"})",
          R"({"hex": "zz"})", R"({"when": "x"})", R"({"date": "2024-01-01", "hex": "00"})"})
        EXPECT_THROW(FromJson(json), JsonConversionError) << json;
}

TEST(VariantToJson, ScalarsAndTexts) {
    EXPECT_EQ(ToJson(Variant()), "null");
    EXPECT_EQ(ToJson(Variant::Null()), "null");
    EXPECT_EQ(ToJson(Variant(true)), "true");
    EXPECT_EQ(ToJson(Variant(false)), "false");
    EXPECT_EQ(ToJson(Variant(std::int16_t(-7))), "-7");
    EXPECT_EQ(ToJson(Variant(std::int32_t(2147483647))), "2147483647");
    EXPECT_EQ(ToJson(Variant(1.5)), "1.5");
    EXPECT_EQ(ToJson(Variant(0.1)), "0.1");
    EXPECT_EQ(ToJson(Variant(1e20)), "1e+20");
    EXPECT_EQ(ToJson(Variant(Currency::FromDouble(12.3456))), "12.3456");
    EXPECT_EQ(ToJson(Variant(MakeDate(1999, 12, 31, 23, 59, 58))),
              R"({"date":"1999-12-31 23:59:58"})");
    EXPECT_EQ(ToJson(Variant(QString::fromUtf8("dós \"y\" \\ \n\t\x01"))),
              QString::fromUtf8(R"("dós \"y\" \\ \n\t\u0001")").toUtf8());
}

TEST(VariantToJson, ArraysAndBytes) {
    EXPECT_EQ(ToJson(Variant::Array({1, "x", Variant::Null()})), R"([1,"x",null])");
    EXPECT_EQ(ToJson(Variant::Array({})), "[]");

    // A (column, row) array as GetRows gives: the first index is outermost.
    Variant grid = Variant::MakeArray({{0, 2}, {1, 3}});
    const VariantArrayPtr cells = grid.ToArray();
    for (std::int32_t col = 0; col <= 1; ++col)
        for (std::int32_t row = 1; row <= 3; ++row)
            cells->At(col, row) = Variant(col * 10 + row);
    EXPECT_EQ(ToJson(grid), "[[1,2,3],[11,12,13]]");

    Variant bytes = Variant::MakeArray({{0, 2}});
    bytes.ToArray()->At(0) = Variant(std::uint8_t(0x0a));
    bytes.ToArray()->At(1) = Variant(std::uint8_t(0xff));
    EXPECT_EQ(ToJson(bytes), R"({"hex":"0aff"})");
}
