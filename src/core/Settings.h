// User preferences: read once at start-up into globals, shown and changed
// by frmSet. The store keeps text values in sections "General", "Vehicle"
// and "Fighter".
#pragma once

#include <cstdint>
#include <string>

namespace bw {

// The store's application key.
constexpr const char* kSettingsApp = "Brasswick Works 3.0";

extern int16_t gOpenLast;         // 1: open the last database at start-up
extern int16_t gGiftMessage;      // 1: suppress the 'Gift' message
extern int16_t gAeroPrintHeader;  // 1: printer-friendly fighter header
extern int16_t gExpandSel;        // 1: always expand "selected" equipment
extern std::string gOpenDBPath;   // the database Main opens
extern int16_t gDefVhlType, gDefVhlBase, gDefVhlLevel;
extern int16_t gDefFtrType, gDefFtrBase, gDefFtrLevel;
extern int32_t gActiveEdit, gDeActiveEdit, gActiveText, gDeActiveText;

// Reads every setting. Not trapped: a non-numeric value raises the
// run-time's type mismatch (13) to the caller.
void zLoadSettings();

}  // namespace bw
