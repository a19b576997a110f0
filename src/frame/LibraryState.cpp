#include "frame/LibraryState.h"

#include <QFileInfo>
#include <dlfcn.h>

namespace zlx {

LibraryState& LibraryState::Instance() {
    static LibraryState state;
    return state;
}

QString LibraryState::LibraryFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&LibraryState::LibraryFolder), &info) == 0 ||
        !info.dli_fname)
        return {};
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).absolutePath();
}

LibraryState::LibraryState() : m_log(std::make_shared<cLogFile>()) {
    m_log->OpenLog(LibraryFolder(), QStringLiteral("ZolmarDataCtl"), 0, true, 1024);
    m_logFichas = m_fichaReadOnly = m_autoReconectar = false;
    m_keyboard = std::make_shared<cKeyboard>();
    m_log->WriteLine(QStringLiteral("Procedimiento de inicio realizado con éxito"), true);
}

} // namespace zlx
