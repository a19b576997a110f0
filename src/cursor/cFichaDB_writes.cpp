// Writes of the record cursor: columns of the current record, new records with the identity
// kept dense at the top of the table, deletions, the status column and duplicate counts.

#include "connection/SqlText.h"
#include "connection/StatementText.h"
#include "cursor/FichaDBText.h"
#include "cursor/cFichaDB.h"
#include "frame/LibraryState.h"
#include "platform/ado/Errors.h"

namespace zlx {

using namespace FichaDBText;

namespace {

constexpr std::int32_t kCommandError = static_cast<std::int32_t>(0x80040E14);

} // namespace

std::int32_t cFichaDB::Update(const Variant& xCampos, const Variant& xValores, bool lRefresh) {
    if (!IsOpen()) return 0;
    const std::int32_t result = m_oCn->Update(m_table, ID(), xCampos, xValores);
    if (lRefresh) Refresh();
    return result;
}

std::int32_t cFichaDB::MaxID() {
    return m_oCn->Execute(FichaDBText::MaxID(m_table), zlxExecuteReturn_Value, Variant(0)).ToLong();
}

void cFichaDB::ReseedIdentity(std::int32_t seed) {
    const Reseed reseed = IdentityReseed(m_table, seed);
    if (reseed.statement.isEmpty()) return;
    const ado::ConnectionPtr cn = m_oCn->cn();
    const QString saved = reseed.database.isEmpty() ? QString() : cn->DefaultDatabase();
    if (!reseed.database.isEmpty()) cn->DefaultDatabase(reseed.database);
    m_oCn->Execute(reseed.statement, zlxExecuteReturn_Nothing_NoRowCount);
    if (!reseed.database.isEmpty()) cn->DefaultDatabase(saved);
}

QString cFichaDB::InsertStatement(const Variant& xCampos, const Variant& xValores) const {
    QString names, values;
    const int provider = m_oCn->nDBProvider();
    if (const VariantArrayPtr fields = xCampos.ToArray()) {
        const VariantArrayPtr given = xValores.ToArray();
        for (std::int32_t i = fields->LBound(); i <= fields->UBound(); ++i) {
            names += fields->At(i).ToString() + u',';
            // A name without a value at its position takes the column's default.
            const bool hasValue = given && i >= given->LBound() && i <= given->UBound();
            values +=
                StatementText::ValuePiece(hasValue ? given->At(i) : Variant::Null(), provider);
        }
    } else if (xCampos.VarType() == vbString) {
        names = xCampos.ToString() + u',';
        values = StatementText::ValuePiece(xValores, provider);
    }
    return Insert(m_table, names, values);
}

// After a step of AddNew: false when it went well. A failure of the command itself (0x80040E14)
// is reported, the identity repaired and the next step taken; any other failure stops.
bool cFichaDB::StepFailed(bool& stop) {
    if (m_oCn->GetLastError() == 0) return false;
    const ado::Errors& errors = m_oCn->cn()->GetErrors();
    if (m_oCn->ChkCnBroken() || errors.Count() == 0 || errors.Item(0).number != kCommandError) {
        stop = true;
        return true;
    }
    m_msgBox->SetIcon(MsgIconError);
    m_msgBox->ShowMessage(QStringLiteral("Se ha detectado un error al asignar un código interno.") +
                              u'\r' +
                              QStringLiteral("Debería reiniciar la aplicación y ejecutar una "
                                             "comprobación de datos"),
                          MsgButtonsOk, QStringLiteral("Error en los datos"));
    ReseedIdentity(-1);
    return true;
}

Variant cFichaDB::InsertNewRecord(const QString& wrapped, bool& stop) {
    const Variant id = m_oCn->Execute(wrapped, zlxExecuteReturn_Value, Variant(0));
    StepFailed(stop);
    return id;
}

std::int32_t cFichaDB::AddNewLight(const Variant& xCampos, const Variant& xValores) {
    bool stop = false;
    const std::int32_t highest = MaxID();
    if (StepFailed(stop) && stop) return -1;
    ReseedIdentity(highest);
    if (StepFailed(stop) && stop) return -1;
    const QString wrapped = WithIdentity(InsertStatement(xCampos, xValores));
    std::int32_t id = InsertNewRecord(wrapped, stop).ToLong();
    if (stop) return -1;
    if (id == 0) {
        // The server handed out the identity 0: remove that record and insert once more.
        m_oCn->Execute(DeleteZeroIdentity(m_table), zlxExecuteReturn_Nothing_NoRowCount);
        if (StepFailed(stop) && stop) return -1;
        ReseedIdentity(-1);
        if (StepFailed(stop) && stop) return -1;
        id = InsertNewRecord(wrapped, stop).ToLong();
        if (stop) return -1;
    }
    SeekID(id);
    return id;
}

std::int32_t cFichaDB::AddNewInTable() {
    try {
        m_rs->AddNew();
        m_rs->MoveLast();
        return ID();
    } catch (const std::exception& e) {
        LibraryLog().WriteLine(QStringLiteral("Error en 'cFichaDB.AddNew' (") + m_table +
                               QStringLiteral("): ") + QString::fromUtf8(e.what()));
        return -1;
    }
}

std::int32_t cFichaDB::AddNew(const Variant& xCampos, const Variant& xValores) {
    if (m_origen == zlxFichaDBOrigenTabla) return IsOpen() ? AddNewInTable() : -1;
    if (!LightCursor() || !m_oCn) return -1;
    return AddNewLight(xCampos, xValores);
}

std::int32_t cFichaDB::Delete() {
    try {
        if (m_origen == zlxFichaDBOrigenTabla) {
            m_rs->Delete();
            if (m_rs->RecordCount() == 0) m_rs->Requery();
            return 0;
        }
        if (!LightCursor()) return -1;
        long affected = 0;
        m_oCn->cn()->Execute(FichaDBText::Delete(m_table, ID()), affected,
                             long(ado::adCmdText) | long(ado::adExecuteNoRecords));
        ReseedIdentity(MaxID());
        return 0;
    } catch (const std::exception&) {
        if (m_oCn && !m_oCn->ChkCnBroken()) m_oCn->ChkError();
        return -1;
    }
}

std::int32_t cFichaDB::RecordStatus() const {
    try {
        return m_rs ? m_rs->Collect(Variant("Activo")).ToLong() : zlxFichaDBStatusError;
    } catch (const std::exception&) {
        return zlxFichaDBStatusError;
    }
}

void cFichaDB::RecordStatus(std::int32_t nStatus) {
    try {
        if (m_origen == zlxFichaDBOrigenTabla) {
            m_rs->SetCollect(Variant("Activo"), Variant(nStatus));
            m_rs->Update();
            return;
        }
        m_oCn->Execute(SetStatus(m_table, nStatus, ID()), zlxExecuteReturn_Nothing);
        Refresh();
    } catch (const std::exception&) {
        if (m_rs && m_rs->EditMode() != ado::adEditNone) m_rs->CancelUpdate();
        ShowError(QStringLiteral("Error asignando la propiedad RecordStatus en ") + m_table,
                  QStringLiteral("Error en FichaDB"));
    }
}

// Strings and dates are quoted; numbers are written with "." as their decimal separator, so a
// value never reaches the statement as typed text.
QString cFichaDB::DuplicateLiteral(const Variant& xValor) const {
    switch (xValor.VarType()) {
    case vbString:
    case vbDate:
        return SqlText::PonComillas(xValor.ToString().trimmed());
    case vbNull:
    case vbEmpty:
        return QStringLiteral("NULL");
    case vbBoolean:
        return xValor.ToBool() ? QStringLiteral("-1") : QStringLiteral("0");
    default:
        return xValor.IsNumber() ? xValor.ToInvariantString()
                                 : SqlText::PonComillas(xValor.ToString().trimmed());
    }
}

std::int32_t cFichaDB::ChkRepes(const QString& cCampo, const Variant& xValor, int nEstado,
                                const QString& cWhere) {
    const QString where = cWhere.isEmpty() ? cCampo + u'=' + DuplicateLiteral(xValor) : cWhere;
    const std::optional<std::int32_t> excluded =
        nEstado == zlxFileStat_EditRecord ? std::optional<std::int32_t>(ID()) : std::nullopt;
    return m_oCn->Execute(Repeated(m_table, where, excluded), zlxExecuteReturn_Value, Variant(0))
        .ToLong();
}

std::int32_t cFichaDB::xLock(int nTypeLock, bool lOnOff, std::int32_t nPID, std::int32_t nIdZolmar,
                             std::int32_t nIdUser, const QString& cSubTipo, int nRetry) {
    return m_oCn->xLock(nTypeLock, lOnOff, m_table, nPID, nIdZolmar, nIdUser, cSubTipo, nRetry,
                        Variant(""));
}

} // namespace zlx
