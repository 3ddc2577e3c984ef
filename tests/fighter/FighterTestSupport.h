// Shared set-up of the fighter tests: a small weapon table of known rows, a
// window stand-in that records what the design asks of it, and designs made
// as the New Fighter command makes them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "fighter/Fighter.h"
#include "refdata/Weapons.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"

namespace bw::test {

// Row numbers of the test table.
enum : int16_t {
    kMedLaser = 0,    // energy, 1 t, heat 3, linked to a targeting computer
    kLargeLaser = 1,  // energy, 5 t, heat 8, linked
    kAC5 = 2,         // ballistic, 8 t, heat 1, not linked
    kAC5Ammo = 3,     // ammunition, 1 t
    kSRMAmmo = 4,     // ammunition, 1 t
    kCargo = 5,       // "Cargo Bay", equipment, 1 t
    kFlamer = 6,      // energy, 1 t, heat -1 (no heat counted)
    kPPC = 7,         // energy, 7 t, heat 10, linked
    kSmallLaser = 8,  // energy, 0.5 t, heat 1
};

inline WeaponRec FighterRow(const std::string& name, int16_t type, double tons, int16_t heat, int16_t tcFlag = 0,
                            int32_t cost = 0) {
    WeaponRec r;
    r.Name = name;
    r.Type = type;
    r.Tonnage = tons;
    r.Heat = heat;
    r.TCFlag = tcFlag;
    r.Cost = cost;
    return r;
}

class ScopedFighterWeapons {
public:
    ScopedFighterWeapons() : saved_(gWeapons) {
        gWeapons = {
            FighterRow("Medium Laser", 0, 1, 3, 1, 40000),   FighterRow("Large Laser", 0, 5, 8, 1, 100000),
            FighterRow("AC/5", 1, 8, 1, 0, 125000),          FighterRow("AC/5 Ammo", 4, 1, 0, 0, 4500),
            FighterRow("SRM 2 Ammo", 4, 1, 0, 0, 27000),     FighterRow("Cargo Bay", 3, 1, 0),
            FighterRow("Flamer", 0, 1, -1, 0, 7500),         FighterRow("PPC", 0, 7, 10, 1, 200000),
            FighterRow("Small Laser", 0, 0.5, 1, 0, 11250),
        };
    }
    ~ScopedFighterWeapons() { gWeapons = saved_; }
    ScopedFighterWeapons(const ScopedFighterWeapons&) = delete;
    ScopedFighterWeapons& operator=(const ScopedFighterWeapons&) = delete;

private:
    std::vector<WeaponRec> saved_;
};

// The editor as the design sees it: every request in order, one word each.
class RecordingFighterWindow : public FighterWindow {
public:
    std::vector<std::string> calls;
    TreeView tree{"tvSelEQ"};
    void zSetLoading(int16_t v) override { calls.push_back("loading " + std::to_string(v)); }
    void zShowFuelTonnage(int16_t v) override { calls.push_back("fuel " + std::to_string(v)); }
    void zShowHeatSinks(int16_t v) override { calls.push_back("sinks " + std::to_string(v)); }
    void zShowTCStatus(bool on) override { calls.push_back(on ? "tc on" : "tc off"); }
    TreeView& zSelectedTree() override { return tree; }
    void zFreezeChassis() override { calls.push_back("chassis"); }
    void zEnableConfigList() override { calls.push_back("configs"); }
    void zHoldLoadoutMinimums() override { calls.push_back("minimums"); }
    void zFreezeTC() override { calls.push_back("freeze tc"); }
    void zFreezeArmor() override { calls.push_back("armor"); }
};

class FighterTest : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    AppFolder app;
    ScopedFighterWeapons weapons;

    // A design made as the New Fighter command makes it, then steered to
    // the tonnage and thrust as the editor does.
    static Fighter Made(int16_t type, int16_t tons, int16_t thrust, int16_t base = kBaseClan, int16_t level = 2) {
        Fighter f;
        f.FighterType = type;
        f.SetTonnage(5);
        f.SetCruiseSpeed(1);
        f.TechBase = base;
        f.TechLevel = level;
        f.SetEngineType(type == kFtrConventional ? kEngICE : kEngFusion);
        if (type != kFtrConventional) f.SetHeatSinks(10);
        f.SetTonnage(tons);
        f.SetCruiseSpeed(thrust);
        f.CalcEngineRating();
        return f;
    }

    // The one report of an error under procName with its number.
    void ExpectOneReport(const std::string& procName, int32_t number) {
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        const RecordedBox& b = fake.ui.boxes[0];
        EXPECT_EQ(b.title, "Error");
        EXPECT_EQ(b.icon, MsgIcon::Critical);
        EXPECT_EQ(b.text, zErrorReportText(procName, number, zErrorDescription(number)));
    }
};

// An entry as the list holds it.
inline FighterWeapon Entry(int16_t idx, int16_t num, int16_t loc = -1, int16_t slot = -1, int16_t base = 0) {
    return FighterWeapon{idx, num, base, kTrue, slot, loc};
}

}  // namespace bw::test
