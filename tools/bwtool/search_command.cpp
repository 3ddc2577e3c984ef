// bwtool search: the program's own search over database files, one JSON
// line per match.
#include <cstdio>
#include <string>
#include <vector>

#include <cstdint>

#include <QCommandLineParser>

#include "Commands.h"
#include "Options.h"
#include "ConsoleUi.h"
#include "core/Globals.h"
#include "search/SearchCriterion.h"
#include "search/SearchRun.h"

namespace {

constexpr const char* kUsage = "usage: bwtool search DATABASE... --criteria FILE.json";

int RunSearch(const std::vector<std::string>& args) {
    QCommandLineParser parser;
    const QCommandLineOption criteriaOption("criteria", "the criteria file, as the Search window saves it", "FILE.json");
    parser.addOption(criteriaOption);
    std::vector<std::string> databases;
    const int parsed = bwtool::ParseCommand(parser, "search", args, {{"DATABASE", "a database to search, in order"}},
                                            1, SIZE_MAX, kUsage, databases);
    if (parsed >= 0) return parsed;
    if (!parser.isSet(criteriaOption) || parser.values(criteriaOption).size() != 1) {
        std::fprintf(stderr, "%s\n", kUsage);
        return 2;
    }
    const std::string criteriaPath = parser.value(criteriaOption).toStdString();
    const bw::CriteriaFileResult criteria = bw::zReadCriteriaFile(criteriaPath);
    if (!criteria.ok) {
        std::fprintf(stderr, "%s: %s\n", criteriaPath.c_str(), criteria.error.c_str());
        return 2;
    }
    bwtool::ConsoleUi ui;
    bw::SetUi(&ui);
    bw::gLogFile = "/dev/null";
    if (criteria.criteria.empty()) {
        ui.MsgBox("You have not defined any search criteria.", bw::MsgButtons::OK, bw::MsgIcon::Critical,
                  "No Criteria");
        bw::SetUi(nullptr);
        return 2;
    }
    // The databases join the list as the window adds them: once each, and
    // only when certified.
    std::vector<std::string> listed;
    size_t rows = 0;
    for (const auto& path : databases) {
        bool onList = false;
        for (const auto& l : listed) onList = onList || bw::zNormalizePath(l) == bw::zNormalizePath(path);
        if (onList) {
            ui.MsgBox("That database is already on your list.", bw::MsgButtons::OK, bw::MsgIcon::Information,
                      "Database on list");
            continue;
        }
        bool ok = false;
        bw::TValidDatabase(path, ok);
        if (!ok) continue;
        const bool read = bw::zSearchDatabase(path, criteria.criteria, [&](const bw::SearchMatch& m) {
            std::printf("%s\n", bw::zMatchToJson(m).c_str());
            ++rows;
        });
        // A file that cannot be read through never joins the list.
        if (read) listed.push_back(path);
    }
    bw::SetUi(nullptr);
    if (rows == 0) std::fputs("There were no units that fit your search criteria in the selected databases.\n", stderr);
    return 0;
}

bwtool::Registrar regSearch("search", "search DATABASE... --criteria FILE.json",
                            "run search criteria over databases, one JSON line per match", &RunSearch);

}  // namespace
