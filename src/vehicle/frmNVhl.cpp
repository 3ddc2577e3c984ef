#include "vehicle/frmNVhl.h"

#include <string>

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"

namespace bw {

frmNVhl::frmNVhl() : FormModel("frmNVhl") {
    cmboBase.Click = [this] { cmboBase_Click(); };
    PButCreate.Click = [this] { PButCreate_Click(); };
    PButCancel.Click = [this] { PButCancel_Click(); };
    PButCreate.Default = true;
    PButCancel.Cancel = true;
    Window.SetCaption("New Vehicle");
    PButCreate.SetCaption("&Create");
    PButCancel.SetCaption("&Cancel");
}

void frmNVhl::Form_Load() {
    zTrapVoid("frmNVhl.Form_Load", [&] {
        cmboBase.Clear();
        cmboBase.AddItem("Inner Sphere");
        cmboBase.AddItem("Clan");
        cmboType.Clear();
        for (int16_t t = kVhlTracked; t <= kVhlSuperHeavy; ++t) cmboType.AddItem(zVehicleTypeName(t));
        cmboType.SetListIndex(0);
        cmboBase.SetListIndex(0);  // fills the levels
        // Centring is the window system's part: the model has no screen.
    });
    zLoadDefaults();
}

void frmNVhl::zLoadDefaults() {
    zTrapVoid("zLoadDefaults", [&] {
        // A default out of the list's range raises the invalid-value error
        // and leaves the first entries chosen.
        cmboBase.SetListIndex(gDefVhlBase);
        cmboType.SetListIndex(gDefVhlType);
        for (int32_t i = 0; i < cmboLevel.ListCount(); ++i) {
            if (zTextToI16(cmboLevel.List(i)) == gDefVhlLevel) {
                cmboLevel.SetListIndex(i);
                break;
            }
        }
    });
}

void frmNVhl::cmboBase_Click() {
    zTrapVoid("cmboBase_Click", [&] {
        cmboLevel.Clear();
        // There is no level 1 for Clan designs.
        if (cmboBase.ListIndex() != kBaseClan) cmboLevel.AddItem("1");
        cmboLevel.AddItem("2");
        cmboLevel.AddItem("3");
        cmboLevel.SetListIndex(0);
    });
}

int16_t frmNVhl::TechLevel() const {
    return zTrap<int16_t>("frmNVhl.TechLevel", 0, [&] { return zTextToI16(cmboLevel.Text()); });
}

void frmNVhl::PButCreate_Click() {
    if (cmboType.Text() == "Super Heavy Tank") {
        if (cmboLevel.Text() != "3") {
            zMsgBox("You must set the tech level to 3 if you want to create a Super Heavy Tank.", MsgButtons::OK,
                    MsgIcon::Information, "Unable to create vehicle");
            return;
        }
        if (cmboBase.Text() == "Clan") {
            zMsgBox("Clan Super Heavy Tanks are not allowed. This tank must be an Inner Sphere vehicle.",
                    MsgButtons::OK, MsgIcon::Information, "Unable to create vehicle");
            return;
        }
    }
    wCancel = kFalse;
    Hide();
}

void frmNVhl::PButCancel_Click() {
    wCancel = kTrue;
    Hide();
}

}  // namespace bw
