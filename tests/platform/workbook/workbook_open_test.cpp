#include "QtPrinters.h"
#include "WorkbookSession.h"
#include "connection/cConexion.h"
#include "platform/ado/Catalog.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QFile>

using namespace zlx;
using namespace zlx::test;

namespace {

class ExcelConexion : public WorkbookSession {
protected:
    bool Init(const QString& file, QString& errors) {
        return m_conexion.Init(zlxDataProvider_EXCEL, file, {}, {}, {}, 16, true, &errors);
    }
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    cConexion m_conexion;
};

} // namespace

// The file given to Init is the workbook; the library's statements run on its sheets.
TEST_F(ExcelConexion, InitOpensTheWorkbookForStatementsAndRecordsets) {
    const QString path = PathOf("libro de clientes.xlsx");
    WriteClientesXlsx(path);
    QString errors;
    ASSERT_TRUE(Init(path, errors)) << errors.toStdString();
    EXPECT_EQ(
        m_conexion
            .Execute("SELECT Nombre FROM [Clientes$] WHERE Codigo = 'C3'", zlxExecuteReturn_Value)
            .ToString(),
        "Carmen");
    m_conexion.Execute("UPDATE [Clientes$] SET Nombre = 'Ana María' WHERE Codigo = 'C1'");
    EXPECT_EQ(m_conexion.GetLastError(), 0) << m_conexion.GetLastErrorDescription().toStdString();

    ado::RecordsetPtr rs;
    ASSERT_EQ(m_conexion.Open_RecordSet(rs, "SELECT Nombre, Importe FROM [Clientes$] ORDER BY "
                                            "Importe DESC"),
              0);
    ASSERT_TRUE(rs);
    QStringList names;
    for (; !rs->IsEOF(); rs->MoveNext())
        names << rs->GetFields().Item("Nombre").Value().ToString();
    EXPECT_EQ(names, QStringList({"Carmen", "Ana María", "Bernardo"}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

// ADOX's catalog lists each sheet as a table; a sheet carries no index.
TEST_F(ExcelConexion, TheCatalogListsTheSheetsAsTablesWithoutIndexes) {
    const QString path = PathOf("clientes.xlsx");
    WriteClientesXlsx(path);
    QString errors;
    ASSERT_TRUE(Init(path, errors)) << errors.toStdString();
    ado::Catalog catalog;
    catalog.ActiveConnection(m_conexion.cn());
    QStringList tables;
    for (const ado::CatalogTable& table : catalog.Tables())
        tables << table.Name + " " + table.Type;
    EXPECT_EQ(tables, QStringList({"Clientes$ TABLE", "Notas$ TABLE"}));
    ASSERT_TRUE(catalog.Table("clientes$"));
    EXPECT_TRUE(catalog.Indexes("Clientes$").empty());
    EXPECT_THROW(catalog.Indexes("Otra$"), ado::AdoError);
}

TEST_F(ExcelConexion, MissingOrDamagedWorkbooksAreRefusedByName) {
    QString errors;
    const QString missing = PathOf("no-existe.xlsx");
    EXPECT_FALSE(Init(missing, errors));
    EXPECT_EQ(errors, "Could not find file '" + missing + "'.");

    const QString notAWorkbook = PathOf("texto.xlsx");
    QFile text(notAWorkbook);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("Codigo;Nombre\nC1;Ana\n");
    text.close();
    EXPECT_FALSE(Init(notAWorkbook, errors));
    EXPECT_EQ(errors, "External table is not in the expected format.");

    // A workbook cut short (a copy interrupted) is no zip any more.
    const QString cut = PathOf("cortado.xlsx");
    WriteClientesXlsx(cut);
    const QByteArray whole = Bytes(cut);
    QFile file(cut);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(whole.left(whole.size() / 2));
    file.close();
    EXPECT_FALSE(Init(cut, errors));
    EXPECT_EQ(errors, "External table is not in the expected format.");
}
