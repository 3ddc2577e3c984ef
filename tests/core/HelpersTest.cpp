#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "support/RaisesError.h"
#include "support/TempDir.h"

using namespace bw;

using test::AppFolder;
using test::ErrNumberOf;

TEST(Rounding, FractionalGrainsStayOnAStepBelowOneHundredth) {
    // {value, to a half, to a quarter, to a tenth}
    const double cases[][4] = {
        {0, 0, 0, 0},        {1.005, 1, 1, 1},      {1.01, 1.5, 1.25, 1.1}, {2.5, 2.5, 2.5, 2.5},
        {2.52, 3, 2.75, 2.6}, {-0.1, -0.5, -0.25, -0.1}, {-1.5, -1.5, -1.5, -1.5}, {3.26, 3.5, 3.5, 3.3},
        {-0.02, -0.5, -0.25, -0.1}, {-1.01, -1.5, -1.25, -1.1}, {2.3, 2.5, 2.5, 2.3}, {3.25, 3.5, 3.25, 3.3},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(zRoundHalf(c[0]), c[1]) << c[0];
        EXPECT_EQ(zRoundQuarter(c[0]), c[2]) << c[0];
        EXPECT_DOUBLE_EQ(zRoundTenth(c[0]), c[3]) << c[0];
    }
}

TEST(Rounding, UpAndDown) {
    for (auto [in, up] : {std::pair(2.0001, 3), {2.0, 2}, {-1.5, -1}}) EXPECT_EQ(zRoundUp(in), up) << in;
    EXPECT_EQ(ErrNumberOf([] { zRoundUp(3e9); }), kErrOverflow);
    for (auto [in, down] : {std::pair(6.0, 6), {6.5, 5}, {5.5, 4}, {-5.5, -7}, {0.0, 0}, {32767.0, 32767}})
        EXPECT_EQ(zRoundDown(in), down) << in;
}

TEST(Rounding, TrappedFailuresReportAndGiveZero) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zRoundDown(40000.5), 0);
    EXPECT_EQ(zRoundTenth(std::numeric_limits<double>::infinity()), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Error");
    EXPECT_NE(fake.ui.boxes[0].text.find("\tFunction: zRoundDown\n\tError Number: 6\n"), std::string::npos);
    EXPECT_NE(fake.ui.boxes[1].text.find("\tFunction: zRoundTenth\n"), std::string::npos);
}

