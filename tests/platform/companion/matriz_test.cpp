#include "QtPrinters.h"
#include "platform/companion/cMatriz.h"

#include <gtest/gtest.h>

using namespace zlx;

TEST(cMatriz, DimensionedMatricesAreOneBasedAndGrowByRows) {
    cMatriz m;
    m.Dimension(1, 4, 1, 0);
    EXPECT_EQ(m.Cols(), 4);
    EXPECT_EQ(m.Rows(), 0);
    EXPECT_LT(m.LastRow(), m.FirstRow());
    m.AddRow(Variant::Array({}));
    m.AddRow(Variant::Array({Variant("a"), Variant(2)}));
    EXPECT_EQ(m.Rows(), 2);
    EXPECT_EQ(m.FirstRow(), 1);
    EXPECT_EQ(m.LastRow(), 2);
    EXPECT_TRUE(m.GetValue(1, 1).IsEmpty());
    EXPECT_EQ(m.GetValue(1, 2).ToString(), "a");
    EXPECT_EQ(m.Item(2, 2).ToLong(), 2); // the default member takes (row, column)
    m.SetValue(4, 1, Variant(1.5));
    EXPECT_EQ(m.Item(1, 4).ToDouble(), 1.5);
    EXPECT_THROW(m.GetValue(5, 1), VariantError);
    EXPECT_THROW(m.GetValue(1, 3), VariantError);
    EXPECT_THROW(m.SetValue(0, 1, Variant(1)), VariantError);
}

TEST(cMatriz, GetRowsArraysKeepTheirZeroBasedBounds) {
    Variant rows = Variant::MakeArray({{0, 3}, {0, 2}}); // 3 fields, 2 records
    auto a = rows.ToArray();
    for (int f = 0; f < 3; ++f)
        for (int r = 0; r < 2; ++r)
            a->At(f, r) = Variant(QStringLiteral("f%1r%2").arg(f).arg(r));
    cMatriz m;
    m.LoadFromArray(rows);
    EXPECT_EQ(m.FirstCol(), 0);
    EXPECT_EQ(m.LastCol(), 2);
    EXPECT_EQ(m.FirstRow(), 0);
    EXPECT_EQ(m.LastRow(), 1);
    EXPECT_EQ(m.GetValue(1, 0).ToString(), "f1r0");
    // The matrix owns a copy: changing the source array later does not reach it.
    a->At(1, 0) = Variant("changed");
    EXPECT_EQ(m.GetValue(1, 0).ToString(), "f1r0");
    const auto whole = m.GetVariant().ToArray();
    EXPECT_EQ(whole->At(2, 1).ToString(), "f2r1");
    EXPECT_THROW(m.LoadFromArray(Variant(5)), VariantError);
}

TEST(cMatriz, LookupValueFindsTheFirstMatchingRow) {
    cMatriz m;
    m.Dimension(1, 2, 1, 0);
    m.AddRow(Variant::Array({Variant("ES"), Variant("Español")}));
    m.AddRow(Variant::Array({Variant("EN"), Variant("English")}));
    m.AddRow(Variant::Array({Variant("EN"), Variant("second")}));
    EXPECT_EQ(m.LookupValue(Variant("EN"), 1, 2).ToString(), "English");
    EXPECT_EQ(m.LookupValue(Variant("en"), 1, 2, Variant("none")).ToString(), "none");
    EXPECT_EQ(m.LookupValue(Variant("en"), 1, 2, Variant(), true).ToString(), "English");
    EXPECT_EQ(m.LookupValue(Variant(1), 1, 2, Variant(-1)).ToLong(), -1);
    EXPECT_EQ(Variant(std::make_shared<cMatriz>()).TypeName(), "cMatriz");
}
