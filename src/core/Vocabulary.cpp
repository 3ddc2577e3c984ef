#include "core/Vocabulary.h"

#include <array>
#include <cmath>

#include "core/Errors.h"
#include "core/Ui.h"

namespace bw {
namespace {

template <size_t N>
std::string Pick(const char* const (&names)[N], int16_t code) {
    return code >= 0 && static_cast<size_t>(code) < N ? names[code] : std::string();
}

constexpr const char* kVehicleTypes[] = {"Tracked",   "Wheeled",    "Hover",     "V.T.O.L.",
                                         "Hydrofoil", "Naval Ship", "Submarine", "Super Heavy Tank"};
constexpr const char* kFighterTypes[] = {"Conventional Fighter", "Aerospace Fighter", "Omni-Fighter"};
constexpr const char* kDsTypes[] = {"Spheriod", "Aerodyne"};
constexpr const char* kDsUses[] = {"Military", "Civilian"};
constexpr const char* kCategories[] = {"Energy", "Ballistic", "Missile", "Equipment", "Ammuntion", "Artillery"};
constexpr const char* kEngines[] = {"I.C.E.",     "Fusion",          "Fusion XL",        "Large I.C.E.",
                                    "Fusion XXL", "Large Fusion XL", "Large Fusion XXL", "Large Fusion"};
constexpr int16_t kEngineSlotsIS[] = {0, 0, 2, 1, 4, 3, 5, 1};
constexpr int16_t kEngineSlotsClan[] = {0, 0, 1, 1, 2, 3, 5, 1};
constexpr int32_t kEngineCost[] = {1250, 5000, 20000, 2500, 100000, 40000, 200000, 10000};
constexpr const char* kVehicleArmors[] = {"Normal",           "Ferro-Fibrous", "Light Ferro-Fibrous",
                                          "Heavy Ferro-Fibrous", "Laser Reflective", "Reactive"};
constexpr int16_t kVehicleArmorSlots[] = {0, 2, 1, 3, 2, 2};
constexpr const char* kFighterArmors[] = {"Normal", "Ferro-Aluminum"};
constexpr const char* kRotorConfigs[] = {"Standard", "Dual", "Coaxial"};
constexpr const char* kBridgeLayers[] = {"Light", "Medium", "Heavy"};
constexpr const char* kOmniConfigs[] = {"Base", "Primary", "Alpha", "Beta", "Charlie", "Delta"};
constexpr const char* kFighterLocations[] = {"Nose", "Left Wing", "Right Wing", "Fuselage", "Cockpit", "Engine"};
constexpr const char* kDropshipLocations[] = {"Nose",     "Left Front", "Right Front", "Left Aft",
                                              "Right Aft", "Aft",       "Internal"};

// Base engine weights for ratings 5 to 400 in steps of five.
constexpr std::array<double, 80> kBaseEngine = {
    0.5,  0.5,  0.5,  0.5,  0.5,  1,    1,    1,    1,    1.5,  1.5,  1.5,  2,    2,    2,    2.5,
    2.5,  3,    3,    3,    3.5,  3.5,  4,    4,    4,    4.5,  4.5,  5,    5,    5.5,  5.5,  6,
    6,    6,    7,    7,    7.5,  7.5,  8,    8.5,  8.5,  9,    9.5,  10,   10,   10.5, 11,   11.5,
    12,   12.5, 13,   13.5, 14,   14.5, 15.5, 16,   16.5, 17.5, 18,   19,   19.5, 20.5, 21.5, 22.5,
    23.5, 24.5, 25.5, 27,   28.5, 29.5, 31.5, 33,   34.5, 36.5, 38.5, 41,   43.5, 46,   49,   52.5,
};

std::string UnknownLocation(int16_t code) { return "Unknown Location (" + std::to_string(code) + ")"; }

bool IsNavalType(int16_t t) { return t == kVhlHydrofoil || t == kVhlNaval || t == kVhlSubmarine; }

// The words shared by both vehicle name functions for -1 to 7 and 99; empty
// for any code they do not share.
std::string VehicleLocationCommon(int16_t code, int16_t vhlType) {
    const bool vtol = vhlType == kVhlVTOL;
    const bool naval = IsNavalType(vhlType);
    switch (code) {
        case kLocUnallocated: return "Unallocated";
        case kLocFront: return vtol ? "Nose" : naval ? "Bow" : "Front";
        case kLocLeft: return "Left";
        case kLocRight: return "Right";
        case kLocRear: return vtol ? "Tail" : naval ? "Stern" : "Rear";
        case kLocTurret: return vtol ? "Chin Turret" : "Main Turret";
        case kLocLeftSponson: return "Left Sponson Turret";
        case kLocRightSponson: return "Right Sponson Turret";
        case kLocBody: return "Body";
        default: return {};
    }
}

}  // namespace

std::string zVehicleTypeName(int16_t t) { return Pick(kVehicleTypes, t); }
std::string zFighterTypeName(int16_t t) { return Pick(kFighterTypes, t); }
std::string zDropshipTypeName(int16_t t) { return Pick(kDsTypes, t); }
std::string zDropshipUseName(int16_t t) { return Pick(kDsUses, t); }
std::string zTechBaseName(int16_t b) { return b == 0 ? "Inner Sphere" : "Clan"; }
std::string zWeaponCategoryName(int16_t t) { return Pick(kCategories, t); }
std::string zEngineName(int16_t e) { return Pick(kEngines, e); }

int16_t zEngineCodeFromName(const std::string& name) {
    for (int16_t i = 0; i < 8; ++i)
        if (name == kEngines[i]) return i;
    return 0;
}

int16_t zEngineItemSlots(int16_t e, int16_t techBase) {
    if (e < 0 || e > 7) return 0;
    return techBase == 0 ? kEngineSlotsIS[e] : kEngineSlotsClan[e];
}

int32_t zEngineCostFactor(int16_t e) { return e >= 0 && e <= 7 ? kEngineCost[e] : 0; }

double zEngineTonnageMultiply(double& tons, int16_t e) {
    switch (e) {
        case kEngICE:
        case kEngLargeICE: return zBankersRound(tons * 2);
        case kEngFusionXL:
        case kEngLargeFusionXL: tons = tons / 2; break;
        case kEngFusionXXL:
        case kEngLargeFusionXXL: tons = tons / 3; break;
        case kEngFusion:
        case kEngLargeFusion: break;
        default: return 0;
    }
    return zBankersRound(tons + tons / 2);
}

double zBaseEngineWeight(int16_t rating) {
    if (rating == 0) return 0;
    if (rating < 5 || rating > 400 || rating % 5 != 0) return 100;
    return kBaseEngine[static_cast<size_t>(rating / 5 - 1)];
}

std::string zVehicleArmorName(int16_t a) { return Pick(kVehicleArmors, a); }
int16_t zVehicleArmorItemSlots(int16_t a) { return a >= 0 && a <= 5 ? kVehicleArmorSlots[a] : 0; }
std::string zFighterArmorName(int16_t a) { return Pick(kFighterArmors, a); }
std::string zRotorConfigName(int16_t r) { return Pick(kRotorConfigs, r); }
std::string zBridgeLayerName(int16_t b) { return Pick(kBridgeLayers, b); }
std::string zOmniConfigName(int16_t c) { return Pick(kOmniConfigs, c); }

std::string zItemLocationName(int16_t code, int16_t vhlType) {
    if (code == kLocSecondTurret) return vhlType == kVhlVTOL ? "Mast Mount" : "Secondary Turret";
    std::string s = VehicleLocationCommon(code, vhlType);
    return s.empty() ? UnknownLocation(code) : s;
}

std::string zArmorLocationName(int16_t code, int16_t vhlType) {
    switch (code) {
        case kLocSecondTurret: return vhlType == kVhlVTOL ? "Rotor" : "Secondary Turret";
        case kLocFrontRight: return "Front-Right";
        case kLocFrontLeft: return "Front-Left";
        case kLocRearRight: return "Rear-Right";
        case kLocRearLeft: return "Rear-Left";
        default: break;
    }
    std::string s = VehicleLocationCommon(code, vhlType);
    return s.empty() ? UnknownLocation(code) : s;
}

std::string zFighterLocationName(int16_t code) {
    if (code == -1) return "Unallocated";
    return Pick(kFighterLocations, code);
}

std::string zDropshipLocationName(int16_t code) {
    if (code == -1) return "Unallocated";
    std::string s = Pick(kDropshipLocations, code);
    return s.empty() ? UnknownLocation(code) : s;
}

int16_t zNavalWeaponClassCode(const std::string& keyword) {
    constexpr const char* kKeys[] = {"l", "pl", "p", "lbx", "a", "pd", "lrm", "srm", "ammo"};
    for (int16_t i = 0; i < 9; ++i)
        if (keyword == kKeys[i]) return i;
    zMsgBox("Invalid type: " + keyword);
    return 0;
}

}  // namespace bw
