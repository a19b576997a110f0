#include "LockHolder.h"

#include "ClientForm.h"
#include "cursor/cFichaDB.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>

namespace zlx::demo {

int HoldLock(const cConexionPtr& oCn, std::int32_t nID) {
    constexpr std::int32_t kUser = 2;
    cFichaDB ficha;
    if (ficha.Init(oCn, QString::fromLatin1(ClientForm::kTabla), QStringLiteral("codigo")) != 0 ||
        ficha.SeekID(nID) != nID)
        return 1;
    if (ficha.xLock(zlxLockTypeEdit, true, getpid(), nID, kUser, {}, zlxLockRetryOnce) != 0)
        return 2;
    std::printf("bloqueado %d\n", nID);
    std::fflush(stdout);
    for (std::string line; std::getline(std::cin, line);) {
    }
    return ficha.xLock(zlxLockTypeEdit, false, getpid(), nID, kUser, {}, zlxLockRetryOnce) == 0 ? 0
                                                                                                : 3;
}

} // namespace zlx::demo
