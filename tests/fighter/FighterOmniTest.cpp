// Omni-Fighter configurations: the data indices, switching and seeding, what
// the editor is asked to do, the save checks, and a stored design.
#include <gtest/gtest.h>

#include "FighterTestSupport.h"
#include "core/BinaryIO.h"
#include "database/DatabaseFile.h"

using namespace bw;
using namespace bw::test;

namespace {

// A base of two medium lasers allocated in the Nose, 4 tons of fuel, 12
// sinks, a computer in the Rear.
Fighter OmniBase() {
    Fighter f;
    f.FighterType = kFtrOmni;
    f.TechBase = kBaseClan;
    f.TechLevel = 2;
    f.SetTonnage(50);
    f.SetCruiseSpeed(5);
    f.CalcEngineRating();
    f.SetEngineType(kEngFusion);
    f.OmniConfigUsed[0] = kTrue;
    f.SetFuelTonnage(4);
    f.SetHeatSinks(12);
    f.TCLocation = kFtrLocRear;
    f.OmniTCLocation[0] = kFtrLocRear;
    f.SetTCStatus(1);
    f.AddWeapon(kMedLaser);
    f.AddWeapon(kMedLaser);
    f.UpdateWeaponLocation(0, kFtrLocNose, 0);
    f.UpdateWeaponLocation(1, kFtrLocNose, 1);
    f.CalcTotalTonnage();
    return f;
}

}  // namespace

