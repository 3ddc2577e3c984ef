#include "core/Helpers.h"

#include <sys/stat.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Ui.h"

namespace bw {

// ---- rounding -------------------------------------------------------------

double zRoundTenth(double x) {
    return zTrap<double>("zRoundTenth", 0.0, [&] {
        if (!std::isfinite(x)) zRaise(kErrOverflow);
        if (x == 0) return 0.0;
        const double r = std::floor((std::fabs(x) + 0.09) * 10) / 10;
        return x < 0 ? -r : r;
    });
}

double zRoundHalf(double x) {
    if (x == 0) return 0;
    if (x < 0) return std::floor(x * 2) / 2;
    return std::floor((x + 0.49) * 2) / 2;
}

double zRoundQuarter(double x) {
    if (x == 0) return 0;
    if (x < 0) return std::floor(x * 4) / 4;
    return std::floor((x + 0.24) * 4) / 4;
}

int32_t zRoundUp(double x) { return zCLng(std::ceil(x)); }

int16_t zRoundDown(double x) {
    return zTrap<int16_t>("zRoundDown", 0, [&] {
        if (!std::isfinite(x)) zRaise(kErrOverflow);
        const double f = std::floor(x);
        return zCInt(f == x ? x : f - 1);
    });
}

// ---- text -----------------------------------------------------------------

namespace {

std::vector<std::string> SplitOn(const std::string& s, const std::string& delim) {
    std::vector<std::string> out;
    size_t start = 0;
    for (;;) {
        size_t p = s.find(delim, start);
        if (p == std::string::npos) {
            out.push_back(s.substr(start));
            return out;
        }
        out.push_back(s.substr(start, p - start));
        start = p + delim.size();
    }
}

// The pieces between a start mark and the next end mark, left to right.
std::vector<std::string> MarkedPieces(const std::string& s, const std::string& open, const std::string& close) {
    std::vector<std::string> out;
    size_t pos = 0;
    for (;;) {
        size_t a = s.find(open, pos);
        if (a == std::string::npos) return out;
        a += open.size();
        size_t b = s.find(close, a);
        if (b == std::string::npos) return out;
        out.push_back(s.substr(a, b - a));
        pos = b + close.size();
    }
}

}  // namespace

std::string zGetWord(int16_t wWordIndex, const std::string& text, const std::string& delimiter,
                     const std::string& qualifier) {
    return zTrap<std::string>("zGetWord", std::string(), [&] {
        const std::string t = zTrim(text);
        if (wWordIndex < 0)
            zRaise(kErrInvalidCall, "Invalid wWordIndex (" + std::to_string(wWordIndex) + ") in string " + t + ".");
        if (delimiter.empty()) zRaise(kErrInvalidCall);
        const std::vector<std::string> words = !qualifier.empty() && t.find(qualifier) != std::string::npos
                                                   ? MarkedPieces(t, qualifier, qualifier)
                                                   : SplitOn(t, delimiter);
        if (static_cast<size_t>(wWordIndex) >= words.size())
            zRaise(kErrInvalidCall,
                   "Word index(" + std::to_string(wWordIndex) + ") is invalid for string '" + t + "'");
        return words[static_cast<size_t>(wWordIndex)];
    });
}

int16_t zCountWords(const std::string& text, const std::string& delimiter, const std::string& startMark,
                    const std::string& endMark) {
    try {
        const std::string t = zTrim(text);
        if (!startMark.empty())
            return zI16(static_cast<int64_t>(MarkedPieces(t, startMark, endMark.empty() ? startMark : endMark).size()));
        if (delimiter.empty()) zRaise(kErrInvalidCall);
        if (t.empty()) return 0;
        std::vector<std::string> words = SplitOn(t, delimiter);
        if (delimiter == " ") {
            size_t n = 0;
            for (const auto& w : words) n += w.empty() ? 0 : 1;
            return zI16(static_cast<int64_t>(n));
        }
        return zI16(static_cast<int64_t>(words.size()));
    } catch (const RunError& e) {
        zReportError("zCountWords", RunError(e.Number(), e.Description() + " on for zCountWords"));
    }
    return 0;
}

std::string zReplace(const std::string& text, const std::string& find, const std::string& with) {
    if (find.empty()) return text;
    std::string out;
    size_t pos = 0;
    for (;;) {
        size_t p = text.find(find, pos);
        if (p == std::string::npos) break;
        out.append(text, pos, p - pos);
        out += with;
        pos = p + find.size();
    }
    out.append(text, pos, std::string::npos);
    return out;
}

std::string zLower(const std::string& s) {
    std::string r = s;
    for (char& c : r) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return r;
}

// ---- paths ----------------------------------------------------------------

namespace {
size_t LastSeparator(const std::string& p) { return p.find_last_of("\\/"); }
}  // namespace

std::string zGetFileFromPath(const std::string& path) {
    const size_t s = LastSeparator(path);
    return s == std::string::npos ? path : path.substr(s + 1);
}

std::string zGetPathFromFile(const std::string& path) {
    const size_t s = LastSeparator(path);
    return s == std::string::npos ? std::string() : path.substr(0, s == 0 ? 1 : s);
}

std::string zRemoveExtension(const std::string& path) {
    const size_t dot = path.rfind('.');
    const size_t s = LastSeparator(path);
    if (dot == std::string::npos || (s != std::string::npos && dot < s)) return path;
    return path.substr(0, dot);
}

// ---- files ----------------------------------------------------------------

bool zFileExists(const std::string& path) {
    const std::string p = zNormalizePath(path);
    struct stat st {};
    if (::stat(p.c_str(), &st) != 0 || S_ISDIR(st.st_mode)) return false;
    std::ifstream in(p, std::ios::binary);
    return static_cast<bool>(in);
}

bool zHasParm(const std::string& text) {
    std::ifstream in(zAppFile("parm.txt"), std::ios::binary);
    if (!in) return false;
    const std::string want = zLower(text);
    std::string line;
    while (std::getline(in, line)) {
        // The line end may be CR LF; blanks are part of the line.
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (zLower(line) == want) return true;
    }
    return false;
}

std::string zDirFind(const std::string& folder, const std::string& name) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path dir(zNormalizePath(folder.empty() ? "." : folder));
    if (!fs::is_directory(dir, ec)) zRaise(kErrPathNotFound);
    const std::string want = zLower(name);
    fs::directory_iterator it(dir, ec);
    if (ec) zRaise(kErrPathNotFound);
    for (; it != fs::directory_iterator(); it.increment(ec)) {
        const std::string n = it->path().filename().string();
        if (zLower(n) != want) continue;
        std::error_code e2;
        if (fs::is_regular_file(it->path(), e2)) return n;
    }
    if (ec) zRaise(kErrPathFileAccess);
    return {};
}

