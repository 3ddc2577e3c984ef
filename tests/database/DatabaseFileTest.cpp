// The record layouts byte for byte, the count rules, names, and damaged
// input of every kind.
#include <gtest/gtest.h>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "database/DbBytes.h"
#include "support/FakeUi.h"

namespace bw {
namespace {

using test::Bytes;

// Writing compacts the design's item list, so tests write a copy.
std::string Written(Vehicle v) {
    BinaryWriter w;
    EXPECT_TRUE(SaveData(v, w));
    return w.Data();
}

std::string Written(const Fighter& f) {
    BinaryWriter w;
    EXPECT_TRUE(SaveData(f, w));
    return w.Data();
}

Vehicle DistinctVehicle() {
    Vehicle v;
    v.Name = "Demolisher";
    test::FillDistinct(v, test::VehicleLayout(), 100);
    return v;
}

class DatabaseFile : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    void SetUp() override { gLogFile = "/dev/null"; }
};

TEST_F(DatabaseFile, VehicleWithoutItemsMatchesTheLayoutAndReadsBack) {
    Vehicle v = DistinctVehicle();
    v.TCLocation = 4;  // not stored
    Bytes want;
    want.Text("Demolisher", 50);
    test::AppendFields(want, v, test::VehicleLayout());
    want.I16(-1);
    const std::string got = Written(v);
    EXPECT_EQ(got, want.str());
    EXPECT_EQ(got.size(), kVehicleFixedBytes);

    // Read back, every field lands where the writer took it from: written
    // again, the bytes are the same.
    BinaryReader r(got);
    Vehicle back;
    back.TCLocation = 7;
    ASSERT_TRUE(LoadData(back, r));
    EXPECT_TRUE(r.AtEnd());
    EXPECT_EQ(Written(back), got);
    EXPECT_EQ(back.TCLocation, 0);
    ASSERT_EQ(back.Items.size(), 1u);
    EXPECT_EQ(back.Items[0].wStatus, 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(DatabaseFile, ItemCountFollowsItemZero) {
    Vehicle v = DistinctVehicle();
    v.Items = {{3, 1, 0, -1}, {3, 2, 99, -1}, {7, 1, -1, -1}};
    Bytes want;
    want.Text(v.Name, 50);
    test::AppendFields(want, v, test::VehicleLayout());
    want.I16(2).I16(3).I16(1).I16(0).I16(-1).I16(3).I16(2).I16(99).I16(-1).I16(7).I16(1).I16(-1).I16(-1);
    const std::string got = Written(v);
    EXPECT_EQ(got, want.str());

    BinaryReader r(got);
    Vehicle back;
    ASSERT_TRUE(LoadData(back, r));
    EXPECT_EQ(Written(back), got);

    // A hole is squeezed out before writing: the used items follow in
    // their order and the design itself is left compact.
    v.Items[0].wStatus = 0;
    BinaryWriter holed;
    ASSERT_TRUE(SaveData(v, holed));
    ASSERT_EQ(v.Items.size(), 2u);
    EXPECT_EQ(v.Items[0].wLoc, 99);
    Bytes tail;
    tail.I16(1).I16(3).I16(2).I16(99).I16(-1).I16(7).I16(1).I16(-1).I16(-1);
    EXPECT_EQ(holed.Data().substr(kVehicleFixedBytes - 2), tail.str());

    // No item used: the count is -1 and no item follows.
    for (auto& item : v.Items) item.wStatus = 0;
    const std::string empty = Written(v);
    EXPECT_EQ(empty.size(), kVehicleFixedBytes);
    EXPECT_EQ(empty.substr(empty.size() - 2), Bytes().I16(-1).str());
}

TEST_F(DatabaseFile, NamesArePaddedCutAndTrimmed) {
    const std::string fifty(50, 'x');
    // {name, the 50 bytes stored, the name read back}; Windows-1252 bytes go through untouched.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {fifty, fifty, fifty},
        {fifty + "yz", fifty, fifty},
        {"Ab", "Ab" + std::string(48, ' '), "Ab"},
        {"   Leading", "   Leading" + std::string(40, ' '), "Leading"},
        {"Inner  Blanks", "Inner  Blanks" + std::string(37, ' '), "Inner  Blanks"},
        {"Sch\xe4" "fer \x80", "Sch\xe4" "fer \x80" + std::string(41, ' '), "Sch\xe4" "fer \x80"},
    };
    for (const auto& [name, stored, back] : cases) {
        Vehicle v;
        v.Name = name;
        const std::string bytes = Written(v);
        EXPECT_EQ(bytes.substr(0, 50), stored);
        BinaryReader r(bytes);
        Vehicle read;
        ASSERT_TRUE(LoadData(read, r));
        EXPECT_EQ(read.Name, back);
    }
}

Fighter DistinctFighter(int16_t type) {
    Fighter f;
    f.Name = "Sabre";
    test::FillDistinct(f, test::FighterHeadLayout(), 200);
    f.FighterType = type;
    test::FillDistinct(f, test::FighterPlainTailLayout(), 300);
    return f;
}

TEST_F(DatabaseFile, PlainFightersMatchTheLayoutWithTheirHolesSqueezedOut) {
    for (int16_t type : {int16_t{0}, int16_t{1}}) {
        SCOPED_TRACE(type);
        Fighter f = DistinctFighter(type);
        f.Weapons = {{4, 1, 0, -1, 0, 0}, {5, 1, 0, 0, -1, -1}, {6, 2, 0, -1, 3, 1}};
        Bytes want;
        want.Text("Sabre", 50);
        test::AppendFields(want, f, test::FighterHeadLayout());
        test::AppendFields(want, f, test::FighterPlainTailLayout());
        want.I16(1).I16(4).I16(1).I16(0).I16(-1).I16(0).I16(0);
        want.I16(6).I16(2).I16(0).I16(-1).I16(3).I16(1);
        const std::string got = Written(f);
        EXPECT_EQ(got, want.str());
        EXPECT_EQ(got.size(), kFighterHeadBytes + 7 * 2 + 3 * 8 + 2 + 2 * 12);
        // The object itself keeps its list.
        EXPECT_EQ(f.Weapons.size(), 3u);

        BinaryReader r(got);
        Fighter back;
        ASSERT_TRUE(LoadData(back, r));
        EXPECT_TRUE(r.AtEnd());
        EXPECT_EQ(Written(back), got);

        // No active entry at all: a count of -1.
        f.Weapons = {{4, 1, 0, 0, 0, 0}};
        const std::string none = Written(f);
        EXPECT_EQ(none.substr(none.size() - 2), Bytes().I16(-1).str());
    }
}

Fighter OmniFighter(int16_t locked) {
    Fighter f = DistinctFighter(2);
    f.OmniBaseLocked = locked;
    for (int c = 0; c < kOmniConfigs; ++c) {
        f.OmniHasTC[c] = static_cast<int16_t>(c % 2 ? -1 : 0);
        f.OmniTCTonnage[c] = 1.5 + c;
        f.OmniTCLocation[c] = static_cast<int16_t>(10 + c);
        f.OmniWeaponHeat[c] = static_cast<int16_t>(20 + c);
        f.OmniWeaponTonnage[c] = 30.25 + c;
        f.OmniTotalTonnage[c] = 40.5 + c;
        f.OmniFreeTonnage[c] = -0.75 - c;
        f.OmniConfigUsed[c] = -1;
        f.OmniFuelTonnage[c] = static_cast<int16_t>(50 + c);
        f.OmniHeatSinks[c] = static_cast<int16_t>(60 + c);
        f.OmniHeatSinkTonnage[c] = static_cast<int16_t>(70 + c);
        f.OmniWeapons[c].assign(1, FighterWeapon{});
    }
    f.OmniWeapons[0] = {{1, 1, -1, -1, 0, 0}};
    f.OmniWeapons[1] = {{1, 1, -1, -1, 0, 0}, {2, 1, 0, -1, 1, 0}};
    f.OmniWeapons[3] = {{9, 1, 0, 0, 0, 0}, {9, 2, 0, -1, 0, 0}};  // a hole at 0: stored as empty
    return f;
}

TEST_F(DatabaseFile, OmniFighterStoresEveryConfigurationInOrder) {
    Fighter f = OmniFighter(-1);
    Bytes want;
    want.Text("Sabre", 50);
    test::AppendFields(want, f, test::FighterHeadLayout());
    want.I16(-1);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniHasTC[c]);
    for (int c = 0; c < 6; ++c) want.F64(f.OmniTCTonnage[c]);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniTCLocation[c]);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniWeaponHeat[c]);
    for (int c = 0; c < 6; ++c) want.F64(f.OmniWeaponTonnage[c]);
    for (int c = 0; c < 6; ++c) want.F64(f.OmniTotalTonnage[c]);
    for (int c = 0; c < 6; ++c) want.F64(f.OmniFreeTonnage[c]);
    want.I16(0).I16(1).I16(1).I16(-1).I16(-1).I16(0).I16(0);
    want.I16(1).I16(1).I16(1).I16(-1).I16(-1).I16(0).I16(0).I16(2).I16(1).I16(0).I16(-1).I16(1).I16(0);
    for (int c = 2; c < 6; ++c) want.I16(-1);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniConfigUsed[c]);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniFuelTonnage[c]);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniHeatSinks[c]);
    for (int c = 0; c < 6; ++c) want.I16(f.OmniHeatSinkTonnage[c]);
    EXPECT_EQ(Written(f), want.str());
}