TEST_F(FighterTest, DataIndicesReachTheirArrays) {
    Fighter f;
    std::array<int16_t, 6>* ints[] = {&f.OmniHasTC,       &f.OmniTCLocation, &f.OmniWeaponHeat,
                                      &f.OmniConfigUsed,  &f.OmniFuelTonnage, &f.OmniHeatSinks,
                                      &f.OmniHeatSinkTonnage};
    for (int16_t d = 0; d <= 6; ++d) {
        f.SetOmniData(d, 5, static_cast<int16_t>(100 + d));
        EXPECT_EQ((*ints[d])[5], 100 + d) << d;
        EXPECT_EQ(f.GetOmniData(d, 5), 100 + d) << d;
    }
    std::array<double, 6>* doubles[] = {&f.OmniWeaponTonnage, &f.OmniTCTonnage, &f.OmniTotalTonnage,
                                        &f.OmniFreeTonnage};
    for (int16_t d = 7; d <= 10; ++d) {
        f.SetOmniData2(d, 0, d + 0.5);
        EXPECT_EQ((*doubles[d - 7])[0], d + 0.5) << d;
        EXPECT_EQ(f.GetOmniData2(d, 0), d + 0.5) << d;
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, DataIndexOutOfRangeIsRefusedWithItsMessage) {
    Fighter f;
    const Fighter before = f;
    struct Case {
        std::function<void()> call;
        std::string text;
    };
    const Case cases[] = {
        {[&] { EXPECT_EQ(f.GetOmniData(7, 0), 0); }, "Invalid data index to get 7 sent to GetOmniData."},
        {[&] { EXPECT_EQ(f.GetOmniData2(6, 0), 0); }, "Invalid data index to get 6 sent to GetOmniData2."},
        {[&] { f.SetOmniData(7, 0, 5); }, "Invalid data index to set 7 sent to SetOmniData."},
        {[&] { f.SetOmniData2(6, 0, 5); }, "Invalid data index to set 6 sent to SetOmniData2."},
    };
    for (const Case& c : cases) {
        fake.ui.boxes.clear();
        c.call();
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << c.text;
        EXPECT_EQ(fake.ui.boxes[0].text, c.text);
        EXPECT_EQ(fake.ui.boxes[0].title, "Invalid index");
    }
    EXPECT_EQ(f.OmniTotalTonnage, before.OmniTotalTonnage);

    // A configuration outside 0 to 5 is the run-time's bounds error.
    fake.ui.boxes.clear();
    EXPECT_EQ(f.GetOmniData(0, 6), 0);
    ExpectOneReport("Fighter.GetOmniData", kErrSubscript);
    fake.ui.boxes.clear();
    f.ChangeOmniConfig(6);
    ExpectOneReport("Fighter.ChangeOmniConfig", kErrSubscript);
    EXPECT_EQ(f.OmniCurrentConfig, 0);
}

TEST_F(FighterTest, AConfigurationIsSeededFromTheBaseOnItsFirstVisitOnly) {
    Fighter f = OmniBase();
    f.OmniTCLocation[3] = kFtrLocRightWing;  // the base's Rear (3) names configuration 3's entry
    f.ChangeOmniConfig(1);
    EXPECT_EQ(f.OmniConfigUsed[1], kTrue);
    EXPECT_EQ(f.HasTC, kTrue);
    EXPECT_EQ(f.TCLocation, kFtrLocRightWing);
    EXPECT_EQ(f.FuelTonnage + f.HeatSinks + f.HeatSinkTonnage, 4 + 12 + 2);
    EXPECT_EQ(f.Weapons, f.OmniWeapons[0]);  // base flags included
    EXPECT_EQ(f.TCTonnage, 1);  // made again, not read back
    EXPECT_EQ(f.OmniTotalTonnage[1], 17.5);

    // What the user does there stays through a second visit.
    f.SetFuelTonnage(6);
    f.AddWeapon(kAC5);
    EXPECT_EQ(f.Weapons.back().wBase, 0);
    EXPECT_EQ(f.OmniFuelTonnage, (std::array<int16_t, 6>{4, 6, 0, 0, 0, 0}));
    f.ChangeOmniConfig(2);
    EXPECT_EQ(f.FuelTonnage, 4);
    EXPECT_EQ(f.WeaponCount(), 2);
    f.ChangeOmniConfig(1);
    EXPECT_EQ(f.FuelTonnage, 6);
    EXPECT_EQ(f.WeaponCount(), 3);
    EXPECT_EQ(f.OmniWeaponTonnage[1], 10);
    EXPECT_EQ(f.OmniWeaponHeat[1], 7);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, SeedingWithoutBaseWeaponsOrComputerLeavesThoseAlone) {
    Fighter f = Made(kFtrOmni, 50, 5);
    f.SetFuelTonnage(3);
    f.OmniWeapons[4] = {Entry(kPPC, 1, 0, 0)};
    f.OmniTCLocation[4] = kFtrLocNose;
    f.ChangeOmniConfig(4);
    EXPECT_EQ(f.Weapons, (std::vector<FighterWeapon>{Entry(kPPC, 1, 0, 0)}));
    EXPECT_EQ(f.OmniHasTC[4], 0);
    EXPECT_EQ(f.TCLocation, kFtrLocNose);
    EXPECT_EQ(f.FuelTonnage, 3);
    // Back to the base: never seeded, read as it stands.
    f.ChangeOmniConfig(0);
    EXPECT_EQ(f.Weapons, std::vector<FighterWeapon>(1));
}

TEST_F(FighterTest, SwitchingShowsTheFiguresUnderTheLoadingFlag) {
    Fighter f = OmniBase();
    RecordingFighterWindow w;
    f.frm = &w;
    f.ChangeOmniConfig(1);
    EXPECT_EQ(w.calls, (std::vector<std::string>{"loading -1", "fuel 4", "sinks 12", "loading 0", "tc on"}));
    w.calls.clear();
    f.OmniHasTC[2] = kFalse;
    f.OmniConfigUsed[2] = kTrue;
    f.OmniFuelTonnage[2] = 9;
    f.ChangeOmniConfig(2);
    EXPECT_EQ(w.calls, (std::vector<std::string>{"loading -1", "fuel 9", "sinks 0", "loading 0", "tc off"}));

    struct Case {
        int16_t baseTC;
        std::vector<std::string> calls;
    };
    const Case cases[] = {
        {kTrue, {"chassis", "configs", "minimums", "freeze tc", "armor"}},
        {kFalse, {"chassis", "configs", "minimums", "armor"}},
    };
    for (const Case& c : cases) {
        w.calls.clear();
        f.OmniHasTC[0] = c.baseTC;
        f.DisableOmniControls();
        EXPECT_EQ(w.calls, c.calls);
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, SaveChecksCountEveryConfigurationThatWasEntered) {
    Fighter f = OmniBase();
    EXPECT_EQ(f.OmniCheckTonnages(), kTrue);
    f.OmniFreeTonnage[3] = -5;  // never entered: does not count
    EXPECT_EQ(f.OmniCheckTonnages(), kTrue);
    f.OmniConfigUsed[3] = kTrue;
    EXPECT_EQ(f.OmniCheckTonnages(), kFalse);
    f.OmniFreeTonnage[3] = 0;
    EXPECT_EQ(f.OmniCheckTonnages(), kTrue);

    // Other kinds hold only empty entries, at location 0.
    EXPECT_EQ(Made(kFtrAerospace, 50, 5).OmniCheckAllocatedWeapons(), kTrue);
    EXPECT_EQ(f.OmniCheckAllocatedWeapons(), kTrue);
    f.OmniWeapons[5] = {Entry(kPPC, 1, 0, 0), FighterWeapon{kPPC, 2, 0, kFalse, -1, -1}};
    EXPECT_EQ(f.WeaponCount(5), 1);
    EXPECT_EQ(f.OmniCheckAllocatedWeapons(), kFalse);  // a free place counts too
}

TEST_F(FighterTest, ALockedOmniFighterSurvivesTheDatabaseByteForByte) {
    Fighter f = OmniBase();
    f.SetName("Sulla Prime");
    f.OmniBaseLocked = kTrue;
    f.ChangeOmniConfig(1);
    f.AddWeapon(kAC5);
    f.UpdateWeaponLocation(2, kFtrLocLeftWing, 3);
    f.SetFuelTonnage(5);
    f.CalcTotalTonnage();
    f.ChangeOmniConfig(2);

    BinaryWriter w;
    zWriteFighterRecord(w, f);
    BinaryReader r(w.Data());
    Fighter back;
    zReadFighterRecord(r, back);
    EXPECT_EQ(r.Remaining(), 0u);
    // Live figures from the base, the list of "Primary", the base on show.
    EXPECT_EQ(back.OmniCurrentConfig, 0);
    EXPECT_EQ(back.FuelTonnage, 4);
    EXPECT_EQ(back.Weapons, f.OmniWeapons[1]);
    BinaryWriter again;
    zWriteFighterRecord(again, back);
    EXPECT_EQ(again.Data(), w.Data());
}
