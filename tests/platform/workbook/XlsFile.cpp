#include "XlsFile.h"

#include <QFile>
#include <QtEndian>
#include <cstring>
#include <stdexcept>

namespace zlx::test {

namespace {

constexpr quint16 kBof = 0x0809, kEof = 0x000A, kBoundSheet = 0x0085, kSst = 0x00FC, kXf = 0x00E0,
                  kDimensions = 0x0200, kLabelSst = 0x00FD, kNumber = 0x0203;
constexpr quint16 kDateStyle = 1; // the second XF below shows format 14 (a date)
constexpr int kSector = 512;
constexpr quint32 kEndOfChain = 0xFFFFFFFE, kFree = 0xFFFFFFFF, kFatSector = 0xFFFFFFFD;

void Put16(QByteArray& out, quint16 value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}

void Put32(QByteArray& out, quint32 value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void PutDouble(QByteArray& out, double value) {
    quint64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    char bytes[8];
    qToLittleEndian(bits, bytes);
    out.append(bytes, 8);
}

QByteArray Record(quint16 type, const QByteArray& body) {
    QByteArray out;
    Put16(out, type);
    Put16(out, static_cast<quint16>(body.size()));
    return out + body;
}

QByteArray Bof(quint16 kind) {
    QByteArray body;
    Put16(body, 0x0600); // BIFF8
    Put16(body, kind);
    Put16(body, 0x0DBB);
    Put16(body, 0x07CC);
    Put32(body, 0);
    Put32(body, 0x06);
    return Record(kBof, body);
}

// A cell style: font 0, number format `format`.
QByteArray Xf(quint16 format) {
    QByteArray body;
    Put16(body, 0);
    Put16(body, format);
    Put16(body, 0x0001); // locked
    body.append(14, '\0');
    return Record(kXf, body);
}

QByteArray Latin1String(const QString& text, bool shortLength) {
    QByteArray out;
    if (shortLength)
        out.append(char(text.size()));
    else
        Put16(out, static_cast<quint16>(text.size()));
    out.append('\0'); // 8-bit characters
    return out + text.toLatin1();
}

QByteArray CellHeader(int row, int column, quint16 style) {
    QByteArray body;
    Put16(body, static_cast<quint16>(row));
    Put16(body, static_cast<quint16>(column));
    Put16(body, style);
    return body;
}

// One stream in a compound file of version 3: the FAT in sector 0, the directory in
// sector 1, the stream from sector 2 on (at least 4096 bytes, so no mini stream is needed).
QByteArray CompoundFile(QByteArray stream) {
    const qsizetype size = std::max<qsizetype>(stream.size(), 4096);
    stream.append(size - stream.size(), '\0');
    stream.append((kSector - stream.size() % kSector) % kSector, '\0');
    const quint32 streamSectors = static_cast<quint32>(stream.size() / kSector);
    QByteArray header;
    header.append(QByteArray::fromHex("d0cf11e0a1b11ae1"));
    header.append(16, '\0');
    Put16(header, 0x003E);
    Put16(header, 0x0003);
    Put16(header, 0xFFFE);
    Put16(header, 9);
    Put16(header, 6);
    header.append(6, '\0');
    Put32(header, 0); // directory sectors (version 3: 0)
    Put32(header, 1); // FAT sectors
    Put32(header, 1); // first directory sector
    Put32(header, 0);
    Put32(header, 4096);        // mini stream cutoff
    Put32(header, kEndOfChain); // no mini FAT
    Put32(header, 0);
    Put32(header, kEndOfChain); // no DIFAT sectors
    Put32(header, 0);
    Put32(header, 0); // DIFAT[0]: the FAT is sector 0
    for (int i = 1; i < 109; ++i)
        Put32(header, kFree);
    QByteArray fat;
    Put32(fat, kFatSector);
    Put32(fat, kEndOfChain);
    for (quint32 i = 0; i < streamSectors; ++i)
        Put32(fat, i + 1 < streamSectors ? i + 3 : kEndOfChain);
    fat.append(kSector - fat.size(), '\xFF');
    const auto entry = [](const QString& name, quint8 type, quint32 child, quint32 start,
                          quint32 length) {
        QByteArray out;
        for (const QChar c : name)
            Put16(out, c.unicode());
        out.append(64 - out.size(), '\0');
        Put16(out, name.isEmpty() ? 0 : static_cast<quint16>((name.size() + 1) * 2));
        out.append(char(type));
        out.append(char(1)); // black
        Put32(out, kFree);   // left sibling
        Put32(out, kFree);   // right sibling
        Put32(out, child);
        out.append(16 + 4 + 16, '\0'); // class id, state bits, times
        Put32(out, start);
        Put32(out, length);
        Put32(out, 0);
        return out;
    };
    QByteArray directory =
        entry(QStringLiteral("Root Entry"), 5, 1, kEndOfChain, 0) +
        entry(QStringLiteral("Workbook"), 2, kFree, 2, static_cast<quint32>(size)) +
        entry(QString(), 0, kFree, 0, 0) + entry(QString(), 0, kFree, 0, 0);
    return header + fat + directory + stream;
}

} // namespace

void XlsSheet::Extend(int row, int column) {
    m_rows = std::max(m_rows, row + 1);
    m_columns = std::max(m_columns, column + 1);
}

XlsSheet& XlsSheet::Text(int row, int column, const QString& text) {
    Extend(row, column);
    qsizetype index = m_strings.indexOf(text);
    if (index < 0) {
        index = m_strings.size();
        m_strings << text;
    }
    QByteArray body = CellHeader(row, column, 0);
    Put32(body, static_cast<quint32>(index));
    m_cells += Record(kLabelSst, body);
    return *this;
}

XlsSheet& XlsSheet::Number(int row, int column, double value) {
    Extend(row, column);
    QByteArray body = CellHeader(row, column, 0);
    PutDouble(body, value);
    m_cells += Record(kNumber, body);
    return *this;
}

XlsSheet& XlsSheet::Date(int row, int column, double serial) {
    Extend(row, column);
    QByteArray body = CellHeader(row, column, kDateStyle);
    PutDouble(body, serial);
    m_cells += Record(kNumber, body);
    return *this;
}

QByteArray XlsSheet::Stream() const {
    QByteArray dimensions;
    Put32(dimensions, 0);
    Put32(dimensions, static_cast<quint32>(m_rows));
    Put16(dimensions, 0);
    Put16(dimensions, static_cast<quint16>(m_columns));
    Put16(dimensions, 0);
    return Bof(0x0010) + Record(kDimensions, dimensions) + m_cells + Record(kEof, {});
}

QByteArray XlsFile::WorkbookStream() const {
    QByteArray sst;
    Put32(sst, static_cast<quint32>(m_strings.size()));
    Put32(sst, static_cast<quint32>(m_strings.size()));
    for (const QString& text : m_strings)
        sst += Latin1String(text, false);
    QByteArray globals = Bof(0x0005) + Xf(0) + Xf(14);
    // Each BOUNDSHEET names where its sheet's substream starts: after the globals.
    qsizetype boundSheetsSize = 0;
    for (const XlsSheet& sheet : m_sheets)
        boundSheetsSize += 4 + 6 + 2 + sheet.Name().size();
    const QByteArray tail = Record(kSst, sst) + Record(kEof, {});
    quint32 offset = static_cast<quint32>(globals.size() + boundSheetsSize + tail.size());
    QByteArray sheets;
    for (const XlsSheet& sheet : m_sheets) {
        QByteArray body;
        Put32(body, offset);
        body.append('\0');
        body.append('\0');
        body += Latin1String(sheet.Name(), true);
        globals += Record(kBoundSheet, body);
        const QByteArray stream = sheet.Stream();
        sheets += stream;
        offset += static_cast<quint32>(stream.size());
    }
    return globals + tail + sheets;
}

void XlsFile::Save(const QString& path) const {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(CompoundFile(WorkbookStream())) < 0)
        throw std::runtime_error("the test .xls could not be written");
}

} // namespace zlx::test
