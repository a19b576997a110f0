#pragma once
// The record form control's logic: the toolbar's state machine on one record cursor. It keeps
// the form's state (showing a record, editing it, creating one), decides which buttons are
// shown and enabled, runs New / Edit / Duplicate / Delete / Search / Comment / the moves
// through a fixed order of events that the form handles, saves, cancels and deletes under
// named transactions and lock records, and turns keys into actions.
//
// It knows no window system: it drives its buttons (I_CtlFichaView), the form
// (I_CtlFichaForm), the form's controls (I_CtlFichaControls) and raises its events through
// I_CtlFichaEvents. The Qt widget CtlFicha puts real widgets behind those interfaces; a
// program without a display can use HeadlessFichaView and the interfaces' defaults.

#include "binding/cBinding.h"
#include "form/CtlFichaConstants.h"
#include "form/I_CtlFichaControls.h"
#include "form/I_CtlFichaEvents.h"
#include "form/I_CtlFichaForm.h"
#include "form/I_CtlFichaView.h"
#include "frame/cGlobales.h"

#include <QList>
#include <QPointer>

namespace zlx {

class MsgTranslator;

class CtlFichaLogic {
public:
    explicit CtlFichaLogic(I_CtlFichaView& view);
    ~CtlFichaLogic();
    CtlFichaLogic(const CtlFichaLogic&) = delete;
    CtlFichaLogic& operator=(const CtlFichaLogic&) = delete;

    // The form, its controls and the events' handler; nullptr stands for one that does
    // nothing. Not owned.
    void SetForm(I_CtlFichaForm* form);
    void SetControls(I_CtlFichaControls* controls);
    void SetEvents(I_CtlFichaEvents* events);

    // The last search: a (column, row) array whose column 0 holds record identities, its
    // headers, widths and first visible column.
    const Variant& aLastSearchData() const { return m_lastSearchData; }
    void aLastSearchData(const Variant& value) { m_lastSearchData = value; }
    const Variant& aLastSearchHdrStrings() const { return m_lastSearchHdrStrings; }
    void aLastSearchHdrStrings(const Variant& value) { m_lastSearchHdrStrings = value; }
    const Variant& aLastSearchHdrWidths() const { return m_lastSearchHdrWidths; }
    void aLastSearchHdrWidths(const Variant& value) { m_lastSearchHdrWidths = value; }
    std::int32_t nLastSearchFirstVisibleColumn() const { return m_lastSearchFirstVisibleColumn; }
    void nLastSearchFirstVisibleColumn(std::int32_t value) {
        m_lastSearchFirstVisibleColumn = value;
    }

    // Actions (zlxFormAction); an unknown one becomes zlxFormAction_Nada.
    void DoAction(int& nAccion);
    void ShowLastSearch();

    // Keyboard: the Windows key code and the modifier mask (1 Shift, 2 Ctrl, 4 Alt); a
    // KeyCode set to 0 was consumed.
    int Def_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift);
    void Def_KeyUp(std::int16_t& KeyCode, std::int16_t& Shift);
    // The toolbar's own key handlers (when it has the focus itself).
    void ControlKeyDown(std::int16_t& KeyCode, std::int16_t& Shift);
    void ControlKeyUp(std::int16_t& KeyCode, std::int16_t& Shift);

    // Save, cancel and delete.
    void AddSavingInfo(const QString& cInfo);
    bool Def_Guardar(bool lNoShow = false);
    bool Def_Guardar(bool lNoShow, QString& cInfoErrors);
    bool Def_Cancelar();
    bool Def_Borrar(const QString& cTxt = {}, const QString& cChkCaption = {},
                    const QString& cTitulo = {}, const cFichaDBPtr& oAltFichaDB = nullptr);

    // The change log: a capture of the record's values before (lPrimera) or after a change,
    // and the log row of two captures.
    Variant CargarValoresFichaDB(cMatrizPtr& oMatriz, bool lPrimera,
                                 const cFichaDBPtr& oAltFichaDB = nullptr);
    void ProcesarLogFichas(cMatrizPtr& oMatriz, bool lDelete);

