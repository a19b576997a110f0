#include "platform/variant/NumberText.h"

#include <gtest/gtest.h>

using zlx::NumberText::Val;

TEST(Val, SkipsBlanksTabsAndLineFeedsInsideTheNumber) {
    EXPECT_EQ(Val("0 9"), 9);
    EXPECT_EQ(Val("+ 2"), 2);
    EXPECT_EQ(Val("- 3"), -3);
    EXPECT_EQ(Val("2 2"), 22);
    EXPECT_EQ(Val(" 1615 198th Street N.E."), 1615198);
    EXPECT_EQ(Val("\t1\n2 .5"), 12.5);
    EXPECT_EQ(Val("24 and 57"), 24);
}

TEST(Val, ReadsTheNumberTheTextBeginsWith) {
    EXPECT_EQ(Val("12abc"), 12);
    EXPECT_EQ(Val("1.5.3"), 1.5);
    EXPECT_EQ(Val("-3x"), -3);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("1,5"), 1);
    EXPECT_EQ(Val("1.5E3"), 1500);
    EXPECT_EQ(Val("2d2"), 200);
    EXPECT_EQ(Val("3e"), 3);
    EXPECT_EQ(Val("&HFF"), 255);
    EXPECT_EQ(Val("&HFFFF"), -1);
    EXPECT_EQ(Val("&H10000"), 65536);
    EXPECT_EQ(Val("&O17"), 15);
}
