// The equipment allocation window: filling from the design, the drop rules
// (ammunition, the mast mount), the sponson balance, and the write-back that
// happens only through PButDone.
#include <gtest/gtest.h>

#include <functional>

#include <memory>

#include "EditorTestSupport.h"
#include "VehicleTestSupport.h"
#include "database/DatabaseOps.h"
#include "support/FakeFormHost.h"
#include "support/NewEditor.h"
#include "support/RaisesError.h"
#include "vehicle/frmVEQ.h"

using namespace bw;
using namespace bw::test;

namespace {

constexpr int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlack = 0, kWhite = 0xFFFFFF;
constexpr int16_t kTracked = 0, kVTOL = 3, kNaval = 5;

// Rows added to the test table for the mast mount and the sums.
enum : int16_t { kBeagle = 14, kBloodhound, kC3Slave, kActiveProbe, kWatchdog, kTenth, kFifth, kThreeTenths };

const char* const kAmmoOnlyBody = "Ammunition may only be added to the Body location on a vehicle.";

VehicleItem Used(int16_t type, int16_t num, int16_t loc) { return {type, num, loc, kTrue}; }

std::vector<int32_t> Data(const ListBox& b) {
    std::vector<int32_t> v;
    for (int32_t i = 0; i < b.ListCount(); ++i) v.push_back(b.ItemData(i));
    return v;
}
void Pick(ListBox& b, const std::string& text) {
    for (int32_t i = 0; i < b.ListCount(); ++i)
        if (b.List(i) == text) return b.SetListIndex(i);
    FAIL() << "no entry " << text << " in " << b.Name;
}
using Texts = std::vector<std::string>;

class AllocationTest : public VehicleTest {
protected:
    std::shared_ptr<Vehicle> v;
    std::unique_ptr<frmVEQ> w;

    void SetUp() override {
        gWeapons.push_back(MakeRow("Beagle Active Probe", 3, 1.5, 0, 0, 0, 2));
        gWeapons.push_back(MakeRow("Bloodhound Active Probe", 3, 2, 0, 0, 0, 3));
        gWeapons.push_back(MakeRow("C(3) Slave", 3, 1, 0, 0, 0, 3));
        gWeapons.push_back(MakeRow("Active Probe", 3, 1, 0, 0, 1, 2));
        gWeapons.push_back(MakeRow("Watchdog System", 3, 1.5, 0, 0, 1, 3));
        gWeapons.push_back(MakeRow("Tenth", 3, 0.1, 0));
        gWeapons.push_back(MakeRow("Fifth", 3, 0.2, 0));
        gWeapons.push_back(MakeRow("Three Tenths", 3, 0.3, 0));
    }

    // A design with the given items and places, and the window loaded on it.
    frmVEQ& Open(int16_t type, std::vector<VehicleItem> items, std::vector<int16_t Vehicle::*> mounted = {},
                 int16_t base = 0) {
        v = std::make_shared<Vehicle>(Made(type, type == kVTOL ? 20 : 40, 4, base));
        v->Items = std::move(items);
        for (auto flag : mounted) v.get()->*flag = kTrue;
        w = std::make_unique<frmVEQ>();
        w->vhl = v;
        w->Form_Load();
        return *w;
    }
    void Drop(int16_t loc, const std::string& text) {
        Pick(w->LBoxAvail, text);
        ASSERT_TRUE(w->LBoxAvail_MouseDown());
        w->LBoxLoc_DragOver(loc, true);
        w->LBoxLoc_DragDrop(loc, &w->LBoxAvail);
    }
    void DoubleClick(int16_t loc, const std::string& text) {
        Pick(w->LBoxLoc(loc), text);
        w->LBoxLoc_DblClick(loc);
    }
    std::vector<int16_t> Places() const {
        std::vector<int16_t> p;
        for (const VehicleItem& it : v->Items) p.push_back(it.wLoc);
        return p;
    }
    // Every list's entries, to show that a refusal moved nothing.
    std::vector<Texts> AllLists() {
        std::vector<Texts> all{Lines(w->LBoxAvail)};
        for (int16_t i = 0; i < 8; ++i) all.push_back(Lines(w->LBoxLoc(i)));
        all.push_back(Lines(w->LBoxLoc(99)));
        return all;
    }
    std::vector<bool> ListsShown() {
        std::vector<bool> s;
        for (int16_t i = 4; i <= 7; ++i) s.push_back(w->LBoxLoc(i).Visible() && w->LLocDesc(i).Visible());
        return s;
    }
};

const auto kTurret = &Vehicle::HasTurret;
const auto kSecTurret = &Vehicle::HasSecTurret;
const auto kSponsons = &Vehicle::HasSponsonTurrets;
const auto kMast = &Vehicle::HasMastMount;

}  // namespace

