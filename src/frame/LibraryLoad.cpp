// Runs the library's start-up routine when the shared library is loaded into a process.

#include "frame/LibraryState.h"

namespace {

const bool started = (zlx::LibraryState::Instance(), true);

} // namespace
