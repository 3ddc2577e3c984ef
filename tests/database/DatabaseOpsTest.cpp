// Opening, saving, adding, replacing and deleting designs with the scripted
// window system: exact messages, titles and icons, and the bytes on disk.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "database/DbBytes.h"
#include "shell/DesignPicker.h"
#include "shell/frmMain.h"
#include "support/Boxes.h"
#include "support/FakeFormHost.h"
#include "support/TempDir.h"

namespace bw {
namespace {

using test::Box;
using test::Bytes;
using Boxes = std::vector<Box>;
using Picked = std::pair<std::string, std::string>;

const std::string kEmptyDb = Bytes().Header().I16(-1).I16(-1).str();

std::string OverwriteText(const std::string& what, const std::string& name) {
    return "There is already  " + what + " named " + name + " in this database, would you like to overwrite it?";
}

class DatabaseOps : public ::testing::Test {
protected:
    test::ScopedFakeUi fake;
    test::ScopedFakeFormHost host;
    test::TempDir dir;
    // The window that asks the user: the picks, the questions, the caption.
    frmMain main;
    std::vector<std::string> captions;
    std::vector<Picked> pickerShown;
    int16_t pickAnswer = -1;
    bool ok = false;  // the last save's answer

    void SetUp() override {
        SetAppPath(dir.Path());
        gLogFile = dir.File("log.txt");
        zResetDatabase();
        main.Load();
        main.Window.Subscribe([this] { captions.push_back(main.Window.Caption()); });
        auto pick = [this](FormModel& f) {
            auto& d = static_cast<DesignPicker&>(f);
            pickerShown.emplace_back(d.Window.Caption(), d.PButOpen.Caption());
            d.wSel = pickAnswer;
            d.wCancel = zBool(pickAnswer < 0);
        };
        host->onShow["frmVOpen"] = pick;
        host->onShow["frmFOpen"] = pick;
    }
    void TearDown() override {
        zResetDatabase();
        SetAppPath(".");
    }

    static std::shared_ptr<Vehicle> MakeVehicle(const std::string& name, int16_t base = 0, int16_t type = 0) {
        auto v = std::make_shared<Vehicle>();
        v->Name = name;
        v->TechBase = base;
        v->VhlType = type;
        v->Tonnage = 40;
        return v;
    }
    static std::shared_ptr<Fighter> MakeFighter(const std::string& name, int16_t base = 0, int16_t type = 0) {
        auto f = std::make_shared<Fighter>();
        f->Name = name;
        f->TechBase = base;
        f->FighterType = type;
        return f;
    }
    // A database opened at path, written fresh.
    std::string NewDatabase(const std::string& name = "designs.bwd") {
        dir.Write(name, kEmptyDb);
        main.zOpenDatabase(dir.File(name));
        EXPECT_EQ(gDatabasePath, dir.File(name));
        return dir.File(name);
    }
    int16_t CountAt(const std::string& name, size_t at) {
        BinaryReader r(dir.Read(name));
        r.Seek(at);
        return r.I16();
    }
    Boxes Shown() { return test::TakeBoxes(fake.ui); }
    static std::string Saved(Vehicle v) {  // writing compacts: write a copy
        BinaryWriter w;
        SaveData(v, w);
        return w.Data();
    }
    static std::string OneVehicleDb(const Vehicle& v) { return Bytes().Header().I16(0).Raw(Saved(v)).I16(-1).str(); }
};

TEST_F(DatabaseOps, AnEmptyDatabaseIs36BytesAndLeavesNoTemporary) {
    const std::string path = NewDatabase();
    // Another save's file of that name is not this save's to use or remove.
    dir.Write("tempdb.bwd", std::string(5000, 'z'));
    EXPECT_TRUE(zSaveDatabase());
    EXPECT_EQ(dir.Read("designs.bwd"), kEmptyDb);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(dir.Read("tempdb.bwd"), std::string(5000, 'z'));
    std::vector<std::string> files;
    for (const auto& e : std::filesystem::directory_iterator(dir.Path())) files.push_back(e.path().filename());
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"designs.bwd", "tempdb.bwd"}));
    ASSERT_FALSE(captions.empty());
    EXPECT_EQ(captions.back(), "The Brasswick Works 3.0 - " + path);
}

