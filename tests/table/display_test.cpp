#include "QtPrinters.h"
#include "TableTestData.h"
#include "platform/companion/ScriptedSearchGrid.h"
#include "support/MessageRecorder.h"
#include "table/cDatos.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace zlx;
using namespace zlx::test;

namespace {

// codigo I4, nombre Char(8), saldo Currency, alta DateTime; a row of Nulls in the middle and
// a date longer than its column's size.
std::shared_ptr<cDatos> Accounts() {
    auto table = std::make_shared<cDatos>();
    table->BeginDefineColumns();
    table->AddColumn("codigo", zlxTblColumnTypeI4);
    table->AddColumn("nombre", zlxTblColumnTypeChar, 8);
    table->AddColumn("saldo", zlxTblColumnTypeCurrency);
    table->AddColumn("alta", zlxTblColumnTypeDateTime);
    table->EndDefineColumns();
    const Variant fields = Variant::Array({"codigo", "nombre", "saldo", "alta"});
    table->InsertRow(fields, Variant::Array({std::int32_t(7), "Añón", Currency::FromDouble(1234.5),
                                             MakeDate(2024, 3, 1)}));
    table->InsertRow(fields,
                     Variant::Array({std::int32_t(12), "Bea", Variant::Null(), Variant::Null()}));
    table->InsertRow(fields, Variant::Array({std::int32_t(-3), "Gómez", Currency::FromDouble(0.25),
                                             MakeDate(2024, 12, 31, 10, 30)}));
    table->CurrentRow(2);
    return table;
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// The folder of the test program, where a listing without a folder goes.
QString ProgramFolder() {
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

class Display : public ::testing::Test {
protected:
    test::MessageRecorder messages;
    ScriptedSearchGrid grid;
    ScopedSearchGridPresenter scopedGrid{grid};
};

// The listing in Windows-1252: the header and one line per row, every column padded to the
// greater of its name and its size plus one blank; numbers right-aligned, longer values whole.
TEST_F(Display, ListingLaysColumnsOutAndWritesAnsiText) {
    const QString path = TestScratchPath("listado.txt");
    auto table = Accounts();
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_CreateNewFile, "", 999999, path);
    EXPECT_EQ(FileBytes(path), QByteArray("codigo nombre      saldo alta             \r\n"
                                          "     7 A\xF1\xF3n       1234,5 01/03/2024       \r\n"
                                          "    12 Bea                                \r\n"
                                          "    -3 G\xF3mez        0,25 31/12/2024 10:30:00 \r\n"));
    EXPECT_EQ(table->Tally(), 3);
    EXPECT_EQ(table->CurrentRow(), 2);

    // Numbers are judged by the first row listed: here saldo is Null, so it is left-aligned.
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_CreateNewFile, "codigo > 10", 999999, path);
    EXPECT_EQ(FileBytes(path), QByteArray("codigo nombre   saldo    alta             \r\n"
                                          "    12 Bea                                \r\n"));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(Display, RecordBlocksAndTheNoHeaderFlag) {
    const QString path = TestScratchPath("fichas.txt");
    auto table = Accounts();
    const std::int32_t newFile = zlxDatosShow_File | zlxDatosShow_Flag_CreateNewFile;
    table->Show(newFile | zlxDatosShow_Flag_Ficha, "", 2, path);
    EXPECT_EQ(FileBytes(path),
              QByteArray("codigo: 7\r\nnombre: A\xF1\xF3n\r\nsaldo: 1234,5\r\n"
                         "alta: 01/03/2024\r\n\r\n"
                         "codigo: 12\r\nnombre: Bea\r\nsaldo: \r\nalta: \r\n\r\n"));
    EXPECT_EQ(table->Tally(), 2);

    table->Show(newFile | zlxDatosShow_Flag_Ficha | zlxDatosShow_Flag_NO_Cabecera, "codigo < 0",
                999999, path);
    EXPECT_EQ(FileBytes(path), QByteArray("-3\r\nG\xF3mez\r\n0,25\r\n31/12/2024 10:30:00\r\n"
                                          "\r\n"));

    table->Show(newFile | zlxDatosShow_Flag_NO_Cabecera, "", 1, path);
    EXPECT_EQ(FileBytes(path), QByteArray("     7 A\xF1\xF3n       1234,5 01/03/2024       \r\n"));
    EXPECT_EQ(table->Tally(), 1);
}

TEST_F(Display, DebugDestinationWritesTheListingToTheDebugOutput) {
    static QStringList captured;
    captured.clear();
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtDebugMsg) captured << text;
        });
    auto table = Accounts();
    table->Show(zlxDatosShow_Debug, "", 2);
    qInstallMessageHandler(previous);
    EXPECT_EQ(captured, QStringList{"codigo nombre      saldo alta             \n"
                                    "     7 Añón       1234,5 01/03/2024       \n"
                                    "    12 Bea                                "});
}

