#include "vehicle/frmVEQ.h"

#include <algorithm>
#include <cstdio>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"
#include "vehicle/frmVhl.h"

namespace bw {

namespace {

constexpr int32_t kBlack = 0x000000;
constexpr int32_t kRed = 0x0000FF;
constexpr int32_t kGreen = 0x00FF00;
constexpr int32_t kWhite = 0xFFFFFF;

// On a V.T.O.L. the second turret's place is the mast mount.
constexpr int16_t kLocMastMount = kLocSecondTurret;

// Figures as the run-time shows a number: no trailing zeros, and sums of
// fractional tons without their noise digits.
std::string Num(double v) { return zSingleText(v); }

}  // namespace

frmVEQ::frmVEQ() : FormModel("frmVEQ") {
    Window.SetCaption("Equipment Allocation");
    for (int16_t i = 0; i < 8; ++i) {
        wLocLists[static_cast<size_t>(i)].Name = "LBoxLoc(" + std::to_string(i) + ")";
        wLocDescs[static_cast<size_t>(i)].Name = "LLocDesc(" + std::to_string(i) + ")";
    }
    // The sponsons and the body keep the same words on every type.
    wLocDescs[kLocLeftSponson].SetCaption(zItemLocationName(kLocLeftSponson, 0));
    wLocDescs[kLocRightSponson].SetCaption(zItemLocationName(kLocRightSponson, 0));
    wBodyDesc.SetCaption(zItemLocationName(kLocBody, 0));
    PButDone.SetCaption("&Done");
    PButDone.Click = [this] { PButDone_Click(); };
    LMoveTo.SetCaption("&Location:");
    PButMove.SetCaption("&Move");
    PButMove.Default = true;  // Enter in the chooser moves
    PButTakeBack.SetCaption("&Take Back");
    LHint.SetCaption("Drag an item onto a location, or choose the location and press Move (Enter in the list). "
                     "Double-click an allocated item, or press Enter or Delete on it, to take it back.");
    PButMove.Click = [this] { PButMove_Click(); };
    PButTakeBack.Click = [this] { PButTakeBack_Click(); };
    // Enter in a list acts on its entry and never closes the window.
    LBoxAvail.KeyDown = [this](int16_t& code) {
        if (code != kKeyReturn) return;
        code = 0;
        PButMove_Click();
    };
    for (int16_t i : {0, 1, 2, 3, 4, 5, 6, 7, 99}) {
        LBoxLoc(i).DblClick = [this, i] { LBoxLoc_DblClick(i); };
        LBoxLoc(i).Click = [this, i] { wActiveLoc = i; };
        LBoxLoc(i).KeyDown = [this, i](int16_t& code) {
            if (code != kKeyReturn && code != kKeyDelete) return;
            code = 0;
            LBoxLoc_DblClick(i);
        };
    }
}

ListBox& frmVEQ::LBoxLoc(int16_t i) {
    if (i == kLocBody) return wBodyList;
    if (i < 0 || i > 7) zRaise(kErrSubscript);
    return wLocLists[static_cast<size_t>(i)];
}

Label& frmVEQ::LLocDesc(int16_t i) {
    if (i == kLocBody) return wBodyDesc;
    if (i < 0 || i > 7) zRaise(kErrSubscript);
    return wLocDescs[static_cast<size_t>(i)];
}

void frmVEQ::Form_Load() {
    zTrapVoid("Form_Load", [&] {
        if (vhl->TechBase == 0)
            wMastMount = {"Beagle Active Probe", "Bloodhound Active Probe", "C(3) Slave"};
        else
            wMastMount = {"Active Probe", "Watchdog System"};
        zReloadData();
    });
}

const VehicleItem& frmVEQ::zItem(int32_t idx) const {
    if (idx < 0 || static_cast<size_t>(idx) >= vhl->Items.size()) zRaise(kErrSubscript);
    return vhl->Items[static_cast<size_t>(idx)];
}

std::string frmVEQ::zEntryText(int16_t idx) const {
    const VehicleItem& it = zItem(idx);
    return zWeaponRow(it.wType).Name + " (#" + std::to_string(it.wNum) + ")";
}

void frmVEQ::zReloadData() {
    zTrapVoid("zReloadData", [&] {
        const Vehicle& v = *vhl;
        for (int16_t i = 0; i < 8; ++i) LBoxLoc(i).Clear();
        LBoxLoc(kLocBody).Clear();
        LBoxAvail.Clear();

        for (int16_t i = 0; i <= 5; ++i) LLocDesc(i).SetCaption(zItemLocationName(i, v.VhlType));

        auto show = [&](int16_t i, bool on) {
            LBoxLoc(i).SetVisible(on);
            LLocDesc(i).SetVisible(on);
        };
        show(kLocTurret, v.HasTurret != 0);
        show(kLocSecondTurret, v.HasSecTurret != 0 || (v.VhlType == kVhlVTOL && v.HasMastMount != 0));
        const bool sponsons = v.HasSponsonTurrets != 0;
        show(kLocLeftSponson, sponsons);
        show(kLocRightSponson, sponsons);
        LSponsonLeftTonnage.SetVisible(sponsons);
        LSponsonRightTonnage.SetVisible(sponsons);

        // The chooser offers the locations shown, keeping the choice made.
        const int32_t chosen = cmboMoveTo.ListIndex() >= 0 ? cmboMoveTo.ItemData(cmboMoveTo.ListIndex()) : kLocFront;
        cmboMoveTo.Clear();
        for (int16_t i : {0, 1, 2, 3, 4, 5, 6, 7, 99}) {
            if (!LBoxLoc(i).Visible()) continue;
            cmboMoveTo.AddItem(LLocDesc(i).Caption());
            cmboMoveTo.SetItemData(cmboMoveTo.ListCount() - 1, i);
            if (i == chosen) cmboMoveTo.SetListIndex(cmboMoveTo.ListCount() - 1);
        }
        wActiveLoc = -1;

        const int16_t count = v.WeaponCount();
        for (int16_t n = 0; n < count; ++n) {
            const int16_t idx = v.SetVehicleWeaponGlobal(n);
            const int16_t loc = gCurrentVehicleItem.wLoc;
            // A place the window has no list for (only a damaged file holds
            // one) shows as unallocated, so the user can put it right.
            const bool known = loc == kLocBody || (loc >= 0 && loc <= 7);
            ListBox& box = known ? LBoxLoc(loc) : LBoxAvail;
            box.AddItem(zEntryText(idx));
            box.SetItemData(box.ListCount() - 1, idx);
        }
        zCheckSponsonTonnage();
    });
}

std::string frmVEQ::zListTonnage(const ListBox& box) const {
    double tons = 0;
    for (int32_t i = 0; i < box.ListCount(); ++i) tons += zWeaponRow(zItem(box.ItemData(i)).wType).Tonnage;
    return Num(tons) + " tons mounted";
}

void frmVEQ::zCheckSponsonTonnage() {
    zTrapVoid("zCheckSponsonTonnage", [&] {
        if (vhl->HasSponsonTurrets == 0) return;
        LSponsonLeftTonnage.SetCaption(zListTonnage(LBoxLoc(kLocLeftSponson)));
        LSponsonRightTonnage.SetCaption(zListTonnage(LBoxLoc(kLocRightSponson)));
        // The captions are compared, so two sums that show alike balance.
        const int32_t colour =
            LSponsonLeftTonnage.Caption() == LSponsonRightTonnage.Caption() ? kBlack : kRed;
        LSponsonLeftTonnage.SetForeColor(colour);
        LSponsonRightTonnage.SetForeColor(colour);
    });
}

void frmVEQ::zUpdateWeaponLocs() {
    zTrapVoid("zUpdateWeaponLocs", [&] {
        auto write = [&](const ListBox& box, int16_t loc) {
            for (int32_t i = 0; i < box.ListCount(); ++i)
                vhl->UpdateWeaponLocation(static_cast<int16_t>(box.ItemData(i)), loc);
        };
        write(LBoxAvail, -1);
        for (int16_t i = 0; i < 8; ++i) write(LBoxLoc(i), i);
        write(LBoxLoc(kLocBody), kLocBody);
    });
}

bool frmVEQ::LBoxAvail_MouseDown() { return LBoxAvail.ListIndex() >= 0; }

bool frmVEQ::LBoxLoc_DragOver(int16_t i, bool entering) {
    return zTrap<bool>("LBoxLoc_DragOver", false, [&] {
        ListBox& box = LBoxLoc(i);
        box.SetBackColor(entering ? kGreen : kWhite);
        return box.Visible();
    });
}

void frmVEQ::zMoveSelected(ListBox& from, ListBox& to) {
    const int32_t sel = from.ListIndex();
    const std::string text = from.List(sel);
    const int32_t data = from.ItemData(sel);
    from.RemoveItem(sel);
    to.AddItem(text);
    to.SetItemData(to.ListCount() - 1, data);
    // The entry that took its place is next, so the keyboard moves on.
    if (from.ListCount() > 0) from.SetListIndex(std::min(sel, from.ListCount() - 1));
}

void frmVEQ::LBoxLoc_DragDrop(int16_t i, const Control* source) {
    zTrapVoid("LBoxLoc_DragDrop", [&] {
        ListBox& target = LBoxLoc(i);
        target.SetBackColor(kWhite);
        if (source != &LBoxAvail || LBoxAvail.ListIndex() < 0) return;

        const WeaponRec& row = zWeaponRow(zItem(LBoxAvail.ItemData(LBoxAvail.ListIndex())).wType);
        if (i != kLocBody && row.Type == kWpnAmmunition) {
            zMsgBox("Ammunition may only be added to the Body location on a vehicle.", MsgButtons::OK,
                    MsgIcon::Critical, "Unable to add item");
            return;
        }
        if (i == kLocMastMount && vhl->VhlType == kVhlVTOL) {
            if (target.ListCount() > 0) {
                zMsgBox("You may not put this item in the mast-mount since there is already an item here. "
                        "You may only have one item in the mast-mount",
                        MsgButtons::OK, MsgIcon::Critical, "Only one item allowed");
                return;
            }
            bool allowed = false;
            for (const std::string& name : wMastMount) allowed = allowed || name == row.Name;
            if (!allowed) {
                std::string text =
                    "You may not put this item in a mast mount, only the following items are allowed in a mast "
                    "mount:";
                for (const std::string& name : wMastMount) text += std::string(kNL) + "\t- " + name;
                zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, "Unable to add item");
                return;
            }
        }
        zMoveSelected(LBoxAvail, target);
        zCheckSponsonTonnage();
    });
}

