#pragma once
// A sheet's serial day numbers (the 1900 system: day 1 is 1900-01-01, with its 29 February
// 1900 that never was; from March 1900 on it counts as an OLE date) and the ISO texts the SQL
// engine compares.

#include <QString>
#include <optional>

namespace zlx::workbook {

class SerialDate {
public:
    // "yyyy-MM-dd HH:mm:ss", the text the library's SQL writes for dates.
    static QString ToIso(double serial);
    // "yyyy-MM-dd", "yyyy-MM-dd HH:mm[:ss]" or "yyyy-MM-ddTHH:mm:ss"; nullopt for anything else.
    static std::optional<double> FromIso(const QString& text);
};

} // namespace zlx::workbook
