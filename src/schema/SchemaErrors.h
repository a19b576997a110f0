#pragma once
// The ADO error numbers that schema management tells apart, and its error titles.

#include <QString>
#include <cstdint>

namespace zlx {

constexpr std::int32_t kErrDatabaseExists = static_cast<std::int32_t>(0x80040E17);
constexpr std::int32_t kErrNoSuchDatabase = static_cast<std::int32_t>(0x80040E37);
// A statement the provider could not run (a column that is already there, a syntax the
// engine lacks): the column operations pass over it and go on.
constexpr std::int32_t kErrStatement = static_cast<std::int32_t>(0x80040E14);

// The title of a method's error messages.
inline QString ErrorTitle(const char* method) {
    return QStringLiteral("Error en el método '") + QString::fromLatin1(method) + u'\'';
}

} // namespace zlx
