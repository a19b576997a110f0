#include "platform/dbfformat/DbfMemoWriter.h"

#include "platform/dbfformat/DbfFile.h"
#include "platform/dbfformat/DbfRecordLock.h"

namespace zlx {

namespace {

constexpr std::uint32_t kTextBlockType = 1;
constexpr std::size_t kBlockHeaderSize = 8;

std::uint32_t BigEndian(const unsigned char* bytes, int count) {
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = (value << 8) | bytes[i];
    return value;
}

void PutBigEndian(std::uint32_t value, char* bytes) {
    for (int i = 3; i >= 0; --i, value >>= 8)
        bytes[i] = static_cast<char>(value & 0xff);
}

} // namespace

std::uint32_t DbfMemoWriter::Append(const QByteArray& text) {
    DbfFile file;
    if (!file.Open(m_path, false, true)) return 0;
    const DbfRecordLock lock(file.Handle(), DbfRecordLock::Kind::Exclusive, 0, 8);
    unsigned char header[8] = {};
    if (!lock.Held() || file.ReadAt(0, header, sizeof header) != sizeof header) return 0;
    const std::uint32_t block = BigEndian(header, 4);
    const std::uint32_t blockSize = BigEndian(header + 6, 2);
    if (block == 0 || blockSize == 0) return 0;
    QByteArray stored(kBlockHeaderSize, '\0');
    PutBigEndian(kTextBlockType, stored.data());
    PutBigEndian(static_cast<std::uint32_t>(text.size()), stored.data() + 4);
    stored += text;
    const std::uint32_t blocks = static_cast<std::uint32_t>(
        (static_cast<std::uint64_t>(stored.size()) + blockSize - 1) / blockSize);
    stored.resize(static_cast<qsizetype>(blocks) * blockSize, '\0');
    const auto size = static_cast<std::size_t>(stored.size());
    if (file.WriteAt(std::uint64_t{block} * blockSize, stored.constData(), size) != size) return 0;
    char next[4];
    PutBigEndian(block + blocks, next);
    return file.WriteAt(0, next, sizeof next) == sizeof next ? block : 0;
}

} // namespace zlx
