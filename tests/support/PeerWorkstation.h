#pragma once
// What every peer program of the multi-process tests (another workstation) starts with: the
// library's messages recorded instead of shown, and a connection to the server and database
// its first two arguments name.

#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"

namespace zlx::test {

struct PeerWorkstation {
    // False when the program was not given "<server> <database>" and `extraArgs` more, or
    // the database cannot be opened.
    bool Open(int argc, char** argv, int extraArgs = 0) {
        return argc == 3 + extraArgs &&
               cn->Init(zlxDataProvider_MSDE, QString::fromLocal8Bit(argv[2]),
                        QString::fromLocal8Bit(argv[1]));
    }

    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope{messages};
    cConexionPtr cn = std::make_shared<cConexion>();
};

} // namespace zlx::test
