// CtlFichaLogic: set-up, properties, the buttons' state and the form's display.

#include "form/CtlFichaLogic.h"

#include "binding/BoundControl.h"
#include "connection/MsgTranslator.h"
#include "frame/LibraryState.h"
#include "platform/companion/LateBinding.h"

#include <QDateTime>

namespace zlx {

namespace {

// The events' handler used when nobody handles them.
I_CtlFichaEvents& NoEvents() {
    static I_CtlFichaEvents none;
    return none;
}

// The form used when the control sits on none.
I_CtlFichaForm& NoForm() {
    static I_CtlFichaForm none;
    return none;
}

constexpr std::int32_t kArrowAndHourglass = 13;

} // namespace

class CtlFichaLogic::Busy {
public:
    explicit Busy(CtlFichaLogic& logic) : m_logic(logic) { ++m_logic.m_uncompleted; }
    ~Busy() { --m_logic.m_uncompleted; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    CtlFichaLogic& m_logic;
};

CtlFichaLogic::CtlFichaLogic(I_CtlFichaView& view)
    : m_view(view), m_binding(std::make_shared<cBinding>()), m_msgBox(std::make_shared<cMsgBox>()) {
}

CtlFichaLogic::~CtlFichaLogic() = default;

void CtlFichaLogic::SetForm(I_CtlFichaForm* form) {
    m_form = form;
}

void CtlFichaLogic::SetControls(I_CtlFichaControls* controls) {
    m_controls = controls;
}

void CtlFichaLogic::SetEvents(I_CtlFichaEvents* events) {
    m_events = events;
}

I_CtlFichaEvents& CtlFichaLogic::Events() const {
    if (m_events) return *m_events;
    if (I_CtlFichaEvents* own = Form().FormEvents()) return *own;
    return NoEvents();
}

I_CtlFichaForm& CtlFichaLogic::Form() const {
    return m_form ? *m_form : NoForm();
}

bool CtlFichaLogic::ReadOnly() const {
    return LibraryState::Instance().CtlFichaReadOnly();
}

bool CtlFichaLogic::HasValidRecord() const {
    return m_ficha && m_ficha->IsValidRecord();
}

std::int32_t CtlFichaLogic::CurrentID() const {
    return HasValidRecord() ? m_ficha->ID() : 0;
}

QString CtlFichaLogic::Translated(const QString& text) const {
    return m_translator ? m_translator->Msg(text, {}) : text;
}

std::int32_t CtlFichaLogic::Message(const QString& text, std::int32_t nIcon, std::int32_t nTipo,
                                    const QString& title) const {
    m_msgBox->SetIcon(nIcon);
    return m_msgBox->ShowMessage(text, nTipo, title);
}

void CtlFichaLogic::Redraw(bool on) {
    m_view.MovementButton(zlxCtlFichaMove_First).Redraw(on);
}

Date CtlFichaLogic::CurrentTime() {
    const QDateTime now = QDateTime::currentDateTime();
    return MakeDate(now.date().year(), now.date().month(), now.date().day(), now.time().hour(),
                    now.time().minute(), now.time().second());
}

void CtlFichaLogic::AsociarFicha(cFichaDBPtr oFichaDB, const QString& cTableName,
                                 std::int32_t nUser, std::int32_t nProcessID,
                                 cGlobalesPtr oGlobalesActual, const QString& cSubTipoBloqueo) {
    Busy busy(*this);
    m_user = nUser;
    m_processID = nProcessID;
    m_lockSubtype = cSubTipoBloqueo;
    if (!oFichaDB) {
        m_ficha.reset();
    } else {
        m_ficha = std::move(oFichaDB);
        m_tableName = cTableName;
        m_binding->EnableGets(false, zlxEnableGetsDirecto);
        ShowButtons(false);
    }
    m_globales = std::move(oGlobalesActual);
    m_translator =
        m_globales ? std::dynamic_pointer_cast<MsgTranslator>(m_globales->oIdioma()) : nullptr;
}

void CtlFichaLogic::ShowButtons(bool lOnlyButtons) {
    Busy busy(*this);
    Redraw(false);
    const bool showing = IsShowing();
    m_view.Enabled(showing);
    for (int n = 0; n < kFichaMoveButtons; ++n)
        m_view.MovementButton(n).Visible(showing);
    for (int n = zlxCtlFichaBtn_Nuevo; n <= zlxCtlFichaBtn_Buscar; ++n)
        m_view.Button(n).Visible(showing);
    m_view.Button(zlxCtlFichaBtn_Comentario).Visible(showing && m_mostrarComentario);
    bool valid = true;
    if (showing) {
        valid = HasValidRecord();
        const bool writable = !ReadOnly();
        bool lMove = valid, lNuevo = writable, lModificar = valid && writable;
        bool lBorrar = lModificar, lBuscar = true, lComentario = lModificar;
        Events().EnabledButtons(lMove, lNuevo, lModificar, lBorrar, lBuscar, lComentario);
        for (int n = 0; n < kFichaMoveButtons; ++n)
            m_view.MovementButton(n).Enabled(lMove);
        m_view.Button(zlxCtlFichaBtn_Nuevo).Enabled(lNuevo && writable);
        m_view.Button(zlxCtlFichaBtn_Modificar).Enabled(lModificar && writable);
        m_view.Button(zlxCtlFichaBtn_Eliminar).Enabled(lBorrar && writable);
        m_view.Button(zlxCtlFichaBtn_Comentario).Enabled(lComentario && writable);
        m_view.Button(zlxCtlFichaBtn_Buscar).Enabled(lBuscar);
    }
    if (!lOnlyButtons) {
        ShowForm(valid);
        RefreshLogDisplay();
    }
    Redraw(true);
}

void CtlFichaLogic::RefreshLogDisplay() {
    if (!LibraryState::Instance().HabilitarRegistro_LogFichas()) return;
    try {
        Form().RefrescarDatosLogFichas(m_ficha);
    } catch (const std::exception&) {
        // The application's display of the log is its own business.
    }
}

void CtlFichaLogic::ShowForm(bool lIsValidRecord) {
    Busy busy(*this);
    Redraw(false);
    Events().BeforeShowForm();
    if (IsShowing()) m_binding->Field2Control(!lIsValidRecord, {});
    RaiseShowForm();
    Redraw(true);
}

void CtlFichaLogic::RaiseShowForm() {
    const std::int32_t pointer = Form().MousePointer();
    Form().MousePointer(kArrowAndHourglass);
    Events().ShowForm();
    Form().MousePointer(pointer);
}

void CtlFichaLogic::SetFocusToCtl(QObject* oCtlFocus) {
    if (!oCtlFocus) {
        Message(QStringLiteral("No puede pasarse el \"focus\" al objeto (nothing)"), 32515, 0,
                QStringLiteral("Error en CtlFicha.SetFocusToCtl"));
        return;
    }
    m_focusControl = oCtlFocus;
}

void CtlFichaLogic::ApplyFocusRule() {
    const QString title = QStringLiteral("Error en CtlFicha");
    if (!m_focusControl) {
        Message(QStringLiteral("No puede pasarse el \"focus\" al objeto (nothing)"), 32515, 0,
                title);
        return;
    }
    I_CtlFichaControls* controls = Controls();
    if (!controls) return;
    if (controls->Visible(m_focusControl) && controls->Enabled(m_focusControl)) {
        controls->SetFocus(m_focusControl);
        return;
    }
    Message(QStringLiteral("El control ") + controls->Name(m_focusControl) +
                QStringLiteral(" no puede recibir el \"focus\" en este momento"),
            32515, 0, title);
}

void CtlFichaLogic::ShowGet(bool lValor, const QList<QObject*>& aCtrls) {
    Busy busy(*this);
    if (!Controls()) return;
    for (QObject* control : aCtrls)
        if (control && Controls()->Enabled(control) != lValor) Controls()->Enabled(control, lValor);
}

void CtlFichaLogic::VisibleGet(bool lValor, const QList<QObject*>& aCtrls) {
    Busy busy(*this);
    if (!Controls()) return;
    for (QObject* control : aCtrls)
        if (control && Controls()->Visible(control) != lValor) Controls()->Visible(control, lValor);
}

std::int32_t CtlFichaLogic::xLock(int nTypeLock, bool lOnOff, int nRetry) {
    Busy busy(*this);
    if (!m_ficha) return -1;
    const std::int32_t id = nTypeLock == zlxLockTypeEdit ? m_ficha->ID() : 0;
    return m_ficha->xLock(nTypeLock, lOnOff, m_processID, id, m_user, m_lockSubtype, nRetry);
}

void CtlFichaLogic::PostClickToBtn(int nBtn) {
    if (nBtn >= 0 && nBtn < kFichaRecordButtons) m_view.Button(nBtn).PostClick();
}

void CtlFichaLogic::SetFocusToBtn(int nBtn, bool lClick, bool lNoShow) {
    if (nBtn < 0 || nBtn >= kFichaRecordButtons) return;
    Busy busy(*this);
    m_fileStatus = zlxFileStat_ShowRecord;
    if (!lNoShow) ShowButtons(false);
    Form().DoEvents();
    I_CtlFichaButton& button = m_view.Button(nBtn);
    if (button.Enabled() && button.Visible()) {
        if (lClick)
            button.Click();
        else
            button.SetFocus();
        button.ShowFocus();
    }
}

bool CtlFichaLogic::CancelValidate() {
    const int found = m_formStatus;
    if (found != zlxFormStat_Normal) m_formStatus = zlxFormStat_IgnorarValidate;
    return found != zlxFormStat_Normal && found != zlxFormStat_Guardando;
}

bool CtlFichaLogic::CheckValidate(bool& Cancel) {
    if (m_formStatus == zlxFormStat_FallarValidate) Cancel = true;
    bool skip = CancelValidate();
    const QObject* active = Form().ActiveControl();
    if (ControlTypeName(active) == QLatin1String("get")) {
        if (!GetControlProperty(active, "EnabledGet").ToBool()) skip = true;
        if (!GetControlProperty(active, "ShownEnabled").ToBool()) skip = true;
    }
    return skip;
}

float CtlFichaLogic::RightPos() const {
    return m_view.Left() + m_view.Width();
}

float CtlFichaLogic::BottomPos() const {
    return m_view.Top() + m_view.Height();
}

I_CtlFichaButton* CtlFichaLogic::Button(int nBtn) const {
    return nBtn >= 0 && nBtn < kFichaRecordButtons ? &m_view.Button(nBtn) : nullptr;
}

I_CtlFichaButton* CtlFichaLogic::MovementButton(int nBtn) const {
    return nBtn >= 0 && nBtn < kFichaMoveButtons ? &m_view.MovementButton(nBtn) : nullptr;
}

QString CtlFichaLogic::BtnCaption(int nBtn) const {
    const I_CtlFichaButton* button = Button(nBtn);
    return button ? button->Caption() : QString();
}

void CtlFichaLogic::BtnCaption(int nBtn, const QString& value) {
    I_CtlFichaButton* button = Button(nBtn);
    if (!button) return;
    button->Caption(value);
    const qsizetype amp = value.indexOf(u'&');
    if (amp >= 0 && amp + 1 < value.size()) m_hotKeys[nBtn] = value.at(amp + 1).toUpper();
}

bool CtlFichaLogic::BtnEnabled(int nBtn) const {
    const I_CtlFichaButton* button = Button(nBtn);
    return button && button->Enabled();
}

void CtlFichaLogic::BtnEnabled(int nBtn, bool value) {
    if (I_CtlFichaButton* button = Button(nBtn)) button->Enabled(value);
}

bool CtlFichaLogic::BtnVisible(int nBtn) const {
    const I_CtlFichaButton* button = Button(nBtn);
    return button && button->Visible();
}

void CtlFichaLogic::BtnVisible(int nBtn, bool value) {
    if (nBtn == zlxCtlFichaBtn_Comentario && !m_mostrarComentario) return;
    if (I_CtlFichaButton* button = Button(nBtn)) button->Visible(value);
}

QString CtlFichaLogic::BtnToolTip(int nBtn) const {
    const I_CtlFichaButton* button = Button(nBtn);
    return button ? button->ToolTip() : QString();
}

void CtlFichaLogic::BtnToolTip(int nBtn, const QString& value) {
    if (I_CtlFichaButton* button = Button(nBtn)) button->ToolTip(value);
}

QString CtlFichaLogic::BtnMoveToolTip(int nBtn) const {
    const I_CtlFichaButton* button = MovementButton(nBtn);
    return button ? button->ToolTip() : QString();
}

void CtlFichaLogic::BtnMoveToolTip(int nBtn, const QString& value) {
    if (I_CtlFichaButton* button = MovementButton(nBtn)) button->ToolTip(value);
}

void CtlFichaLogic::MostrarBotonComentario(bool value) {
    m_mostrarComentario = value;
    m_view.Button(zlxCtlFichaBtn_Comentario).Visible(value);
    m_view.Relayout();
}

void CtlFichaLogic::StatusBarAsociado(QObject* value) {
    m_statusBar = value;
    for (int n = 0; n < kFichaRecordButtons; ++n)
        m_view.Button(n).StatusBar(value);
    for (int n = 0; n < kFichaMoveButtons; ++n)
        m_view.MovementButton(n).StatusBar(value);
}

std::int64_t CtlFichaLogic::GetParentHWnd() const {
    return Form().hWnd();
}

void CtlFichaLogic::Post_WM_Close(std::int64_t nHWND) {
    m_view.Button(zlxCtlFichaBtn_Buscar).PostClose(nHWND);
}

void CtlFichaLogic::ShowValues() {
    Busy busy(*this);
    m_binding->ShowValues();
}

void CtlFichaLogic::ChangeBackColor(bool lRestoreNormal, std::int32_t nColor) {
    const std::int32_t color = lRestoreNormal ? -1 : nColor;
    for (int n = 0; n < kFichaRecordButtons; ++n)
        m_view.Button(n).BackColor(color);
    for (int n = 0; n < kFichaMoveButtons; ++n)
        m_view.MovementButton(n).BackColor(color);
}

bool CtlFichaLogic::RunningDataDefaults(bool lNuevo) const {
    return lNuevo ? m_runningNewDefaults : m_runningEditDefaults;
}

void CtlFichaLogic::PreDisabledAllControls() {
    m_binding->EnableGets(false, zlxEnableGetsAntes);
}

void CtlFichaLogic::PreEnabledControls(bool lEnabled, const QList<QObject*>& aCtls) {
    for (QObject* control : aCtls)
        if (control) BoundControl::StoreEnabled(control, lEnabled);
}

void CtlFichaLogic::ButtonClick(int nBtn) {
    Busy busy(*this);
    int action = nBtn;
    DoAction(action);
}

} // namespace zlx