    void SetFocusToCtl(QObject* oCtlFocus);
    void ShowButtons(bool lOnlyButtons = false);
    void ShowForm(bool lIsValidRecord = true);
    void ShowGet(bool lValor, const QList<QObject*>& aCtrls);
    void VisibleGet(bool lValor, const QList<QObject*>& aCtrls);
    std::int32_t xLock(int nTypeLock, bool lOnOff, int nRetry = zlxLockRetryUntilCancel);
    void AsociarFicha(cFichaDBPtr oFichaDB, const QString& cTableName, std::int32_t nUser,
                      std::int32_t nProcessID, cGlobalesPtr oGlobalesActual,
                      const QString& cSubTipoBloqueo = {});
    void PostClickToBtn(int nBtn);
    void SetFocusToBtn(int nBtn, bool lClick = false, bool lNoShow = false);
    bool CancelValidate();
    // For the Validate handlers of the form's edit controls: true means skip the check.
    bool CheckValidate(bool& Cancel);

    float RightPos() const;
    float BottomPos() const;
    I_CtlFichaButton* Button(int nBtn) const;
    I_CtlFichaButton* MovementButton(int nBtn) const;
    cBindingPtr BindingControls() const { return m_binding; }

    int FileStatus() const { return m_fileStatus; }
    void FileStatus(int value) { m_fileStatus = value; }
    int FormStatus() const { return m_formStatus; }
    void FormStatus(int value) { m_formStatus = value; }
    bool IsNewRecord() const { return m_fileStatus == zlxFileStat_NewRecord; }
    bool IsShowing() const { return m_fileStatus == zlxFileStat_ShowRecord; }

    QString BtnCaption(int nBtn) const;
    void BtnCaption(int nBtn, const QString& value);
    bool BtnEnabled(int nBtn) const;
    void BtnEnabled(int nBtn, bool value);
    bool BtnVisible(int nBtn) const;
    void BtnVisible(int nBtn, bool value);
    QString BtnToolTip(int nBtn) const;
    void BtnToolTip(int nBtn, const QString& value);
    QString BtnMoveToolTip(int nBtn) const;
    void BtnMoveToolTip(int nBtn, const QString& value);
    // The record buttons' hot-key letters, one per button ("NMBUO" at first).
    const QString& HotKeyLetters() const { return m_hotKeys; }

    bool MostrarBotonComentario() const { return m_mostrarComentario; }
    void MostrarBotonComentario(bool value);
    QObject* StatusBarAsociado() const { return m_statusBar; }
    void StatusBarAsociado(QObject* value);
    Date LastRefreshTime() const { return m_lastRefreshTime; }

    std::int64_t GetParentHWnd() const;
    void Post_WM_Close(std::int64_t nHWND);
    void Post_WM_Close_WhenIdle(std::int64_t nHWND) { m_pendingClose = nHWND; }

    void ShowValues();
    void ChangeBackColor(bool lRestoreNormal, std::int32_t nColor = -1);
    std::int32_t UncompletedEvents() const { return m_uncompleted; }
    bool RunningDataDefaults(bool lNuevo = true) const;
    void PreDisabledAllControls();
    void PreEnabledControls(bool lEnabled, const QList<QObject*>& aCtls);

    // The buttons' clicks.
    void ButtonClick(int nBtn);
    void MoveButtonClick(int nButton);

    // What AsociarFicha was given.
    cFichaDBPtr Ficha() const { return m_ficha; }
    const QString& TableName() const { return m_tableName; }
    cGlobalesPtr Globales() const { return m_globales; }
    // The search-list mode (Shift held in show state).
    bool SearchListMode() const { return m_savedMoveColor != 0; }

private:
    class Busy; // raises the uncompleted-events counter for its lifetime

