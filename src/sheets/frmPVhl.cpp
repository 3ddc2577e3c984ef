#include "sheets/frmPVhl.h"

#include <cmath>
#include <cstdlib>

#include "core/EditorParts.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "sheets/VehicleSheet.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {
std::string Trim(const std::string& s) {
    const size_t a = s.find_first_not_of(' ');
    if (a == std::string::npos) return {};
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}
}  // namespace

frmPVhl::frmPVhl() : FormModel("frmPVhl") {
    Window.SetCaption("Print Vehicle");
    fraPrinter.SetCaption("Printer");
    lName.SetCaption("Name:");
    lWhere.SetCaption("Where:");
    lQuality.SetCaption("Quality:");
    lCopies.SetCaption("Number of copies:");
    fraStyle.SetCaption("Style");
    RButPrintStd.SetCaption("Standard Sheet");
    RButPrintDouble.SetCaption("Double Sheet");
    fraCrew.SetCaption("Crew Stats");
    lPilotName.SetCaption("Pilot/Commander Name:");
    lPilotSkill.SetCaption("Pilotting Skill:");
    lGunSkill.SetCaption("Gunnery Skill:");
    PButOK.SetCaption("&Ok");
    PButCancel.SetCaption("&Cancel");
    PButOK.Default = true;
    PButCancel.Cancel = true;
    RButPrintStd.SetGroup(&style_);
    RButPrintDouble.SetGroup(&style_);
    scrlCopies.SetMin(1);
    scrlCopies.SetMax(100);

    cmboPrinters.Click = [this] {
        const int32_t i = cmboPrinters.ListIndex();
        LPrinterWhere.SetCaption(i >= 0 && static_cast<size_t>(i) < printers_.size() ? printers_[i].port : "");
    };
    TCopies.Change = [this] {
        zCheckTextBox(TCopies, 1, 100, true);
        if (zIsNumeric(TCopies.Text())) scrlCopies.SetValue(zCopiesFromText(TCopies.Text()));
    };
    scrlCopies.Change = [this] { TCopies.SetText(std::to_string(scrlCopies.Value())); };
    PButOK.Click = [this] {
        TPilotSkill.SetText(Trim(TPilotSkill.Text()));
        TGunSkill.SetText(Trim(TGunSkill.Text()));
        Cancelled = false;
        Hide();
    };
    PButCancel.Click = [this] {
        Cancelled = true;
        Hide();
    };
}

void frmPVhl::Form_Load() {
    printers_ = gPrintPlatform().Printers();
    const std::string current = gPrintPlatform().CurrentPrinter();
    int32_t pick = -1;
    for (size_t i = 0; i < printers_.size(); ++i) {
        cmboPrinters.AddItem(printers_[i].deviceName);
        if (pick < 0 && printers_[i].deviceName == current) pick = static_cast<int32_t>(i);
    }
    if (pick < 0 && !printers_.empty()) pick = 0;
    if (pick >= 0) cmboPrinters.SetListIndex(pick);
    for (const char* q : {"Draft", "Low", "Medium", "High"}) cmboPrintQuality.AddItem(q);
    cmboPrintQuality.SetListIndex(3);
    scrlCopies.SetValue(1);
    TCopies.SetText("1");
    RButPrintStd.SetValue(true);
}

frmPrintSel::frmPrintSel() : FormModel("frmPrintSel") {
    Window.SetCaption("Print Format");
    RButPrintStd.SetCaption("Print standard sheet");
    RButPrintDouble.SetCaption("Print double sheet");
    PButPrint.SetCaption("&Print");
    PButPrint.Default = true;
    RButPrintStd.SetGroup(&style_);
    RButPrintDouble.SetGroup(&style_);
    RButPrintStd.SetValue(true);
    PButPrint.Click = [this] { Hide(); };
}

int16_t zCopiesFromText(const std::string& text) {
    if (!zIsNumeric(text)) return 1;
    const double v = std::strtod(text.c_str(), nullptr);
    if (!(v >= 1)) return 1;
    return zCInt(std::floor(std::min(v, 32767.0)));
}

void zCmdPrintVehicle(Vehicle& v, FormModel& owner) {
    IPrintPlatform& platform = gPrintPlatform();
    if (zHasParm("Use Standard Print Dialog")) {
        frmPrintSel sel;
        sel.Owner = &owner;
        sel.Show(true);
        const bool standard = sel.RButPrintStd.Value();
        if (sel.Loaded) sel.Unload();
        if (!platform.ShowPrintDialog()) return;
        zTrapVoid("CmdPrintVehicle", [&] {
            if (!platform.StartTarget()) return;
            if (standard) PrintVehicle(v, "", "", "");
            else zPrintDoubleRule(v, "", "", "");
            platform.EndTarget();
        });
        return;
    }
    frmPVhl dlg;
    dlg.Owner = &owner;
    dlg.Show(true);
    if (dlg.Cancelled || !dlg.Loaded) {
        if (dlg.Loaded) dlg.Unload();
        return;
    }
    zTrapVoid("CmdPrintVehicle", [&] {
        if (dlg.cmboPrinters.Text() != platform.CurrentPrinter()) SelectPrinter(dlg.cmboPrinters.Text());
        const int16_t quality = zPrintQualityValue(dlg.cmboPrintQuality.ListIndex());
        if (quality != 0) platform.SetPrintQuality(quality);
        const std::string pilot = dlg.TPilotName.Text(), skill = dlg.TPilotSkill.Text(),
                          gunnery = dlg.TGunSkill.Text();
        const int16_t copies = zCopiesFromText(dlg.TCopies.Text());
        if (!platform.StartTarget()) return;
        if (dlg.RButPrintStd.Value()) {
            for (int16_t i = 0; i < copies; ++i) PrintVehicle(v, pilot, skill, gunnery);
        } else {
            const bool mini = zDoubleSheetFits(v, true);
            for (int16_t i = 0; i < copies; ++i)
                mini ? PrintVehicleMini(v, pilot, skill, gunnery) : PrintVehicle(v, pilot, skill, gunnery);
        }
        platform.EndTarget();
    });
    if (dlg.Loaded) dlg.Unload();
}

}  // namespace bw
