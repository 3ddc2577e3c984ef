// Start-up runs in a temporary program folder against a recording host.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Settings.h"
#include "core/Startup.h"
#include "refdata/DiagramTables.h"
#include "refdata/Loaders.h"
#include "refdata/Weapons.h"
#include "support/AppFolder.h"
#include "support/Boxes.h"

using namespace bw;
using test::Box;
using Boxes = std::vector<Box>;
using Calls = std::vector<std::string>;

namespace {

class FakeHost : public IStartupHost {
public:
    std::vector<std::string> calls;
    std::string splashVersion;
    int32_t splashMaxAtMainWindow = -1;
    void ShowSplash(frmSplsh& s) override {
        calls.push_back("ShowSplash");
        splashVersion = s.LVersion;
        splash = &s;
    }
    void LoadPictures() override { calls.push_back("LoadPictures"); }
    void LoadMainWindow() override {
        calls.push_back("LoadMainWindow");
        splashMaxAtMainWindow = splash->PBarProg.Max;
    }
    void UnloadSplash() override {
        calls.push_back("UnloadSplash");
        splash = nullptr;
    }
    void ShowMainWindow() override { calls.push_back("ShowMainWindow"); }
    void OpenDatabase(const std::string& path) override { calls.push_back("OpenDatabase " + path); }
    std::vector<bool (*)()> ReferenceLoaders() override { return zReferenceLoaders(); }

private:
    frmSplsh* splash = nullptr;
};

const char* const kArt[] = {"ad002", "ad003", "ad004", "ad011", "ad021", "ad031", "ad111", "ad121",
                            "ad131", "ad211", "ad221", "ad231", "ahw001", "alg001", "alg002", "avl001",
                            "crt001", "crt002", "dt001", "dt002", "dt011", "dt012", "dt003", "lgmn001"};

struct StartupFixture : ::testing::Test {
    test::ScopedFakeUi fake;
    test::AppFolder app;
    FakeHost host;

    void SetUp() override {
        gWeapons.clear();
        gArmorDots.clear();
        gInternalDots.clear();
    }
    void WriteReferenceFiles() {
        WeaponRec w;
        w.Name = "Medium Laser";
        w.RangeUnit = "Hex";
        app.dir.Write("weapons.bin", zWeaponsFileBytes(std::vector<WeaponRec>(40, w)));
        app.dir.Write("armorloc.bin", zDiagramFileBytes(kArmorCert, {{0, 0, {1, 2}, {3, 4}}, {0, 1, {5}, {6}}}));
        app.dir.Write("intloc.bin", zDiagramFileBytes(kInternalCert, {{0, 0, {1}, {1}}}));
    }
    void WriteArt(const std::string& except = {}) {
        std::filesystem::create_directory(app.dir.File("bwp"));
        for (const char* a : kArt)
            if (except.find(a) == std::string::npos) app.dir.Write(std::string("bwp/") + a + ".bwp", "art");
    }
    std::vector<std::string> FullRun() const {
        return {"ShowSplash",     "LoadPictures", "LoadMainWindow",
                "UnloadSplash",   "ShowMainWindow", "OpenDatabase " + app.dir.File("Works.BWD")};
    }
};

using Startup = StartupFixture;

// The box of an untrapped run-time error that ends the program.
Box RunTimeErrorBox(int number, const std::string& description) {
    return {"The Brasswick Works", "Run-time error '" + std::to_string(number) + "':\n\n" + description,
            MsgIcon::Critical};
}

}  // namespace

TEST(StartupText, LogLineAndLongDate) {
    std::tm d{};
    d.tm_year = 2025 - 1900;
    d.tm_mon = 10;
    d.tm_mday = 7;
    d.tm_wday = 5;
    EXPECT_EQ(zLongDate(d), "Friday, November 07, 2025");
    EXPECT_EQ(zLogStartLine(d), "Logging initialized for The Brasswick Works v3.0.18 on Friday, November 07, 2025");
    d.tm_mon = 0;
    d.tm_mday = 31;
    d.tm_wday = 0;
    EXPECT_EQ(zLongDate(d), "Sunday, January 31, 2025");
}

