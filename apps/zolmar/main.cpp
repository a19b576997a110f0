// zolmar: the library's command line.

#include "BatchFunctions.h"
#include "BatchRunner.h"
#include "Demo.h"
#include "zolmar.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

int Usage() {
    std::fprintf(stderr, "usage: zolmar --version | demo | batch < calls.jsonl\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return Usage();
    if (std::strcmp(argv[1], "--version") == 0) {
        std::printf("zolmar %s\n", zlx::LibraryVersion().toUtf8().constData());
        return 0;
    }
    if (std::strcmp(argv[1], "demo") == 0) return zlx::RunDemo(stdout);
    if (std::strcmp(argv[1], "batch") == 0)
        return zlx::RunBatch(stdin, stdout, zlx::LibraryBatchFunctions(), isatty(STDIN_FILENO));
    return Usage();
}
