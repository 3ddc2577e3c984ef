// Shared set-up of the evaluation tests: a weapon table of the rows these
// tests need, designs written field by field, and a check of error reports.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "vehicle/Vehicle.h"

namespace bw::test {

enum : int16_t {
    kMedLaser = 0,   // energy 1 t, heat 3, damage 5 to 3/6/9, cost 40000, value 10
    kLRM5 = 1,       // missile 2 t, heat 2, damage 1 or 5 a unit to 7/14/21, cost 30000, value 8
    kLRMAmmo = 2,    // ammunition 1 t, cost 30000, value 5
    kLongTom = 3,    // artillery 30 t, heat 20, damage 20 over 20 maps, cost 450000, value 70
    kLight = 4,      // equipment 0.5 t, no damage, cost 2000, value -1
    kBigGun = 5,     // ballistic 10 t, heat 3, damage 120 at one hex, cost 200000, value 20
    kShortLaser = 6, // energy 1 t, damage 5 to 3 hexes, cost 10000, value 6
    kNoShort = 7,    // energy 1 t, damage 4, no short or medium band, long 4
    kZeroSplit = 8,  // missile 1 t, damage 0 with a unit value of 7
    kDudMap = 9,     // artillery on maps whose unit value is 0
    kHotGun = 10,    // ballistic 1 t, heat 400, value 3
    kColdGun = 11,   // ballistic 1 t, heat 5, value -1
    kHeatTool = 12,  // equipment 1 t, heat 4, value 2
};

inline WeaponRec Row(const std::string& name, int16_t type, double tons, int16_t heat, int16_t damage,
                     int16_t unitValue, int16_t s, int16_t m, int16_t l, const std::string& unit, int32_t cost,
                     int16_t value) {
    WeaponRec r;
    r.Name = name;
    r.Type = type;
    r.Level = 1;
    r.Tonnage = tons;
    r.Heat = heat;
    r.Damage = damage;
    r.HasDamageUnit = unitValue;
    r.ShortRange = s;
    r.MedRange = m;
    r.LongRange = l;
    r.RangeUnit = unit;
    r.Cost = cost;
    r.CombatValue = value;
    return r;
}

class ScopedEvalWeapons {
public:
    ScopedEvalWeapons() : saved_(gWeapons) {
        gWeapons = {
            Row("Medium Laser", 0, 1, 3, 5, -1, 3, 6, 9, "Hex", 40000, 10),
            Row("LRM 5", 2, 2, 2, 1, 5, 7, 14, 21, "Hex", 30000, 8),
            Row("LRM 5 Ammo", 4, 1, 0, -1, -1, -1, -1, -1, "Hex", 30000, 5),
            Row("Long Tom", 5, 30, 20, 20, -1, -1, -1, 20, "Map", 450000, 70),
            Row("Searchlight", 3, 0.5, 0, -1, -1, -1, -1, -1, "Hex", 2000, -1),
            Row("Big Gun", 1, 10, 3, 120, -1, 1, 1, 1, "Hex", 200000, 20),
            Row("Short Laser", 0, 1, 1, 5, -1, 3, 3, 3, "Hex", 10000, 6),
            Row("No Short", 0, 1, 1, 4, -1, -1, -1, 4, "Hex", 10000, 4),
            Row("Zero Split", 2, 1, 1, 0, 7, 3, 6, 9, "Hex", 10000, 4),
            Row("Dud Map", 5, 10, 5, 10, 0, -1, -1, 5, "Map", 10000, 4),
            Row("Hot Gun", 1, 1, 400, 1, -1, 1, 2, 3, "Hex", 1000, 3),
            Row("Cold Gun", 1, 1, 5, 1, -1, 1, 2, 3, "Hex", 1000, -1),
            Row("Heat Tool", 3, 1, 4, -1, -1, -1, -1, -1, "Hex", 1000, 2),
        };
    }
    ~ScopedEvalWeapons() { gWeapons = saved_; }
    ScopedEvalWeapons(const ScopedEvalWeapons&) = delete;
    ScopedEvalWeapons& operator=(const ScopedEvalWeapons&) = delete;

private:
    std::vector<WeaponRec> saved_;
};

class EvalTest : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    AppFolder app;
    ScopedEvalWeapons weapons;

    // A design with fields set by hand; only items are added here.
    static Vehicle Design(int16_t type, int16_t tons) {
        Vehicle v;
        v.OverrideInteractiveMode();
        v.VhlType = type;
        v.Tonnage = tons;
        return v;
    }
    static void Mount(Vehicle& v, const std::vector<int16_t>& rows) {
        for (int16_t r : rows) {
            VehicleItem it;
            it.wType = r;
            it.wNum = 1;
            it.wLoc = 0;
            it.wStatus = kTrue;
            // Element 0 is the free element of a design without items.
            if (v.Items.size() == 1 && v.Items[0].wStatus != kTrue)
                v.Items[0] = it;
            else
                v.Items.push_back(it);
        }
    }

    // A 50-ton Fusion hovercraft with a turret and an extra crewman, its
    // fields set as the editor leaves them.
    static Vehicle Hover() {
        Vehicle v = Design(kVhlHover, 50);
        v.EngineType = kEngFusion;
        v.EngineRating = 250;
        v.ControlTonnage = 2.5;
        v.ISTonnage = 5;
        v.HeatSinks = 12;
        v.ArmorTonnage = 6.5;
        v.ArmorType = kArmFerroFibrous;
        v.ArmorPoints = 104;
        v.HasTurret = kTrue;
        v.TurretTonnage = 1.5;
        v.LiftEqTonnage = 5;
        v.BaseCrew = 4;
        v.NumCrew = 5;
        return v;
    }

    void ExpectOneReport(const std::string& procName, int32_t number) {
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        const RecordedBox& b = fake.ui.boxes[0];
        EXPECT_EQ(b.title, "Error");
        EXPECT_EQ(b.icon, MsgIcon::Critical);
        EXPECT_EQ(b.text, zErrorReportText(procName, number, zErrorDescription(number)));
    }
};

}  // namespace bw::test
