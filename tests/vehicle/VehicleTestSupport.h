// Shared set-up of the vehicle tests: a small weapon table of known rows, a
// window stand-in that records what the design asks of it, and a check of
// the error reports.
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

// Row numbers of the test table.
enum : int16_t {
    kMedLaser = 0,     // energy, 1 t, heat 3, targeting computer counts it
    kLargeLaser = 1,   // energy, 5 t, heat 8, counts
    kAC5 = 2,          // ballistic, 8 t, heat 1, counts
    kAC5Ammo = 3,      // ammunition, 1 t
    kSRMAmmo = 4,      // ammunition, 1 t
    kCargo = 5,        // "Cargo Space", equipment, 1 t
    kPassengers = 6,   // "Passengers", equipment, 1 t
    kNavalGun = 7,     // ballistic, UseClass 2
    kClanLaser = 8,    // Clan energy
    kLevel3Gun = 9,    // Inner Sphere level 3 missile
    kSearchlight = 10, // equipment, 0.5 t
    kFlamer = 11,      // energy, 1 t, heat -1 (no heat counted)
    kHotLaser = 12,    // energy, 1 t, heat 20000 (overflow of the heat sum)
    kArtillery = 13,   // artillery, level 2
};

inline WeaponRec MakeRow(const std::string& name, int16_t type, double tons, int16_t heat, int16_t tcFlag = 0,
                         int16_t base = 0, int16_t level = 1, int16_t useClass = 0) {
    WeaponRec r;
    r.Name = name;
    r.Type = type;
    r.Tonnage = tons;
    r.Heat = heat;
    r.TCFlag = tcFlag;
    r.Base = base;
    r.Level = level;
    r.UseClass = useClass;
    return r;
}

// Installs the test table for the life of a test and puts the old one back.
class ScopedWeapons {
public:
    ScopedWeapons() : saved_(gWeapons) {
        gWeapons = {
            MakeRow("Medium Laser", 0, 1, 3, 1),
            MakeRow("Large Laser", 0, 5, 8, 1),
            MakeRow("AC/5", 1, 8, 1, 1),
            MakeRow("AC/5 Ammo", 4, 1, 0),
            MakeRow("SRM 2 Ammo", 4, 1, 0),
            MakeRow("Cargo Space", 3, 1, 0),
            MakeRow("Passengers", 3, 1, 0),
            MakeRow("Naval Gun", 1, 10, 2, 0, 0, 1, 2),
            MakeRow("ER Medium Laser", 0, 1, 5, 1, 1, 2),
            MakeRow("Arrow IV", 2, 15, 10, 0, 0, 3),
            MakeRow("Searchlight", 3, 0.5, 0),
            MakeRow("Flamer", 0, 1, -1),
            MakeRow("Hot Laser", 0, 1, 20000),
            MakeRow("Long Tom", 5, 30, 20, 0, 0, 2),
        };
    }
    ~ScopedWeapons() { gWeapons = saved_; }
    ScopedWeapons(const ScopedWeapons&) = delete;
    ScopedWeapons& operator=(const ScopedWeapons&) = delete;

private:
    std::vector<WeaponRec> saved_;
};

// The editor as the design sees it.
class RecordingWindow : public VehicleWindow {
public:
    int updates = 0;
    std::vector<int16_t> crewShown;
    void zUpdateWeapons() override { ++updates; }
    void zShowCrew(int16_t wCrew) override { crewShown.push_back(wCrew); }
};

// Every vehicle test: scripted UI, a throw-away program folder for the log,
// the test weapon table.
class VehicleTest : public ::testing::Test {
protected:
    ScopedFakeUi fake;
    AppFolder app;
    ScopedWeapons weapons;

    // A design with no window, as the database and the reports hold them.
    static Vehicle Detached() {
        Vehicle v;
        v.OverrideInteractiveMode();
        return v;
    }

    // A design made as the New Vehicle command makes it.
    static Vehicle Made(int16_t type, int16_t tons, int16_t speed, int16_t base = 0, int16_t level = 3) {
        Vehicle v = Detached();
        v.SetTechBase(base);
        v.SetTechLevel(level);
        v.SetType(type);
        v.SetTonnage(5);
        v.SetCruiseSpeed(1);
        v.SetEngineType(0);
        v.SetTonnage(tons);
        v.SetCruiseSpeed(speed);
        v.CalcEngineRating();
        return v;
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

}  // namespace bw::test
