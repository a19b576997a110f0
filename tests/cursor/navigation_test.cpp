#include "CursorTest.h"
#include "QtPrinters.h"
#include "platform/ado/Errors.h"

using namespace zlx;
using namespace zlx::test;

namespace {

class CursorNavigation : public CursorTest {};

using Ids = std::vector<std::int32_t>;

TEST_P(CursorNavigation, EqualOrderValuesAreVisitedInIdentityOrder) {
    AddThirteen();
    ASSERT_EQ(Open("grupo"), 0);
    EXPECT_EQ(m_ficha->Order(), "GRUPO");
    EXPECT_EQ(Walk(), (Ids{5, 9, 12, 1, 2, 3, 4, 6, 7, 8, 10, 11, 13}));
    // At the end of the order a move stays on the last record and answers it again.
    EXPECT_EQ(m_ficha->MoveNext(), 13);
    EXPECT_EQ(m_ficha->ID(), 13);
    EXPECT_EQ(Walk(true), (Ids{13, 11, 10, 8, 7, 6, 4, 3, 2, 1, 12, 9, 5}));
    EXPECT_EQ(m_ficha->MovePrevious(), 5);
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("n5"));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(CursorNavigation, IdentityOrderInAnyCaseAndAFilter) {
    AddThirteen();
    ASSERT_EQ(Open("zolmarId", "grupo > 25"), 0);
    EXPECT_EQ(m_ficha->Order(), "ZOLMARID");
    EXPECT_EQ(Walk(), (Ids{6, 7, 8, 10, 11, 13}));
    EXPECT_EQ(Walk(true), (Ids{13, 11, 10, 8, 7, 6}));
    m_ficha->Order("grupo");
    m_ficha->Filter("grupo < 30");
    EXPECT_EQ(Walk(), (Ids{5, 9, 12, 1, 2, 3, 4, 6, 7, 8}));
}

TEST_P(CursorNavigation, EmptyTableKeepsItsColumns) {
    ASSERT_EQ(Open("nombre"), 0);
    EXPECT_EQ(m_ficha->MoveFirst(), -1);
    EXPECT_FALSE(m_ficha->IsValidRecord());
    EXPECT_TRUE(m_ficha->IsValidField("apellidos"));
    EXPECT_TRUE(m_ficha->IsValidField("LastExpressionForMoveWithOrder"));
    EXPECT_FALSE(m_ficha->IsValidField("telefono"));
    EXPECT_EQ(m_ficha->MoveNext(), 0);
    EXPECT_EQ(m_ficha->MovePrevious(), 0);
    EXPECT_EQ(m_ficha->MoveLast(), -1);
    EXPECT_EQ(m_ficha->Refresh(), 0);
    EXPECT_TRUE(m_ficha->IsFiltered());
    EXPECT_EQ(m_ficha->SeekID(0), 0);
    EXPECT_EQ(m_ficha->Find("nombre = 'x'"), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(CursorNavigation, SeekFindAndRefresh) {
    AddThirteen();
    ASSERT_EQ(Open("grupo", "grupo <> 23"), 0);
    EXPECT_EQ(m_ficha->SeekID(9), 9);
    // The filter does not apply to a seek.
    EXPECT_EQ(m_ficha->SeekID(3), 3);
    EXPECT_TRUE(m_ficha->IsFiltered());
    // IsFiltered replaced the record with nothing; seek again.
    EXPECT_EQ(m_ficha->SeekID(4), 4);
    EXPECT_FALSE(m_ficha->IsFiltered());
    // A missing identity answers the record the cursor stood on, and leaves no record.
    EXPECT_EQ(m_ficha->SeekID(400), 4);
    EXPECT_FALSE(m_ficha->IsValidRecord());
    EXPECT_EQ(m_ficha->SeekID(0), 0);
    EXPECT_EQ(m_ficha->SeekID(-2), 0);
    // Find applies the filter and the order.
    EXPECT_EQ(m_ficha->Find("grupo >= 23"), 4);
    EXPECT_EQ(m_ficha->Find("grupo >= 23 OR grupo = 10"), 5);
    EXPECT_EQ(m_ficha->Find("nombre = 'nadie'"), 0);
    EXPECT_EQ(m_ficha->Find("nombre = 'n3'"), 0);
    EXPECT_EQ(m_ficha->SeekID(11), 11);
    EXPECT_EQ(m_ficha->Refresh(), 11);
    Run("DELETE FROM clientes WHERE ZolmarID = 11");
    EXPECT_EQ(m_ficha->Refresh(), -1);
    EXPECT_EQ(m_ficha->Refresh(), 0);
}

TEST_P(CursorNavigation, TextOrderFollowsTheLibraryCollation) {
    for (const char* name : {"zeta", "ana", "Ñu", "Ángel", "ANA", "nube", "beatriz", "Ana"})
        Add(QString::fromUtf8(name), "x", 0);
    // The order the server gives the column, ties by identity.
    const cMatrizPtr sorted =
        m_cn->Execute("SELECT ZolmarID FROM clientes ORDER BY nombre, ZolmarID",
                      zlxExecuteReturn_cMatriz)
            .As<cMatriz>();
    ASSERT_TRUE(sorted);
    Ids expected;
    for (std::int32_t row = sorted->FirstRow(); row <= sorted->LastRow(); ++row)
        expected.push_back(sorted->GetValue(sorted->FirstCol(), row).ToLong());
    ASSERT_EQ(expected.size(), 8u);
    ASSERT_EQ(Open("nombre"), 0);
    EXPECT_EQ(Walk(), expected);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(Walk(true), expected);
    // Case and accents do not separate values: the three spellings of "ana" are one value,
    // visited by identity, and "Ángel" follows them.
    EXPECT_EQ(m_ficha->Find("nombre = 'ana'"), 2);
    EXPECT_EQ(m_ficha->MoveNext(), 5);
    EXPECT_EQ(m_ficha->MoveNext(), 8);
    EXPECT_EQ(m_ficha->MoveNext(), 4);
}

TEST_P(CursorNavigation, ExpressionOrderGoesOnPastADeletedRecord) {
    Add("Ana", "García", 1);
    Add("Eva", "García", 1);
    Add("Ana", "Bueno", 1);
    Add("Eva", "García", 1);
    Add("Luis", "Zamora", 1);
    ASSERT_EQ(Open("apellidos+nombre"), 0);
    EXPECT_EQ(Walk(), (Ids{3, 1, 2, 4, 5}));
    ASSERT_EQ(m_ficha->SeekID(2), 2);
    ASSERT_EQ(m_ficha->MoveNext(), 4);
    // Another workstation deletes the record the cursor stands on.
    Other()->Execute("DELETE FROM clientes WHERE ZolmarID = 4");
    EXPECT_EQ(m_ficha->MoveNext(), 5);
    EXPECT_EQ(m_ficha->MovePrevious(), 2);
    EXPECT_EQ(m_ficha->MovePrevious(), 1);
}

TEST_P(CursorNavigation, ColumnOrderGoesOnPastADeletedRecord) {
    AddThirteen();
    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->SeekID(9), 9);
    Other()->Execute("DELETE FROM clientes WHERE ZolmarID IN (9, 12)");
    EXPECT_EQ(m_ficha->MoveNext(), 1);
    ASSERT_EQ(m_ficha->SeekID(2), 2);
    Other()->Execute("DELETE FROM clientes WHERE ZolmarID = 2");
    EXPECT_EQ(m_ficha->MovePrevious(), 1);
    // The last record deleted: a move from it lands on the new last record.
    ASSERT_EQ(m_ficha->MoveLast(), 13);
    Other()->Execute("DELETE FROM clientes WHERE ZolmarID = 13");
    EXPECT_EQ(m_ficha->MoveNext(), 11);
}

TEST_P(CursorNavigation, NullOrderValues) {
    Add("a", "x", 1);
    Run("INSERT INTO clientes (nombre) VALUES (NULL)");
    Add("b", "x", 2);
    Run("INSERT INTO clientes (nombre) VALUES (NULL)");
    ASSERT_EQ(Open("nombre"), 0);
    // A Null order value is written as the literal '': from a record without a value the next
    // value is the lowest text, and the walk goes on from there.
    ASSERT_EQ(m_ficha->SeekID(2), 2);
    EXPECT_EQ(m_ficha->MoveNext(), 1);
    EXPECT_EQ(m_ficha->MoveNext(), 3);
    ASSERT_EQ(m_ficha->SeekID(4), 4);
    EXPECT_EQ(m_ficha->MoveNext(), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(CursorNavigation, OrderOutsideTheTable) {
    AddThirteen();
    // A column the table lacks: the connection reports the failed opening.
    EXPECT_EQ(Open("telefono"), -1);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Messages()[0].text.contains("telefono", Qt::CaseInsensitive));
    EXPECT_EQ(m_ficha->Get_RS(), nullptr);
    EXPECT_EQ(m_ficha->MoveFirst(), 0);
    EXPECT_FALSE(m_ficha->IsValidRecord());
    // An expression that is not a column: the next move reads the record's column of that
    // name and the recordset's error reaches the caller.
    ASSERT_EQ(Open("upper(nombre)"), 0);
    EXPECT_EQ(m_ficha->MoveFirst(), 1);
    try {
        m_ficha->MoveNext();
        FAIL() << "MoveNext answered";
    } catch (const ado::AdoError& error) {
        EXPECT_EQ(error.Number(), 3265);
    }
    EXPECT_THROW(m_ficha->MovePrevious(), ado::AdoError);
}

TEST_P(CursorNavigation, ChangesOfAnotherWorkstation) {
    Run("INSERT INTO clientes (nombre, grupo, FechaModificacion) VALUES ('a', 1, "
        "'20240105 10:00:00')");
    Run("INSERT INTO clientes (nombre, grupo, FechaModificacion) VALUES ('b', 2, "
        "'20240105 10:00:00')");
    ASSERT_EQ(Open("grupo", "grupo < 5"), 0);
    ASSERT_EQ(m_ficha->MoveFirst(), 1);
    m_ficha->ResetUpdatedFlag();
    Date seen{0};
    EXPECT_FALSE(m_ficha->RecordUpdated(seen));
    const cConexionPtr other = Other();
    other->Execute("UPDATE clientes SET nombre = 'A2', FechaModificacion = '20240105 10:00:05' "
                   "WHERE ZolmarID = 1");
    EXPECT_TRUE(m_ficha->RecordUpdated(seen));
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("A2"));
    m_ficha->ResetUpdatedFlag();
    EXPECT_FALSE(m_ficha->RecordUpdated(seen));
    // A time the form has already seen counts as seen.
    other->Execute(
        "UPDATE clientes SET FechaModificacion = '20240105 10:00:09' WHERE ZolmarID = 1");
    Date formTime{MakeDate(2024, 1, 5, 10, 0, 9)};
    EXPECT_FALSE(m_ficha->RecordUpdated(formTime));
    // Moved out of the filter by another workstation.
    EXPECT_FALSE(m_ficha->IsFiltered());
    other->Execute("UPDATE clientes SET grupo = 9 WHERE ZolmarID = 1");
    EXPECT_TRUE(m_ficha->IsFiltered());
    EXPECT_FALSE(m_ficha->IsValidRecord());
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(CursorNavigation);

} // namespace
