#include "dbf/cDBF.h"

#include "dbf/DbfMessages.h"
#include "platform/companion/cMsgBox.h"

#include <algorithm>

namespace zlx {

namespace {

QString FieldKey(const QString& name) {
    return name.left(10).toUpper();
}

// The Variant the general decoding gives for a value DecodePlain read.
Variant VariantOf(const DbfFieldCodec::PlainValue& value, const QString& text) {
    using Kind = DbfFieldCodec::PlainValue::Kind;
    switch (value.kind) {
    case Kind::Integer:
        return static_cast<std::int32_t>(value.integer);
    case Kind::Currency:
        return Currency{value.integer};
    case Kind::Double:
        return value.real;
    case Kind::Date:
        return Date{value.real};
    case Kind::Logical:
        return value.integer != 0;
    case Kind::Text:
        return text;
    case Kind::Null:
        break;
    }
    return Variant::Null();
}

} // namespace

cDBF::cDBF() = default;

cDBF::~cDBF() {
    CloseDBF();
}

// ---- errors -------------------------------------------------------------------------------

void cDBF::Report(const QString& message, const QString& title) {
    if (m_showErrors) {
        cMsgBox box;
        box.ShowMessage(message, 0, title);
        return;
    }
    m_lastErrorMsg = message;
    m_lastErrorTitle = title;
}

QString cDBF::GetLastErrorMsg(QString* cErrorTitle) const {
    if (cErrorTitle) *cErrorTitle = m_lastErrorTitle;
    return m_lastErrorMsg;
}

void cDBF::ClearErrors() {
    m_lastErrorMsg.clear();
    m_lastErrorTitle.clear();
}

// ---- descriptors and code page ------------------------------------------------------------

DBF_FieldInfo_Type cDBF::GetFieldInfo(std::int32_t nField) const {
    DBF_FieldInfo_Type info;
    if (nField < 1 || nField > FieldCount()) return info;
    const DbfField& field = m_table.Layout().fields[static_cast<std::size_t>(nField - 1)];
    info.cFieldName = m_table.CodePage().Decode(field.name.constData(),
                                                static_cast<std::size_t>(field.name.size()));
    info.cDataType = QString(QChar(static_cast<unsigned char>(field.type)));
    info.nFieldLength = field.storedLength;
    info.nDecimalPlaces = field.decimals;
    return info;
}

std::int32_t cDBF::CodePage() const {
    return m_table.IsOpen() || m_namedCodePage == 0 ? m_table.CodePage().Number() : m_namedCodePage;
}

void cDBF::CodePage(std::int32_t nCodePage) {
    if (nCodePage != 0 && !DbfCodePage::FromNumber(nCodePage)) {
        Report(DbfMessages::UnavailableCodePage(nCodePage), DbfMessages::kOpenTitle);
        return;
    }
    m_namedCodePage = nCodePage;
    if (m_table.IsOpen() && nCodePage != 0) m_table.UseCodePage(nCodePage);
    m_foundFields.clear(); // names are compared in the file's bytes
    m_nextFound = 0;
}

// ---- opening and closing ------------------------------------------------------------------

bool cDBF::OpenRaw(const QString& cRutaFicheroDBF) {
    CloseDBF();
    QString refusal;
    if (!m_table.Open(cRutaFicheroDBF, m_namedCodePage, refusal)) {
        if (!refusal.isEmpty()) Report(refusal, DbfMessages::kOpenTitle);
        return false;
    }
    m_path = cRutaFicheroDBF;
    m_record.assign(m_table.RecordLength(), ' ');
    PrepareReaders();
    if (RecordCount() > 0) CurrentRow(1);
    return true;
}

bool cDBF::OpenODBC(const QString& cRutaFicheroDBF) {
    CloseDBF();
    auto connection = std::make_shared<cConexion>();
    QString errors;
    // The connection reports its own failure.
    if (!connection->Init(zlxDataProvider_FOX, cRutaFicheroDBF, {}, {}, {}, 16, false, &errors, 60))
        return false;
    m_cnFox = std::move(connection);
    m_path = cRutaFicheroDBF;
    return true;
}

void cDBF::CloseDBF() {
    if (m_headerChanged) Commit();
    m_table.Close();
    m_foundFields.clear();
    m_nextFound = 0;
    m_readers.clear();
    m_record.clear();
    if (m_cnFox) m_cnFox->Close_Connection();
    m_cnFox.reset();
    m_currentRow = 0;
    m_path.clear();
    m_columns.clear();
    m_creating = false;
    m_inserting = false;
    m_headerChanged = false;
    m_recordChanged = false;
    ClearErrors();
}

Variant cDBF::Execute(const QString& cInstruccion, std::int32_t nTipoRet,
                      const Variant& xDefaultValue, bool lHideError) {
    if (!m_cnFox) return xDefaultValue;
    return m_cnFox->Execute(cInstruccion, nTipoRet, nTipoRet == 1 ? Variant(false) : xDefaultValue,
                            lHideError);
}

// ---- creating -----------------------------------------------------------------------------

bool cDBF::BeginCreateDBF(const QString& cRutaFicheroDBF) {
    CloseDBF();
    DbfFile created;
    if (!created.Open(cRutaFicheroDBF, true)) return false;
    created.Close();
    m_path = cRutaFicheroDBF;
    m_creating = true;
    return true;
}

void cDBF::CreateColumn(const QString& cName, QString& cType, std::int32_t nSize,
                        std::int32_t nDecimales) {
    if (!m_creating) return;
    const QString name = FieldKey(cName);
    cType = cType.left(1).toUpper();
    if (cType.isEmpty() || !QStringLiteral("CNDL").contains(cType)) {
        Report(DbfMessages::UnsupportedType(cType), DbfMessages::kCreateTitle);
        return;
    }
    const char letter = cType[0].toLatin1();
    if ((letter == 'C' || letter == 'N') && nSize == 0) {
        Report(DbfMessages::kLengthRequired, DbfMessages::kCreateTitle);
        return;
    }
    if (letter == 'D')
        nSize = 8;
    else if (letter == 'L')
        nSize = 1;
    if (nSize < 1 || nSize > 255 || nDecimales < 0 || nDecimales > nSize - 1) {
        Report(DbfMessages::kBadArguments, DbfMessages::kCreateTitle);
        return;
    }
    m_columns.push_back(
        {name, letter, static_cast<std::uint8_t>(nSize), static_cast<std::uint8_t>(nDecimales)});
}

bool cDBF::EndCreateDBF() {
    const QString path = m_path;
    std::vector<DbfFieldDefinition> fields;
    for (const ColumnDefinition& column : m_columns)
        fields.push_back(
            {DbfCodePage().Encode(column.name), column.type, column.length, column.decimals});
    m_columns.clear();
    m_creating = false;
    if (!DbfTable::Create(path, fields)) {
        m_path.clear();
        return false;
    }
    OpenRaw(path);
    return true;
}

// ---- records ------------------------------------------------------------------------------

void cDBF::CurrentRow(std::int64_t n) {
    if (n < 1 || n > RecordCount()) {
        Report(DbfMessages::WrongRecordNumber(RecordCount()), DbfMessages::kWrongRecordNumberTitle);
        return;
    }
    if (m_inserting) EndInsert();
    if (m_recordChanged) FlushRecord();
    const auto row = static_cast<std::uint32_t>(n);
    if (ReadRecord(row)) {
        m_currentRow = row;
        return;
    }
    Report(DbfMessages::kRecordReadFailed, DbfMessages::kRecordReadTitle);
    std::fill(m_record.begin(), m_record.end(), ' ');
    m_currentRow = 0;
}

bool cDBF::ReadRecord(std::uint32_t row) {
    return m_table.ReadRecord(row, m_record.data());
}

void cDBF::PrepareReaders() {
    m_readers.clear();
    m_readers.reserve(m_table.Layout().fields.size());
    for (const DbfField& field : m_table.Layout().fields)
        m_readers.push_back({&field, m_table.StandsAlone(field), QString()});
}

// Names already looked up answer from a short list: a caller reading every record names
// the same fields again and again, in the same order, usually with the very same strings.
cDBF::FieldReader* cDBF::FindReader(const QString& name) {
    const std::size_t count = m_foundFields.size();
    for (std::size_t tried = 0, i = m_nextFound; tried < count;
         ++tried, i = i + 1 < count ? i + 1 : 0) {
        const auto& [known, reader] = m_foundFields[i];
        if (known.constData() == name.constData() && known.size() == name.size()) {
            m_nextFound = i + 1 < count ? i + 1 : 0;
            return &m_readers[reader];
        }
    }
    for (const auto& [known, reader] : m_foundFields) {
        if (known == name) return &m_readers[reader];
    }
    const DbfField* field = m_table.FindField(name);
    if (!field) return nullptr;
    const auto reader = static_cast<std::size_t>(field - m_table.Layout().fields.data());
    if (m_foundFields.size() < kFoundFieldsKept) m_foundFields.emplace_back(name, reader);
    return &m_readers[reader];
}

Variant cDBF::Field(const QString& cCampo) {
    FieldReader* reader = FindReader(cCampo);
    if (!reader) {
        Report(DbfMessages::NoSuchField(cCampo), DbfMessages::FieldReadTitle(-1));
        return QString();
    }
    const DbfField& field = *reader->field;
    DbfFieldCodec::PlainValue plain;
    if (reader->plain &&
        DbfFieldCodec::DecodePlain(field.type, m_record.data() + field.offset, field.length,
                                   field.decimals, m_table.CodePage(), reader->text, plain))
        return VariantOf(plain, reader->text);
    QString problem;
    Variant value = m_table.ValueReusing(field, m_record.data(), problem, reader->text);
    if (!problem.isEmpty()) Report(problem, DbfMessages::kRecordReadTitle);
    return value;
}

void cDBF::Field(const QString& cCampo, const Variant& value) {
    const FieldReader* reader = FindReader(cCampo);
    if (!reader) {
        Report(DbfMessages::NoSuchField(cCampo), DbfMessages::FieldWriteTitle(-1));
        return;
    }
    if (m_table.SetValue(*reader->field, m_record.data(), value)) m_recordChanged = true;
}

void cDBF::BeginInsert() {
    if (m_inserting)
        EndInsert();
    else if (m_recordChanged)
        FlushRecord(); // keep changes to the current record before the buffer is reused
    m_table.BlankRecord(m_record.data());
    m_inserting = true;
}

bool cDBF::EndInsert() {
    if (!m_inserting) {
        Report(DbfMessages::kNotInserting, DbfMessages::kInsertTitle);
        return false;
    }
    const std::uint32_t row = RecordCount() + 1;
    if (!m_table.WriteRecord(row, m_record.data())) {
        Report(DbfMessages::kInsertWriteFailed, DbfMessages::kInsertTitle);
        return false;
    }
    m_table.SetRecordCount(row);
    m_headerChanged = true;
    m_recordChanged = false;
    m_inserting = false;
    m_currentRow = row;
    return true;
}

void cDBF::FlushRecord() {
    if (m_currentRow < 1 || m_currentRow > RecordCount()) {
        Report(DbfMessages::kNoCurrentRecord, DbfMessages::kFlushTitle);
        return;
    }
    if (!m_recordChanged) return;
    if (!m_table.WriteRecord(m_currentRow, m_record.data())) {
        Report(DbfMessages::kFlushFailed, DbfMessages::kFlushTitle);
        return;
    }
    m_recordChanged = false;
}

void cDBF::Commit() {
    if (m_inserting) EndInsert();
    if (m_recordChanged) FlushRecord();
    if (!m_headerChanged) return;
    if (!m_table.WriteHeader()) {
        Report(DbfMessages::kHeaderWriteFailed, DbfMessages::kHeaderWriteTitle);
        return;
    }
    m_headerChanged = false;
}

} // namespace zlx
