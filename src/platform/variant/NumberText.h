#pragma once
// Reading numbers that people and files write: "1.234,5", "1,5", "-3.25E+2", "&HFF".

#include <QString>
#include <optional>

namespace zlx::NumberText {

// The text as an invariant number ("1234.5", "-325", "255"), or nothing when it is not a
// number. With both separators present the last one is the decimal separator; a single
// separator of either kind that appears once is decimal, repeated it groups thousands.
std::optional<QString> Normalise(const QString& text);

} // namespace zlx::NumberText
