// bwtool print as the user runs it, on a database of every ground and naval
// type written by the program's own record writer.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <nlohmann/json.hpp>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "fighter/Fighter.h"
#include "refdata/Weapons.h"
#include "support/TempDir.h"
#include "vehicle/Vehicle.h"

namespace bw {
namespace {

int16_t WeaponIndex(const std::string& name) {
    for (size_t i = 0; i < gWeapons.size(); ++i)
        if (gWeapons[i].Name == name) return static_cast<int16_t>(i);
    ADD_FAILURE() << name;
    return 0;
}

// Tracked with a turret, wheeled, hover, hydrofoil, naval ship with a
// turret, and a tracked tank crowded with armor, items and equipment.
std::string SheetDatabase() {
    const std::string saved = gAppPath;
    SetAppPath(BW_BIN_DIR);
    EXPECT_TRUE(zLoadWeapons());
    SetAppPath(saved);
    const int16_t laser = WeaponIndex("Medium Laser"), ac = WeaponIndex("AC/5"), srm = WeaponIndex("SRM 6"),
                  lrm = WeaponIndex("LRM 10");
    struct Design {
        const char* name;
        int16_t type, tons, turret;
        std::vector<VehicleItem> items;
    };
    const std::vector<Design> designs = {
        {"Tracked Turret", 0, 60, kTrue, {{ac, 1, 4, kTrue}, {laser, 2, 0, kTrue}, {srm, 1, 3, kTrue}}},
        {"Wheeled Plain", 1, 30, kFalse, {{laser, 1, 0, kTrue}, {lrm, 1, 1, kTrue}}},
        {"Hover Scout", 2, 20, kFalse, {{laser, 1, 0, kTrue}}},
        {"Hydrofoil Boat", 4, 100, kTrue, {{lrm, 2, 4, kTrue}, {laser, 1, 2, kTrue}}},
        {"Naval Cruiser", 5, 300, kTrue, {{ac, 4, 4, kTrue}, {lrm, 2, 0, kTrue}, {srm, 2, 3, kTrue}}},
        {"Crowded Tank", 0, 100, kTrue, {}},
    };
    BinaryWriter w;
    zWriteDatabaseHeader(w);
    w.I16(static_cast<int16_t>(designs.size() - 1));
    for (const Design& d : designs) {
        Vehicle v;
        v.Name = d.name;
        v.VhlType = d.type;
        v.Tonnage = d.tons;
        v.HasTurret = d.turret;
        v.NumCrew = static_cast<int16_t>(d.tons / 15 + 1);
        v.Items = d.items.empty() ? std::vector<VehicleItem>{VehicleItem{}} : d.items;
        int16_t* armor[] = {&v.FrontArmor, &v.LeftArmor, &v.RightArmor, &v.RearArmor, &v.TurretArmor};
        for (int16_t* a : armor) *a = static_cast<int16_t>(d.tons / 5);
        if (std::string(d.name) == "Crowded Tank") {
            // More than every outline holds, 40 items, and equipment.
            for (int16_t* a : armor) *a = 32000;
            for (int i = 0; i < 40; ++i)
                v.Items.push_back(VehicleItem{static_cast<int16_t>(i % 30), 1, static_cast<int16_t>(i % 5), kTrue});
            v.Items.erase(v.Items.begin());
            v.HasMobileHQ = v.HasBulldozer = v.HasTC = kTrue;
        }
        zWriteVehicleRecord(w, v);
    }
    w.I16(0);
    zWriteFighterRecord(w, Fighter{});
    return w.Data();
}

struct ToolRun {
    int code;
    std::string err;
};

ToolRun Bwtool(const std::string& args, const test::TempDir& dir) {
    const std::string cmd =
        std::string(BW_BIN_DIR) + "/bwtool " + args + " 2>" + dir.File("err.txt") + " >/dev/null";
    const int status = std::system(cmd.c_str());
    std::string err = dir.Read("err.txt");
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, err};
}

TEST(PrintTool, EveryGroundAndNavalTypeToOpsAndPdf) {
    test::TempDir dir;
    dir.Write("sheets.bwd", SheetDatabase());
    const std::string db = dir.File("sheets.bwd");
    ToolRun r = Bwtool("print " + db + " vehicle 0 1 2 3 4 5 --pilot Ann --ops " + dir.File("ops.jsonl"), dir);
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    std::istringstream lines(dir.Read("ops.jsonl"));
    std::map<std::string, int> count;
    for (std::string line; std::getline(lines, line);) ++count[nlohmann::json::parse(line)["op"]];
    EXPECT_EQ(count["Page"], 6);
    EXPECT_EQ(count["EndDoc"], 6);
    EXPECT_EQ(count["KillDoc"], 0);
    EXPECT_GE(count["PaintPicture"], 6 * 4);

    r = Bwtool("print " + db + " vehicle 4 0 --double --pdf " + dir.File("out.pdf"), dir);
    EXPECT_EQ(r.code, 0) << r.err;
    EXPECT_EQ(dir.Read("out.pdf").rfind("%PDF", 0), 0u);
    if (const char* keep = std::getenv("BW_KEEP_SHEETS")) {
        std::filesystem::copy_file(db, std::string(keep) + "/sheets.bwd",
                                   std::filesystem::copy_options::overwrite_existing);
    }

    const std::pair<std::string, std::string> bad[] = {
        {"vessel 0 --ops a", "unknown kind 'vessel'"},
        {"vehicle 6 --ops a", "index 6 is outside the vehicle table (6 designs)"},
        {"vehicle 1x --ops a", "index 1x is outside"},
        {"vehicle 0 --config 1 --ops a", "--config applies to fighters only"},
        {"vehicle 0 --ops a --pdf b", "give exactly one of --pdf and --ops"},
        {"vehicle 0 --colour red --ops a", "Unknown option 'colour'"},
    };
    for (const auto& [args, message] : bad) {
        r = Bwtool("print " + db + " " + args, dir);
        EXPECT_EQ(r.code, 2) << args;
        EXPECT_NE(r.err.find(message), std::string::npos) << args << ": " << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << args << ": " << r.err;
    }
}

TEST(PrintTool, EveryCommandHasHelpAndRefusesStrayOptions) {
    test::TempDir dir;
    for (const char* command : {"check", "dump", "copy", "upgrade", "print", "preview", "diagrams", "build-data",
                                "time-startup"}) {
        ToolRun r = Bwtool(std::string(command) + " --help", dir);
        EXPECT_EQ(r.code, 0) << command << r.err;
        r = Bwtool(std::string(command) + " --no-such-option x y", dir);
        EXPECT_NE(r.code, 0) << command;
        EXPECT_NE(r.err.find("no-such-option"), std::string::npos) << command << ": " << r.err;
    }
}

}  // namespace
}  // namespace bw
