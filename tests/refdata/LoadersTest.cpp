// The reference loaders against files written byte by byte: good files,
// refusals with their exact words, and corrupt files that must neither crash
// nor allocate absurdly.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"

using namespace bw;

namespace {

// Two rows as the text source and the file give them.
const WeaponRec kLaser{"Medium Laser", 0, 1, 0, 1, 3, 5, -1, 3, 6, 9, "Hex", 7, 40000, 46, -1, "", -1, 0, 1};
const WeaponRec kLrm{"LRM 10", 2, 1, 0, 0.25, 3, 1, -1, 3, 6, 9, "Hex", 7, -1, 46, -1, "Msl", 0, 0, 0};

// Header of a reference file with any string, version and highest index.
std::string Header(const std::string& cert, int16_t version, int16_t n) {
    BinaryWriter w;
    w.FixedPadded(cert, 45);
    w.I16(version);
    w.I16(n);
    return w.Data();
}

std::string Closing(const std::string& what) {
    return std::string("Please goto the Tallowmere Workshop website at ") + kSupportWeb + " to get a new " + what +
           " database.";
}

// The weapon messages run the address into the words around it.
const std::string kWeaponClosing =
    std::string("Please goto the Tallowmere Workshop website at") + kSupportWeb + "to get a new weapon database.";

struct Loaders : ::testing::Test {
    test::ScopedFakeUi fake;
    test::AppFolder app;
    void SetUp() override {
        gWeapons.clear();
        gArmorDots.clear();
        gInternalDots.clear();
        gSplashDone = 0;
        gLenWeapons = gLenArmor = gLenInternal = 0;
    }
    void Put(const std::string& name, const std::string& bytes, int16_t* len = nullptr) {
        app.dir.Write(name, bytes);
        if (len) *len = static_cast<int16_t>(bytes.size());
    }
    // The only box shown: critical, with this title and text.
    void ExpectOnlyBox(const std::string& title, const std::string& text) {
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(fake.ui.boxes[0].icon, MsgIcon::Critical);
        EXPECT_EQ(fake.ui.boxes[0].title, title);
        EXPECT_EQ(fake.ui.boxes[0].text, text);
        fake.ui.boxes.clear();
    }
    // The only box is the error reporter's, under procName with this number.
    void ExpectReported(const std::string& procName, int number) {
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(fake.ui.boxes[0].title, "Error");
        EXPECT_NE(fake.ui.boxes[0].text.find("\tFunction: " + procName + "\n\tError Number: " +
                                             std::to_string(number) + "\n"),
                  std::string::npos)
            << fake.ui.boxes[0].text;
        fake.ui.boxes.clear();
    }
};

}  // namespace

TEST(WeaponFile, BytesOfOneRow) {
    const std::string b = zWeaponsFileBytes({kLrm});
    BinaryWriter e;
    e.FixedPadded("Brasswick Works 3 Weapon Database", 45);
    e.I16(2);
    e.I16(0);
    e.U16(6);
    e.Bytes("LRM 10");
    for (int16_t v : {2, 1, 0}) e.I16(v);
    e.F64(0.25);
    for (int16_t v : {3, 1, -1, 3, 6, 9}) e.I16(v);
    e.U16(3);
    e.Bytes("Hex");
    e.I16(7);
    e.I32(-1);
    e.I16(46);
    e.I16(-1);
    e.U16(3);
    e.Bytes("Msl");
    for (int16_t v : {0, 0, 0}) e.I16(v);
    EXPECT_EQ(b, e.Data());
    EXPECT_EQ(b.substr(0, 45), "Brasswick Works 3 Weapon Database            ");
}

