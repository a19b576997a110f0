#include "QtPrinters.h"
#include "WorkbookSession.h"
#include "platform/workbook/ZipPackage.h"

using namespace zlx;
using namespace zlx::test;
using zlx::workbook::ZipPackage;

namespace {

class WorkbookWrite : public WorkbookSession {
protected:
    void SetUp() override {
        m_path = PathOf("clientes.xlsx");
        WriteClientesXlsx(m_path);
        Open(m_path);
    }
    QString Part(const QString& part) const {
        return QString::fromUtf8(ZipPackage(m_path).Read(part));
    }
    QString m_path;
};

const char* const kAll = "SELECT Codigo, Nombre, Importe, Alta, Activo FROM [Clientes$] "
                         "ORDER BY Codigo";

} // namespace

// The changed cells go into the sheet's XML; the other sheet, the styles, the shared strings
// and the formulas stay as they were, and another connection reads the new values.
TEST_F(WorkbookWrite, UpdateAndInsertWriteTheWorkbookInPlace) {
    const QString otherSheet = Part("xl/worksheets/sheet2.xml");
    const QString styles = Part("xl/styles.xml");
    const QString strings = Part("xl/sharedStrings.xml");
    Run("UPDATE [Clientes$] SET Importe = 99.5, Nombre = 'Bernarda <B&B>' WHERE Codigo = 'C2'");
    Run("INSERT INTO [Clientes$] (Codigo, Nombre, Importe, Alta, Activo) "
        "VALUES ('C4', 'Dora', 10, '2024-05-02 08:15:00', 1)");
    EXPECT_EQ(Query(kAll).rows.size(), 4);

    Open(m_path);
    EXPECT_EQ(Query(kAll).rows, QStringList({"C1|Ana|150.5|2024-03-15 00:00:00|True",
                                             "C2|Bernarda <B&B>|99.5|2023-12-01 00:00:00|False",
                                             "C3|Carmen|1200|2024-01-20 10:30:00|True",
                                             "C4|Dora|10|2024-05-02 08:15:00|True"}));
    EXPECT_EQ(Part("xl/worksheets/sheet2.xml"), otherSheet);
    EXPECT_EQ(Part("xl/styles.xml"), styles);
    EXPECT_EQ(Part("xl/sharedStrings.xml"), strings);
    const QString sheet = Part("xl/worksheets/sheet1.xml");
    for (const char* formula : {"<f>C2*2</f>", "<f>C3*2</f>", "<f>C4*2</f>"})
        EXPECT_TRUE(sheet.contains(QLatin1String(formula))) << formula;
    EXPECT_TRUE(sheet.contains("<dimension ref=\"A1:F5\"/>"));
    EXPECT_TRUE(sheet.contains("<t xml:space=\"preserve\">Bernarda &lt;B&amp;B&gt;</t>"));
    // The new record's date takes the date style of the record above it.
    EXPECT_TRUE(sheet.contains("<row r=\"5\"><c r=\"A5\" t=\"inlineStr\">"));
}

// A second change reaches the sheet as written by the first, and the values read inside a
// transaction are the new ones until it is rolled back; then the file is as it was.
TEST_F(WorkbookWrite, TransactionsWriteOnCommitOnly) {
    Run("UPDATE [Clientes$] SET Importe = 1 WHERE Codigo = 'C1'");
    Run("UPDATE [Clientes$] SET Importe = 2 WHERE Codigo = 'C1'");
    const QByteArray committed = Bytes(m_path);
    m_cn->BeginTrans();
    Run("UPDATE [Clientes$] SET Importe = 3 WHERE Codigo = 'C1'");
    Run("INSERT INTO [Clientes$] (Codigo) VALUES ('C9')");
    EXPECT_EQ(Query("SELECT Importe FROM [Clientes$] WHERE Codigo = 'C1'").rows,
              QStringList({"3"}));
    EXPECT_EQ(Bytes(m_path), committed);
    m_cn->RollbackTrans();
    EXPECT_EQ(Query("SELECT Codigo, Importe FROM [Clientes$] WHERE Codigo IN ('C1', 'C9')").rows,
              QStringList({"C1|2"}));
    EXPECT_EQ(Bytes(m_path), committed);

    m_cn->BeginTrans();
    Run("INSERT INTO [Clientes$] (Codigo) VALUES ('C9')");
    m_cn->CommitTrans();
    Open(m_path);
    EXPECT_EQ(Query("SELECT Codigo, Importe FROM [Clientes$] WHERE Codigo IN ('C1', 'C9')").rows,
              QStringList({"C1|2", "C9|NULL"}));
}

// A connection reads the workbook again when another one saved it since its last statement;
// inside a transaction it cannot, and its commit is refused rather than writing back the sheet
// it read over the other's change.
TEST_F(WorkbookWrite, ChangesSavedByAnotherConnectionAreSeenAndNotOverwritten) {
    auto other = std::move(m_cn);
    Open(m_path);
    ado::DiscardingSink discard;
    other->ExecuteInto("UPDATE [Clientes$] SET Nombre = 'Ana María' WHERE Codigo = 'C1'", discard);
    EXPECT_EQ(Query("SELECT Nombre FROM [Clientes$] WHERE Codigo = 'C1'").rows,
              QStringList({"Ana María"}));

    m_cn->BeginTrans();
    Run("UPDATE [Clientes$] SET Importe = 5 WHERE Codigo = 'C2'");
    other->ExecuteInto("UPDATE [Clientes$] SET Importe = 6 WHERE Codigo = 'C3'", discard);
    const QByteArray saved = Bytes(m_path);
    try {
        m_cn->CommitTrans();
        ADD_FAILURE() << "the commit over the other connection's save was taken";
    } catch (const ado::AdoError& error) {
        EXPECT_EQ(error.Description(), "The workbook was changed by another program after it "
                                       "was opened. Open it again to change it.");
    }
    EXPECT_EQ(Bytes(m_path), saved);
    EXPECT_EQ(Query("SELECT Nombre, Importe FROM [Clientes$] ORDER BY Codigo").rows,
              QStringList({"Ana María|150.5", "Bernardo|80", "Carmen|6"}));
}

TEST_F(WorkbookWrite, DeleteIsRefusedAndTheWorkbookKept) {
    const QByteArray before = Bytes(m_path);
    EXPECT_EQ(ErrorOf("DELETE FROM [Clientes$] WHERE Codigo = 'C1'"),
              "Deleting data in a linked table is not supported by this ISAM.");
    EXPECT_EQ(Bytes(m_path), before);
    EXPECT_EQ(Query("SELECT COUNT(*) FROM [Clientes$]").rows, QStringList({"3"}));
}

TEST_F(WorkbookWrite, XlsWorkbooksAreReadOnly) {
    const QString path = PathOf("clientes.xls");
    WriteClientesXls(path);
    Open(path);
    const QByteArray before = Bytes(path);
    const QString readOnly = QStringLiteral("Cannot update. Database or object is read-only.");
    EXPECT_EQ(ErrorOf("UPDATE [Clientes$] SET Importe = 1"), readOnly);
    EXPECT_EQ(ErrorOf("INSERT INTO [Clientes$] (Codigo) VALUES ('C4')"), readOnly);
    EXPECT_EQ(Bytes(path), before);
    EXPECT_EQ(Query("SELECT SUM(Importe) FROM [Clientes$]").rows, QStringList({"1430.5"}));
}
