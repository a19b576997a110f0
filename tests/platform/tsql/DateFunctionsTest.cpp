// The date functions over stored DATETIME columns on every engine: DATEPART, DATENAME, DATEADD,
// DATEDIFF, CONVERT with styles and date arithmetic, under the session settings the library
// uses (DATEFORMAT dmy, DATEFIRST 1, Spanish names).
#include "SessionFixture.h"

#include <QDateTime>
#include <QThread>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class DateFunctionsTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("SET DATEFORMAT dmy SET DATEFIRST 1 SET LANGUAGE Español"));
        Exec(QStringLiteral("CREATE TABLE citas (id INT, d DATETIME NULL, texto VARCHAR(20))"));
        Exec(QStringLiteral("INSERT INTO citas VALUES (1, '31/01/2024 09:30', '29.02.2024')"));
        Exec(QStringLiteral("INSERT INTO citas VALUES (2, '24/03/2024 23:59:59', '31.02.2024')"));
        Exec(QStringLiteral("INSERT INTO citas VALUES (3, NULL, NULL)"));
    }

    // The refusal's description of what the batch names, empty when it runs.
    QString Refusal(const QString& batch) {
        try {
            Exec(batch);
        } catch (const ado::AdoError& error) {
            EXPECT_EQ(error.Number(), static_cast<std::int32_t>(0x80040E14));
            return error.Description().section(QStringLiteral("no soportada: "), 1);
        }
        return {};
    }

    QStringList Rows(const QString& query) {
        QStringList rows;
        for (const QString& event : Exec(query))
            if (event.startsWith(u"row ")) rows << event.mid(4);
        return rows;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(DateFunctionsTest);

TEST_P(DateFunctionsTest, ColumnsGoThroughEveryFunction) {
    EXPECT_EQ(
        Rows(QStringLiteral(
            "SELECT DATEPART(wk, d), DATEPART(dw, d), DATENAME(dw, d), DATENAME(mm, d), "
            "CONVERT(VARCHAR(10), d, 103), CONVERT(CHAR(5), d, 108) FROM citas ORDER BY id")),
        (QStringList{"5|3|miércoles|enero|31/01/2024|09:30", "12|7|domingo|marzo|24/03/2024|23:59",
                     "NULL|NULL|NULL|NULL|NULL|NULL"}));
    EXPECT_EQ(Rows(QStringLiteral("SELECT DATEADD(month, 1, d), DATEADD(ss, 1, d), "
                                  "DATEDIFF(day, d, '01/03/2024'), DATEDIFF(mi, d, "
                                  "DATEADD(hh, 1, d)) FROM citas WHERE id < 3 ORDER BY id")),
              (QStringList{"2024-02-29 09:30:00|2024-01-31 09:30:01|30|60",
                           "2024-04-24 23:59:59|2024-03-25 00:00:00|-23|60"}));
}

TEST_P(DateFunctionsTest, ArithmeticOnColumnsStaysADate) {
    EXPECT_EQ(Column(QStringLiteral("SELECT c.id FROM citas c WHERE c.d + 1 > '01/02/2024' "
                                    "ORDER BY c.id")),
              (QStringList{"1", "2"}));
    EXPECT_EQ(Value(QStringLiteral("SELECT d - 0.5 FROM citas WHERE id = 1")),
              QStringLiteral("2024-01-30 21:30:00"));
    EXPECT_EQ(Value(QStringLiteral("SELECT id + 1 FROM citas WHERE id = 1")), QStringLiteral("2"));
}

TEST_P(DateFunctionsTest, TextsConvertedAtRunTimeFailAsSqlServer) {
    EXPECT_EQ(Value(QStringLiteral("SELECT CONVERT(DATETIME, texto, 104) FROM citas WHERE id = 1")),
              QStringLiteral("2024-02-29 00:00:00"));
    EXPECT_EQ(NativeErrorOf(
                  QStringLiteral("SELECT CONVERT(DATETIME, texto, 104) FROM citas WHERE id = 2")),
              242);
    // A literal is read before the batch runs: nothing of it runs.
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO citas (id) VALUES (9) "
                                           "SELECT DATEADD(day, 1, '30/02/2024')")),
              242);
    EXPECT_EQ(Value(QStringLiteral("SELECT COUNT(*) FROM citas")), QStringLiteral("3"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT DATEPART(fortnight, d) FROM citas")), 102);
}

TEST_P(DateFunctionsTest, StylesATypeCannotBeWrittenInAreRefusedByName) {
    // Hijri; a TIME or DATETIME2 written with milliseconds after a colon; a TIME with a day.
    EXPECT_EQ(Refusal(QStringLiteral("SELECT CONVERT(VARCHAR(30), d, 130) FROM citas")),
              u"CONVERT con estilo 130");
    EXPECT_EQ(Refusal(QStringLiteral("SELECT CONVERT(VARCHAR(30), CAST(d AS DATETIME2), 109) "
                                     "FROM citas")),
              u"CONVERT con estilo 109 de datetime2");
    EXPECT_EQ(
        Refusal(QStringLiteral("SELECT CONVERT(VARCHAR(30), CAST(d AS TIME), 100) FROM citas")),
        u"CONVERT con estilo 100 de time");
    // A column's text in a style that names the month: the engine reads no month names.
    EXPECT_EQ(Refusal(QStringLiteral("SELECT CONVERT(DATETIME, texto, 106) FROM citas")),
              u"CONVERT con estilo 106");
    EXPECT_EQ(Refusal(QStringLiteral("SELECT CONVERT(VARCHAR(30), d, -1) FROM citas")),
              u"CONVERT con estilo -1");
}

TEST_P(DateFunctionsTest, DatesWrittenAsTextsReadBackAsTheSameDate) {
    // Style 0 drops the seconds; styles 9 and 13 keep the milliseconds.
    EXPECT_EQ(Rows(QStringLiteral("SELECT CAST(d AS VARCHAR(20)), CONVERT(VARCHAR(26), d, 109), "
                                  "CONVERT(CHAR(24), d, 113) FROM citas WHERE id = 2")),
              (QStringList{"Mar 24 2024 11:59PM|Mar 24 2024 11:59:59:000PM|24 Mar 2024 "
                           "23:59:59:000"}));
    EXPECT_EQ(Value(QStringLiteral("SELECT COUNT(*) FROM citas WHERE d = 'Ene 31 2024  9:30AM' OR "
                                   "d = '24 marzo 2024 23:59:59:000'")),
              u"2");
}

namespace {

// The milliseconds of a 'yyyy-mm-dd hh:mi:ss.mmm...' text.
int Milliseconds(const QString& text) {
    return text.mid(20, 3).toInt();
}

QDateTime Moment(const QString& text, Qt::TimeSpec spec) {
    QDateTime moment =
        QDateTime::fromString(text.left(23), QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
    moment.setTimeSpec(spec);
    return moment;
}

} // namespace

TEST_P(DateFunctionsTest, ClockFunctionsKeepTheirTypesDigits) {
    // GETDATE() and GETUTCDATE() are DATETIME values, in 1/300 seconds; SYSDATETIME() has seven
    // digits of a second (the engine's six and a 0 where it keeps no more).
    bool fractions = false;
    bool subMilliseconds = false;
    for (int sample = 0; sample < 12; ++sample) {
        const QStringList row = Rows(QStringLiteral("SELECT CONVERT(VARCHAR(23), GETDATE(), 121), "
                                                    "CONVERT(VARCHAR(23), GETUTCDATE(), 121), "
                                                    "CONVERT(VARCHAR(27), SYSDATETIME(), 121)"))
                                    .value(0)
                                    .split(u'|');
        ASSERT_EQ(row.size(), 3);
        for (const QString& datetime : {row[0], row[1]}) {
            ASSERT_EQ(datetime.size(), 23) << datetime.toStdString();
            EXPECT_TRUE(QList<int>({0, 3, 7}).contains(Milliseconds(datetime) % 10))
                << datetime.toStdString();
            fractions = fractions || Milliseconds(datetime) != 0;
        }
        ASSERT_EQ(row[2].size(), 27) << row[2].toStdString();
        subMilliseconds = subMilliseconds || row[2].mid(23) != u"0000";
        EXPECT_LT(std::abs(Moment(row[0], Qt::LocalTime).secsTo(QDateTime::currentDateTime())),
                  120);
        EXPECT_LT(std::abs(Moment(row[1], Qt::UTC).secsTo(QDateTime::currentDateTimeUtc())), 120);
        QThread::msleep(7);
    }
    EXPECT_TRUE(fractions);
    EXPECT_TRUE(subMilliseconds);
}

TEST_P(DateFunctionsTest, GetDateIsOneValueWithinAStatement) {
    EXPECT_EQ(Rows(QStringLiteral(
                  "SELECT COUNT(DISTINCT CONVERT(VARCHAR(23), GETDATE(), 121)), "
                  "SUM(CASE WHEN GETDATE() = GETDATE() THEN 1 ELSE 0 END) FROM citas a, citas b")),
              (QStringList{"1|9"}));
}

TEST_P(DateFunctionsTest, SecondDigitsAreKeptOrTheSeventhIsRefusedByName) {
    // Six digits and a seventh 0 are kept by columns, variables and casts on every engine.
    Exec(QStringLiteral("CREATE TABLE medidas (id INT, momento DATETIME2, hora TIME(7))"));
    Exec(QStringLiteral("INSERT INTO medidas VALUES (1, '15/03/2024 10:20:30.1234560', "
                        "'10:20:30.765432')"));
    EXPECT_EQ(Rows(QStringLiteral("SELECT CONVERT(VARCHAR(27), momento, 121), CAST(hora AS "
                                  "VARCHAR(16)) FROM medidas")),
              (QStringList{"2024-03-15 10:20:30.1234560|10:20:30.7654320"}));
    EXPECT_EQ(Value(QStringLiteral(
                  "DECLARE @m DATETIME2(6) = '15/03/2024 10:20:30.123456' DECLARE @h TIME "
                  "SELECT @h = hora FROM medidas "
                  "SELECT CONVERT(VARCHAR(26), @m, 121), CAST(@h AS VARCHAR(16))")),
              QStringLiteral("2024-03-15 10:20:30.123456|10:20:30.7654320"));
    // A seventh digit that is not 0: an engine that stops at the microsecond cannot keep it,
    // whether it is in a literal or in a text column's value, read when the statement runs.
    Exec(QStringLiteral("CREATE TABLE lecturas (texto VARCHAR(30))"));
    Exec(QStringLiteral("INSERT INTO lecturas VALUES ('2024-03-15 10:20:30.1234567')"));
    struct Seventh {
        QString query;
        QString answer;
        QString type; // the type the engine that cannot keep it names
    };
    const Seventh sevenths[] = {
        {QStringLiteral("SELECT CONVERT(VARCHAR(27), CAST('15/03/2024 10:20:30.1234567' AS "
                        "DATETIME2), 121)"),
         QStringLiteral("2024-03-15 10:20:30.1234567"), QStringLiteral("DATETIME2(7)")},
        {QStringLiteral("DECLARE @h TIME(7) = '10:20:30.7654321' SELECT CAST(@h AS VARCHAR(16))"),
         QStringLiteral("10:20:30.7654321"), QStringLiteral("TIME(7)")},
        {QStringLiteral("SELECT COUNT(*) FROM medidas WHERE hora < '10:20:30.7654321'"),
         QStringLiteral("1"), QStringLiteral("TIME(7)")},
        {QStringLiteral("SELECT CONVERT(VARCHAR(27), CAST(texto AS DATETIME2(7)), 121) FROM "
                        "lecturas"),
         QStringLiteral("2024-03-15 10:20:30.1234567"), QStringLiteral("DATETIME2(7)")},
        {QStringLiteral("SELECT CAST(CONVERT(TIME, SUBSTRING(texto, 12, 16)) AS VARCHAR(16)) FROM "
                        "lecturas"),
         QStringLiteral("10:20:30.1234567"), QStringLiteral("TIME(7)")},
    };
    for (const Seventh& seventh : sevenths) {
        if (Postgres())
            EXPECT_EQ(Refusal(seventh.query),
                      QStringLiteral("séptimo dígito de segundo en ") + seventh.type)
                << seventh.query.toStdString();
        else
            EXPECT_EQ(Value(seventh.query), seventh.answer) << seventh.query.toStdString();
    }
}
