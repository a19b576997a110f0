// What each of SQL Server's date types keeps of a value: its range, its rounding and the text the
// embedded engine stores it as.
#include "platform/engines/SqlServerDateTypes.h"
#include "platform/engines/SqlServerDates.h"
#include "platform/engines/SqlServerErrors.h"

#include <gtest/gtest.h>

using namespace zlx::ado;

namespace {

DateType Type(const char* name) {
    const auto type = DateType::Named(QString::fromLatin1(name));
    EXPECT_TRUE(type.has_value()) << name;
    return type.value_or(DateType{});
}

// `text` read under dmy as a column of type `type` keeps it, or its error number.
QString Kept(const char* text, const char* type) {
    const DateType dateType = Type(type);
    const DateReading reading =
        ReadAsType(QString::fromUtf8(text), DateOrder::DayMonthYear, dateType);
    return reading.error ? QStringLiteral("error %1").arg(reading.error)
                         : StoredDateText(reading, dateType);
}

} // namespace

TEST(SqlServerDateTypes, NamesWithAndWithoutDigits) {
    EXPECT_EQ(Type("date").Spelling(), u"DATE");
    EXPECT_EQ(Type("TIME").Spelling(), u"TIME(7)");
    EXPECT_EQ(Type("datetime2 ( 3 )").Spelling(), u"DATETIME2(3)");
    EXPECT_EQ(Type("SmallDateTime").Name(), u"smalldatetime");
    EXPECT_FALSE(DateType::Named(QStringLiteral("DATETIME(3)")));
    EXPECT_FALSE(DateType::Named(QStringLiteral("DATETIMEOFFSET")));
    EXPECT_FALSE(DateType::Named(QStringLiteral("VARCHAR(10)")));
}

TEST(SqlServerDateTypes, SmallDateTimeRoundsToTheMinuteWithinItsRange) {
    EXPECT_EQ(Kept("15/03/2024 10:20:29.997", "SMALLDATETIME"), u"2024-03-15 10:20:00");
    EXPECT_EQ(Kept("15/03/2024 10:20:29.998", "SMALLDATETIME"), u"2024-03-15 10:20:00");
    EXPECT_EQ(Kept("15/03/2024 10:20:29.999", "SMALLDATETIME"), u"2024-03-15 10:21:00");
    EXPECT_EQ(Kept("31/12/2024 23:59:30", "SMALLDATETIME"), u"2025-01-01 00:00:00");
    EXPECT_EQ(Kept("01/01/1900", "SMALLDATETIME"), u"1900-01-01 00:00:00");
    EXPECT_EQ(Kept("06/06/2079 23:59:29", "SMALLDATETIME"), u"2079-06-06 23:59:00");
    // Past the end by rounding, or outside it as written.
    EXPECT_EQ(Kept("06/06/2079 23:59:30", "SMALLDATETIME"), u"error 242");
    EXPECT_EQ(Kept("31/12/1899 23:59", "SMALLDATETIME"), u"error 242");
    EXPECT_EQ(Kept("29/02/2023", "SMALLDATETIME"), u"error 242");
}

TEST(SqlServerDateTypes, DateAndTimeKeepTheirOwnPart) {
    EXPECT_EQ(Kept("15/03/2024 23:59:59.999", "DATE"), u"2024-03-15 00:00:00");
    EXPECT_EQ(Kept("0001-01-01", "DATE"), u"0001-01-01 00:00:00");
    EXPECT_EQ(Kept("15/03/2024 14:30", "TIME"), u"14:30:00");
    EXPECT_EQ(Kept("14:30:15.1234567", "TIME"), u"14:30:15.1234567");
    EXPECT_EQ(Kept("14:30:15.5", "TIME(0)"), u"14:30:16");
    EXPECT_EQ(Kept("8:05 PM", "TIME(2)"), u"20:05:00");
}

