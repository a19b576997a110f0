// SQL Server's date rules as the engines get them: reading texts under a date order, the units
// of DATEPART, DATEADD and DATEDIFF, and the CONVERT styles.
#include "platform/engines/SqlServerDates.h"
#include "platform/engines/SqlServerErrors.h"

#include <gtest/gtest.h>

using namespace zlx::ado;

namespace {

QString Read(const char* text, DateOrder order = DateOrder::DayMonthYear) {
    const DateReading reading = ReadDate(QString::fromUtf8(text), order);
    return reading.error ? QStringLiteral("error %1").arg(reading.error)
                         : IsoDateText(reading.value);
}

QDateTime At(const char* iso) {
    return ReadDate(QString::fromLatin1(iso), DateOrder::YearMonthDay).value;
}

} // namespace

TEST(SqlServerDates, TextsReadInTheSessionOrderOrFailWithTheirNumber) {
    EXPECT_EQ(Read("15/03/2024"), u"2024-03-15 00:00:00");
    EXPECT_EQ(Read("03/15/2024", DateOrder::MonthDayYear), u"2024-03-15 00:00:00");
    EXPECT_EQ(Read("15.03.24 7:05 PM"), u"2024-03-15 19:05:00");
    EXPECT_EQ(Read("1-2-99"), u"1999-02-01 00:00:00"); // two-digit years from 50 on are 19xx
    EXPECT_EQ(Read(" 20240315 13:45:30.25 "), u"2024-03-15 13:45:30.250");
    // A year written first reads year, day, month under dmy; ISO with its T never does.
    EXPECT_EQ(Read("2024-15-03"), u"2024-03-15 00:00:00");
    EXPECT_EQ(Read("2024-03-15T10:00:00"), u"2024-03-15 10:00:00");
    EXPECT_EQ(Read("2024-03-15", DateOrder::MonthDayYear), u"2024-03-15 00:00:00");
    EXPECT_EQ(Read("10:30"), u"1900-01-01 10:30:00");
    // Out of range (242) is a date written right whose values do not exist.
    EXPECT_EQ(Read("03/15/2024"), u"error 242");
    EXPECT_EQ(Read("29/02/2023"), u"error 242");
    EXPECT_EQ(Read("01/01/1752"), u"error 242");
    // Anything else is no date at all (241).
    EXPECT_EQ(Read("hola"), u"error 241");
    EXPECT_EQ(Read("15/03/2024 25:00"), u"error 241");
    EXPECT_EQ(Read("15/03"), u"error 241");
    EXPECT_EQ(DateErrorText(kNativeDateOutOfRange).contains(u"out-of-range"), true);
}

// DATETIME keeps three-hundredths of a second: .990, .993, .997 and .000 of the next second.
TEST(SqlServerDates, MillisecondsRoundToThreeHundredthsOfASecond) {
    EXPECT_EQ(Read("20240315 10:00:00.001"), u"2024-03-15 10:00:00");
    EXPECT_EQ(Read("20240315 10:00:00.002"), u"2024-03-15 10:00:00.003");
    EXPECT_EQ(Read("20240315 10:00:00.005"), u"2024-03-15 10:00:00.007");
    EXPECT_EQ(Read("20240315 10:00:00.991"), u"2024-03-15 10:00:00.990");
    EXPECT_EQ(Read("20240315 10:00:00.994"), u"2024-03-15 10:00:00.993");
    EXPECT_EQ(Read("20240315 10:00:00.995"), u"2024-03-15 10:00:00.997");
    EXPECT_EQ(Read("31/12/2024 23:59:59.999"), u"2025-01-01 00:00:00");
}

TEST(SqlServerDates, UnitsTakeEveryAbbreviation) {
    for (const char* name : {"yy", "YYYY", "year"})
        EXPECT_EQ(DateUnitNamed(QString::fromLatin1(name)), DateUnit::Year) << name;
    for (const char* name : {"dw", "w", "weekday"})
        EXPECT_EQ(DateUnitNamed(QString::fromLatin1(name)), DateUnit::Weekday) << name;
    for (const char* name : {"y", "dy", "dayofyear"})
        EXPECT_EQ(DateUnitNamed(QString::fromLatin1(name)), DateUnit::DayOfYear) << name;
    EXPECT_EQ(DateUnitNamed(QStringLiteral("n")), DateUnit::Minute);
    EXPECT_EQ(DateUnitNamed(QStringLiteral("s")), DateUnit::Second);
    EXPECT_FALSE(DateUnitNamed(QStringLiteral("fortnight")));
}

TEST(SqlServerDates, WeeksAndWeekdaysFollowDateFirst) {
    const QDateTime sunday = At("2024-03-24"), monday = At("2024-03-25");
    EXPECT_EQ(DatePartOf(DateUnit::Weekday, sunday, 1), 7);
    EXPECT_EQ(DatePartOf(DateUnit::Weekday, monday, 1), 1);
    EXPECT_EQ(DatePartOf(DateUnit::Weekday, sunday, 7), 1);
    // 2023 began on a Sunday: with Monday first, 2 January opens week 2.
    EXPECT_EQ(DatePartOf(DateUnit::Week, At("2023-01-01"), 1), 1);
    EXPECT_EQ(DatePartOf(DateUnit::Week, At("2023-01-02"), 1), 2);
    EXPECT_EQ(DatePartOf(DateUnit::Week, At("2023-01-02"), 7), 1);
    EXPECT_EQ(DateNameOf(DateUnit::Weekday, At("2024-03-20"), 1, true), u"miércoles");
    EXPECT_EQ(DateNameOf(DateUnit::Month, At("2024-03-20"), 1, false), u"March");
    EXPECT_EQ(DateNameOf(DateUnit::Year, At("2024-03-20"), 1, true), u"2024");
}

