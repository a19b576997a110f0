// The table origin on a Jet file, the matrix origin, a table of another database and the
// indexes of the cursor's order.

#include "CursorTest.h"
#include "QtPrinters.h"
#include "cursor/OrderIndex.h"
#include "frame/LibraryState.h"

#include <QFile>

using namespace zlx;
using namespace zlx::test;

namespace {

TEST(FichaDBTableOrigin, JetFileIsWalkedAsOneRecordset) {
    MessageRecorder messages;
    TemporaryFolder dir;
    auto cn = std::make_shared<cConexion>();
    ASSERT_TRUE(cn->Init(zlxDataProvider_JET40, dir.filePath("datos.mdb")));
    cn->Execute("CREATE TABLE clientes (ZolmarID AUTOINCREMENT CONSTRAINT clientes_PKEY_zolmarID "
                "PRIMARY KEY, nombre VARCHAR(20), Activo INT)");
    for (const char* name : {"c", "a", "b"})
        cn->Execute(QStringLiteral("INSERT INTO clientes (nombre, Activo) VALUES ('%1', 0)")
                        .arg(QString::fromUtf8(name)));
    ASSERT_EQ(cn->GetLastError(), 0);
    cFichaDB ficha;
    // The light cursor asked for is not available on a Jet file.
    ASSERT_EQ(ficha.Init(cn, "clientes", "nombre", "", zlxFichaDBOrigenCursorLigero), 0);
    EXPECT_EQ(ficha.Get_RS()->RecordCount(), 3);
    EXPECT_TRUE(ficha.IsValidRecord());
    EXPECT_EQ(ficha.MoveFirst(), 0);
    EXPECT_EQ(ficha.ID(), 1);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.ID(), 2);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.ID(), 3); // stays on the last record
    EXPECT_EQ(ficha.MovePrevious(), 0);
    EXPECT_EQ(ficha.SeekID(1), 1);
    EXPECT_EQ(ficha.Field("nombre"), Variant("c"));
    EXPECT_EQ(ficha.SeekID(9), 0);
    // Writes go back to the file.
    EXPECT_EQ(ficha.SeekID(2), 2);
    ficha.RecordStatus(zlxFichaDBStatusInactivo);
    EXPECT_EQ(ficha.RecordStatus(), zlxFichaDBStatusInactivo);
    EXPECT_EQ(cn->RecCount("clientes", "Activo = 1"), 1);
    const std::int32_t added = ficha.AddNew();
    EXPECT_EQ(added, 4);
    EXPECT_EQ(cn->RecCount("clientes"), 4);
    EXPECT_EQ(ficha.SeekID(1), 1);
    EXPECT_EQ(ficha.Delete(), 0);
    EXPECT_EQ(cn->RecCount("clientes"), 3);
    EXPECT_EQ(cn->RecCount("clientes", "ZolmarID = 1"), 0);
    EXPECT_TRUE(messages.Messages().empty());
}

TEST(FichaDBMatrixOrigin, MovesAndReadsDoNothing) {
    cFichaDB ficha;
    EXPECT_EQ(ficha.InitFromMatriz(nullptr, "nombre"), -1);
    auto matriz = std::make_shared<cMatriz>();
    matriz->Dimension(1, 2, 1, 3);
    EXPECT_EQ(ficha.InitFromMatriz(matriz, "nombre", "x=1"), 0);
    EXPECT_EQ(ficha.Order(), "NOMBRE");
    EXPECT_EQ(ficha.Filter(), "x=1");
    EXPECT_EQ(ficha.Table(), "");
    EXPECT_EQ(ficha.MoveFirst(), 0);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.SeekID(2), 0);
    EXPECT_EQ(ficha.Refresh(), 0);
    EXPECT_FALSE(ficha.IsValidRecord());
    EXPECT_TRUE(ficha.IsValidField("cualquiera"));
    EXPECT_FALSE(ficha.IsFiltered());
    EXPECT_TRUE(ficha.Field("nombre").IsEmpty());
    EXPECT_EQ(ficha.RecordStatus(), zlxFichaDBStatusError);
}

class FichaDBOtherDatabase : public CursorTest {};

TEST_P(FichaDBOtherDatabase, ReseedRunsInTheTablesDatabase) {
    const QString otra = m_database + "o";
    m_cn->Execute("IF EXISTS (SELECT name FROM sysdatabases WHERE name='" + otra +
                  "') DROP DATABASE " + otra);
    Run("CREATE DATABASE " + otra);
    Run("CREATE TABLE " + otra +
        "..fichas (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(20))");
    for (int i = 1; i <= 5; ++i)
        Run("INSERT INTO " + otra + "..fichas (nombre) VALUES ('f" + QString::number(i) + "')");
    Run("DELETE FROM " + otra + "..fichas WHERE ZolmarID >= 4");
    ASSERT_EQ(m_ficha->Init(m_cn, otra + "..fichas", "nombre"), 0);
    EXPECT_EQ(m_ficha->AddNew("nombre", Variant("nueva")), 4);
    EXPECT_EQ(m_cn->cn()->DefaultDatabase().toLower(), m_database.toLower());
    EXPECT_EQ(m_ficha->MoveLast(), 4);
    EXPECT_EQ(m_ficha->Delete(), 0);
    EXPECT_EQ(m_ficha->AddNew("nombre", Variant("otra vez")), 4);
    EXPECT_EQ(m_cn->cn()->DefaultDatabase().toLower(), m_database.toLower());
    EXPECT_TRUE(m_messages.Messages().empty());
    m_ficha.reset();
    m_cn->Execute("DROP DATABASE " + otra);
}

TEST_P(FichaDBOtherDatabase, OrderIndexesAreMadeAndMissingOnesLogged) {
    AddThirteen();
    const QString log = LibraryLog().FileName();
    auto logged = [&] {
        QFile file(log);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const QString warning = "Aviso: el cursor de clientes se ordena por GRUPO sin índice";
    const qsizetype before = logged().count(warning);
    ASSERT_EQ(Open("grupo"), 0);
    EXPECT_EQ(logged().count(warning), before + 1);
    EXPECT_FALSE(OrderIndex::Exists(*m_cn, "clientes", "GRUPO"));
    EXPECT_TRUE(OrderIndex::Ensure(*m_cn, "clientes", "GRUPO"));
    EXPECT_TRUE(OrderIndex::Exists(*m_cn, "clientes", "GRUPO"));
    EXPECT_TRUE(OrderIndex::Ensure(*m_cn, "clientes", "GRUPO"));
    ASSERT_EQ(Open("grupo"), 0);
    EXPECT_EQ(logged().count(warning), before + 1);
    EXPECT_FALSE(OrderIndex::Ensure(*m_cn, "clientes", "APELLIDOS+NOMBRE"));
    // The index changes no answer.
    EXPECT_EQ(Walk(), (std::vector<std::int32_t>{5, 9, 12, 1, 2, 3, 4, 6, 7, 8, 10, 11, 13}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(FichaDBOtherDatabase);

} // namespace
