// An application's use of the installed library: a database on the embedded server folder,
// a statement and a query through cConexion, and an amount in words through cIdioma.
#include "connection/cConexion.h"
#include "language/cIdioma.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    zlx::cConexion cn;
    if (!cn.Init(zlx::zlxDataProvider_MSDE, {}, "sqlite:" + folder.path())) return 2;
    cn.Execute("CREATE DATABASE ventas");
    cn.DBName("ventas");
    cn.Execute("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), importe MONEY)");
    cn.Execute("INSERT INTO t (importe) VALUES (12.5)");
    const double total =
        cn.Execute("SELECT sum(importe) FROM t", zlx::zlxExecuteReturn_Value).ToDouble();
    const QString words = zlx::cIdioma().Num2Text(total, 2, "", "", "", "", false, false);
    std::printf("%s\n", words.toUtf8().constData());
    return words == "doce  con cincuenta" ? 0 : 1;
}
