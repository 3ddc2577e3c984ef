// The ground and naval record sheet on the recording surface: every picture
// box, text, dot count and progress step against the sheet's layout.
#include <gtest/gtest.h>

#include <map>

#include "core/Codepage.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"
#include "sheets/RecordingSurface.h"
#include "sheets/SansMetrics.h"
#include "sheets/SheetArt.h"
#include "sheets/VehicleSheet.h"
#include "support/FakeUi.h"

using namespace bw;
using json = nlohmann::ordered_json;

namespace {

WeaponRec Row(const std::string& name, int16_t type, int16_t shots = 0) {
    WeaponRec r;
    r.Name = name;
    r.Type = type;
    r.Shots = shots;
    return r;
}

class SheetTest : public ::testing::Test {
protected:
    void SetUp() override {
        savedApp_ = gAppPath;
        savedArt_ = gArtPath;
        savedWeapons_ = gWeapons;
        SetAppPath(BW_BIN_DIR);
        gArtPath = std::string(BW_BIN_DIR) + "/bwp/";
        ASSERT_TRUE(zLoadArmor());
        ASSERT_TRUE(zLoadInternal());
        gWeapons = {Row("Medium Laser", 0), Row("AC/5", 1), Row("AC/5 Ammo", 4, 20), Row("SRM 6", 2)};
        SetUi(&ui);
        SetPageSurface(&page);
        SetProgFormHook([this](frmProg& f, bool unload) {
            if (!unload) steps.push_back({f.PBarValue, f.LText});
            if (!unload && f.LText == cancelAt) f.PButCancel_Click();
        });
        v.Name = "Test Tank";
        v.VhlType = 0;
        v.Tonnage = 50;
        v.Items.assign(1, VehicleItem{});
    }
    void TearDown() override {
        SetProgFormHook({});
        SetPageSurface(nullptr);
        SetUi(nullptr);
        gWeapons = savedWeapons_;
        SetAppPath(savedApp_);
        gArtPath = savedArt_;
    }
    void Add(int16_t type, int16_t loc) {
        VehicleItem it{type, 1, loc, kTrue};
        if (v.Items.size() == 1 && v.Items[0].wStatus != kTrue) v.Items[0] = it;
        else v.Items.push_back(it);
    }
    std::vector<json> Ops(const std::string& kind) const {
        std::vector<json> out;
        for (const auto& op : page.Ops())
            if (op["op"] == kind) out.push_back(op);
        return out;
    }
    const json* Text(const std::string& text) const {
        for (const auto& op : page.Ops())
            if (op["op"] == "PrintText" && op["text"] == text) return &op;
        return nullptr;
    }
    std::map<std::string, std::vector<double>> Boxes() const {
        std::map<std::string, std::vector<double>> out;
        for (const auto& op : Ops("PaintPicture")) out[op["picture"]] = {op["x"], op["y"], op["width"], op["height"]};
        return out;
    }
    double DataTop() const {
        return 810 + 200 + 2 * zSansTextHeight(8, false);
    }

