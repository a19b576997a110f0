#pragma once
// The record cursor: stands on one record of one table and moves to the first, last, next or
// previous record in an order, optionally restricted by a filter. In its main mode (the light
// cursor) each move is one TOP 1 query built from the current record's order value and its
// ZolmarID, so records with equal order values are visited in ZolmarID order and a deleted
// current record does not lose the cursor's place. It also writes: columns of the current
// record, new records with identity reseeding, deletions, the status column and duplicate
// counts.

#include "connection/CurrentRecord.h"
#include "connection/SqlConstants.h"
#include "connection/cConexion.h"
#include "platform/ado/Recordset.h"
#include "platform/companion/cMatriz.h"
#include "platform/companion/cMsgBox.h"

namespace zlx {

enum zlxFichaDBOrigenConstants {
    zlxFichaDBOrigenCursorLigero = 0,
    zlxFichaDBOrigenTabla = 1,
    zlxFichaDBOrigenMatriz = 2
};

enum zlxFichaDBStatusConstants {
    zlxFichaDBStatusError = -1,
    zlxFichaDBStatusNormal = 0,
    zlxFichaDBStatusInactivo = 1,
    zlxFichaDBStatusBorrado = 2
};

enum zlxFileStat {
    zlxFileStat_ShowRecord = -1,
    zlxFileStat_EditRecord = 0,
    zlxFileStat_NewRecord = 1
};

class cFichaDB : public Object, public CurrentRecord {
public:
    cFichaDB();
    ~cFichaDB() override;
    QString TypeName() const override { return QStringLiteral("cFichaDB"); }

    cConexionPtr oCn() const override { return m_oCn; }
    void oCn(cConexionPtr value) { m_oCn = std::move(value); }

    // Opening: 0 when the recordset was opened, -1 on failure.
    std::int32_t Init(cConexionPtr oActiveCn, const QString& cTabla, const QString& cCampoOrden,
                      const QString& cFiltro = {}, int nTipoOrigen = zlxFichaDBOrigenCursorLigero);
    std::int32_t InitFromMatriz(cMatrizPtr oDatos, const QString& cCampoOrden,
                                const QString& cFiltro = {});

    // Moves: the ZolmarID reached, -1 when no record qualifies, 0 when nothing was done.
    std::int32_t MoveFirst() { return MoveToEdge(false); }
    std::int32_t MoveLast() { return MoveToEdge(true); }
    std::int32_t MoveNext() { return Step(false); }
    std::int32_t MovePrevious(bool lRedraw = true);
    // Reads one record: its ZolmarID (0 with lRetZolmarID False), -1 when none, 0 on failure.
    std::int32_t Query(const QString& cQuery, bool lRetZolmarID = true);
    bool RecordUpdated(Date& dTimeCtlFicha);
    void ResetUpdatedFlag() { m_seenTime = m_modificationTime; }
    std::int32_t SeekID(std::int32_t nID_Zolmar);
    std::int32_t Find(const QString& cExp);
    std::int32_t Refresh();

    // Writes
    std::int32_t Update(const Variant& xCampos, const Variant& xValores, bool lRefresh = false);
    std::int32_t AddNew(const Variant& xCampos = Variant(std::int16_t(0)),
                        const Variant& xValores = Variant(std::int16_t(0)));
    std::int32_t Delete();
    std::int32_t xLock(int nTypeLock, bool lOnOff, std::int32_t nPID, std::int32_t nIdZolmar = 0,
                       std::int32_t nIdUser = 0, const QString& cSubTipo = {},
                       int nRetry = zlxLockRetryUntilCancel);
    std::int32_t MaxID();

    bool IsFiltered();
    bool IsValidRecord() const;
    bool IsValidField(const QString& cFldName) const;

    QString Table() const override { return m_table; }
    void Table(const QString& value) { m_table = value; }
    QString Order() const { return m_order; }
    void Order(const QString& value);
    QString Filter() const { return m_filter; }
    void Filter(const QString& value) { m_filter = value; }
    // The current record's ZolmarID; raises the recordset's error when there is none.
    std::int32_t ID() const override;
    ado::RecordsetPtr Get_RS() const { return m_rs; }
    Variant Field(const QString& cFldName) const;
    void Field(const QString& cFldName, const Variant& xValue);
    std::int32_t RecordStatus() const;
    void RecordStatus(std::int32_t nStatus);
    std::int32_t ChkRepes(const QString& cCampo, const Variant& xValor, int nEstado,
                          const QString& cWhere = {});
    void ShowValues() const;

private:
    bool IsOpen() const;
    bool AtEnd() const { return m_rs->IsBOF() || m_rs->IsEOF(); }
    bool LightCursor() const { return m_origen == zlxFichaDBOrigenCursorLigero; }
    std::int32_t OpenOrigin(const QString& cTabla);
    std::int32_t MoveToEdge(bool last);
    std::int32_t Step(bool back);
    std::int32_t StepInTable(bool back);
    // The order value of the current record as an SQL literal; false when it cannot be read.
    bool CurrentOrderLiteral(std::int32_t id, QString& literal);
    std::int32_t NextInOrder(const QString& literal, std::int32_t id, bool back);
    QString FirstColumnLiteral() const;
    void ReadModificationTime();

    std::int32_t AddNewLight(const Variant& xCampos, const Variant& xValores);
    std::int32_t AddNewInTable();
    bool StepFailed(bool& stop);
    Variant InsertNewRecord(const QString& wrapped, bool& stop);
    QString InsertStatement(const Variant& xCampos, const Variant& xValores) const;
    void ReseedIdentity(std::int32_t seed);
    QString DuplicateLiteral(const Variant& xValor) const;
    void ShowError(const QString& text, const QString& title) const;

    cConexionPtr m_oCn;
    ado::RecordsetPtr m_rs;
    cMatrizPtr m_matriz;
    cMsgBoxPtr m_msgBox;
    int m_origen = zlxFichaDBOrigenCursorLigero;
    QString m_table, m_filter, m_order;
    bool m_orderIsIdentity = false;
    QString m_lastOrderLiteral = QStringLiteral("''");
    Date m_modificationTime{0};
    Date m_seenTime{0};
};

using cFichaDBPtr = std::shared_ptr<cFichaDB>;

} // namespace zlx
