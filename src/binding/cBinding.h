#pragma once
// Ties the edit controls of a data-entry form to the columns of record cursors. Each control
// names its column with its Alias (table) and Campo (column) properties; the binding fills the
// controls from the current records, empties them, writes them back with one UPDATE, sets them
// up through their field descriptors and enables them directly or through a saved state.
// Controls and the form are reached only by name (properties and invokable methods), so any
// control with the same names can be bound.
//
// The form must offer `Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject*)` (the descriptor of a
// control) and an invokable or slot `Refresh()`.

#include "binding/I_DAV.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/cMsgBox.h"

#include <QMetaType>
#include <QObject>
#include <QPointer>
#include <vector>

Q_DECLARE_METATYPE(zlx::I_DAVPtr)

namespace zlx {

enum zlxBCConstants {
    zlxBCNormal = 0,
    zlxBCNoEdit = 1,  // never enabled by EnableGets (identity controls excepted)
    zlxBCNoUpdate = 2 // never written back by Control2Field
};

enum zlxEnableGetsConstants {
    zlxEnableGetsDirecto = 0,
    zlxEnableGetsAntes = 1,  // store the wanted state in the control without applying it
    zlxEnableGetsDespues = 2 // apply the stored state
};

class cBinding : public Object {
public:
    cBinding();
    ~cBinding() override;
    QString TypeName() const override { return QStringLiteral("cBinding"); }

    void Add(QObject* oControl, cFichaDBPtr oFicha = nullptr, std::int32_t nTipo = zlxBCNormal);
    void Init(QObject* oForm, cConexionPtr oCnOrigen);
    void ResetValueForNotBindedCtls(const QString& cTabla = {});
    void Field2Control(bool lVaciar = false, const QString& cTabla = {});
    // "" on success, else the error text (also shown).
    QString Control2Field(const QString& cTabla, std::int32_t nID);
    void InitControls();
    void EnableGets(bool lEnabled, int nModo = zlxEnableGetsDirecto);
    void ShowValues();

    std::int32_t Count() const { return static_cast<std::int32_t>(m_entries.size()); }

private:
    struct Entry {
        QPointer<QObject> control;
        I_DAVPtr descriptor;
        cFichaDBPtr cursor;
        std::int32_t flags = zlxBCNormal;
    };

    I_DAVPtr DescriptorFromForm(QObject* control) const;
    void RefreshForm() const;
    QString Assignments(const QString& cTabla) const;
    QString Assignment(QObject* control) const;
    // The connection's quoting; raises 3704 before Init.
    QString Quoted(const Variant& value) const;
    void ExecuteOnConnection(const QString& statement) const;
    void FillControl(const Entry& entry) const;
    void Message(const QString& text, std::int32_t nTipo, const QString& title) const;

    QPointer<QObject> m_form;
    cConexionPtr m_cn;
    std::vector<Entry> m_entries;
    cMsgBoxPtr m_msgBox;
};

using cBindingPtr = std::shared_ptr<cBinding>;

} // namespace zlx