    test::FakeUi ui;
    RecordingSurface page;
    Vehicle v;
    std::vector<std::pair<int32_t, std::string>> steps;
    std::string cancelAt = "-";

private:
    std::string savedApp_, savedArt_;
    std::vector<WeaponRec> savedWeapons_;
};

TEST_F(SheetTest, HeaderAndPictureBoxes) {
    v.TechBase = 1;
    v.HasTurret = kTrue;
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const auto& ops = page.Ops();
    EXPECT_EQ(ops.front(), json({{"op", "Page"}, {"left", 0.0}, {"top", 0.0}, {"width", 11520.0}, {"height", 15120.0}}));
    EXPECT_EQ(ops.back()["op"], "EndDoc");
    const json* title = Text("Clan GROUND VEHICLE RECORD SHEET");
    ASSERT_TRUE(title);
    EXPECT_DOUBLE_EQ((*title)["x"], 3810 - zSansTextWidth("Clan GROUND VEHICLE RECORD SHEET", 14.25, true) / 2);
    EXPECT_DOUBLE_EQ((*title)["y"], 860);
    EXPECT_EQ((*title)["size"], 14.25);
    EXPECT_EQ((*title)["bold"], true);
    const json* credit = Text(zCp1252ToUtf8(zCreditLine()));
    ASSERT_TRUE(credit);
    EXPECT_EQ((*credit)["size"], 6.0);
    EXPECT_DOUBLE_EQ((*credit)["y"], 810 + zSansTextHeight(6, false) + 200);
    const double top = DataTop();
    const std::map<std::string, std::vector<double>> want = {
        {"lgmn001", {0, 0, 7620, 810}},
        {"dt002", {0, top, 7185, 7800}},
        {"ad011", {11520 - 3585 - 25, top, 3585, 5505}},
        {"crt001", {0, top + 7900, 3570, 2505}},
        {"crt002", {7185 - 3135, top + 7900, 3135, 2505}}};
    EXPECT_EQ(Boxes(), want);
    const std::vector<std::pair<int32_t, std::string>> wantSteps = {
        {0, ""}, {5, "Loading resources..."}, {15, "Printing vehicle pictures..."},
        {45, "Plotting and printing internal structure..."}, {55, "Plotting and printing armor..."},
        {75, "Filling Crit Tables..."}, {85, "Filling Data Sheet..."}, {90, "Building Mounted Item Data..."},
        {100, "Finished printing..."}};
    EXPECT_EQ(steps, wantSteps);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SheetTest, ArtByTypeAndTurrets) {
    struct Case {
        int16_t type, turret, second;
        std::string art;
        std::vector<double> box;  // x, y from DataTop, w, h
    };
    const Case cases[] = {
        {0, 0, 0, "ad111", {11520 - 3585 - 25, 0, 3585, 5505}}, {1, -1, 0, "ad021", {11520 - 3585 - 25, 0, 3585, 5505}},
        {2, -1, -1, "ad231", {11520 - 3600 - 25, 0, 3600, 5745}}, {1, 0, 0, "ad121", {11520 - 3585 - 25, 0, 3585, 5505}},
        {5, 0, 0, "ad003", {11520 / 2 - 9870 / 2, -1, 9870, 4965}}};
    for (const Case& c : cases) {
        page.Clear();
        v.VhlType = c.type;
        v.HasTurret = c.turret;
        v.HasSecTurret = c.second;
        ASSERT_TRUE(PrintVehicle(v, "", "", "")) << c.art;
        auto boxes = Boxes();
        ASSERT_TRUE(boxes.count(c.art)) << c.art;
        std::vector<double> box = c.box;
        box[1] = box[1] < 0 ? 15120 - 4965 : DataTop();
        EXPECT_EQ(boxes[c.art], box) << c.art;
    }
    // Naval critical tables stand at the right, one over the other.
    EXPECT_EQ(Boxes()["crt001"], (std::vector<double>{11520 - 3570 - 25, DataTop(), 3570, 2505}));
    EXPECT_EQ(Boxes()["crt002"], (std::vector<double>{11520 - 3570 - 25, DataTop() + 2705, 3135, 2505}));
    EXPECT_TRUE(Text("Clan NAVAL SURFACE VESSEL RECORD SHEET") == nullptr);
    EXPECT_TRUE(Text("I.S. NAVAL SURFACE VESSEL RECORD SHEET"));
    EXPECT_TRUE(Text("6  Ammo/power plant hit, Ship explodes"));
    EXPECT_TRUE(Text("_   Engine Room Destroyed"));
}

TEST_F(SheetTest, DataCellsAndArmorTons) {
    v.TechBase = 1;
    v.ArmorType = 1;  // Clan ferro: 19 points a ton
    v.HasTurret = v.HasSecTurret = kTrue;
    v.HasSupercharger = kTrue;
    v.CruiseSpeed = 5;
    v.FlankSpeed = 8;
    v.FrontArmor = 20;
    v.LeftArmor = 19;
    v.RightArmor = 18;
    v.RearArmor = 10;
    v.TurretArmor = 38;
    v.SecTurretArmor = 39;
    v.TurretTonnage = 1.5;
    v.SecTurretTonnage = 0.5;
    v.EngineRating = 250;
    v.EngineTonnage = 12.5;
    v.NumCrew = 4;
    ASSERT_TRUE(PrintVehicle(v, "Kai", "4", "3"));
    const double top = DataTop();
    struct Cell {
        double x, y;
        std::string text;
        bool bold;
    };
    const Cell cells[] = {
        {120, 120, "Unit Type:", true},
        {480, 360, "Test Tank", true},
        {120, 1140, "Tonnage: 50", false},
        {2080, 1140, "5 (10)", false},
        {3000, 1140, "8", false},
        {120, 750, "Movement: Tracked", false},
        {1920, 750, "Cruise MP:", false},
        {120, 1560, "Engine: 250  Tonnage: 12.5 (I.C.E.)", false},
        {120, 3960, "Armor Tons: 0", false},
        {120, 4440, "Front: 1.5", false},
        {120, 4920, "Left/Right: 1", false},
        {3120, 4920, "18", false},
        {120, 5840, "Main Turret: 2", false},
        {120, 6240, "Secondary Turret: 2.5", false},
        {2640, 6240, "39", false},
        {120, 3480, "Main Turret/Secondary Turret: 1.5/0.5", false},
        {120, 6630, "Pilot Name: Kai", false},
        {120, 7380, "Gunnery Skill: 3                    # Crew: 4", false},
        {3840, 120, "Weapons and Ammo", true}};
    for (const Cell& c : cells) {
        const json* op = Text(c.text);
        ASSERT_TRUE(op) << c.text;
        EXPECT_DOUBLE_EQ((*op)["x"], c.x) << c.text;
        EXPECT_DOUBLE_EQ((*op)["y"], top + c.y) << c.text;
        EXPECT_EQ((*op)["bold"], c.bold) << c.text;
    }
    // Ground critical tables under the data picture.
    const json* crit = Text("5  Fuel tank hit, Vehicle explodes");
    ASSERT_TRUE(crit);
    EXPECT_DOUBLE_EQ((*crit)["x"], 240);
    EXPECT_DOUBLE_EQ((*crit)["y"], top + 7900 + 1800);
    const json* locked = Text("_   Turret Locked");
    ASSERT_TRUE(locked);
    EXPECT_DOUBLE_EQ((*locked)["x"], 4050 + 240);
}

TEST_F(SheetTest, DotsFollowTheTablesAndTheirCapacity) {
    struct Case {
        int16_t type, tonnage, turret, front, rear;
        size_t structure, armor;
    };
    const Case cases[] = {
        {0, 100, 0, 130, 0, 10 * 4, 124},      // capped silently at the diagram's 124
        {0, 21, -1, 5, 3, 3 * 5, 8},           // a turret adds location 4
        {5, 101, 0, 0, 200, 11 * 4, 109},      // naval: 30 structure places, rear holds 109
        {0, 32000, 0, 32000, 32000, 10 * 4, 124 + 78},
    };
    for (const Case& c : cases) {
        page.Clear();
        v.VhlType = c.type;
        v.Tonnage = c.tonnage;
        v.HasTurret = c.turret;
        v.FrontArmor = c.front;
        v.RearArmor = c.rear;
        ASSERT_TRUE(PrintVehicle(v, "", "", ""));
        const auto circles = Ops("Circle");
        EXPECT_EQ(circles.size(), c.structure + c.armor) << c.type << "/" << c.tonnage;
        for (const auto& op : circles) {
            EXPECT_EQ(op["radius"], 45.0);
            EXPECT_EQ(op["fill"], 0xFFFFFF);
            EXPECT_EQ(op["fillStyle"], 0);
            EXPECT_EQ(op["outline"], 0);
        }
        EXPECT_TRUE(ui.boxes.empty());
    }
    // The first structure dot: location 0, dot 0 of diagram 0 at the armor picture.
    page.Clear();
    v = Vehicle();
    v.Name = "Dot";
    v.Tonnage = 10;
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const std::string xy = GetInternalDot(0, 0, 0);
    const size_t comma = xy.find(',');
    const auto first = Ops("Circle").front();
    EXPECT_DOUBLE_EQ(first["x"], 11520 - 3585 - 25 + std::stod(xy.substr(0, comma)) * 15);
    EXPECT_DOUBLE_EQ(first["y"], DataTop() + std::stod(xy.substr(comma + 1)) * 15);
    EXPECT_EQ(GetArmorDot(0, 124, 0), "");
    EXPECT_EQ(GetArmorDot(0, 0, 7), "");
}

TEST_F(SheetTest, WeaponsTableGroupsSortsAndHeads) {
    Add(0, 0);  // Medium Laser, Front
    Add(2, 99); // AC/5 Ammo, Body
    Add(0, 4);  // Medium Laser, Turret
    Add(0, 0);
    Add(2, 99);
    Add(2, 3);
    std::vector<PrintRow> rows;
    ASSERT_TRUE(TGetWeaponsPrintData(v, rows));
    const std::vector<PrintRow> want = {{0, 0, 2, -1}, {2, 3, -1, 20}, {0, 4, 1, -1}, {2, 99, -1, 40}};
    EXPECT_EQ(rows, want);
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const double top = DataTop();
    const std::pair<std::string, bool> lines[] = {{"Front", true},         {"   2 Medium Laser", false},
                                                  {"Rear", true},          {"   AC/5 Ammo (20)", false},
                                                  {"Main Turret", true},       {"   1 Medium Laser", false},
                                                  {"Body", true},          {"   AC/5 Ammo (40)", false}};
    for (size_t i = 0; i < std::size(lines); ++i) {
        const json* op = Text(lines[i].first);
        ASSERT_TRUE(op) << lines[i].first;
        EXPECT_DOUBLE_EQ((*op)["x"], 3720);
        EXPECT_DOUBLE_EQ((*op)["y"], top + 480 + 240 * i) << lines[i].first;
        EXPECT_EQ((*op)["bold"], lines[i].second);
    }
    // No items: the heading and nothing else, no message.
    v.Items.assign(1, VehicleItem{});
    ASSERT_TRUE(TGetWeaponsPrintData(v, rows));
    EXPECT_EQ(rows, std::vector<PrintRow>{PrintRow{}});
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SheetTest, TooManyItemsKeepsTheSheet) {
    gWeapons.clear();
    for (int i = 0; i < 40; ++i) gWeapons.push_back(Row("W" + std::to_string(i), 0));
    for (int i = 0; i < 28; ++i) Add(static_cast<int16_t>(i), static_cast<int16_t>(i < 10 ? 0 : i < 20 ? 1 : 3));
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].title, "Too many items");
    EXPECT_EQ(ui.boxes[0].text,
              "Your vehicle has more items than can be printed, please contact Tallowmere Workshop at "
              "help@tallowmere.example ");
    EXPECT_TRUE(Text("   1 W26"));  // 27 rows and 3 headings fill the 30 lines
    EXPECT_FALSE(Text("   1 W27"));
    EXPECT_EQ(page.Ops().back()["op"], "EndDoc");
}

