#pragma once
// The lookup field: checks what the user typed into a name control (a code or the beginning of
// a name of a record of another table) and, when the text does not identify exactly one record,
// shows a pick list of the records that match. The chosen record becomes the current record of
// the table descriptor's cursor and, on request, its name and code are written back into the
// name control and the say control.

#include "binding/I_TAV.h"
#include "platform/companion/PickList.h"

#include <QObject>
#include <QPointer>

namespace zlx {

class cConexion;
class cDatos;

class cValidCombo : public Object {
public:
    cValidCombo();
    ~cValidCombo() override;
    QString TypeName() const override { return QStringLiteral("cValidCombo"); }

    // The identity of the chosen record; 0 when nothing was chosen or found, -1 when the record
    // shown in the say control is marked deleted.
    std::int32_t Run(I_TAVPtr& oTAV, QObject* oCtlGET, bool& lUpdateControls,
                     bool lForzarLista = false);
    // The row chosen in the last list (0 when none).
    std::int32_t GetSelectedRow() const { return m_selectedRow; }
    // A column of the current result row; an unknown column is reported and answers Empty.
    Variant GetSelectedCell(const QString& cColumn);
    bool MostroLista() const { return m_listShown; }

    // Settings, read and written directly.
    QPointer<QObject> oCtlSay; // shows the record's code
    std::int32_t nID_SinControlSay = 0;
    QString cNombre = QStringLiteral("Nombre");
    QString cCodigo = QStringLiteral("ZolmarID");
    QString cSQLSelect; // built by Run (for that call only) when empty
    QString cSQLActivo;
    std::int32_t nDefault = 1;
    std::int32_t nAlineacion = zlxAlineacion_BajoControl;
    bool lHideID = false;
    bool lBuscarID = true;
    bool lCrearSiNoEncontrado = false; // kept for the application
    bool lMostrarListaAunqueNombreCoincida = false;
    bool lFlagActivo = false;
    std::int32_t nSearchColumn = 1;
    Variant aHeaders, aWidths;

private:
    QString BuildQuery(const QString& typed);
    // The condition that lets an inactive record shown in the say control be found, or -1
    // when that record is deleted; empty when the probe does not apply.
    QString InactiveShownCondition(const QString& query, const QString& typed, bool& deleted);
    std::shared_ptr<cDatos> RunIntoRows(const QString& query) const;
    bool AcceptedWithoutList(const QString& typed, bool lForzarLista);
    bool OnlyFirstRowHasTheName(const QString& typed);
    bool LocateCode(const Variant& code);
    std::int32_t ShowList();
    LookupGridRequest ListRequest() const;
    QString Caption(const QString& column) const;
    std::int32_t Choose(QObject* oCtlGET, bool lUpdateControls);
    bool NameOfCurrentRowIs(const QString& typed);

    std::shared_ptr<cConexion> m_cn;
    cFichaDBPtr m_cursor;
    std::shared_ptr<cDatos> m_rows;
    std::int32_t m_selectedRow = 0;
    bool m_listShown = false;
};

using cValidComboPtr = std::shared_ptr<cValidCombo>;

} // namespace zlx