TEST_F(Startup, EmptyFolderShowsOnlyTheWeaponMessageAndEnds) {
    EXPECT_EQ(Main(host), StartResult::Ended);
    EXPECT_EQ(host.calls, Calls{"ShowSplash"});
    EXPECT_EQ(host.splashVersion, "3.0.18 - Beta");
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Unable to find file");
    EXPECT_EQ(fake.ui.boxes[0].icon, MsgIcon::Critical);
    const std::string log = app.dir.Read("Brasswick Works.Log");
    EXPECT_EQ(log.rfind("Logging initialized for The Brasswick Works v3.0.18 on ", 0), 0u);
    EXPECT_NE(log.find("\nUnable to find the weapons database file. "), std::string::npos);
    EXPECT_EQ(fake.ui.pointerWaits, 1);
}

TEST_F(Startup, EverythingPresentReachesTheDatabase) {
    WriteReferenceFiles();
    WriteArt();
    EXPECT_EQ(Main(host), StartResult::Running);
    EXPECT_EQ(host.calls, FullRun());
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(gWeapons.size(), 40u);
    EXPECT_EQ(gArmorDots.size(), 2u);
    EXPECT_EQ(gInternalDots.size(), 1u);
    EXPECT_EQ(gArtFiles.size(), 24u);
    EXPECT_EQ(gArtPath, app.dir.File("bwp") + "/");
    // The bar counts tens of bytes of the three files and the loads stay within it.
    const int total = static_cast<int>(std::filesystem::file_size(app.dir.File("weapons.bin")) +
                                       std::filesystem::file_size(app.dir.File("armorloc.bin")) +
                                       std::filesystem::file_size(app.dir.File("intloc.bin")));
    EXPECT_EQ(gSplashTotal, static_cast<int16_t>(std::nearbyint(total / 10.0)));
    EXPECT_EQ(host.splashMaxAtMainWindow, gSplashTotal);
    EXPECT_GT(gSplashDone, gSplashTotal / 2);
    EXPECT_LE(gSplashDone, gSplashTotal);
    EXPECT_EQ(fake.ui.pointerWaits, 1);
    EXPECT_EQ(fake.ui.pointerNormals, 1);
}

TEST_F(Startup, NoArtFolderEndsUnlessIgnoreVersion) {
    WriteReferenceFiles();
    EXPECT_EQ(Main(host), StartResult::Ended);
    const Boxes missing = {{"Missing BWP directory",
                            "Unable to locate the BWP directory. This directory needs to exist and contain the "
                            "*.BWP printing resource files.",
                            MsgIcon::Critical}};
    EXPECT_EQ(test::TakeBoxes(fake.ui), missing);
    EXPECT_EQ(host.calls, Calls{"ShowSplash"});

    for (const char* parm : {"iGNORE vERSION\n", "Special Menu\r\nIGNORE VERSION\r\n"}) {
        host.calls.clear();
        app.dir.Write("parm.txt", parm);
        EXPECT_EQ(Main(host), StartResult::Running) << parm;
        EXPECT_EQ(host.calls, FullRun());
        EXPECT_EQ(test::TakeBoxes(fake.ui), missing);
    }
}

TEST_F(Startup, IgnoreVersionCoversEveryFailedLoad) {
    app.dir.Write("parm.txt", "Ignore Version");
    EXPECT_EQ(Main(host), StartResult::Running);
    ASSERT_EQ(fake.ui.boxes.size(), 4u);
    EXPECT_EQ(fake.ui.boxes[0].text.rfind("Unable to find the weapons", 0), 0u);
    EXPECT_EQ(fake.ui.boxes[1].text.rfind("Unable to find the armor", 0), 0u);
    EXPECT_EQ(fake.ui.boxes[2].text.rfind("Unable to find the internal structure", 0), 0u);
    EXPECT_EQ(fake.ui.boxes[3].title, "Missing BWP directory");
    EXPECT_TRUE(gWeapons.empty());
    EXPECT_EQ(host.calls, FullRun());
}

TEST_F(Startup, MissingArtFilesAreListed) {
    WriteReferenceFiles();
    WriteArt("ad003 lgmn001 ad002");
    app.dir.Write("bwp/AD002.BWP", "art");  // any case counts
    EXPECT_EQ(Main(host), StartResult::Ended);
    EXPECT_EQ(test::TakeBoxes(fake.ui),
              (Boxes{{"Missing BWP files",
                      "Some of the needed printing resource files could not be located. Please make sure all *.BWP "
                      "file are in the BWP directory before The Brasswick Works is started.\n\nThe following is a "
                      "list of all the missing files:\n\n\tad003.bwp\n\tlgmn001.bwp\n",
                      MsgIcon::Critical}}));
}

