#pragma once
// Lets GoogleTest print Qt strings as text in failure messages.

#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
