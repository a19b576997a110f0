#pragma once
// The client form: the record toolbar, the client's fields as bound "get", "btn" and "lbl"
// controls, the town looked up from its code, the credit limit in words, and the change log
// of the shown client. The record flows (new, edit, save, cancel, delete, search, moves) take
// the record locks and the named save transaction as every data-entry form of the library
// does.

#include "ChangeLog.h"
#include "binding/I_TAV.h"
#include "binding/cBinding.h"
#include "cursor/cFichaDB.h"
#include "table/cDatos.h"

#include <QWidget>
#include <map>

class QLabel;
class QPushButton;
class QTreeWidget;
class btn;
class get;
class lbl;

namespace zlx::demo {

class RecordBar;

class ClientForm : public QWidget {
    Q_OBJECT
public:
    static constexpr const char* kTabla = "clientes";

    ClientForm(cConexionPtr oCn, std::int32_t nIdUsuario, QWidget* parent = nullptr);
    ~ClientForm() override;

    // The descriptor of a bound control and the refresh the binding asks for.
    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject* oControl);
    Q_INVOKABLE void Refresh();

    // The record flows; each answers whether it did what was asked.
    bool Nuevo();
    bool Modificar();
    bool Guardar();
    bool Cancelar();
    bool Borrar();
    bool Buscar();
    bool RepetirBusqueda();
    bool Move(int nBtn);
    bool ShowRecord(std::int32_t nID);
    // The town typed by name in its box, through the lookup field (a list when the text does
    // not name one town, or always with lForzarLista); false when no town was chosen.
    bool ChooseTown(bool lForzarLista = false);

    int FileStatus() const { return m_fileStatus; }
    std::int32_t CurrentID() const;
    ::get* Control(const QString& cCampo) const;
    RecordBar* Bar() const { return m_bar; }
    QTreeWidget* LogList() const { return m_log; }
    // Moves walk the rows of the last search instead of the whole table.
    void SetSearchNavigation(bool lOn) { m_searchNavigation = lOn; }

private:
    void BuildLayout();
    void BindControls();
    ::get* AddGet(const QString& cCampo, const QString& cNombre);
    void ConnectControls();

    // Show state: the buttons, the values and the derived data.
    void ShowButtons();
    void ShowForm();
    void ShowTown();
    void ShowCreditInWords();
    void ShowChangeLog();
    void EnterEditMode(int nFileStatus);
    void LeaveEditMode();
    void PutNewRecordDefaults();
    QString NextCode() const;
    void ValidateTown(bool& Cancel);
    // The checks of a save; "" when the record can be saved.
    QString SavingErrors() const;

    bool SaveInTransaction(const QString& cTransaction, std::int32_t& nID);
    std::int32_t InsertLockedRecord();
    bool DeleteShownRecord();
    std::int32_t Lock(int nType, bool lOn, std::int32_t nID, int nRetry);
    bool MoveInLastSearch(int nBtn, std::int32_t& nID);
    void ShowMessage(const QString& cText, std::int32_t nIcon, const QString& cTitle) const;

    cConexionPtr m_cn;
    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
    cBinding m_binding;
    std::map<QString, I_DAVPtr> m_descriptors;
    std::int32_t m_idUsuario;
    std::int32_t m_pid;
    int m_fileStatus = zlxFileStat_ShowRecord;
    RecordValues m_valuesBeforeEdit;
    std::shared_ptr<cDatos> m_lastSearch;
    bool m_searchNavigation = false;

    RecordBar* m_bar = nullptr;
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
