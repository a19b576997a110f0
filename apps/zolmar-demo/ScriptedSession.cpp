#include "ScriptedSession.h"

#include "MainWindow.h"
#include "SessionPresenters.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QProcess>
#include <cstdio>

namespace zlx::demo {

ScriptedSession::ScriptedSession(cConexionPtr oCn, QString cWhere, QDir folder,
                                 QStringList holderCommand)
    : m_oCn(std::move(oCn)), m_cn(*m_oCn), m_where(std::move(cWhere)), m_folder(std::move(folder)),
      m_holderCommand(std::move(holderCommand)) {}

bool ScriptedSession::Check(bool lOk, const QString& cWhat) {
    PrintLine(QStringLiteral("%1 %2").arg(lOk ? QStringLiteral("[ok]") : QStringLiteral("[FALLO]"),
                                          cWhat));
    return lOk;
}

void ScriptedSession::Shoot(const QString& cFile) {
    QApplication::processEvents();
    m_windowPtr->grab().save(m_folder.filePath(cFile));
    PrintLine(QStringLiteral("  captura %1").arg(cFile));
}

void ScriptedSession::Type(const QString& cCampo, const QString& cText) {
    ::get* box = m_windowPtr->Control(cCampo);
    box->setFocus();
    box->setText(cText);
}

bool ScriptedSession::Press(int nBtn, int nFileStatus) {
    m_windowPtr->Ficha()->Button(nBtn)->Click();
    return m_windowPtr->Ficha()->FileStatus() == nFileStatus;
}

void ScriptedSession::SendKey(QEvent::Type type, int nKey, Qt::KeyboardModifiers modifiers) {
    QWidget* target = m_windowPtr->focusWidget();
    QKeyEvent event(type, nKey, modifiers);
    QApplication::sendEvent(target ? target : m_windowPtr->Ficha(), &event);
}

void ScriptedSession::PressKey(int nKey, Qt::KeyboardModifiers modifiers) {
    SendKey(QEvent::KeyPress, nKey, modifiers);
    SendKey(QEvent::KeyRelease, nKey, modifiers);
}

std::int32_t ScriptedSession::MoveInLastSearch(int nMove) {
    SendKey(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    m_windowPtr->Ficha()->MovementButton(nMove)->Click();
    SendKey(QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier);
    return m_windowPtr->CurrentID();
}

std::int32_t ScriptedSession::IdOfCode(const QString& cCodigo) {
    return m_cn
        .Execute(QStringLiteral("SELECT ZolmarID FROM clientes WHERE codigo=%1")
                     .arg(m_cn.PonComillas(Variant(cCodigo))),
                 zlxExecuteReturn_Value, Variant(0))
        .ToLong();
}

bool ScriptedSession::CreateClient(std::int32_t& nID) {
    ClientForm& form = *m_windowPtr;
    Shoot(QStringLiteral("demo-ficha.png"));
    if (!Check(Press(zlxCtlFichaBtn_Nuevo, zlxFileStat_NewRecord) &&
                   form.findChild<::lbl*>(QStringLiteral("lblID"))->text() ==
                       QStringLiteral("(Nuevo)"),
               QStringLiteral("Nuevo cliente")))
        return false;
    const int before = m_messages->Count();
    if (!Check(!form.Guardar() && form.Ficha()->IsNewRecord() && m_messages->Count() == before + 1,
               QStringLiteral("Sin nombre no se guarda y la ficha sigue en alta")))
        return false;
    Type(QStringLiteral("nombre"), QStringLiteral("Talleres Rivas, S.L."));
    Type(QStringLiteral("nif"), QStringLiteral("B91234567"));
    form.findChild<::btn*>(QStringLiteral("optTipo"))->setValue(2);
    form.findChild<::get*>(QStringLiteral("txtNombreMunicipio"))->setText(QStringLiteral("Sevi"));
    if (!Check(form.ChooseTown() &&
                   form.Control(QStringLiteral("municipio"))->Value().toInt() == 41091 &&
                   form.Control(QStringLiteral("municipio"))->Text() == QStringLiteral("41091"),
               QStringLiteral("\"Sevi\" elige el municipio Sevilla (41091)")))
        return false;
    Type(QStringLiteral("limite"), QStringLiteral("25000,5"));
    Type(QStringLiteral("notas"), QStringLiteral("Alta desde la demostración"));
    Shoot(QStringLiteral("demo-nuevo.png"));
    // Meanwhile another workstation saves a client with the code this form proposed.
    m_cn.Execute(QStringLiteral("INSERT INTO clientes (codigo, nombre, nif, Activo) VALUES "
                                "('C0007', 'Alta de otro puesto', '', 0)"),
                 zlxExecuteReturn_Nothing);
    const bool saved = form.Guardar();
    m_cn.Execute(QStringLiteral("DELETE FROM clientes WHERE nombre='Alta de otro puesto'"),
                 zlxExecuteReturn_Nothing);
    if (!Check(saved, QStringLiteral("Guardar el cliente nuevo"))) return false;
    nID = form.CurrentID();
    return Check(nID > 0 && IdOfCode(QStringLiteral("C0008")) == nID,
                 QStringLiteral("El cliente nuevo está en la tabla con el código siguiente "
                                "libre, C0008 (ZolmarID %1)")
                     .arg(nID));
}

bool ScriptedSession::EditClient(std::int32_t nID) {
    ClientForm& form = *m_windowPtr;
    if (!Check(form.ShowRecord(nID) && Press(zlxCtlFichaBtn_Modificar, zlxFileStat_EditRecord),
               QStringLiteral("Modificar el cliente")))
        return false;
    Type(QStringLiteral("nombre"), QStringLiteral("Talleres Rivas Hermanos, S.L."));
    Type(QStringLiteral("limite"), QStringLiteral("30000"));
    Type(QStringLiteral("notas"), QString());
    Shoot(QStringLiteral("demo-edicion.png"));
    return Check(form.Guardar(), QStringLiteral("Guardar los cambios"));
}

bool ScriptedSession::SearchAndEdit() {
    ClientForm& form = *m_windowPtr;
    m_grid->PickNext(QStringLiteral("Núñez"), QStringLiteral("demo-busqueda.png"));
    if (!Check(Press(zlxCtlFichaBtn_Buscar, zlxFileStat_ShowRecord) &&
                   form.CurrentID() == IdOfCode(QStringLiteral("C0002")),
               QStringLiteral("Buscar \"Núñez\" lleva al cliente C0002")))
        return false;
    if (!Check(MoveInLastSearch(zlxCtlFichaMove_Next) == IdOfCode(QStringLiteral("C0004")) &&
                   MoveInLastSearch(zlxCtlFichaMove_Previous) == IdOfCode(QStringLiteral("C0002")),
               QStringLiteral("Mayús con las flechas recorre la búsqueda por nombre (C0004 y "
                              "vuelta a C0002)")))
        return false;
    if (!Check(Press(zlxCtlFichaBtn_Modificar, zlxFileStat_EditRecord),
               QStringLiteral("Modificar el cliente encontrado")))
        return false;
    Type(QStringLiteral("limite"), QStringLiteral("4000"));
    Type(QStringLiteral("notas"), QStringLiteral("Límite ampliado"));
    PressKey(Qt::Key_Return, Qt::ControlModifier);
    return Check(form.Ficha()->IsShowing() &&
                     m_cn.RecCount(QStringLiteral("clientes"),
                                   QStringLiteral("codigo='C0002' AND limite=4000")) == 1,
                 QStringLiteral("Ctrl+Intro guarda el nuevo límite"));
}

bool ScriptedSession::LockConflict() {
    const std::int32_t id = IdOfCode(QStringLiteral("C0003"));
    QProcess holder;
    holder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    holder.start(m_holderCommand.first(),
                 m_holderCommand.mid(1) << QStringLiteral("--hold-lock") << QString::number(id));
    const bool ready = holder.waitForReadyRead(60000) && holder.readLine().startsWith("bloqueado");
    if (!Check(ready, QStringLiteral("Otro proceso bloquea el cliente C0003"))) {
        holder.kill();
        holder.waitForFinished();
        return false;
    }
    m_windowPtr->ShowRecord(id);
    m_messages->ShotNext(QStringLiteral("demo-bloqueo.png"));
    m_messages->QueueAnswer(MsgAnswerNegative);
    const int before = m_messages->Count();
    const bool refused =
        Press(zlxCtlFichaBtn_Modificar, zlxFileStat_ShowRecord) && m_messages->Count() > before;
    holder.closeWriteChannel();
    holder.waitForFinished(60000);
    return Check(refused, QStringLiteral("La modificación se rechaza por el bloqueo")) &&
           Check(holder.exitCode() == 0, QStringLiteral("El otro proceso libera su bloqueo"));
}

bool ScriptedSession::DeleteClient(std::int32_t nID) {
    ClientForm& form = *m_windowPtr;
    form.ShowRecord(nID);
    Shoot(QStringLiteral("demo-historial.png"));
    const bool deleted =
        Press(zlxCtlFichaBtn_Eliminar, zlxFileStat_ShowRecord) &&
        m_cn.RecCount(QStringLiteral("clientes"), QStringLiteral("ZolmarID=%1").arg(nID)) == 0;
    return Check(deleted && form.CurrentID() != nID, QStringLiteral("Eliminar el cliente nuevo"));
}

bool ScriptedSession::Export() {
    const QString file = m_folder.filePath(QStringLiteral("clientes.dbf"));
    return Check(m_windowPtr->ExportClients(file),
                 QStringLiteral("Exportar los clientes a %1").arg(file));
}

bool ScriptedSession::Run() {
    SessionMsgPresenter messages(m_folder);
    SessionSearchGrid grid(m_folder);
    ScopedMsgPresenter installedMessages(messages);
    ScopedSearchGridPresenter installedGrid(grid);
    m_messages = &messages;
    m_grid = &grid;
    MainWindow window(m_oCn, m_where);
    m_windowPtr = &window;
    window.resize(780, 680);
    window.show();
    std::int32_t id = 0;
    const bool ok = CreateClient(id) && EditClient(id) && SearchAndEdit() && LockConflict() &&
                    DeleteClient(id) && Export();
    PrintLine(QStringLiteral("Capturas en: %1").arg(m_folder.absolutePath()));
    return ok;
}

} // namespace zlx::demo
