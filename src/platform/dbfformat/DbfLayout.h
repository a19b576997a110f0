#pragma once
// The header and field descriptors of a DBF table. Written exactly as dBASE III writes them;
// read tolerantly from what other programs write: Visual FoxPro's longer header, lower-case
// names, descriptors without offsets, a record length that disagrees with the fields.

#include "platform/dbfformat/DbfFile.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace zlx {

struct DbfField {
    QByteArray name;                // the stored bytes up to the first NUL (blanks read as NULs)
    std::array<char, 11> rawName{}; // the 11 stored bytes, blanks turned into NULs
    char type = 'C';
    std::uint32_t offset = 0;      // from the record's first byte (the deletion flag)
    std::uint32_t length = 0;      // in bytes, character fields longer than 255 included
    std::uint8_t storedLength = 0; // descriptor byte 16
    std::uint8_t decimals = 0;     // descriptor byte 17
    bool binary = false;           // Visual FoxPro's "binary" flag: memo content read as bytes
    int nullBit = -1;              // bit of _NullFlags that marks the value Null
    int varLengthBit = -1;         // bit of _NullFlags set when the last byte holds the length
};

// A field of a new table, as the writer declares it.
struct DbfFieldDefinition {
    QByteArray name; // at most 10 bytes
    char type;
    std::uint8_t length;
    std::uint8_t decimals;
};

enum class DbfMemoStyle {
    None,     // no memo fields
    Dbt,      // dBASE III and IV (.dbt)
    Fpt,      // FoxPro and Visual FoxPro (.fpt)
    EitherOne // a version that should have none: whichever file lies beside it
};

class DbfLayout {
public:
    static constexpr std::size_t kHeaderSize = 32;
    static constexpr std::size_t kDescriptorSize = 32;

    // The layout of the open file. Nothing when the header or the descriptors cannot be
    // read; `refusal` then says why when the file is one this reader cannot read right (an
    // unknown version, a record too short for its fields), and stays empty when it is short.
    static std::optional<DbfLayout> Read(const DbfFile& file, QString& refusal);
    // The header and descriptors of a new, empty table, as written: version 3, today's date,
    // the Windows ANSI mark, offsets from 1, the 0x0D terminator. Empty when too large.
    static QByteArray NewHeader(const std::vector<DbfFieldDefinition>& fields, const QDate& today);

    std::uint8_t Version() const { return header[0]; }
    std::uint8_t DriverByte() const { return header[29]; }
    std::uint32_t RecordCount() const;
    void SetRecordCount(std::uint32_t count);
    std::uint16_t HeaderLength() const;
    std::uint64_t RecordPosition(std::uint32_t row) const {
        return HeaderLength() + std::uint64_t{row - 1} * recordLength;
    }
    // A memo field: its bytes hold a block number of the memo file.
    bool IsMemo(const DbfField& field) const;

    std::array<std::uint8_t, kHeaderSize> header{};
    std::vector<DbfField> fields;      // the fields a user sees, in order
    std::optional<DbfField> nullFlags; // Visual FoxPro's hidden _NullFlags field
    std::uint32_t recordLength = 0;    // deletion flag included
    bool visualFoxPro = false;
    DbfMemoStyle memoStyle = DbfMemoStyle::None;
};

} // namespace zlx
