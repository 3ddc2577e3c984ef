// The fighter's armor dots. Its single diagram ("ad004.bwp") has fixed dot
// places held here in the code, in diagram pixels of 15 twips, in filling
// order; no file is read. Locations: 0 Nose, 1 Left Wing, 2 Right Wing,
// 3 Fuselage, 4 Cockpit, 5 Engine.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

struct FighterDot {
    int16_t x = 0, y = 0;
};

constexpr int16_t kFighterArmorLocations = 6;

// Dots a location can show: 102, 70, 70, 93, 37, 46; 0 for any other code.
int32_t zFighterDotCount(int16_t location);
// Dot dotIndex of a location; (0,0) outside the list.
FighterDot zFighterDot(int16_t location, int32_t dotIndex);
// "x,y" of the dot, or the empty text past the end of the location's list
// (and for a location or index out of range).
std::string zFighterArmorDotText(int16_t location, int32_t dotIndex);

// The Nose and the Fuselage lists are two runs each, the second appended
// after the first; every other list is one run. run is 0 or 1.
int32_t zFighterRunLength(int16_t location, int run);

}  // namespace bw
