// Process-wide state of the run: the program's folder, the log, the splash
// progress counters, and the path helpers that every file access uses.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bw {

// The program's folder (the folder of the executable), with no trailing
// separator. Set once by main() or by a test fixture.
extern std::string gAppPath;
// Full path of the log: gAppPath + "/Brasswick Works.Log".
extern std::string gLogFile;
extern std::string gArtPath;
extern std::vector<std::string> gArtFiles;
extern int16_t gSplashTotal;
extern int16_t gSplashDone;
extern int16_t gLenWeapons, gLenNavalWeapons, gLenArmor, gLenInternal;

void SetAppPath(const std::string& folder);

// Paths use "/" and accept "\" too.
std::string zNormalizePath(const std::string& path);
// folder + "/" + name, with either separator accepted in both.
std::string zJoinPath(const std::string& folder, const std::string& name);
// A file in the program's folder.
std::string zAppFile(const std::string& name);

// Append one line to the log. The log is opened, written and closed for each
// line so that nothing is lost if the program ends abruptly.
void zLog(const std::string& text);

}  // namespace bw
