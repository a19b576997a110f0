#pragma once
// `zolmar dbf dump FILE` and `zolmar dbf create FILE`: a DBF table as JSON and back.
//   {"version": 3, "fields": [{"name": "NAME", "type": "C", "length": 20, "decimals": 0}],
//    "records": [["Peña", 3.5, "2024-02-29", true, "12.5000"]]}
// Dates are "YYYY-MM-DD", logicals booleans, numbers JSON numbers and currency a text with
// four decimals. `create` reads the same shape (without "version") on standard input.

#include <QIODevice>
#include <QStringList>

namespace zlx {

// `args` are the words after "dbf". Returns the process exit code.
int RunDbfCommand(const QStringList& args);
int RunDbfCommand(const QStringList& args, QIODevice& in, QIODevice& out, QIODevice& err);

} // namespace zlx