void frmVEQ::LBoxLoc_DblClick(int16_t i) {
    zTrapVoid("LBoxLoc_DblClick", [&] {
        ListBox& box = LBoxLoc(i);
        if (box.ListIndex() < 0) return;
        zMoveSelected(box, LBoxAvail);
        zCheckSponsonTonnage();
    });
}

void frmVEQ::PButMove_Click() {
    zTrapVoid("PButMove_Click", [&] {
        if (cmboMoveTo.ListIndex() < 0) return;
        LBoxLoc_DragDrop(static_cast<int16_t>(cmboMoveTo.ItemData(cmboMoveTo.ListIndex())), &LBoxAvail);
    });
}

void frmVEQ::PButTakeBack_Click() {
    if (wActiveLoc == -1) return;
    LBoxLoc_DblClick(wActiveLoc);
}

void frmVEQ::PButDone_Click() {
    zTrapVoid("PButDone_Click", [&] {
        if (vhl->HasSponsonTurrets != 0 && LSponsonLeftTonnage.Caption() != LSponsonRightTonnage.Caption()) {
            zMsgBox("Your sponson turrets are not properly balanced. You must have the same tonnage of equipment "
                    "in each of the sponson turrets. This equipment does not need to be the same type, just have "
                    "the same total weight.",
                    MsgButtons::OK, MsgIcon::Critical, "Unbalanced Sponson Turrets");
            return;
        }
        zUpdateWeaponLocs();
        wDone = true;
        Hide();
    });
}

void zRunAllocation(frmVhl& editor) {
    zTrapVoid("PButAllocate_Click", [&] {
        frmVEQ w;
        w.vhl = editor.vhl;
        zShowModal(w, &editor);
        if (!w.wDone) return;
        // The turrets and sponsons weigh what their weapons now say; the
        // refresh alone would keep the weights of the old places.
        editor.vhl->CalcWeaponTonnages();
        editor.zUpdateWeapons();
    });
}

}  // namespace bw
