#include "refdata/DiagramSources.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "core/Globals.h"

namespace bw {
namespace {

bool ParseI16(const std::string& s, int16_t& out) {
    if (s.empty()) return false;
    char* end = nullptr;
    errno = 0;
    const long v = std::strtol(s.c_str(), &end, 10);
    if (errno != 0 || end != s.c_str() + s.size() || v < -32768 || v > 32767) return false;
    out = static_cast<int16_t>(v);
    return true;
}

// One record per line: "diagram location x,y x,y ...".
bool ReadDotFile(const std::string& path, std::vector<DotRecord>& out, std::string& error) {
    out.clear();
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path + ": cannot be read";
        return false;
    }
    std::string line;
    int lineNo = 0;
    while (std::getline(in, line)) {
        ++lineNo;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const size_t hash = line.find('#');
        if (hash != std::string::npos) line.erase(hash);
        std::istringstream words(line);
        std::string a, b;
        if (!(words >> a)) continue;
        DotRecord r;
        const std::string where = path + ":" + std::to_string(lineNo) + ": ";
        if (!(words >> b) || !ParseI16(a, r.diagram) || !ParseI16(b, r.location)) {
            error = where + "expected 'diagram location x,y ...'";
            return false;
        }
        std::string pt;
        while (words >> pt) {
            const size_t comma = pt.find(',');
            int16_t x = 0, y = 0;
            if (comma == std::string::npos || !ParseI16(pt.substr(0, comma), x) ||
                !ParseI16(pt.substr(comma + 1), y)) {
                error = where + "bad dot '" + pt + "', expected x,y";
                return false;
            }
            r.X.push_back(x);
            r.Y.push_back(y);
        }
        out.push_back(std::move(r));
    }
    if (out.empty()) {
        error = path + ": no records";
        return false;
    }
    return true;
}

}  // namespace

bool BuildDiagramData(const std::string& dataDir, const std::string& /*outDir*/, std::vector<DotRecord>& armor,
                      std::vector<DotRecord>& internal, std::string& error) {
    return ReadDotFile(zJoinPath(dataDir, "dots/armorloc.txt"), armor, error) &&
           ReadDotFile(zJoinPath(dataDir, "dots/intloc.txt"), internal, error);
}

}  // namespace bw
