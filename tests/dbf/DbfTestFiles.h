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
    std::uint8_t length;
    std::uint8_t decimals = 0;
};

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