TEST_F(DatabaseOps, TheFirstDesignTakesIndexZeroAndLaterOnesAppend) {
    NewDatabase();
    auto a = MakeVehicle("Alpha"), b = MakeVehicle("Bravo");
    main.zSaveVehicle(a, ok);
    EXPECT_TRUE(ok);
    // A copy of its own: what the editor does next never reaches the table.
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_NE(gVehicles[0], a);
    EXPECT_EQ(Saved(*gVehicles[0]), Saved(*a));
    EXPECT_EQ(dir.Read("designs.bwd"), OneVehicleDb(*a));
    a->Name = "Renamed";
    main.zSaveVehicle(b, ok);
    ASSERT_EQ(gVehicles.size(), 2u);
    a->Name = "Alpha";
    EXPECT_EQ(gVehicles[0]->Name, "Alpha");
    EXPECT_EQ(gVehicles[1]->Name, "Bravo");
    EXPECT_EQ(dir.Read("designs.bwd"), Bytes().Header().I16(1).Raw(Saved(*a)).Raw(Saved(*b)).I16(-1).str());
    EXPECT_TRUE(fake.ui.boxes.empty());

    // Reopened, the file gives the same two designs.
    main.zOpenDatabase(gDatabasePath);
    ASSERT_EQ(gVehicles.size(), 2u);
    EXPECT_EQ(gVehicles[1]->Name, "Bravo");
    ASSERT_EQ(gFighters.size(), 1u);
    EXPECT_TRUE(gFighters[0]->Name.empty());
}

TEST_F(DatabaseOps, TheSameNameWithAnotherBaseOrTypeIsASecondDesign) {
    NewDatabase();
    for (auto [name, base, type] : {std::tuple("Hunter", 0, 0), {"Hunter", 1, 0}, {"Hunter", 0, 2}, {"hunter", 0, 0}})
        main.zSaveVehicle(MakeVehicle(name, int16_t(base), int16_t(type)), ok);  // case counts
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gVehicles.size(), 4u);
    EXPECT_EQ(CountAt("designs.bwd", 32), 3);
}