TEST_F(SheetTest, SpecialEquipmentList) {
    v.HasMobileHQ = kTrue;
    v.MobileHQTonnage = 3;
    v.HasJumpJet = kTrue;
    v.NumJumpJets = 2;
    v.HasBridgeLayer = kTrue;
    v.BridgeLayerType = 1;
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const double top = DataTop() + 7800 + 100 + 2505 + 200;
    const json* heading = Text("Special Equipment");
    ASSERT_TRUE(heading);
    EXPECT_DOUBLE_EQ((*heading)["y"], top);
    EXPECT_EQ((*heading)["size"], 10.0);
    const char* lines[] = {"     Medium Bridge Layer - CF 20", "     Mobile HQ - 3 tons [+1 initiative]",
                           "     Jump Jets (2)"};
    double y = top + zSansTextHeight(10, true);
    for (const char* line : lines) {
        const json* op = Text(line);
        ASSERT_TRUE(op) << line;
        EXPECT_DOUBLE_EQ((*op)["x"], 0);
        EXPECT_DOUBLE_EQ((*op)["y"], y) << line;
        y += zSansTextHeight(8, false);
    }
    page.Clear();
    v.MobileHQTonnage = 7;
    v.VhlType = 4;
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const json* hq = Text("     Mobile HQ - 7 tons [+2 initiative]");
    ASSERT_TRUE(hq);
    EXPECT_DOUBLE_EQ((*hq)["x"], 11520 - 3570 - 25);
}

