// Rounding, text, path, file and dialog helpers on which the rules rest.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

// Rounding of tonnages. The 0.09/0.49/0.24 constants round up to the grain
// while an excess under 0.01 above a step stays on that step.
double zRoundTenth(double x);    // traps: a value that cannot be converted gives 0
double zRoundHalf(double x);     // negative values go away from zero
double zRoundQuarter(double x);  // negative values go away from zero
int32_t zRoundUp(double x);      // ceiling; raises overflow outside 32 bits
int16_t zRoundDown(double x);    // x when whole, else floor(x) - 1; traps, 0 on failure

// Text. zGetWord: the word at a 0-based index of the trimmed text; when the
// text holds the qualifier the words are the quoted pieces. An index out of
// range is reported under "zGetWord" and gives the empty text.
std::string zGetWord(int16_t wWordIndex, const std::string& text, const std::string& delimiter = ",",
                     const std::string& qualifier = "\"");
// Number of words of the trimmed text; with a start mark, the number of
// marked pieces (the end mark defaults to the start mark). Runs of blanks
// count as one delimiter when the delimiter is a blank.
int16_t zCountWords(const std::string& text, const std::string& delimiter = " ", const std::string& startMark = {},
                    const std::string& endMark = {});
// Every occurrence replaced, left to right; the replacement is not rescanned.
std::string zReplace(const std::string& text, const std::string& find, const std::string& with);

// Paths: "\" and "/" both separate.
std::string zRemoveExtension(const std::string& path);
std::string zGetPathFromFile(const std::string& path);  // the folder part, no trailing separator
std::string zGetFileFromPath(const std::string& path);

// Files.
bool zFileExists(const std::string& path);
// True when "parm.txt" in the program's folder holds a line equal to text,
// case ignored, whole line, no trimming. An unreadable file holds nothing.
bool zHasParm(const std::string& text);
// The directory search: the name of the file in folder whose name equals
// name with case ignored, or the empty text. Raises 76 when the folder does
// not exist.
std::string zDirFind(const std::string& folder, const std::string& name);

// A setting read as a number. app is the store's application key, kept for
// the callers' sake: the store is already the program's own. A value that
// is not numeric gives def when check is true, else raises type mismatch.
double zGetNumericSetting(const std::string& app, const std::string& section, const std::string& key, double def,
                          bool check);
// A number as the windows show it: general format, no trailing zeros.
// zNumText keeps a double's digits; zSingleText shows a single-precision
// figure (sums and quotients of tons) without its noise digits.
std::string zNumText(double v);
std::string zSingleText(double v);

// Numeric as the run-time sees it: optional blanks, sign, digits, point and
// exponent.
bool zIsNumeric(const std::string& text);
// The run-time's conversion of a setting text to a 16-bit integer: empty
// gives 0, a non-numeric text raises type mismatch (13), out of range 6.
int16_t zTextToI16(const std::string& text);

// File dialogs; the chosen file, or the empty text when the user cancels.
std::string zDlgSaveFile(const std::string& title, int32_t flags = 0,
                         const std::string& filter = "All Files (*.*)|*.*", int filterIndex = 1,
                         const std::string& name = {}, const std::string& folder = {});
std::string zDlgOpenFile(const std::string& title, int32_t flags = 0,
                         const std::string& filter = "All Files (*.*)|*.*", int filterIndex = 1,
                         const std::string& name = {}, const std::string& folder = {});

std::string zLower(const std::string& s);

}  // namespace bw