// ---- settings -------------------------------------------------------------

std::string zNumText(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    return buf;
}

std::string zSingleText(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.7g", v);
    return buf;
}

bool zIsNumeric(const std::string& text) {
    const std::string s = zTrim(text);
    if (s.empty()) return false;
    char* end = nullptr;
    std::strtod(s.c_str(), &end);
    if (end != s.c_str() + s.size()) return false;
    // strtod also takes hexadecimal, "inf" and "nan"; the run-time does not.
    for (char c : s)
        if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '.' || c == 'e' ||
              c == 'E'))
            return false;
    return true;
}

int16_t zTextToI16(const std::string& text) {
    if (text.empty()) return 0;
    if (!zIsNumeric(text)) zRaise(kErrTypeMismatch);
    return zCInt(std::strtod(zTrim(text).c_str(), nullptr));
}

double zGetNumericSetting(const std::string& /*app*/, const std::string& section, const std::string& key,
                          double def, bool check) {
    const std::string v = gSettingsStore().Get(section, key, std::string());
    if (v.empty()) return def;
    if (!zIsNumeric(v)) {
        if (check) return def;
        zRaise(kErrTypeMismatch);
    }
    return std::strtod(zTrim(v).c_str(), nullptr);
}

// ---- dialogs --------------------------------------------------------------

namespace {
FileDialogRequest MakeRequest(const std::string& title, int32_t flags, const std::string& filter, int filterIndex,
                              const std::string& name, const std::string& folder) {
    FileDialogRequest r;
    r.title = title;
    r.flags = flags;
    r.filter = filter.empty() ? "All Files (*.*)|*.*" : filter;
    r.filterIndex = filterIndex;
    r.fileName = name;
    r.folder = folder;
    return r;
}
}  // namespace

std::string zDlgSaveFile(const std::string& title, int32_t flags, const std::string& filter, int filterIndex,
                         const std::string& name, const std::string& folder) {
    return gUi().SaveFileDialog(MakeRequest(title, flags, filter, filterIndex, name, folder));
}

std::string zDlgOpenFile(const std::string& title, int32_t flags, const std::string& filter, int filterIndex,
                         const std::string& name, const std::string& folder) {
    return gUi().OpenFileDialog(MakeRequest(title, flags, filter, filterIndex, name, folder));
}

}  // namespace bw