TEST_F(SheetTest, MissingArtKillsTheJob) {
    gArtPath = "/nonexistent/";
    EXPECT_FALSE(PrintVehicle(v, "", "", ""));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].title, "Error");
    EXPECT_NE(ui.boxes[0].text.find("PrintGroundVehicle"), std::string::npos);
    EXPECT_EQ(steps.back(), (std::pair<int32_t, std::string>{100, "Killing print job..."}));
    EXPECT_EQ(page.Ops().back()["op"], "KillDoc");
    EXPECT_TRUE(Ops("PaintPicture").empty());
}

TEST_F(SheetTest, CancelAtAStepDrawsNothingMore) {
    cancelAt = "Plotting and printing armor...";
    v.FrontArmor = 10;
    EXPECT_FALSE(PrintVehicle(v, "", "", ""));
    EXPECT_EQ(page.Ops().back()["op"], "KillDoc");
    EXPECT_EQ(Ops("Circle").size(), 5u * 4);  // structure only
    EXPECT_TRUE(Ops("PrintText").size() == 2);  // the header's two lines
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(SheetTest, StubsEndCleanly) {
    for (int16_t type : {3, 6, 7}) {
        page.Clear();
        steps.clear();
        v.VhlType = type;
        EXPECT_TRUE(PrintVehicle(v, "", "", "")) << type;
        EXPECT_EQ(page.Ops().back()["op"], "EndDoc");
        EXPECT_TRUE(Ops("PaintPicture").empty());
        EXPECT_EQ(steps.back().second, "Finished printing...");
    }
    page.Clear();
    v.VhlType = 8;
    EXPECT_FALSE(PrintVehicle(v, "", "", ""));
    EXPECT_TRUE(page.Ops().empty());
}

TEST_F(SheetTest, DoubleSheetRule) {
    struct Case {
        int16_t type;
        int items;
        bool mini;
        std::string title;
    };
    // Items in one location: items + 1 heading.
    const Case cases[] = {{0, 24, true, ""}, {0, 25, false, "Too many weapons"}, {3, 0, true, ""},
                          {4, 0, false, "Cannot Print Double"}, {7, 0, false, "Cannot Print Double"}};
    for (const Case& c : cases) {
        ui.boxes.clear();
        v.VhlType = c.type;
        v.Items.assign(1, VehicleItem{});
        for (int i = 0; i < c.items; ++i) Add(0, 0);
        EXPECT_EQ(zDoubleSheetFits(v, true), c.mini) << c.type << "/" << c.items;
        EXPECT_EQ(ui.boxes.empty() ? std::string() : ui.boxes[0].title, c.title);
    }
}

}  // namespace
