#pragma once
// The code page of a table's text: the one its language-driver byte names, or one the caller
// names. Windows-1252 (the page this library writes) keeps its own exact conversion; the
// others come from Qt's converters (ICU), single-byte pages through a table built once.

#include <QByteArray>
#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace zlx {

class DbfCodePage {
public:
    static constexpr int kWindowsAnsi = 1252;

    DbfCodePage() = default; // Windows-1252
    // The page numbered `number` (437, 850, 1251, 936 ...); nothing when it is not available.
    static std::optional<DbfCodePage> FromNumber(int number);
    // The page a header's language-driver byte (offset 29) names; 0 when it names none.
    static int NumberOfDriverByte(std::uint8_t mark);

    int Number() const { return m_number; }
    QString Decode(const char* bytes, std::size_t size) const;
    // Decodes into `text`, reusing its buffer when no other string shares it.
    void DecodeInto(const char* bytes, std::size_t size, QString& text) const;
    // True for the single-byte pages, one character for each byte: DecodeBytes reads them.
    bool DecodesByteForByte() const { return m_converterName.isEmpty(); }
    // Writes the `size` characters of `size` bytes of a single-byte page at `out`.
    void DecodeBytes(const char* bytes, std::size_t size, char16_t* out) const;
    // Characters the page cannot hold become '?'.
    QByteArray Encode(const QString& text) const;

private:
    int m_number = kWindowsAnsi;
    // Single-byte pages other than 1252: the character of every byte.
    std::shared_ptr<const std::array<char16_t, 256>> m_characters;
    // Multi-byte pages: the converter's name.
    QByteArray m_converterName;
};

} // namespace zlx
