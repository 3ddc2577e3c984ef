// The editor's option boxes, armor inputs and targeting computer list.
#include <gtest/gtest.h>

#include "EditorFixture.h"

using namespace bw;
using namespace bw::test;

namespace {

class OptionsTest : public EditorFixture {
protected:
    void ExpectRefused(const std::string& title, const std::string& text, MsgIcon icon = MsgIcon::Critical) {
        EXPECT_EQ(LastShown(fake.ui), (Shown{title, text, icon}));
    }
};

}  // namespace

TEST_F(OptionsTest, RefusedBoxLeavesTheDesignAndAsksOnce) {
    New(kVhlWheeled, 0, 3, 40);
    win->CBoxDuneBuggy.SetValue(1);
    EXPECT_EQ(win->vhl->HasDuneBuggyEquip, -1);
    const int16_t items = win->vhl->NumItems;
    win->zSetSaved(kTrue);

    win->CBoxAmphibEquip.SetValue(1);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    ExpectRefused("Unable to mount amphibious equipment",
                  "You can not mount amphibious equipment if there is dune buggy gear already mounted.");
    EXPECT_EQ(win->CBoxAmphibEquip.Value(), 0);
    EXPECT_EQ(win->vhl->HasAmphibEquip, 0);
    EXPECT_EQ(win->vhl->AmphibTonnage, 0);
    EXPECT_EQ(win->vhl->NumItems, items);
    EXPECT_EQ(win->wSaved, -1) << "nothing ran on the refusal";
}

TEST_F(OptionsTest, ExclusionsTestInOrderAndAreOneSided) {
    New(kVhlTracked, 0, 3, 50);
    win->CBoxBulldozer.SetValue(1);
    win->CBoxHasTurret.SetValue(1);
    // The turret is tested before the bulldozer.
    win->CBoxBridgelayer.SetValue(1);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    ExpectRefused("Unable to mount Bridge Layer",
                  "You can not mount Bridge Layer equipment if there is a turret or secondary turret already mounted.");
    EXPECT_EQ(win->vhl->HasBridgeLayer, 0);
    win->CBoxHasTurret.SetValue(0);
    win->CBoxBridgelayer.SetValue(1);
    EXPECT_EQ(fake.ui.LastBox().text,
              "You can not mount Bridge Layer equipment if there is a bulldozer blade already mounted.");
    win->CBoxBulldozer.SetValue(0);
    win->CBoxBridgelayer.SetValue(1);
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(win->vhl->HasBridgeLayer, -1);
    EXPECT_TRUE(win->cmboBridgelayer.Visible());
    win->cmboBridgelayer.SetListIndex(2);
    EXPECT_EQ(win->vhl->BridgeLayerTonnage, 6);
    // A turret beside a bridge layer is let in.
    win->CBoxHasTurret.SetValue(1);
    EXPECT_EQ(win->vhl->HasTurret, -1);
    EXPECT_EQ(fake.ui.boxes.size(), 2u);

    // The MASH unit keeps out the coolant system and the mobile HQ.
    New(kVhlTracked, 0, 3, 60);
    win->CBoxMASHUnit.SetValue(1);
    win->scrlMASHUnits.SetValue(3);
    EXPECT_EQ(win->vhl->MASHTonnage, 5.5);
    win->CBoxCoolantSystem.SetValue(1);
    ExpectRefused("Unable to mount coolant system",
                  "You can not mount a coolant system if there is a MASH Unit already mounted.");
    win->CBoxMobileHQ.SetValue(1);
    EXPECT_EQ(fake.ui.LastBox().text, "You can not mount a Mobile HQ if there is a MASH Unit already mounted.");
    EXPECT_EQ(win->vhl->HasMobileHQ, 0);
    EXPECT_EQ(win->vhl->HasCoolantSystem, 0);
}

