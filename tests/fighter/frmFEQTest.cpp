// The fighter's equipment allocation window: the slot lines, the drop's
// slot choice, the double-click refusals, Done and Cancel.
#include <gtest/gtest.h>

#include <memory>

#include "FighterTestSupport.h"
#include "fighter/frmFEQ.h"

using namespace bw;
using namespace bw::test;

namespace {

const std::string kDash = "----------";

std::vector<std::string> Lines(const ListBox& box) {
    std::vector<std::string> out;
    for (int32_t i = 0; i < box.ListCount(); ++i) out.push_back(box.List(i));
    return out;
}

class FeqTest : public FighterTest {
protected:
    std::shared_ptr<Fighter> ftr = std::make_shared<Fighter>(Made(kFtrAerospace, 50, 5));
    frmFEQ w;

    void Open() {
        w.FTR = ftr;
        w.Form_Load();
        w.zReloadData();
    }
    // Drops the available line that reads text on location loc.
    void Drop(const std::string& text, int16_t loc) {
        for (int32_t i = 0; i < w.LBoxAvail.ListCount(); ++i)
            if (w.LBoxAvail.List(i) == text) {
                w.LBoxAvail.SetListIndex(i);
                ASSERT_TRUE(w.LBoxAvail_MouseDown());
                w.LBoxLoc_DragOver(loc, true);
                w.LBoxLoc_DragDrop(loc, &w.LBoxAvail);
                return;
            }
        FAIL() << "no available line " << text;
    }
    void DblClick(int16_t loc, int32_t line) {
        w.LBoxLoc(loc).SetListIndex(line);
        w.LBoxLoc(loc).DblClick();
    }
};

}  // namespace

