// The validity check, the read of a database, the search of one database,
// the criteria corpus and bwtool search as the user runs it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "CriteriaFuzz.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "search/SearchRun.h"
#include "search/SearchSupport.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

namespace bw {
namespace {

// Reports of damaged files go to the log; not to a file in the build.
struct QuietLog : ::testing::Environment {
    void SetUp() override { gLogFile = "/dev/null"; }
};
const auto* const kQuietLog = ::testing::AddGlobalTestEnvironment(new QuietLog);

using test::Any;
using test::DbBytes;
using test::Design;

constexpr const char* kUncertified =
    "The Brasswick Works was unable to certify this database. This is either not a Brasswick Works v3 database, "
    "or it is corrupt.";
constexpr const char* kNoUnits = "There were no units that fit your search criteria in the selected databases.";

TEST(TValidDatabase, RefusesWithTheTwoMessages) {
    test::TempDir dir;
    const std::string good = DbBytes({Design("A")});
    std::string v3 = good;
    v3[30] = 3;
    dir.Write("good.bwd", good);
    dir.Write("v3.bwd", v3);
    dir.Write("short.bwd", good.substr(0, 31));
    dir.Write("text.bwd", "hello");
    const std::string wrong3 =
        "This database can not be opened because it is of the wrong version. This is a version 3 database, but this "
        "program is looking for a version 2 database.";
    struct Case {
        const char* file;
        bool ok;
        std::string text, title;
    };
    const std::vector<Case> cases = {
        {"good.bwd", true, "", ""},
        {"v3.bwd", false, wrong3, "Wrong DB version"},
        {"short.bwd", false, zReplace(wrong3, "version 3", "version 0"), "Wrong DB version"},
        {"text.bwd", false, kUncertified, "Unable to certify"},
        {"missing.bwd", false, kUncertified, "Unable to certify"},
    };
    for (const auto& tc : cases) {
        test::ScopedFakeUi fake;
        bool ok = !tc.ok;
        TValidDatabase(dir.File(tc.file), ok);
        EXPECT_EQ(ok, tc.ok) << tc.file;
        if (tc.ok) {
            EXPECT_TRUE(fake.ui.boxes.empty());
            continue;
        }
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << tc.file;
        EXPECT_EQ(fake.ui.LastBox().text, tc.text);
        EXPECT_EQ(fake.ui.LastBox().title, tc.title);
    }
}

TEST(SearchDatabase, MatchesInFileOrderWithTheirIndexAndFightersNever) {
    test::TempDir dir;
    Fighter f;
    f.Name = "Sparrow";
    dir.Write("a.bwd", DbBytes({Design("Heavy", 0, 1, 0, 80), Design("Light", 1, 2, 2, 20, 9), Design("Mid")}, {f}));
    dir.Write("none.bwd", DbBytes({}, {f}));
    test::ScopedFakeUi fake;
    SearchCriterion c = Any();
    c.Tonnage = 60, c.TonnageCompare = 0;
    std::vector<SearchMatch> found;
    const auto add = [&](const SearchMatch& m) { found.push_back(m); };
    SearchCriterion fighters = Any();
    fighters.UnitClass = 1;
    EXPECT_TRUE(zSearchDatabase(dir.File("a.bwd"), {fighters, c}, add));
    EXPECT_TRUE(zSearchDatabase(dir.File("none.bwd"), {Any(), fighters}, add));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].Name, "Light");
    EXPECT_EQ(found[0].Index, 1);
    EXPECT_EQ(found[1].Index, 2);
    EXPECT_EQ(zMatchToJson(found[0]), "{\"Name\":\"Light\",\"Type\":\"Hover\",\"Base\":1,\"Level\":2,\"Tonnage\":20,"
                                      "\"Speed\":9,\"Database\":\"" + dir.File("a.bwd") + "\",\"Index\":1}");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST(SearchDatabase, ReadsTheFieldsTheExtrasTestFromTheFile) {
    test::TempDir dir;
    Vehicle v = Design("Kitted", 0, 3, 3);
    v.HasMinesweeper = v.HasJumpJet = v.HasBridgeLayer = v.HasSponsonTurrets = -1;
    v.BridgeLayerType = 2, v.RotorConfig = 2, v.EngineType = 4, v.ArmorType = 3;
    v.ISTonnage = 1e300;  // the floating figures lie between the flags
    v.Items = {{1, 1, 0, -1}, {2, 1, 99, -1}, {3, 1, -1, -1}};
    Vehicle plain = Design("Plain");
    dir.Write("k.bwd", DbBytes({plain, v, plain}));
    for (const char* item : {"Minesweeper", "Jump Jets", "Bridgelayer (heavy)", "Sponson Turrets",
                             "Coaxial Rotor Config", "Engine - Fusion XXL", "Heavy Ferro Fiberous Armor"}) {
        SearchCriterion c = Any();
        c.ExtraItems = {item};
        std::vector<int32_t> found;
        EXPECT_TRUE(zSearchDatabase(dir.File("k.bwd"), {c}, [&](const SearchMatch& m) { found.push_back(m.Index); }));
        EXPECT_EQ(found, std::vector<int32_t>{1}) << item;
    }
}

TEST(SearchDatabase, ADamagedFileIsReportedAndGivesNoRow) {
    test::TempDir dir;
    const std::string good = DbBytes({Design("A"), Design("B")});
    for (size_t cut : {good.size() - 1, size_t{34}, size_t{32}}) {
        dir.Write("cut.bwd", good.substr(0, cut));
        test::ScopedFakeUi fake;
        int rows = 0;
        EXPECT_FALSE(zSearchDatabase(dir.File("cut.bwd"), {Any()}, [&](const SearchMatch&) { ++rows; }));
        EXPECT_EQ(rows, 0);
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_NE(fake.ui.LastBox().text.find("Error Number: 62"), std::string::npos);
    }
}

TEST(CriteriaFuzzCorpus, EveryStoredInputPasses) {
    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(std::string(BW_SOURCE_DIR) + "/fuzz/corpus-criteria")) {
        std::ifstream in(e.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        SCOPED_TRACE(e.path().filename().string());
        zFuzzCriteriaInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
        ++files;
    }
    EXPECT_GE(files, 10);
}

struct ToolRun {
    int code;
    std::string out, err;
};

ToolRun Search(const std::string& args, const test::TempDir& dir) {
    const std::string cmd = std::string(BW_BIN_DIR) + "/bwtool search " + args + " 2>" + dir.File("err.txt");
    ToolRun r{-1, {}, {}};
    FILE* p = popen(cmd.c_str(), "r");
    char buf[4096];
    for (size_t n; (n = fread(buf, 1, sizeof buf, p)) > 0;) r.out.append(buf, n);
    const int st = pclose(p);
    r.code = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    r.err = dir.Read("err.txt");
    return r;
}

TEST(BwtoolSearch, RowsMessagesAndExitCodes) {
    test::TempDir dir;
    dir.Write("a.bwd", DbBytes({Design("Alpha", 0, 1, 1), Design("Beta", 1, 3, 7, 150, 3)}));
    dir.Write("b.bwd", DbBytes({Design("Gamma", 0, 2)}));
    dir.Write("bad.bwd", "not a database");
    dir.Write("clan.json", "[{\"TechBase\": [false, true]}, {\"MovementType\": 0}]");
    dir.Write("none.json", "[{\"UnitClass\": 1}]");
    dir.Write("empty.json", "[]");
    dir.Write("list.json", "{}");
    const std::string a = dir.File("a.bwd"), b = dir.File("b.bwd");
    ToolRun r = Search(a + " " + dir.File("bad.bwd") + " " + b + " " + a + " --criteria " + dir.File("clan.json"), dir);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "{\"Name\":\"Beta\",\"Type\":\"Super Heavy Tank\",\"Base\":1,\"Level\":3,\"Tonnage\":150,\"Speed\":3,"
                     "\"Database\":\"" + a + "\",\"Index\":1}\n"
                     "{\"Name\":\"Gamma\",\"Type\":\"Tracked\",\"Base\":0,\"Level\":2,\"Tonnage\":50,\"Speed\":4,"
                     "\"Database\":\"" + b + "\",\"Index\":0}\n");
    EXPECT_EQ(r.err, std::string("Unable to certify: ") + kUncertified +
                         "\nDatabase on list: That database is already on your list.\n");
    r = Search(a + " --criteria " + dir.File("none.json"), dir);
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, std::string(kNoUnits) + "\n");
    r = Search(a + " --criteria " + dir.File("list.json"), dir);
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.err, dir.File("list.json") + ": not a list of criteria\n");
    r = Search(a + " --criteria " + dir.File("missing.json"), dir);
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.err, dir.File("missing.json") + ": cannot be read\n");
    r = Search(a + " --criteria " + dir.File("empty.json"), dir);
    EXPECT_EQ(r.code, 2);
    EXPECT_EQ(r.err, "No Criteria: You have not defined any search criteria.\n");
    EXPECT_EQ(Search("--criteria " + dir.File("clan.json"), dir).code, 2);
}

}  // namespace
}  // namespace bw
