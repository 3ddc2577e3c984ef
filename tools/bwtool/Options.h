// Every command reads its arguments through QCommandLineParser: --help
// prints the command's help on standard output, and an unknown option or a
// wrong number of arguments prints the command's usage line on standard
// error.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include <QCommandLineParser>
#include <QStringList>

namespace bwtool {

struct Positional {
    const char* name;
    const char* description;
};

// Parses args into parser; on success pos holds the positional arguments and
// the result is -1. Otherwise the result is the exit code: 0 after --help,
// badExit after printing usage (and the parser's complaint, if any).
inline int ParseCommand(QCommandLineParser& parser, const std::string& command, const std::vector<std::string>& args,
                        const std::vector<Positional>& positionals, size_t minPos, size_t maxPos,
                        const std::string& usage, std::vector<std::string>& pos, int badExit = 2) {
    parser.addHelpOption();
    for (const Positional& p : positionals) parser.addPositionalArgument(p.name, p.description);
    QStringList argv{QString::fromStdString("bwtool " + command)};
    for (const auto& a : args) argv << QString::fromStdString(a);
    const bool ok = parser.parse(argv);
    if (ok && parser.isSet("help")) {
        // Without an application object Qt cannot name the program itself.
        QString help = parser.helpText();
        help.replace("<executable_name>", QString::fromStdString("bwtool " + command));
        std::printf("%s", help.toStdString().c_str());
        return 0;
    }
    pos.clear();
    for (const QString& p : parser.positionalArguments()) pos.push_back(p.toStdString());
    if (ok && pos.size() >= minPos && pos.size() <= maxPos) return -1;
    if (!ok) std::fprintf(stderr, "bwtool %s: %s\n", command.c_str(), parser.errorText().toStdString().c_str());
    std::fprintf(stderr, "%s\n", usage.c_str());
    return badExit;
}

}  // namespace bwtool
