// Run-time errors, checked arithmetic and the error reporter.
//
// The program's rules are written against a run-time that raises numbered
// errors (6 overflow, 9 subscript out of range, 76 path not found...) instead
// of wrapping or crashing. RunError carries that number and description;
// every trapping procedure catches it and ends in zReportError.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace bw {

// Error numbers the rules rely on.
enum ErrNo : int32_t {
    kErrInvalidCall = 5,
    kErrOverflow = 6,
    kErrOutOfMemory = 7,
    kErrSubscript = 9,
    kErrDivByZero = 11,
    kErrTypeMismatch = 13,
    kErrBadFileNumber = 52,
    kErrFileNotFound = 53,
    kErrInputPastEnd = 62,
    kErrPathFileAccess = 75,
    kErrPathNotFound = 76,
    kErrPrinter = 482,
    kErrCancel = 32755,
};

// The run-time's own description of an error number ("Overflow", ...).
std::string zErrorDescription(int32_t number);

class RunError : public std::exception {
public:
    explicit RunError(int32_t number, std::string description = {});
    int32_t Number() const noexcept { return number_; }
    const std::string& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

private:
    int32_t number_;
    std::string description_;
};

// Raise a run-time error; an empty description takes the standard one.
[[noreturn]] void zRaise(int32_t number, const std::string& description = {});

// Narrowing that raises overflow (6) instead of wrapping. Callers widen to
// 64 bits, compute, then narrow: zI16(int32_t{a} * b).
int16_t zI16(int64_t v);
int32_t zI32(int64_t v);

// Conversion of a floating value to an integer: half to even, overflow
// outside the target's range (NaN and infinities included).
int16_t zCInt(double v);
int32_t zCLng(double v);
// Half-to-even rounding to a whole number kept as a double.
double zBankersRound(double v);

// Integer division and modulo that raise division by zero (11).
int16_t zDiv16(int32_t a, int32_t b);
int32_t zDiv32(int64_t a, int64_t b);

// Truth values as stored in designs and files.
constexpr int16_t kTrue = -1;
constexpr int16_t kFalse = 0;
constexpr int16_t zBool(bool b) { return b ? kTrue : kFalse; }

// The text zReportError builds from an error.
std::string zErrorReportText(const std::string& procName, int32_t number, const std::string& description);

// Report an error under a procedure's name: a critical box titled "Error"
// when showBox, a log line when writeLog.
void zReportError(const std::string& procName, const RunError& err, bool showBox = true, bool writeLog = true);

// The trap every fallible procedure uses: run body; on a run-time error (or
// any std::exception, reported as error 5 with its text) report it under
// procName and return the failure value.
template <class R, class F>
R zTrap(const char* procName, R failure, F&& body) {
    try {
        return body();
    } catch (const RunError& e) {
        zReportError(procName, e);
    } catch (const std::bad_alloc&) {
        zReportError(procName, RunError(kErrOutOfMemory));
    } catch (const std::exception& e) {
        zReportError(procName, RunError(kErrInvalidCall, e.what()));
    }
    return failure;
}

template <class F>
void zTrapVoid(const char* procName, F&& body) {
    zTrap<int>(procName, 0, [&] { body(); return 0; });
}

}  // namespace bw
