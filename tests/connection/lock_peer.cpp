// Another workstation for the lock tests: opens the given server and database, sets an edit
// lock on record 5 of "clientes", says "locked" and waits until it is killed.

#include "support/PeerWorkstation.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    zlx::test::PeerWorkstation station;
    if (!station.Open(argc, argv) ||
        station.cn->xLock(zlx::zlxLockTypeEdit, true, "clientes", getpid(), 5) != 0)
        return 1;
    std::printf("locked\n");
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}
