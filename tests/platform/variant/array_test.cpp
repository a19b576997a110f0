#include "QtPrinters.h"
#include "platform/variant/Variant.h"

#include <gtest/gtest.h>

using namespace zlx;

TEST(VariantArray, BoundsOfEachDimensionAreItsOwn) {
    Variant v = Variant::MakeArray({{0, 3}, {1, 2}}); // (0 To 2, 1 To 2)
    auto a = v.ToArray();
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->Rank(), 2);
    EXPECT_EQ(a->LBound(1), 0);
    EXPECT_EQ(a->UBound(1), 2);
    EXPECT_EQ(a->LBound(2), 1);
    EXPECT_EQ(a->UBound(2), 2);
    a->At(2, 1) = Variant("last of first column");
    a->At(0, 2) = Variant(7);
    // The first index varies fastest in storage, as GetRows arrays are laid out.
    EXPECT_EQ(a->Data()[2].ToString(), "last of first column");
    EXPECT_EQ(a->Data()[3].ToLong(), 7);
    EXPECT_TRUE(a->At(1, 1).IsEmpty());

    auto outOfRange = [&](auto action) {
        try {
            action();
        } catch (const VariantError& e) {
            return e.Number() == vbErrSubscriptOutOfRange;
        }
        return false;
    };
    EXPECT_TRUE(outOfRange([&] { a->At(3, 1); }));
    EXPECT_TRUE(outOfRange([&] { a->At(0, 0); }));
    EXPECT_TRUE(outOfRange([&] { a->At(0); }));
    EXPECT_TRUE(outOfRange([&] { a->LBound(3); }));
}

TEST(VariantArray, RedimPreserveKeepsEveryElement) {
    Variant v = Variant::MakeArray({{1, 2}, {1, 2}});
    auto a = v.ToArray();
    a->At(1, 1) = 11;
    a->At(2, 1) = 21;
    a->At(1, 2) = 12;
    a->At(2, 2) = 22;
    a->RedimPreserveLast(4);
    EXPECT_EQ(a->UBound(2), 4);
    EXPECT_EQ(a->At(2, 1).ToLong(), 21);
    EXPECT_EQ(a->At(1, 2).ToLong(), 12);
    EXPECT_EQ(a->At(2, 2).ToLong(), 22);
    EXPECT_TRUE(a->At(2, 4).IsEmpty());
    a->RedimPreserveLast(1);
    EXPECT_EQ(a->Size(), 2u);
    EXPECT_EQ(a->At(2, 1).ToLong(), 21);
}

TEST(VariantArray, ArrayListsAreZeroBasedAndSharedOnCopy) {
    Variant list = Variant::Array({Variant("a"), Variant(2), Variant::Null()});
    auto a = list.ToArray();
    EXPECT_EQ(a->LBound(), 0);
    EXPECT_EQ(a->UBound(), 2);
    EXPECT_TRUE(a->At(2).IsNull());
    Variant copy = list;
    copy.ToArray()->At(0) = Variant("b");
    EXPECT_EQ(a->At(0).ToString(), "b");
    EXPECT_EQ(Variant(5).ToArray(), nullptr);
    const Variant empty = Variant::Array({});
    EXPECT_EQ(empty.ToArray()->UBound(), -1);
}

TEST(VariantArray, ByteArraysKeptAsRawBytesBehaveAsByteElements) {
    const Variant blob = Variant::FromBytes(QByteArray("\x00\xFF\x10", 3));
    const VariantArrayPtr array = blob.ToArray();
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->Size(), 3u);
    EXPECT_EQ(array->LBound(), 0);
    EXPECT_EQ(array->UBound(), 2);
    EXPECT_EQ(array->Bytes(), QByteArray("\x00\xFF\x10", 3));
    EXPECT_EQ(blob.TypeName(), "Variant()");
    // Reaching an element gives Bytes, and writing one is seen by the bytes.
    EXPECT_EQ(array->At(1).VarType(), vbByte);
    EXPECT_EQ(array->At(1).ToLong(), 255);
    array->At(2) = Variant(std::uint8_t(7));
    EXPECT_EQ(array->Bytes(), QByteArray("\x00\xFF\x07", 3));
    array->At(0) = Variant(1);
    EXPECT_EQ(array->Bytes(), std::nullopt);
    EXPECT_EQ(Variant::FromBytes({}).ToArray()->UBound(), -1);
    // An array of Bytes built element by element gives the same bytes.
    EXPECT_EQ(
        Variant::Array({Variant(std::uint8_t(65)), Variant(std::uint8_t(0))}).ToArray()->Bytes(),
        QByteArray("A\0", 2));
}
