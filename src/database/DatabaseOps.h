// The open database: the two design tables, its path, and the file
// operations on them. The tables hold copies of their own of the designs. What needs the user (picking a design, the overwrite
// and delete questions, the window title) belongs to the main window.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace bw {

class Vehicle;
class Fighter;

// The whole open database. Neither table is ever empty: an empty table is
// one blank object (empty Name) at index 0. The tables hold copies of their
// own of the designs the editors saved.
extern std::vector<std::shared_ptr<Vehicle>> gVehicles;
extern std::vector<std::shared_ptr<Fighter>> gFighters;
// Full path of the open database; empty when none is open.
extern std::string gDatabasePath;

// "The Brasswick Works 3.0"
std::string zAppTitle();

// Both tables one blank object each, no path. The state before any open.
void zResetDatabase();

void zOpenDatabase(const std::string& path);
// False when nothing was written (no database open, a design that could
// not be written, a failed write), after saying why.
bool zSaveDatabase();
void zNewDB();
void zCompactVHLArray();
void zCompactFTRArray();

// The table index of the design of the same name, type and tech base, or -1.
int16_t zFindVehicle(const Vehicle& v);
int16_t zFindFighter(const Fighter& f);
// Puts a copy of the design at index (a valid index replaces that entry;
// otherwise it fills a blank table or is appended), then saves the
// database; false, with the table as it was, when the save failed.
bool zStoreVehicle(const Vehicle& v, int16_t index);
bool zStoreFighter(const Fighter& f, int16_t index);
// Blanks the name of the design at index (the save leaves it out), then
// saves; false for an index with no design or a failed save.
bool zDropVehicle(int16_t index);
bool zDropFighter(int16_t index);
// True when the table holds no design.
bool zNoVehicles();
bool zNoFighters();

}  // namespace bw
