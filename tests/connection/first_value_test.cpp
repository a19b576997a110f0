// Execute in mode 2 on the server engines: the value a batch answers first, as a recordset on
// the batch would show it, or the default when there is none.
#include "QtPrinters.h"
#include "platform/ado/Recordset.h"
#include "support/ServerDatabaseTest.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

class FirstValue : public test::ServerDatabaseTest {
protected:
    FirstValue() : ServerDatabaseTest("valor") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE v (ZolmarID INT NOT NULL, nombre VARCHAR(10), importe MONEY, precio "
            "DECIMAL(10,3), alta DATETIME, activo BIT, cantidad FLOAT, nota TEXT, chico SMALLINT)");
        Run("INSERT INTO v VALUES (1, 'Ana', 12.5, 1.25, '20240305 10:30:00', 1, 0.5, 'larga', 7)");
        Run("INSERT INTO v (ZolmarID) VALUES (2)");
    }

    Variant Value(const QString& sql, const Variant& fallback = Variant(-1), bool hide = false) {
        return m_cn->Execute(sql, zlxExecuteReturn_Value, fallback, hide);
    }

    // The first value of the recordset that mode 4 answers for `sql`.
    Variant RecordsetValue(const QString& sql) {
        const auto rs = m_cn->Execute(sql, zlxExecuteReturn_RecordSet).As<ado::Recordset>();
        if (!rs || rs->IsEOF()) return Variant(QStringLiteral("<none>"));
        return rs->CurrentValue(0);
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(FirstValue);

TEST_P(FirstValue, EachTypeComesBackAsTheRecordsetShowsIt) {
    for (const char* column : {"ZolmarID", "nombre", "importe", "precio", "alta", "activo",
                               "cantidad", "nota", "chico", "importe * 2", "nombre + '!'"}) {
        const QString sql = QStringLiteral("SELECT %1 FROM v WHERE ZolmarID = 1").arg(column);
        const Variant value = Value(sql);
        const Variant shown = RecordsetValue(sql);
        EXPECT_EQ(value.VarType(), shown.VarType()) << column;
        EXPECT_EQ(value, shown) << column;
    }
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE ZolmarID = 1").ToString(), "Ana");
    EXPECT_EQ(Value("SELECT importe FROM v WHERE ZolmarID = 1").ToDouble(), 12.5);
    EXPECT_EQ(Value("SELECT precio FROM v WHERE ZolmarID = 1").VarType(), vbDecimal);
    EXPECT_EQ(Value("SELECT activo FROM v WHERE ZolmarID = 1").ToLong() != 0, true);
    EXPECT_EQ(Value("SELECT alta FROM v WHERE ZolmarID = 1").VarType(), vbDate);
    EXPECT_EQ(Value("SELECT chico FROM v WHERE ZolmarID = 1").VarType(), vbInteger);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(FirstValue, OnlyTheFirstRowOfTheFirstResultCounts) {
    EXPECT_EQ(Value("SELECT ZolmarID FROM v ORDER BY ZolmarID DESC").ToLong(), 2);
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE ZolmarID = 1 SELECT 5").ToString(), "Ana");
    // The first result is empty: what follows it is not looked at.
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE 0 = 1 SELECT 5", Variant(8)).ToLong(), 8);
    // Every row was still read: @@ROWCOUNT counts them.
    Value("SELECT ZolmarID FROM v");
    EXPECT_EQ(Value("SELECT @@ROWCOUNT").ToLong(), 2);
    // Without counts the rowset after an UPDATE is the first result.
    EXPECT_EQ(Value("SET NOCOUNT ON UPDATE v SET chico = 9 WHERE ZolmarID = 2 SELECT chico FROM v "
                    "WHERE ZolmarID = 2 SET NOCOUNT OFF")
                  .ToLong(),
              9);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(FirstValue, NullsAndEmptyResultsAnswerTheDefault) {
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE ZolmarID = 2", Variant("nada")).ToString(), "nada");
    EXPECT_EQ(Value("SELECT precio FROM v WHERE ZolmarID = 2", Variant(3)).ToLong(), 3);
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE ZolmarID = 99", Variant("nada")).ToString(),
              "nada");
    // A default of Nothing becomes the text "0".
    const Variant zero = Value("SELECT nombre FROM v WHERE ZolmarID = 99", Variant(ObjectPtr()));
    EXPECT_EQ(zero.VarType(), vbString);
    EXPECT_EQ(zero.ToString(), "0");
    EXPECT_EQ(m_cn->GetLastError(), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(FirstValue, AFirstResultWithoutRowsIsAClosedRecordset) {
    EXPECT_EQ(Value("UPDATE v SET chico = 1 SELECT nombre FROM v", Variant(4)).ToLong(), 4);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "Error en el método 'Execute'.\rEl objeto 'recordset' está cerrado.\rInstrucción "
        "SQL=\rUPDATE v SET chico = 1 SELECT nombre FROM v"));
    // The UPDATE ran.
    EXPECT_EQ(Value("SELECT chico FROM v WHERE ZolmarID = 2").ToLong(), 1);
    m_messages.Clear();
    EXPECT_EQ(Value("SET NOCOUNT OFF", Variant(4), true).ToLong(), 4);
    EXPECT_TRUE(m_messages.Messages().empty()); // hidden
}

TEST_P(FirstValue, AFailureAnywhereInTheBatchAnswersTheDefault) {
    EXPECT_EQ(Value("SELECT 1 SELECT x FROM no_existe", Variant(6)).ToLong(), 6);
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(m_cn->GetLastSQLNativeError(), 208);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(
        m_messages.Last().text.contains("Error en el método 'Execute'.\rError nativo SQL=208"));
    EXPECT_TRUE(m_messages.Last().text.endsWith("SELECT 1 SELECT x FROM no_existe\r</B>"));
    m_messages.Clear();
    EXPECT_EQ(Value("SELECT nombre FROM no_existe", Variant(6), true).ToLong(), 6);
    EXPECT_TRUE(m_messages.Messages().empty());
    EXPECT_EQ(Value("SELECT nombre FROM v WHERE ZolmarID = 1").ToString(), "Ana");
    EXPECT_EQ(m_cn->GetLastError(), 0);
}
