#include "DbfTestFiles.h"

#include <QDir>
#include <QFile>
#include <QUuid>
#include <gtest/gtest.h>

namespace zlx::test {

QString ScratchPath(const QString& fileName) {
    QString root = qEnvironmentVariable("ZLX_TEST_TMP");
    if (root.isEmpty()) root = QDir::tempPath();
    const QString folder =
        root + QStringLiteral("/dbf-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    QDir().mkpath(folder);
    return folder + u'/' + fileName;
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void WriteAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

void PutU16(QByteArray& bytes, int at, std::uint32_t value) {
    bytes[at] = static_cast<char>(value & 0xFF);
    bytes[at + 1] = static_cast<char>((value >> 8) & 0xFF);
}

void PutU32(QByteArray& bytes, int at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

QByteArray HandBuiltTable(std::uint8_t version, const std::vector<HandField>& fields,
                          const std::vector<QByteArray>& records, bool endOfFileByte,
                          const std::vector<bool>& deleted, int declared) {
    const int headerLength = 32 + 32 * static_cast<int>(fields.size()) + 1;
    int recordLength = 1;
    for (const HandField& f : fields)
        recordLength += f.length;
    QByteArray bytes(headerLength, '\0');
    bytes[0] = static_cast<char>(version);
    bytes[1] = 99;
    bytes[2] = 12;
    bytes[3] = 31;
    PutU32(bytes, 4, declared < 0 ? static_cast<std::uint32_t>(records.size()) : declared);
    PutU16(bytes, 8, headerLength);
    PutU16(bytes, 10, recordLength);
    int offset = 1;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int at = 32 + 32 * static_cast<int>(i);
        // Blank padding in names, as some writers do; the reader turns it into NULs.
        const QByteArray name = QByteArray(fields[i].name).leftJustified(11, ' ');
        bytes.replace(at, 11, name);
        bytes[at + 11] = fields[i].type;
        PutU32(bytes, at + 12, offset);
        bytes[at + 16] = static_cast<char>(fields[i].length);
        bytes[at + 17] = static_cast<char>(fields[i].decimals);
        offset += fields[i].length;
    }
    bytes[headerLength - 1] = 0x0D;
    for (std::size_t r = 0; r < records.size(); ++r) {
        const bool isDeleted = r < deleted.size() && deleted[r];
        bytes.append(isDeleted ? '*' : ' ');
        bytes.append(records[r].leftJustified(recordLength - 1, ' ', true));
    }
    if (endOfFileByte) bytes.append('\x1A');
    return bytes;
}

} // namespace zlx::test
