#pragma once
// Reading numbers that people and files write: "1.234,5", "1,5", "-3.25E+2", "&HFF".

#include <QString>
#include <optional>

namespace zlx::NumberText {

// The text as an invariant number ("1234.5", "-325", "255"), or nothing when it is not a
// number. With both separators present the last one is the decimal separator; a single
// separator of either kind that appears once is decimal, repeated it groups thousands.
std::optional<QString> Normalise(const QString& text);

// The number a text begins with, as VB's Val reads it: blanks, tabs and line feeds are skipped
// wherever they stand ("1 615 2" is 16152, "+ 2" is 2), "12abc" is 12, "1.5.3" is 1.5, "1.5E3"
// is 1500, "&HFF" is 255, text without a leading number is 0. Always "." as the decimal
// separator.
double Val(const QString& text);

} // namespace zlx::NumberText
