// The column stores under the recordset: texts through their dictionary and their shared
// buffer, decimals kept as mantissas, nulls, and the currency total of a column.

#include "RecordsetFixture.h"
#include "platform/ado/ColumnStore.h"
#include "platform/ado/HugePageAllocator.h"

#include <algorithm>
#include <limits>
#include <numeric>

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

namespace {

int VariantErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const VariantError& e) {
        return e.Number();
    }
    return 0;
}

QString Numbered(std::size_t i) {
    return QStringLiteral("Cliente %1").arg(i);
}

// Texts that are not Latin-1, and of many lengths, so that offsets and lengths both matter.
QString Varied(std::size_t i) {
    return QString(static_cast<qsizetype>(i % 7), QChar(u'ñ')) + QStringLiteral("€%1").arg(i);
}

} // namespace

TEST(TextColumnStore, TextsStayExactWhenTheColumnOutgrowsItsDictionary) {
    ColumnStore column(adVarWChar, 0, false);
    const std::size_t rows = TextColumn::kMostValues + 500;
    for (std::size_t i = 0; i < 300; ++i)
        column.Append(Variant(i % 2 ? QStringLiteral("Madrid") : QString()));
    EXPECT_TRUE(column.Texts().HasDictionary());
    EXPECT_EQ(column.Texts().Values().size(), 2u);
    for (std::size_t i = 300; i < rows; ++i)
        column.Append(Variant(Varied(i)));
    EXPECT_FALSE(column.Texts().HasDictionary());
    ASSERT_EQ(column.Size(), rows);
    EXPECT_EQ(column.TextAt(1), u"Madrid");
    EXPECT_TRUE(column.TextAt(2).isEmpty());
    EXPECT_FALSE(column.IsNull(2)); // an empty text is not a null
    for (std::size_t i = 300; i < rows; i += 997)
        EXPECT_EQ(column.Get(i).ToString(), Varied(i)) << i;
    EXPECT_EQ(column.Get(rows - 1).ToString(), Varied(rows - 1));
}

// Rows stored in the room reserved for a big load, before and after the texts leave their
// dictionary, stay exact.
TEST(ColumnStoreReserve, RoomForABigLoadHoldsEveryRowStored) {
    const std::size_t rows = 700'000;
    ColumnStore numbers(adInteger, 0, false);
    ColumnStore texts(adVarWChar, 0, false);
    numbers.Reserve(rows);
    texts.Reserve(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        numbers.AppendInteger(static_cast<std::int64_t>(i) * 3 - 5);
        texts.AppendText(Varied(i));
    }
    ASSERT_EQ(numbers.Size(), rows);
    ASSERT_EQ(texts.Size(), rows);
    EXPECT_FALSE(texts.Texts().HasDictionary());
    for (std::size_t i = 0; i < rows; i += 9973) {
        EXPECT_EQ(numbers.IntegerAt(i), static_cast<std::int64_t>(i) * 3 - 5) << i;
        EXPECT_EQ(texts.TextAt(i), Varied(i)) << i;
    }
    EXPECT_EQ(texts.TextAt(rows - 1), Varied(rows - 1));
}

// An array of a huge page or more is a mapping of its own on a huge-page boundary; it keeps
// its values as it grows past one mapping into another, is copied and shrinks back under a
// huge page.
TEST(ColumnStoreReserve, LargeArraysStartOnHugePagesAndKeepTheirValues) {
    LargeVector<std::uint32_t> values;
    const std::uint32_t count = 3'000'000;
    for (std::uint32_t i = 0; i < count; ++i)
        values.push_back(i * 7);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(values.data()) % kHugePageBytes, 0u);
    const LargeVector<std::uint32_t> copy = values;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(copy.data()) % kHugePageBytes, 0u);
    for (std::uint32_t i = 0; i < count; i += 4999)
        ASSERT_EQ(copy[i], i * 7) << i;
    EXPECT_EQ(copy.back(), (count - 1) * 7);
    values.resize(1000);
    values.shrink_to_fit();
    EXPECT_EQ(values.capacity(), 1000u);
    EXPECT_EQ(values[999], 999u * 7);
}

