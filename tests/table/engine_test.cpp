#include "QtPrinters.h"
#include "TableTestData.h"
#include "support/ServerDatabaseTest.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::test;

namespace {

// Tables loaded from a connection, on the embedded server folder and on PostgreSQL.
class TableOnEngine : public ServerDatabaseTest {
protected:
    TableOnEngine() : ServerDatabaseTest("tabla") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(30), "
            "saldo MONEY, alta DATETIME, puntos INT)");
        Run("INSERT INTO clientes (nombre, saldo, alta, puntos) VALUES ('Ana', 10.5, "
            "'20240301', 7)");
        Run("INSERT INTO clientes (nombre, saldo, alta, puntos) VALUES ('Luis', NULL, "
            "'20240302 10:30:00', 3)");
        ASSERT_TRUE(m_messages.Messages().empty()) << m_messages.Last().text.toStdString();
    }
    // Ten digits in d and two in d2: their cross product numbers `rows` rows from 0.
    QString NumbersQuery(int digits) {
        Run("CREATE TABLE d (n INT)");
        Run("CREATE TABLE d2 (n INT)");
        for (int i = 0; i < 10; ++i)
            Run(QString("INSERT INTO d (n) VALUES (%1)").arg(i));
        Run("INSERT INTO d2 (n) VALUES (0)");
        Run("INSERT INTO d2 (n) VALUES (1)");
        QString select = "SELECT g.n * 1%1 ", from = " FROM d2 g";
        select = select.arg(QString(digits, u'0'));
        for (int i = 0; i < digits; ++i) {
            select += QString("+ t%1.n * 1%2 ").arg(i).arg(QString(i, u'0'));
            from += QString(", d t%1").arg(i);
        }
        return select + "AS n, 'fila' AS texto" + from;
    }
};

std::shared_ptr<cDatos> TableOf(const Variant& result) {
    return result.IsObject() ? result.As<cDatos>() : nullptr;
}

} // namespace

TEST_P(TableOnEngine, ExecuteAnswersTablesInThreeWays) {
    const QString query = "SELECT nombre, saldo, alta, puntos FROM clientes ORDER BY ZolmarID";
    for (int mode : {zlxExecuteReturn_cDatos_Copy, zlxExecuteReturn_cDatos_Disconnected,
                     zlxExecuteReturn_cDatos_Connected}) {
        SCOPED_TRACE(mode);
        const auto table = TableOf(m_cn->Execute(query, mode));
        ASSERT_TRUE(table);
        EXPECT_EQ(table->RecCount(), 2);
        EXPECT_EQ(table->FieldCount(), 4);
        EXPECT_EQ(table->CurrentRow(), 1);
        EXPECT_EQ(table->Field("nombre").ToString(), "Ana");
        // MONEY is numeric(19,4) on PostgreSQL.
        EXPECT_EQ(table->ColumnInfo(1).nType,
                  Postgres() ? zlxTblColumnTypeDecimal : zlxTblColumnTypeCurrency);
        EXPECT_EQ(table->DataCell("alta", 2).ToDate(), MakeDate(2024, 3, 2, 10, 30, 0));
        EXPECT_TRUE(table->DataCell("saldo", 2).IsNull());
        EXPECT_EQ(table->Get_RS()->ActiveConnection() != nullptr,
                  mode == zlxExecuteReturn_cDatos_Connected);
        EXPECT_EQ(table->Sum(Variant("puntos")).ToCurrency().scaled, 100000);
    }
    EXPECT_EQ(
        m_cn->Execute("SELECT nada FROM clientes", zlxExecuteReturn_cDatos_Copy, Variant(-5), true)
            .ToLong(),
        -5);
}

