#include "platform/dbfformat/DbfMemoFile.h"

#include <QDir>
#include <QFileInfo>

namespace zlx {

namespace {

constexpr std::uint32_t kDbaseBlockSize = 512;
constexpr qint64 kLargestMemo = 64 * 1024 * 1024; // a larger length is damage, not a memo
constexpr char kEndOfText = 0x1A;

std::uint32_t BigEndian(const char* p, int size) {
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i)
        value = (value << 8) | static_cast<unsigned char>(p[i]);
    return value;
}

std::uint32_t LittleEndian(const char* p, int size) {
    std::uint32_t value = 0;
    for (int i = size; i-- > 0;)
        value = (value << 8) | static_cast<unsigned char>(p[i]);
    return value;
}

QString FindWithExtension(const QString& tablePath, const QString& extension) {
    const QFileInfo table(tablePath);
    const QString wanted = table.completeBaseName() + u'.' + extension;
    const QStringList names = table.dir().entryList(QDir::Files);
    for (const QString& name : names) {
        if (name.compare(wanted, Qt::CaseInsensitive) == 0) return table.dir().filePath(name);
    }
    return {};
}

} // namespace

QString DbfMemoFile::FindBeside(const QString& tablePath, DbfMemoStyle style) {
    switch (style) {
    case DbfMemoStyle::Dbt:
        return FindWithExtension(tablePath, QStringLiteral("dbt"));
    case DbfMemoStyle::Fpt:
        return FindWithExtension(tablePath, QStringLiteral("fpt"));
    case DbfMemoStyle::EitherOne: {
        const QString fpt = FindWithExtension(tablePath, QStringLiteral("fpt"));
        return fpt.isEmpty() ? FindWithExtension(tablePath, QStringLiteral("dbt")) : fpt;
    }
    default:
        return {};
    }
}

bool DbfMemoFile::Open(const QString& path, DbfMemoStyle style) {
    m_file = std::make_unique<QFile>(path);
    if (!m_file->open(QIODevice::ReadOnly)) {
        m_file.reset();
        return false;
    }
    m_fpt =
        style == DbfMemoStyle::Fpt || (style == DbfMemoStyle::EitherOne &&
                                       path.endsWith(QStringLiteral("fpt"), Qt::CaseInsensitive));
    const QByteArray header = m_file->read(32);
    if (m_fpt) {
        m_blockSize = header.size() >= 8 ? BigEndian(header.constData() + 6, 2) : 0;
    } else {
        // dBASE IV keeps its block size at byte 20; dBASE III leaves zeros there.
        m_blockSize = header.size() >= 22 ? LittleEndian(header.constData() + 20, 2) : 0;
        if (m_blockSize < 64) m_blockSize = kDbaseBlockSize;
    }
    if (m_blockSize == 0) m_blockSize = 64; // FoxPro's own default
    return true;
}

std::optional<DbfMemoFile::Memo> DbfMemoFile::Read(std::uint32_t block) const {
    if (!IsOpen()) return std::nullopt;
    const std::uint64_t position = std::uint64_t{block} * m_blockSize;
    if (block == 0 || position >= static_cast<std::uint64_t>(m_file->size())) return std::nullopt;
    return m_fpt ? ReadFpt(position) : ReadDbt(position);
}

std::optional<DbfMemoFile::Memo> DbfMemoFile::ReadFpt(std::uint64_t position) const {
    if (!m_file->seek(static_cast<qint64>(position))) return std::nullopt;
    const QByteArray head = m_file->read(8);
    if (head.size() < 8) return std::nullopt;
    const std::uint32_t type = BigEndian(head.constData(), 4);
    const qint64 length = BigEndian(head.constData() + 4, 4);
    if (length > kLargestMemo || length > m_file->size() - m_file->pos()) return std::nullopt;
    return Memo{m_file->read(length), type != 1};
}

std::optional<DbfMemoFile::Memo> DbfMemoFile::ReadDbt(std::uint64_t position) const {
    if (!m_file->seek(static_cast<qint64>(position))) return std::nullopt;
    const QByteArray head = m_file->peek(8);
    if (head.size() == 8 && head.startsWith(QByteArray("\xFF\xFF\x08\x00", 4))) {
        // dBASE IV: the length counts these eight bytes.
        const qint64 length = LittleEndian(head.constData() + 4, 4);
        if (length < 8 || length - 8 > m_file->size() - m_file->pos() - 8 || length > kLargestMemo)
            return std::nullopt;
        m_file->skip(8);
        return Memo{m_file->read(length - 8), false};
    }
    // dBASE III: the text runs to the first 0x1A (or the end of the file).
    QByteArray text;
    while (text.size() < kLargestMemo) {
        const QByteArray chunk = m_file->read(kDbaseBlockSize);
        const qsizetype end = chunk.indexOf(kEndOfText);
        text += end >= 0 ? chunk.left(end) : chunk;
        if (end >= 0 || chunk.size() < static_cast<qsizetype>(kDbaseBlockSize)) break;
    }
    return Memo{text, false};
}

} // namespace zlx