TEST_F(AllocationTest, ReloadPutsEachItemInTheListOfItsPlace) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kMedLaser, 2, 0), {0, 0, 0, 0}, Used(kAC5Ammo, 1, 99),
                    Used(kLargeLaser, 1, 4), Used(kMedLaser, 3, -1), Used(kAC5, 1, 3)});
    // Entries carry their element's index in the array, holes included.
    EXPECT_EQ(Lines(w->LBoxAvail), (Texts{"Medium Laser (#1)", "Medium Laser (#3)"}));
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{0, 5}));
    EXPECT_EQ(Lines(w->LBoxLoc(0)), Texts{"Medium Laser (#2)"});
    EXPECT_EQ(Data(w->LBoxLoc(0)), std::vector<int32_t>{1});
    EXPECT_EQ(Lines(w->LBoxLoc(99)), Texts{"AC/5 Ammo (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(99)), std::vector<int32_t>{3});
    EXPECT_EQ(Lines(w->LBoxLoc(4)), Texts{"Large Laser (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(3)), std::vector<int32_t>{6});

    // A second load starts from empty lists.
    const auto before = AllLists();
    w->zReloadData();
    EXPECT_EQ(AllLists(), before);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, CaptionsAndShownListsFollowTypeAndTurrets) {
    const std::pair<int16_t, Texts> captions[] = {
        {kTracked, {"Front", "Left", "Right", "Rear", "Main Turret", "Secondary Turret"}},
        {kVTOL, {"Nose", "Left", "Right", "Tail", "Chin Turret", "Mast Mount"}},
        {kNaval, {"Bow", "Left", "Right", "Stern", "Main Turret", "Secondary Turret"}}};
    for (const auto& [type, want] : captions) {
        Open(type, {Used(kMedLaser, 1, -1)});
        Texts got;
        for (int16_t i = 0; i <= 5; ++i) got.push_back(w->LLocDesc(i).Caption());
        EXPECT_EQ(got, want);
        EXPECT_EQ(w->LLocDesc(6).Caption(), "Left Sponson Turret");
        EXPECT_EQ(w->LLocDesc(7).Caption(), "Right Sponson Turret");
        EXPECT_EQ(w->LLocDesc(99).Caption(), "Body");
    }

    // Lists 4 to 7 and the sponson figures by what is mounted; a mast mount
    // means nothing on a ground vehicle.
    struct Case {
        int16_t type;
        std::vector<int16_t Vehicle::*> mounted;
        std::vector<bool> shown;
    } cases[] = {
        {kTracked, {}, {false, false, false, false}},
        {kTracked, {kTurret, kSponsons}, {true, false, true, true}},
        {kTracked, {kSecTurret}, {false, true, false, false}},
        {kTracked, {kMast}, {false, false, false, false}},
        {kVTOL, {}, {false, false, false, false}},
        {kVTOL, {kMast}, {false, true, false, false}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << " with " << c.mounted.size());
        Open(c.type, {Used(kMedLaser, 1, -1)}, c.mounted);
        EXPECT_EQ(ListsShown(), c.shown);
        EXPECT_EQ(w->LSponsonLeftTonnage.Visible(), c.shown[2]);
        EXPECT_EQ(w->LSponsonRightTonnage.Visible(), c.shown[3]);
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, IndexesOutsideTheWindowRaiseSubscript) {
    frmVEQ f;
    for (int16_t i : {-1, 8, 98, 100}) {
        EXPECT_EQ(ErrNumberOf([&] { f.LBoxLoc(i); }), kErrSubscript) << i;
        EXPECT_EQ(ErrNumberOf([&] { f.LLocDesc(i); }), kErrSubscript) << i;
    }
    for (int16_t i : {0, 7, 99}) EXPECT_EQ(ErrNumberOf([&] { f.LBoxLoc(i), f.LLocDesc(i); }), 0) << i;
}

TEST_F(AllocationTest, DamagedItemsAreShownOrReported) {
    // A place no list stands for shows as unallocated, and Done puts it there.
    Open(kTracked, {Used(kMedLaser, 1, 8), Used(kAC5, 1, 2)});
    EXPECT_EQ(Lines(w->LBoxAvail), Texts{"Medium Laser (#1)"});
    w->PButDone_Click();
    EXPECT_EQ(Places(), (std::vector<int16_t>{-1, 2}));

    // A row outside the table is reported under the loading routine.
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(500, 1, -1)});
    ExpectOneReport("zReloadData", kErrSubscript);
}

TEST_F(AllocationTest, DragOverTurnsGreenAndBackToWhite) {
    Open(kTracked, {Used(kMedLaser, 1, -1)});
    EXPECT_TRUE(w->LBoxLoc_DragOver(0, true));
    EXPECT_EQ(w->LBoxLoc(0).BackColor(), kGreen);
    EXPECT_EQ(w->LBoxLoc(1).BackColor(), -1);
    EXPECT_TRUE(w->LBoxLoc_DragOver(0, false));
    EXPECT_EQ(w->LBoxLoc(0).BackColor(), kWhite);
    EXPECT_FALSE(w->LBoxLoc_DragOver(4, true));  // no turret: the list is hidden

    // A drop restores the colour even when it is refused or ignored.
    w->LBoxLoc_DragOver(2, true);
    w->LBoxLoc_DragDrop(2, nullptr);
    EXPECT_EQ(w->LBoxLoc(2).BackColor(), kWhite);
}

TEST_F(AllocationTest, AnyItemGoesAnywhereShownOnlyFromTheAvailableList) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5, 1, -1), Used(kCargo, 1, -1), Used(kLargeLaser, 1, 1)});
    EXPECT_FALSE(w->LBoxAvail_MouseDown());  // nothing selected: no drag
    Drop(0, "AC/5 (#1)");
    EXPECT_EQ(Lines(w->LBoxLoc(0)), Texts{"AC/5 (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(0)), std::vector<int32_t>{1});
    EXPECT_EQ(w->LBoxLoc(0).BackColor(), kWhite);
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{0, 2}));
    EXPECT_EQ(w->LBoxAvail.Text(), "Cargo Space (#1)");  // the next entry took the selection

    Drop(99, "Cargo Space (#1)");
    Drop(0, "Medium Laser (#1)");
    EXPECT_EQ(Lines(w->LBoxLoc(0)), (Texts{"AC/5 (#1)", "Medium Laser (#1)"}));
    EXPECT_EQ(Lines(w->LBoxLoc(99)), Texts{"Cargo Space (#1)"});
    // Nothing reaches the design before Done.
    EXPECT_EQ(Places(), (std::vector<int16_t>{-1, -1, -1, 1}));

    // Drops without a selection, from another location or from elsewhere
    // are ignored.
    DoubleClick(99, "Cargo Space (#1)");
    const auto before = AllLists();
    w->LBoxAvail.SetListIndex(-1);
    w->LBoxLoc_DragDrop(2, &w->LBoxAvail);
    Pick(w->LBoxLoc(1), "Large Laser (#1)");
    w->LBoxLoc_DragDrop(2, &w->LBoxLoc(1));
    Pick(w->LBoxAvail, "Cargo Space (#1)");
    w->LBoxLoc_DragDrop(2, &w->LBoxLoc(1));
    w->LBoxLoc_DragDrop(2, &w->PButDone);
    w->LBoxLoc_DragDrop(2, nullptr);
    EXPECT_EQ(AllLists(), before);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, AmmunitionOnlyToTheBody) {
    Open(kTracked, {Used(kAC5Ammo, 1, -1), Used(kSRMAmmo, 1, 99), Used(kAC5, 1, -1)}, {kTurret});
    const auto before = AllLists();
    for (int16_t loc : {0, 3, 4}) {
        SCOPED_TRACE(loc);
        fake.ui.boxes.clear();
        Drop(loc, "AC/5 Ammo (#1)");
        ASSERT_EQ(fake.ui.boxes.size(), 1u);
        EXPECT_EQ(LastShown(fake.ui), (Shown{"Unable to add item", kAmmoOnlyBody, MsgIcon::Critical}));
        EXPECT_EQ(AllLists(), before);
        EXPECT_EQ(w->LBoxLoc(loc).BackColor(), kWhite);
    }
    fake.ui.boxes.clear();
    Drop(99, "AC/5 Ammo (#1)");
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(Lines(w->LBoxLoc(99)), (Texts{"SRM 2 Ammo (#1)", "AC/5 Ammo (#1)"}));

    // Taken out of the body and offered elsewhere: refused again.
    DoubleClick(99, "SRM 2 Ammo (#1)");
    EXPECT_EQ(Lines(w->LBoxAvail), (Texts{"AC/5 (#1)", "SRM 2 Ammo (#1)"}));
    Drop(1, "SRM 2 Ammo (#1)");
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(w->LBoxLoc(1).ListCount(), 0);
}