TEST_P(TableOnEngine, FirstRowIntoVariablesAndEmptyStructures) {
    Variant nombre, saldo = Variant(1.0), alta, sobra;
    EXPECT_TRUE(m_cn->SQLSelect2Vars("SELECT nombre, saldo, alta FROM clientes WHERE puntos = 3",
                                     nombre, &saldo, &alta));
    EXPECT_EQ(nombre.ToString(), "Luis");
    EXPECT_EQ(saldo.ToDouble(), 1.0); // a Null leaves the variable as it was
    EXPECT_EQ(alta.ToDate(), MakeDate(2024, 3, 2, 10, 30, 0));

    EXPECT_TRUE(m_cn->SQLSelect2Vars("SELECT nombre, puntos, alta FROM clientes WHERE 1 = 0",
                                     nombre, &saldo, &alta, &sobra));
    EXPECT_EQ(nombre.ToString(), "");
    EXPECT_EQ(saldo.ToLong(), 0);
    EXPECT_EQ(alta.ToDate(), BlankDate());

    nombre = Variant("x");
    alta = Variant(MakeDate(2000, 1, 1));
    saldo = Variant(2.5);
    m_messages.Clear();
    EXPECT_FALSE(m_cn->SQLSelect2Vars("SELECT nada FROM clientes", nombre, &saldo, &alta));
    EXPECT_EQ(nombre.ToString(), "");
    EXPECT_EQ(alta.ToDate(), BlankDate());
    EXPECT_EQ(saldo.VarType(), vbInteger);
    EXPECT_FALSE(m_messages.Messages().empty());

    const auto structure = m_cn->GetStructureFromQuery("clientes");
    ASSERT_TRUE(structure);
    EXPECT_EQ(structure->RecCount(), 0);
    EXPECT_EQ(structure->FieldCount(), 5);
    EXPECT_EQ(structure->FieldNumber("puntos"), 4);
    EXPECT_EQ(structure->ColumnInfo(1).nType, zlxTblColumnTypeChar);
    EXPECT_EQ(structure->ColumnInfo(1).nSize, 30);
    const auto two = m_cn->GetStructureFromQuery("clientes", "nombre, alta");
    ASSERT_TRUE(two);
    EXPECT_EQ(two->FieldCount(), 2);
}

TEST_P(TableOnEngine, AsynchronousQueryReportsProgressAndCanBeCancelled) {
    const QString numbers = NumbersQuery(5); // 200,000 rows
    cDatos table;
    QStringList phases;
    std::int32_t lastProgress = 0, progressEvents = 0;
    QObject::connect(&table, &cDatos::QueryInProgress,
                     [&](const QString& message, std::int32_t counter) {
                         if (phases.isEmpty() || phases.back() != message) phases << message;
                         if (message == "Recuperando datos..." && counter > 0) {
                             ++progressEvents;
                             EXPECT_GT(counter, lastProgress);
                             lastProgress = counter;
                         }
                     });
    EXPECT_EQ(table.AsyncQuery(numbers, m_cn), 200000);
    for (const auto& m : m_messages.Messages())
        ADD_FAILURE() << m.text.toStdString();
    EXPECT_EQ(table.RecCount(), 200000);
    EXPECT_EQ(table.CurrentRow(), 1);
    EXPECT_EQ(table.Get_RS()->ActiveConnection(), nullptr);
    EXPECT_EQ(phases, (QStringList{"Realizada consulta; esperando al servidor...",
                                   "Recuperando datos...", "Completado."}));
    EXPECT_GE(progressEvents, 1);
    EXPECT_EQ(m_cn->cn()->CommandTimeout(), 30);
    EXPECT_EQ(table.Sum(Variant("n")).ToCurrency().scaled, 199999LL * 200000 / 2 * 10000);

    // Cancelled while rows arrive: the rows fetched so far stay, counted negative.
    cDatos partial;
    QObject::connect(&partial, &cDatos::QueryInProgress,
                     [&](const QString& message, std::int32_t counter) {
                         if (message == "Recuperando datos..." && counter >= 3000)
                             partial.CancelAsyncQuery();
                     });
    const std::int32_t fetched = partial.AsyncQuery(numbers, m_cn);
    if (Postgres()) {
        EXPECT_LT(fetched, 0);
        EXPECT_LT(partial.RecCount(), 200000);
    }
    EXPECT_EQ(fetched < 0 ? -fetched : fetched, partial.RecCount());
    EXPECT_GE(partial.RecCount(), 3000);
    EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM clientes", zlxExecuteReturn_Value).ToLong(), 2);
}