// Values appended together are stored as appended one by one: the Nulls among them, and
// currency magnitudes that still make a total check for overflow.
TEST(ColumnStoreAppend, ValuesAppendedTogetherKeepNullsAndOverflowChecks) {
    ColumnStore dates(adDate, 0, false);
    dates.AppendReal(45000.0);
    const double days[] = {45001.0, 0.0, 45003.0};
    const std::uint8_t nulls[] = {0, 1, 0};
    dates.AppendReals(days, nulls, 3);
    ASSERT_EQ(dates.Size(), 4u);
    EXPECT_FALSE(dates.HasNoNulls());
    EXPECT_FALSE(dates.IsNull(0));
    EXPECT_TRUE(dates.Get(2).IsNull());
    EXPECT_EQ(dates.Get(3).ToDate().value, 45003.0);
    dates.AppendReal(1.5); // a row after the Nulls has its flag too
    EXPECT_FALSE(dates.IsNull(4));

    ColumnStore money(adCurrency, 8, false);
    const std::int64_t halves[] = {std::numeric_limits<std::int64_t>::max() / 2,
                                   std::numeric_limits<std::int64_t>::max() / 2, 10};
    money.AppendCurrencies(halves, 3);
    Currency total;
    EXPECT_EQ(VariantErrorOf([&] { money.CurrencyTotal({0, 1, 2}, total); }), vbErrOverflow);
    ASSERT_TRUE(money.CurrencyTotal({0, 2}, total));
    EXPECT_EQ(total.scaled, halves[0] + 10);

    ColumnStore counts(adInteger, 0, false);
    const std::int64_t some[] = {-3, 0, 2'000'000'000};
    counts.AppendIntegers(some, 3);
    EXPECT_EQ(counts.Get(2).ToLong(), 2'000'000'000);
    EXPECT_TRUE(counts.HasNoNulls());
}

TEST(TextColumnStore, ChangedTextsReplaceTheirRowsOnlyThroughEveryLayout) {
    ColumnStore column(adVarWChar, 0, false, TextColumn::Layout::Buffer);
    const std::size_t rows = 2000;
    for (std::size_t i = 0; i < rows; ++i)
        column.Append(Variant(Numbered(i)));
    column.Set(5, Variant(QStringLiteral("C5")));                // shorter: in place
    column.Set(6, Variant(QStringLiteral("Cliente muy largo"))); // longer: to the end
    column.Set(rows - 1, Variant(QStringLiteral("Último cliente de la lista")));
    column.Set(7, Variant());
    EXPECT_EQ(column.TextAt(4), Numbered(4));
    EXPECT_EQ(column.TextAt(5), u"C5");
    EXPECT_EQ(column.TextAt(6), u"Cliente muy largo");
    EXPECT_EQ(column.TextAt(8), Numbered(8));
    EXPECT_EQ(column.TextAt(rows - 1), u"Último cliente de la lista");
    EXPECT_TRUE(column.IsNull(7));
    column.Set(7, Variant(QStringLiteral("vuelve")));
    EXPECT_FALSE(column.IsNull(7));
    EXPECT_EQ(column.TextAt(7), u"vuelve");

    // Rewriting every row many times over with longer texts leaves most of the buffer unused
    // until it is compacted; every row keeps its own latest text throughout.
    for (int round = 0; round < 40; ++round) {
        for (std::size_t i = 0; i < rows; i += 3)
            column.Set(i, Variant(Numbered(i) + QString(round % 5 + 1, u'x')));
    }
    for (std::size_t i = 0; i < rows; ++i) {
        const QString expected = i % 3 == 0      ? Numbered(i) + QString(39 % 5 + 1, u'x')
                                 : i == 5        ? QStringLiteral("C5")
                                 : i == 7        ? QStringLiteral("vuelve")
                                 : i == rows - 1 ? QStringLiteral("Último cliente de la lista")
                                                 : Numbered(i);
        ASSERT_EQ(column.TextAt(i), expected) << i;
    }
}

TEST(TextColumnStore, DictionaryValuesAreSharedAndLengthsAreChecked) {
    ColumnStore column(adVarWChar, 8, false);
    column.Append(Variant(QStringLiteral("Sevilla")));
    column.Append(Variant(QStringLiteral("Sevilla")));
    EXPECT_EQ(column.Texts().Values().size(), 1u);
    EXPECT_EQ(column.Get(0).Get<QString>()->constData(), column.Get(1).Get<QString>()->constData());
    EXPECT_EQ(AdoErrorOf([&] { column.Append(Variant(QStringLiteral("Barcelona"))); }),
              adHrMultipleStep);
    // The refused row is there, as a null.
    ASSERT_EQ(column.Size(), 3u);
    EXPECT_TRUE(column.IsNull(2));
    column.Append(Variant(std::int32_t(42)));
    EXPECT_EQ(column.TextAt(3), u"42");
}

TEST(DecimalColumnStore, DecimalsComeBackExactlyWhateverTheirWidth) {
    ColumnStore column(adNumeric, 19, false);
    Decimal wide;
    wide.lo = 5;
    wide.hi = 7; // needs more than 64 bits
    wide.scale = 3;
    Decimal negativeZero;
    negativeZero.negative = true;
    negativeZero.scale = 2;
    bool ok = false;
    const std::vector<Decimal> values = {
        Decimal::FromString(QStringLiteral("-123.4500"), &ok),
        Decimal::FromString(QStringLiteral("9223372036854775807"), &ok),
        Decimal::FromString(QStringLiteral("9223372036854775808"), &ok),
        wide,
        negativeZero,
        Decimal::FromString(QStringLiteral("0.0000000000000000000000000001"), &ok)};
    for (const Decimal& value : values)
        column.Append(Variant(value));
    column.AppendNull();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Variant value = column.Get(i);
        const Decimal* back = value.Get<Decimal>();
        ASSERT_NE(back, nullptr) << i;
        EXPECT_EQ(back->lo, values[i].lo) << i;
        EXPECT_EQ(back->hi, values[i].hi) << i;
        EXPECT_EQ(back->scale, values[i].scale) << i;
        EXPECT_EQ(back->negative, values[i].negative) << i;
        EXPECT_EQ(column.NumberAt(i), values[i].ToDouble()) << i;
    }
    EXPECT_TRUE(column.Get(values.size()).IsNull());
    // A wide row changed to another wide value, and to a narrow one.
    wide.lo = 6;
    column.Set(3, Variant(wide));
    EXPECT_EQ(column.Get(3).Get<Decimal>()->lo, 6u);
    column.Set(3, Variant(Decimal::FromString(QStringLiteral("2.5"), &ok)));
    EXPECT_EQ(column.Get(3).ToString(), "2,5");
    EXPECT_EQ(column.Get(2).Get<Decimal>()->ToString(), "9223372036854775808");
}

TEST(CurrencyTotal, MatchesAddingEveryValueInTurn) {
    ColumnStore column(adCurrency, 8, false);
    for (std::int64_t i = 1; i <= 1000; ++i)
        column.Append(Variant(Currency{i * 12345 * (i % 2 ? 1 : -1)}));
    std::vector<std::uint32_t> all(1000);
    std::iota(all.begin(), all.end(), 0u);
    std::reverse(all.begin(), all.end());
    Currency total;
    ASSERT_TRUE(column.CurrencyTotal(all, total));
    EXPECT_EQ(total.scaled, 500 * -12345);
    const std::vector<std::uint32_t> some = {0, 2, 4};
    ASSERT_TRUE(column.CurrencyTotal(some, total));
    EXPECT_EQ(total.scaled, 12345 * (1 + 3 + 5));

    // Past 64 bits part-way: overflow, even though the last value would bring it back.
    ColumnStore big(adCurrency, 8, false);
    const std::int64_t most = std::numeric_limits<std::int64_t>::max();
    big.Append(Variant(Currency{most - 10}));
    big.Append(Variant(Currency{20}));
    big.Append(Variant(Currency{-20}));
    EXPECT_EQ(VariantErrorOf([&] { big.CurrencyTotal({0, 1, 2}, total); }), vbErrOverflow);
    ASSERT_TRUE(big.CurrencyTotal({0, 2, 1}, total));
    EXPECT_EQ(total.scaled, most - 10);

    column.Set(10, Variant::Null());
    EXPECT_EQ(VariantErrorOf([&] { column.CurrencyTotal(all, total); }), vbErrInvalidUseOfNull);
    ColumnStore flags(adBoolean, 2, false);
    flags.Append(Variant(true));
    EXPECT_FALSE(flags.CurrencyTotal({0}, total));
}

namespace {

// What a column makes of `value`: the Variant it gives back, or the error it raised.
struct Stored {
    Variant value;
    std::int32_t error = 0;
};

Stored StoredBySet(DataTypeEnum type, const Variant& value) {
    ColumnStore column(type, 6, false);
    column.AppendNull();
    const std::int32_t error = AdoErrorOf([&] { column.Set(0, value); });
    return {column.Get(0), error};
}

Stored StoredByAppend(DataTypeEnum type, const Variant& value) {
    ColumnStore column(type, 6, false);
    const std::int32_t error = AdoErrorOf([&] { column.Append(value); });
    return {column.Get(0), error};
}

} // namespace

// Appending takes shortcuts for the values fetched most often; every value must still come
// out as setting it on a null row gives it, or be refused alike.
TEST(ColumnStoreAppend, StoresWhatSetStoresForEveryKindOfValue) {
    const std::vector<DataTypeEnum> types = {
        adBoolean, adUnsignedTinyInt, adTinyInt,  adSmallInt,     adInteger,
        adBigInt,  adCurrency,        adNumeric,  adSingle,       adDouble,
        adDBDate,  adDBTimeStamp,     adVarWChar, adLongVarWChar, adVariant};
    const std::vector<Variant> values = {
        Variant(true),
        Variant(false),
        Variant(std::int32_t(200)),
        Variant(std::int32_t(-129)),
        Variant(std::int32_t(70000)),
        Variant(std::int16_t(-5)),
        Variant(Currency{-123456789}),
        Variant(Currency{std::numeric_limits<std::int64_t>::min()}),
        Variant(2.5),
        Variant(Date{45000.75}),
        Variant(QStringLiteral("12")),
        Variant(QStringLiteral("Zaragoza")),
        Variant(Decimal::FromString(QStringLiteral("-7.250"))),
        Variant::Null(),
        Variant()};
    for (DataTypeEnum type : types) {
        for (std::size_t v = 0; v < values.size(); ++v) {
            const Stored bySet = StoredBySet(type, values[v]);
            const Stored byAppend = StoredByAppend(type, values[v]);
            EXPECT_EQ(byAppend.error, bySet.error) << type << " " << v;
            EXPECT_EQ(byAppend.value.VarType(), bySet.value.VarType()) << type << " " << v;
            if (!bySet.value.IsNull()) {
                EXPECT_EQ(byAppend.value.Compare(bySet.value), 0) << type << " " << v;
            }
        }
    }
}

TEST(ColumnStoreAppend, TypedAppendsTakeOnlyWhatTheColumnHoldsAsItIs) {
    ColumnStore flags(adBoolean, 2, false);
    EXPECT_FALSE(flags.AppendInteger(1)); // a flag keeps VB's True, so it goes through Set
    ColumnStore bytes(adUnsignedTinyInt, 1, false);
    EXPECT_TRUE(bytes.AppendInteger(255));
    EXPECT_FALSE(bytes.AppendInteger(256));
    EXPECT_FALSE(bytes.AppendCurrency(10000));
    EXPECT_FALSE(bytes.AppendText(u"1"));
    ASSERT_EQ(bytes.Size(), 1u);
    EXPECT_EQ(bytes.Get(0).VarType(), vbByte);
    EXPECT_EQ(bytes.Get(0).ToLong(), 255);

    ColumnStore singles(adSingle, 4, false);
    EXPECT_FALSE(singles.AppendReal(0.1)); // a Single rounds: Set does that
    ColumnStore dates(adDBTimeStamp, 8, false);
    EXPECT_TRUE(dates.AppendReal(45000.5));
    EXPECT_EQ(dates.Get(0).ToDate(), (Date{45000.5}));

    ColumnStore names(adVarWChar, 5, false);
    EXPECT_TRUE(names.AppendText(u"Vigo"));
    EXPECT_FALSE(names.AppendText(u"Bilbao"));
    EXPECT_TRUE(names.AppendText(u"Vigo"));
    ASSERT_EQ(names.Size(), 2u);
    EXPECT_EQ(names.Texts().Values().size(), 1u);
    EXPECT_EQ(names.Get(1).ToString(), "Vigo");
}

TEST(CurrencyTotal, StaysExactAfterValuesAreReplacedAndNullsCleared) {
    ColumnStore column(adCurrency, 8, false);
    const std::int64_t most = std::numeric_limits<std::int64_t>::max();
    column.Append(Variant(Currency{most}));
    column.AppendCurrency(-5);
    column.AppendNull();
    Currency total;
    EXPECT_EQ(VariantErrorOf([&] {
                  column.CurrencyTotal({0, 1, 2}, total);
              }),
              vbErrInvalidUseOfNull);
    column.Set(0, Variant(Currency{8})); // the large value is gone, its bound stays
    column.Set(2, Variant(Currency{-2}));
    EXPECT_TRUE(column.HasNoNulls());
    ASSERT_TRUE(column.CurrencyTotal({0, 1, 2}, total));
    EXPECT_EQ(total.scaled, 1);
    column.Set(1, Variant(Currency{most - 7}));
    EXPECT_EQ(VariantErrorOf([&] { column.CurrencyTotal({0, 1, 2}, total); }), vbErrOverflow);
    ASSERT_TRUE(column.CurrencyTotal({2, 0, 1}, total));
    EXPECT_EQ(total.scaled, most - 1);
}
