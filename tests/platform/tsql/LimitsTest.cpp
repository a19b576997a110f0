// Values held to SQL Server's types on every engine: a text's length, an integer's range,
// integer averages and casts, division by zero and texts taking a number's type.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class LimitsTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE piezas (id INT, nombre VARCHAR(4), nivel TINYINT, "
                            "cantidad INT)"));
        Exec(QStringLiteral("INSERT INTO piezas VALUES (1, 'eje', 0, 7)"));
        Exec(QStringLiteral("INSERT INTO piezas VALUES (2, 'roda  ', 255, 0)"));
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(LimitsTest);

TEST_P(LimitsTest, StoredValuesKeepToTheirColumnTypes) {
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO piezas VALUES (3, 'tuerca', 1, 1)")), 8152);
    EXPECT_EQ(
        NativeErrorOf(QStringLiteral("UPDATE piezas SET nombre = nombre + 'xx' WHERE id = 1")),
        8152);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("UPDATE piezas SET nivel = nivel + 1 WHERE id = 2")),
              220);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO piezas VALUES (3, 'a', -1, 1)")), 220);
    EXPECT_EQ(Column(QStringLiteral("SELECT id FROM piezas ORDER BY id")), (QStringList{"1", "2"}));
}

TEST_P(LimitsTest, AWiderColumnTakesLongerTexts) {
    Exec(QStringLiteral("ALTER TABLE piezas ALTER COLUMN nombre VARCHAR(10)"));
    Exec(QStringLiteral("INSERT INTO piezas VALUES (3, 'tuerca', 1, 1)"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("INSERT INTO piezas VALUES (4, 'arandela grande', 1, "
                                           "1)")),
              8152);
    EXPECT_EQ(Value(QStringLiteral("SELECT COUNT(*) FROM piezas")), QStringLiteral("3"));
}

TEST_P(LimitsTest, IntegersStayIntegers) {
    Exec(QStringLiteral("INSERT INTO piezas VALUES (3, 'b', 1, 2)"));
    EXPECT_EQ(Value(QStringLiteral("SELECT AVG(p.cantidad), AVG(cantidad * 1.0) FROM piezas p")),
              QStringLiteral("3|3"));
    EXPECT_EQ(Value(QStringLiteral("SELECT CAST(-7.9 AS INT), CONVERT(SMALLINT, 2.99), "
                                   "CAST('12' AS INT) + 1, '3' * 2, 1.5 + '2'")),
              QStringLiteral("-7|2|13|6|3.5"));
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT 2 * 'dos'")), 245);
}

TEST_P(LimitsTest, DivisionByZeroFailsWhereverTheZeroComesFrom) {
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT id / (cantidad) FROM piezas")), 8134);
    EXPECT_EQ(NativeErrorOf(QStringLiteral("SELECT 10 % cantidad FROM piezas WHERE id = 2")), 8134);
    EXPECT_EQ(Value(QStringLiteral("SELECT 14 / cantidad, cantidad / 2.0 FROM piezas WHERE id = "
                                   "1")),
              QStringLiteral("2|3.5"));
}