TEST_P(TableOnEngine, AsynchronousQueryCancelledOrFailedKeepsThePreviousRows) {
    cDatos table;
    ASSERT_EQ(table.AsyncQuery("SELECT nombre FROM clientes", m_cn), 2);
    QObject::connect(&table, &cDatos::QueryInProgress, [&](const QString& message, std::int32_t) {
        if (message.startsWith("Realizada")) table.CancelAsyncQuery();
    });
    EXPECT_EQ(table.AsyncQuery("WAITFOR DELAY '00:00:05' ; SELECT puntos FROM clientes"), 0);
    EXPECT_EQ(table.RecCount(), 2);
    EXPECT_EQ(table.FieldNumber("nombre"), 0);
    QObject::disconnect(&table, nullptr, nullptr, nullptr);

    m_messages.Clear();
    EXPECT_EQ(table.AsyncQuery("SELECT nada FROM clientes"), 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_Err_Consultar);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().title, "Se ha producido un error durante una consulta");
    EXPECT_TRUE(m_messages.Last().text.startsWith("Error Nº "));
    EXPECT_TRUE(m_messages.Last().text.endsWith("\rSQL=SELECT nada FROM clientes"));
    EXPECT_EQ(table.RecCount(), 2);
    EXPECT_EQ(m_cn->cn()->CommandTimeout(), 30);
    m_messages.Clear();
    EXPECT_EQ(table.AsyncQuery("SELECT nada FROM clientes", nullptr, true), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(TableOnEngine);

// A connected table (and a keyset recordset) writes its changes to the table by key.
TEST_P(TableOnEngine, ConnectedRowsWriteTheirChangesBack) {
    const auto table =
        TableOf(m_cn->Execute("SELECT ZolmarID, nombre, puntos FROM clientes ORDER BY ZolmarID",
                              zlxExecuteReturn_cDatos_Connected));
    ASSERT_TRUE(table);
    table->CurrentRow(2);
    table->Field("puntos", Variant(30));
    EXPECT_EQ(table->InsertRow(Variant::Array({"nombre", "puntos"}), Variant::Array({"Eva", 9})),
              3);
    EXPECT_EQ(table->Field("ZolmarID").ToLong(), 3); // the identity the insert was given
    table->Field("nombre", Variant("Eva María"));
    table->CurrentRow(1);
    EXPECT_EQ(table->Delete(), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
    const auto stored =
        TableOf(m_cn->Execute("SELECT ZolmarID, nombre, puntos FROM clientes ORDER BY ZolmarID",
                              zlxExecuteReturn_cDatos_Copy));
    ASSERT_TRUE(stored);
    EXPECT_EQ(ColumnTexts(*stored, "ZolmarID"), (QStringList{"2", "3"}));
    EXPECT_EQ(ColumnTexts(*stored, "nombre"), (QStringList{"Luis", "Eva María"}));
    EXPECT_EQ(ColumnTexts(*stored, "puntos"), (QStringList{"30", "9"}));

    // A long text column filled and read in pieces.
    Run("CREATE TABLE notas (ZolmarID INT NOT NULL IDENTITY(1,1), texto TEXT)");
    ado::RecordsetPtr rs;
    ASSERT_EQ(m_cn->Open_RecordSet(rs, "SELECT ZolmarID, texto FROM notas", 3, 1, 1, 3), 0);
    rs->AddNew();
    ado::Field& text = rs->GetFields().Item("texto");
    text.AppendChunk(Variant("primera parte, "));
    text.AppendChunk(Variant("segunda parte"));
    rs->Update();
    EXPECT_EQ(m_cn->Execute("SELECT texto FROM notas", zlxExecuteReturn_Value).ToString(),
              "primera parte, segunda parte");
    EXPECT_EQ(text.GetChunk(8).ToString(), "primera ");
    EXPECT_EQ(text.GetChunk(100).ToString(), "parte, segunda parte");
    EXPECT_TRUE(text.GetChunk(10).IsNull());
    EXPECT_THROW(rs->GetFields().Item("ZolmarID").AppendChunk(Variant("1")), ado::AdoError);
}

// The server ends the query's session while rows arrive: the query fails with its message
// and the table keeps what it held.
// Only a server has sessions that another connection can end.
class TableOnServer : public TableOnEngine {};

TEST_P(TableOnServer, AsynchronousQueryOnAKilledServerSessionFailsCleanly) {
    const QString numbers = NumbersQuery(5);
    cDatos table;
    ASSERT_EQ(table.AsyncQuery("SELECT nombre FROM clientes", m_cn), 2);
    const long pid = m_cn->Execute("SELECT pg_backend_pid()", zlxExecuteReturn_Value).ToLong();
    ASSERT_GT(pid, 0);
    cConexion killer;
    ASSERT_TRUE(killer.Init(zlxDataProvider_MSDE, {}, Server()));
    bool killed = false;
    QObject::connect(&table, &cDatos::QueryInProgress, [&](const QString& message, std::int32_t n) {
        if (!killed && message == "Recuperando datos..." && n > 0) {
            killed = true;
            killer.Execute(QStringLiteral("SELECT pg_terminate_backend(%1)").arg(pid),
                           zlxExecuteReturn_Value);
        }
    });
    m_messages.Clear();
    EXPECT_EQ(table.AsyncQuery(numbers, m_cn, true), 0);
    EXPECT_TRUE(killed);
    EXPECT_EQ(table.LastError(), zlxDatosError_Err_Consultar);
    EXPECT_EQ(table.RecCount(), 2);
    EXPECT_EQ(table.FieldNumber("nombre"), 0);
}

ZLX_ON_POSTGRES(TableOnServer);
