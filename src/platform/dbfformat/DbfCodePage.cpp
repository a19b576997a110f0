#include "platform/dbfformat/DbfCodePage.h"

#include "platform/dbfformat/Cp1252.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <map>

namespace zlx {

namespace {

struct DriverMark {
    std::uint8_t mark;
    int codePage;
};

// Language-driver bytes as dBASE, FoxPro and Visual FoxPro write them.
constexpr DriverMark kDriverMarks[] = {
    {0x01, 437},  {0x02, 850},   {0x03, 1252},  {0x04, 10000}, {0x08, 865},  {0x09, 437},
    {0x0A, 850},  {0x0B, 437},   {0x0D, 437},   {0x0E, 850},   {0x0F, 437},  {0x10, 850},
    {0x11, 437},  {0x12, 850},   {0x13, 932},   {0x14, 850},   {0x15, 437},  {0x16, 850},
    {0x17, 865},  {0x18, 437},   {0x19, 437},   {0x1A, 850},   {0x1B, 437},  {0x1C, 863},
    {0x1D, 850},  {0x1F, 852},   {0x22, 852},   {0x23, 852},   {0x24, 860},  {0x25, 850},
    {0x26, 866},  {0x37, 850},   {0x40, 852},   {0x4D, 936},   {0x4E, 949},  {0x4F, 950},
    {0x50, 874},  {0x57, 1252},  {0x58, 1252},  {0x59, 1252},  {0x64, 852},  {0x65, 866},
    {0x66, 865},  {0x67, 861},   {0x68, 895},   {0x69, 620},   {0x6A, 737},  {0x6B, 857},
    {0x78, 950},  {0x79, 949},   {0x7A, 936},   {0x7B, 932},   {0x7C, 874},  {0x7D, 1255},
    {0x7E, 1256}, {0x96, 10007}, {0x97, 10029}, {0x98, 10006}, {0xC8, 1250}, {0xC9, 1251},
    {0xCA, 1254}, {0xCB, 1253},  {0xCC, 1257}};

bool IsMultiByte(int number) {
    return number == 932 || number == 936 || number == 949 || number == 950;
}

// The converter name Qt (ICU) knows the page by.
QByteArray ConverterName(int number) {
    static const std::map<int, const char*> kNames = {
        {932, "Shift_JIS"},        {936, "GBK"},
        {949, "windows-949"},      {950, "Big5"},
        {10000, "macintosh"},      {10006, "x-mac-greek"},
        {10007, "x-mac-cyrillic"}, {10029, "x-mac-centraleurroman"}};
    if (const auto known = kNames.find(number); known != kNames.end()) return known->second;
    if (number >= 1250 && number <= 1258) return "windows-" + QByteArray::number(number);
    if (number == 874) return "windows-874";
    return "IBM" + QByteArray::number(number);
}

} // namespace

int DbfCodePage::NumberOfDriverByte(std::uint8_t mark) {
    for (const DriverMark& known : kDriverMarks) {
        if (known.mark == mark) return known.codePage;
    }
    return 0;
}

std::optional<DbfCodePage> DbfCodePage::FromNumber(int number) {
    if (number == kWindowsAnsi) return DbfCodePage();
    DbfCodePage page;
    page.m_number = number;
    const QByteArray name = ConverterName(number);
    if (!QStringDecoder(name.constData()).isValid()) return std::nullopt;
    if (IsMultiByte(number)) {
        page.m_converterName = name;
        return page;
    }
    auto characters = std::make_shared<std::array<char16_t, 256>>();
    for (int byte = 0; byte < 256; ++byte) {
        QStringDecoder decoder(name.constData());
        const QString one = decoder(QByteArray(1, static_cast<char>(byte)));
        (*characters)[static_cast<std::size_t>(byte)] =
            one.size() == 1 ? one.at(0).unicode() : char16_t(0xFFFD);
    }
    page.m_characters = std::move(characters);
    return page;
}

QString DbfCodePage::Decode(const char* bytes, std::size_t size) const {
    QString text;
    DecodeInto(bytes, size, text);
    return text;
}

void DbfCodePage::DecodeInto(const char* bytes, std::size_t size, QString& text) const {
    if (!DecodesByteForByte()) {
        QStringDecoder decoder(m_converterName.constData());
        text = decoder(QByteArrayView(bytes, static_cast<qsizetype>(size)));
        return;
    }
    text.resize(static_cast<qsizetype>(size));
    DecodeBytes(bytes, size, reinterpret_cast<char16_t*>(text.data()));
}

void DbfCodePage::DecodeBytes(const char* bytes, std::size_t size, char16_t* out) const {
    if (!m_characters) {
        Cp1252::DecodeTo(bytes, size, out);
        return;
    }
    const std::array<char16_t, 256>& characters = *m_characters;
    for (std::size_t i = 0; i < size; ++i)
        out[i] = characters[static_cast<unsigned char>(bytes[i])];
}

QByteArray DbfCodePage::Encode(const QString& text) const {
    if (m_characters) {
        QByteArray bytes(text.size(), '?');
        for (qsizetype i = 0; i < text.size(); ++i) {
            for (std::size_t byte = 0; byte < m_characters->size(); ++byte) {
                if ((*m_characters)[byte] == text[i].unicode()) {
                    bytes[i] = static_cast<char>(byte);
                    break;
                }
            }
        }
        return bytes;
    }
    if (!m_converterName.isEmpty()) {
        QStringEncoder encoder(m_converterName.constData());
        return encoder(text);
    }
    return Cp1252::Encode(text);
}

} // namespace zlx
