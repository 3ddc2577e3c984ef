// The print command around the sheets: printer choice by system version and
// route, the options window and the standard dialog route, copies, the
// double sheet rule's messages, the job's error exits and cancel.
#include <gtest/gtest.h>

#include <cstring>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Progress.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"
#include "sheets/PrintAPI.h"
#include "sheets/RecordingSurface.h"
#include "sheets/VehicleSheet.h"
#include "sheets/frmPVhl.h"
#include "support/AppFolder.h"
#include "support/Boxes.h"
#include "support/FakeFormHost.h"
#include "support/FakeUi.h"

using namespace bw;
using namespace bw::test;

namespace {

// A platform that logs what the printer code asks of it.
class FakePlatform final : public IPrintPlatform {
public:
    std::vector<std::string> log;
    SystemVersion version;
    std::string profileEntry, current = "Laser";
    bool openOk = true, readOk = true, writeOk = true, dialogOk = true;
    PrinterInfo5 written;

    std::vector<PrinterEntry> Printers() override { return {{"Ink", "USB1"}, {"Laser", "LPT1"}}; }
    std::string CurrentPrinter() override { return current; }
    void SetPrintQuality(int16_t q) override {
        if (q == -3) zRaise(5);  // a driver that refuses "Medium"
        log.push_back("quality " + std::to_string(q));
    }
    bool ShowPrintDialog() override {
        log.push_back("dialog");
        return dialogOk;
    }
    bool StartTarget() override { return true; }
    void EndTarget() override {}
    SystemVersion GetVersionEx() override { return version; }
    bool OpenPrinter(const std::string& name, uint32_t access, intptr_t& h) override {
        log.push_back("open " + name + " " + std::to_string(access));
        h = 7;
        return openOk;
    }
    bool GetPrinter5(intptr_t, std::vector<uint8_t>& buffer, uint32_t& needed, PrinterInfo5& info) override {
        if (buffer.empty()) {
            needed = 64;
            return false;
        }
        log.push_back("read " + std::to_string(buffer.size()));
        info = {"Ink", "USB1", 0x241, 15, 45};
        return readOk;
    }
    bool SetPrinter5(intptr_t, const PrinterInfo5& info) override {
        written = info;
        log.push_back("write");
        return writeOk;
    }
    void ClosePrinter(intptr_t h) override { log.push_back("close " + std::to_string(h)); }
    uint32_t LastError() override { return 1801; }
    std::string GetProfileString(const std::string& s, const std::string& k, const std::string& def,
                                 size_t n) override {
        log.push_back("get " + s + "/" + k + " " + std::to_string(n));
        return profileEntry.empty() ? def : profileEntry;
    }
    void WriteProfileString(const std::string& s, const std::string& k, const std::string& v) override {
        log.push_back("put " + s + "/" + k + "=" + v);
    }
    void BroadcastSettingChange(uint32_t m, const std::string& a) override {
        log.push_back("broadcast " + std::to_string(m) + " " + a);
    }
};

// A surface whose dots or whose sending fail with a run-time error.
class FailingSurface final : public RecordingSurface {
public:
    int32_t circleError = 0, endError = 0;
    void Circle(double x, double y, double r, int32_t c) override {
        if (circleError) zRaise(circleError);
        RecordingSurface::Circle(x, y, r, c);
    }
    void EndDoc() override {
        if (endError) zRaise(endError);
        RecordingSurface::EndDoc();
    }
};

class PrintCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        savedArt_ = gArtPath;
        gArtPath = std::string(BW_BIN_DIR) + "/bwp/";
        SetAppPath(BW_BIN_DIR);
        ASSERT_TRUE(zLoadArmor() && zLoadInternal() && zLoadWeapons());
        SetAppPath(app.dir.Path());
        SetUi(&ui);
        SetPageSurface(&page);
        SetPrintPlatform(&platform);
        SetProgFormHook([this](frmProg& f, bool unload) {
            if (unload) return;
            steps.push_back(f.LText);
            if (f.LText == cancelAt) {
                opsAtCancel = page.Ops().size();
                f.PButCancel_Click();
            }
        });
        v.Name = "Test Tank";
        v.Tonnage = 50;
        v.FrontArmor = 4;
        v.Items.assign(1, VehicleItem{});
    }
    void TearDown() override {
        SetProgFormHook({});
        SetPrintPlatform(nullptr);
        SetPageSurface(nullptr);
        SetUi(nullptr);
        gArtPath = savedArt_;
    }
    int Count(const std::string& op) const {
        int n = 0;
        for (const auto& o : page.Ops()) n += o["op"] == op;
        return n;
    }
    bool Printed(const std::string& text) const {
        for (const auto& o : page.Ops())
            if (o["op"] == "PrintText" && o["text"] == text) return true;
        return false;
    }

    AppFolder app;
    FakeUi ui;
    FailingSurface page;
    FakePlatform platform;
    ScopedFakeFormHost host;
    Vehicle v;
    FormModel owner{"frmVhl"};
    std::vector<std::string> steps;
    std::string cancelAt = "-";
    size_t opsAtCancel = 0;