TEST_F(Loaders, WeaponsLoadEveryFieldWhateverTheFileNameCaseAndAdvanceTheSplash) {
    const std::vector<WeaponRec> rows = {kLaser, kLrm, kLaser};
    Put("WEAPONS.BIN", zWeaponsFileBytes(rows), &gLenWeapons);
    ASSERT_TRUE(zLoadWeapons());
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gWeapons, rows);
    // The head counts 5 units (49 bytes / 10, half to even); each row step is
    // the rest of the length over the row count; the bar stops at the start
    // of the last row.
    const int step = static_cast<int>(std::nearbyint((gLenWeapons - 5) / 3.0));
    EXPECT_EQ(gSplashDone, static_cast<int>(std::nearbyint(5 + 2 * step / 10.0)));
    EXPECT_EQ(zSplashProgressValue(), gSplashDone);
    EXPECT_GE(fake.ui.doEvents, 3);
}

TEST_F(Loaders, WeaponRefusalsAreShownAndTheMissingFileLogged) {
    EXPECT_FALSE(zLoadWeapons());
    const std::string missing = "Unable to find the weapons database file. " + kWeaponClosing;
    ExpectOnlyBox("Unable to find file", missing);
    EXPECT_EQ(app.dir.Read("Brasswick Works.Log"), missing + "\n");

    Put("weapons.bin", Header("Brasswick Works 3 Armor Database", 2, 0) + std::string(60, '\0'));
    gWeapons = {kLaser};
    EXPECT_FALSE(zLoadWeapons());
    ExpectOnlyBox("Unable to certify file", "Unable to certify weapon database file. " + kWeaponClosing);
    EXPECT_EQ(gWeapons.size(), 1u);  // the table is left as it was

    std::string b = zWeaponsFileBytes({kLaser});
    b[45] = 1;
    Put("weapons.bin", b);
    EXPECT_FALSE(zLoadWeapons());
    ExpectOnlyBox("Wrong file version",
                  "You weapon database is out of date. This program is looking for a database of version 2 but "
                  "your database is of version 1. " +
                      kWeaponClosing);

    // The certification ignores surrounding blanks, and nothing else.
    b = zWeaponsFileBytes({kLaser});
    b.replace(0, 45, std::string("  Brasswick Works 3 Weapon Database") + std::string(10, ' '));
    Put("weapons.bin", b);
    EXPECT_TRUE(zLoadWeapons());
    b.replace(0, 45, std::string("Brasswick Works 3 Weapon Database\t") + std::string(11, ' '));
    Put("weapons.bin", b);
    EXPECT_FALSE(zLoadWeapons());
}

TEST_F(Loaders, DamagedWeaponFilesAreReportedNotCrashed) {
    const std::string good = zWeaponsFileBytes({kLaser, kLrm});
    struct Case {
        std::string bytes;
        int error;
        size_t maxRows;  // rows the table may hold after the refusal
    };
    std::vector<Case> cases;
    for (size_t cut : {size_t{0}, size_t{20}, size_t{46}, size_t{48}, size_t{60}, good.size() - 1})
        cases.push_back({good.substr(0, cut), kErrInputPastEnd, 2});
    cases.push_back({Header(kWeaponsCert, 2, -1), kErrSubscript, 0});
    // 32768 rows claimed by a file of one row: refused before the table grows.
    std::string b = zWeaponsFileBytes({kLaser});
    b[47] = static_cast<char>(0xFF);
    b[48] = 0x7F;
    cases.push_back({b, kErrInputPastEnd, 1});
    // A name length running past the end.
    b = zWeaponsFileBytes({kLaser});
    b[49] = b[50] = static_cast<char>(0xFF);
    cases.push_back({b, kErrInputPastEnd, 1});
    for (size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        gWeapons.clear();
        Put("weapons.bin", cases[i].bytes);
        EXPECT_FALSE(zLoadWeapons());
        ExpectReported("zLoadWeapons", cases[i].error);
        EXPECT_LE(gWeapons.size(), cases[i].maxRows);
    }
    SetAppPath(app.dir.File("gone"));
    EXPECT_FALSE(zLoadWeapons());
    SetAppPath(app.dir.Path());
    ExpectReported("zLoadWeapons", kErrPathNotFound);
}