TEST_F(OptionsTest, JumpJetsAndSponsonsAndTheNumberInput) {
    New(kVhlTracked, 0, 3, 50);
    win->scrlSpeed.SetValue(3);
    win->CBoxHasSponsonTurret.SetValue(1);
    win->CBoxJJs.SetValue(1);
    ExpectRefused("Unable to mount jump jets", "You can not mount jump jets if there are sponson turrets already mounted.");
    EXPECT_FALSE(win->scrlJJs.Visible());
    win->CBoxHasSponsonTurret.SetValue(0);
    win->CBoxJJs.SetValue(1);
    EXPECT_TRUE(win->scrlJJs.Visible());
    EXPECT_EQ(win->scrlJJs.Min(), 1);
    EXPECT_EQ(win->vhl->NumJumpJets, 1);
    EXPECT_EQ(win->LJJs.Caption(), "1");
    win->scrlJJs.SetValue(3);
    EXPECT_EQ(win->vhl->JumpJetTonnage, 1.5);
    // Jump movement follows cruising movement down.
    win->scrlSpeed.SetValue(2);
    EXPECT_EQ(win->vhl->NumJumpJets, 2);
    win->CBoxJJs.SetValue(0);
    EXPECT_FALSE(win->scrlJJs.Visible());
    EXPECT_EQ(win->vhl->NumJumpJets, 0);
    EXPECT_EQ(win->vhl->JumpJetTonnage, 0);
    // Sponsons may then come back: they test nothing.
    win->CBoxJJs.SetValue(1);
    win->CBoxHasSponsonTurret.SetValue(1);
    EXPECT_EQ(win->vhl->HasSponsonTurrets, -1);
}

TEST_F(OptionsTest, MainTurretClearsTheSecondAndZeroesArmor) {
    New(kVhlTracked, 0, 3, 50);
    win->scrlArmorTonnage.SetValue(4);  // 32 points
    win->CBoxHasTurret.SetValue(1);
    EXPECT_TRUE(win->CBoxHasSecondTurret.Visible());
    EXPECT_EQ(win->wArmorPicture, 0);
    win->scrlArmorLoc[4].SetValue(5);
    EXPECT_EQ(win->vhl->TurretArmor, 5);
    win->CBoxHasSecondTurret.SetValue(1);
    EXPECT_EQ(win->wArmorPicture, 9);
    EXPECT_TRUE(win->TArmorLoc[5].Visible());
    win->CBoxHasTurret.SetValue(0);
    EXPECT_EQ(win->vhl->TurretArmor, 0);
    EXPECT_EQ(win->vhl->HasSecTurret, 0);
    EXPECT_EQ(win->CBoxHasSecondTurret.Value(), 0);
    EXPECT_EQ(win->wArmorPicture, 1);
}

TEST_F(OptionsTest, ArmorTypeAndEngineNeedFreeSlotsAndGoBack) {
    New(kVhlTracked, 0, 3, 5);  // 6 slots
    win->cmboArmorType.SetListIndex(5);  // Reactive, two slots
    EXPECT_EQ(win->vhl->NumItems, 2);
    for (int i = 0; i < 3; ++i) win->vhl->AddWeapon(kMedLaser);
    ASSERT_EQ(win->vhl->MaxItems - win->vhl->NumItems, 1);
    win->cmboArmorType.SetListIndex(4);  // Laser Reflective asks for two
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    ExpectRefused("Cannot change armor", "You do not have enough free item slots to add Laser Reflective armor.",
                  MsgIcon::Information);
    EXPECT_EQ(win->cmboArmorType.ListIndex(), 0) << "falls back to Normal";
    EXPECT_EQ(win->vhl->ArmorType, 0);

    New(kVhlTracked, 0, 3, 5);
    for (int i = 0; i < 5; ++i) win->vhl->AddWeapon(kMedLaser);
    ASSERT_EQ(win->vhl->MaxItems - win->vhl->NumItems, 1);
    const Vehicle before = *win->vhl;
    win->zSetSaved(kTrue);
    fake.ui.boxes.clear();
    win->cmboEngType.SetListIndex(win->zGetEngineIdx(kEngFusionXL));  // two slots
    ExpectRefused("Cannot change engine", "You do not have enough free item slots to add this engine.",
                  MsgIcon::Information);
    EXPECT_EQ(win->cmboEngType.Text(), "I.C.E.");
    EXPECT_EQ(win->vhl->EngineType, before.EngineType);
    EXPECT_EQ(win->vhl->EngineTonnage, before.EngineTonnage);
    EXPECT_EQ(win->wSaved, -1);
    win->cmboEngType.SetListIndex(win->zGetEngineIdx(kEngLargeICE));  // one slot fits
    EXPECT_EQ(win->vhl->EngineType, kEngLargeICE);
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
}

