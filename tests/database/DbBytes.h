// Expected database bytes, built from the record layout independently of
// the writer: a field table in file order and a plain little-endian
// appender. Tests fill designs with a distinct value per field, build the
// bytes from this table, and compare with what the writer produced.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw::test {

class Bytes {
public:
    Bytes& I16(int v) {
        const auto u = static_cast<uint16_t>(static_cast<int16_t>(v));
        s_.push_back(static_cast<char>(u & 0xFF));
        s_.push_back(static_cast<char>(u >> 8));
        return *this;
    }
    Bytes& F64(double d) {
        unsigned char b[8];
        std::memcpy(b, &d, 8);  // the test machines are little-endian
        s_.append(reinterpret_cast<const char*>(b), 8);
        return *this;
    }
    Bytes& Text(const std::string& t, size_t width) {
        std::string x = t.substr(0, width);
        x.resize(width, ' ');
        s_ += x;
        return *this;
    }
    Bytes& Raw(const std::string& r) {
        s_ += r;
        return *this;
    }
    Bytes& Header(int version = 2) { return Text("Brasswick Works 3 Database", 30).I16(version); }
    const std::string& str() const { return s_; }
    size_t size() const { return s_.size(); }

private:
    std::string s_;
};

// One numeric field of a record: its name, whether it is a double, and where
// it lives in the object.
template <class T>
struct FieldDef {
    const char* name;
    int16_t T::*i16 = nullptr;
    double T::*f64 = nullptr;
};

#define BW_I(cls, f) FieldDef<cls>{#f, &cls::f, nullptr}
#define BW_D(cls, f) FieldDef<cls>{#f, nullptr, &cls::f}

// Vehicle record fields 2 to 79 in file order (the name comes first, the
// item count field and items after).
inline const std::vector<FieldDef<Vehicle>>& VehicleLayout() {
    static const std::vector<FieldDef<Vehicle>> t = {
        BW_I(Vehicle, VhlType),           BW_I(Vehicle, Tonnage),
        BW_D(Vehicle, ISTonnage),         BW_D(Vehicle, TotalTonnage),
        BW_D(Vehicle, FreeTonnage),       BW_I(Vehicle, TechBase),
        BW_I(Vehicle, TechLevel),         BW_I(Vehicle, MovementType),
        BW_I(Vehicle, CruiseSpeed),       BW_I(Vehicle, FlankSpeed),
        BW_I(Vehicle, EngineType),        BW_I(Vehicle, EngineRating),
        BW_D(Vehicle, EngineTonnage),     BW_I(Vehicle, SuspensionFactor),
        BW_I(Vehicle, HeatSinks),         BW_I(Vehicle, HeatSinkTonnage),
        BW_I(Vehicle, ArmorType),         BW_D(Vehicle, ArmorTonnage),
        BW_I(Vehicle, ArmorPoints),       BW_I(Vehicle, ArmorAllocated),
        BW_I(Vehicle, FrontArmor),        BW_I(Vehicle, LeftArmor),
        BW_I(Vehicle, RightArmor),        BW_I(Vehicle, RearArmor),
        BW_I(Vehicle, TurretArmor),       BW_I(Vehicle, SecTurretArmor),
        BW_I(Vehicle, FrontLeftArmor),    BW_I(Vehicle, FrontRightArmor),
        BW_I(Vehicle, RearLeftArmor),     BW_I(Vehicle, RearRightArmor),
        BW_I(Vehicle, HasTurret),         BW_D(Vehicle, TurretTonnage),
        BW_I(Vehicle, HasSecTurret),      BW_D(Vehicle, SecTurretTonnage),
        BW_I(Vehicle, HasSponsonTurrets), BW_D(Vehicle, SponsonTurretTonnage),
        BW_I(Vehicle, HasSupercharger),   BW_D(Vehicle, SuperchargerTonnage),
        BW_I(Vehicle, HasMastMount),      BW_D(Vehicle, MastMountTonnage),
        BW_I(Vehicle, BaseCrew),          BW_I(Vehicle, NumCrew),
        BW_D(Vehicle, CrewTonnage),       BW_I(Vehicle, HasBridgeLayer),
        BW_I(Vehicle, BridgeLayerType),   BW_D(Vehicle, BridgeLayerTonnage),
        BW_I(Vehicle, HasBulldozer),      BW_D(Vehicle, BulldozerTonnage),
        BW_I(Vehicle, HasMinesweeper),    BW_D(Vehicle, MinesweeperTonnage),
        BW_I(Vehicle, HasMASHUnit),       BW_I(Vehicle, MASHTheatres),
        BW_D(Vehicle, MASHTonnage),       BW_I(Vehicle, HasAmphibEquip),
        BW_D(Vehicle, AmphibTonnage),     BW_I(Vehicle, HasDuneBuggyEquip),
        BW_D(Vehicle, DuneBuggyTonnage),  BW_I(Vehicle, HasSnowmobileEquip),
        BW_D(Vehicle, SnowmobileTonnage), BW_I(Vehicle, HasCoolantSystem),
        BW_D(Vehicle, CoolantSystemTonnage), BW_I(Vehicle, HasJumpJet),
        BW_I(Vehicle, NumJumpJets),       BW_D(Vehicle, JumpJetTonnage),
        BW_I(Vehicle, HasMobileHQ),       BW_D(Vehicle, MobileHQTonnage),
        BW_D(Vehicle, ControlTonnage),    BW_D(Vehicle, PowerAmpTonnage),
        BW_D(Vehicle, LiftEqTonnage),     BW_I(Vehicle, MaxItems),
        BW_I(Vehicle, NumItems),          BW_I(Vehicle, RotorConfig),
        BW_I(Vehicle, HasTC),             BW_D(Vehicle, TCTonnage),
        BW_I(Vehicle, EnergyHeat),        BW_D(Vehicle, EnergyTonnage),
        BW_D(Vehicle, TurretWeaponTonnage), BW_D(Vehicle, WeaponTonnage),
    };
    return t;
}

