#pragma once
// The order of texts as SQL Server's default collation gives it: letters compare without
// regard to case, and accented letters sort next to their base letter (a text is ordered by
// its letters without accents first, then by the accents).
//
// The database collation Modern_Spanish_CI_AI goes further (CollationCompare): accents are
// ignored altogether, ñ is a letter of its own between n and o, and trailing blanks do not
// count.

#include <QString>

namespace zlx::ado::TextOrder {

// The case-folded text without its accents (non-spacing marks).
QString BaseLetters(const QString& folded);

// < 0, 0, > 0 as a sorts before, with or after b.
int Compare(const QString& a, const QString& b);

// The text as Modern_Spanish_CI_AI sees it, one character for each of `text`: case-folded,
// accented letters as their base letter, ñ kept. Searches (LIKE, CHARINDEX, REPLACE) match
// these keys, so that a position in the key is the same position in the text.
QString SearchKey(const QString& text);

// The text without its trailing blanks.
QStringView WithoutTrailingBlanks(QStringView text);

// < 0, 0, > 0 as a sorts before, with or after b under Modern_Spanish_CI_AI.
int CollationCompare(const QString& a, const QString& b);

} // namespace zlx::ado::TextOrder
