#include "zolmar.h"

#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("zolmar %s\n", qPrintable(zlx::LibraryVersion()));
        return 0;
    }
    std::fprintf(stderr, "usage: zolmar --version | demo | batch\n");
    return 2;
}
