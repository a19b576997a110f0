#pragma once
// `zolmar script`: JSON lines in, one JSON answer line out for each, flushed at once so that
// a driving program can wait for each answer (see ScriptSession).

#include <cstdio>

namespace zlx {

int RunScript(std::FILE* in, std::FILE* out);

// The command itself: answers go to standard output; whatever the library prints there on
// its own (a matrix or a grid without a user interface) goes to standard error instead.
int RunScriptCommand();

} // namespace zlx
