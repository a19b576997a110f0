#include "DemoData.h"

#include "PrintingMsgPresenter.h"
#include "connection/cConexion.h"
#include "dbf/cDBF.h"
#include "language/cIdioma.h"
#include "platform/companion/cMatriz.h"
#include "table/cDatos.h"

#include <QFile>
#include <QTemporaryDir>

namespace zlx {

namespace {

void Print(std::FILE* out, const QString& text) {
    std::fputs(text.toUtf8().constData(), out);
    std::fputc('\n', out);
}

bool CreateCustomers(cConexion& cn, std::FILE* out) {
    cn.Execute(QStringLiteral("CREATE DATABASE demo"));
    cn.DBName(QStringLiteral("demo"));
    cn.Execute(QStringLiteral("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), "
                              "nombre VARCHAR(40), ciudad VARCHAR(25), importe FLOAT)"));
    auto rows = std::make_shared<cMatriz>();
    rows->Dimension(1, 3, 1, 0);
    rows->AddRow(Variant::Array({Variant("García"), Variant("Sevilla"), Variant(1200.5)}));
    rows->AddRow(Variant::Array({Variant("Pérez"), Variant("Bilbao"), Variant(80.25)}));
    rows->AddRow(Variant::Array({Variant("Núñez"), Variant("Sevilla"), Variant(310.0)}));
    const Variant fields =
        Variant::Array({Variant("nombre"), Variant("ciudad"), Variant("importe")});
    if (cn.Insert(QStringLiteral("clientes"), fields, Variant(rows)) != 0) return false;
    const Variant id = cn.Execute(QStringLiteral("INSERT INTO clientes (nombre, ciudad, importe) "
                                                 "VALUES ('O''Brien', 'Madrid', 45)"),
                                  zlxExecuteReturn_NewID);
    Print(out, QStringLiteral("Nuevo cliente: ZolmarID = %1").arg(id.ToString()));
    Print(out,
          QStringLiteral("RecCount(clientes) = %1").arg(cn.RecCount(QStringLiteral("clientes"))));
    return cn.GetLastError() == 0;
}

void ShowQueries(cConexion& cn, std::FILE* out) {
    cn.Execute(
        QStringLiteral("UPDATE clientes SET importe = importe * 2 WHERE ciudad = 'Sevilla'"));
    Print(out, QStringLiteral("Filas cambiadas en Sevilla: %1").arg(cn.nTally()));
    const Variant total =
        cn.Execute(QStringLiteral("SELECT sum(importe) FROM clientes"), zlxExecuteReturn_Value);
    Print(out, QStringLiteral("Total: %1 = %2")
                   .arg(total.ToString(), cIdioma().Num2Text(total.ToDouble())));
    const auto list = cn.Execute(QStringLiteral("SELECT TOP 2 nombre, importe FROM clientes "
                                                "ORDER BY importe DESC"),
                                 zlxExecuteReturn_cMatriz)
                          .As<cMatriz>();
    for (std::int32_t row = list ? list->FirstRow() : 0; list && row <= list->LastRow(); ++row)
        Print(out, QStringLiteral("  %1 %2").arg(list->GetValue(0, row).ToString(),
                                                 list->GetValue(1, row).ToString()));
}

bool ExportToDbf(cConexion& cn, const QString& path, std::FILE* out) {
    const auto rows = cn.Execute(QStringLiteral("SELECT nombre, importe FROM clientes ORDER BY 1"),
                                 zlxExecuteReturn_cMatriz)
                          .As<cMatriz>();
    cDBF dbf;
    QString text = QStringLiteral("C"), number = QStringLiteral("N");
    if (!rows || !dbf.BeginCreateDBF(path)) return false;
    dbf.CreateColumn(QStringLiteral("NOMBRE"), text, 20);
    dbf.CreateColumn(QStringLiteral("IMPORTE"), number, 10, 2);
    if (!dbf.EndCreateDBF()) return false;
    for (std::int32_t row = rows->FirstRow(); row <= rows->LastRow(); ++row) {
        dbf.BeginInsert();
        dbf.Field(QStringLiteral("NOMBRE"), rows->GetValue(0, row));
        dbf.Field(QStringLiteral("IMPORTE"), rows->GetValue(1, row));
        if (!dbf.EndInsert()) return false;
    }
    dbf.CloseDBF();
    cDBF reread;
    if (!reread.OpenRaw(path)) return false;
    Print(out, QStringLiteral("DBF exportado: %1 registros").arg(reread.RecordCount()));
    for (std::uint32_t row = 1; row <= reread.RecordCount(); ++row) {
        reread.CurrentRow(row);
        Print(out, QStringLiteral("  %1|%2").arg(
                       reread.Field(QStringLiteral("NOMBRE")).ToString().trimmed(),
                       reread.Field(QStringLiteral("IMPORTE")).ToString()));
    }
    reread.CloseDBF();
    return true;
}

// A query into an in-memory table: a filter, a total, a DBF copy read back and a listing.
bool ShowTable(cConexion& cn, const QString& folder, std::FILE* out) {
    const Variant result =
        cn.Execute(QStringLiteral("SELECT nombre, ciudad, importe FROM clientes ORDER BY nombre"),
                   zlxExecuteReturn_cDatos_Disconnected);
    const auto table = result.IsObject() ? result.As<cDatos>() : nullptr;
    if (!table) return false;
    Print(out, QStringLiteral("cDatos: %1 filas, %2 columnas")
                   .arg(table->RecCount())
                   .arg(table->FieldCount()));
    table->Filter(Variant(QStringLiteral("ciudad = 'Sevilla'")));
    Print(out, QStringLiteral("Filtro ciudad = 'Sevilla': %1 filas, suma de importe = %2")
                   .arg(table->RecCount())
                   .arg(table->Sum(Variant(QStringLiteral("importe"))).ToString()));
    table->Filter(Variant(QString()));
    const QString dbfPath = folder + QStringLiteral("/tabla.dbf");
    if (!table->CreateDBF(dbfPath)) return false;
    cDatos copy;
    if (copy.LoadFile_DBF(dbfPath) != 1) return false;
    Print(out, QStringLiteral("DBF de la tabla leído de nuevo: %1 filas").arg(copy.RecCount()));
    const QString listing = folder + QStringLiteral("/listado.txt");
    copy.Show(zlxDatosShow_File + zlxDatosShow_Flag_CreateNewFile, {}, 999999, listing);
    QFile file(listing);
    if (!file.open(QIODevice::ReadOnly)) return false;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.trimmed().isEmpty())
            Print(out, QStringLiteral("  ") + QString::fromLatin1(line.trimmed()));
    return true;
}

} // namespace

bool RunDataDemo(std::FILE* out) {
    QTemporaryDir folder;
    PrintingMsgPresenter presenter(out);
    ScopedMsgPresenter installed(presenter);
    cConexion cn;
    if (!cn.Init(zlxDataProvider_MSDE, {}, QStringLiteral("sqlite:") + folder.path()) || !cn.cn() ||
        cn.cn()->State() != 1) {
        Print(out, QStringLiteral("No se pudo abrir el servidor embebido."));
        return false;
    }
    Print(out, QStringLiteral("Servidor embebido: versión %1")
                   .arg(Variant(cn.GetSQLVersion()).ToString()));
    if (!CreateCustomers(cn, out)) return false;
    ShowQueries(cn, out);
    const bool exported = ExportToDbf(cn, folder.filePath(QStringLiteral("clientes.dbf")), out);
    const bool table = ShowTable(cn, folder.path(), out);
    cn.Close_Connection();
    return exported && table;
}

} // namespace zlx
