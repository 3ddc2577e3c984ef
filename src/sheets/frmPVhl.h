// The vehicle print command and its two windows: "Print Vehicle" (printer,
// quality, copies, style, crew) and "Print Format" (style only, before the
// system's print dialog).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"
#include "sheets/PrintAPI.h"

namespace bw {

class Vehicle;

class frmPVhl : public FormModel {
public:
    frmPVhl();
    ComboBox cmboPrinters{"cmboPrinters"};
    Label LPrinterWhere{"LPrinterWhere"};
    ComboBox cmboPrintQuality{"cmboPrintQuality"};
    TextBox TCopies{"TCopies"};
    ScrollBar scrlCopies{"scrlCopies"};
    OptionButton RButPrintStd{"RButPrintStd"}, RButPrintDouble{"RButPrintDouble"};
    TextBox TPilotName{"TPilotName"}, TPilotSkill{"TPilotSkill"}, TGunSkill{"TGunSkill"};
    CommandButton PButOK{"PButOK"}, PButCancel{"PButCancel"};
    // Frames and labels.
    Label fraPrinter{"fraPrinter"}, lName{"lName"}, lWhere{"lWhere"}, lQuality{"lQuality"}, lCopies{"lCopies"},
        fraStyle{"fraStyle"}, fraCrew{"fraCrew"}, lPilotName{"lPilotName"}, lPilotSkill{"lPilotSkill"},
        lGunSkill{"lGunSkill"};
    bool Cancelled = false;

    void Form_Load() override;

private:
    std::vector<PrinterEntry> printers_;
    std::vector<OptionButton*> style_{&RButPrintStd, &RButPrintDouble};
};

class frmPrintSel : public FormModel {
public:
    frmPrintSel();
    OptionButton RButPrintStd{"RButPrintStd"}, RButPrintDouble{"RButPrintDouble"};
    CommandButton PButPrint{"PButPrint"};

private:
    std::vector<OptionButton*> style_{&RButPrintStd, &RButPrintDouble};
};

// The number of copies in TCopies: 1 for a text that is no number or below
// 1, else the value truncated toward negative infinity.
int16_t zCopiesFromText(const std::string& text);

// The print command's routes after the editor's own refusals: the options
// window, or "Print Format" and the system's dialog when "parm.txt" asks
// for the standard dialog. Errors report under "CmdPrintVehicle".
void zCmdPrintVehicle(Vehicle& v, FormModel& owner);

}  // namespace bw
