#pragma once
// Library-wide identity of the shared library.

#include <QString>

namespace zlx {

// The library's version, "major.minor.patch".
QString LibraryVersion();

} // namespace zlx
