#pragma once
// What the library shares across one process: its log, the keyboard and three switches.
// The start-up routine runs once, when the library is loaded (or at the first use of this
// state by a program linked statically).

#include "platform/companion/cKeyboard.h"
#include "platform/companion/cLogFile.h"

namespace zlx {

class LibraryState {
public:
    static LibraryState& Instance();

    cLogFile& Log() { return *m_log; }
    cLogFilePtr LogPtr() const { return m_log; }
    cKeyboardPtr Keyboard() const { return m_keyboard; }

    bool HabilitarRegistro_LogFichas() const { return m_logFichas; }
    void HabilitarRegistro_LogFichas(bool value) { m_logFichas = value; }
    bool CtlFichaReadOnly() const { return m_fichaReadOnly; }
    void CtlFichaReadOnly(bool value) { m_fichaReadOnly = value; }
    bool AutoReconectar() const { return m_autoReconectar; }
    void AutoReconectar(bool value) { m_autoReconectar = value; }

    // The folder of the file the library code was loaded from.
    static QString LibraryFolder();

private:
    LibraryState();
    cLogFilePtr m_log;
    cKeyboardPtr m_keyboard;
    bool m_logFichas = false;
    bool m_fichaReadOnly = false;
    bool m_autoReconectar = false;
};

// Shorthand for the library log, written by error handlers across the library.
inline cLogFile& LibraryLog() {
    return LibraryState::Instance().Log();
}

// Shorthand for the keyboard the library asks about held keys.
inline cKeyboard& LibraryKeyboard() {
    return *LibraryState::Instance().Keyboard();
}

} // namespace zlx