TEST_F(DatabaseOps, OverwritingAsksWithTheTypeWordAndBase) {
    NewDatabase();
    main.zSaveVehicle(MakeVehicle("Hunter", 1, 3), ok);
    const std::string before = dir.Read("designs.bwd");

    auto again = MakeVehicle("Hunter", 1, 3);
    again->Tonnage = 30;
    fake.ui.answers = {MsgResult::No};
    main.zSaveVehicle(again, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(Shown(), (Boxes{{"Overwrite?", OverwriteText("a Clan V.T.O.L.", "Hunter"), MsgIcon::Question,
                               MsgButtons::YesNo}}));
    EXPECT_EQ(dir.Read("designs.bwd"), before);
    EXPECT_EQ(gVehicles[0]->Tonnage, 40);

    fake.ui.answers = {MsgResult::Yes};
    main.zSaveVehicle(again, ok);
    EXPECT_TRUE(ok);
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(Saved(*gVehicles[0]), Saved(*again));
    EXPECT_EQ(dir.Read("designs.bwd"), OneVehicleDb(*again));

    const char* const words[] = {"tracked vehicle", "wheeled vehicle", "hovercraft", "V.T.O.L.",
                                 "hydrofoil",       "ship",            "submarine",  "super heavy tank"};
    for (int16_t t = 0; t < 8; ++t) {
        main.zSaveVehicle(MakeVehicle("Type", 0, t), ok);
        fake.ui.boxes.clear();
        fake.ui.answers = {MsgResult::No};
        main.zSaveVehicle(MakeVehicle("Type", 0, t), ok);
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(fake.ui.boxes[0].text, OverwriteText(std::string("an Inner Sphere ") + words[t], "Type"));
    }
}

TEST_F(DatabaseOps, FightersAreKeptBesideVehicles) {
    NewDatabase();
    main.zSaveFighter(MakeFighter("Sparrow", 0, 1), ok);
    EXPECT_TRUE(ok);
    fake.ui.answers = {MsgResult::No, MsgResult::No, MsgResult::No};
    const char* const words[] = {"conventional fighter", "aerospace fighter", "omni-fighter"};
    for (int16_t t = 0; t < 3; ++t) {
        main.zSaveFighter(MakeFighter("Kestrel", 1, t), ok);
        fake.ui.boxes.clear();
        main.zSaveFighter(MakeFighter("Kestrel", 1, t), ok);
        EXPECT_FALSE(ok);
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(fake.ui.boxes[0].text, OverwriteText(std::string("a Clan ") + words[t], "Kestrel"));
    }
    EXPECT_EQ(CountAt("designs.bwd", 32), -1);
    EXPECT_EQ(CountAt("designs.bwd", 34), 3);
    EXPECT_TRUE(zCheckDatabaseBytes(dir.Read("designs.bwd")).ok);
}

TEST_F(DatabaseOps, DeletingAsksThenDropsTheDesignKeepingTheOrder) {
    NewDatabase();
    for (const char* n : {"One", "Two", "Three"}) main.zSaveVehicle(MakeVehicle(n), ok);
    auto one = gVehicles[0], three = gVehicles[2];

    pickAnswer = 1;
    fake.ui.answers = {MsgResult::No};
    main.zDeleteVehicle();
    EXPECT_EQ(pickerShown, (std::vector<Picked>{{"Delete Vehicle", "&Delete"}}));
    EXPECT_EQ(Shown(), (Boxes{{"Delete Vehicle?", "Are you sure you want to delete the vehicle named Two?",
                               MsgIcon::Question, MsgButtons::YesNo}}));
    EXPECT_EQ(gVehicles.size(), 3u);

    main.zDeleteVehicle();  // the script is empty now: Yes
    EXPECT_EQ(gVehicles, (std::vector<std::shared_ptr<Vehicle>>{one, three}));
    EXPECT_EQ(CountAt("designs.bwd", 32), 1);

    // Cancelling the picker, or an index the table does not have, asks nothing.
    fake.ui.boxes.clear();
    for (int16_t answer : {int16_t{-1}, int16_t{2}, int16_t{500}}) {
        pickAnswer = answer;
        main.zDeleteVehicle();
        EXPECT_EQ(main.zPickVehicleToOpen(), -1);
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gVehicles.size(), 2u);
    pickAnswer = 1;
    EXPECT_EQ(main.zPickVehicleToOpen(), 1);
    EXPECT_EQ(pickerShown.back(), Picked("Open Vehicle", "&Open"));
}

TEST_F(DatabaseOps, DeletingTheOnlyDesignLeavesACountOfMinusOne) {
    NewDatabase();
    main.zSaveVehicle(MakeVehicle("Lonely"), ok);
    main.zSaveFighter(MakeFighter("Solo"), ok);
    pickAnswer = 0;
    main.zDeleteVehicle();
    EXPECT_EQ(CountAt("designs.bwd", 32), -1);
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_TRUE(gVehicles[0]->Name.empty());
    fake.ui.boxes.clear();

    main.zDeleteFighter();
    EXPECT_EQ(pickerShown.back(), Picked("Delete Fighter", "&Delete"));
    EXPECT_EQ(dir.Read("designs.bwd"), kEmptyDb);

    // A blank table refuses the open command before any picker.
    pickerShown.clear();
    EXPECT_EQ(main.zPickVehicleToOpen(), -1);
    EXPECT_EQ(main.zPickFighterToOpen(), -1);
    EXPECT_EQ(Shown(), (Boxes{{"Delete Fighter?", "Are you sure you want to delete the fighter named Solo?",
                               MsgIcon::Question, MsgButtons::YesNo},
                              {"No Vehicles", "There are no vehicles within this database.", MsgIcon::Information},
                              {"No Fighters", "There are no fighters within this database.", MsgIcon::Information}}));
    EXPECT_TRUE(pickerShown.empty());
}

TEST_F(DatabaseOps, CompactionSqueezesBlanksOutInOrder) {
    gVehicles = {MakeVehicle(""), MakeVehicle("A"), MakeVehicle(""), MakeVehicle("B"), MakeVehicle("")};
    const std::vector<std::shared_ptr<Vehicle>> kept = {gVehicles[1], gVehicles[3]};
    zCompactVHLArray();
    EXPECT_EQ(gVehicles, kept);

    gFighters = {MakeFighter(""), MakeFighter("")};
    zCompactFTRArray();
    ASSERT_EQ(gFighters.size(), 1u);
    EXPECT_TRUE(gFighters[0]->Name.empty());
}

TEST_F(DatabaseOps, SavingWithNoDatabaseRefuses) {
    main.zSaveVehicle(MakeVehicle("Orphan"), ok);
    // Not saved, and said so: the editor stays unsaved and the table as it was.
    EXPECT_FALSE(ok);
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_EQ(gVehicles[0]->Name, "");
    EXPECT_EQ(Shown(), (Boxes{{"No database open",
                               "You do not have a database open. You must open a valid database before attempting "
                               "to save.",
                               MsgIcon::Critical}}));
}

TEST_F(DatabaseOps, ADesignThatCannotBeWrittenLeavesTheFileAlone) {
    NewDatabase();
    main.zSaveVehicle(MakeVehicle("Fine"), ok);
    const std::string before = dir.Read("designs.bwd");
    auto bad = MakeVehicle("Centipede");
    bad->Items.assign(40000, VehicleItem{1, 1, 0, -1});
    main.zSaveVehicle(bad, ok);
    // A list too long to count fails the record's write, then the save.
    EXPECT_EQ(Shown(), (Boxes{test::ReportBox("Vehicle.SaveData", 6, "Overflow"),
                              {"Error while writing",
                               "There was an error while writing the data on the vehicle named Centipede. Data was "
                               "not saved.",
                               MsgIcon::Critical}}));
    EXPECT_EQ(dir.Read("designs.bwd"), before);
    EXPECT_FALSE(std::filesystem::exists(dir.File("tempdb.bwd")));
}

TEST_F(DatabaseOps, AnUnwritableDatabaseIsReportedAndTheTableKept) {
    NewDatabase();
    // A folder in the database's place cannot be replaced by a file.
    gDatabasePath = dir.File("folder.bwd");
    std::filesystem::create_directories(gDatabasePath + "/inside");
    zSaveDatabase();
    EXPECT_EQ(Shown(), (Boxes{test::ReportBox("zSaveDatabase", 75, "Path/File access error")}));
    EXPECT_FALSE(std::filesystem::exists(dir.File("tempdb.bwd")));
}

TEST_F(DatabaseOps, ADatabaseOnAnotherFileSystemIsStillReplacedWhole) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path other = fs::path("/dev/shm") / ("bwtest-" + std::to_string(::getpid()));
    fs::create_directories(other, ec);
    if (ec || fs::status(other).type() != fs::file_type::directory)
        GTEST_SKIP() << "no second file system at /dev/shm";
    struct stat a {}, b {};
    ::stat(dir.Path().c_str(), &a);
    ::stat(other.c_str(), &b);
    if (a.st_dev == b.st_dev) GTEST_SKIP() << "/dev/shm is on the same file system";

    gDatabasePath = (other / "far.bwd").string();
    main.zSaveVehicle(MakeVehicle("Far"), ok);
    EXPECT_TRUE(fake.ui.boxes.empty());
    std::ifstream in(gDatabasePath, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), OneVehicleDb(*gVehicles[0]));
    EXPECT_FALSE(fs::exists(dir.File("tempdb.bwd")));
    EXPECT_FALSE(fs::exists(other / "tempdb.bwd"));
    fs::remove_all(other, ec);
}

