#pragma once
// The client form: a window with the library's record toolbar (CtlFicha), the client's fields
// as bound "get", "btn" and "lbl" controls, the town looked up from its code, the credit
// limit in words, and the change log of the shown client. The toolbar runs new, edit, delete,
// search and the moves, and the form's Guardar and Cancelar buttons save and cancel through
// it (named transaction, record locks, change log); the form handles the toolbar's events.

#include "AppGlobal.h"
#include "binding/I_TAV.h"
#include "form/CtlFicha.h"

#include <QMainWindow>
#include <map>

class QEvent;
class QLabel;
class QPushButton;
class QTreeWidget;
class btn;
class get;
class lbl;

namespace zlx::demo {

class ClientForm : public QMainWindow, public I_CtlFichaEvents {
    Q_OBJECT
    Q_PROPERTY(QObject* oAppGlobal READ AppGlobalObject)

public:
    static constexpr const char* kTabla = "clientes";

    // nIdUsuario and nIdPuesto: who works and from which workstation (the locks and the
    // change log carry them).
    ClientForm(cConexionPtr oCn, std::int32_t nIdUsuario, std::int32_t nIdPuesto,
               QWidget* parent = nullptr);
    ~ClientForm() override;

    // The descriptor of a bound control and the refresh the binding asks for.
    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject* oControl);
    Q_INVOKABLE void Refresh();
    QObject* AppGlobalObject() { return &m_app; }

    // The form's Guardar and Cancelar buttons; each answers whether it did what was asked.
    bool Guardar();
    bool Cancelar();
    bool ShowRecord(std::int32_t nID);
    // The town typed by name in its box, through the lookup field (a list when the text does
    // not name one town, or always with lForzarLista); false when no town was chosen.
    bool ChooseTown(bool lForzarLista = false);
    // Lists the change log of the shown client.
    void ShowChangeLog();

    CtlFicha* Ficha() const { return m_ctl; }
    std::int32_t CurrentID() const;
    ::get* Control(const QString& cCampo) const;
    QTreeWidget* LogList() const { return m_log; }

    // The record toolbar's events.
    void Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) override;
    void NuevoDefaults(bool lDuplicando) override;
    void Modificar(bool& lCancel, QObject*& oCtlFocus) override;
    void Borrar(bool& lCancel) override;
    void Buscar(bool& lCancel) override;
    void TeclaPulsada(int nTecla) override;
    void ShowForm() override;
    void Saving(bool& lCancel) override;
    void SaveDataForNewRecord() override;

protected:
    // The form sees the keys of its controls before they do.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildLayout();
    void BindControls();
    ::get* AddGet(const QString& cCampo, const QString& cNombre);
    void ConnectControls();

    void ShowTown();
    void ShowCreditInWords();
    void ShowStatus();
    QString NextCode() const;
    bool CodeTaken(const QString& cCodigo) const;
    void ValidateTown(bool& Cancel);
    // The checks of a save; "" when the record can be saved.
    QString SavingErrors() const;
    void ShowMessage(const QString& cText, std::int32_t nIcon, const QString& cTitle) const;
    void ActOnKeyStatus(int nStatus);

    cConexionPtr m_cn;
    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
    std::map<QString, I_DAVPtr> m_descriptors;
    AppGlobal m_app;

    CtlFicha* m_ctl = nullptr;
    std::map<QString, ::get*> m_gets;
    lbl* m_id = nullptr;
    ::btn* m_tipo = nullptr;
    ::get* m_townName = nullptr;
    I_TAVPtr m_towns;
    QLabel* m_creditWords = nullptr;
    QLabel* m_status = nullptr;
    QPushButton* m_save = nullptr;
    QPushButton* m_cancel = nullptr;
    QTreeWidget* m_log = nullptr;
};

} // namespace zlx::demo
