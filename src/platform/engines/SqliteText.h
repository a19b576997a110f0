#pragma once
// Text comparison on the embedded engine as SQL Server's default collation does it: letters
// compare without regard to case (every letter, not only ASCII), accented letters sort next
// to their base letter, and LIKE matches without regard to case.

struct sqlite3;

namespace zlx::ado::SqliteText {

// Replaces the connection's NOCASE collation and its like() function.
void Install(sqlite3* db);

// The collation: < 0, 0, > 0 as UTF-8 text a sorts before, with or after b.
int Compare(int lengthA, const void* a, int lengthB, const void* b);

} // namespace zlx::ado::SqliteText
