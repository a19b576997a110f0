#pragma once
// Windows-1252 (Windows ANSI) text conversion for DBF records.

#include <QByteArray>
#include <QString>
#include <cstddef>

namespace zlx::Cp1252 {

// Decodes `size` bytes; bytes without a character in the code page keep their Latin-1 value.
QString Decode(const char* bytes, std::size_t size);
// Decodes into `text`, reusing its buffer when no other string shares it.
void DecodeInto(const char* bytes, std::size_t size, QString& text);
// Writes the `size` characters of `size` bytes at `out`.
void DecodeTo(const char* bytes, std::size_t size, char16_t* out);
// Encodes the text; characters outside the code page become '?'.
QByteArray Encode(const QString& text);

} // namespace zlx::Cp1252
