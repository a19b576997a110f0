#pragma once
// Helpers for DBF tests: a scratch folder, whole-file reads and writes, hand-built tables.

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <vector>

namespace zlx::test {

struct HandField {
    const char* name;
    char type;
    std::uint16_t length; // a character field past 255 keeps the high byte in the decimals byte
    std::uint8_t decimals = 0;
    std::uint8_t flags = 0; // Visual FoxPro: 0x01 system, 0x02 nullable, 0x04 binary
};

// A table as some program writes it, byte by byte.
struct HandTable {
    std::uint8_t version = 0x03;
    std::uint8_t driverByte = 0;
    std::vector<HandField> fields;
    std::vector<QByteArray> records; // the bytes after the deletion flag, blank-padded
    std::vector<bool> deleted;
    int declared = -1; // the header's record count (-1: the number of records)
    int backlink = 0;  // bytes after the terminator (Visual FoxPro: 263)
    char terminator = 0x0D;
    bool zeroOffsets = false;      // descriptors without field offsets
    int declaredRecordLength = -1; // the header's record length (-1: the fields' sum)
    QByteArray trailer;            // bytes after the last record (0x1A, junk)
};
QByteArray BuildTable(const HandTable& table);

// A fresh path in the test scratch folder (the file does not exist).
QString ScratchPath(const QString& fileName);
QByteArray ReadAll(const QString& path);
void WriteAll(const QString& path, const QByteArray& bytes);

// The bytes of a table as other programs write it: `records` are the record bytes after the
// deletion flag; `deleted` marks which carry '*'. The header's record count is `declared`
// (the number of records when negative).
QByteArray HandBuiltTable(std::uint8_t version, const std::vector<HandField>& fields,
                          const std::vector<QByteArray>& records, bool endOfFileByte,
                          const std::vector<bool>& deleted = {}, int declared = -1);

void PutU16(QByteArray& bytes, int at, std::uint32_t value);
void PutU32(QByteArray& bytes, int at, std::uint32_t value);

} // namespace zlx::test
