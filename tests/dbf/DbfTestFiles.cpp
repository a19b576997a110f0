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

QByteArray BuildTable(const HandTable& table) {
    const int headerLength = 32 + 32 * static_cast<int>(table.fields.size()) + 1 + table.backlink;
    int recordLength = 1;
    for (const HandField& f : table.fields)
        recordLength += f.length;
    QByteArray bytes(headerLength, '\0');
    bytes[0] = static_cast<char>(table.version);
    bytes[1] = 99;
    bytes[2] = 12;
    bytes[3] = 31;
    PutU32(bytes, 4,
           table.declared < 0 ? static_cast<std::uint32_t>(table.records.size()) : table.declared);
    PutU16(bytes, 8, headerLength);
    PutU16(bytes, 10, table.declaredRecordLength < 0 ? recordLength : table.declaredRecordLength);
    bytes[29] = static_cast<char>(table.driverByte);
    int offset = 1;
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
        const HandField& field = table.fields[i];
        const int at = 32 + 32 * static_cast<int>(i);
        // Blank padding in names, as some writers do; the reader turns it into NULs.
        bytes.replace(at, 11, QByteArray(field.name).leftJustified(11, ' '));
        bytes[at + 11] = field.type;
        PutU32(bytes, at + 12, table.zeroOffsets ? 0 : offset);
        bytes[at + 16] = static_cast<char>(field.length & 0xFF);
        bytes[at + 17] = static_cast<char>(field.length > 255 ? field.length >> 8 : field.decimals);
        bytes[at + 18] = static_cast<char>(field.flags);
        offset += field.length;
    }
    bytes[32 + 32 * static_cast<int>(table.fields.size())] = table.terminator;
    for (std::size_t r = 0; r < table.records.size(); ++r) {
        const bool isDeleted = r < table.deleted.size() && table.deleted[r];
        bytes.append(isDeleted ? '*' : ' ');
        bytes.append(table.records[r].leftJustified(recordLength - 1, ' ', true));
    }
    return bytes + table.trailer;
}

QByteArray HandBuiltTable(std::uint8_t version, const std::vector<HandField>& fields,
                          const std::vector<QByteArray>& records, bool endOfFileByte,
                          const std::vector<bool>& deleted, int declared) {
    HandTable table;
    table.version = version;
    table.fields = fields;
    table.records = records;
    table.deleted = deleted;
    table.declared = declared;
    if (endOfFileByte) table.trailer = "\x1A";
    return BuildTable(table);
}

} // namespace zlx::test
