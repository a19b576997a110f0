#pragma once
// `zolmar mdb-import FILE`: an Access (Jet) database converted into the SQLite file that the
// Jet provider opens at the same path. Every user table comes with its columns, rows, indexes
// and primary key. The new file is written beside FILE and then renamed over it; the original
// is kept as FILE.jet (FILE.1.jet, FILE.2.jet ... when an earlier copy is there). Progress goes
// to `err` (a bar when it is a terminal, a line per table otherwise), the summary to `out`.

#include <QStringList>
#include <cstdio>

namespace zlx {

// `args` are the words after "mdb-import". Returns the process exit code.
int RunMdbImportCommand(const QStringList& args, std::FILE* out, std::FILE* err, bool terminal);

} // namespace zlx
