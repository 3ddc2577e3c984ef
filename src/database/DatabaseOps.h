// The open database: the two design tables, its path, and the operations
// of the main window that create, open and save it and add, replace and
// delete designs. The main window forwards its members to these.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bw {

class Vehicle;
class Fighter;

// The whole open database. Neither table is ever empty: an empty table is
// one blank object (empty Name) at index 0. The tables hold the very objects
// that a saving editor handed over.
extern std::vector<std::shared_ptr<Vehicle>> gVehicles;
extern std::vector<std::shared_ptr<Fighter>> gFighters;
// Full path of the open database; empty when none is open.
extern std::string gDatabasePath;

enum class DesignKind { Vehicle, Fighter };

// Hooks the main window sets. The caption hook receives the whole caption.
// The picker hook shows the vehicle or fighter picker modally with the given
// caption and action button (and puts them back afterwards); it returns the
// index of the picked design in its table, or -1. Unset hooks do nothing and
// pick nothing.
extern std::function<void(const std::string& caption)> gSetMainCaption;
extern std::function<int16_t(DesignKind kind, const std::string& caption, const std::string& action)> gPickDesign;

// "The Brasswick Works 3.0"
std::string zAppTitle();

// Both tables one blank object each, no path. The state before any open.
void zResetDatabase();

void zOpenDatabase(const std::string& path);
void zSaveDatabase();
// Add or replace one design, then save; ok is false when the user declined
// to overwrite a design of the same name, type and base.
void zSaveVehicle(const std::shared_ptr<Vehicle>& v, bool& ok);
void zSaveFighter(const std::shared_ptr<Fighter>& f, bool& ok);
void zDeleteVehicle();
void zDeleteFighter();
void zNewDB();
void zCompactVHLArray();
void zCompactFTRArray();

// The pick of the open commands: refuses with "No Vehicles"/"No Fighters"
// when the table is blank, otherwise shows the picker; the index of the
// picked design or -1. The editors open a copy of that design.
int16_t zPickVehicleToOpen();
int16_t zPickFighterToOpen();

}  // namespace bw
