#include "table/cDatos.h"

#include "connection/TypeMapping.h"
#include "frame/LibraryState.h"
#include "table/DatosFailure.h"
#include "table/DatosTableFactory.h"

namespace zlx {

namespace {

QString Quoted(const QString& text) {
    return u'"' + text + u'"';
}

// Connections make their table results through this layer's factory. It is registered here,
// beside the constructor, so that any program with tables has it.
[[maybe_unused]] const bool kTableFactoryRegistered =
    (RegisterTableFactory(DatosTableFactory::Instance()), true);

} // namespace

// Named by the table library's link options, so that a program linking the library statically
// always keeps this file and the registration above.
extern "C" void zlx_table_factory_anchor() {}

cDatos::cDatos() : m_rs(std::make_shared<ado::Recordset>()) {}

cDatos::~cDatos() {
    ResetTable();
}

void cDatos::ResetTable() {
    if (m_rs) {
        try {
            if (m_rs->State() & ado::adStateOpen) m_rs->Close();
        } catch (const ado::AdoError&) {
            // a recordset still executing is released as it is
        }
    }
    m_rs.reset();
    m_conexion.reset();
    m_fieldCount = 0;
    m_recCount = 0;
}

void cDatos::Init(cConexionPtr oConexionExistente, ado::RecordsetPtr oRecordSetExistente) {
    ResetTable();
    if (oRecordSetExistente) {
        m_rs = std::move(oRecordSetExistente);
        m_recCount = m_rs->RecordCount();
        m_fieldCount = m_rs->GetFields().Count();
    } else {
        m_rs = std::make_shared<ado::Recordset>();
    }
    m_conexion = oConexionExistente ? std::move(oConexionExistente) : std::make_shared<cConexion>();
    m_lastError = zlxDatosError_None;
    m_connected = m_rs->ActiveConnection() != nullptr;
}

// ---------------------------------------------------------------------------------------
// Column model

void cDatos::BeginDefineColumns() {
    Init();
}

void cDatos::AddColumn(const QString& cName, std::int32_t nType, std::int32_t nSize,
                       std::int32_t nDecimales, std::int32_t nAttrib) {
    ++m_fieldCount;
    const auto adoType =
        static_cast<ado::DataTypeEnum>(TypeMapping::ZlxToAdo(nType, zlxDataProvider_MSDE));
    ado::Fields& fields = m_rs->GetFields();
    fields.Append(cName, adoType, nSize, nAttrib);
    if (nType == zlxTblColumnTypeDecimal) {
        ado::Field& field = fields.Item(fields.Count() - 1);
        field.SetPrecision(static_cast<std::uint8_t>(nSize));
        field.SetNumericScale(static_cast<std::uint8_t>(nDecimales));
    }
}

void cDatos::EndDefineColumns() {
    m_rs->Open();
    m_recCount = 0;
}

zlxDatoColumnInfo cDatos::ColumnInfo(std::int32_t nColumn) {
    const ado::Fields& fields = m_rs->GetFields();
    if (nColumn < 0 || nColumn >= fields.Count()) {
        m_lastError = zlxDatosError_InvalidColumn;
        return {};
    }
    const ado::Field& field = fields.Item(nColumn);
    return {field.Name(), TypeMapping::AdoToZlx(field.Type()).value_or(zlxTblColumnTypeNone),
            field.DefinedSize()};
}

std::int32_t cDatos::FieldNumber(const QString& cFldName) const {
    const QString wanted = cFldName.trimmed().toUpper();
    const ado::Fields& fields = m_rs->GetFields();
    for (int i = 0; i < fields.Count(); ++i) {
        if (fields.Item(i).Name().toUpper() == wanted) return i;
    }
    return -1;
}

bool cDatos::Indexed(const QString& cFldName) {
    try {
        return m_rs->GetFields().Item(cFldName).GetProperties().Item("Optimize").ToBool();
    } catch (...) {
        const QString text = QStringLiteral("Error accediendo a la propiedad Indexed");
        LibraryLog().WriteLine(text, true);
        cMsgBox().ShowMessage(text);
        return false;
    }
}

void cDatos::Indexed(const QString& cFldName, bool lIndexed) {
    try {
        m_rs->GetFields().Item(cFldName).GetProperties().SetItem("Optimize", Variant(lIndexed));
    } catch (...) {
        const QString text = QStringLiteral("Error accediendo a la propiedad Indexed");
        LibraryLog().WriteLine(text, true);
        cMsgBox().ShowMessage(text);
    }
}

// ---------------------------------------------------------------------------------------
// Field access

Variant cDatos::Field(const QString& cFldName) {
    try {
        return m_rs->GetFields().Item(cFldName).Value();
    } catch (...) {
        QString text;
        try {
            if (m_rs->RecordCount() == 0)
                text = QStringLiteral("No hay registros; no puede acceder a la columna ") +
                       Quoted(cFldName);
            else if (m_rs->IsBOF() || m_rs->IsEOF())
                text = QStringLiteral("No hay registro actual.");
        } catch (const ado::AdoError&) {
            text = QStringLiteral("No hay registros; no puede acceder a la columna ") +
                   Quoted(cFldName);
        }
        if (text.isEmpty()) text = QStringLiteral("No existe la columna ") + Quoted(cFldName);
        cMsgBox().ShowMessage(text, 1, QStringLiteral("Error en ") + Quoted("cDatos.Field.Get"));
        return {};
    }
}

void cDatos::Field(const QString& cFldName, const Variant& xValue) {
    const auto write = [&](const Variant& value) { m_rs->Update(Variant(cFldName), value); };
    try {
        write(xValue);
        return;
    } catch (...) {
        const DatosFailure failure = CurrentFailure();
        QString text;
        if (failure.number == ado::adErrItemNotFound) {
            text = QStringLiteral("No existe la columna <B>") + cFldName + QStringLiteral("</B>.");
        } else if (const QString* s = xValue.Get<QString>();
                   s && s->size() > DefinedSizeOf(cFldName)) {
            const QString cut = s->left(DefinedSizeOf(cFldName));
            text = QStringLiteral("El valor de texto es demasiado largo (%1 caracteres) para el "
                                  "campo <B>%2</B>.<BR>El texto ha sido truncado a: <I>%3</I>.<BR>"
                                  "<BR>")
                       .arg(s->size())
                       .arg(cFldName, cut) +
                   QStringLiteral(
                       "Esta situación no es normal; no debió producirse y, para mayor "
                       "seguridad, debería ponerse en contacto<BR>con Zolmar Software para "
                       "determinar la causa del error, su importancia y hallar una solución.");
            write(Variant(cut));
        } else {
            text = QStringLiteral("Error %1: %2").arg(failure.number).arg(failure.description);
        }
        cMsgBox().ShowMessage(text + QStringLiteral("<BR>"), 1,
                              QStringLiteral("Error en ") + Quoted("cDatos.Field.Let"));
    }
}

std::int32_t cDatos::DefinedSizeOf(const QString& cFldName) const {
    const int index = m_rs->GetFields().IndexOf(cFldName);
    return index < 0 ? 0 : m_rs->GetFields().Item(index).DefinedSize();
}

Variant cDatos::Field_ByColumnNumber(std::int32_t nFldNumber) const {
    return m_rs->GetFields().Item(nFldNumber).Value();
}

void cDatos::Field_ByColumnNumber(std::int32_t nFldNumber, const Variant& xValue) {
    m_rs->Update(Variant::Array({Variant(nFldNumber)}), Variant::Array({xValue}));
}

Variant cDatos::DataCell(const QString& cFldName, std::int32_t nRow) {
    m_lastError = zlxDatosError_None;
    CurrentRow(nRow);
    if (m_lastError != zlxDatosError_None) return Variant(std::int16_t(0));
    return m_rs->GetFields().Item(cFldName).Value();
}

void cDatos::DataCell(const QString& cFldName, std::int32_t nRow, const Variant& xValue) {
    m_lastError = zlxDatosError_None;
    CurrentRow(nRow);
    if (m_lastError == zlxDatosError_None) m_rs->Update(Variant(cFldName), xValue);
}

// ---------------------------------------------------------------------------------------
// Filter, order and navigation

Variant cDatos::Filter() const {
    return m_rs->Filter();
}

void cDatos::Filter(const Variant& xFilter) {
    m_rs->SetFilter(xFilter);
    m_recCount = m_rs->RecordCount();
    CurrentRow(1);
}

QString cDatos::Sort() const {
    return m_rs->Sort();
}

void cDatos::Sort(const QString& cSort) {
    m_rs->SetSort(cSort);
}

std::int32_t cDatos::RecCount(const QString& cFor) {
    if (cFor.isEmpty()) return m_recCount;
    const Variant saved = m_rs->Filter();
    m_rs->SetFilter(Variant(cFor));
    const std::int32_t count = m_rs->RecordCount();
    m_rs->SetFilter(saved);
    CurrentRow(m_currentRow);
    return count;
}

void cDatos::CurrentRow(std::int32_t n) {
    if (n < 1 || n > m_recCount) {
        m_lastError = zlxDatosError_InvalidRow;
        return;
    }
    m_currentRow = n;
    m_lastError = zlxDatosError_None;
    m_rs->Move(n - 1, Variant(std::int32_t(ado::adBookmarkFirst)));
}

std::int32_t cDatos::MoveTo(std::int32_t n) {
    CurrentRow(n);
    return m_lastError == zlxDatosError_InvalidRow ? 0 : m_currentRow;
}

std::int32_t cDatos::Move(std::int32_t nSkipRows) {
    return MoveTo(m_currentRow + nSkipRows);
}

std::int32_t cDatos::MoveFirst() {
    return MoveTo(1);
}

std::int32_t cDatos::MoveLast() {
    return MoveTo(m_recCount);
}

std::int32_t cDatos::MovePrevious() {
    return MoveTo(m_currentRow - 1);
}

std::int32_t cDatos::MoveNext() {
    return MoveTo(m_currentRow + 1);
}

} // namespace zlx
