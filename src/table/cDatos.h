#pragma once
// cDatos: the library's in-memory table. Named, typed columns (numbered from 0) and rows
// (numbered from 1) with a current row, held in one client-cursor Recordset; the class keeps
// a few counters in step with it and reports failures through LastError.

#include "connection/cConexion.h"
#include "platform/ado/Recordset.h"
#include "platform/companion/cMatriz.h"
#include "platform/companion/cMsgBox.h"
#include "platform/variant/Variant.h"

#include <QObject>
#include <QString>

namespace zlx {

struct DatosFailure;

// What LastError holds.
enum zlxDatosErrorConstants {
    zlxDatosError_None = 0,
    zlxDatosError_InvalidColumn = 1,
    zlxDatosError_InvalidRow = 2,
    zlxDatosError_BadFields = 3,
    zlxDatosError_InvalidRecordSet = 4,
    zlxDatosError_InvalidcDatos = 5,
    zlxDatosError_InvalidMatriz = 6,
    zlxDatosError_Err_Consultar = 7,
    zlxDatosError_Err_AppendRecordSet = 8,
    zlxDatosError_Err_LoadRecordSet = 9,
    zlxDatosError_Err_LoadMatriz = 10,
    zlxDatosError_Err_LoadXML = 11,
    zlxDatosError_Err_LoadDBF = 12,
    zlxDatosError_Err_GetRows = 13,
    zlxDatosError_Err_GetMatriz = 14,
    zlxDatosError_Err_CanNotDelete = 15,
    zlxDatosError_Err_GenericErr = 16,
    zlxDatosError_Err_DuplicateField = 17
};

// Destinations of Show (the low four bits) and the flags added to them.
enum zlxDatosShowConstants {
    zlxDatosShow_Debug = 0,
    zlxDatosShow_Grid = 1,
    zlxDatosShow_File = 2,
    zlxDatosShow_Flag_Ficha = 16,
    zlxDatosShow_Flag_NO_Cabecera = 32,
    zlxDatosShow_Flag_CreateNewFile = 64,
    zlxDatosShow_Flag_RunNotePad = 128
};

struct zlxDatoColumnInfo {
    QString cName;
    std::int32_t nType = 0; // zlxTblColumnType
    std::int32_t nSize = 0;
};

class cDatos : public QObject, public Object {
    Q_OBJECT
public:
    cDatos();
    ~cDatos() override;
    QString TypeName() const override { return QStringLiteral("cDatos"); }

    // Creation and column model
    void Init(cConexionPtr oConexionExistente = nullptr,
              ado::RecordsetPtr oRecordSetExistente = nullptr);
    ado::RecordsetPtr Get_RS() const { return m_rs; }
    void BeginDefineColumns();
    void AddColumn(const QString& cName = {}, std::int32_t nType = 7, std::int32_t nSize = 0,
                   std::int32_t nDecimales = 0, std::int32_t nAttrib = -1);
    void EndDefineColumns();
    zlxDatoColumnInfo ColumnInfo(std::int32_t nColumn);
    std::int32_t FieldNumber(const QString& cFldName) const;
    bool FieldExist(const QString& cFldName) const { return FieldNumber(cFldName) >= 0; }
    std::int32_t FieldCount() const { return m_fieldCount; }
    bool Indexed(const QString& cFldName);
    void Indexed(const QString& cFldName, bool lIndexed);

    // Field access on the current row
    Variant Field(const QString& cFldName);
    void Field(const QString& cFldName, const Variant& xValue);
    Variant Field_ByColumnNumber(std::int32_t nFldNumber) const;
    void Field_ByColumnNumber(std::int32_t nFldNumber, const Variant& xValue);
    Variant DataCell(const QString& cFldName, std::int32_t nRow);
    void DataCell(const QString& cFldName, std::int32_t nRow, const Variant& xValue);

    // Filter, order and navigation
    Variant Filter() const;
    void Filter(const Variant& xFilter);
    QString Sort() const;
    void Sort(const QString& cSort);
    std::int32_t RecCount(const QString& cFor = {});
    std::int32_t CurrentRow() const { return m_currentRow; }
    void CurrentRow(std::int32_t n);
    std::int32_t Move(std::int32_t nSkipRows);
    std::int32_t MoveFirst();
    std::int32_t MoveLast();
    std::int32_t MovePrevious();
    std::int32_t MoveNext();

    // Counters and error state
    std::int32_t LastError() const { return m_lastError; }
    void LastError(std::int32_t n) { m_lastError = n; }
    std::int32_t Tally() const { return m_tally; }
    void Tally(std::int32_t n) { m_tally = n; }
    std::int32_t nTally() const { return m_tally; }
    void nTally(std::int32_t n) { m_tally = n; }
    bool lUserCancel() const { return m_userCancel; }
    void lUserCancel(bool value) { m_userCancel = value; }

