#include "dbf/cDBF.h"

#include "dbf/Cp1252.h"
#include "dbf/DbfFieldCodec.h"
#include "dbf/DbfMessages.h"
#include "platform/companion/cMsgBox.h"

#include <QDate>
#include <QFile>
#include <algorithm>
#include <cstring>

namespace zlx {

namespace {

constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kDescriptorSize = 32;
constexpr char kHeaderTerminator = 0x0D;
constexpr std::uint8_t kVersionWithoutMemo = 0x03;
constexpr std::uint8_t kCodePageWindowsAnsi = 0x03;
constexpr std::size_t kReadAheadBytes = 256 * 1024;

std::uint16_t ReadU16(const std::uint8_t* p) {
    return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}
std::uint32_t ReadU32(const std::uint8_t* p) {
    return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
           (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}
void WriteU16(std::uint8_t* p, std::uint32_t v) {
    p[0] = static_cast<std::uint8_t>(v);
    p[1] = static_cast<std::uint8_t>(v >> 8);
}
void WriteU32(std::uint8_t* p, std::uint32_t v) {
    for (int i = 0; i < 4; ++i)
        p[i] = static_cast<std::uint8_t>(v >> (8 * i));
}

QString FieldKey(const QString& name) {
    return name.left(10).toUpper();
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

// ---- header -------------------------------------------------------------------------------

std::uint32_t cDBF::RecordCount() const {
    return ReadU32(&m_header[4]);
}
std::uint16_t cDBF::HeaderLength() const {
    return ReadU16(&m_header[8]);
}
std::uint16_t cDBF::RecordLength() const {
    return ReadU16(&m_header[10]);
}
void cDBF::SetRecordCount(std::uint32_t count) {
    WriteU32(&m_header[4], count);
}

std::uint64_t cDBF::RecordPosition(std::uint32_t row) const {
    return HeaderLength() + static_cast<std::uint64_t>(row - 1) * RecordLength();
}

DBF_FieldInfo_Type cDBF::GetFieldInfo(std::int32_t nField) const {
    DBF_FieldInfo_Type info;
    if (nField < 1 || nField > FieldCount()) return info;
    const FieldDescriptor& field = m_fields[static_cast<std::size_t>(nField - 1)];
    info.cFieldName =
        Cp1252::Decode(field.name.data(), strnlen(field.name.data(), field.name.size()));
    info.cDataType = QString(QChar(static_cast<unsigned char>(field.type)));
    info.nFieldLength = field.length;
    info.nDecimalPlaces = field.decimals;
    return info;
}

// ---- opening and closing ------------------------------------------------------------------

bool cDBF::OpenRaw(const QString& cRutaFicheroDBF) {
    CloseDBF();
    if (!m_file.Open(cRutaFicheroDBF, false)) return false;
    if (m_file.ReadAt(0, m_header.data(), kHeaderSize) < kHeaderSize) {
        m_file.Close();
        m_header.fill(0);
        return false;
    }
    m_path = cRutaFicheroDBF;
    m_record.assign(RecordLength(), ' ');
    const std::size_t fieldCount =
        HeaderLength() > 33 ? (HeaderLength() - 33u) / kDescriptorSize : 0;
    std::vector<std::uint8_t> descriptors(fieldCount * kDescriptorSize);
    if (m_file.ReadAt(kHeaderSize, descriptors.data(), descriptors.size()) < descriptors.size()) {
        CloseDBF();
        return false;
    }
    m_fields.resize(fieldCount);
    m_foundFields.clear();
    for (std::size_t i = 0; i < fieldCount; ++i) {
        const std::uint8_t* raw = &descriptors[i * kDescriptorSize];
        FieldDescriptor& field = m_fields[i];
        std::transform(raw, raw + 11, field.name.begin(),
                       [](std::uint8_t c) { return c == ' ' ? '\0' : static_cast<char>(c); });
        field.type = static_cast<char>(raw[11]);
        field.offset = ReadU32(raw + 12);
        field.length = raw[16];
        field.decimals = raw[17];
    }
    if (RecordCount() > 0) SetCurrentRow(1);
    return true;
}

bool cDBF::OpenODBC(const QString& cRutaFicheroDBF) {
    CloseDBF();
    Report(DbfMessages::kFoxProUnavailable + QStringLiteral(" (") + cRutaFicheroDBF +
               QStringLiteral(")"),
           DbfMessages::kFoxProUnavailableTitle);
    return false;
}

void cDBF::CloseDBF() {
    if (m_headerChanged) Commit();
    m_fields.clear();
    m_foundFields.clear();
    m_record.clear();
    m_readAhead.clear();
    InvalidateReadAhead();
    m_header.fill(0);
    m_file.Close();
    m_currentRow = 0;
    m_path.clear();
    m_columns.clear();
    m_creating = false;
    m_inserting = false;
    m_headerChanged = false;
    m_recordChanged = false;
    ClearErrors();
}

Variant cDBF::Execute(const QString&, std::int32_t, const Variant& xDefaultValue, bool) {
    return xDefaultValue;
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
    const std::vector<ColumnDefinition> columns = std::move(m_columns);
    m_columns.clear();
    m_creating = false;
    DbfFile file;
    if (!file.Open(path, true)) {
        m_path.clear();
        return false;
    }
    const std::size_t headerLength = kHeaderSize + kDescriptorSize * columns.size() + 1;
    std::vector<std::uint8_t> bytes(headerLength, 0);
    const QDate today = QDate::currentDate();
    bytes[0] = kVersionWithoutMemo;
    bytes[1] = static_cast<std::uint8_t>(today.year() % 100);
    bytes[2] = static_cast<std::uint8_t>(today.month());
    bytes[3] = static_cast<std::uint8_t>(today.day());
    bytes[29] = kCodePageWindowsAnsi;
    std::uint32_t offset = 1;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::uint8_t* raw = &bytes[kHeaderSize + i * kDescriptorSize];
        const QByteArray name = Cp1252::Encode(columns[i].name);
        std::memcpy(raw, name.constData(), static_cast<std::size_t>(name.size()));
        raw[11] = static_cast<std::uint8_t>(columns[i].type);
        WriteU32(raw + 12, offset);
        raw[16] = columns[i].length;
        raw[17] = columns[i].decimals;
        offset += columns[i].length;
    }
    bytes[headerLength - 1] = kHeaderTerminator;
    WriteU16(&bytes[8], static_cast<std::uint32_t>(headerLength));
    WriteU16(&bytes[10], offset);
    const bool written = file.WriteAt(0, bytes.data(), bytes.size()) == bytes.size();
    file.Close();
    if (!written || headerLength > 0xFFFF || offset > 0xFFFF) {
        QFile::remove(path);
        m_path.clear();
        return false;
    }
    OpenRaw(path);
    return true;
}

// ---- records ------------------------------------------------------------------------------

void cDBF::SetCurrentRow(std::int64_t n) {
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
    const std::size_t length = m_record.size();
    if (length == 0) return m_file.IsOpen();
    if (row < m_readAheadFirst || row >= m_readAheadFirst + m_readAheadRows) {
        const std::uint32_t wanted = std::min<std::uint32_t>(
            RecordCount() - row + 1,
            static_cast<std::uint32_t>(std::max<std::size_t>(1, kReadAheadBytes / length)));
        m_readAhead.resize(wanted * length);
        const std::size_t got =
            m_file.ReadAt(RecordPosition(row), m_readAhead.data(), m_readAhead.size());
        m_readAheadFirst = row;
        m_readAheadRows = static_cast<std::uint32_t>(got / length);
        if (m_readAheadRows == 0) return false;
    }
    std::memcpy(m_record.data(), &m_readAhead[(row - m_readAheadFirst) * length], length);
    return true;
}

// Names already looked up answer from a short list: a caller reading every record names
// the same fields again and again, usually with the very same strings.
const cDBF::FieldDescriptor* cDBF::FindField(const QString& name) const {
    for (const auto& [known, field] : m_foundFields) {
        if ((known.constData() == name.constData() && known.size() == name.size()) || known == name)
            return field;
    }
    const FieldDescriptor* field = LookUpField(name);
    if (field && m_foundFields.size() < kFoundFieldsKept) m_foundFields.emplace_back(name, field);
    return field;
}

const cDBF::FieldDescriptor* cDBF::LookUpField(const QString& name) const {
    // The key: upper-case first 10 characters in the file's code page, then a NUL.
    std::array<char, 11> key{};
    const qsizetype size = std::min<qsizetype>(name.size(), 10);
    for (qsizetype i = 0; i < size; ++i) {
        const QChar ch = name[i];
        key[static_cast<std::size_t>(i)] = ch.unicode() < 0x80
                                               ? static_cast<char>(std::toupper(ch.unicode()))
                                               : Cp1252::Encode(QString(ch).toUpper()).at(0);
    }
    const auto keyBytes = static_cast<std::size_t>(size) + 1;
    for (const FieldDescriptor& field : m_fields) {
        if (field.name[0] == key[0] && std::memcmp(field.name.data(), key.data(), keyBytes) == 0)
            return &field;
    }
    return nullptr;
}

Variant cDBF::ReadValue(const FieldDescriptor& field) const {
    // A damaged descriptor may point past the record: read only what lies inside it.
    const std::size_t start = std::min<std::size_t>(field.offset, m_record.size());
    const std::size_t length = std::min<std::size_t>(field.length, m_record.size() - start);
    return DbfFieldCodec::Decode(field.type, m_record.data() + start, length, field.decimals);
}

Variant cDBF::Field(const QString& cCampo) {
    const FieldDescriptor* field = FindField(cCampo);
    if (!field) {
        Report(DbfMessages::NoSuchField(cCampo), DbfMessages::FieldReadTitle(-1));
        return QString();
    }
    return ReadValue(*field);
}

void cDBF::SetField(const QString& cCampo, const Variant& value) {
    const FieldDescriptor* field = FindField(cCampo);
    if (!field) {
        Report(DbfMessages::NoSuchField(cCampo), DbfMessages::FieldWriteTitle(-1));
        return;
    }
    if (std::size_t{field->offset} + field->length > m_record.size()) return;
    if (DbfFieldCodec::Encode(value, m_record.data() + field->offset, field->length,
                              field->decimals))
        m_recordChanged = true;
}

void cDBF::BeginInsert() {
    if (m_inserting)
        EndInsert();
    else if (m_recordChanged)
        FlushRecord(); // keep changes to the current record before the buffer is reused
    std::fill(m_record.begin(), m_record.end(), ' ');
    m_inserting = true;
}

bool cDBF::EndInsert() {
    if (!m_inserting) {
        Report(DbfMessages::kNotInserting, DbfMessages::kInsertTitle);
        return false;
    }
    const std::uint32_t row = RecordCount() + 1;
    if (!m_file.IsOpen() ||
        m_file.WriteAt(RecordPosition(row), m_record.data(), m_record.size()) < m_record.size()) {
        Report(DbfMessages::kInsertWriteFailed, DbfMessages::kInsertTitle);
        return false;
    }
    InvalidateReadAhead();
    SetRecordCount(row);
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
    if (m_file.WriteAt(RecordPosition(m_currentRow), m_record.data(), m_record.size()) <
        m_record.size()) {
        Report(DbfMessages::kFlushFailed, DbfMessages::kFlushTitle);
        return;
    }
    InvalidateReadAhead();
    m_recordChanged = false;
}

void cDBF::Commit() {
    if (m_inserting) EndInsert();
    if (m_recordChanged) FlushRecord();
    if (!m_headerChanged) return;
    if (m_file.WriteAt(0, m_header.data(), kHeaderSize) < kHeaderSize) {
        Report(DbfMessages::kHeaderWriteFailed, DbfMessages::kHeaderWriteTitle);
        return;
    }
    m_headerChanged = false;
}

} // namespace zlx
