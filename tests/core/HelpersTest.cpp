#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

using namespace bw;

using test::AppFolder;

TEST(Rounding, FractionalGrainsStayOnAStepBelowOneHundredth) {
    EXPECT_EQ(zRoundHalf(0), 0);
    EXPECT_EQ(zRoundHalf(1.005), 1);
    EXPECT_EQ(zRoundHalf(1.01), 1.5);
    EXPECT_EQ(zRoundHalf(2.5), 2.5);
    EXPECT_EQ(zRoundHalf(2.51), 3);
    EXPECT_EQ(zRoundHalf(-0.1), -0.5);
    EXPECT_EQ(zRoundHalf(-1.5), -1.5);
    EXPECT_EQ(zRoundQuarter(1.005), 1);
    EXPECT_EQ(zRoundQuarter(1.01), 1.25);
    EXPECT_EQ(zRoundQuarter(3.25), 3.25);
    EXPECT_EQ(zRoundQuarter(3.26), 3.5);
    EXPECT_EQ(zRoundQuarter(-0.01), -0.25);
    EXPECT_EQ(zRoundQuarter(0), 0);
    EXPECT_EQ(zRoundTenth(1.005), 1);
    EXPECT_DOUBLE_EQ(zRoundTenth(1.01), 1.1);
    EXPECT_DOUBLE_EQ(zRoundTenth(-1.01), -1.1);
    EXPECT_EQ(zRoundTenth(0), 0);
    EXPECT_DOUBLE_EQ(zRoundTenth(2.3), 2.3);
}

TEST(Rounding, UpAndDown) {
    EXPECT_EQ(zRoundUp(2.0001), 3);
    EXPECT_EQ(zRoundUp(2), 2);
    EXPECT_EQ(zRoundUp(-1.5), -1);
    EXPECT_THROW(zRoundUp(3e9), RunError);
    EXPECT_EQ(zRoundDown(6), 6);
    EXPECT_EQ(zRoundDown(6.5), 5);
    EXPECT_EQ(zRoundDown(5.5), 4);
    EXPECT_EQ(zRoundDown(-5.5), -7);
    EXPECT_EQ(zRoundDown(0), 0);
}

TEST(Rounding, TrappedFailuresReportAndGiveZero) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zRoundDown(40000.5), 0);
    EXPECT_EQ(zRoundDown(32767), 32767);
    EXPECT_EQ(zRoundTenth(std::numeric_limits<double>::infinity()), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Error");
    EXPECT_NE(fake.ui.boxes[0].text.find("\tFunction: zRoundDown\n\tError Number: 6\n"), std::string::npos);
    EXPECT_NE(fake.ui.boxes[1].text.find("\tFunction: zRoundTenth\n"), std::string::npos);
}

TEST(TextHelpers, GetWordPlainAndQualified) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zGetWord(0, "  a,b,c  "), "a");
    EXPECT_EQ(zGetWord(2, "a,b,c"), "c");
    EXPECT_EQ(zGetWord(1, "a,,c"), "");
    EXPECT_EQ(zGetWord(1, "one two", " "), "two");
    EXPECT_EQ(zGetWord(1, "\"x, y\",\"z\"", ","), "z");
    EXPECT_EQ(zGetWord(0, "\"x, y\",\"z\"", ","), "x, y");
    EXPECT_TRUE(fake.ui.boxes.empty());

    EXPECT_EQ(zGetWord(3, "a,b,c"), "");
    EXPECT_EQ(zGetWord(-1, " a,b "), "");
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_NE(fake.ui.boxes[0].text.find("\tFunction: zGetWord\n"), std::string::npos);
    EXPECT_NE(fake.ui.boxes[0].text.find("\tError Description: Word index(3) is invalid for string 'a,b,c'"),
              std::string::npos);
    EXPECT_NE(fake.ui.boxes[1].text.find("\tError Description: Invalid wWordIndex (-1) in string a,b."),
              std::string::npos);
}

