#include "connection/EventLoopWait.h"
#include "frame/LibraryState.h"
#include "platform/ado/AdoErrorTexts.h"
#include "table/DatosFailure.h"
#include "table/cDatos.h"

#include <QThread>

namespace zlx {

namespace {

QString SourceColumnName(const ado::Recordset& source, int index) {
    const QString name = source.GetFields().Item(index).Name();
    return name.isEmpty() ? QStringLiteral("Column_%1").arg(index + 1) : name;
}

bool IsOpen(const ado::RecordsetPtr& rs) {
    return rs && rs->State() != ado::adStateClosed;
}

// A query cut for the log: pieces of at most 120 characters ending after their last comma,
// else after their last blank, each followed by CR; the rest as it is.
QString WrapForLog(const QString& text) {
    constexpr qsizetype kWidth = 120;
    QString wrapped;
    qsizetype start = 0;
    while (text.size() - start > kWidth) {
        const QString head = text.mid(start, kWidth);
        qsizetype cut = head.lastIndexOf(u',') + 1;
        if (cut == 0) cut = head.lastIndexOf(u' ') + 1;
        if (cut == 0) cut = kWidth;
        wrapped += head.left(cut) + u'\r';
        start += cut;
    }
    return wrapped + text.mid(start);
}

// What the first row's value makes of a matrix column: the column type, or None.
std::int32_t MatrixColumnType(const Variant& value) {
    switch (value.VarType()) {
    case vbInteger:
        return zlxTblColumnTypeI2;
    case vbLong:
        return zlxTblColumnTypeI4;
    case vbSingle:
        return zlxTblColumnTypeSingle;
    case vbDouble:
        return zlxTblColumnTypeDouble;
    case vbCurrency:
        return zlxTblColumnTypeCurrency;
    case vbDate:
        return zlxTblColumnTypeDateTime;
    case vbString:
        return zlxTblColumnTypeChar;
    case vbBoolean:
    case vbByte:
        return zlxTblColumnTypeI1;
    case vbDecimal:
        return zlxTblColumnTypeDecimal;
    default:
        return zlxTblColumnTypeNone;
    }
}

} // namespace

std::int32_t cDatos::FinishLoad(std::int32_t fieldCount) {
    m_connected = m_rs->ActiveConnection() != nullptr;
    m_fieldCount = fieldCount;
    m_recCount = m_rs->RecordCount();
    CurrentRow(1);
    return ByPosition();
}

// ---------------------------------------------------------------------------------------
// Recordsets and other tables

std::int32_t cDatos::LoadRecordSet(ado::RecordsetPtr oRecordSetExistente, bool lBreakConnection,
                                   bool lMakeLocalCopy, bool lCopyRows,
                                   bool lStartFromCurrentRecord) {
    if (!IsOpen(oRecordSetExistente)) {
        m_lastError = zlxDatosError_InvalidRecordSet;
        return 0;
    }
    try {
        m_lastError = zlxDatosError_None;
        const std::int32_t fieldCount = oRecordSetExistente->GetFields().Count();
        if (!lMakeLocalCopy) {
            Init();
            m_rs = oRecordSetExistente;
            if (lBreakConnection) {
                m_rs->DetachConnection();
                m_conexion->Close_Connection();
            }
        } else {
            BeginDefineColumns();
            CopyColumns(*oRecordSetExistente);
            EndDefineColumns();
            if (lCopyRows) AppendRecordSet(oRecordSetExistente, lStartFromCurrentRecord);
        }
        const std::int32_t result = FinishLoad(fieldCount);
        m_lastError = zlxDatosError_None;
        return result;
    } catch (...) {
        m_lastError = CurrentFailure().number == ado::adErrObjectInCollection
                          ? zlxDatosError_Err_DuplicateField
                          : zlxDatosError_Err_LoadRecordSet;
        return 0;
    }
}

void cDatos::CopyColumns(const ado::Recordset& source) {
    const ado::Fields& fields = source.GetFields();
    for (int i = 0; i < fields.Count(); ++i) {
        const ado::Field& from = fields.Item(i);
        ado::Field& to = m_rs->GetFields().Append(SourceColumnName(source, i), from.Type(),
                                                  std::max(1, from.DefinedSize()),
                                                  ado::adFldUpdatable | ado::adFldMayBeNull);
        if (from.Type() == ado::adNumeric) {
            to.SetPrecision(from.Precision());
            to.SetNumericScale(from.NumericScale());
        }
    }
}

std::int32_t cDatos::AppendRecordSet(ado::RecordsetPtr oRecordSetExistente,
                                     bool lStartFromCurrentRecord) {
    if (!IsOpen(oRecordSetExistente)) {
        m_lastError = zlxDatosError_InvalidRecordSet;
        return 0;
    }
    m_lastError = zlxDatosError_None;
    ado::Recordset& source = *oRecordSetExistente;
    try {
        // Columns are matched by name once; each row then goes in by column number.
        const int count = source.GetFields().Count();
        Variant targets = Variant::MakeArray({{0, count}});
        for (int i = 0; i < count; ++i) {
            const int target = m_rs->GetFields().IndexOf(SourceColumnName(source, i));
            if (target < 0) ado::RaiseAdoError(ado::adErrItemNotFound);
            targets.ToArray()->At(i) = Variant(std::int32_t(target));
        }
        // The source is put back where it stood, so that copying leaves its position alone.
        const bool onRecord = !source.IsBOF() && !source.IsEOF();
        const Variant bookmark = onRecord ? source.Bookmark() : Variant();
        if (!source.IsBOF() && !lStartFromCurrentRecord) source.MoveFirst();
        if (source.IsEOF()) return ByPosition();
        Variant values = Variant::MakeArray({{0, count}});
        std::vector<Variant>& cells = values.ToArray()->Data();
        while (!source.IsEOF()) {
            for (int i = 0; i < count; ++i)
                cells[i] = source.CurrentValue(i);
            m_rs->AddNew(targets, values);
            source.MoveNext();
        }
        if (onRecord)
            source.SetBookmark(bookmark);
        else
            source.MoveFirst();
        if (!m_rs->IsEOF()) m_rs->Update();
        m_recCount = m_rs->RecordCount();
        MoveLast();
        return ByPosition();
    } catch (...) {
        m_lastError = zlxDatosError_Err_AppendRecordSet;
        return 0;
    }
}

std::int32_t cDatos::LoadcDatos(cDatos* oDatosExistente, bool lCopyRows,
                                bool lStartFromCurrentRecord, bool lAppend) {
    if (!oDatosExistente) {
        m_lastError = zlxDatosError_InvalidcDatos;
        return 0;
    }
    m_lastError = zlxDatosError_None;
    const std::int32_t sourceRow = oDatosExistente->CurrentRow();
    const ado::RecordsetPtr source = oDatosExistente->Get_RS();
    const std::int32_t result =
        lAppend ? AppendRecordSet(source, lStartFromCurrentRecord)
                : LoadRecordSet(source, true, true, lCopyRows, lStartFromCurrentRecord);
    oDatosExistente->CurrentRow(sourceRow);
    return m_lastError != zlxDatosError_None ? 0 : result;
}

// ---------------------------------------------------------------------------------------
// Matrices

std::int32_t cDatos::LoadMatriz(const cMatriz* oMatrizExistente,
                                std::int32_t* nColumnaDetectadoNULL) {
    std::int32_t ignored = 0;
    std::int32_t& nullColumn = nColumnaDetectadoNULL ? *nColumnaDetectadoNULL : ignored;
    nullColumn = 0;
    if (!oMatrizExistente || oMatrizExistente->Rows() == 0) {
        m_lastError = zlxDatosError_InvalidMatriz;
        return 0;
    }
    if (m_connected) {
        m_rs->DetachConnection();
        m_connected = false;
    }
    m_lastError = zlxDatosError_None;
    m_tally = 0;
    Init();
    const cMatriz& matrix = *oMatrizExistente;
    const std::int32_t rows = matrix.Rows();
    const std::int32_t cols = matrix.Cols();
    const std::int32_t col0 = matrix.FirstCol() - 1;
    const std::int32_t row0 = matrix.FirstRow() - 1;
    BeginDefineColumns();
    for (std::int32_t c = 1; c <= cols; ++c)
        DefineMatrixColumn(matrix, col0 + c, c);
    EndDefineColumns();
    for (std::int32_t r = 1; r <= rows; ++r) {
        ++m_tally;
        m_rs->AddNew();
        for (std::int32_t c = 1; c <= cols; ++c) {
            const Variant value = matrix.GetValue(col0 + c, row0 + r);
            if (!value.IsNull())
                m_rs->SetCurrentValue(c - 1, value);
            else if (nullColumn == 0)
                nullColumn = c;
        }
    }
    m_rs->Update();
    m_recCount = m_rs->RecordCount();
    MoveLast();
    return ByPosition();
}

// The column's type comes from its first row; when that cell is Null or Empty, from the
// first value below it (a column of nothing but nulls is text), so every matrix column
// becomes a table column and values keep their positions.
void cDatos::DefineMatrixColumn(const cMatriz& matrix, std::int32_t col, std::int32_t number) {
    std::int32_t type = zlxTblColumnTypeNone;
    qsizetype longest = 0;
    for (std::int32_t row = matrix.FirstRow(); row <= matrix.LastRow(); ++row) {
        const Variant value = matrix.GetValue(col, row);
        if (type == zlxTblColumnTypeNone && !value.IsNull() && !value.IsEmpty()) {
            type = MatrixColumnType(value);
            if (type == zlxTblColumnTypeNone)
                throw VariantError(vbErrTypeMismatch, "Type mismatch");
        }
        if (const QString* text = value.Get<QString>()) longest = std::max(longest, text->size());
    }
    if (type == zlxTblColumnTypeNone) type = zlxTblColumnTypeChar;
    std::int32_t size = 0, decimals = 0;
    if (type == zlxTblColumnTypeChar) size = longest == 0 ? 25 : static_cast<std::int32_t>(longest);
    if (type == zlxTblColumnTypeDecimal) {
        size = 28;
        decimals = 10;
    }
    AddColumn(QStringLiteral("ColumnNum%1").arg(number), type, size, decimals, -1);
}

Variant cDatos::GetRows(std::int32_t nRows, bool lFromFirstRow, const Variant& xFields) {
    try {
        const Variant start(
            std::int32_t(lFromFirstRow ? ado::adBookmarkFirst : ado::adBookmarkCurrent));
        const Variant fields = xFields.IsNumber() ? Variant() : xFields;
        Variant rows = m_rs->GetRows(nRows, start, fields);
        CurrentRow(m_currentRow);
        return rows;
    } catch (...) {
        m_lastError = zlxDatosError_Err_GetRows;
        return {};
    }
}

cMatrizPtr cDatos::GetMatriz(std::int32_t nRows, bool lFromFirstRow, const Variant& xFields) {
    const Variant rows = GetRows(nRows, lFromFirstRow, xFields);
    if (m_lastError == zlxDatosError_Err_GetRows) {
        m_lastError = zlxDatosError_Err_GetMatriz;
        return nullptr;
    }
    auto matrix = std::make_shared<cMatriz>();
    matrix->LoadFromArray(rows);
    return matrix;
}

void cDatos::ChangeNULLs() {
    const ado::Fields& fields = m_rs->GetFields();
    std::vector<Variant> replacements;
    for (int i = 0; i < fields.Count(); ++i) {
        switch (fields.Item(i).Type()) {
        case ado::adVarChar:
        case ado::adVarWChar:
        case ado::adGUID:
        case ado::adVarBinary:
        case ado::adBinary:
        case ado::adWChar:
        case ado::adChar:
        case ado::adLongVarWChar:
        case ado::adLongVarChar:
            replacements.emplace_back(QString());
            break;
        case ado::adDate:
        case ado::adDBTimeStamp:
            replacements.emplace_back(BlankDate());
            break;
        default:
            replacements.emplace_back(std::int16_t(0));
        }
    }
    if (m_rs->RecordCount() > 0) m_rs->MoveFirst();
    while (!m_rs->IsEOF()) {
        for (int i = 0; i < fields.Count(); ++i) {
            if (m_rs->CurrentValue(i).IsNull())
                m_rs->Update(Variant(fields.Item(i).Name()), replacements[i]);
        }
        m_rs->MoveNext();
    }
    MoveFirst();
}

// ---------------------------------------------------------------------------------------
// Asynchronous query

std::int32_t cDatos::AsyncQuery(const QString& cSQLQuery, cConexionPtr oConexionExistente,
                                bool lHideError) {
    m_lastError = zlxDatosError_None;
    if (oConexionExistente) m_conexion = std::move(oConexionExistente);
    const ado::ConnectionPtr cn = m_conexion ? m_conexion->cn() : nullptr;
    const long savedTimeout = cn ? cn->CommandTimeout() : 0;
    for (int attempt = 1;; ++attempt) {
        try {
            if (!cn) ado::RaiseAdoError(ado::adErrInvalidConnection);
            cn->CommandTimeout(0);
            bool cancelledFetching = false;
            if (!RunAsyncQuery(cSQLQuery, *cn, cancelledFetching)) {
                cn->CommandTimeout(savedTimeout);
                return 0;
            }
            cn->CommandTimeout(savedTimeout);
            Init(m_conexion, m_query);
            m_query.reset();
            m_rs->DetachConnection();
            m_fieldCount = m_rs->GetFields().Count();
            m_recCount = m_rs->RecordCount();
            m_connected = false;
            CurrentRow(1);
            const std::int32_t result = m_lastError == zlxDatosError_None
                                            ? (cancelledFetching ? -m_recCount : m_recCount)
                                            : 0;
            m_lastError = zlxDatosError_None;
            return result;
        } catch (...) {
            const DatosFailure failure = CurrentFailure();
            if (failure.number == ado::adErrStillExecuting && attempt == 1) {
                m_query.reset();
                QThread::msleep(500);
                continue;
            }
            AsyncQueryFailed(cSQLQuery, failure, lHideError);
            if (cn) cn->CommandTimeout(savedTimeout);
            return 0;
        }
    }
}

// Opens the query recordset and waits for it; false when the user cancelled while the
// server was still executing (the query is then dropped).
bool cDatos::RunAsyncQuery(const QString& cSQLQuery, ado::Connection& cn, bool& cancelledFetching) {
    m_query = std::make_shared<ado::Recordset>();
    m_userCancel = false;
    m_query->SetCursorLocation(ado::adUseClient);
    m_query->GetProperties().SetItem("Initial Fetch Size", Variant(1000));
    m_query->GetProperties().SetItem("Background Fetch Size", Variant(1000));
    connect(m_query.get(), &ado::Recordset::FetchProgress, this, [this](long progress, long) {
        emit QueryInProgress(QStringLiteral("Recuperando datos..."),
                             static_cast<std::int32_t>(progress));
    });
    const ado::ConnectionLink link = cn.Link();
    m_query->Open(cSQLQuery, &link, ado::adOpenUnspecified, ado::adLockUnspecified,
                  ado::adAsyncExecute | ado::adAsyncFetch);
    emit QueryInProgress(QStringLiteral("Realizada consulta; esperando al servidor..."), 0);
    while (m_query->State() & ado::adStateExecuting) {
        YieldToEventLoop();
        if (m_userCancel) {
            m_query->Cancel();
            m_query.reset();
            return false;
        }
    }
    emit QueryInProgress(QStringLiteral("Recuperando datos..."), 0);
    while (m_query->State() & ado::adStateFetching) {
        YieldToEventLoop();
        if (m_userCancel) {
            m_query->Cancel();
            cancelledFetching = true;
            break;
        }
    }
    disconnect(m_query.get(), nullptr, this, nullptr);
    emit QueryInProgress(QStringLiteral("Completado."), m_query->RecordCount());
    return true;
}

void cDatos::AsyncQueryFailed(const QString& cSQLQuery, const DatosFailure& failure,
                              bool lHideError) {
    const QString text = QStringLiteral("Error Nº %1 en 'AsyncQuery': ").arg(failure.number) +
                         failure.description + u'\r' + QStringLiteral("SQL=") +
                         WrapForLog(cSQLQuery);
    LibraryLog().WriteLine(text, true);
    m_lastError = zlxDatosError_Err_Consultar;
    m_query.reset();
    if (!lHideError)
        cMsgBox().ShowMessage(text, 1,
                              QStringLiteral("Se ha producido un error durante una consulta"));
}

} // namespace zlx
