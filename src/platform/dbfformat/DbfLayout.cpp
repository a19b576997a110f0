#include "platform/dbfformat/DbfLayout.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace zlx {

namespace {

constexpr std::uint8_t kHeaderTerminator = 0x0D;
constexpr std::uint8_t kOddHeaderTerminator = 0x0A; // a few writers end the list with LF
constexpr std::uint8_t kVersionWithoutMemo = 0x03;
constexpr std::uint8_t kCodePageWindowsAnsi = 0x03;
constexpr std::uint8_t kSystemFieldFlag = 0x01;
constexpr std::uint8_t kNullableFieldFlag = 0x02;
constexpr std::uint8_t kBinaryFieldFlag = 0x04;

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

bool IsVisualFoxPro(std::uint8_t version) {
    return version == 0x30 || version == 0x31 || version == 0x32;
}

// The versions whose header and 32-byte descriptors this reader knows; others are refused.
std::optional<DbfMemoStyle> MemoStyleOfVersion(std::uint8_t version) {
    switch (version) {
    case 0x03: // dBASE III, IV, FoxPro, without memo
    case 0x43: // dBASE IV SQL table
    case 0x63: // dBASE IV SQL system table
        return DbfMemoStyle::EitherOne;
    case 0x83: // dBASE III with memo
    case 0x8B: // dBASE IV with memo
    case 0xCB: // dBASE IV SQL table with memo
        return DbfMemoStyle::Dbt;
    case 0xF5: // FoxPro 2 with memo
    case 0xFB: // FoxBASE with memo
    case 0x30: // Visual FoxPro
    case 0x31: // Visual FoxPro with autoincrement
    case 0x32: // Visual FoxPro with varchar or varbinary
        return DbfMemoStyle::Fpt;
    default:
        return std::nullopt;
    }
}

QString VersionRefusal(std::uint8_t version) {
    const QString hex = QString::asprintf("0x%02X", version);
    QString name;
    if (version == 0x02) name = QStringLiteral("dBASE II");
    if (version == 0x04 || version == 0x8C) name = QStringLiteral("dBASE 7");
    if (name.isEmpty())
        return QStringLiteral("No puede leerse el fichero DBF: su versión (") + hex +
               QStringLiteral(") es desconocida.");
    return QStringLiteral("No puede leerse el fichero DBF: es de la versión ") + name +
           QStringLiteral(" (") + hex + QStringLiteral("), que no se admite.");
}

QString RecordLengthRefusal(std::uint32_t fieldsLength, std::uint32_t declared) {
    return QStringLiteral("No puede leerse el fichero DBF: sus campos ocupan ") +
           QString::number(fieldsLength) +
           QStringLiteral(" bytes por registro y la cabecera declara ") +
           QString::number(declared) + QStringLiteral(".");
}

DbfField FieldOfDescriptor(const std::uint8_t* raw) {
    DbfField field;
    std::transform(raw, raw + 11, field.rawName.begin(),
                   [](std::uint8_t c) { return c == ' ' ? '\0' : static_cast<char>(c); });
    field.name =
        QByteArray(field.rawName.data(), static_cast<qsizetype>(strnlen(field.rawName.data(), 11)));
    field.type = static_cast<char>(raw[11]);
    field.offset = ReadU32(raw + 12);
    field.storedLength = raw[16];
    field.decimals = raw[17];
    field.length = raw[16];
    // FoxPro and Clipper keep the high byte of a long character field's length in the
    // decimals byte.
    if (field.type == 'C') field.length += static_cast<std::uint32_t>(raw[17]) << 8;
    field.binary = (raw[18] & kBinaryFieldFlag) != 0;
    return field;
}

// Whether the records take exactly `recordLength` bytes each (an end byte allowed).
bool FileSizeAgrees(std::uint64_t fileSize, std::uint16_t headerLength, std::uint32_t records,
                    std::uint32_t recordLength) {
    const std::uint64_t data = std::uint64_t{records} * recordLength;
    return fileSize == headerLength + data || fileSize == headerLength + data + 1;
}

// Stored offsets are used when every field lies inside the record; otherwise (zeros, or the
// memory addresses early writers left there) the fields follow one another from byte 1.
void PlaceFields(std::vector<DbfField>& fields, std::uint32_t recordLength) {
    const bool storedFit = std::all_of(fields.begin(), fields.end(), [&](const DbfField& f) {
        return f.offset >= 1 && std::uint64_t{f.offset} + f.length <= recordLength;
    });
    std::uint32_t running = 1;
    for (DbfField& field : fields) {
        if (!storedFit) field.offset = running;
        running += field.length;
    }
}

// Visual FoxPro's null and variable-length bits, in field order.
void NumberNullBits(std::vector<DbfField>& fields, const std::vector<std::uint8_t>& flags) {
    int bit = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].type == 'V' || fields[i].type == 'Q') fields[i].varLengthBit = bit++;
        if (flags[i] & kNullableFieldFlag) fields[i].nullBit = bit++;
    }
}

} // namespace

