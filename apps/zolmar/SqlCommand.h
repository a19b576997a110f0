#pragma once
// `zolmar sql`: the library's T-SQL shell on any engine. One statement given on the command
// line answers one JSON line; without one, JSON lines {"sql": TEXT, "mode": M} are read from
// standard input and answered in order, all on the same connection.

#include <QStringList>
#include <cstdio>

namespace zlx {

int RunSqlCommand(const QStringList& args, std::FILE* in, std::FILE* out);

} // namespace zlx
