// The record sheets of a vehicle: the dispatch by type, the ground and
// surface naval sheet, its weapons table and its dots.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "vehicle/Vehicle.h"

namespace bw {

// One line group of the weapons table: like items in one location.
struct PrintRow {
    int16_t weapon = -1;    // weapon table row; -1 marks the empty list
    int16_t location = 0;
    int16_t count = 0;      // -1 for ammunition
    int16_t shots = -1;     // summed shots of ammunition; -1 otherwise
    bool operator==(const PrintRow&) const = default;
};

// The sheet routines; each call is one whole job. True when a page was sent.
bool PrintVehicle(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                  const std::string& gunnerySkill);
bool PrintGroundVehicle(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                        const std::string& gunnerySkill);
// V.T.O.L. and submarine sheet, and the double sheet: jobs that end cleanly
// with nothing drawn until their sheets are drawn.
bool PrintElevationVehicle(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                           const std::string& gunnerySkill);
bool PrintVehicleMini(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                      const std::string& gunnerySkill);
bool PrintSuperHeavyTank(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                         const std::string& gunnerySkill);

// The double sheet rule: tells the user when it falls back, and prints.
bool zPrintDoubleRule(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                      const std::string& gunnerySkill, bool showMessage = true);
// True when the double sheet rule picks the double sheet; shows the
// fallback message when showMessage.
bool zDoubleSheetFits(const Vehicle& v, bool showMessage);

// The weapons table's rows, grouped and sorted by location.
bool TGetWeaponsPrintData(const Vehicle& v, std::vector<PrintRow>& rows);
void TSortWeaponsPrint(std::vector<PrintRow>& rows);
bool HasSpecialEquipment(const Vehicle& v);

// Dot places: "x,y" in diagram pixels, or "" past the table's end.
std::string GetArmorDot(int16_t location, int32_t dotIndex, int16_t diagram);
std::string GetInternalDot(int16_t location, int32_t dotIndex, int16_t diagram);
// The diagram a vehicle's dots come from, and the last location plotted.
int16_t zVehicleDiagram(const Vehicle& v);
int16_t zLastDotLocation(const Vehicle& v);
// Armor tons of a location's points, rounded as armor is bought.
double zLocationArmorTons(const Vehicle& v, int16_t points);

}  // namespace bw
