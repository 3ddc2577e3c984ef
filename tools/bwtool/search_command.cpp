// bwtool search: the program's own search over database files, one JSON
// line per match.
#include <cstdio>
#include <string>
#include <vector>

#include "Commands.h"
#include "ConsoleUi.h"
#include "core/Globals.h"
#include "search/SearchCriterion.h"
#include "search/SearchRun.h"

namespace {

constexpr const char* kUsage = "usage: bwtool search DATABASE... --criteria FILE.json\n";

int RunSearch(const std::vector<std::string>& args) {
    std::vector<std::string> databases;
    std::string criteriaPath;
    bool haveCriteria = false;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--criteria" && i + 1 < args.size() && !haveCriteria) {
            criteriaPath = args[++i];
            haveCriteria = true;
        } else if (args[i].rfind("--criteria=", 0) == 0 && !haveCriteria) {
            criteriaPath = args[i].substr(11);
            haveCriteria = true;
        } else if (args[i].rfind("--", 0) == 0) {
            std::fputs(kUsage, stderr);
            return 2;
        } else {
            databases.push_back(args[i]);
        }
    }
    if (!haveCriteria || databases.empty()) {
        std::fputs(kUsage, stderr);
        return 2;
    }
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
