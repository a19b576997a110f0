// The client form's handling of the record toolbar: its events (new, edit, delete, search,
// save checks), the form's save and cancel buttons and the keys it passes on to the toolbar.

#include "ClientForm.h"
#include "platform/companion/cKeyboard.h"
#include "platform/companion/cMsgBox.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"
#include "table/cDatos.h"

#include <QKeyEvent>

namespace zlx::demo {

namespace {

Variant Texts(std::initializer_list<const char*> texts) {
    std::vector<Variant> items;
    for (const char* text : texts)
        items.emplace_back(QString::fromUtf8(text));
    return Variant::Array(items);
}

} // namespace

void ClientForm::ShowMessage(const QString& cText, std::int32_t nIcon,
                             const QString& cTitle) const {
    cMsgBox box;
    box.SetIcon(nIcon);
    box.ShowMessage(cText, MsgButtonsOk, cTitle);
}

bool ClientForm::Guardar() {
    return m_ctl->Def_Guardar();
}

bool ClientForm::Cancelar() {
    return !m_ctl->IsShowing() && m_ctl->Def_Cancelar();
}

bool ClientForm::ShowRecord(std::int32_t nID) {
    if (!m_ctl->IsShowing() || m_ficha->SeekID(nID) != nID) return false;
    m_ctl->ShowButtons(false);
    return true;
}

void ClientForm::Nuevo(bool& /*lCancel*/, QObject*& oCtlFocus, QObject*& oCtl_ID) {
    oCtlFocus = m_gets.at(QStringLiteral("codigo"));
    oCtl_ID = m_id;
}

void ClientForm::NuevoDefaults(bool lDuplicando) {
    m_gets.at(QStringLiteral("codigo"))->setValue(NextCode());
    if (lDuplicando) return;
    m_gets.at(QStringLiteral("Activo"))->setValue(0);
    m_tipo->setValue(1);
}

void ClientForm::Modificar(bool& /*lCancel*/, QObject*& oCtlFocus) {
    oCtlFocus = m_gets.at(QStringLiteral("nombre"));
}

// After a deletion the cursor still holds the deleted client: the form shows the last one.
void ClientForm::Borrar(bool& /*lCancel*/) {
    if (!m_ctl->Def_Borrar()) return;
    m_ficha->Refresh();
    if (!m_ficha->IsValidRecord()) m_ficha->MoveLast();
}

// The clients by name in the search grid; the rows found are the last search, which Shift
// with the movement buttons walks and Shift with Buscar shows again.
void ClientForm::Buscar(bool& /*lCancel*/) {
    const Variant result = m_cn->Execute(
        QStringLiteral("SELECT c.ZolmarID, c.codigo, c.nombre, c.nif, m.nombre, c.limite "
                       "FROM clientes c LEFT JOIN municipios m ON m.codigo = c.municipio "
                       "ORDER BY c.nombre"),
        zlxExecuteReturn_cDatos_Disconnected);
    const auto found = result.IsObject() ? result.As<cDatos>() : nullptr;
    if (!found) return;
    const Variant headers = Texts({"ID", "Código", "Nombre", "NIF", "Municipio", "Límite"});
    const Variant widths = Variant::Array(
        {Variant(0), Variant(8), Variant(30), Variant(11), Variant(14), Variant(14)});
    const Variant id = found->Buscar(QStringLiteral("Buscar clientes"), headers, widths, 1, 3, 500,
                                     Texts({"", "", "", "", "", "#,##0.00"}));
    m_ctl->aLastSearchData(found->GetRows());
    m_ctl->aLastSearchHdrStrings(headers);
    m_ctl->aLastSearchHdrWidths(widths);
    m_ctl->nLastSearchFirstVisibleColumn(1);
    if (!id.IsEmpty()) m_ficha->SeekID(id.ToLong());
}

void ClientForm::Saving(bool& lCancel) {
    const QString errors = SavingErrors();
    if (errors.isEmpty()) return;
    ShowMessage(errors, MsgIconWarning, QStringLiteral("No se puede guardar el cliente"));
    lCancel = true;
}

// Under the new-record lock: a code another workstation took since the form proposed it is
// replaced by the next free one.
void ClientForm::SaveDataForNewRecord() {
    ::get* codigo = m_gets.at(QStringLiteral("codigo"));
    if (CodeTaken(codigo->Text().trimmed())) codigo->setValue(NextCode());
}

bool ClientForm::CodeTaken(const QString& cCodigo) const {
    return m_cn->RecCount(QString::fromLatin1(kTabla),
                          QStringLiteral("codigo=%1").arg(m_cn->PonComillas(Variant(cCodigo)))) > 0;
}

void ClientForm::TeclaPulsada(int nTecla) {
    ActOnKeyStatus(nTecla);
}

void ClientForm::ActOnKeyStatus(int nStatus) {
    switch (nStatus) {
    case zlxFormStat_Guardando:
        Guardar();
        break;
    case zlxFormStat_Cancelando:
        Cancelar();
        break;
    case zlxFormStat_Salir:
        close();
        break;
    default:
        break;
    }
}

bool ClientForm::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::KeyRelease) return false;
    // Once per key, for the form's own controls; the toolbar handles the keys it receives.
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget != focusWidget() || widget == m_ctl || m_ctl->isAncestorOf(widget))
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    auto keyCode = static_cast<std::int16_t>(cKeyboard::VirtualKeyOf(key->key()));
    std::int16_t shift = cKeyboard::ShiftMaskOf(key->modifiers());
    if (press)
        ActOnKeyStatus(m_ctl->Def_KeyDown(keyCode, shift));
    else
        m_ctl->Def_KeyUp(keyCode, shift);
    return keyCode == 0;
}

} // namespace zlx::demo
