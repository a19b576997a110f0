#pragma once
// `zolmar demo`: a short end-to-end run of the library, printed on standard output.

#include <cstdio>

namespace zlx {

// Returns the process exit code: 0 when every step did what it should.
int RunDemo(std::FILE* out);

} // namespace zlx