    // Loading
    std::int32_t LoadRecordSet(ado::RecordsetPtr oRecordSetExistente, bool lBreakConnection = true,
                               bool lMakeLocalCopy = false, bool lCopyRows = true,
                               bool lStartFromCurrentRecord = false);
    std::int32_t AppendRecordSet(ado::RecordsetPtr oRecordSetExistente,
                                 bool lStartFromCurrentRecord = false);
    std::int32_t LoadcDatos(cDatos* oDatosExistente, bool lCopyRows = true,
                            bool lStartFromCurrentRecord = false, bool lAppend = false);
    std::int32_t LoadMatriz(const cMatriz* oMatrizExistente,
                            std::int32_t* nColumnaDetectadoNULL = nullptr);
    std::int32_t AsyncQuery(const QString& cSQLQuery, cConexionPtr oConexionExistente = nullptr,
                            bool lHideError = false);
    void CancelAsyncQuery() { m_userCancel = true; }
    Variant GetRows(std::int32_t nRows = -1, bool lFromFirstRow = true,
                    const Variant& xFields = Variant(std::int32_t(0)));
    cMatrizPtr GetMatriz(std::int32_t nRows = -1, bool lFromFirstRow = true,
                         const Variant& xFields = Variant(std::int32_t(0)));
    void ChangeNULLs();

    // Row operations and conditions
    std::int32_t InsertRow(const Variant& xCampos, const Variant& xValores);
    std::int32_t InsertRowFromCDatos(cDatos& oSource, const Variant& aSourceFields = Variant(false),
                                     const Variant& aTargetFields = Variant(false));
    std::int32_t Delete(const QString& cFor = {}, bool lDeleteAll = false);
    std::int32_t Update(const Variant& xCampos, const Variant& xValores, const QString& cFor = {});
    std::int32_t Locate(const QString& cFor, bool lRest = false);
    std::int32_t Find(const QString& cFor, bool lRest = false);
    std::int32_t SeekRow(const QString& cColumn, const Variant& xValue, bool lRest = false);
    bool Scan(const QString& cFor = {}, bool lFromFirstRow = true);
    void EndScan();
    Variant Sum(const Variant& xCampos, const QString& cFor = {});

    // Files and display
    bool SaveToXMLFile(const QString& cFileName);
    std::int32_t LoadFromXMLFile(const QString& cFileName);
    std::int32_t LoadFile_DBF(const QString& cDBF_FileName);
    bool CreateDBF(const QString& cFileName, bool lCopyData = true);
    void Show(std::int32_t nDestino = zlxDatosShow_Grid, const QString& cFor = {},
              std::int32_t nMaxRegistros = 999999, const QString& cOutput = {});
    Variant Buscar(const QString& cTitle, const Variant& aHeaders = Variant(),
                   const Variant& aWidths = Variant(), std::int32_t nRetCol = 1,
                   std::int32_t nSearchCol = 1, std::int32_t nMaxRegistros = 500,
                   const Variant& aColumnMasks = Variant(), double nCustomZoomFactor = 1.0,
                   bool lOrderDescending = false);

signals:
    void QueryInProgress(const QString& cMsg, std::int32_t nCounter);

private:
    void ResetTable();
    std::int32_t ByPosition() const { return m_lastError == 0 ? m_currentRow : 0; }
    std::int32_t MoveTo(std::int32_t n); // CurrentRow, answering 0 when refused
    std::int32_t DefinedSizeOf(const QString& cFldName) const;
    // The common tail of the loads: counters from the recordset, first row current.
    std::int32_t FinishLoad(std::int32_t fieldCount);
    void CopyColumns(const ado::Recordset& source);
    void DefineMatrixColumn(const cMatriz& matrix, std::int32_t col, std::int32_t number);
    bool RunAsyncQuery(const QString& cSQLQuery, ado::Connection& cn, bool& cancelledFetching);
    void AsyncQueryFailed(const QString& cSQLQuery, const DatosFailure& failure, bool lHideError);
    // The field and value lists of InsertRow and Update; false on a bad field list.
    bool FieldAndValueLists(const Variant& xCampos, const Variant& xValores, Variant& fields,
                            Variant& values) const;
    bool OnDeletedRow() const;
    void RestoreView(const Variant& savedFilter);

    std::int32_t m_tally = 0;
    bool m_userCancel = false;
    cConexionPtr m_conexion;
    bool m_connected = false;
    ado::RecordsetPtr m_rs;
    ado::RecordsetPtr m_query; // the asynchronous query's recordset, while it runs
    std::int32_t m_fieldCount = 0;
    std::int32_t m_recCount = 0;
    std::int32_t m_currentRow = 0;
    std::int32_t m_lastError = 0;
    bool m_scanning = false;
    bool m_scanCondition = false;
    Variant m_savedFilter;
};

using cDatosPtr = std::shared_ptr<cDatos>;

} // namespace zlx
