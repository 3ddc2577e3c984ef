// bwtool: the command-line companion of The Brasswick Works.
#include <cstdio>
#include <string>
#include <vector>

#include "Commands.h"

namespace bwtool {
std::vector<Command>& Registry() {
    static std::vector<Command> commands;
    return commands;
}
}  // namespace bwtool

static void Usage() {
    std::fprintf(stderr, "usage: bwtool COMMAND [ARGS]\n\ncommands:\n");
    for (const auto& c : bwtool::Registry()) std::fprintf(stderr, "  %-40s %s\n", c.usage.c_str(), c.help.c_str());
}

int main(int argc, char** argv) {
    if (argc < 2 || std::string(argv[1]) == "--help" || std::string(argv[1]) == "help") {
        Usage();
        return argc < 2 ? 2 : 0;
    }
    std::vector<std::string> args(argv + 2, argv + argc);
    for (const auto& c : bwtool::Registry())
        if (c.name == argv[1]) return c.run(args);
    std::fprintf(stderr, "bwtool: unknown command '%s'\n", argv[1]);
    Usage();
    return 2;
}
