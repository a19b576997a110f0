// Another workstation for the cursor tests: opens the given server and database and runs one
// command per line of its input on "clientes": "update <id>" renames the record and stamps
// its modification time, "delete <id>" deletes it. Answers "ok" (or "error") after each.

#include "support/PeerWorkstation.h"

#include <QCoreApplication>
#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    zlx::test::PeerWorkstation station;
    if (!station.Open(argc, argv)) return 1;
    zlx::cConexion& cn = *station.cn;
    std::printf("ready\n");
    std::fflush(stdout);
    std::string command;
    int id = 0;
    while (std::cin >> command >> id) {
        const QString where = QStringLiteral(" WHERE ZolmarID = %1").arg(id);
        if (command == "update")
            cn.Execute(QStringLiteral("UPDATE clientes SET nombre = 'peer', FechaModificacion = "
                                      "'20300101 00:00:00'") +
                       where);
        else
            cn.Execute(QStringLiteral("DELETE FROM clientes") + where);
        std::printf(cn.GetLastError() == 0 ? "ok\n" : "error\n");
        std::fflush(stdout);
    }
    return 0;
}
