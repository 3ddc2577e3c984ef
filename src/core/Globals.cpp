#include "core/Globals.h"

#include <fstream>

#include "core/Config.h"
#include "core/Ui.h"

namespace bw {

std::string gAppPath = ".";
std::string gLogFile = "./Brasswick Works.Log";
std::string gArtPath;
std::vector<std::string> gArtFiles;
int16_t gSplashTotal = 0;
int16_t gSplashDone = 0;
int16_t gLenWeapons = 0, gLenNavalWeapons = 0, gLenArmor = 0, gLenInternal = 0;

std::string zNormalizePath(const std::string& path) {
    std::string p = path;
    for (char& c : p)
        if (c == '\\') c = '/';
    return p;
}

std::string zJoinPath(const std::string& folder, const std::string& name) {
    std::string f = zNormalizePath(folder);
    std::string n = zNormalizePath(name);
    while (!n.empty() && n.front() == '/') n.erase(0, 1);
    if (f.empty()) return n;
    if (f.back() != '/') f += '/';
    return f + n;
}

void SetAppPath(const std::string& folder) {
    gAppPath = zNormalizePath(folder);
    while (gAppPath.size() > 1 && gAppPath.back() == '/') gAppPath.pop_back();
    gLogFile = zJoinPath(gAppPath, "Brasswick Works.Log");
}

std::string zAppFile(const std::string& name) { return zJoinPath(gAppPath, name); }

void zLog(const std::string& text) {
    std::ofstream out(gLogFile, std::ios::binary | std::ios::app);
    if (out) out << text << kNL;
    zDoEvents();
}

}  // namespace bw