TEST_F(AllocationTest, MastMountTakesOneItemOfItsBasesList) {
    Open(kVTOL,
         {Used(kBeagle, 1, -1), Used(kBloodhound, 1, -1), Used(kActiveProbe, 1, -1), Used(kMedLaser, 1, -1),
          Used(kAC5Ammo, 1, -1)},
         {kMast});
    EXPECT_EQ(w->wMastMount, (Texts{"Beagle Active Probe", "Bloodhound Active Probe", "C(3) Slave"}));

    // "Active Probe" is a Clan name: refused on an Inner Sphere design.
    Drop(5, "Active Probe (#1)");
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui),
              (Shown{"Unable to add item",
                     "You may not put this item in a mast mount, only the following items are allowed in a mast "
                     "mount:\n\t- Beagle Active Probe\n\t- Bloodhound Active Probe\n\t- C(3) Slave",
                     MsgIcon::Critical}));
    EXPECT_EQ(w->LBoxLoc(5).ListCount(), 0);

    // Ammunition is refused as ammunition first.
    Drop(5, "AC/5 Ammo (#1)");
    EXPECT_EQ(fake.ui.LastBox().text, kAmmoOnlyBody);

    Drop(5, "Beagle Active Probe (#1)");
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(Lines(w->LBoxLoc(5)), Texts{"Beagle Active Probe (#1)"});

    // A full mast refuses before the name is looked at: an allowed name and a
    // refused one get the same answer.
    for (const char* entry : {"Bloodhound Active Probe (#1)", "Medium Laser (#1)"}) {
        fake.ui.boxes.clear();
        Drop(5, entry);
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << entry;
        EXPECT_EQ(fake.ui.LastBox().title, "Only one item allowed");
        EXPECT_EQ(fake.ui.LastBox().text,
                  "You may not put this item in the mast-mount since there is already an item here. You may only "
                  "have one item in the mast-mount");
    }
    EXPECT_EQ(w->LBoxLoc(5).ListCount(), 1);

    // Emptied by a double click, the mast takes another allowed item.
    DoubleClick(5, "Beagle Active Probe (#1)");
    fake.ui.boxes.clear();
    Drop(5, "Bloodhound Active Probe (#1)");
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(Lines(w->LBoxLoc(5)), Texts{"Bloodhound Active Probe (#1)"});

    // The Clan list.
    Open(kVTOL, {Used(kActiveProbe, 1, -1), Used(kBeagle, 1, -1), Used(kWatchdog, 1, -1)}, {kMast}, 1);
    Drop(5, "Beagle Active Probe (#1)");
    EXPECT_EQ(fake.ui.LastBox().text,
              "You may not put this item in a mast mount, only the following items are allowed in a mast mount:\n"
              "\t- Active Probe\n\t- Watchdog System");
    fake.ui.boxes.clear();
    Drop(5, "Active Probe (#1)");
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(Lines(w->LBoxLoc(5)), Texts{"Active Probe (#1)"});

    // On a tank location 5 is a turret like any other.
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5, 1, -1)}, {kSecTurret});
    Drop(5, "Medium Laser (#1)");
    Drop(5, "AC/5 (#1)");
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(w->LBoxLoc(5).ListCount(), 2);
}

