#pragma once
// The second workstation of the lock-conflict demonstration: it locks one client for editing,
// says "bloqueado <id>" on standard output, and keeps the lock until its standard input
// closes, when it releases it.

#include "connection/cConexion.h"

namespace zlx::demo {

// The process's exit code: 0 when the lock was taken and released.
int HoldLock(const cConexionPtr& oCn, std::int32_t nID);

} // namespace zlx::demo