TEST_F(Loaders, DiagramFilesLoadIncludingEmptyRecords) {
    const std::vector<DotRecord> armor = {{0, 0, {1, 2, 3}, {4, 5, 6}}, {2, 5, {}, {}}, {-1, 99, {-7}, {32767}}};
    const std::vector<DotRecord> internal = {{1, 1, {10}, {20}}};
    Put("armorloc.bin", zDiagramFileBytes(kArmorCert, armor), &gLenArmor);
    Put("intloc.bin", zDiagramFileBytes(kInternalCert, internal), &gLenInternal);
    gSplashDone = 50;
    ASSERT_TRUE(zLoadArmor());
    EXPECT_EQ(gArmorDots, armor);
    // The bar goes on from the previous file's end.
    EXPECT_GE(gSplashDone, 50 + 4);
    EXPECT_LE(gSplashDone, 50 + gLenArmor / 10 + 1);
    const int16_t afterArmor = gSplashDone;
    ASSERT_TRUE(zLoadInternal());
    EXPECT_EQ(gInternalDots, internal);
    EXPECT_GE(gSplashDone, afterArmor);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST(DiagramFile, RecordLayoutIsDescriptorThenValues) {
    const std::string b = zDiagramFileBytes(kArmorCert, {{3, 4, {7, 8}, {9, 10}}});
    BinaryWriter e;
    e.Bytes(Header("Brasswick Works 3 Armor Database", 1, 0));
    for (int16_t v : {3, 4}) e.I16(v);
    for (int16_t v : {7, 9}) {
        e.I16(1);
        e.I32(2);
        e.I32(0);
        e.I16(v);
        e.I16(static_cast<int16_t>(v + 1));
    }
    EXPECT_EQ(b, e.Data());
}

TEST_F(Loaders, DiagramRefusalsUseEachFilesOwnWords) {
    EXPECT_FALSE(zLoadArmor());
    ExpectOnlyBox("Unable to find file", "Unable to find the armor database file. " + Closing("armor"));
    EXPECT_FALSE(zLoadInternal());
    ExpectOnlyBox("Unable to find file",
                  "Unable to find the internal structure database file. " + Closing("internal structure"));

    Put("intloc.bin", zDiagramFileBytes(kArmorCert, {{0, 0, {}, {}}}));
    EXPECT_FALSE(zLoadInternal());
    ExpectOnlyBox("Unable to certify file",
                  "Unable to certify internal structure database file. " + Closing("internal structure"));

    std::string b = zDiagramFileBytes(kArmorCert, {{0, 0, {}, {}}});
    b[45] = 2;
    Put("armorloc.bin", b);
    EXPECT_FALSE(zLoadArmor());
    ExpectOnlyBox("Wrong file version",
                  "Your armor database is out of date. This program is looking for a database of version 1 but "
                  "your database is of version 2. " +
                      Closing("armor"));
    // Refusals of the diagram files are not logged.
    EXPECT_EQ(app.dir.Read("Brasswick Works.Log"), "");
}

TEST_F(Loaders, CorruptDiagramRecordsAreReported) {
    struct Case {
        const char* what;
        size_t offset;  // into the record's bytes after the header
        std::string bytes;
        int error;
    };
    auto le32 = [](int32_t v) {
        BinaryWriter w;
        w.I32(v);
        return w.Data();
    };
    const std::vector<Case> cases = {
        {"negative count", 6, le32(-1), kErrSubscript},
        {"count beyond the file", 6, le32(0x7FFFFFFF), kErrInputPastEnd},
        {"two dimensions", 4, std::string("\x02\x00", 2), kErrSubscript},
        {"lower bound 1", 10, le32(1), kErrSubscript},
        {"Y shorter than X", 4 + 10 + 4 + 2, le32(1), kErrSubscript},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::string b = zDiagramFileBytes(kInternalCert, {{0, 0, {1, 2}, {3, 4}}});
        b.replace(49 + c.offset, c.bytes.size(), c.bytes);
        Put("intloc.bin", b);
        EXPECT_FALSE(zLoadInternal());
        ExpectReported("zLoadInternal", c.error);
    }
    Put("armorloc.bin", Header(kArmorCert, 1, 32767));
    EXPECT_FALSE(zLoadArmor());
    ExpectReported("zLoadArmor", kErrInputPastEnd);
    Put("armorloc.bin", Header(kArmorCert, 1, -5));
    EXPECT_FALSE(zLoadArmor());
    ExpectReported("zLoadArmor", kErrSubscript);
}

TEST(WeaponText, ParsesRowsCommentsAndLineEnds) {
    const std::string text =
        "# comment\n"
        "\n"
        "0\t1\t0\tMedium Laser\t3\t5\t-1\t\t-1\t3\t6\t9\t1\tHex\t7\t-1\t46\t40000\t0\t1\r\n"
        "   \n"
        "0\t1\t2\tLRM 10\t3\t1\t0\tMsl\t-1\t3\t6\t9\t0.25\tHex\t7\t-1\t46\t-1\t0\t0";
    std::vector<WeaponRec> rows;
    std::string error;
    ASSERT_TRUE(zParseWeaponsText(text, "w.tsv", rows, error)) << error;
    EXPECT_EQ(rows, (std::vector<WeaponRec>{kLaser, kLrm}));
}

TEST(WeaponText, BadLinesNameFileLineAndField) {
    const std::string good = "0\t1\t0\tX\t3\t5\t-1\t\t-1\t3\t6\t9\t1\tHex\t0\t-1\t46\t40000\t0\t1\n";
    auto line = [](const char* name, const char* damage, const char* tons, const char* cost) {
        return std::string("0\t1\t0\t") + name + "\t3\t" + damage + "\t-1\t\t-1\t3\t6\t9\t" + tons + "\tHex\t0\t-1\t46\t" +
               cost + "\t0\t1";
    };
    const std::pair<std::string, std::string> cases[] = {
        {"0\t1\t0\tX\n", "3: expected 20 tab-separated fields, found 4"},
        {good.substr(0, good.size() - 1) + "\t\n", "3: expected 20 tab-separated fields, found 21"},
        {"32768" + good.substr(1), "3: field 1 (Base) is not a 16-bit integer: '32768'"},
        {line("X", "5", "one", "1"), "3: field 13 (Tonnage) is not a number: 'one'"},
        {line("X", "5", "1", "3000000000"), "3: field 18 (Cost) is not a 32-bit integer: '3000000000'"},
        {line("", "5", "1", "1"), "3: field 4 (Name) is empty"},
        {line("X", "5x", "1", "1"), "3: field 6 (Damage) is not a 16-bit integer: '5x'"},
    };
    for (const auto& [bad, error] : cases) {
        std::vector<WeaponRec> rows;
        std::string got;
        EXPECT_FALSE(zParseWeaponsText("#\n" + good + bad, "data/weapons.tsv", rows, got));
        EXPECT_TRUE(rows.empty());
        EXPECT_EQ(got, "data/weapons.tsv:" + error);
    }
    std::vector<WeaponRec> rows;
    std::string error;
    EXPECT_FALSE(zParseWeaponsText("# only comments\n\n", "w.tsv", rows, error));
    EXPECT_EQ(error, "w.tsv:0: no rows");
}

TEST(WeaponText, NamesAreStoredAsWindows1252) {
    auto row = [](const std::string& name) {
        return "0\t1\t3\t" + name + "\t-1\t-1\t-1\t\t-1\t-1\t-1\t-1\t1\tHex\t0\t-1\t0\t0\t1\t0";
    };
    std::vector<WeaponRec> rows;
    std::string error;
    ASSERT_TRUE(zParseWeaponsText(row("C\xC3\xA9sar\xE2\x80\x99s Rig"), "w.tsv", rows, error)) << error;
    EXPECT_EQ(rows[0].Name, "C\xE9sar\x92s Rig");
    // A lone Windows-1252 byte is not UTF-8; a character outside the code page cannot be stored.
    EXPECT_FALSE(zParseWeaponsText(row("C\xE9sar"), "w.tsv", rows, error));
    EXPECT_EQ(error, "w.tsv:1: field 4 (Name) is not UTF-8 text that Windows-1252 can hold");
    EXPECT_FALSE(zParseWeaponsText(row("\xE2\x82\xBD"), "w.tsv", rows, error));
}