TEST_F(AllocationTest, DoubleClickMovesBack) {
    Open(kTracked, {Used(kMedLaser, 1, 0), Used(kAC5, 1, 0), Used(kAC5Ammo, 1, 99), Used(kCargo, 1, -1)});
    w->LBoxLoc_DblClick(0);  // no selection: nothing
    EXPECT_EQ(w->LBoxLoc(0).ListCount(), 2);
    DoubleClick(0, "AC/5 (#1)");
    EXPECT_EQ(Lines(w->LBoxLoc(0)), Texts{"Medium Laser (#1)"});
    EXPECT_EQ(Lines(w->LBoxAvail), (Texts{"Cargo Space (#1)", "AC/5 (#1)"}));
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{3, 1}));
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, KeyboardMovesUnderTheDropRulesAndTakesBack) {
    frmVEQ& e = Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5Ammo, 1, -1), Used(kLargeLaser, 1, -1)},
                     {&Vehicle::HasTurret});
    Texts offered;
    for (int32_t i = 0; i < e.cmboMoveTo.ListCount(); ++i) offered.push_back(e.cmboMoveTo.List(i));
    EXPECT_EQ(offered, (Texts{"Front", "Left", "Right", "Rear", "Main Turret", "Body"}));
    EXPECT_EQ(e.cmboMoveTo.Text(), "Front");
    EXPECT_EQ(e.LMoveTo.Caption(), "&Location:");
    EXPECT_EQ(e.PButMove.Caption(), "&Move");
    EXPECT_EQ(e.PButTakeBack.Caption(), "&Take Back");

    Pick(e.LBoxAvail, "AC/5 Ammo (#1)");
    e.PButMove.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui), (Shown{"Unable to add item", kAmmoOnlyBody, MsgIcon::Critical}));
    EXPECT_EQ(Data(e.LBoxLoc(0)), std::vector<int32_t>{});
    e.cmboMoveTo.SetListIndex(5);
    e.PButMove.DoClick();
    EXPECT_EQ(Data(e.LBoxLoc(99)), std::vector<int32_t>{1});

    // Enter in the list moves to the chosen place; the next entry is then
    // selected, and Enter with nothing chosen is still taken.
    Pick(e.LBoxAvail, "Medium Laser (#1)");
    e.cmboMoveTo.SetListIndex(4);
    int16_t code = kKeyReturn;
    e.LBoxAvail.KeyDown(code);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Data(e.LBoxLoc(4)), std::vector<int32_t>{0});
    EXPECT_EQ(e.LBoxAvail.Text(), "Large Laser (#1)");

    // Take Back acts on the location list chosen last; Delete and Enter in
    // a location list take its entry back.
    e.PButTakeBack.DoClick();
    EXPECT_EQ(e.LBoxAvail.ListCount(), 1);
    Pick(e.LBoxLoc(99), "AC/5 Ammo (#1)");
    Pick(e.LBoxLoc(4), "Medium Laser (#1)");
    e.PButTakeBack.DoClick();
    EXPECT_EQ(Data(e.LBoxAvail), (std::vector<int32_t>{2, 0}));
    Pick(e.LBoxLoc(99), "AC/5 Ammo (#1)");
    code = kKeyDelete;
    e.LBoxLoc(99).KeyDown(code);
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Data(e.LBoxAvail), (std::vector<int32_t>{2, 0, 1}));
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
}

