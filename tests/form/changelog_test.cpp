// The record change log on each server engine: captures of real cursors, the encoded
// differences and the LogFichas rows written.

#include "QtPrinters.h"
#include "form/FichaChangeLog.h"
#include "support/ServerDatabaseTest.h"

using namespace zlx;
using namespace zlx::test;

namespace {

const QChar S(2); // starts an item
const QChar V(3); // starts a value

QString Item(QChar op, const QString& name, const QString& value) {
    return QString(S) + op + name + V + value;
}

// The log table as the tests create it.
QString CreateLogFichas(const QString& table) {
    return "CREATE TABLE " + table +
           " (ZolmarID INT NOT NULL IDENTITY(1,1), Fecha DATETIME, ID_Usuario INT, "
           "ID_Puesto INT, Tabla VARCHAR(128), ID_Ficha INT, TipoOp SMALLINT, "
           "Valores VARCHAR(8000))";
}

class ChangeLog : public ServerDatabaseTest {
protected:
    ChangeLog() : ServerDatabaseTest("changelog") {}

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40), "
            "notas VARCHAR(9000), limite INT, alta DATETIME)");
        Run(CreateLogFichas("LogFichas"));
        Run("INSERT INTO clientes (nombre, notas, limite, alta) "
            "VALUES ('Ana', NULL, 1500, '20240315')");
        ASSERT_EQ(m_ficha->Init(m_cn, "clientes", "nombre"), 0);
        ASSERT_EQ(m_ficha->MoveFirst(), 1);
    }

    LogFichasOrigin Origin(const QString& tabla = QStringLiteral("clientes")) const {
        return {7, 3, m_database, tabla, m_ficha->ID()};
    }
    // Captures the record, runs the change, captures it again and writes the log.
    bool LogChange(const QString& change) {
        cMatrizPtr matriz;
        FichaChangeLog::Capture(matriz, true, *m_ficha);
        Run(change);
        m_ficha->Refresh();
        FichaChangeLog::Capture(matriz, false, *m_ficha);
        return FichaChangeLog::Write(*m_cn, matriz, false, Origin());
    }
    QString Valores(const QString& table = QStringLiteral("LogFichas")) {
        return Logged("Valores", table).ToString();
    }
    Variant Logged(const QString& column, const QString& table = QStringLiteral("LogFichas")) {
        return m_cn->Execute("SELECT " + column + " FROM " + table, zlxExecuteReturn_Value,
                             Variant());
    }
    std::int32_t LogRows(const QString& table = QStringLiteral("LogFichas")) {
        return m_cn->RecCount(table);
    }

    // The identity column as the engine names it (PostgreSQL folds names to lower case).
    QString Id() const {
        return Postgres() ? QStringLiteral("zolmarid") : QStringLiteral("ZolmarID");
    }

    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
};

TEST_P(ChangeLog, AnEditLogsEachChangedFieldInColumnOrder) {
    ASSERT_TRUE(LogChange("UPDATE clientes SET nombre='Ana María', notas='nueva', limite=NULL "
                          "WHERE ZolmarID=1"));
    EXPECT_EQ(LogRows(), 1);
    const QString expected = Item(u'*', "nombre", "Ana") + V + "Ana María" +
                             Item(u'+', "notas", "nueva") + Item(u'-', "limite", "1500");
    EXPECT_EQ(Valores(), expected);
    EXPECT_EQ(Logged("Tabla"), Variant("clientes"));
    EXPECT_EQ(Logged("ID_Ficha").ToLong(), 1);
    EXPECT_EQ(Logged("TipoOp").ToLong(), 0);
    EXPECT_EQ(Logged("ID_Usuario").ToLong(), 7);
    EXPECT_EQ(Logged("ID_Puesto").ToLong(), 3);
    EXPECT_TRUE(Logged("Fecha").IsDate());
    // A date changed: both values as the Spanish short date.
    ASSERT_TRUE(LogChange("UPDATE clientes SET alta='20250101' WHERE ZolmarID=1"));
    EXPECT_EQ(Valores("LogFichas WHERE ZolmarID=2"),
              Item(u'*', "alta", "15/03/2024") + V + "01/01/2025");
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ChangeLog, AnEditThatChangesNothingWritesNoRow) {
    EXPECT_FALSE(LogChange("UPDATE clientes SET nombre='Ana' WHERE ZolmarID=1"));
    // Null and an empty text read the same.
    Run("UPDATE clientes SET notas='' WHERE ZolmarID=1");
    EXPECT_FALSE(LogChange("UPDATE clientes SET notas=NULL WHERE ZolmarID=1"));
    EXPECT_EQ(LogRows(), 0);
}

TEST_P(ChangeLog, ADeleteLogsTheValuesThatWereThere) {
    Run("INSERT INTO clientes (nombre, notas, limite, alta) VALUES ('', 'x', 0, '17530101')");
    ASSERT_EQ(m_ficha->SeekID(2), 2);
    cMatrizPtr matriz;
    FichaChangeLog::Capture(matriz, true, *m_ficha);
    ASSERT_TRUE(FichaChangeLog::Write(*m_cn, matriz, true, Origin()));
    // Empty texts, zeros and the blank date are left out.
    EXPECT_EQ(Valores(), Item(u'-', Id(), "2") + Item(u'-', "notas", "x"));
    EXPECT_EQ(Logged("TipoOp").ToLong(), 1);
    EXPECT_EQ(Logged("ID_Ficha").ToLong(), 2);
}