TEST_F(Display, FileListingsAppendUnlessANewFileIsAsked) {
    const QString standard = ProgramFolder() + "/cDatos.Show().txt";
    QFile::remove(standard);
    auto table = Accounts();
    const QByteArray line("     7 A\xF1\xF3n       1234,5 01/03/2024       \r\n");
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_NO_Cabecera, "", 1);
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_NO_Cabecera, "", 1);
    EXPECT_EQ(FileBytes(standard), line + line);
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_NO_Cabecera | zlxDatosShow_Flag_CreateNewFile,
                "", 1);
    EXPECT_EQ(FileBytes(standard), line);
    QFile::remove(standard);

    // A bare name goes to the program's folder too; "\" separates folders like "/".
    const QString bare = QStringLiteral("listado-%1.txt").arg(getpid());
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_NO_Cabecera, "", 1, bare);
    EXPECT_EQ(FileBytes(ProgramFolder() + u'/' + bare), line);
    QFile::remove(ProgramFolder() + u'/' + bare);
    const QString folder = QFileInfo(TestScratchPath("x")).path();
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_NO_Cabecera, "", 1, folder + "\\barra.txt");
    EXPECT_EQ(FileBytes(folder + "/barra.txt"), line);
    QFile::remove(folder + "/barra.txt");
}

