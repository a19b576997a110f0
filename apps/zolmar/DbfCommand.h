#pragma once
// `zolmar dbf dump FILE` and `zolmar dbf create FILE`: a DBF table as JSON and back.
//   {"version": 3, "fields": [{"name": "NAME", "type": "C", "length": 20, "decimals": 0}],
//    "records": [["Peña", 3.5, "2024-02-29", true, "12.5000"]]}
// Dates are "YYYY-MM-DD" ("YYYY-MM-DD hh:mm:ss" with a time), logicals booleans, numbers
// JSON numbers, currency a text with four decimals, binary memos arrays of byte values.
// `dump --codepage N` reads the text in code page N whatever the file's mark says. `create`
// reads the same shape (without "version") on standard input.

#include <QIODevice>
#include <QStringList>

namespace zlx {

// `args` are the words after "dbf". Returns the process exit code.
int RunDbfCommand(const QStringList& args);
int RunDbfCommand(const QStringList& args, QIODevice& in, QIODevice& out, QIODevice& err);

} // namespace zlx
