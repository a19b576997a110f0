#pragma once
// The order of texts as SQL Server's default collation gives it: letters compare without
// regard to case, and accented letters sort next to their base letter (a text is ordered by
// its letters without accents first, then by the accents).

#include <QString>

namespace zlx::ado::TextOrder {

// The case-folded text without its accents (non-spacing marks).
QString BaseLetters(const QString& folded);

// < 0, 0, > 0 as a sorts before, with or after b.
int Compare(const QString& a, const QString& b);

} // namespace zlx::ado::TextOrder