// The editor is started without waiting: xdg-open when there is one, else $VISUAL.
TEST_F(Display, RunNotePadFlagOpensTheFileInTheEditor) {
    const QString folder = QFileInfo(TestScratchPath("x")).path();
    const QString editor = folder + "/editor.sh";
    const QString opened = folder + "/abierto.txt";
    QFile::remove(opened);
    {
        QFile script(editor);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\n/bin/cp \"$1\" \"${0%/*}/abierto.tmp\" && "
                     "/bin/mv \"${0%/*}/abierto.tmp\" \"${0%/*}/abierto.txt\"\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    const QByteArray path = qgetenv("PATH"), visual = qgetenv("VISUAL");
    qputenv("PATH", folder.toLocal8Bit()); // no xdg-open there
    qputenv("VISUAL", editor.toLocal8Bit());
    auto table = Accounts();
    const QString listing = folder + "/para-editar.txt";
    table->Show(zlxDatosShow_File | zlxDatosShow_Flag_CreateNewFile | zlxDatosShow_Flag_RunNotePad |
                    zlxDatosShow_Flag_NO_Cabecera,
                "", 1, listing);
    qputenv("PATH", path);
    qputenv("VISUAL", visual);
    for (int i = 0; i < 500 && !QFile::exists(opened); ++i)
        QThread::msleep(20);
    EXPECT_EQ(FileBytes(opened), FileBytes(listing));
    EXPECT_TRUE(messages.Messages().empty());
}

TEST_F(Display, GridRequestCarriesTheRowsAndHowToShowThem) {
    auto table = FivePeople();
    table->Show(zlxDatosShow_Grid);
    ASSERT_EQ(grid.Requests().size(), 1u);
    const SearchGridRequest& shown = grid.Last();
    EXPECT_EQ(shown.title, "Ver datos (5 filas)");
    EXPECT_EQ(shown.headers, (QStringList{"nombre", "ciudad", "importe", "unidades", "alta"}));
    EXPECT_EQ(shown.widths, (std::vector<std::int32_t>{20, 15, 8, 8, 16}));
    EXPECT_EQ(shown.masks, (QStringList{"", "", "#,##0.0000", "", ""}));
    EXPECT_EQ(shown.types, (std::vector<std::int32_t>{0, 0, 1, 1, 2}));
    EXPECT_FALSE(shown.searchMode);
    ASSERT_EQ(shown.data->Cols(), 5);
    ASSERT_EQ(shown.data->Rows(), 5);
    EXPECT_EQ(shown.data->GetValue(3, 3), Variant(30.25));
    EXPECT_EQ(table->Tally(), 5);
}

// A condition replaces the table's filter while the rows are shown; the filter and the
// current row are back afterwards.
TEST_F(Display, ConditionIsUsedAndTheTableIsLeftAsItWas) {
    auto table = FivePeople();
    table->Filter(Variant("unidades > 1"));
    table->CurrentRow(3);
    table->Show(zlxDatosShow_Grid, "ciudad = 'Madrid'", 2);
    EXPECT_EQ(grid.Last().title, "Ver datos (2 filas)");
    EXPECT_EQ(grid.Last().data->GetValue(1, 1), Variant("ANA"));
    EXPECT_EQ(grid.Last().data->GetValue(1, 2), Variant("CARLOS"));
    EXPECT_EQ(table->Tally(), 2);
    EXPECT_EQ(table->Filter(), Variant("unidades > 1"));
    EXPECT_EQ(table->RecCount(), 4);
    EXPECT_EQ(table->CurrentRow(), 3);
    EXPECT_EQ(table->Field("nombre"), Variant("DAVID"));
}

TEST_F(Display, BuscarAnswersTheReturnColumnOfThePickedRow) {
    auto table = FivePeople();
    table->CurrentRow(2);
    grid.QueuePicks({3, std::nullopt});
    const Variant picked = table->Buscar("Personas: <n>", Variant::Array({"Nombre", "Ciudad"}),
                                         Variant::Array({std::int32_t(10), std::int32_t(0)}), 4, 1,
                                         3, Variant::Array({"", "", "#,##0.00"}), 1.5, true);
    EXPECT_EQ(picked, Variant(std::int32_t(3)));
    const SearchGridRequest& shown = grid.Last();
    EXPECT_EQ(shown.title, "Personas: 3");
    EXPECT_EQ(shown.headers, (QStringList{"Nombre", "Ciudad", "importe", "unidades", "alta"}));
    EXPECT_EQ(shown.widths, (std::vector<std::int32_t>{10, 0, 8, 8, 16}));
    EXPECT_EQ(shown.masks, (QStringList{"", "", "#,##0.00", "", ""}));
    EXPECT_TRUE(shown.searchMode);
    EXPECT_EQ(shown.searchColumn, 1);
    EXPECT_TRUE(shown.descending);
    EXPECT_DOUBLE_EQ(shown.zoom, 1.5);
    EXPECT_EQ(shown.data->Rows(), 3);
    EXPECT_EQ(table->CurrentRow(), 2);

    // Closing the window picks nothing.
    EXPECT_TRUE(table->Buscar("").IsEmpty());
    EXPECT_EQ(grid.Last().title, "Ver datos (5 filas)");
}

TEST_F(Display, FailuresAreReportedAndTheTableRestored) {
    auto table = FivePeople();
    table->CurrentRow(4);
    grid.QueuePicks({1});
    EXPECT_TRUE(table->Buscar("Personas", Variant(), Variant(), 9).IsEmpty());
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_EQ(messages.Last().text, "Se ha producido un error # 9 al intentar mostrar los datos");
    EXPECT_EQ(messages.Last().title, "Error mostrando datos");
    EXPECT_EQ(messages.Last().icon, MsgIconError);

    table->Show(zlxDatosShow_File, "ciudad = 'Madrid'", 999999,
                TestScratchPath("x") + "/no/existe/listado.txt");
    ASSERT_EQ(messages.Messages().size(), 2u);
    EXPECT_EQ(messages.Last().text, "Se ha producido un error # 75 al intentar mostrar los datos");
    EXPECT_EQ(table->Filter(), Variant(std::int32_t(0)));
    EXPECT_EQ(table->RecCount(), 5);
    EXPECT_EQ(table->CurrentRow(), 4);
}

TEST_F(Display, EmptyTableShowsNothing) {
    cDatos table;
    table.BeginDefineColumns();
    table.AddColumn("nombre", zlxTblColumnTypeChar, 10);
    table.EndDefineColumns();
    const QString path = TestScratchPath("vacia.txt");
    table.Show(zlxDatosShow_File | zlxDatosShow_Flag_CreateNewFile, "", 999999, path);
    table.Show(zlxDatosShow_Grid);
    grid.QueuePicks({1});
    EXPECT_TRUE(table.Buscar("Vacía").IsEmpty());
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(grid.Requests().empty());
    EXPECT_TRUE(messages.Messages().empty());
}

} // namespace