TEST_F(DatabaseFile, OmniFighterLoadsItsLiveFieldsFromTheBase) {
    for (int16_t locked : {int16_t{-1}, int16_t{0}}) {
        SCOPED_TRACE(locked);
        const Fighter f = OmniFighter(locked);
        const std::string bytes = Written(f);
        BinaryReader r(bytes);
        Fighter back;
        back.OmniCurrentConfig = 4;
        ASSERT_TRUE(LoadData(back, r));
        EXPECT_TRUE(r.AtEnd());
        EXPECT_EQ(back.OmniWeapons[3], std::vector<FighterWeapon>(1));
        // Configuration 0 shows in the live fields.
        EXPECT_EQ(std::tuple(back.HeatSinks, back.HeatSinkTonnage, back.FuelTonnage, back.HasTC, back.TCLocation,
                             back.WeaponHeat, back.OmniCurrentConfig),
                  std::tuple(60, 70, 50, 0, 10, 20, 0));
        EXPECT_EQ(std::pair(back.TCTonnage, back.WeaponTonnage), std::pair(1.5, 30.25));
        // The live list: "Primary" once locked, the base before.
        EXPECT_EQ(back.Weapons, locked ? f.OmniWeapons[1] : f.OmniWeapons[0]);
        // Read back and written again: the same bytes.
        EXPECT_EQ(Written(back), bytes);
    }
}