TEST(TextHelpers, GetWordCountWordsAndReplace) {
    test::ScopedFakeUi fake;
    const std::tuple<int16_t, const char*, const char*, const char*> words[] = {
        {0, "  a,b,c  ", ",", "a"}, {2, "a,b,c", ",", "c"},           {1, "a,,c", ",", ""},
        {1, "one two", " ", "two"}, {1, "\"x, y\",\"z\"", ",", "z"}, {0, "\"x, y\",\"z\"", ",", "x, y"},
    };
    for (auto [i, text, sep, want] : words) EXPECT_EQ(zGetWord(i, text, sep), want) << text;
    EXPECT_EQ(zCountWords("  one  two three "), 3);
    EXPECT_EQ(zCountWords(""), 0);
    EXPECT_EQ(zCountWords("   "), 0);
    EXPECT_EQ(zCountWords("a,b,,c", ","), 4);
    EXPECT_EQ(zCountWords("\"a b\" \"c\" \"d", " ", "\""), 2);
    EXPECT_EQ(zCountWords("[a] [b] [c]", " ", "[", "]"), 3);
    // The replacement is not scanned again.
    EXPECT_EQ(zReplace("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(zReplace("abcabc", "bc", ""), "aa");
    EXPECT_EQ(zReplace("x", "", "y"), "x");
    EXPECT_TRUE(fake.ui.boxes.empty());

    EXPECT_EQ(zGetWord(3, "a,b,c"), "");
    EXPECT_EQ(zGetWord(-1, " a,b "), "");
    EXPECT_EQ(zCountWords("a b", ""), 0);
    ASSERT_EQ(fake.ui.boxes.size(), 3u);
    EXPECT_NE(fake.ui.boxes[0].text.find("\tFunction: zGetWord\n"), std::string::npos);
    EXPECT_NE(fake.ui.boxes[0].text.find("\tError Description: Word index(3) is invalid for string 'a,b,c'"),
              std::string::npos);
    EXPECT_NE(fake.ui.boxes[1].text.find("\tError Description: Invalid wWordIndex (-1) in string a,b."),
              std::string::npos);
    EXPECT_NE(fake.ui.boxes[2].text.find(" on for zCountWords"), std::string::npos);
}

TEST(PathHelpers, EitherSeparator) {
    for (auto [path, file] : {std::pair("C:\\Games\\Works.BWD", "Works.BWD"), {"/home/u/Works.BWD", "Works.BWD"},
                              {"a\\b/c.bwd", "c.bwd"}, {"plain.bwd", "plain.bwd"}, {"dir/", ""}})
        EXPECT_EQ(zGetFileFromPath(path), file) << path;
    for (auto [path, folder] : {std::pair("C:\\Games\\Works.BWD", "C:\\Games"), {"/x", "/"}, {"plain.bwd", ""}})
        EXPECT_EQ(zGetPathFromFile(path), folder) << path;
    for (auto [path, bare] : {std::pair("/a/b/Works.BWD", "/a/b/Works"), {"/a.d/Works", "/a.d/Works"}, {"x.tar.gz", "x.tar"}})
        EXPECT_EQ(zRemoveExtension(path), bare) << path;
}

TEST(Files, FileExistsOnlyForReadableFilesAndDirFindIgnoresCase) {
    test::TempDir d;
    d.Write("Weapons.BIN", "x");
    std::filesystem::create_directory(d.File("ad002.bwp"));
    EXPECT_TRUE(zFileExists(d.File("Weapons.BIN")));
    for (const std::string& p : {d.File("g.txt"), d.Path(), std::string()}) EXPECT_FALSE(zFileExists(p)) << p;
    EXPECT_EQ(zDirFind(d.Path(), "weapons.bin"), "Weapons.BIN");
    EXPECT_EQ(zDirFind(d.Path(), "armorloc.bin"), "");
    EXPECT_EQ(zDirFind(d.Path(), "ad002.bwp"), "");  // folders are not files
    EXPECT_EQ(ErrNumberOf([&] { zDirFind(d.File("nope"), "x"); }), kErrPathNotFound);
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

TEST(Settings, NumericSettingAndTextConversion) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 16777215, true), 16777215);
    fake.settings.Set("General", "ActiveEdit", "255");
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 1, true), 255);
    fake.settings.Set("General", "ActiveEdit", "red");
    EXPECT_EQ(zGetNumericSetting("x", "General", "ActiveEdit", 7, true), 7);
    EXPECT_THROW(zGetNumericSetting("x", "General", "ActiveEdit", 7, false), RunError);

    for (auto [text, numeric] : {std::pair(" 12 ", true), {"-1.5e3", true}, {"0x10", false}, {"inf", false}, {"", false}})
        EXPECT_EQ(zIsNumeric(text), numeric) << text;
    EXPECT_EQ(zTextToI16(""), 0);
    EXPECT_EQ(zTextToI16("2.5"), 2);
    EXPECT_EQ(ErrNumberOf([] { zTextToI16("two"); }), kErrTypeMismatch);
    EXPECT_EQ(ErrNumberOf([] { zTextToI16("40000"); }), kErrOverflow);
}

TEST(Dialogs, WrappersPassEverythingAndCancelGivesEmpty) {
    test::ScopedFakeUi fake;
    fake.ui.fileAnswers.push_back("/tmp/a.bwd");
    EXPECT_EQ(zDlgOpenFile("Open", 4, "Databases (*.bwd)|*.bwd", 1, "a.bwd", "/tmp"), "/tmp/a.bwd");
    EXPECT_EQ(zDlgSaveFile("Save"), "");
    ASSERT_EQ(fake.ui.dialogs.size(), 2u);
    const auto& d = fake.ui.dialogs;
    EXPECT_EQ(std::tuple(d[0].title, d[0].flags, d[0].filter, d[0].fileName, d[0].folder),
              std::tuple("Open", 4, "Databases (*.bwd)|*.bwd", "a.bwd", "/tmp"));
    EXPECT_EQ(std::tuple(d[1].title, d[1].filter, d[1].filterIndex), std::tuple("Save", "All Files (*.*)|*.*", 1));
}

TEST(Progress, StepStopsOnceCancelledAndEndUnloads) {
    test::ScopedFakeUi fake;
    int unloaded = 0;
    SetProgFormHook([&](frmProg&, bool unload) { unloaded += unload; });
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
