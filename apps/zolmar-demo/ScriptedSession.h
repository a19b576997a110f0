#pragma once
// A whole editing session on the client form without a user: a new client, an edit, a
// search, a lock conflict with a second zolmar-demo process, a deletion and an export, with
// screenshots of each state written to a folder.

#include "connection/cConexion.h"

#include <QDir>
#include <QEvent>
#include <QStringList>

namespace zlx::demo {

class MainWindow;
class SessionMsgPresenter;
class SessionSearchGrid;

class ScriptedSession {
public:
    // holderCommand: the program and arguments of a second process that opens the same
    // database (its lock mode is added).
    ScriptedSession(cConexionPtr oCn, QString cWhere, QDir folder, QStringList holderCommand);

    // True when every step did what it should; each step is printed as it runs.
    bool Run();

private:
    bool CreateClient(std::int32_t& nID);
    bool EditClient(std::int32_t nID);
    bool SearchAndEdit();
    bool LockConflict();
    bool DeleteClient(std::int32_t nID);
    bool Export();
    void Shoot(const QString& cFile);
    void Type(const QString& cCampo, const QString& cText);
    // Clicks a record button of the toolbar; true when the form is then in nFileStatus.
    bool Press(int nBtn, int nFileStatus);
    // A key event for the control with the focus, or for the record toolbar when none has it.
    void SendKey(QEvent::Type type, int nKey, Qt::KeyboardModifiers modifiers);
    void PressKey(int nKey, Qt::KeyboardModifiers modifiers);
    // A movement button clicked with Shift held (the walk through the last search); the
    // client reached.
    std::int32_t MoveInLastSearch(int nMove);
    std::int32_t IdOfCode(const QString& cCodigo);
    bool Check(bool lOk, const QString& cWhat);

    cConexionPtr m_oCn;
    cConexion& m_cn;
    QString m_where;
    MainWindow* m_windowPtr = nullptr;
    QDir m_folder;
    QStringList m_holderCommand;
    SessionMsgPresenter* m_messages = nullptr;
    SessionSearchGrid* m_grid = nullptr;
};

} // namespace zlx::demo