TEST_P(ChangeLog, ADeleteWithNothingWorthKeepingWritesNoRow) {
    auto matriz = std::make_shared<cMatriz>();
    matriz->Dimension(1, 3, 1, 4);
    const Variant values[] = {Variant(""), Variant::Null(), Variant(0), Variant(BlankDate())};
    for (int row = 1; row <= 4; ++row) {
        matriz->SetValue(1, row, Variant(QStringLiteral("c%1").arg(row)));
        matriz->SetValue(2, row, values[row - 1]);
    }
    EXPECT_EQ(FichaChangeLog::Valores(*matriz, true), QString());
    EXPECT_FALSE(FichaChangeLog::Write(*m_cn, matriz, true, Origin()));
    EXPECT_FALSE(FichaChangeLog::Write(*m_cn, nullptr, true, Origin()));
    EXPECT_EQ(LogRows(), 0);
}

TEST_P(ChangeLog, APrefixedTableLogsIntoTheMainDatabase) {
    const QString principal = m_database + "p";
    Run("CREATE DATABASE " + principal);
    Run(CreateLogFichas(principal + "..LogFichas"));
    cMatrizPtr matriz;
    FichaChangeLog::Capture(matriz, true, *m_ficha);
    Run("UPDATE clientes SET limite=2000 WHERE ZolmarID=1");
    m_ficha->Refresh();
    FichaChangeLog::Capture(matriz, false, *m_ficha);
    LogFichasOrigin origin = Origin("dbo.clientes");
    origin.cMainDB = principal;
    const bool written = FichaChangeLog::Write(*m_cn, matriz, false, origin);
    const QString table = principal + "..LogFichas";
    EXPECT_TRUE(written);
    EXPECT_EQ(LogRows(table), 1);
    EXPECT_EQ(LogRows(), 0);
    EXPECT_EQ(Logged("Tabla", table), Variant("clientes"));
    EXPECT_EQ(Valores(table), Item(u'*', "limite", "1500") + V + "2000");
    m_cn->Execute("DROP DATABASE " + principal, 0, Variant(0), true);
}

TEST_P(ChangeLog, LongValuesAreCutAt7900Characters) {
    const QString notas(9000, u'n');
    ASSERT_TRUE(LogChange("UPDATE clientes SET notas='" + notas + "' WHERE ZolmarID=1"));
    const QString valores = Valores();
    EXPECT_EQ(valores.size(), 7900);
    EXPECT_EQ(valores, Item(u'+', "notas", notas).left(7900));
}

TEST_P(ChangeLog, AWriteThatFailsIsIgnoredQuietly) {
    Run("DROP TABLE LogFichas");
    EXPECT_FALSE(LogChange("UPDATE clientes SET nombre='Eva' WHERE ZolmarID=1"));
    EXPECT_TRUE(m_messages.Messages().empty());
    // The connection goes on working.
    EXPECT_EQ(m_cn->RecCount("clientes"), 1);
}

TEST_P(ChangeLog, AnAlternateCursorAddsItsFieldsUnderItsTableName) {
    Run("CREATE TABLE lineas (ZolmarID INT NOT NULL IDENTITY(1,1), articulo VARCHAR(20))");
    Run("INSERT INTO lineas (articulo) VALUES ('tornillo')");
    auto lineas = std::make_shared<cFichaDB>();
    ASSERT_EQ(lineas->Init(m_cn, "lineas", "articulo"), 0);
    ASSERT_EQ(lineas->MoveFirst(), 1);
    cMatrizPtr matriz;
    FichaChangeLog::Capture(matriz, true, *m_ficha);
    FichaChangeLog::Capture(matriz, true, *lineas, true);
    ASSERT_EQ(matriz->Rows(), 7); // the cursors' order expressions are not fields
    EXPECT_EQ(matriz->GetValue(1, 6), Variant("lineas." + Id()));
    EXPECT_EQ(matriz->GetValue(1, 7), Variant("lineas.articulo"));
    EXPECT_EQ(matriz->GetValue(2, 7), Variant("tornillo"));
    // A second capture of the alternate cursor fills the last rows only.
    Run("UPDATE lineas SET articulo='tuerca'");
    lineas->Refresh();
    FichaChangeLog::Capture(matriz, false, *lineas, true);
    EXPECT_EQ(matriz->GetValue(3, 7), Variant("tuerca"));
    EXPECT_TRUE(matriz->GetValue(3, 2).IsEmpty());
    EXPECT_EQ(FichaChangeLog::Valores(*matriz, true),
              Item(u'-', Id(), "1") + Item(u'-', "nombre", "Ana") + Item(u'-', "limite", "1500") +
                  Item(u'-', "alta", "15/03/2024") + Item(u'-', "lineas." + Id(), "1") +
                  Item(u'-', "lineas.articulo", "tornillo"));
}

TEST(ChangeLogText, TheInsertStatement) {
    cConexion cn;
    const LogFichasOrigin origin{12, 4, "principal", "dbo.clientes", 31};
    EXPECT_EQ(
        FichaChangeLog::InsertStatement(cn, origin, true, "a'b", MakeDate(2026, 5, 4, 9, 8, 7)),
        "INSERT INTO principal..LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, "
        "TipoOp, Valores) VALUES ('04/05/2026 09:08:07',12,4,'clientes',31,1,'a''b')");
    EXPECT_EQ(FichaChangeLog::LogTable("clientes", "principal"), "LogFichas");
}

ZLX_ON_SERVER_ENGINES(ChangeLog);

} // namespace