TEST(TextHelpers, CountWords) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zCountWords("  one  two three "), 3);
    EXPECT_EQ(zCountWords(""), 0);
    EXPECT_EQ(zCountWords("   "), 0);
    EXPECT_EQ(zCountWords("a,b,,c", ","), 4);
    EXPECT_EQ(zCountWords("\"a b\" \"c\" \"d", " ", "\""), 2);
    EXPECT_EQ(zCountWords("[a] [b] [c]", " ", "[", "]"), 3);
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(zCountWords("a b", ""), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_NE(fake.ui.boxes[0].text.find(" on for zCountWords"), std::string::npos);
}

TEST(TextHelpers, ReplaceDoesNotRescan) {
    EXPECT_EQ(zReplace("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(zReplace("abcabc", "bc", ""), "aa");
    EXPECT_EQ(zReplace("x", "", "y"), "x");
    EXPECT_EQ(zReplace("1,2,3", ",", ", "), "1, 2, 3");
}

TEST(PathHelpers, EitherSeparator) {
    EXPECT_EQ(zGetFileFromPath("C:\\Games\\Works.BWD"), "Works.BWD");
    EXPECT_EQ(zGetFileFromPath("/home/u/Works.BWD"), "Works.BWD");
    EXPECT_EQ(zGetFileFromPath("a\\b/c.bwd"), "c.bwd");
    EXPECT_EQ(zGetFileFromPath("plain.bwd"), "plain.bwd");
    EXPECT_EQ(zGetFileFromPath("dir/"), "");
    EXPECT_EQ(zGetPathFromFile("C:\\Games\\Works.BWD"), "C:\\Games");
    EXPECT_EQ(zGetPathFromFile("/x"), "/");
    EXPECT_EQ(zGetPathFromFile("plain.bwd"), "");
    EXPECT_EQ(zRemoveExtension("/a/b/Works.BWD"), "/a/b/Works");
    EXPECT_EQ(zRemoveExtension("/a.d/Works"), "/a.d/Works");
    EXPECT_EQ(zRemoveExtension("x.tar.gz"), "x.tar");
}

TEST(Files, FileExistsOnlyForReadableFiles) {
    test::TempDir d;
    d.Write("f.txt", "x");
    EXPECT_TRUE(zFileExists(d.File("f.txt")));
    EXPECT_FALSE(zFileExists(d.File("g.txt")));
    EXPECT_FALSE(zFileExists(d.Path()));
    EXPECT_FALSE(zFileExists(""));
}

TEST(Files, HasParmWholeLineCaseInsensitiveNoTrim) {
    AppFolder app;
    EXPECT_FALSE(zHasParm("Ignore Version"));  // no file: no switches
    app.dir.Write("parm.txt", "special menu\r\nIgnore Version \nIGNORE VERSIONS\n");
    EXPECT_TRUE(zHasParm("Special Menu"));
    EXPECT_FALSE(zHasParm("Ignore Version"));
    app.dir.Write("parm.txt", "x\niGnOrE vErSiOn");  // last line without a line end
    EXPECT_TRUE(zHasParm("Ignore Version"));
    EXPECT_FALSE(zHasParm(""));
    // A folder of that name cannot be read: no switches, no error.
    std::filesystem::remove(app.dir.File("parm.txt"));
    std::filesystem::create_directory(app.dir.File("parm.txt"));
    EXPECT_FALSE(zHasParm("x"));
}

TEST(Files, DirFindIgnoresCaseAndRaises76ForAMissingFolder) {
    test::TempDir d;
    d.Write("Weapons.BIN", "x");
    std::filesystem::create_directory(d.File("ad002.bwp"));
    EXPECT_EQ(zDirFind(d.Path(), "weapons.bin"), "Weapons.BIN");
    EXPECT_EQ(zDirFind(d.Path(), "armorloc.bin"), "");
    EXPECT_EQ(zDirFind(d.Path(), "ad002.bwp"), "");  // folders are not files
    try {
        zDirFind(d.File("nope"), "x");
        FAIL() << "no error";
    } catch (const RunError& e) {
        EXPECT_EQ(e.Number(), kErrPathNotFound);
    }
}

TEST(Settings, NumericSettingAndTextConversion) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 16777215, true), 16777215);
    fake.settings.Set("General", "ActiveEdit", "255");
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 1, true), 255);
    fake.settings.Set("General", "ActiveEdit", "red");
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 7, true), 7);
    EXPECT_THROW(zGetNumericSetting("x", "General", "ActiveEdit", 7, false), RunError);

    EXPECT_TRUE(zIsNumeric(" 12 "));
    EXPECT_TRUE(zIsNumeric("-1.5e3"));
    EXPECT_FALSE(zIsNumeric("0x10"));
    EXPECT_FALSE(zIsNumeric("inf"));
    EXPECT_FALSE(zIsNumeric(""));
    EXPECT_EQ(zTextToI16(""), 0);
    EXPECT_EQ(zTextToI16("2.5"), 2);
    try {
        zTextToI16("two");
        FAIL();
    } catch (const RunError& e) {
        EXPECT_EQ(e.Number(), kErrTypeMismatch);
    }
    try {
        zTextToI16("40000");
        FAIL();
    } catch (const RunError& e) {
        EXPECT_EQ(e.Number(), kErrOverflow);
    }
}