// ---------------------------------------------------------------------------
// Damage

TEST_F(DatabaseFile, BadItemCountsAreErrorsNotAllocations) {
    Vehicle v = DistinctVehicle();
    std::string bytes = Written(v);
    const size_t countAt = bytes.size() - 2;
    for (int16_t bad : {int16_t{-2}, int16_t{-32768}}) {
        SCOPED_TRACE(bad);
        bytes.replace(countAt, 2, Bytes().I16(bad).str());
        fake.ui.boxes.clear();
        BinaryReader r(bytes);
        Vehicle back;
        EXPECT_FALSE(LoadData(back, r));
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(fake.ui.boxes[0].title, "Error");
        EXPECT_EQ(fake.ui.boxes[0].text, zErrorReportText("Vehicle.LoadData", 9, "Subscript out of range"));
        EXPECT_EQ(r.Pos(), countAt);
    }
    // 32767 items announced and none there: past the end, before any allocation.
    bytes.replace(countAt, 2, Bytes().I16(32767).str());
    fake.ui.boxes.clear();
    BinaryReader r(bytes + std::string(16, '\0'));
    Vehicle back;
    EXPECT_EQ(zLoadVehicleReported(r, back), kErrInputPastEnd);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, zErrorReportText("Vehicle.LoadData", 62, "Input past end of file"));
}

TEST_F(DatabaseFile, FighterErrorsAreReportedUnderTheVehicleName) {
    const std::string bytes = Written(OmniFighter(0));
    BinaryReader r(bytes.substr(0, 200));
    Fighter back;
    EXPECT_FALSE(LoadData(back, r));
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, zErrorReportText("Vehicle.LoadData", 62, "Input past end of file"));
}