private:
    std::string savedArt_;
};

TEST_F(PrintCommandTest, SelectPrinterRoutesByExactVersion) {
    const std::string profile = "get PrinterPorts/Ink 1024";
    struct Case {
        SystemVersion version;
        std::string entry;
        std::vector<std::string> log;
    };
    const Case cases[] = {
        {{3, 51, 1057, 2}, "HP,LPT1:,15,45", {profile, "put windows/Device=Ink,HP,LPT1:", "broadcast 26 windows"}},
        {{4, 0, 1381, 2}, "HP,LPT1:,15,45", {profile, "put windows/Device=Ink,HP,LPT1:", "broadcast 26 windows"}},
        {{4, 0, 1381, 2}, "HP,LPT1:", {profile}},  // no second comma: no port
        {{4, 0, 1381, 2}, ",LPT1:,", {profile}},   // no driver
        {{4, 0, 67109814, 1}, "", {"open Ink 983052", "read 64", "write", "close 7"}},
        {{4, 0, 1381, 1}, "HP,LPT1:,15", {}},
        {{3, 51, 1058, 2}, "HP,LPT1:,15", {}},
        {{5, 0, 2195, 2}, "HP,LPT1:,15", {}},
    };
    for (const Case& c : cases) {
        platform.log.clear();
        platform.version = c.version;
        platform.profileEntry = c.entry;
        SelectPrinter("Ink");
        EXPECT_EQ(platform.log, c.log) << c.version.major << "." << c.version.build << " " << c.entry;
    }
    EXPECT_EQ(platform.written.attributes, 4u);
    EXPECT_EQ(platform.written.printerName + platform.written.portName, "InkUSB1");
    EXPECT_EQ(platform.written.transmissionRetryTimeout, 45u);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(PrintCommandTest, SpoolerRouteFailures) {
    struct Case {
        std::string name;
        bool open, read, write;
        std::vector<std::string> log;
        std::string message;
    };
    const Case cases[] = {
        {"", true, true, true, {}, ""},
        {"Ink", false, true, true, {"open Ink 983052"}, ""},
        {"Ink", true, false, true, {"open Ink 983052", "read 64"}, ""},
        // Left open on failure.
        {"Ink", true, true, false, {"open Ink 983052", "read 64", "write"}, "SetPrinterFailed. Error code: 1801"},
    };
    for (const Case& c : cases) {
        platform.log.clear();
        ui.boxes.clear();
        platform.openOk = c.open;
        platform.readOk = c.read;
        platform.writeOk = c.write;
        SetDefaultPrinterBySpooler(c.name);
        EXPECT_EQ(platform.log, c.log) << c.name << c.open << c.read;
        EXPECT_EQ(ui.boxes.empty() ? "" : ui.boxes[0].text, c.message);
    }
}

TEST(PrintApi, SplitPrinterPortsAndPointerToText) {
    const std::vector<std::array<std::string, 3>> splits = {
        {"winspool,Ne00:,15,45", "winspool", "Ne00:"}, {"winspool,Ne00:", "winspool", ""},
        {"nocomma", "", ""}, {",,", "", ""}, {"a,,b", "a", ""}, {"", "", ""}};
    for (const auto& [entry, driver, port] : splits) {
        std::string d = "x", p = "y";
        SplitPrinterPorts(entry, d, p);
        EXPECT_EQ(d + "|" + p, driver + "|" + port) << entry;
    }
    std::string big(600, 'a');
    big.back() = '\0';
    const std::pair<std::string, std::string> blocks[] = {
        {std::string("Ink\0Laser", 9), "Ink"}, {"noZero", ""}, {std::string("\0x", 2), ""}, {big, std::string(512, 'a')}};
    for (const auto& [block, text] : blocks) EXPECT_EQ(PointerToText(block.data(), block.size()), text);
    EXPECT_EQ(PointerToText(nullptr, 4), "");
    const std::pair<int32_t, int16_t> qualities[] = {{-1, 0}, {0, -1}, {1, -2}, {2, -3}, {3, -4}, {4, 0}};
    for (const auto& [index, value] : qualities) EXPECT_EQ(zPrintQualityValue(index), value) << index;
}

TEST_F(PrintCommandTest, OptionsWindowFieldsAndCopies) {
    frmPVhl f;
    f.Load();
    EXPECT_EQ(f.Window.Caption(), "Print Vehicle");
    EXPECT_EQ(f.cmboPrinters.ListCount(), 2);
    EXPECT_EQ(f.cmboPrinters.Text(), "Laser");
    EXPECT_EQ(f.LPrinterWhere.Caption(), "LPT1");
    EXPECT_EQ(f.cmboPrintQuality.Text(), "High");
    EXPECT_EQ(f.lPilotSkill.Caption(), "Pilotting Skill:");
    EXPECT_TRUE(f.RButPrintStd.Value() && !f.RButPrintDouble.Value());
    f.cmboPrinters.SetListIndex(0);
    EXPECT_EQ(f.LPrinterWhere.Caption(), "USB1");

    // The field's own check, then the companion follows.
    const std::tuple<std::string, std::string, int> typed[] = {
        {"007", "7", 0}, {"0", "1", 1}, {"101", "100", 1}, {"abc", "1", 1}, {"42", "42", 0}};
    for (const auto& [text, shown, beeps] : typed) {
        ui.beeps = 0;
        f.TCopies.SetText(text);
        EXPECT_EQ(f.TCopies.Text(), shown) << text;
        EXPECT_EQ(f.scrlCopies.Value(), std::stoi(shown)) << text;
        EXPECT_EQ(ui.beeps, beeps) << text;
    }
    const std::pair<std::string, int16_t> copies[] = {{"2.7", 2}, {"1", 1}, {"abc", 1}, {"0", 1},
                                                      {"-3", 1}, {"", 1},  {"100", 100}};
    for (const auto& [text, n] : copies) EXPECT_EQ(zCopiesFromText(text), n) << text;

    f.TPilotName.SetText("  Ann ");
    f.TPilotSkill.SetText(" 4 ");
    f.TGunSkill.SetText("3  ");
    f.PButOK.Click();
    EXPECT_EQ(f.TPilotName.Text() + "|" + f.TPilotSkill.Text() + "|" + f.TGunSkill.Text(), "  Ann |4|3");
    EXPECT_FALSE(f.Cancelled);
    f.PButCancel.Click();
    EXPECT_TRUE(f.Cancelled);
}

TEST_F(PrintCommandTest, OptionsRoute) {
    struct Case {
        std::string printer, quality, copies;
        bool isDouble, cancel;
        int16_t type;
        std::vector<std::string> log;
        int jobs;
        std::vector<Box> boxes;
    };
    const Box naval{"Cannot Print Double",
                    "Naval vehicles and superheavy tanks can not be printed in 'double sheet' format, reverting to "
                    "normal format.",
                    MsgIcon::Information};
    const std::string put = "put windows/Device=Ink,HP,USB1";
    const Case cases[] = {
        {"Laser", "High", "1", false, false, 0, {"quality -4"}, 1, {}},
        {"Ink", "Draft", "3", false, false, 0, {"get PrinterPorts/Ink 1024", put, "broadcast 26 windows", "quality -1"}, 3, {}},
        {"Laser", "Low", "2", false, true, 0, {}, 0, {}},
        // One message before the first of the copies.
        {"Laser", "High", "2", true, false, 4, {"quality -4"}, 2, {naval}},
        {"Laser", "High", "2", true, false, 0, {"quality -4"}, 2, {}},
        {"Laser", "Medium", "2", false, false, 0, {}, 0, {ReportBox("CmdPrintVehicle", 5, zErrorDescription(5))}},
    };
    platform.version = {4, 0, 1381, 2};
    platform.profileEntry = "HP,USB1,15,45";
    for (const Case& c : cases) {
        page.Clear();
        platform.log.clear();
        v.VhlType = c.type;
        host->onShow["frmPVhl"] = [&](FormModel& form) {
            auto& f = dynamic_cast<frmPVhl&>(form);
            f.cmboPrinters.SetText(c.printer);
            for (int32_t i = 0; i < f.cmboPrintQuality.ListCount(); ++i)
                if (f.cmboPrintQuality.List(i) == c.quality) f.cmboPrintQuality.SetListIndex(i);
            f.TCopies.SetText(c.copies);
            f.RButPrintDouble.SetValue(c.isDouble);
            f.TPilotName.SetText("Ann");
            f.TPilotSkill.SetText(" 4");
            (c.cancel ? f.PButCancel : f.PButOK).Click();
        };
        zCmdPrintVehicle(v, owner);
        const std::string label = c.printer + "/" + c.quality + "/" + c.copies;
        EXPECT_EQ(platform.log, c.log) << label;
        EXPECT_EQ(Count("EndDoc"), c.jobs) << label;
        EXPECT_EQ(TakeBoxes(ui), c.boxes) << label;
        if (c.jobs && c.type == 0 && !c.isDouble) {
            EXPECT_TRUE(Printed("Pilot Name: Ann")) << label;
            EXPECT_TRUE(Printed("Piloting Skill: 4")) << label;
        }
    }
}

TEST_F(PrintCommandTest, StandardDialogRoute) {
    app.dir.Write("parm.txt", "use standard print dialog\r\n");
    const Box tooMany{"Too many weapons",
                      "This vehicle has too many weapons mounted to fit on a print out in the 'double sheet' format, "
                      "reverting to normal format.",
                      MsgIcon::Information};
    struct Case {
        bool isDouble, dialogOk;
        int items, jobs, drawn;
        std::vector<Box> boxes;
    };
    // Items in one location: items + 1 heading against the limit of 25.
    const Case cases[] = {{false, true, 1, 1, 1, {}}, {false, false, 1, 0, 0, {}}, {true, true, 24, 1, 0, {}},
                          {true, true, 25, 1, 1, {tooMany}}, {true, false, 25, 0, 0, {}}};
    for (const Case& c : cases) {
        page.Clear();
        platform.log.clear();
        platform.dialogOk = c.dialogOk;
        v.Items.assign(c.items, VehicleItem{0, 1, 0, kTrue});
        host->onShow["frmPVhl"] = [](FormModel&) { FAIL() << "options window on the dialog route"; };
        host->onShow["frmPrintSel"] = [&](FormModel& form) {
            auto& f = dynamic_cast<frmPrintSel&>(form);
            EXPECT_EQ(f.Window.Caption(), "Print Format");
            f.RButPrintDouble.SetValue(c.isDouble);
            f.PButPrint.Click();
        };
        zCmdPrintVehicle(v, owner);
        EXPECT_EQ(platform.log, std::vector<std::string>{"dialog"});
        EXPECT_EQ(Count("EndDoc"), c.jobs) << c.items;
        EXPECT_EQ(Count("PaintPicture") > 0, c.drawn > 0) << c.items;
        EXPECT_EQ(TakeBoxes(ui), c.boxes) << c.items;
    }
}

TEST_F(PrintCommandTest, ErrorExitsNameTheirRoutine) {
    const Box printer{"Error 482",
                      "An error of type '482' has occurred. This error is normally generated by a printer that is "
                      "offline/out of paper/disconnected. Some printer drivers have been also known to incorrectly "
                      "throw this error. If you are unsure if you have the latest driver, contact your printer's "
                      "manufacturer.",
                      MsgIcon::Critical};
    auto report = [](const std::string& proc) { return Box{ReportBox(proc, 5, zErrorDescription(5))}; };
    struct Case {
        int32_t circleError, endError;
        int16_t type;
        std::function<bool()> print;
        Box box;
    };
    const Case cases[] = {
        {482, 0, 0, [&] { return PrintVehicle(v, "", "", ""); }, printer},
        {5, 0, 5, [&] { return PrintVehicle(v, "", "", ""); }, report("PrintGroundVehicle")},
        {0, 5, 3, [&] { return PrintVehicle(v, "", "", ""); }, report("zPrintVTOL")},
        {0, 5, 6, [&] { return PrintVehicle(v, "", "", ""); }, report("zPrintVTOL")},
        {0, 5, 7, [&] { return PrintVehicle(v, "", "", ""); }, report("PrintGroundVehicle")},
        {0, 5, 0, [&] { return PrintVehicleMini(v, "", "", ""); }, report("PrintVehicleMini")},
    };
    for (const Case& c : cases) {
        page.Clear();
        steps.clear();
        page.circleError = c.circleError;
        page.endError = c.endError;
        v.VhlType = c.type;
        const int waits = ui.pointerWaits, normals = ui.pointerNormals;
        EXPECT_FALSE(c.print()) << c.box.text;
        EXPECT_EQ(steps.back(), "Killing print job...");
        EXPECT_EQ(page.Ops().back()["op"], "KillDoc");
        EXPECT_EQ(Count("EndDoc"), 0);
        EXPECT_EQ(ui.pointerWaits - waits, 1);
        EXPECT_GT(ui.pointerNormals, normals);
        EXPECT_EQ(zProgForm(), nullptr);
        EXPECT_EQ(TakeBoxes(ui), std::vector<Box>{c.box});
    }
}

TEST_F(PrintCommandTest, CancelAtEachStepSendsNothing) {
    v.Items.assign(1, VehicleItem{0, 1, 0, kTrue});
    page.Clear();
    ASSERT_TRUE(PrintVehicle(v, "", "", ""));
    const std::vector<std::string> all = steps;
    ASSERT_EQ(all.size(), 9u);  // the bar's title, then eight steps
    for (size_t i = 1; i < all.size(); ++i) {
        page.Clear();
        steps.clear();
        cancelAt = all[i];
        EXPECT_FALSE(PrintVehicle(v, "", "", "")) << cancelAt;
        // Nothing drawn after the step that saw the cancel; the job is killed.
        EXPECT_EQ(page.Ops().size(), opsAtCancel + 1) << cancelAt;
        EXPECT_EQ(page.Ops().back()["op"], "KillDoc") << cancelAt;
        EXPECT_EQ(steps.back(), cancelAt);
        EXPECT_EQ(zProgForm(), nullptr);
    }
    EXPECT_TRUE(ui.boxes.empty());
}

}  // namespace
