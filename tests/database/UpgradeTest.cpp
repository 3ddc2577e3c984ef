// Version 1 databases rewritten as version 2: the bytes written, each
// refusal's words, and damaged files that must leave the original alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "database/DbBytes.h"
#include "database/Upgrade.h"
#include "support/Boxes.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

namespace bw {
namespace {

using test::Box;
using test::Bytes;
using Boxes = std::vector<Box>;

bool IsCorner(const std::string& n) {
    return n == "FrontLeftArmor" || n == "FrontRightArmor" || n == "RearLeftArmor" || n == "RearRightArmor";
}

// A vehicle with every field its own value and two items, as either record.
struct Design {
    Vehicle v;
    Design() {
        test::FillDistinct(v, test::VehicleLayout(), 100);
        v.Name = "Old Hauler";
        v.Items = {VehicleItem{5, 1, 99, -1}, VehicleItem{7, 2, 0, -1}};
    }
    void Append(Bytes& b, bool v1) const {
        b.Text(v.Name, 50);
        for (const auto& f : test::VehicleLayout()) {
            if (IsCorner(f.name)) {
                if (!v1) b.I16(0);  // the upgrade leaves the new fields 0
            } else if (f.i16) {
                b.I16(v.*(f.i16));
            } else {
                b.F64(v.*(f.f64));
            }
        }
        b.I16(1);
        for (const auto& it : v.Items) b.I16(it.wType).I16(it.wNum).I16(it.wLoc).I16(it.wStatus);
    }
};

std::string FighterRecord() {
    Fighter f;
    f.Name = "Old Hawk";
    f.FighterType = 2;  // an Omni-Fighter, with its tail of configurations
    f.Tonnage = 45;
    f.OmniHeatSinks[3] = 12;
    BinaryWriter w;
    zWriteFighterRecord(w, f);
    return w.Data();
}

class Upgrade : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    test::TempDir dir;
    void SetUp() override {
        SetAppPath(dir.Path());
        gLogFile = "/dev/null";
        zResetDatabase();
    }
    void TearDown() override {
        zResetDatabase();
        SetAppPath(".");
    }
    Boxes Shown() { return test::TakeBoxes(fake.ui); }
};

TEST_F(Upgrade, Version1FilesBecomeVersion2ByteForByteAndOpen) {
    Design d;
    const std::string fighter = FighterRecord();
    struct Case {
        const char* name;
        std::string v1, v2;
    } cases[] = {
        {"empty", Bytes().Header(1).I16(-1).I16(-1).str(), Bytes().Header(2).I16(-1).I16(-1).str()},
        {"vehicles", [&] { Bytes b; b.Header(1).I16(1); d.Append(b, true); d.Append(b, true); return b.I16(-1).str(); }(),
         [&] { Bytes b; b.Header(2).I16(1); d.Append(b, false); d.Append(b, false); return b.I16(-1).str(); }()},
        {"fighters", Bytes().Header(1).I16(-1).I16(0).Raw(fighter).str(),
         Bytes().Header(2).I16(-1).I16(0).Raw(fighter).str()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        fake.ui.boxes.clear();
        dir.Write("old.bwd", c.v1);
        EXPECT_TRUE(zCheckUpgrade(dir.File("old.bwd")));
        EXPECT_TRUE(fake.ui.boxes.empty());
        EXPECT_EQ(dir.Read("old.bwd"), c.v2);
        EXPECT_EQ(gDatabasePath, dir.File("old.bwd")) << "the result is opened";
        EXPECT_FALSE(std::filesystem::exists(dir.File("curupgdb.bwd")));
    }
    EXPECT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(gFighters[0]->Name, "Old Hawk");
}

TEST_F(Upgrade, RefusalsSayWhyAndChangeNothing) {
    const std::string failed =
        std::string("The upgrade failed. Please contact Tallowmere Workshop at ") + kSupportMail + ".";
    struct Case {
        std::string bytes;
        Box box;
    } cases[] = {
        {Bytes().Text("Some Other Database", 30).I16(1).str(),
         {"Unable to certify",
          "The Brasswick Works was unable to certify this database. This is either not a Brasswick Works v3 "
          "database, or it is corrupt.",
          MsgIcon::Information}},
        {Bytes().Header(2).I16(-1).I16(-1).str(),
         {"No upgrade needed",
          "This database does not need to upgraded since it is the version this executable is looking for. This "
          "database will not be opened normally.",
          MsgIcon::Information}},
        {Bytes().Header(3).I16(-1).I16(-1).str(),
         {"Wrong DB version",
          std::string("This database is from a later executable. This is a version 3 database, but this program is "
                      "looking for a version 2 database. Please go to the Tallowmere Workshop website at ") +
              kSupportWeb + " to get the latest executable.",
          MsgIcon::Information}},
        {Bytes().Header(0).I16(-1).I16(-1).str(), {"Upgrade failed", failed, MsgIcon::Information}},
        {Bytes().Header(-4).I16(-1).I16(-1).str(), {"Upgrade failed", failed, MsgIcon::Information}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.box.title);
        fake.ui.boxes.clear();
        dir.Write("db.bwd", c.bytes);
        EXPECT_FALSE(zCheckUpgrade(dir.File("db.bwd")));
        EXPECT_EQ(Shown(), Boxes{c.box});
        EXPECT_EQ(dir.Read("db.bwd"), c.bytes);
        EXPECT_TRUE(gDatabasePath.empty());
    }
    // No path, or a file that is not there: nothing said.
    fake.ui.boxes.clear();
    EXPECT_FALSE(zCheckUpgrade(""));
    EXPECT_FALSE(zCheckUpgrade(dir.File("absent.bwd")));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(Upgrade, ADamagedFileFailsWholeAndLeavesTheOriginal) {
    Design d;
    Bytes b;
    b.Header(1).I16(1);
    d.Append(b, true);
    d.Append(b, true);
    const std::string whole = b.I16(-1).str();
    const std::string damaged[] = {
        whole.substr(0, whole.size() - 30),                       // cut inside the second vehicle
        whole.substr(0, 32 + 2),                                  // the vehicle count and nothing more
        whole.substr(0, whole.size() - 2),                        // no fighter count
        whole + std::string(7, '\0'),                             // more than its counts say
        Bytes().Header(1).I16(-7).I16(-1).str(),                  // a count below -1
    };
    for (const std::string& bytes : damaged) {
        fake.ui.boxes.clear();
        dir.Write("db.bwd", bytes);
        EXPECT_FALSE(zCheckUpgrade(dir.File("db.bwd")));
        ASSERT_EQ(fake.ui.boxes.size(), 2u);
        EXPECT_NE(fake.ui.boxes[0].text.find("zUpgradeV1DB.LoadData"), std::string::npos) << fake.ui.boxes[0].text;
        EXPECT_EQ(fake.ui.boxes[1].title, "Upgrade failed");
        EXPECT_EQ(dir.Read("db.bwd"), bytes);
        EXPECT_TRUE(gDatabasePath.empty());
        std::vector<std::string> files;
        for (const auto& e : std::filesystem::directory_iterator(dir.Path())) files.push_back(e.path().filename());
        std::sort(files.begin(), files.end());
        EXPECT_EQ(files, std::vector<std::string>{"db.bwd"}) << "no temporary left behind";
    }
}

}  // namespace
}  // namespace bw