TEST(SqlServerDateTypes, DateTime2KeepsItsDigitsWithoutDateTimeSteps) {
    EXPECT_EQ(Kept("15/03/2024 10:20:30.001", "DATETIME2"), u"2024-03-15 10:20:30.001");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.001", "DATETIME"), u"2024-03-15 10:20:30");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.5556", "DATETIME2(3)"), u"2024-03-15 10:20:30.556");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.45", "DATETIME2(1)"), u"2024-03-15 10:20:30.500");
    EXPECT_EQ(Kept("31/12/2024 23:59:59.9996", "DATETIME2(0)"), u"2025-01-01 00:00:00");
    // DATETIME takes three digits at most and starts in 1753.
    EXPECT_EQ(Kept("15/03/2024 10:20:30.1234", "DATETIME"), u"error 241");
    EXPECT_EQ(Kept("01/01/1752", "DATETIME"), u"error 242");
    EXPECT_EQ(Kept("01/01/1752", "DATETIME2"), u"1752-01-01 00:00:00");
}

TEST(SqlServerDateTypes, NewerTypesReadTheYearFirstAndCallAnImpossibleDayNoDate) {
    // Under dmy a DATETIME reads 2024-03-15 as year, day, month; the newer types do not.
    EXPECT_EQ(Kept("2024-03-15", "DATETIME"), u"error 242");
    EXPECT_EQ(Kept("2024-03-15", "DATE"), u"2024-03-15 00:00:00");
    EXPECT_EQ(Kept("2024/03/15 10:00", "DATETIME2(0)"), u"2024-03-15 10:00:00");
    EXPECT_EQ(Kept("30/02/2024", "DATE"), u"error 241");
    EXPECT_EQ(Kept("hoy", "TIME"), u"error 241");
    EXPECT_EQ(Kept("25:00", "TIME"), u"error 241");
}

TEST(SqlServerDateTypes, OutOfRangeMessagesNameBothTypes) {
    EXPECT_EQ(OutOfRangeText(QStringLiteral("varchar"), Type("SMALLDATETIME")),
              u"The conversion of a varchar data type to a smalldatetime data type resulted in an "
              u"out-of-range value.");
}

TEST(SqlServerDateTypes, SevenDigitsAreKeptAndRoundedHalfUpToFewer) {
    EXPECT_EQ(Kept("15/03/2024 10:20:30.1234567", "DATETIME2"), u"2024-03-15 10:20:30.1234567");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.1234565", "DATETIME2(6)"), u"2024-03-15 10:20:30.1234570");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.1234567", "DATETIME2(3)"), u"2024-03-15 10:20:30.123");
    EXPECT_EQ(Kept("15/03/2024 10:20:30.9999996", "DATETIME2(6)"), u"2024-03-15 10:20:31");
    // A fraction below the millisecond keeps its three leading zeros.
    EXPECT_EQ(Kept("10:20:30.0001", "TIME"), u"10:20:30.0001000");
    EXPECT_EQ(Kept("10:20:30.0000005", "TIME(6)"), u"10:20:30.0000010");
    EXPECT_EQ(Kept("10:20:30.12345678", "TIME"), u"error 241");
}

TEST(SqlServerDateTypes, StylesAndDatePartsReachTheTick) {
    const DateReading moment =
        ReadWideDate(QStringLiteral("2024-03-15 10:20:30.1234567"), DateOrder::DayMonthYear);
    ASSERT_EQ(moment.error, 0);
    EXPECT_EQ(StyleText(moment, 121, 7, true), u"2024-03-15 10:20:30.1234567");
    EXPECT_EQ(StyleText(moment, 121, 3, true), u"2024-03-15 10:20:30.123");
    EXPECT_EQ(StyleText(moment, 21, 0, true), u"2024-03-15 10:20:30");
    EXPECT_EQ(StyleText(moment, 103, 7, true), u"15/03/2024");
    EXPECT_EQ(StyleText(moment, kTimeOfDayStyle, 7, true), u"10:20:30.1234567");
    EXPECT_EQ(StyleText(moment, kTimeOfDayStyle, 0, true), u"10:20:30");
    EXPECT_EQ(DatePartOf(DateUnit::Microsecond, moment, 1), 123456);
    EXPECT_EQ(DatePartOf(DateUnit::Nanosecond, moment, 1), 123456700);
    EXPECT_EQ(DatePartOf(DateUnit::Millisecond, moment, 1), 123);
    EXPECT_EQ(DateUnitNamed(QStringLiteral("MCS")), DateUnit::Microsecond);
    EXPECT_EQ(DateUnitNamed(QStringLiteral("ns")), DateUnit::Nanosecond);
}
