#include "search/frmCriteria.h"

#include <algorithm>
#include <string>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Ui.h"

namespace bw {

namespace {

const char* const kVehicleTypes[] = {"All Vehicles", "Tracked",    "Wheeled",   "Hover",           "V.T.O.L.",
                                     "Hydrofoil",    "Naval Ship", "Submarine", "Super Heavy Tank"};
const char* const kFighterTypes[] = {"All Fighters", "Conventional", "Aerospace", "OmniFighters"};
const char* const kCompare[] = {"Less Than", "Equal To", "Greater Than"};

// The heaviest design of the choice, in tons.
int TonnageLimit(int16_t unitClass, int16_t type) {
    if (unitClass == 1) return type == 0 ? 50 : 100;
    switch (type) {
        case 0: case 4: return 100;  // tracked, hydrofoil
        case 1: return 80;
        case 2: return 50;
        case 3: return 30;
        case 5: case 6: return 300;  // naval ship, submarine
        case 7: return 200;
        default: return 300;  // all vehicles
    }
}

// The number of a list of "Any" and numbers; 0 for "Any".
int16_t ListNumber(const ComboBox& c) {
    return c.ListIndex() <= 0 ? int16_t{0} : static_cast<int16_t>(std::stoi(c.Text()));
}

}  // namespace

frmCriteria::frmCriteria() : FormModel("frmCriteria") {
    Window.SetCaption("New Criteria");
    fraMoveType.SetCaption("Movement Type");
    fraTechnology.SetCaption("Technology");
    fraStructure.SetCaption("Structure");
    fraTonnage.SetCaption("Tonnage");
    fraSpeed.SetCaption("Cruise Speed");
    fraAdditional.SetCaption("Additional Selection");
    LAvail.SetCaption("Available Items");
    LSel.SetCaption("Selected Items");
    RButMoveType[0].SetCaption("Vehicle");
    RButMoveType[1].SetCaption("Fighter");
    CBoxBase[0].SetCaption("Inner Sphere");
    CBoxBase[1].SetCaption("Clan");
    for (size_t i = 0; i < 3; ++i) {
        CBoxLevel[i].SetCaption("Level " + std::to_string(i + 1));
        RButTonnage[i].SetCaption(kCompare[i]);
        RButSpeed[i].SetCaption(kCompare[i]);
    }
    PButDone.SetCaption("&Done");
    PButCancel.SetCaption("&Cancel");
    PButHelp.SetCaption("&Help");
    PButAdvanced.SetCaption("&Advanced");
    PButDone.Default = true;
    PButCancel.Cancel = true;

    for (auto& b : RButMoveType) {
        b.SetGroup(&MoveTypeGroup);
        MoveTypeGroup.push_back(&b);
        b.Click = [this] { RButMoveType_Click(); };
    }
    for (size_t i = 0; i < 3; ++i) {
        RButTonnage[i].SetGroup(&TonnageGroup);
        TonnageGroup.push_back(&RButTonnage[i]);
        RButSpeed[i].SetGroup(&SpeedGroup);
        SpeedGroup.push_back(&RButSpeed[i]);
    }
    cmboMovementType.Click = [this] { cmboMovementType_Click(); };
    cmboTonnage.Click = [this] { cmboTonnage_Click(); };
    cmboSpeed.Click = [this] { cmboSpeed_Click(); };
    LBoxAvail.DblClick = [this] { LBoxAvail_DblClick(); };
    LBoxSel.DblClick = [this] { LBoxSel_DblClick(); };
    PButAdvanced.Click = [this] { PButAdvanced_Click(); };
    PButHelp.Click = [this] { PButHelp_Click(); };
    PButDone.Click = [this] { PButDone_Click(); };
    PButCancel.Click = [this] { PButCancel_Click(); };
}

void frmCriteria::Form_Load() {
    zTrapVoid("frmCriteria.Form_Load", [&] {
        cmboSpeed.Clear();
        cmboSpeed.AddItem("Any");
        for (int s = 1; s <= 20; ++s) cmboSpeed.AddItem(std::to_string(s));
        ResetControls();
    });
}

void frmCriteria::ResetControls() {
    zTrapVoid("ResetControls", [&] {
        wCancel = -1;
        Criterion = SearchCriterion{};
        LBoxSel.Clear();
        // Every base and level ticked: the widest search is the start.
        for (auto& b : CBoxBase) b.SetValue(1);
        for (auto& b : CBoxLevel) b.SetValue(1);
        RButTonnage[1].SetValue(true);
        RButSpeed[1].SetValue(true);
        if (RButMoveType[0].Value()) RButMoveType_Click();
        else RButMoveType[0].SetValue(true);
        if (cmboSpeed.ListCount() > 0) cmboSpeed.SetListIndex(0);
        cmboSpeed_Click();
        Height = kShortHeight;
        fraAdditional.SetVisible(false);
    });
}

void frmCriteria::GetMovementTypes() {
    zTrapVoid("GetMovementTypes", [&] {
        BatchUpdate batch(cmboMovementType);
        cmboMovementType.Clear();
        if (UnitClass() == 1)
            for (const char* t : kFighterTypes) cmboMovementType.AddItem(t);
        else
            for (const char* t : kVehicleTypes) cmboMovementType.AddItem(t);
        cmboMovementType.SetListIndex(0);
    });
}

void frmCriteria::zFillTonnage() {
    zTrapVoid("zFillTonnage", [&] {
        BatchUpdate batch(cmboTonnage);
        cmboTonnage.Clear();
        cmboTonnage.AddItem("Any");
        const int limit = TonnageLimit(UnitClass(), MovementType());
        for (int t = 5; t <= limit; t += 5) cmboTonnage.AddItem(std::to_string(t));
        cmboTonnage.SetListIndex(0);
    });
}

void frmCriteria::GetExtraItems() {
    zTrapVoid("GetExtraItems", [&] {
        const std::vector<std::string> offer = zExtraItemsFor(UnitClass(), MovementType());
        BatchUpdate a(LBoxAvail), s(LBoxSel);
        // A chosen item stays chosen while the new choice still offers it.
        for (int32_t i = LBoxSel.ListCount() - 1; i >= 0; --i)
            if (std::find(offer.begin(), offer.end(), LBoxSel.List(i)) == offer.end()) LBoxSel.RemoveItem(i);
        LBoxAvail.Clear();
        for (const auto& item : offer) {
            bool chosen = false;
            for (int32_t i = 0; i < LBoxSel.ListCount() && !chosen; ++i) chosen = LBoxSel.List(i) == item;
            if (!chosen) LBoxAvail.AddItem(item);
        }
    });
}

void frmCriteria::RButMoveType_Click() { GetMovementTypes(); }

void frmCriteria::cmboMovementType_Click() {
    if (cmboMovementType.ListIndex() < 0) return;
    zFillTonnage();
    GetExtraItems();
}

void frmCriteria::cmboTonnage_Click() {
    const bool any = cmboTonnage.ListIndex() <= 0;
    for (auto& b : RButTonnage) b.SetEnabled(!any);
}

void frmCriteria::cmboSpeed_Click() {
    const bool any = cmboSpeed.ListIndex() <= 0;
    for (auto& b : RButSpeed) b.SetEnabled(!any);
}

void frmCriteria::LBoxAvail_DblClick() {
    zTrapVoid("LBoxAvail_DblClick", [&] {
        const int32_t i = LBoxAvail.ListIndex();
        if (i < 0) return;
        const std::string item = LBoxAvail.List(i);
        LBoxAvail.RemoveItem(i);
        LBoxSel.AddItem(item);
    });
}

void frmCriteria::LBoxSel_DblClick() {
    zTrapVoid("LBoxSel_DblClick", [&] {
        const int32_t i = LBoxSel.ListIndex();
        if (i < 0) return;
        const std::string item = LBoxSel.List(i);
        LBoxSel.RemoveItem(i);
        // Back in its place among the offered items.
        const std::vector<std::string> offer = zExtraItemsFor(UnitClass(), MovementType());
        const auto rank = [&](const std::string& s) { return std::find(offer.begin(), offer.end(), s) - offer.begin(); };
        int32_t at = 0;
        while (at < LBoxAvail.ListCount() && rank(LBoxAvail.List(at)) < rank(item)) ++at;
        LBoxAvail.AddItem(item, at);
    });
}

void frmCriteria::PButAdvanced_Click() {
    Height = Height == kShortHeight ? kFullHeight : kShortHeight;
    fraAdditional.SetVisible(Height == kFullHeight);
}

std::string frmCriteria::HelpText() {
    const std::string gap = std::string(kNL) + kNL + "\t";
    return std::string("The search criteria works in the following way:") + gap +
           "A vehicle/fighter/etc... must pass each section of the search requirements. " +
           "To pass a search requirement, the vehicle/fighter/etc... must meet atleast one of the items " +
           "chosen. For example, if you choose Tech Level 1 and Tech Level 2, the vehicle/fighter/etc... must be either " +
           "level 1 or level 2 to pass the tech level section, as a design has only one " +
           "level. The vehicle/fighter/etc... only needs to meet one of the criteria within the advanced section to pass "
           "that section. " +
           gap +
           "NOTE: If more that one search criteria is made, then the results from each search are added together to get "
           "the file results.";
}

void frmCriteria::PButHelp_Click() { zMsgBox(HelpText(), MsgButtons::OK, MsgIcon::Information, "How does this work?"); }

int16_t frmCriteria::Chosen(const std::array<OptionButton, 3>& group) const {
    for (size_t i = 0; i < group.size(); ++i)
        if (group[i].Value()) return static_cast<int16_t>(i);
    return 1;
}

void frmCriteria::PButDone_Click() {
    zTrapVoid("frmCriteria.PButDone_Click", [&] {
        if (CBoxBase[0].Value() != 1 && CBoxBase[1].Value() != 1) {
            zMsgBox("You have not chosen a technology base to search.", MsgButtons::OK, MsgIcon::Exclamation,
                    "No Tech Base Chosen");
            return;
        }
        if (CBoxLevel[0].Value() != 1 && CBoxLevel[1].Value() != 1 && CBoxLevel[2].Value() != 1) {
            zMsgBox("You have not chosen a technology level to search.", MsgButtons::OK, MsgIcon::Exclamation,
                    "No Tech Level Chosen");
            return;
        }
        SearchCriterion c;
        c.UnitClass = UnitClass();
        c.MovementType = MovementType();
        for (size_t i = 0; i < 2; ++i) c.TechBase[i] = CBoxBase[i].Value() == 1;
        for (size_t i = 0; i < 3; ++i) c.TechLevel[i] = CBoxLevel[i].Value() == 1;
        c.Tonnage = ListNumber(cmboTonnage);
        c.TonnageCompare = Chosen(RButTonnage);
        c.Speed = ListNumber(cmboSpeed);
        c.SpeedCompare = Chosen(RButSpeed);
        c.ExtraItems.clear();
        for (int32_t i = 0; i < LBoxSel.ListCount(); ++i) c.ExtraItems.push_back(LBoxSel.List(i));
        if (c.ExtraItems.empty()) c.ExtraItems.emplace_back();
        Criterion = c;
        wCancel = 0;
        Hide();
    });
}

void frmCriteria::PButCancel_Click() {
    wCancel = -1;
    Hide();
}

}  // namespace bw
