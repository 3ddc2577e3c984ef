// Where each location's armor input stands on the editor's armor diagram.
// The spots are near the centres of the locations' outlines in the fourteen
// plan views (picture pixels), picked so that the input stays inside its
// location and off its caption; the V.T.O.L.'s tail and rotor are narrower
// than an input, which then stands on their middle.
#include <array>

#include "core/Vocabulary.h"
#include "vehicle/frmVhl.h"

namespace bw {

namespace {

struct Spot {
    int16_t x = -1, y = -1;
};
using Spots = std::array<Spot, 12>;

// Tracked, wheeled and hover plan views share one hull outline.
constexpr Spots kGround{{{120, 46}, {35, 189}, {205, 189}, {120, 347}, {120, 192}}};
constexpr Spots kGroundTwoTurrets{{{120, 46}, {35, 201}, {205, 201}, {120, 353}, {120, 134}, {120, 226}}};
// Without a chin turret the rotor sits on the body's centre.
constexpr Spots kVTOL{{{116, 51}, {79, 113}, {152, 113}, {116, 255}, {}, {116, 96}}};
constexpr Spots kVTOLChin{{{116, 113}, {48, 152}, {184, 152}, {116, 267}, {116, 52}, {116, 162}}};
constexpr Spots kNaval{{{546, 174}, {295, 102}, {283, 246}, {76, 174}, {425, 174}}};
constexpr Spots kSuperHeavy{{{120, 34},
                             {},
                             {},
                             {120, 340},
                             {120, 133},
                             {120, 249},
                             {},
                             {},
                             {205, 108},
                             {35, 110},
                             {205, 236},
                             {35, 238}}};

}  // namespace

void frmVhl::zMoveArmorControls(int16_t vhlType) {
    const bool main = vhl && vhl->HasTurret != 0, sec = vhl && vhl->HasSecTurret != 0;
    const Spots* spots;
    if (vhlType == kVhlTracked || vhlType == kVhlWheeled || vhlType == kVhlHover) {
        spots = sec ? &kGroundTwoTurrets : &kGround;
    } else if (vhlType == kVhlVTOL) {
        spots = main ? &kVTOLChin : &kVTOL;
    } else if (vhlType == kVhlSuperHeavy) {
        spots = &kSuperHeavy;
    } else {
        spots = &kNaval;
    }
    for (size_t i = 0; i < spots->size(); ++i) {
        ArmorLocLeft[i] = (*spots)[i].x;
        ArmorLocTop[i] = (*spots)[i].y;
    }
}

}  // namespace bw
