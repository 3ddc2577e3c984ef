// The numeric codes every design, table and file speaks, their names, and
// the engine tables indexed by the engine code.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

// Vehicle types (VhlType).
enum : int16_t {
    kVhlTracked = 0,
    kVhlWheeled = 1,
    kVhlHover = 2,
    kVhlVTOL = 3,
    kVhlHydrofoil = 4,
    kVhlNaval = 5,
    kVhlSubmarine = 6,
    kVhlSuperHeavy = 7,
};

// Fighter types (FighterType).
enum : int16_t { kFtrConventional = 0, kFtrAerospace = 1, kFtrOmni = 2 };

// Technology base.
enum : int16_t { kBaseInnerSphere = 0, kBaseClan = 1 };

// Engine types; the numeric order is not the order of the list on screen.
enum : int16_t {
    kEngICE = 0,
    kEngFusion = 1,
    kEngFusionXL = 2,
    kEngLargeICE = 3,
    kEngFusionXXL = 4,
    kEngLargeFusionXL = 5,
    kEngLargeFusionXXL = 6,
    kEngLargeFusion = 7,
};

// Vehicle armor types.
enum : int16_t {
    kArmNormal = 0,
    kArmFerroFibrous = 1,
    kArmLightFerro = 2,
    kArmHeavyFerro = 3,
    kArmLaserReflective = 4,
    kArmReactive = 5,
};

// Weapon categories (Type of a weapon row).
enum : int16_t {
    kWpnEnergy = 0,
    kWpnBallistic = 1,
    kWpnMissile = 2,
    kWpnEquipment = 3,
    kWpnAmmunition = 4,
    kWpnArtillery = 5,
};

// Vehicle locations; 99 is the body, -1 not allocated.
enum : int16_t {
    kLocUnallocated = -1,
    kLocFront = 0,
    kLocLeft = 1,
    kLocRight = 2,
    kLocRear = 3,
    kLocTurret = 4,
    kLocSecondTurret = 5,
    kLocLeftSponson = 6,
    kLocRightSponson = 7,
    kLocFrontRight = 8,
    kLocFrontLeft = 9,
    kLocRearRight = 10,
    kLocRearLeft = 11,
    kLocBody = 99,
};

std::string zVehicleTypeName(int16_t vhlType);
std::string zFighterTypeName(int16_t fighterType);
std::string zDropshipTypeName(int16_t dsType);
std::string zDropshipUseName(int16_t dsUse);
std::string zTechBaseName(int16_t techBase);
std::string zWeaponCategoryName(int16_t type);
std::string zEngineName(int16_t engineType);
int16_t zEngineCodeFromName(const std::string& name);
int16_t zEngineItemSlots(int16_t engineType, int16_t techBase);
int32_t zEngineCostFactor(int16_t engineType);
// Applies the engine type's multiplier to the base engine tonnage; XL and
// XXL types first divide tons in place (the caller keeps the new value).
double zEngineTonnageMultiply(double& tons, int16_t engineType);
// Base engine weight for a rating, shared by vehicles and fighters: 0 for 0,
// the table for multiples of five up to 400, and 100 for every other rating.
double zBaseEngineWeight(int16_t rating);
std::string zVehicleArmorName(int16_t armorType);
// The item-slot test of a vehicle armor type when chosen; 0 for none.
int16_t zVehicleArmorItemSlots(int16_t armorType);
std::string zFighterArmorName(int16_t armorType);
std::string zRotorConfigName(int16_t rotorConfig);
std::string zBridgeLayerName(int16_t bridgeLayerType);
std::string zOmniConfigName(int16_t config);
std::string zItemLocationName(int16_t code, int16_t vhlType);
std::string zArmorLocationName(int16_t code, int16_t vhlType);
std::string zFighterLocationName(int16_t code);
std::string zDropshipLocationName(int16_t code);
// Range-class keyword of the naval weapon text; an unknown keyword is shown
// in a message box and gives 0.
int16_t zNavalWeaponClassCode(const std::string& keyword);

}  // namespace bw
