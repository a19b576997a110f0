#include "cursor/cFichaDB.h"

#include "connection/SqlText.h"
#include "cursor/FichaDBText.h"
#include "cursor/OrderIndex.h"
#include "platform/ado/Errors.h"

namespace zlx {

namespace {

const QString kIdentity = QStringLiteral("ZolmarID");

} // namespace

cFichaDB::cFichaDB() : m_msgBox(std::make_shared<cMsgBox>()) {}

cFichaDB::~cFichaDB() {
    if (IsOpen()) m_rs->Close();
}

void cFichaDB::Order(const QString& value) {
    m_order = value.toUpper();
    m_orderIsIdentity = m_order == u"ZOLMARID";
}

std::int32_t cFichaDB::Init(cConexionPtr oActiveCn, const QString& cTabla,
                            const QString& cCampoOrden, const QString& cFiltro, int nTipoOrigen) {
    m_rs = std::make_shared<ado::Recordset>();
    m_oCn = std::move(oActiveCn);
    m_matriz.reset();
    const int provider = m_oCn->nDBProvider();
    // A Jet file or a FoxPro folder is always walked as one recordset of the whole table.
    m_origen = provider == zlxDataProvider_FOX || provider == zlxDataProvider_JET40
                   ? zlxFichaDBOrigenTabla
                   : nTipoOrigen;
    Table(cTabla);
    Filter(cFiltro);
    Order(cCampoOrden);
    std::int32_t result = -1;
    try {
        result = OpenOrigin(cTabla);
    } catch (const ado::AdoError& e) {
        m_msgBox->SetIcon(MsgIconError);
        m_msgBox->ShowMessage(QString::number(e.Number()) + QStringLiteral(" / ") + e.Description(),
                              MsgButtonsOkError,
                              QStringLiteral("Error en el método 'Init' de 'FichaDB'"));
        result = -1;
    }
    if (result == -1) m_rs.reset();
    return result;
}

std::int32_t cFichaDB::OpenOrigin(const QString& cTabla) {
    if (m_origen == zlxFichaDBOrigenCursorLigero) {
        if (m_oCn->Open_RecordSet(m_rs, FichaDBText::FirstInOrder(m_table, m_filter, m_order),
                                  ado::adUseClient, ado::adCmdText, ado::adOpenForwardOnly,
                                  ado::adLockReadOnly) != 0)
            return -1;
        m_rs->DetachConnection();
        if (!m_orderIsIdentity) OrderIndex::WarnIfMissing(*m_oCn, m_table, m_order);
        return 0;
    }
    if (m_origen != zlxFichaDBOrigenTabla) return -1;
    if (m_oCn->nDBProvider() == zlxDataProvider_JET40)
        return m_oCn->Open_RecordSet(m_rs, QStringLiteral("SELECT * FROM ") + m_table,
                                     ado::adUseServer, ado::adCmdText, ado::adOpenKeyset,
                                     ado::adLockOptimistic);
    if (m_oCn->nDBProvider() == zlxDataProvider_FOX)
        return m_oCn->Open_RecordSet(m_rs, cTabla, ado::adUseClient, ado::adCmdTable,
                                     ado::adOpenStatic, ado::adLockOptimistic);
    return -1;
}

std::int32_t cFichaDB::InitFromMatriz(cMatrizPtr oDatos, const QString& cCampoOrden,
                                      const QString& cFiltro) {
    m_rs.reset();
    m_oCn.reset();
    m_origen = zlxFichaDBOrigenMatriz;
    Table({});
    Filter(cFiltro);
    Order(cCampoOrden);
    m_matriz = std::move(oDatos);
    return m_matriz ? 0 : -1;
}

bool cFichaDB::IsOpen() const {
    return m_rs && (m_rs->State() & ado::adStateOpen);
}

std::int32_t cFichaDB::Query(const QString& cQuery, bool lRetZolmarID) {
    if (!m_rs || !m_oCn || !m_oCn->cn()) return 0;
    std::int32_t result = 0;
    try {
        if (m_rs->State() != ado::adStateClosed) m_rs->Close();
        m_rs->SetMaxRecords(1);
        m_rs->SetSource(cQuery);
        m_rs->SetActiveConnection(m_oCn->cn()->Link());
        m_rs->Open();
        // Detached, the one record stays readable without holding the server.
        m_rs->DetachConnection();
        if (AtEnd()) return -1;
        result = lRetZolmarID ? ID() : 0;
    } catch (const std::exception&) {
        m_rs->DetachConnection();
        if (!m_oCn->ChkCnBroken()) m_oCn->ChkError();
        return 0;
    }
    ReadModificationTime();
    return result;
}

void cFichaDB::ReadModificationTime() {
    // Asked after every move: a table without the column must not cost an exception.
    const int column = m_rs->GetFields().IndexOf(QStringLiteral("FechaModificacion"));
    if (column < 0) return;
    try {
        m_modificationTime = m_rs->GetFields().Item(column).Value().ToDate();
    } catch (const std::exception&) {
        // a record without a time
    }
}

bool cFichaDB::RecordUpdated(Date& dTimeCtlFicha) {
    Refresh();
    if (dTimeCtlFicha.value > m_seenTime.value) m_seenTime = dTimeCtlFicha;
    return m_modificationTime.value > m_seenTime.value;
}

bool cFichaDB::IsValidRecord() const {
    if (!IsOpen()) return false;
    switch (m_origen) {
    case zlxFichaDBOrigenCursorLigero:
        return !AtEnd();
    case zlxFichaDBOrigenTabla:
        return m_rs->RecordCount() >= 1 && !AtEnd();
    default:
        return false;
    }
}

bool cFichaDB::IsValidField(const QString& cFldName) const {
    if (m_origen == zlxFichaDBOrigenMatriz) return true;
    return m_rs && m_rs->GetFields().IndexOf(cFldName) >= 0;
}

std::int32_t cFichaDB::ID() const {
    if (!m_rs)
        throw VariantError(91, QStringLiteral("Object variable or With block variable not set"));
    return m_rs->Collect(Variant(kIdentity)).ToLong();
}

Variant cFichaDB::Field(const QString& cFldName) const {
    if (m_origen == zlxFichaDBOrigenMatriz || !IsOpen()) return {};
    try {
        return m_rs->Collect(Variant(cFldName));
    } catch (const std::exception&) {
        ShowError(QStringLiteral("Error accediendo a la columna <I>") + cFldName +
                      QStringLiteral("</I>"),
                  QStringLiteral("Error en \"cFichaDB.Field.Get\""));
        return {};
    }
}

void cFichaDB::Field(const QString& cFldName, const Variant& xValue) {
    if (m_origen == zlxFichaDBOrigenMatriz) return;
    try {
        Update(Variant(cFldName), xValue, true);
    } catch (const std::exception&) {
        ShowError(QStringLiteral("Error accediendo a la columna <I>") + cFldName +
                      QStringLiteral("</I>"),
                  QStringLiteral("Error en \"cFichaDB.Field.Let\""));
    }
}

void cFichaDB::ShowError(const QString& text, const QString& title) const {
    m_msgBox->SetIcon(MsgIconError);
    m_msgBox->ShowMessage(text, MsgButtonsOk, title);
}

void cFichaDB::ShowValues() const {
    try {
        const ado::Fields& fields = m_rs->GetFields();
        cMatriz listing;
        listing.Dimension(1, 2, 1, fields.Count());
        for (int i = 0; i < fields.Count(); ++i) {
            listing.SetValue(1, i + 1, fields.Item(i).Name());
            listing.SetValue(2, i + 1, fields.Item(i).Value());
        }
        listing.ShowData(m_table);
    } catch (const std::exception&) {
        ShowError(QStringLiteral("Error mostrando valores"), QStringLiteral("Error en FichaDB"));
    }
}

} // namespace zlx
