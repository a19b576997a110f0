// Another workstation for the lock tests: opens the given server and database, sets an edit
// lock on record 5 of "clientes", says "locked" and waits until it is killed.

#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 3) return 2;
    zlx::RecordingMsgPresenter messages;
    zlx::ScopedMsgPresenter scope(messages);
    zlx::cConexion cn;
    if (!cn.Init(zlx::zlxDataProvider_MSDE, QString::fromLocal8Bit(argv[2]),
                 QString::fromLocal8Bit(argv[1])) ||
        cn.xLock(zlx::zlxLockTypeEdit, true, "clientes", getpid(), 5) != 0)
        return 1;
    std::printf("locked\n");
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}
