#include "fighter/frmNFtr.h"

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "core/Vocabulary.h"

namespace bw {

frmNFtr::frmNFtr() : FormModel("frmNFtr") {
    Window.SetCaption("New Fighter");
    cmboBase.Click = [this] { cmboBase_Click(); };
    PButCreate.Click = [this] { PButCreate_Click(); };
    PButCancel.Click = [this] { PButCancel_Click(); };
    PButCreate.SetCaption("&Create");
    PButCancel.SetCaption("&Cancel");
    PButCreate.Default = true;
    PButCancel.Cancel = true;
}

void frmNFtr::Form_Load() {
    zTrapVoid("frmNFtr.Form_Load", [&] {
        cmboBase.Clear();
        cmboBase.AddItem("Inner Sphere");
        cmboBase.AddItem("Clan");
        cmboBase.SetListIndex(0);  // fills the levels and types
    });
    zLoadDefaults();
}

void frmNFtr::zLoadDefaults() {
    zTrapVoid("zLoadDefaults", [&] {
        // A default out of a list's range raises the invalid-value error and
        // leaves the lines chosen so far.
        cmboBase.SetListIndex(gDefFtrBase);
        cmboType.SetListIndex(gDefFtrType);
        for (int32_t i = 0; i < cmboLevel.ListCount(); ++i) {
            if (zTextToI16(cmboLevel.List(i)) == gDefFtrLevel) {
                cmboLevel.SetListIndex(i);
                break;
            }
        }
    });
}

void frmNFtr::cmboBase_Click() {
    zTrapVoid("cmboBase_Click", [&] {
        const bool clan = cmboBase.ListIndex() == kBaseClan;
        cmboLevel.Clear();
        // No level 1 for the Clans; only they build Omni-Fighters.
        if (!clan) cmboLevel.AddItem("1");
        cmboLevel.AddItem("2");
        cmboLevel.AddItem("3");
        cmboType.Clear();
        cmboType.AddItem("Conventional");
        cmboType.AddItem("Aerospace");
        if (clan) cmboType.AddItem("Omni-Fighter");
        cmboLevel.SetListIndex(0);
        cmboType.SetListIndex(0);
    });
}

void frmNFtr::PButCreate_Click() {
    wCancel = kFalse;
    Hide();
}

void frmNFtr::PButCancel_Click() {
    wCancel = kTrue;
    Hide();
}

Fighter zCreateFighter(const frmNFtr& dlg) {
    Fighter f;
    zTrapVoid("zCreateFighter", [&] {
        f.FighterType = static_cast<int16_t>(dlg.cmboType.ListIndex());
        f.SetTonnage(5);
        f.SetCruiseSpeed(1);
        const auto base = static_cast<int16_t>(dlg.cmboBase.ListIndex());
        f.TechBase = base;
        // The Clan list starts at level 2.
        f.TechLevel = zI16(int64_t{dlg.cmboLevel.ListIndex()} + (base == kBaseInnerSphere ? 1 : 2));
    });
    return f;
}

}  // namespace bw
