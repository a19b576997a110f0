#include "DbfForeignShapes.h"

#include "DbfTestFiles.h"

#include <QDate>
#include <bit>
#include <cstdint>
#include <stdexcept>

namespace zlx::test {

namespace {

QByteArray Le(std::uint64_t value, int size) {
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return bytes;
}

QByteArray Be(std::uint32_t value, int size) {
    QByteArray bytes;
    for (int i = size - 1; i >= 0; --i)
        bytes.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return bytes;
}

QByteArray Raw(const char* bytes, int size) {
    return QByteArray(bytes, size);
}

QByteArray Block(const QByteArray& content, int size) {
    return content + QByteArray(size - static_cast<int>(content.size()), '\0');
}

constexpr int kVisualFoxProBacklink = 263;

ForeignShape LowerCaseNames() {
    HandTable t;
    t.fields = {{"code", 'C', 4}, {"Amount", 'N', 8, 2}};
    t.records = {QByteArray("ab  ") + "   12.50"};
    return {"lowercase", BuildTable(t), {}, "", R"(
 ["ab  ", "12.5000"])"};
}

ForeignShape VisualFoxPro() {
    HandTable t;
    t.version = 0x30;
    t.driverByte = 0x03;
    t.backlink = kVisualFoxProBacklink;
    t.fields = {{"NAME", 'C', 6},          {"QTY", 'I', 4},
                {"PRICE", 'Y', 8, 4},      {"STAMP", 'T', 8},
                {"RATIO", 'B', 8},         {"NOTE", 'V', 10, 0, 0x02},
                {"DISC", 'N', 5, 2, 0x02}, {"_NullFlags", '0', 1, 0, 0x05}};
    const auto day = static_cast<std::uint64_t>(QDate(2023, 2, 24).toJulianDay());
    const std::uint64_t milliseconds = ((12 * 60 + 34) * 60 + 56) * 1000 + 789;
    t.records = {
        QByteArray("Pe") + "\xF1" + "a  " + Le(static_cast<std::uint32_t>(-42), 4) + Le(123456, 8) +
            Le(day, 4) + Le(milliseconds, 4) + Le(std::bit_cast<std::uint64_t>(0.5), 8) + "hola" +
            QByteArray(5, '\0') + '\x04' + " 1.25" + '\x01',
        QByteArray(6, ' ') + QByteArray(28, '\0') + QByteArray(10, ' ') + "     " + '\x06'};
    return {"visualfoxpro", BuildTable(t), {}, "", R"(
 ["Peña  ", -42, "12.3456", "2023-02-24 12:34:57", 0.5, "hola", "1.2500"],
 ["      ", 0, "0.0000", null, 0, null, null])"};
}

ForeignShape LineFeedTerminator() {
    HandTable t;
    t.terminator = 0x0A;
    t.backlink = 64; // a header longer than its descriptors
    t.fields = {{"A", 'C', 3}, {"B", 'N', 4}};
    t.records = {QByteArray("xyz") + "  17"};
    return {"linefeed", BuildTable(t), {}, "", R"(
 ["xyz", 17])"};
}

ForeignShape NoOffsetsWrongRecordLength() {
    HandTable t;
    t.zeroOffsets = true;
    t.declaredRecordLength = 40;
    t.fields = {{"CODE", 'C', 4}, {"TOTAL", 'N', 8, 2}, {"WHEN", 'D', 8}};
    t.records = {QByteArray("A1  ") + "   -3.25" + "20240131",
                 QByteArray("B2  ") + "  100.00" + "19991231"};
    return {"nooffsets", BuildTable(t), {}, "", R"(
 ["A1  ", "-3.2500", "2024-01-31"],
 ["B2  ", "100.0000", "1999-12-31"])"};
}

ForeignShape JunkAfterRecords() {
    HandTable t;
    t.fields = {{"CODE", 'C', 4}, {"N", 'N', 3}};
    t.records = {QByteArray("AAAA") + "  1", QByteArray("BBBB") + "  2"};
    t.trailer = QByteArray("\x1A") + "JUNK after the table\r\n";
    return {"junk", BuildTable(t), {}, "", R"(
 ["AAAA", 1],
 ["BBBB", 2])"};
}

ForeignShape LongCharacterField() {
    HandTable t;
    t.version = 0xF5;
    t.fields = {{"TEXT", 'C', 300}, {"N", 'N', 3}};
    const QByteArray text = "Largo " + QByteArray(280, 'x') + "fin";
    t.records = {text.leftJustified(300, ' ') + "  7"};
    return {"longchar", BuildTable(t), {}, "", "\n [\"" + text.leftJustified(300, ' ') + "\", 7]"};
}

ForeignShape NulPadding() {
    HandTable t;
    t.fields = {
        {"QTY", 'N', 6}, {"PRICE", 'N', 6, 2}, {"D1", 'D', 8}, {"D2", 'D', 8}, {"D3", 'D', 8}};
    t.records = {Raw("\0\0\0\0"
                     "42",
                     6) +
                 Raw("\0\0"
                     "3.50",
                     6) +
                 QByteArray(8, ' ') + QByteArray(8, '\0') + "20240229"};
    return {"nulpadded", BuildTable(t), {}, "", R"(
 [42, "3.5000", null, null, "2024-02-29"])"};
}

ForeignShape DbaseThreeMemo() {
    HandTable t;
    t.version = 0x83;
    t.fields = {{"NAME", 'C', 4}, {"NOTES", 'M', 10}};
    t.records = {QByteArray("uno ") + "         1", QByteArray("dos ") + "          "};
    const QByteArray memo =
        Block(Le(2, 4), 512) +
        Block(QByteArray("Texto de a") + "\xF1" + "o\r\nsegunda l" + "\xED" + "nea\x1A\x1A", 512);
    return {"dbase3memo", BuildTable(t), memo, "dbt", R"(
 ["uno ", "Texto de año\r\nsegunda línea"],
 ["dos ", ""])"};
}

ForeignShape DbaseFourMemo() {
    HandTable t;
    t.version = 0x8B;
    t.fields = {{"NAME", 'C', 4}, {"NOTES", 'M', 10}};
    t.records = {QByteArray("uno ") + "         1"};
    const QByteArray text = "Nota de dBASE IV";
    const QByteArray header = Le(2, 4) + QByteArray(16, '\0') + Le(512, 2);
    const QByteArray memo =
        Block(header, 512) + Block(Raw("\xFF\xFF\x08\x00", 4) + Le(8 + text.size(), 4) + text, 512);
    return {"dbase4memo", BuildTable(t), memo, "dbt", R"(
 ["uno ", "Nota de dBASE IV"])"};
}

// A FoxPro memo file of 64-byte blocks whose blocks 8 and 9 hold these memos.
QByteArray FoxProMemoFile(std::uint32_t firstType, const QByteArray& first,
                          std::uint32_t secondType, const QByteArray& second) {
    return Block(Be(10, 4) + QByteArray(2, '\0') + Be(64, 2), 512) +
           Block(Be(firstType, 4) + Be(first.size(), 4) + first, 64) +
           Block(Be(secondType, 4) + Be(second.size(), 4) + second, 64);
}

ForeignShape FoxProMemo() {
    HandTable t;
    t.version = 0xF5;
    t.fields = {{"NAME", 'C', 4}, {"NOTES", 'M', 10}, {"PIC", 'G', 10}};
    t.records = {QByteArray("uno ") + "         8" + "         9"};
    const QByteArray memo =
        FoxProMemoFile(1, QByteArray("L") + "\xED" + "nea uno\r\nL" + "\xED" + "nea dos", 0,
                       Raw("\x01\x02\xFF", 3));
    return {"foxpromemo", BuildTable(t), memo, "fpt", R"(
 ["uno ", "Línea uno\r\nLínea dos", [1, 2, 255]])"};
}

ForeignShape VisualFoxProMemo() {
    HandTable t;
    t.version = 0x30;
    t.backlink = kVisualFoxProBacklink;
    t.fields = {{"NOTES", 'M', 4}, {"BLOB", 'M', 4, 0, 0x04}};
    t.records = {Le(8, 4) + Le(9, 4)};
    const QByteArray memo = FoxProMemoFile(1, "Memo de Visual FoxPro", 1, Raw("\x00\x10\x20", 3));
    return {"vfpmemo", BuildTable(t), memo, "FPT", R"(
 ["Memo de Visual FoxPro", [0, 16, 32]])"};
}

ForeignShape CodePage(const char* name, std::uint8_t driverByte, const QByteArray& bytes,
                      const char* text) {
    HandTable t;
    t.driverByte = driverByte;
    t.fields = {{"TEXTO", 'C', static_cast<std::uint16_t>(bytes.size())}};
    t.records = {bytes};
    return {name, BuildTable(t), {}, "", QByteArray("\n [\"") + text + "\"]"};
}

} // namespace

std::vector<ForeignShape> ForeignShapes() {
    return {LowerCaseNames(),
            VisualFoxPro(),
            LineFeedTerminator(),
            NoOffsetsWrongRecordLength(),
            JunkAfterRecords(),
            LongCharacterField(),
            NulPadding(),
            DbaseThreeMemo(),
            DbaseFourMemo(),
            FoxProMemo(),
            VisualFoxProMemo(),
            CodePage("cp437", 0x01, QByteArray("A") + "\xA4" + "o", "Año"),
            CodePage("cp850", 0x02, QByteArray("\xA5") + "and" + "\xA3", "Ñandú"),
            CodePage("cp852", 0x64, QByteArray("\x9D\xA2") + "d" + "\xAB", "Łódź"),
            CodePage("cp866", 0x65, QByteArray("\x8C\xA8\xE0"), "Мир"),
            CodePage("cp1250", 0xC8, QByteArray("\xA3\xF3") + "d" + "\x9F", "Łódź"),
            CodePage("cp1251", 0xC9, QByteArray("\xCC\xE8\xF0"), "Мир"),
            CodePage("cp1252", 0x03, QByteArray("Pe") + "\xF1" + "a \x80", "Peña €"),
            CodePage("cp936", 0x7A, QByteArray("\xD6\xD0\xCE\xC4"), "中文")};
}

const ForeignShape& ForeignShapeNamed(const char* name) {
    static const std::vector<ForeignShape> shapes = ForeignShapes();
    for (const ForeignShape& shape : shapes) {
        if (QByteArray(shape.name) == name) return shape;
    }
    throw std::invalid_argument(name);
}

QString WriteShape(const ForeignShape& shape) {
    const QString path = ScratchPath(QString::fromLatin1(shape.name) + QStringLiteral(".dbf"));
    WriteAll(path, shape.table);
    if (!shape.memo.isEmpty())
        WriteAll(path.chopped(3) + QString::fromLatin1(shape.memoExtension), shape.memo);
    return path;
}

} // namespace zlx::test
