// Field values read from their bytes: the plain reading (no Variant) against the general one,
// and dates against the calendar.

#include "platform/dbfformat/DbfFieldCodec.h"

#include <QDate>
#include <gtest/gtest.h>
#include <string>

using namespace zlx;
using Kind = DbfFieldCodec::PlainValue::Kind;

namespace {

struct Field {
    char type;
    std::string bytes;
    std::size_t decimals;
};

// The plain value as the Variant Decode gives for it.
Variant AsVariant(const DbfFieldCodec::PlainValue& value) {
    switch (value.kind) {
    case Kind::Null:
        return Variant::Null();
    case Kind::Integer:
        return Variant(static_cast<std::int32_t>(value.integer));
    case Kind::Currency:
        return Variant(Currency{value.integer});
    case Kind::Double:
        return Variant(value.real);
    case Kind::Date:
        return Variant(Date{value.real});
    case Kind::Logical:
        return Variant(value.integer != 0);
    case Kind::Text:
        return Variant(value.text.toString());
    }
    return {};
}

} // namespace

// Every value the plain reading answers is the one Decode gives, kind included; what it
// leaves (exponents, too many digits, shapes past 14 characters) Decode still reads.
TEST(DbfPlainDecoding, GivesWhatDecodeGivesOrLeavesItToDecode) {
    const std::vector<Field> read = {{'N', "   -12.50", 2},
                                     {'N', "1234.5678", 4},
                                     {'N', "    42", 0},
                                     {'N', "-99999999", 0},
                                     {'N', "1234567890", 0},
                                     {'N', "  12345.1234567", 7},
                                     {'N', "     ", 2},
                                     {'F', " 3.25", 2},
                                     {'N', std::string("  7\0\0", 5), 0},
                                     {'D', "20240229", 0},
                                     {'D', "20230229", 0},
                                     {'D', "        ", 0},
                                     {'D', "00010101", 0},
                                     {'D', "99991231", 0},
                                     {'L', "T", 0},
                                     {'L', "y", 0},
                                     {'L', "?", 0},
                                     {'C',
                                      "Pe\xf1"
                                      "a  ",
                                      0},
                                     {'V', "", 0}};
    for (const Field& f : read) {
        QString text;
        DbfFieldCodec::PlainValue plain;
        ASSERT_TRUE(DbfFieldCodec::DecodePlain(f.type, f.bytes.data(), f.bytes.size(), f.decimals,
                                               {}, text, plain))
            << f.bytes;
        const Variant general =
            DbfFieldCodec::Decode(f.type, f.bytes.data(), f.bytes.size(), f.decimals);
        const Variant mine = AsVariant(plain);
        EXPECT_EQ(mine.VarType(), general.VarType()) << f.bytes;
        if (!general.IsNull()) {
            EXPECT_EQ(mine.Compare(general), 0) << f.bytes;
        }
    }
    const std::vector<Field> left = {
        {'N', "1.5E3", 2},    {'N', "12.5", 0}, {'N', "1234567890123456", 0},
        {'N', "1.234567", 2}, {'N', "12-3", 0}, {'M', "         1", 0},
        {'I', "\1\0\0\0", 0}};
    for (const Field& f : left) {
        QString text;
        DbfFieldCodec::PlainValue plain;
        EXPECT_FALSE(DbfFieldCodec::DecodePlain(f.type, f.bytes.data(), f.bytes.size(), f.decimals,
                                                {}, text, plain))
            << f.bytes;
    }
}

// Every day of the years around calendar changes and leap rules reads as MakeDate counts it.
TEST(DbfPlainDecoding, DatesCountDaysAsMakeDate) {
    for (int year : {1, 4, 100, 1582, 1600, 1899, 1900, 1970, 2000, 2024, 2100, 9999}) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= 31; ++day) {
                const QByteArray bytes = QStringLiteral("%1%2%3")
                                             .arg(year, 4, 10, QLatin1Char('0'))
                                             .arg(month, 2, 10, QLatin1Char('0'))
                                             .arg(day, 2, 10, QLatin1Char('0'))
                                             .toLatin1();
                const Variant value = DbfFieldCodec::Decode('D', bytes.constData(), 8, 0);
                if (!QDate(year, month, day).isValid()) {
                    EXPECT_TRUE(value.IsNull()) << bytes.constData();
                    continue;
                }
                ASSERT_EQ(value.VarType(), vbDate) << bytes.constData();
                EXPECT_EQ(value.ToDate().value, MakeDate(year, month, day).value)
                    << bytes.constData();
            }
        }
    }
}

// A date whose eight bytes are not all digits (a blank or another character at either end or
// inside) is read piece by piece; one of plain digits reads at once. Both give the same days.
TEST(DbfPlainDecoding, DatesWithBlanksOrOtherBytesReadPieceByPiece) {
    const auto date = [](const char* bytes) { return DbfFieldCodec::Decode('D', bytes, 8, 0); };
    EXPECT_EQ(date("2024 315").ToDate().value, MakeDate(2024, 3, 15).value);
    EXPECT_EQ(date("2024031 ").ToDate().value, MakeDate(2024, 3, 1).value);
    EXPECT_EQ(date(" 9990101").ToDate().value, MakeDate(999, 1, 1).value);
    EXPECT_EQ(date("20240315").ToDate().value, MakeDate(2024, 3, 15).value);
    for (const char* bytes : {"2024:315", "2024/3/1",
                              "202403\xb9"
                              "5",
                              "\x80"
                              "0240315"})
        EXPECT_TRUE(date(bytes).IsNull()) << bytes;
}

// Windows-1252 texts: bytes 0x80-0x9F are the code page's own characters wherever they stand
// in a text, every other byte its Latin-1 character.
TEST(DbfPlainDecoding, TextsDecodeWindows1252) {
    const auto text = [](const std::string& bytes) {
        return DbfFieldCodec::Decode('C', bytes.data(), bytes.size(), 0).ToString();
    };
    EXPECT_EQ(text("Pe\xf1"
                   "a \xe1\xc9\xfc\xff"),
              QStringLiteral(u"Peña áÉüÿ"));
    EXPECT_EQ(text(std::string(39, 'x') + "\x80"), QString(39, u'x') + QChar(0x20AC));
    EXPECT_EQ(text("\x9f\x8a\x99\x81"), QStringLiteral(u"ŸŠ™\u0081"));
    EXPECT_EQ(text(std::string("a\0b", 3)), QString(u'a') + QChar(0) + QChar(u'b'));
}