TEST_F(DatabaseOps, AProgramFolderThatCannotBeWrittenUsesTheDatabaseFolder) {
    NewDatabase();
    SetAppPath(dir.File("missing-folder"));
    gLogFile = "/dev/null";
    main.zSaveVehicle(MakeVehicle("Here"), ok);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(CountAt("designs.bwd", 32), 0);
    EXPECT_FALSE(std::filesystem::exists(dir.File("tempdb.bwd")));
}

// ---------------------------------------------------------------------------
// Opening

TEST_F(DatabaseOps, OpeningAMissingFileOrNothingSaysNothing) {
    const std::string path = NewDatabase();
    main.zSaveVehicle(MakeVehicle("Kept"), ok);
    for (const std::string& p : {std::string(), dir.File("absent.bwd"), dir.File("no-folder/absent.bwd")})
        main.zOpenDatabase(p);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gDatabasePath, path);
    EXPECT_EQ(gVehicles[0]->Name, "Kept");
}

TEST_F(DatabaseOps, AnEditorsDesignOutlivesTheTableAndSavesIntoTheNextDatabase) {
    NewDatabase("first.bwd");
    auto edited = MakeVehicle("Wanderer");
    main.zSaveVehicle(edited, ok);
    NewDatabase("second.bwd");
    EXPECT_TRUE(gVehicles[0]->Name.empty());
    // Still open in its editor, the design changes and is saved again.
    edited->Tonnage = 55;
    main.zSaveVehicle(edited, ok);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(dir.Read("second.bwd"), OneVehicleDb(*edited));
    EXPECT_EQ(CountAt("first.bwd", 32), 0);
    // The same object saved again where it already stands is a match.
    fake.ui.answers = {MsgResult::No};
    main.zSaveVehicle(edited, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(fake.ui.LastBox().title, "Overwrite?");
}

TEST_F(DatabaseOps, OpeningFindsTheFileIgnoringCase) {
    dir.Write("Mixed.BWD", kEmptyDb);
    for (const std::string& asked : {dir.File("mixed.bwd"), dir.Path() + "\\MIXED.bwd"}) {
        main.zOpenDatabase(asked);
        EXPECT_EQ(gDatabasePath, dir.File("Mixed.BWD")) << asked;
    }
}

TEST_F(DatabaseOps, AnUncertifiedFileIsRefused) {
    for (const std::string& content : {std::string("Brasswick Works 2 Database    ") + "\x02\x00",
                                       std::string("short"), std::string()}) {
        dir.Write("other.bwd", content);
        main.zOpenDatabase(dir.File("other.bwd"));
        EXPECT_EQ(Shown(), (Boxes{{"Unable to certify",
                                   "The Brasswick Works was unable to certify this database. This is either not a "
                                   "Brasswick Works v3 database, or it is corrupt.",
                                   MsgIcon::Information}}));
        EXPECT_TRUE(gDatabasePath.empty());
    }
}

TEST_F(DatabaseOps, AWrongVersionFallsBackToTheDefaultDatabaseAndSaysSoWhenThatFailsToo) {
    auto wrongVersion = [&](const std::string& name, int version) {
        return Box{"Wrong DB version",
                   "The database '" + dir.File(name) +
                       "' can not be opened because it is of the wrong version. This is a version " +
                       std::to_string(version) +
                       " database, but this program is looking for a version 2 database. Please choose 'Upgrade "
                       "Existing v3 Database' from the 'File' menu.",
                   MsgIcon::Information};
    };
    dir.Write("old.bwd", Bytes().Header(1).I16(-1).I16(-1).str());
    dir.Write("Works.BWD", kEmptyDb);
    main.zOpenDatabase(dir.File("old.bwd"));
    EXPECT_EQ(Shown(), (Boxes{wrongVersion("old.bwd", 1)}));
    EXPECT_EQ(gDatabasePath, dir.File("Works.BWD"));

    zResetDatabase();
    main.zOpenDatabase("");  // nothing to open: the caption shows no database
    captions.clear();
    dir.Write("Works.BWD", Bytes().Header(7).I16(-1).I16(-1).str());
    main.zOpenDatabase(dir.File("Works.BWD"));
    EXPECT_EQ(Shown(), (Boxes{wrongVersion("Works.BWD", 7),
                              {"Unable to open works database",
                               "The works default database could not be opened because it of the wrong version. You "
                               "will need to create a new database or open a valid database before any vehicles can "
                               "be saved.",
                               MsgIcon::Information}}));
    EXPECT_TRUE(gDatabasePath.empty());
    EXPECT_TRUE(captions.empty());
}

TEST_F(DatabaseOps, ATruncatedFileIsReportedOnceAndNotOpened) {
    const std::string path = NewDatabase();
    main.zSaveVehicle(MakeVehicle("Whole"), ok);
    main.zSaveFighter(MakeFighter("Also"), ok);
    const std::string bytes = dir.Read("designs.bwd");
    // Cut inside the vehicle the record reader reports; cut exactly before
    // the fighter count the open itself reports.
    for (auto [cut, proc] : {std::pair(34 + 100, "Vehicle.LoadData"), {34 + kVehicleFixedBytes, "zOpenDatabase"}}) {
        dir.Write("cut.bwd", bytes.substr(0, cut));
        const auto vehicles = gVehicles;
        const auto fighters = gFighters;
        const std::string caption = main.Window.Caption();
        main.zOpenDatabase(dir.File("cut.bwd"));
        EXPECT_EQ(Shown(), (Boxes{test::ReportBox(proc, 62, "Input past end of file")}));
        // The open database stays exactly as it was, and a save writes it whole.
        EXPECT_EQ(gDatabasePath, path);
        EXPECT_EQ(gVehicles, vehicles);
        EXPECT_EQ(gFighters, fighters);
        EXPECT_EQ(main.Window.Caption(), caption);
        EXPECT_EQ(fake.ui.pointerWaits, fake.ui.pointerNormals);
        EXPECT_TRUE(zSaveDatabase());
        EXPECT_EQ(dir.Read("designs.bwd"), bytes);
    }
}

// ---------------------------------------------------------------------------
// New database

TEST_F(DatabaseOps, NewDatabaseAsksForAPathAndStartsEmpty) {
    fake.ui.fileAnswers = {"", "   "};
    main.mnuFileNew_Click();
    main.mnuFileNew_Click();
    ASSERT_EQ(fake.ui.dialogs.size(), 2u);
    EXPECT_EQ(fake.ui.dialogs[0].title, "New Database");
    EXPECT_EQ(fake.ui.dialogs[0].filter, "Brasswick Works Databases (*.bwd)|*.bwd");
    EXPECT_TRUE(gDatabasePath.empty());

    gVehicles[0]->Name = "Left over";
    fake.ui.fileAnswers = {dir.File("fresh")};  // typed without its extension
    main.mnuFileNew_Click();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gDatabasePath, dir.File("fresh.bwd"));
    EXPECT_EQ(captions.back(), "The Brasswick Works 3.0 - " + dir.File("fresh.bwd"));
    ASSERT_EQ(gVehicles.size(), 1u);
    EXPECT_TRUE(gVehicles[0]->Name.empty());
    // Nothing is written until the first save.
    EXPECT_FALSE(std::filesystem::exists(dir.File("fresh.bwd")));
    main.zSaveVehicle(MakeVehicle("First"), ok);
    EXPECT_EQ(CountAt("fresh.bwd", 32), 0);
}

TEST_F(DatabaseOps, NewDatabaseOverAnExistingFileAsksFirst) {
    dir.Write("taken.bwd", "precious");
    fake.ui.fileAnswers = {dir.File("taken.bwd"), dir.File("taken.bwd")};
    fake.ui.answers = {MsgResult::No};
    main.mnuFileNew_Click();
    EXPECT_EQ(Shown(), (Boxes{{"Overwrite?", "This file already already exists, overwrite it?", MsgIcon::Question,
                               MsgButtons::YesNo}}));
    EXPECT_EQ(dir.Read("taken.bwd"), "precious");
    EXPECT_TRUE(gDatabasePath.empty());

    main.mnuFileNew_Click();  // Yes
    EXPECT_FALSE(std::filesystem::exists(dir.File("taken.bwd")));
    EXPECT_EQ(gDatabasePath, dir.File("taken.bwd"));
}

}  // namespace
}  // namespace bw
