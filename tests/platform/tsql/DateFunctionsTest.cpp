// The date functions over stored DATETIME columns on every engine: DATEPART, DATENAME, DATEADD,
// DATEDIFF, CONVERT with styles and date arithmetic, under the session settings the library
// uses (DATEFORMAT dmy, DATEFIRST 1, Spanish names).
#include "SessionFixture.h"

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