TEST_F(Startup, ASecondRunTruncatesTheLog) {
    app.dir.Write("Brasswick Works.Log", "an earlier run\nwith two lines\n");
    EXPECT_EQ(Main(host), StartResult::Ended);
    const std::string log = app.dir.Read("Brasswick Works.Log");
    EXPECT_EQ(log.find("earlier"), std::string::npos);
    EXPECT_EQ(log.rfind("Logging initialized", 0), 0u);
}

TEST_F(Startup, ALogThatCannotBeCreatedEndsOnStderr) {
    std::filesystem::create_directory(app.dir.File("Brasswick Works.Log"));
    WriteReferenceFiles();
    WriteArt();
    testing::internal::CaptureStderr();
    EXPECT_EQ(Main(host), StartResult::Ended);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "cannot write the log " + app.dir.File("Brasswick Works.Log") + ": Is a directory\n");
    EXPECT_EQ(host.calls, Calls{"ShowSplash"});
    EXPECT_TRUE(gWeapons.empty());
}

TEST_F(Startup, AReferenceFileOf32768BytesEndsWithOverflow) {
    app.dir.Write("weapons.bin", std::string(32768, 'x'));
    testing::internal::CaptureStderr();
    EXPECT_EQ(Main(host), StartResult::Ended);
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("run-time error 6: Overflow"), std::string::npos);
    EXPECT_EQ(test::TakeBoxes(fake.ui), Boxes{RunTimeErrorBox(6, "Overflow")});
    EXPECT_EQ(host.calls, Calls{"ShowSplash"});
}

TEST_F(Startup, MeasureCountsTheNavalFileAndNothingUnreadable) {
    app.dir.Write("weapons.bin", std::string(32767, 'x'));
    app.dir.Write("nvlwpns.bin", std::string(1001, 'x'));
    app.dir.Write("nvlitems.bin", std::string(5000, 'x'));
    std::filesystem::create_directory(app.dir.File("intloc.bin"));
    zMeasureDataFiles();
    EXPECT_EQ(gLenWeapons, 32767);
    EXPECT_EQ(gLenNavalWeapons, 1001);
    EXPECT_EQ(gLenArmor, 0);
    EXPECT_EQ(gLenInternal, 0);
    EXPECT_EQ(gSplashTotal, 3377);  // 33768 / 10 = 3376.8
    app.dir.Write("armorloc.bin", std::string(25, 'x'));
    app.dir.Write("weapons.bin", std::string(0, 'x'));
    app.dir.Write("nvlwpns.bin", std::string(0, 'x'));
    zMeasureDataFiles();
    EXPECT_EQ(gSplashTotal, 2);  // 2.5 goes to even
}

TEST_F(Startup, SettingsChooseTheDatabase) {
    WriteReferenceFiles();
    WriteArt();
    // {OpenLast, LastDB, database opened}; empty means the default one.
    for (auto [openLast, last, opened] : {std::tuple("1", "/data/My.BWD", "/data/My.BWD"), {"1", "", ""},
                                          {"0", "/data/My.BWD", ""}}) {
        host.calls.clear();
        fake.settings.Set("General", "OpenLast", openLast);
        fake.settings.Set("General", "LastDB", last);
        EXPECT_EQ(Main(host), StartResult::Running);
        EXPECT_EQ(host.calls.back(), "OpenDatabase " + (*opened ? std::string(opened) : app.dir.File("Works.BWD")));
    }
}

TEST_F(Startup, ANonNumericSettingEndsAfterTheSplash) {
    WriteReferenceFiles();
    WriteArt();
    fake.settings.Set("Vehicle", "Level", "two");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Main(host), StartResult::Ended);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(host.calls, (Calls{"ShowSplash", "LoadPictures", "LoadMainWindow", "UnloadSplash"}));
    EXPECT_EQ(test::TakeBoxes(fake.ui), Boxes{RunTimeErrorBox(13, "Type mismatch")});
}
