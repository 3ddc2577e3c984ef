#include "core/Errors.h"

#include <cmath>
#include <limits>

#include "core/Config.h"
#include "core/Globals.h"
#include "core/Ui.h"

namespace bw {

std::string zErrorDescription(int32_t number) {
    switch (number) {
        case kErrInvalidCall: return "Invalid procedure call or argument";
        case kErrOverflow: return "Overflow";
        case kErrOutOfMemory: return "Out of memory";
        case kErrSubscript: return "Subscript out of range";
        case kErrDivByZero: return "Division by zero";
        case kErrTypeMismatch: return "Type mismatch";
        case kErrBadFileNumber: return "Bad file name or number";
        case kErrFileNotFound: return "File not found";
        case kErrInputPastEnd: return "Input past end of file";
        case kErrPathFileAccess: return "Path/File access error";
        case kErrPathNotFound: return "Path not found";
        case kErrPrinter: return "Printer error";
        case kErrCancel: return "Cancel was selected.";
        case 380: return "Invalid property value";
        case 35601: return "Element not found";
        case 35602: return "Key is not unique in collection";
        default: return "Application-defined or object-defined error";
    }
}

RunError::RunError(int32_t number, std::string description)
    : number_(number), description_(description.empty() ? zErrorDescription(number) : std::move(description)) {}

void zRaise(int32_t number, const std::string& description) { throw RunError(number, description); }

int16_t zI16(int64_t v) {
    if (v < std::numeric_limits<int16_t>::min() || v > std::numeric_limits<int16_t>::max()) zRaise(kErrOverflow);
    return static_cast<int16_t>(v);
}

int32_t zI32(int64_t v) {
    if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max()) zRaise(kErrOverflow);
    return static_cast<int32_t>(v);
}

double zBankersRound(double v) {
    if (!std::isfinite(v)) return v;
    return std::nearbyint(v);  // the default rounding mode is to nearest, ties to even
}

namespace {
template <class T>
T ConvertChecked(double v) {
    if (!std::isfinite(v)) zRaise(kErrOverflow);
    double r = zBankersRound(v);
    if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
        r > static_cast<double>(std::numeric_limits<T>::max()))
        zRaise(kErrOverflow);
    return static_cast<T>(r);
}
}  // namespace

int16_t zCInt(double v) { return ConvertChecked<int16_t>(v); }
int32_t zCLng(double v) { return ConvertChecked<int32_t>(v); }

int16_t zDiv16(int32_t a, int32_t b) {
    if (b == 0) zRaise(kErrDivByZero);
    return zI16(static_cast<int64_t>(a) / b);
}

int32_t zDiv32(int64_t a, int64_t b) {
    if (b == 0) zRaise(kErrDivByZero);
    return zI32(a / b);
}

std::string zErrorReportText(const std::string& procName, int32_t number, const std::string& description) {
    std::string t = "A problem has occurred. Your application may now be unstable. Please contact ";
    t += kCompanyName;
    t += " by sending email to:";
    t += kSupportMail;
    t += " Please include the following information:";
    t += std::string(kNL) + kNL;
    t += "\tFunction: " + procName + kNL;
    t += "\tError Number: " + std::to_string(number) + kNL;
    t += "\tError Description: " + description;
    return t;
}

void zReportError(const std::string& procName, const RunError& err, bool showBox, bool writeLog) {
    const std::string text = zErrorReportText(procName, err.Number(), err.Description());
    if (showBox) zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, "Error");
    if (writeLog) zLog(text);
}

}  // namespace bw