TEST_F(OptionsTest, ArmorLimitsAndMirroring) {
    New(kVhlTracked, 0, 3, 50);
    win->scrlArmorTonnage.SetValue(2);  // 16 points
    EXPECT_EQ(win->LTotalPoints.Caption(), "16");
    EXPECT_EQ(win->scrlArmorLoc[0].Max(), 16);
    EXPECT_EQ(win->scrlArmorLoc[1].Max(), 8);
    win->scrlArmorLoc[1].SetValue(5);
    EXPECT_EQ(win->vhl->RightArmor, 5);
    EXPECT_EQ(win->TArmorLoc[2].Text(), "5");
    EXPECT_EQ(win->LRemainingPoints.Caption(), "6");
    EXPECT_EQ(win->scrlArmorLoc[0].Max(), 6);
    EXPECT_EQ(win->scrlArmorLoc[2].Max(), 8);
    // Typed text is held to the limit and goes to both of the pair.
    win->TArmorLoc[2].SetText("40");
    win->TArmorLoc[2].LostFocus();
    EXPECT_EQ(win->vhl->LeftArmor, 8);
    EXPECT_EQ(win->vhl->RightArmor, 8);
    EXPECT_EQ(win->TArmorLoc[2].Text(), "8");
    // Less armor bought pulls allocations back inside it.
    win->scrlArmorTonnage.SetValue(1);
    EXPECT_LE(win->vhl->ArmorAllocated, win->vhl->ArmorPoints);
    EXPECT_EQ(win->vhl->LeftArmor, win->vhl->RightArmor);

    // A super heavy tank mirrors its corners but not its sides.
    New(kVhlSuperHeavy, 0, 3, 100);
    win->scrlArmorTonnage.SetValue(4);
    win->scrlArmorLoc[8].SetValue(4);
    EXPECT_EQ(win->vhl->FrontLeftArmor, 4);
    win->scrlArmorLoc[11].SetValue(3);
    EXPECT_EQ(win->vhl->RearRightArmor, 3);
    win->scrlArmorLoc[1].SetValue(2);
    EXPECT_EQ(win->vhl->LeftArmor, 2);
    EXPECT_EQ(win->vhl->RightArmor, 0);

    // A rotor takes two points, however many are typed.
    New(kVhlVTOL, 0, 3, 20);
    win->scrlArmorTonnage.SetValue(2);
    win->TArmorLoc[5].SetText("9");
    win->TArmorLoc[5].LostFocus();
    EXPECT_EQ(win->vhl->SecTurretArmor, 2);
    EXPECT_EQ(win->TArmorLoc[5].Text(), "2");
}

TEST_F(OptionsTest, TargetingComputerLocations) {
    New(kVhlTracked, 0, 3, 50);
    win->CBoxTC.SetValue(1);
    EXPECT_TRUE(win->cmboTCLoc.Visible());
    EXPECT_EQ(win->cmboTCLoc.ListCount(), 5);
    win->cmboTCLoc.SetListIndex(4);
    EXPECT_EQ(win->vhl->TCLocation, 99);
    win->CBoxHasTurret.SetValue(1);
    ASSERT_EQ(win->cmboTCLoc.ListCount(), 6);
    EXPECT_EQ(win->cmboTCLoc.List(4), "Main Turret");
    EXPECT_EQ(win->cmboTCLoc.Text(), "Body") << "found again by its text";
    win->cmboTCLoc.SetListIndex(4);
    EXPECT_EQ(win->vhl->TCLocation, 4);
    win->CBoxHasTurret.SetValue(0);
    EXPECT_EQ(win->cmboTCLoc.ListCount(), 5);
    EXPECT_EQ(win->cmboTCLoc.ListIndex(), 0) << "the turret has gone";
    EXPECT_EQ(win->vhl->TCLocation, 0);
    win->cmboTCLoc.SetListIndex(3);
    win->CBoxHasTurret.SetValue(1);
    EXPECT_EQ(win->cmboTCLoc.ListIndex(), 3);
    EXPECT_TRUE(fake.ui.boxes.empty());
}