TEST(Dialogs, WrappersPassEverythingAndCancelGivesEmpty) {
    test::ScopedFakeUi fake;
    fake.ui.fileAnswers.push_back("/tmp/a.bwd");
    EXPECT_EQ(zDlgOpenFile("Open", 4, "Databases (*.bwd)|*.bwd", 1, "a.bwd", "/tmp"), "/tmp/a.bwd");
    EXPECT_EQ(zDlgSaveFile("Save"), "");
    ASSERT_EQ(fake.ui.dialogs.size(), 2u);
    EXPECT_EQ(fake.ui.dialogs[0].title, "Open");
    EXPECT_EQ(fake.ui.dialogs[0].flags, 4);
    EXPECT_EQ(fake.ui.dialogs[0].filter, "Databases (*.bwd)|*.bwd");
    EXPECT_EQ(fake.ui.dialogs[0].fileName, "a.bwd");
    EXPECT_EQ(fake.ui.dialogs[0].folder, "/tmp");
    EXPECT_EQ(fake.ui.dialogs[1].filter, "All Files (*.*)|*.*");
    EXPECT_EQ(fake.ui.dialogs[1].filterIndex, 1);
}

TEST(Progress, StepStopsOnceCancelledAndEndUnloads) {
    test::ScopedFakeUi fake;
    int shown = 0, unloaded = 0;
    SetProgFormHook([&](frmProg&, bool unload) { unload ? ++unloaded : ++shown; });
    zProgStart("Printing", "Page 1", 10);
    ASSERT_NE(zProgForm(), nullptr);
    EXPECT_EQ(zProgForm()->Caption, "Printing");
    EXPECT_EQ(zProgForm()->PBarMax, 10);
    EXPECT_TRUE(zProgStep("Page 2", 4));
    EXPECT_EQ(zProgForm()->LText, "Page 2");
    EXPECT_EQ(zProgForm()->PBarValue, 4);
    EXPECT_TRUE(zProgStep("Page 3", 99));  // the bar never passes its maximum
    EXPECT_EQ(zProgForm()->PBarValue, 10);
    zProgForm()->PButCancel_Click();
    EXPECT_FALSE(zProgStep("Page 4", 5));
    EXPECT_EQ(zProgForm()->LText, "Page 3");  // a cancelled step changes nothing
    zProgEnd();
    EXPECT_EQ(zProgForm(), nullptr);
    EXPECT_EQ(unloaded, 1);
    EXPECT_GE(fake.ui.doEvents, 3);
    zProgEnd();  // a second end is harmless
    SetProgFormHook(nullptr);
}

TEST(Progress, MainProgressGoesThroughTheHook) {
    test::ScopedFakeUi fake;
    std::string log;
    SetMainProgressHook({[&](int32_t m) { log += "max" + std::to_string(m) + ";"; },
                         [&](const std::string& t) { log += "text " + t + ";"; },
                         [&](int32_t v) { log += "v" + std::to_string(v) + ";"; }, [&] { log += "end;"; }});
    zMainProgress(5);
    zMainProgress(7, "Loading");
    zMainProgressSet(3);
    zMainProgressEnd();
    EXPECT_EQ(log, "max5;max7;text Loading;v3;end;");
    SetMainProgressHook({});
    zMainProgress(1, "x");  // without a main window nothing happens
}
