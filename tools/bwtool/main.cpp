// bwtool: the command-line companion of The Brasswick Works.
#include <cstdio>
#include <cstring>
#include <string>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: bwtool COMMAND ...\n");
        return 2;
    }
    std::fprintf(stderr, "bwtool: unknown command '%s'\n", argv[1]);
    return 2;
}