TEST_F(AllocationTest, SponsonFiguresFollowEveryMove) {
    Open(kTracked, {Used(kAC5, 1, 6), Used(kSearchlight, 1, -1), Used(kMedLaser, 1, -1), Used(kCargo, 1, 7)},
         {kSponsons});
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "8 tons mounted");
    EXPECT_EQ(w->LSponsonRightTonnage.Caption(), "1 tons mounted");
    EXPECT_EQ(w->LSponsonRightTonnage.ForeColor(), kRed);

    Drop(7, "Searchlight (#1)");
    EXPECT_EQ(w->LSponsonRightTonnage.Caption(), "1.5 tons mounted");
    DoubleClick(6, "AC/5 (#1)");
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "0 tons mounted");
    Drop(6, "Medium Laser (#1)");
    DoubleClick(7, "Searchlight (#1)");
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "1 tons mounted");
    EXPECT_EQ(w->LSponsonRightTonnage.Caption(), "1 tons mounted");
    EXPECT_EQ(w->LSponsonLeftTonnage.ForeColor(), kBlack);
    EXPECT_EQ(w->LSponsonRightTonnage.ForeColor(), kBlack);
}

TEST_F(AllocationTest, SponsonsBalanceByTheFiguresAsShownAndDoneCloses) {
    // 0.1 + 0.2 is not 0.3 in binary, but both show as 0.3.
    Open(kTracked, {Used(kTenth, 1, 6), Used(kFifth, 1, 6), Used(kThreeTenths, 1, -1)}, {kSponsons});
    Drop(7, "Three Tenths (#1)");
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "0.3 tons mounted");
    EXPECT_EQ(w->LSponsonLeftTonnage.ForeColor(), kBlack);
    w->Window.SetVisible(true);
    w->PButDone.DoClick();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_FALSE(w->Window.Visible());
    EXPECT_TRUE(w->wDone);
    EXPECT_EQ(Places(), (std::vector<int16_t>{6, 6, 7}));
}

