#include "platform/dbfformat/DbfNewTable.h"

#include "platform/dbfformat/DbfFile.h"

#include <QFileInfo>
#include <algorithm>

namespace zlx::DbfNewTable {

namespace {

constexpr std::uint8_t kVisualFoxPro = 0x30;
constexpr std::uint8_t kHasMemoFlag = 0x02; // header byte 28
constexpr int kBacklinkSize = 263;          // the database container's path, empty here
constexpr int kMemoHeaderSize = 512;
constexpr int kMemoBlockSize = 64;

bool NeedsVisualFoxPro(const std::vector<DbfFieldDefinition>& fields) {
    return std::any_of(fields.begin(), fields.end(), [](const DbfFieldDefinition& field) {
        return QByteArrayView("CNFDL").indexOf(field.type) < 0;
    });
}

bool HasMemo(const std::vector<DbfFieldDefinition>& fields) {
    return std::any_of(fields.begin(), fields.end(),
                       [](const DbfFieldDefinition& field) { return field.type == 'M'; });
}

bool WriteWhole(const QString& path, const QByteArray& bytes) {
    DbfFile file;
    if (!file.Open(path, true)) return false;
    const auto size = static_cast<std::size_t>(bytes.size());
    return file.WriteAt(0, bytes.constData(), size) == size;
}

} // namespace

std::uint8_t FixedLength(char type) {
    switch (type) {
    case 'I':
    case 'M':
        return 4;
    case 'Y':
    case 'B':
    case 'T':
    case 'D':
        return 8;
    case 'L':
        return 1;
    default:
        return 0;
    }
}

QByteArray Header(const std::vector<DbfFieldDefinition>& fields, const QDate& today) {
    QByteArray header = DbfLayout::NewHeader(fields, today);
    if (header.isEmpty() || !NeedsVisualFoxPro(fields)) return header;
    const qsizetype length = header.size() + kBacklinkSize;
    if (length > 0xFFFF) return {};
    header.append(QByteArray(kBacklinkSize, '\0'));
    header[0] = static_cast<char>(kVisualFoxPro);
    header[8] = static_cast<char>(length & 0xff);
    header[9] = static_cast<char>(length >> 8);
    if (HasMemo(fields)) header[28] = static_cast<char>(kHasMemoFlag);
    return header;
}

QString MemoPath(const QString& tablePath) {
    const QFileInfo info(tablePath);
    return info.path() + u'/' + info.completeBaseName() + QStringLiteral(".fpt");
}

bool CreateMemoFile(const QString& path) {
    QByteArray header(kMemoHeaderSize, '\0');
    const int firstFree = kMemoHeaderSize / kMemoBlockSize;
    header[3] = static_cast<char>(firstFree);
    header[7] = static_cast<char>(kMemoBlockSize);
    return WriteWhole(path, header);
}

bool Create(const QString& path, const std::vector<DbfFieldDefinition>& fields) {
    const QByteArray header = Header(fields, QDate::currentDate());
    if (header.isEmpty()) return false;
    const QString memo = MemoPath(path);
    if (HasMemo(fields) && !QFileInfo::exists(memo) && !CreateMemoFile(memo)) return false;
    return WriteWhole(path, header + '\x1A');
}

} // namespace zlx::DbfNewTable