TEST_F(FeqTest, OpeningShowsSlotsStacksAndTheFixedPlaces) {
    ftr->Weapons = {Entry(kMedLaser, 1, 0, 2),  Entry(kAC5Ammo, 1, 1, 4), Entry(kAC5, 1),
                    Entry(kAC5Ammo, 2, 1, 4),   Entry(kCargo, 1, 6),      FighterWeapon{kPPC, 1, 0, kFalse, -1, -1},
                    Entry(kLargeLaser, 1, 3, 0), Entry(kMedLaser, 2, 1, 0)};
    ftr->HasTC = kTrue;
    ftr->TCLocation = kFtrLocRear;
    ftr->ArmorType = kFtrArmFerroAluminum;
    Open();
    EXPECT_EQ(w.Window.Caption(), "Equipment Allocation");
    EXPECT_EQ(w.LHelp.Caption(),
              "To allocate an item, drag it from the available equipment list and drop it on the location. To "
              "remove an item, simply double click on it within the location. Ammunition of the same type takes up "
              "only one critical slot per location.");
    EXPECT_EQ(Lines(w.LBoxLoc(0)), (std::vector<std::string>{kDash, kDash, "Medium Laser (#1)", kDash, kDash, kDash}));
    // The fixed places overwrite what stands there.
    EXPECT_EQ(Lines(w.LBoxLoc(1)), (std::vector<std::string>{"Ferro-Aluminum Armor", "Ferro-Aluminum Armor", kDash,
                                                             kDash, "AC/5 Ammo (2 tons)", kDash}));
    EXPECT_EQ(Lines(w.LBoxLoc(2)), (std::vector<std::string>{"Ferro-Aluminum Armor", "Ferro-Aluminum Armor", kDash,
                                                             kDash, kDash, kDash}));
    EXPECT_EQ(Lines(w.LBoxLoc(3)), (std::vector<std::string>{"Targeting Computer", kDash}));
    EXPECT_EQ(Lines(w.LBoxAvail), std::vector<std::string>{"AC/5 (#1)"});
    EXPECT_EQ(w.LBoxAvail.ItemData(0), 2);
    EXPECT_EQ(w.wCrit.Slot(1, 4).wListIdx, (std::vector<int16_t>{1, 3}));
    EXPECT_EQ(w.wCrit.Slot(1, 0).wInstances, std::vector<int16_t>{2});  // still there under the armor
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FeqTest, DropsTakeTheFirstFreeLineAndAmmunitionStacks) {
    for (int16_t r : {kMedLaser, kMedLaser, kAC5Ammo, kAC5Ammo, kSRMAmmo, kAC5Ammo, kLargeLaser}) ftr->AddWeapon(r);
    Open();
    Drop("Medium Laser (#1)", 3);
    Drop("AC/5 Ammo (#1)", 0);
    Drop("AC/5 Ammo (#2)", 0);
    Drop("SRM 2 Ammo (#1)", 0);
    Drop("Medium Laser (#2)", 3);
    EXPECT_EQ(Lines(w.LBoxLoc(0)),
              (std::vector<std::string>{"AC/5 Ammo (2 tons)", "SRM 2 Ammo (#1)", kDash, kDash, kDash, kDash}));
    EXPECT_EQ(Lines(w.LBoxLoc(3)), (std::vector<std::string>{"Medium Laser (#1)", "Medium Laser (#2)"}));
    EXPECT_TRUE(fake.ui.boxes.empty());

    // Rear is full: no spill-over to another location.
    Drop("Large Laser (#1)", 3);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].text, "There are no empty slots to add this item to.");
    EXPECT_EQ(fake.ui.boxes[0].title, "Cannot add");
    EXPECT_EQ(w.LBoxLoc(3).BackColor(), 0x8080FF);
    EXPECT_EQ(Lines(w.LBoxAvail), (std::vector<std::string>{"AC/5 Ammo (#3)", "Large Laser (#1)"}));

    // Ammunition goes back to the slot its row emptied, even past free lines.
    DblClick(0, 1);
    DblClick(0, 0);
    DblClick(0, 0);
    EXPECT_EQ(Lines(w.LBoxLoc(0)), std::vector<std::string>(6, kDash));
    Drop("SRM 2 Ammo (#1)", 0);
    Drop("AC/5 Ammo (#3)", 0);
    EXPECT_EQ(Lines(w.LBoxLoc(0)),
              (std::vector<std::string>{"AC/5 Ammo (#3)", "SRM 2 Ammo (#1)", kDash, kDash, kDash, kDash}));

    // A drop from anywhere but the available list is ignored.
    const auto before = Lines(w.LBoxLoc(2));
    w.LBoxAvail.SetListIndex(0);
    w.LBoxLoc_DragDrop(2, &w.LBoxLoc(0));
    w.LBoxAvail.SetListIndex(-1);
    w.LBoxLoc_DragDrop(2, &w.LBoxAvail);
    EXPECT_EQ(Lines(w.LBoxLoc(2)), before);
    EXPECT_FALSE(w.LBoxAvail_MouseDown());
}