TEST_F(AllocationTest, UnbalancedSponsonsKeepTheWindowOpen) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kLargeLaser, 1, -1)}, {kSponsons});
    Drop(6, "Medium Laser (#1)");
    Drop(7, "Large Laser (#1)");
    w->Window.SetVisible(true);
    w->PButDone.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(LastShown(fake.ui),
              (Shown{"Unbalanced Sponson Turrets",
                     "Your sponson turrets are not properly balanced. You must have the same tonnage of equipment in "
                     "each of the sponson turrets. This equipment does not need to be the same type, just have the "
                     "same total weight.",
                     MsgIcon::Critical}));
    EXPECT_TRUE(w->Window.Visible());
    EXPECT_FALSE(w->wDone);
    EXPECT_EQ(Places(), (std::vector<int16_t>{-1, -1}));

    // Without sponsons the figures are not looked at.
    v->HasSponsonTurrets = kFalse;
    w->PButDone.DoClick();
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_TRUE(w->wDone);
    EXPECT_EQ(Places(), (std::vector<int16_t>{6, 7}));
}

TEST_F(AllocationTest, DoneWritesEveryListsPlace) {
    std::vector<VehicleItem> items;
    for (int16_t n = 1; n <= 10; ++n) items.push_back(Used(kMedLaser, n, 99));
    items.push_back(Used(kAC5, 1, 0));
    Open(kTracked, items, {kTurret, kSecTurret, kSponsons});
    for (int16_t n = 1; n <= 10; ++n) DoubleClick(99, "Medium Laser (#" + std::to_string(n) + ")");
    for (int16_t loc = 0; loc <= 7; ++loc) Drop(loc, "Medium Laser (#" + std::to_string(loc + 1) + ")");
    Drop(99, "Medium Laser (#9)");
    w->PButDone_Click();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(Places(), (std::vector<int16_t>{0, 1, 2, 3, 4, 5, 6, 7, 99, -1, 0}));
}