std::string SampleDatabase() {
    Bytes b;
    b.Header().I16(1);
    Vehicle v1 = DistinctVehicle();
    v1.Items = {{1, 1, 0, -1}, {2, 1, 3, -1}};
    Vehicle v2 = DistinctVehicle();
    v2.Name = "Second";
    b.Raw(Written(v1)).Raw(Written(v2));
    b.I16(1).Raw(Written(DistinctFighter(0))).Raw(Written(OmniFighter(-1)));
    return b.str();
}

TEST_F(DatabaseFile, TheCheckAcceptsAWholeDatabaseAndNamesWhatIsWrong) {
    const std::string good = SampleDatabase();
    DatabaseCheck c = zCheckDatabaseBytes(good);
    EXPECT_TRUE(c.ok) << c.message;
    EXPECT_EQ(c.vehicles, 2);
    EXPECT_EQ(c.fighters, 2);

    EXPECT_EQ(zCheckDatabaseBytes(good + "x").message, "1 stray bytes at byte offset " +
                                                            std::to_string(good.size()) + " (after the last fighter)");
    std::string v3 = good;
    v3.replace(30, 2, Bytes().I16(3).str());
    EXPECT_EQ(zCheckDatabaseBytes(v3).message, "version 3, expected 2 at byte offset 30 (header)");
    EXPECT_EQ(zCheckDatabaseBytes("Brasswick Works 2 Database").message,
              "not certified as \"Brasswick Works 3 Database\" at byte offset 0 (header)");
    const size_t cut = 34 + 50;
    c = zCheckDatabaseBytes(good.substr(0, cut + 1));
    EXPECT_FALSE(c.ok);
    EXPECT_EQ(c.message, "truncated: read past the end of the file at byte offset " + std::to_string(cut) +
                             " (vehicle 0, which begins at 34)");
    std::string neg = good;
    neg.replace(32, 2, Bytes().I16(-7).str());
    EXPECT_EQ(zCheckDatabaseBytes(neg).message, "count field -7 below -1 at byte offset 32 (vehicle count field)");
}

TEST_F(DatabaseFile, EveryTruncationIsRefusedAndReadsSafely) {
    const std::string good = SampleDatabase();
    for (size_t len = 0; len < good.size(); ++len) {
        SCOPED_TRACE(len);
        const std::string cut = good.substr(0, len);
        EXPECT_FALSE(zCheckDatabaseBytes(cut).ok);
        if (len < 32) continue;
        fake.ui.boxes.clear();
        BinaryReader r(cut);
        r.Seek(32);
        std::vector<std::shared_ptr<Vehicle>> vs;
        std::vector<std::shared_ptr<Fighter>> fs;
        bool complete = true;
        try {
            complete = zReadDesignTables(r, vs, fs);
        } catch (const RunError& e) {
            // Only a count field of the tables themselves can be cut.
            EXPECT_EQ(e.Number(), kErrInputPastEnd);
            EXPECT_TRUE(fake.ui.boxes.empty());
            continue;
        }
        EXPECT_FALSE(complete);
        // One report for the one record that was cut.
        EXPECT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_FALSE(vs.empty());
    }
}

TEST_F(DatabaseFile, ADamagedRecordIsReportedOnceAndTheLoadGoesOn) {
    // Two vehicles; the first's item count is -2. The reader reports it and
    // reads the next record from where it stopped.
    Vehicle v = DistinctVehicle();
    std::string rec = Written(v);
    rec.replace(rec.size() - 2, 2, Bytes().I16(-2).str());
    Bytes b;
    b.Header().I16(1).Raw(rec).Raw(Written(v)).I16(-1);
    BinaryReader r(b.str());
    r.Seek(32);
    std::vector<std::shared_ptr<Vehicle>> vs;
    std::vector<std::shared_ptr<Fighter>> fs;
    // The second record now starts two bytes early: it is read shifted and
    // runs off the end.
    EXPECT_FALSE(zReadDesignTables(r, vs, fs));
    EXPECT_EQ(vs.size(), 2u);
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(vs[0]->Name, "Demolisher");
}

}  // namespace
}  // namespace bw