TEST(SqlServerDates, AddClampsMonthEndsAndDiffCountsBoundaries) {
    EXPECT_EQ(IsoDateText(DateAdd(DateUnit::Month, 1, At("2024-01-31"))), u"2024-02-29 00:00:00");
    EXPECT_EQ(IsoDateText(DateAdd(DateUnit::Quarter, -1, At("2024-05-31"))),
              u"2024-02-29 00:00:00");
    EXPECT_EQ(IsoDateText(DateAdd(DateUnit::Millisecond, 1500, At("2024-01-31 23:59:59"))),
              u"2024-02-01 00:00:00.500");
    // Week boundaries are Sundays whatever DATEFIRST says.
    EXPECT_EQ(DateDiff(DateUnit::Week, At("2024-03-23"), At("2024-03-24")), 1);
    EXPECT_EQ(DateDiff(DateUnit::Week, At("2024-03-24"), At("2024-03-30")), 0);
    // One second across an hour is one hour; before 1970 too.
    EXPECT_EQ(DateDiff(DateUnit::Hour, At("1960-05-01 09:59:59"), At("1960-05-01 10:00:00")), 1);
    EXPECT_EQ(DateDiff(DateUnit::Minute, At("2024-03-15 08:00:59"), At("2024-03-15 08:00:01")), 0);
    EXPECT_EQ(DateDiff(DateUnit::Quarter, At("2023-12-31"), At("2024-01-01")), 1);
}

// Month names in the session language; the day and the hour of twelve right-aligned with a blank.
TEST(SqlServerDates, NamedMonthStylesWriteTheLanguagesShortNames) {
    const DateReading morning{At("2024-01-05 09:05:30.007")}, afternoon{At("2024-08-15 14:30:00")};
    EXPECT_EQ(StyleText(morning, 100, 3, true), u"Ene  5 2024  9:05AM");
    EXPECT_EQ(StyleText(morning, 0, 3, false), u"Jan  5 2024  9:05AM");
    EXPECT_EQ(StyleText(afternoon, 0, 3, true), u"Ago 15 2024  2:30PM");
    EXPECT_EQ(StyleText(DateReading{At("2024-12-31")}, 100, 3, true), u"Dic 31 2024 12:00AM");
    EXPECT_EQ(StyleText(DateReading{At("2024-12-31 12:00")}, 100, 3, true), u"Dic 31 2024 12:00PM");
    EXPECT_EQ(StyleText(morning, 109, 3, true), u"Ene  5 2024  9:05:30:007AM");
    EXPECT_EQ(StyleText(morning, 6, 3, true), u"05 Ene 24");
    EXPECT_EQ(StyleText(afternoon, 106, 3, false), u"15 Aug 2024");
    EXPECT_EQ(StyleText(morning, 7, 3, true), u"Ene 05, 24");
    EXPECT_EQ(StyleText(afternoon, 107, 3, true), u"Ago 15, 2024");
    EXPECT_EQ(StyleText(afternoon, 113, 3, true), u"15 Ago 2024 14:30:00:000");
    EXPECT_EQ(StyleText(morning, 14, 3, true), u"09:05:30:007");
    EXPECT_TRUE(StyleNamesMonth(7));
    EXPECT_FALSE(StyleNamesMonth(14));
    EXPECT_TRUE(StyleHasColonMilliseconds(114));
    EXPECT_FALSE(StyleHasColonMilliseconds(121));
}

TEST(SqlServerDates, MonthNamesReadInTheSessionLanguageOnly) {
    const auto read = [](const char* text, MonthNames names) {
        const DateReading reading =
            ReadDate(QString::fromUtf8(text), DateOrder::DayMonthYear, names);
        return reading.error ? QStringLiteral("error %1").arg(reading.error)
                             : IsoDateText(reading.value);
    };
    EXPECT_EQ(read("Mar 15 2024  2:30PM", MonthNames::Spanish), u"2024-03-15 14:30:00");
    EXPECT_EQ(read("ene 5, 24", MonthNames::Spanish), u"2024-01-05 00:00:00");
    EXPECT_EQ(read("05 Ago 2024 14:30:15:123", MonthNames::Spanish), u"2024-08-05 14:30:15.123");
    EXPECT_EQ(read("3 DICIEMBRE 2024", MonthNames::Spanish), u"2024-12-03 00:00:00");
    EXPECT_EQ(read("Dec 3 2024", MonthNames::English), u"2024-12-03 00:00:00");
    // Another language's name, or no names allowed, is no date; an impossible day out of range.
    EXPECT_EQ(read("Dec 3 2024", MonthNames::Spanish), u"error 241");
    EXPECT_EQ(read("Mar 15 2024", MonthNames::None), u"error 241");
    EXPECT_EQ(read("Feb 30 2024", MonthNames::English), u"error 242");
    EXPECT_EQ(read("Mar 15 2024 25:00", MonthNames::English), u"error 241");
}

TEST(SqlServerDates, StylesWriteAndReadTheirOrder) {
    EXPECT_EQ(At("2024-03-05 13:45:30.007").toString(StyleFormat(121)), u"2024-03-05 13:45:30.007");
    EXPECT_EQ(At("2024-03-05").toString(StyleFormat(3)), u"05/03/24");
    EXPECT_TRUE(StyleFormat(130).isEmpty());
    EXPECT_TRUE(StyleFormat(131).isEmpty());
    EXPECT_EQ(StyleOrder(103), DateOrder::DayMonthYear);
    EXPECT_EQ(StyleOrder(1), DateOrder::MonthDayYear);
    EXPECT_EQ(StyleOrder(112), DateOrder::YearMonthDay);
    EXPECT_FALSE(StyleOrder(108));
}