// The editor's road: PButAllocate opens the window on the editor's design,
// and only Done changes it and refreshes the editor.
class AllocationRoadTest : public AllocationTest {
protected:
    std::unique_ptr<frmVhl> ed;
    test::ScopedFakeFormHost host;
    // Runs the editor's allocation with user as the window's user.
    void RunAllocation(frmVhl& e, std::function<void(frmVEQ&)> user) {
        host->onShow["frmVEQ"] = [user](FormModel& f) { user(static_cast<frmVEQ&>(f)); };
        zRunAllocation(e);
    }
    void TearDown() override {
        ed.reset();
        zResetDatabase();
    }
    frmVhl& Editor() {
        ed = NewEditor(kTracked);
        ed->vhl->Items = {Used(kMedLaser, 1, -1), Used(kAC5Ammo, 1, 99)};
        ed->zUpdateWeapons();
        return *ed;
    }
};

TEST_F(AllocationRoadTest, DoneWritesBackWeighsTheTurretAndRefreshesTheEditor) {
    frmVhl& e = Editor();
    e.CBoxHasTurret.SetValue(1);
    ASSERT_EQ(e.vhl->TurretTonnage, 0.0);
    ASSERT_NE(e.tvSelectedEq.Find("loc-1"), nullptr);
    const double totalBefore = e.vhl->TotalTonnage;
    int shown = 0;
    host->onShow["frmVEQ"] = [&](FormModel& form) {
        auto& f = static_cast<frmVEQ&>(form);
        ++shown;
        EXPECT_TRUE(f.Window.Visible());
        EXPECT_EQ(f.vhl, e.vhl);  // the editor's own design, not a copy
        EXPECT_EQ(Lines(f.LBoxAvail), Texts{"Medium Laser (#1)"});
        f.LBoxAvail.SetListIndex(0);
        f.LBoxLoc_DragDrop(kLocTurret, &f.LBoxAvail);
        f.PButDone.DoClick();
    };
    e.PButAllocate.DoClick();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(e.vhl->Items[0].wLoc, kLocTurret);
    EXPECT_EQ(e.tvSelectedEq.Find("loc-1"), nullptr);
    ASSERT_NE(e.tvSelectedEq.Find("loc4"), nullptr);
    EXPECT_EQ(e.tvSelectedEq.Find("loc4")->Text, "Main Turret");
    // One ton of laser: a tenth, rounded up to the half ton.
    EXPECT_EQ(e.vhl->TurretTonnage, 0.5);
    EXPECT_EQ(e.LTurretTonnage.Caption(), "0.5");
    EXPECT_EQ(e.vhl->TotalTonnage, totalBefore + 0.5);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationRoadTest, ClosingByTheWindowControlChangesNothing) {
    frmVhl& e = Editor();
    const auto before = e.vhl->Items;
    int refreshes = 0;
    e.tvSelectedEq.Subscribe([&] { ++refreshes; });
    RunAllocation(e, [&](frmVEQ& f) {
        f.LBoxAvail.SetListIndex(0);
        f.LBoxLoc_DragDrop(0, &f.LBoxAvail);
        f.LBoxLoc(99).SetListIndex(0);
        f.LBoxLoc_DblClick(99);
        f.Hide();  // the close box: no Done
    });
    EXPECT_EQ(e.vhl->Items, before);
    EXPECT_EQ(refreshes, 0);
    EXPECT_NE(e.tvSelectedEq.Find("loc-1"), nullptr);
}
