#include "fighter/frmFEQ.h"

#include <algorithm>

#include "core/Errors.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Weapons.h"

namespace bw {

namespace {

constexpr int32_t kDragOverColor = 0x00FF00;
constexpr int32_t kListColor = 0x8080FF;
constexpr const char* kTCText = "Targeting Computer";
constexpr const char* kFerroText = "Ferro-Aluminum Armor";

bool IsYes(int16_t flag) { return flag == kTrue; }

}  // namespace

void zSetLine(ListBox& box, int32_t i, const std::string& text) {
    const int32_t data = box.ItemData(i);
    const bool selected = box.ListIndex() == i;
    box.RemoveItem(i);
    box.AddItem(text, i);
    box.SetItemData(i, data);
    if (selected) box.SetListIndex(i);
}

frmFEQ::frmFEQ() : FormModel("frmFEQ") {
    Window.SetCaption("Equipment Allocation");
    for (int16_t i = 0; i < 4; ++i) {
        wLocLists[static_cast<size_t>(i)].Name = "LBoxLoc(" + std::to_string(i) + ")";
        wLocLists[static_cast<size_t>(i)].DblClick = [this, i] { LBoxLoc_DblClick(i); };
    }
    PButDone.SetCaption("&Done");
    PButCancel.SetCaption("&Cancel");
    PButDone.Click = [this] { PButDone_Click(); };
    PButCancel.Click = [this] { PButCancel_Click(); };
}

ListBox& frmFEQ::LBoxLoc(int16_t i) {
    if (i < 0 || i > 3) zRaise(kErrSubscript);
    return wLocLists[static_cast<size_t>(i)];
}

void frmFEQ::Form_Load() {
    zTrapVoid("frmFEQ.Form_Load", [&] {
        wCrit = FighterCrit();
        for (int16_t i = 0; i < 4; ++i) {
            ListBox& box = LBoxLoc(i);
            box.Clear();
            for (int16_t s = 0; s < kFighterCritSlots[static_cast<size_t>(i)]; ++s) box.AddItem(kEmptySlotText);
        }
        LHelp.SetCaption(
            "To allocate an item, drag it from the available equipment list and drop it on the location. To remove "
            "an item, simply double click on it within the location. Ammunition of the same type takes up only one "
            "critical slot per location.");
    });
}

const FighterWeapon& frmFEQ::zEntry(int32_t listIdx) const {
    if (listIdx < 0 || static_cast<size_t>(listIdx) >= FTR->Weapons.size()) zRaise(kErrSubscript);
    return FTR->Weapons[static_cast<size_t>(listIdx)];
}

std::string frmFEQ::zEntryText(int32_t listIdx) const {
    const FighterWeapon& e = zEntry(listIdx);
    return zWeaponRow(e.wIdx).Name + " (#" + std::to_string(e.wNum) + ")";
}

std::string frmFEQ::zSlotText(const CritSlot& s) const {
    const std::string& name = zWeaponRow(s.wIdx).Name;
    if (s.wInstances.size() == 1) return name + " (#" + std::to_string(s.wInstances.front()) + ")";
    // One ton of ammunition is one entry.
    return name + " (" + std::to_string(s.wInstances.size()) + " tons)";
}

void frmFEQ::zToAvailable(int32_t listIdx) {
    LBoxAvail.AddItem(zEntryText(listIdx));
    LBoxAvail.SetItemData(LBoxAvail.ListCount() - 1, listIdx);
}

void frmFEQ::zReloadData() {
    zTrapVoid("zReloadData", [&] {
        const Fighter& f = *FTR;
        for (size_t i = 0; i < f.Weapons.size(); ++i) {
            const FighterWeapon& e = f.Weapons[i];
            if (!IsYes(e.wActive)) continue;
            const auto listIdx = static_cast<int16_t>(i);
            if (e.wLoc == kFtrLocUnallocated) {
                zToAvailable(listIdx);
            } else if (e.wLoc >= kFtrLocNose && e.wLoc <= kFtrLocRear) {
                CritSlot& s = wCrit.Slot(e.wLoc, e.wSlot);
                if (s.Empty()) {
                    s.wInstances = {e.wNum};
                    s.wListIdx = {listIdx};
                } else {
                    s.wInstances.push_back(e.wNum);
                    s.wListIdx.push_back(listIdx);
                }
                s.wIdx = e.wIdx;
            }
            // Internal entries take no slot and are not offered.
        }
        for (int16_t l = 0; l < 4; ++l)
            for (int16_t n = 0; n < kFighterCritSlots[static_cast<size_t>(l)]; ++n) {
                const CritSlot& s = wCrit.Slot(l, n);
                if (!s.Empty()) zSetLine(LBoxLoc(l), n, zSlotText(s));
            }
        // The fixed places overwrite whatever the slots hold.
        if (IsYes(f.HasTC)) zSetLine(LBoxLoc(f.TCLocation), 0, kTCText);
        if (f.ArmorType == kFtrArmFerroAluminum) {
            for (int16_t wing : {kFtrLocLeftWing, kFtrLocRightWing}) {
                zSetLine(LBoxLoc(wing), 0, kFerroText);
                zSetLine(LBoxLoc(wing), 1, kFerroText);
            }
        }
    });
}

bool frmFEQ::LBoxAvail_MouseDown() { return LBoxAvail.ListIndex() >= 0; }

void frmFEQ::LBoxLoc_DragOver(int16_t i, bool entering) {
    zTrapVoid("LBoxLoc_DragOver", [&] { LBoxLoc(i).SetBackColor(entering ? kDragOverColor : kListColor); });
}

int16_t frmFEQ::zTargetSlot(int16_t i, int16_t wIdx) {
    const ListBox& box = LBoxLoc(i);
    const int16_t slots = kFighterCritSlots[static_cast<size_t>(i)];
    // Ammunition joins a slot that held its row, even one that has emptied
    // meanwhile; there is no spill-over into another location.
    if (zWeaponRow(wIdx).Type == kWpnAmmunition)
        for (int16_t n = 0; n < slots; ++n)
            if (wCrit.Slot(i, n).wIdx == wIdx) return n;
    for (int16_t n = 0; n < slots; ++n)
        if (box.List(n) == kEmptySlotText) return n;
    return -1;
}

void frmFEQ::LBoxLoc_DragDrop(int16_t i, const Control* source) {
    zTrapVoid("LBoxLoc_DragDrop", [&] {
        ListBox& target = LBoxLoc(i);
        if (source != &LBoxAvail || LBoxAvail.ListIndex() < 0) {
            target.SetBackColor(kListColor);
            return;
        }
        const int32_t avail = LBoxAvail.ListIndex();
        const auto listIdx = static_cast<int16_t>(LBoxAvail.ItemData(avail));
        const FighterWeapon& e = zEntry(listIdx);
        const int16_t n = zTargetSlot(i, e.wIdx);
        if (n < 0) {
            zMsgBox("There are no empty slots to add this item to.", MsgButtons::OK, MsgIcon::None, "Cannot add");
            target.SetBackColor(kListColor);
            return;
        }
        CritSlot& s = wCrit.Slot(i, n);
        if (target.List(n) == kEmptySlotText) {
            s.wInstances = {e.wNum};
            s.wListIdx = {listIdx};
            s.wIdx = e.wIdx;
        } else {
            s.wInstances.push_back(e.wNum);
            s.wListIdx.push_back(listIdx);
        }
        zSetLine(target, n, zSlotText(s));
        LBoxAvail.RemoveItem(avail);
        target.SetBackColor(kListColor);
    });
}

void frmFEQ::LBoxLoc_DblClick(int16_t i) {
    zTrapVoid("LBoxLoc_DblClick", [&] {
        ListBox& box = LBoxLoc(i);
        const int32_t n = box.ListIndex();
        if (n < 0) return;
        const std::string line = box.List(n);
        if (line == kEmptySlotText) {
            gUi().Beep();
            return;
        }
        if (line == kTCText || line == kFerroText) {
            zMsgBox(std::string("Targeting Computers and ") + "Ferro-Aluminum Armor" +
                        " cannot be removed or moved around.",
                    MsgButtons::OK, MsgIcon::None, "Cannot remove");
            return;
        }
        const Fighter& f = *FTR;
        // Outside the base configuration the base's items stay where they are.
        const bool guarded = f.FighterType == kFtrOmni && f.OmniCurrentConfig != 0;
        CritSlot& s = wCrit.Slot(i, static_cast<int16_t>(n));
        if (s.wInstances.size() == 1) {
            if (guarded && IsYes(zEntry(s.wListIdx.front()).wBase)) {
                zMsgBox("You may not remove this item since it is part of the base configuration.", MsgButtons::OK,
                        MsgIcon::None, "Cannot remove");
                return;
            }
            LBoxAvail.AddItem(line);
            LBoxAvail.SetItemData(LBoxAvail.ListCount() - 1, s.wListIdx.front());
            zSetLine(box, n, kEmptySlotText);
            s.wInstances.front() = -1;
            return;
        }
        size_t k = 0;
        if (guarded) {
            while (k < s.wListIdx.size() && IsYes(zEntry(s.wListIdx[k]).wBase)) ++k;
            if (k == s.wListIdx.size()) {
                zMsgBox("All items in this crit slot are part of the base configuration and therefore cannot be "
                        "removed.",
                        MsgButtons::OK, MsgIcon::None, "Cannot remove");
                return;
            }
        }
        zToAvailable(s.wListIdx[k]);
        s.wInstances.erase(s.wInstances.begin() + static_cast<std::ptrdiff_t>(k));
        s.wListIdx.erase(s.wListIdx.begin() + static_cast<std::ptrdiff_t>(k));
        zSetLine(box, n, zSlotText(s));
    });
}

void frmFEQ::PButDone_Click() {
    zTrapVoid("PButDone_Click", [&] {
        // Only what stands in a slot is written: an item taken out and left
        // in the available list keeps its old place in the design.
        for (int16_t l = 0; l < 4; ++l)
            for (int16_t n = 0; n < kFighterCritSlots[static_cast<size_t>(l)]; ++n) {
                const CritSlot& s = wCrit.Slot(l, n);
                if (s.Empty()) continue;
                for (int16_t listIdx : s.wListIdx) FTR->UpdateWeaponLocation(listIdx, l, n);
            }
        wDone = true;
        Hide();
    });
}

void frmFEQ::PButCancel_Click() { Hide(); }

}  // namespace bw