// Fighter common head, fields 2 to 28.
inline const std::vector<FieldDef<Fighter>>& FighterHeadLayout() {
    static const std::vector<FieldDef<Fighter>> t = {
        BW_I(Fighter, FighterType),   BW_I(Fighter, Tonnage),        BW_I(Fighter, SIRating),
        BW_D(Fighter, CockpitTonnage), BW_D(Fighter, TotalTonnage),  BW_D(Fighter, FreeTonnage),
        BW_I(Fighter, TechBase),      BW_I(Fighter, TechLevel),      BW_I(Fighter, CruiseSpeed),
        BW_I(Fighter, FlankSpeed),    BW_I(Fighter, EngineType),     BW_I(Fighter, EngineRating),
        BW_D(Fighter, EngineTonnage), BW_I(Fighter, HeatSinkType),   BW_I(Fighter, ArmorType),
        BW_D(Fighter, ArmorTonnage),  BW_I(Fighter, ArmorPoints),    BW_I(Fighter, ArmorAllocated),
        BW_I(Fighter, FrontArmor),    BW_I(Fighter, LeftArmor),      BW_I(Fighter, RightArmor),
        BW_I(Fighter, FuselageArmor), BW_I(Fighter, CPArmor),        BW_I(Fighter, EngineArmor),
        BW_D(Fighter, PowerAmpTonnage), BW_I(Fighter, HasVTOLJets),  BW_D(Fighter, VTOLJetTonnage),
    };
    return t;
}

// The tail of a Conventional or Aerospace fighter, fields 29 to 38.
inline const std::vector<FieldDef<Fighter>>& FighterPlainTailLayout() {
    static const std::vector<FieldDef<Fighter>> t = {
        BW_I(Fighter, HeatSinks),   BW_I(Fighter, HeatSinkTonnage), BW_I(Fighter, FuelTonnage),
        BW_I(Fighter, HasTC),       BW_D(Fighter, TCTonnage),       BW_I(Fighter, TCLocation),
        BW_I(Fighter, EnergyHeat),  BW_D(Fighter, EnergyTonnage),   BW_I(Fighter, WeaponHeat),
        BW_D(Fighter, WeaponTonnage),
    };
    return t;
}

#undef BW_I
#undef BW_D

// Gives every field of the table a value of its own (k-th field: k + seed
// for integers, k + seed + 0.25 for doubles), so that any two fields swapped
// in the file show up.
template <class T>
void FillDistinct(T& obj, const std::vector<FieldDef<T>>& layout, int seed) {
    int k = 0;
    for (const auto& f : layout) {
        ++k;
        if (f.i16) obj.*(f.i16) = static_cast<int16_t>(k + seed);
        else obj.*(f.f64) = k + seed + 0.25;
    }
}

template <class T>
void AppendFields(Bytes& b, const T& obj, const std::vector<FieldDef<T>>& layout) {
    for (const auto& f : layout) {
        if (f.i16) b.I16(obj.*(f.i16));
        else b.F64(obj.*(f.f64));
    }
}

}  // namespace bw::test
