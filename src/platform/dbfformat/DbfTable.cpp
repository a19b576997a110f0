#include "platform/dbfformat/DbfTable.h"

#include "platform/dbfformat/DbfFieldCodec.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>

namespace zlx {

namespace {

constexpr std::size_t kReadAheadBytes = 256 * 1024;

QString CodePageRefusal(int number) {
    return QStringLiteral("No puede leerse el fichero DBF: la página de códigos ") +
           QString::number(number) + QStringLiteral(" que indica su cabecera no está disponible.");
}

QString MissingMemoFile(const QString& tablePath, const QByteArray& field) {
    return QStringLiteral("No se encuentra el fichero de memos de '") +
           QFileInfo(tablePath).fileName() + QStringLiteral("': el campo '") +
           QString::fromLatin1(field) + QStringLiteral("' no puede leerse.");
}

QString UnreadableMemo(const QString& memoPath, const QByteArray& field, std::uint32_t block) {
    return QStringLiteral("No ha podido leerse el memo del campo '") + QString::fromLatin1(field) +
           QStringLiteral("' (bloque ") + QString::number(block) + QStringLiteral(") en '") +
           QFileInfo(memoPath).fileName() + QStringLiteral("'.");
}

Variant ByteArrayValue(const char* bytes, std::size_t size) {
    std::vector<Variant> items;
    items.reserve(size);
    for (std::size_t i = 0; i < size; ++i)
        items.emplace_back(static_cast<std::uint8_t>(bytes[i]));
    return Variant::Array(std::move(items));
}

// The memo's block number: four binary bytes in Visual FoxPro, ten digits elsewhere.
std::uint32_t MemoBlock(const char* bytes, std::size_t length) {
    std::uint32_t block = 0;
    if (length == 4) {
        for (int i = 3; i >= 0; --i)
            block = (block << 8) | static_cast<unsigned char>(bytes[i]);
        return block;
    }
    for (std::size_t i = 0; i < length; ++i) {
        if (bytes[i] >= '0' && bytes[i] <= '9') block = block * 10 + (bytes[i] - '0');
    }
    return block;
}

bool IsBinaryType(const DbfLayout& layout, const DbfField& field) {
    switch (field.type) {
    case 'I':
    case 'Y':
    case 'T':
    case '0':
        return true;
    case 'B':
        return layout.visualFoxPro;
    default:
        return layout.IsMemo(field) && field.length == 4;
    }
}

} // namespace

bool DbfTable::Create(const QString& path, const std::vector<DbfFieldDefinition>& fields) {
    DbfFile file;
    if (!file.Open(path, true)) return false;
    const QByteArray header = DbfLayout::NewHeader(fields, QDate::currentDate());
    const bool written =
        !header.isEmpty() &&
        file.WriteAt(0, header.constData(), static_cast<std::size_t>(header.size())) ==
            static_cast<std::size_t>(header.size());
    file.Close();
    if (!written) QFile::remove(path);
    return written;
}

bool DbfTable::Open(const QString& path, int codePage, QString& refusal, bool shared) {
    Close();
    refusal.clear();
    if (!m_file.Open(path, false, shared)) return false;
    std::optional<DbfLayout> layout = DbfLayout::Read(m_file, refusal);
    const int pageNumber = codePage != 0
                               ? codePage
                               : DbfCodePage::NumberOfDriverByte(layout ? layout->DriverByte() : 0);
    const std::optional<DbfCodePage> page =
        DbfCodePage::FromNumber(pageNumber == 0 ? DbfCodePage::kWindowsAnsi : pageNumber);
    if (layout && !page) refusal = CodePageRefusal(pageNumber);
    if (!layout || !page) {
        m_file.Close();
        return false;
    }
    m_layout = std::move(*layout);
    m_codePage = *page;
    m_path = path;
    if (m_layout.memoStyle != DbfMemoStyle::None) OpenMemoFile(path);
    return true;
}

void DbfTable::OpenMemoFile(const QString& path) {
    const QString memoPath = DbfMemoFile::FindBeside(path, m_layout.memoStyle);
    if (!memoPath.isEmpty()) m_memo.Open(memoPath, m_layout.memoStyle);
}

void DbfTable::Close() {
    m_file.Close();
    m_memo = DbfMemoFile();
    m_layout = DbfLayout();
    m_codePage = DbfCodePage();
    m_path.clear();
    m_readAhead.clear();
    m_readAheadRows = 0;
}

bool DbfTable::UseCodePage(int number) {
    const std::optional<DbfCodePage> page = DbfCodePage::FromNumber(number);
    if (!page) return false;
    m_codePage = *page;
    return true;
}

const DbfField* DbfTable::FindField(const QString& name) const {
    // The name as given, byte for byte: a table may hold "Name" and "NAME" both.
    const QByteArray given = m_codePage.Encode(name.left(10));
    for (const DbfField& field : m_layout.fields) {
        if (field.name == given) return &field;
    }
    // The key the library writes: the upper-case first 10 characters, then a NUL.
    const QByteArray key = m_codePage.Encode(name.left(10).toUpper()) + '\0';
    for (const DbfField& field : m_layout.fields) {
        if (std::memcmp(field.rawName.data(), key.constData(),
                        std::min<std::size_t>(11, static_cast<std::size_t>(key.size()))) == 0)
            return &field;
    }
    // Other programs write names in lower or mixed case.
    const QString wanted = name.left(10);
    for (const DbfField& field : m_layout.fields) {
        if (m_codePage.Decode(field.name.constData(), static_cast<std::size_t>(field.name.size()))
                .compare(wanted, Qt::CaseInsensitive) == 0)
            return &field;
    }
    return nullptr;
}

bool DbfTable::ReadRecord(std::uint32_t row, char* record) {
    if (RecordLength() == 0) return m_file.IsOpen() && row >= 1 && row <= RecordCount();
    std::uint32_t available = 0;
    const char* records = RecordsFrom(row, available);
    if (!records) return false;
    std::memcpy(record, records, RecordLength());
    return true;
}

const char* DbfTable::RecordsFrom(std::uint32_t row, std::uint32_t& available) {
    const std::size_t length = RecordLength();
    if (row < 1 || row > RecordCount() || length == 0) return nullptr;
    if (row < m_readAheadFirst || row >= m_readAheadFirst + m_readAheadRows) {
        const std::uint32_t wanted = std::min<std::uint32_t>(
            RecordCount() - row + 1,
            static_cast<std::uint32_t>(std::max<std::size_t>(1, kReadAheadBytes / length)));
        m_readAhead.resize(wanted * length);
        const std::size_t got =
            m_file.ReadAt(m_layout.RecordPosition(row), m_readAhead.data(), m_readAhead.size());
        m_readAheadFirst = row;
        m_readAheadRows = static_cast<std::uint32_t>(got / length);
        if (m_readAheadRows == 0) return nullptr;
    }
    available = m_readAheadFirst + m_readAheadRows - row;
    return &m_readAhead[(row - m_readAheadFirst) * length];
}

bool DbfTable::WriteRecord(std::uint32_t row, const char* record) {
    m_readAheadRows = 0;
    return m_file.IsOpen() &&
           m_file.WriteAt(m_layout.RecordPosition(row), record, RecordLength()) == RecordLength();
}

bool DbfTable::WriteHeader() {
    return m_file.WriteAt(0, m_layout.header.data(), DbfLayout::kHeaderSize) ==
           DbfLayout::kHeaderSize;
}

bool DbfTable::ReadHeader() {
    m_readAheadRows = 0;
    return m_file.ReadAt(0, m_layout.header.data(), DbfLayout::kHeaderSize) ==
           DbfLayout::kHeaderSize;
}

void DbfTable::BlankRecord(char* record) const {
    std::memset(record, ' ', RecordLength());
    for (const DbfField& field : m_layout.fields) {
        if (IsBinaryType(m_layout, field)) std::memset(record + field.offset, 0, field.length);
    }
    if (m_layout.nullFlags)
        std::memset(record + m_layout.nullFlags->offset, 0, m_layout.nullFlags->length);
}

bool DbfTable::FlagIn(int bit, const char* record) const {
    const auto& flags = m_layout.nullFlags;
    if (bit < 0 || !flags || static_cast<std::uint32_t>(bit / 8) >= flags->length) return false;
    return (static_cast<unsigned char>(record[flags->offset + bit / 8]) >> (bit % 8)) & 1;
}

bool DbfTable::IsNullIn(const DbfField& field, const char* record) const {
    return FlagIn(field.nullBit, record);
}

void DbfTable::SetNullIn(const DbfField& field, char* record, bool isNull) const {
    const auto& flags = m_layout.nullFlags;
    const int bit = field.nullBit;
    if (bit < 0 || !flags || static_cast<std::uint32_t>(bit / 8) >= flags->length) return;
    char& byte = record[flags->offset + bit / 8];
    const auto mask = static_cast<unsigned char>(1u << (bit % 8));
    byte = static_cast<char>(isNull ? (byte | mask) : (byte & ~mask));
}

Variant DbfTable::Value(const DbfField& field, const char* record, QString& problem) const {
    QString text;
    return ValueReusing(field, record, problem, text);
}

// A variable-length value shorter than its field keeps its length in the last byte.
std::size_t DbfTable::ValueLength(const DbfField& field, const char* record) const {
    const std::size_t length = field.length;
    if (!FlagIn(field.varLengthBit, record) || length == 0) return length;
    return std::min<std::size_t>(length - 1,
                                 static_cast<unsigned char>(record[field.offset + length - 1]));
}

Variant DbfTable::ValueReusing(const DbfField& field, const char* record, QString& problem,
                               QString& text) const {
    if (IsNullIn(field, record)) return Variant::Null();
    const char* bytes = record + field.offset;
    if (m_layout.IsMemo(field)) return MemoValue(field, bytes, problem);
    const std::size_t length = ValueLength(field, record);
    if (field.type == 'Q') return ByteArrayValue(bytes, length);
    return DbfFieldCodec::DecodeReusing(field.type, bytes, length, field.decimals, m_codePage,
                                        m_layout.visualFoxPro, text);
}

bool DbfTable::StandsAlone(const DbfField& field) const {
    const bool flagged = m_layout.nullFlags && (field.nullBit >= 0 || field.varLengthBit >= 0);
    return !flagged && !m_layout.IsMemo(field);
}

bool DbfTable::PlainValue(const DbfField& field, const char* record, QString& text,
                          DbfFieldCodec::PlainValue& value) const {
    if (IsNullIn(field, record)) {
        value.kind = DbfFieldCodec::PlainValue::Kind::Null;
        return true;
    }
    if (m_layout.IsMemo(field)) return false;
    return DbfFieldCodec::DecodePlain(field.type, record + field.offset, ValueLength(field, record),
                                      field.decimals, m_codePage, text, value);
}

Variant DbfTable::MemoValue(const DbfField& field, const char* bytes, QString& problem) const {
    const bool binary = field.binary || field.type != 'M';
    const std::uint32_t block = MemoBlock(bytes, field.length);
    if (block == 0) return binary ? ByteArrayValue(nullptr, 0) : Variant(QString());
    if (!m_memo.IsOpen()) {
        problem = MissingMemoFile(m_path, field.name);
        return Variant::Null();
    }
    const std::optional<DbfMemoFile::Memo> memo = m_memo.Read(block);
    if (!memo) {
        problem = UnreadableMemo(m_memo.Path(), field.name, block);
        return Variant::Null();
    }
    const auto size = static_cast<std::size_t>(memo->bytes.size());
    if (binary || memo->binary) return ByteArrayValue(memo->bytes.constData(), size);
    return m_codePage.Decode(memo->bytes.constData(), size);
}

bool DbfTable::SetValue(const DbfField& field, char* record, const Variant& value) const {
    if (!QByteArrayView("CNFDL").contains(field.type)) return false;
    if (!DbfFieldCodec::Encode(value, record + field.offset, field.length, field.decimals,
                               m_codePage))
        return false;
    SetNullIn(field, record, value.IsNull());
    return true;
}

} // namespace zlx