TEST_F(FeqTest, DoubleClickRefusalsWithTheirWords) {
    ftr = std::make_shared<Fighter>(Made(kFtrOmni, 50, 5));
    ftr->Weapons = {Entry(kMedLaser, 1, 0, 2, kTrue), Entry(kAC5Ammo, 1, 1, 2, kTrue), Entry(kAC5Ammo, 2, 1, 2, kTrue),
                    Entry(kSRMAmmo, 1, 2, 2, kTrue), Entry(kSRMAmmo, 2, 2, 2), Entry(kSRMAmmo, 3, 2, 2, kTrue)};
    ftr->HasTC = kTrue;
    ftr->TCLocation = kFtrLocNose;
    ftr->ArmorType = kFtrArmFerroAluminum;
    ftr->OmniCurrentConfig = 1;
    Open();
    struct Case {
        int16_t loc;
        int32_t line;
        std::string text;
    };
    const Case cases[] = {
        {0, 0, "Targeting Computers and Ferro-Aluminum Armor cannot be removed or moved around."},
        {1, 1, "Targeting Computers and Ferro-Aluminum Armor cannot be removed or moved around."},
        {0, 2, "You may not remove this item since it is part of the base configuration."},
        {1, 2, "All items in this crit slot are part of the base configuration and therefore cannot be removed."},
    };
    for (const Case& c : cases) {
        fake.ui.boxes.clear();
        DblClick(c.loc, c.line);
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << c.text;
        EXPECT_EQ(fake.ui.boxes[0].text, c.text);
        EXPECT_EQ(fake.ui.boxes[0].title, "Cannot remove");
    }
    fake.ui.boxes.clear();
    DblClick(0, 3);
    EXPECT_EQ(fake.ui.beeps, 1);
    // In a stack the first item that is not the base's goes.
    DblClick(2, 2);
    EXPECT_EQ(Lines(w.LBoxAvail), std::vector<std::string>{"SRM 2 Ammo (#2)"});
    EXPECT_EQ(w.LBoxAvail.ItemData(0), 4);
    EXPECT_EQ(w.LBoxLoc(2).List(2), "SRM 2 Ammo (2 tons)");
    EXPECT_EQ(w.wCrit.Slot(2, 2).wInstances, (std::vector<int16_t>{1, 3}));
    EXPECT_TRUE(fake.ui.boxes.empty());

    // On the base configuration everything may go, first item first.
    ftr->OmniCurrentConfig = 0;
    DblClick(1, 2);
    DblClick(1, 2);
    DblClick(0, 2);
    EXPECT_EQ(Lines(w.LBoxAvail), (std::vector<std::string>{"SRM 2 Ammo (#2)", "AC/5 Ammo (#1)", "AC/5 Ammo (#2)",
                                                            "Medium Laser (#1)"}));
    EXPECT_EQ(w.LBoxLoc(1).List(2), kDash);
}

TEST_F(FeqTest, DoneWritesOnlyWhatStandsInASlotAndCancelNothing) {
    ftr->Weapons = {Entry(kMedLaser, 1, 0, 2), Entry(kAC5, 1), Entry(kAC5Ammo, 1, 3, 1)};
    const auto before = ftr->Weapons;
    Open();
    Drop("AC/5 (#1)", 2);
    DblClick(0, 2);  // taken out and left available
    w.PButCancel.DoClick();
    EXPECT_FALSE(w.wDone);
    EXPECT_EQ(ftr->Weapons, before);

    frmFEQ again;
    again.FTR = ftr;
    again.Form_Load();
    again.zReloadData();
    again.LBoxAvail.SetListIndex(0);
    again.LBoxLoc_DragDrop(2, &again.LBoxAvail);
    again.LBoxLoc(0).SetListIndex(2);
    again.LBoxLoc(0).DblClick();
    again.PButDone.DoClick();
    EXPECT_TRUE(again.wDone);
    EXPECT_EQ(ftr->Weapons, (std::vector<FighterWeapon>{Entry(kMedLaser, 1, 0, 2), Entry(kAC5, 1, 2, 0),
                                                        Entry(kAC5Ammo, 1, 3, 1)}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterTest, SlotModelCopiesRecordsThroughTheGlobalSlot) {
    FighterCrit c;
    EXPECT_EQ(c.Slot(3, 1), CritSlot{});
    c.Slot(0, 5).wInstances = {4, 5};
    c.Slot(0, 5).wIdx = kAC5Ammo;
    c.SetCritGlobal(0, 5);
    EXPECT_EQ(gCurrentCrit, c.Slot(0, 5));
    c.SetCritStatus(3, 1);
    EXPECT_EQ(c.Slot(3, 1), c.Slot(0, 5));
    c.SetCritStatus(4, 0);  // no such location: nothing
    EXPECT_TRUE(fake.ui.boxes.empty());
    c.SetCritGlobal(3, 2);  // Rear has two slots
    ExpectOneReport("FighterCrit.SetCritGlobal", kErrSubscript);
}