std::uint32_t DbfLayout::RecordCount() const {
    return ReadU32(&header[4]);
}
void DbfLayout::SetRecordCount(std::uint32_t count) {
    WriteU32(&header[4], count);
}
std::uint16_t DbfLayout::HeaderLength() const {
    return ReadU16(&header[8]);
}

bool DbfLayout::IsMemo(const DbfField& field) const {
    switch (field.type) {
    case 'M':
    case 'G':
    case 'P':
    case 'W':
        return true;
    case 'B':
        return !visualFoxPro; // dBASE's binary memo; Visual FoxPro's double
    default:
        return false;
    }
}

std::optional<DbfLayout> DbfLayout::Read(const DbfFile& file, QString& refusal) {
    refusal.clear();
    DbfLayout layout;
    if (file.ReadAt(0, layout.header.data(), kHeaderSize) < kHeaderSize) return std::nullopt;
    const std::optional<DbfMemoStyle> memoStyle = MemoStyleOfVersion(layout.Version());
    if (!memoStyle) {
        refusal = VersionRefusal(layout.Version());
        return std::nullopt;
    }
    layout.visualFoxPro = IsVisualFoxPro(layout.Version());
    const std::size_t areaSize =
        layout.HeaderLength() > kHeaderSize ? layout.HeaderLength() - kHeaderSize : 0;
    std::vector<std::uint8_t> area(areaSize);
    if (file.ReadAt(kHeaderSize, area.data(), area.size()) < area.size()) return std::nullopt;

    std::vector<DbfField> all;
    std::vector<std::uint8_t> flags;
    for (std::size_t at = 0; at + kDescriptorSize <= area.size(); at += kDescriptorSize) {
        if (area[at] == kHeaderTerminator || area[at] == kOddHeaderTerminator) break;
        all.push_back(FieldOfDescriptor(&area[at]));
        flags.push_back(area[at + 18]);
    }
    const std::uint32_t fieldsLength =
        std::accumulate(all.begin(), all.end(), std::uint32_t{1},
                        [](std::uint32_t sum, const DbfField& f) { return sum + f.length; });
    // A declared record length that disagrees with the fields gives way to their sum when
    // the file's size bears the sum out; a longer one may be padding, a shorter one is damage.
    const std::uint32_t declared = ReadU16(&layout.header[10]);
    if (declared == fieldsLength ||
        FileSizeAgrees(file.Size(), layout.HeaderLength(), layout.RecordCount(), fieldsLength)) {
        layout.recordLength = fieldsLength;
    } else if (declared > fieldsLength) {
        layout.recordLength = declared;
    } else {
        refusal = RecordLengthRefusal(fieldsLength, declared);
        return std::nullopt;
    }
    PlaceFields(all, layout.recordLength);
    if (layout.visualFoxPro) NumberNullBits(all, flags);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (layout.visualFoxPro && (flags[i] & kSystemFieldFlag)) {
            if (all[i].name.compare("_NullFlags", Qt::CaseInsensitive) == 0)
                layout.nullFlags = all[i];
            continue;
        }
        layout.fields.push_back(all[i]);
    }
    const bool hasMemo = std::any_of(layout.fields.begin(), layout.fields.end(),
                                     [&](const DbfField& f) { return layout.IsMemo(f); });
    layout.memoStyle = hasMemo ? *memoStyle : DbfMemoStyle::None;
    return layout;
}

QByteArray DbfLayout::NewHeader(const std::vector<DbfFieldDefinition>& fields, const QDate& today) {
    const std::size_t headerLength = kHeaderSize + kDescriptorSize * fields.size() + 1;
    std::vector<std::uint8_t> bytes(headerLength, 0);
    bytes[0] = kVersionWithoutMemo;
    bytes[1] = static_cast<std::uint8_t>(today.year() % 100);
    bytes[2] = static_cast<std::uint8_t>(today.month());
    bytes[3] = static_cast<std::uint8_t>(today.day());
    bytes[29] = kCodePageWindowsAnsi;
    std::uint32_t offset = 1;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::uint8_t* raw = &bytes[kHeaderSize + i * kDescriptorSize];
        std::memcpy(raw, fields[i].name.constData(),
                    std::min<std::size_t>(10, static_cast<std::size_t>(fields[i].name.size())));
        raw[11] = static_cast<std::uint8_t>(fields[i].type);
        WriteU32(raw + 12, offset);
        raw[16] = fields[i].length;
        raw[17] = fields[i].decimals;
        offset += fields[i].length;
    }
    bytes[headerLength - 1] = kHeaderTerminator;
    if (headerLength > 0xFFFF || offset > 0xFFFF) return {};
    WriteU16(&bytes[8], static_cast<std::uint32_t>(headerLength));
    WriteU16(&bytes[10], offset);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()),
                      static_cast<qsizetype>(bytes.size()));
}

} // namespace zlx
