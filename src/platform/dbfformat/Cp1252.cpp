#include "platform/dbfformat/Cp1252.h"

#include <array>

namespace zlx::Cp1252 {

namespace {

// Characters of bytes 0x80..0x9F; 0 marks the five bytes the code page leaves undefined.
constexpr std::array<char16_t, 32> kHighControlRange = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char16_t CharOf(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F && kHighControlRange[byte - 0x80] != 0)
        return kHighControlRange[byte - 0x80];
    return byte;
}

// The character of every byte, for decoding by lookup.
constexpr std::array<char16_t, 256> kCharacters = [] {
    std::array<char16_t, 256> characters{};
    for (std::size_t byte = 0; byte < characters.size(); ++byte)
        characters[byte] = CharOf(static_cast<unsigned char>(byte));
    return characters;
}();

char ByteOf(char16_t ch) {
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<char>(ch);
    for (std::size_t i = 0; i < kHighControlRange.size(); ++i) {
        if (kHighControlRange[i] == ch) return static_cast<char>(0x80 + i);
    }
    return '?';
}

} // namespace

QString Decode(const char* bytes, std::size_t size) {
    QString text;
    DecodeInto(bytes, size, text);
    return text;
}

void DecodeInto(const char* bytes, std::size_t size, QString& text) {
    text.resize(static_cast<qsizetype>(size));
    DecodeTo(bytes, size, reinterpret_cast<char16_t*>(text.data()));
}

void DecodeTo(const char* bytes, std::size_t size, char16_t* out) {
    // Every byte outside 0x80..0x9F is its own Latin-1 character: a text without those bytes
    // (nearly every text) is widened in one pass the compiler vectorises, without lookups.
    bool remapped = false;
    for (std::size_t i = 0; i < size; ++i)
        remapped |= static_cast<unsigned char>(static_cast<unsigned char>(bytes[i]) - 0x80) < 0x20;
    if (!remapped) {
        for (std::size_t i = 0; i < size; ++i)
            out[i] = static_cast<unsigned char>(bytes[i]);
        return;
    }
    for (std::size_t i = 0; i < size; ++i)
        out[i] = kCharacters[static_cast<unsigned char>(bytes[i])];
}

QByteArray Encode(const QString& text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        bytes[i] = ByteOf(text[i].unicode());
    return bytes;
}

} // namespace zlx::Cp1252