    I_CtlFichaEvents& Events() const;
    I_CtlFichaForm& Form() const;
    I_CtlFichaControls* Controls() const { return m_controls; }
    bool ReadOnly() const;
    bool HasValidRecord() const;
    std::int32_t CurrentID() const;
    QString Translated(const QString& text) const;
    std::int32_t Message(const QString& text, std::int32_t nIcon, std::int32_t nTipo,
                         const QString& title) const;
    void Redraw(bool on);
    static Date CurrentTime();
    void RaiseShowForm();
    void ApplyFocusRule();
    void RefreshLogDisplay();

    // DoAction's steps (CtlFichaLogic_actions.cpp).
    bool RecordStillValid();
    void ReadOnlyRefusal();
    void ActionNuevo(bool duplicating);
    void ActionModificar();
    bool ConfirmEditOfDeletedRecord();
    void EnterEditMode();
    void ActionEliminar();
    void ActionBuscar();
    void RaiseWithFormDisabled(void (I_CtlFichaEvents::*event)(bool&), int nBtn);

    // Moves and the last search list (CtlFichaLogic_moves.cpp).
    bool LastSearchRows(cMatriz& rows) const;
    bool MoveInLastSearch(int nButton, std::int32_t previousID);
    void ShowSearchListIdentity(std::int32_t id, std::int32_t previousID);
    bool RunSearchListDialog();
    std::int32_t MoveCursor(int nButton);

    // Keyboard (CtlFichaLogic_keys.cpp).
    int KeyDownAction(std::int16_t& KeyCode, std::int16_t Shift);
    bool ClickHotKey(QChar letter);
    void EnterSearchListMode();
    void LeaveSearchListMode();

    // Save and delete (CtlFichaLogic_save.cpp).
    void BeginBusyWindow();
    void EndBusyWindow();
    bool LockNewRecord(std::int32_t& id);
    void ReportNewRecordLockFailure(std::int32_t id);
    bool SaveFails(const cConexion& cn, std::int32_t id) const;
    static bool LocksReleasedByRollback(const cConexion& cn);
    void UndoFailedSave(cConexion& cn, const QString& transaction, std::int32_t shownBefore);
    void FinishSave(cConexion& cn, const QString& transaction, bool editing);
    bool ConfirmDeletion(QString cTxt, QString cChkCaption, QString cTitulo) const;
    std::int32_t LockShownRecord(bool lOnOff, std::int32_t id);
    bool RecordStillExists(std::int32_t id) const;
    cConexionPtr Connection() const;

    I_CtlFichaView& m_view;
    I_CtlFichaForm* m_form = nullptr;
    I_CtlFichaControls* m_controls = nullptr;
    I_CtlFichaEvents* m_events = nullptr;

    cBindingPtr m_binding;
    cMsgBoxPtr m_msgBox;
    cFichaDBPtr m_ficha;
    cGlobalesPtr m_globales;
    std::shared_ptr<MsgTranslator> m_translator;
    QString m_tableName;
    QString m_lockSubtype;
    std::int32_t m_user = 0;
    std::int32_t m_processID = 0;

    int m_fileStatus = zlxFileStat_ShowRecord;
    int m_formStatus = zlxFormStat_Normal;
    QPointer<QObject> m_focusControl;
    Date m_lastRefreshTime{0};
    bool m_runningNewDefaults = false;
    bool m_runningEditDefaults = false;
    bool m_mostrarComentario = true;
    QPointer<QObject> m_statusBar;
    std::int32_t m_uncompleted = 0;
    std::int64_t m_pendingClose = 0;
    std::int32_t m_savedMoveColor = 0; // non-zero while the search-list mode is on
    QString m_hotKeys = QStringLiteral("NMBUO");
    QString m_savingInfo;
    int m_savedMousePointer = 0;

    Variant m_lastSearchData, m_lastSearchHdrStrings, m_lastSearchHdrWidths;
    std::int32_t m_lastSearchFirstVisibleColumn = 0;
};

} // namespace zlx
