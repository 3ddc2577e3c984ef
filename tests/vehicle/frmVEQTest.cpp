// The equipment allocation window: filling from the design, the drop rules
// (ammunition, the mast mount), the sponson balance, and the write-back that
// happens only through PButDone.
#include <gtest/gtest.h>

#include <memory>

#include "database/DatabaseOps.h"
#include "VehicleTestSupport.h"
#include "vehicle/frmVEQ.h"
#include "vehicle/frmVhl.h"

using namespace bw;
using namespace bw::test;

namespace {

constexpr int32_t kRed = 0x0000FF, kGreen = 0x00FF00, kBlack = 0, kWhite = 0xFFFFFF;
constexpr int16_t kTracked = 0, kVTOL = 3, kNaval = 5;

// Rows added to the test table for the mast mount and the sums.
enum : int16_t { kBeagle = 14, kBloodhound, kC3Slave, kActiveProbe, kWatchdog, kTenth, kFifth, kThreeTenths };

VehicleItem Used(int16_t type, int16_t num, int16_t loc) { return {type, num, loc, kTrue}; }

std::vector<std::string> Texts(const ListBox& b) {
    std::vector<std::string> v;
    for (int32_t i = 0; i < b.ListCount(); ++i) v.push_back(b.List(i));
    return v;
}
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

    // A design with the given items, and the window loaded on it.
    frmVEQ& Open(int16_t type, std::vector<VehicleItem> items, int16_t base = 0) {
        v = std::make_shared<Vehicle>(Made(type, type == kVTOL ? 20 : 40, 4, base));
        v->Items = std::move(items);
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
    std::vector<std::vector<std::string>> AllLists() {
        std::vector<std::vector<std::string>> all{Texts(w->LBoxAvail)};
        for (int16_t i = 0; i < 8; ++i) all.push_back(Texts(w->LBoxLoc(i)));
        all.push_back(Texts(w->LBoxLoc(99)));
        return all;
    }
};

}  // namespace

TEST_F(AllocationTest, ReloadPutsEachItemInTheListOfItsPlace) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kMedLaser, 2, 0), {0, 0, 0, 0}, Used(kAC5Ammo, 1, 99),
                    Used(kLargeLaser, 1, 4), Used(kMedLaser, 3, -1), Used(kAC5, 1, 3)});
    // Entries carry their element's index in the array, holes included.
    EXPECT_EQ(Texts(w->LBoxAvail), (std::vector<std::string>{"Medium Laser (#1)", "Medium Laser (#3)"}));
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{0, 5}));
    EXPECT_EQ(Texts(w->LBoxLoc(0)), std::vector<std::string>{"Medium Laser (#2)"});
    EXPECT_EQ(Data(w->LBoxLoc(0)), std::vector<int32_t>{1});
    EXPECT_EQ(Texts(w->LBoxLoc(99)), std::vector<std::string>{"AC/5 Ammo (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(99)), std::vector<int32_t>{3});
    EXPECT_EQ(Texts(w->LBoxLoc(4)), std::vector<std::string>{"Large Laser (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(3)), std::vector<int32_t>{6});

    // A second load starts from empty lists.
    w->zReloadData();
    EXPECT_EQ(w->LBoxAvail.ListCount(), 2);
    EXPECT_EQ(w->LBoxLoc(0).ListCount(), 1);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, CaptionsAndShownListsFollowTypeAndTurrets) {
    Open(kTracked, {Used(kMedLaser, 1, -1)});
    const char* tracked[] = {"Front", "Left", "Right", "Rear", "Main Turret", "Secondary Turret"};
    for (int16_t i = 0; i <= 5; ++i) EXPECT_EQ(w->LLocDesc(i).Caption(), tracked[i]);
    EXPECT_EQ(w->LLocDesc(6).Caption(), "Left Sponson Turret");
    EXPECT_EQ(w->LLocDesc(7).Caption(), "Right Sponson Turret");
    EXPECT_EQ(w->LLocDesc(99).Caption(), "Body");
    for (int16_t i : {4, 5, 6, 7}) {
        EXPECT_FALSE(w->LBoxLoc(i).Visible()) << i;
        EXPECT_FALSE(w->LLocDesc(i).Visible()) << i;
    }
    EXPECT_FALSE(w->LSponsonLeftTonnage.Visible());
    EXPECT_FALSE(w->LSponsonRightTonnage.Visible());

    v->HasTurret = kTrue;
    v->HasSponsonTurrets = kTrue;
    w->zReloadData();
    EXPECT_TRUE(w->LBoxLoc(4).Visible());
    EXPECT_FALSE(w->LBoxLoc(5).Visible());
    for (int16_t i : {6, 7}) EXPECT_TRUE(w->LBoxLoc(i).Visible() && w->LLocDesc(i).Visible()) << i;
    EXPECT_TRUE(w->LSponsonLeftTonnage.Visible());
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "0 tons mounted");

    v->HasTurret = kFalse;
    v->HasSecTurret = kTrue;
    v->HasSponsonTurrets = kFalse;
    w->zReloadData();
    EXPECT_FALSE(w->LBoxLoc(4).Visible());
    EXPECT_TRUE(w->LBoxLoc(5).Visible());
    EXPECT_FALSE(w->LBoxLoc(6).Visible());

    // A mast mount means nothing on a ground vehicle.
    v->HasSecTurret = kFalse;
    v->HasMastMount = kTrue;
    w->zReloadData();
    EXPECT_FALSE(w->LBoxLoc(5).Visible());
}

TEST_F(AllocationTest, VtolShowsTheMastMountAsLocationFive) {
    Open(kVTOL, {Used(kMedLaser, 1, -1)});
    const char* vtol[] = {"Nose", "Left", "Right", "Tail", "Chin Turret", "Mast Mount"};
    for (int16_t i = 0; i <= 5; ++i) EXPECT_EQ(w->LLocDesc(i).Caption(), vtol[i]);
    EXPECT_FALSE(w->LBoxLoc(5).Visible());
    v->HasMastMount = kTrue;
    w->zReloadData();
    EXPECT_TRUE(w->LBoxLoc(5).Visible());
    EXPECT_TRUE(w->LLocDesc(5).Visible());

    Open(kNaval, {Used(kMedLaser, 1, -1)});
    EXPECT_EQ(w->LLocDesc(0).Caption(), "Bow");
    EXPECT_EQ(w->LLocDesc(3).Caption(), "Stern");
}

TEST_F(AllocationTest, IndexesOutsideTheWindowRaiseSubscript) {
    frmVEQ f;
    for (int16_t i : {-1, 8, 98, 100}) {
        try {
            f.LBoxLoc(i);
            ADD_FAILURE() << i;
        } catch (const RunError& e) {
            EXPECT_EQ(e.Number(), kErrSubscript);
        }
        EXPECT_THROW(f.LLocDesc(i), RunError) << i;
    }
    EXPECT_NO_THROW(f.LBoxLoc(99));
    EXPECT_NO_THROW(f.LBoxLoc(0));
    EXPECT_NO_THROW(f.LLocDesc(7));
}

TEST_F(AllocationTest, DamagedItemsAreShownOrReported) {
    // A place no list stands for shows as unallocated, and Done puts it there.
    Open(kTracked, {Used(kMedLaser, 1, 8), Used(kAC5, 1, 2)});
    EXPECT_EQ(Texts(w->LBoxAvail), std::vector<std::string>{"Medium Laser (#1)"});
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

TEST_F(AllocationTest, AnyItemGoesAnywhereShownAndKeepsItsIndex) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5, 1, -1), Used(kCargo, 1, -1), Used(kLargeLaser, 1, -1)});
    EXPECT_FALSE(w->LBoxAvail_MouseDown());  // nothing selected: no drag
    Drop(0, "AC/5 (#1)");
    EXPECT_EQ(Texts(w->LBoxLoc(0)), std::vector<std::string>{"AC/5 (#1)"});
    EXPECT_EQ(Data(w->LBoxLoc(0)), std::vector<int32_t>{1});
    EXPECT_EQ(w->LBoxLoc(0).BackColor(), kWhite);
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{0, 2, 3}));
    EXPECT_FALSE(w->LBoxAvail_MouseDown());  // the moved entry took the selection with it

    Drop(99, "Cargo Space (#1)");
    Drop(0, "Medium Laser (#1)");
    EXPECT_EQ(Texts(w->LBoxLoc(0)), (std::vector<std::string>{"AC/5 (#1)", "Medium Laser (#1)"}));
    EXPECT_EQ(Texts(w->LBoxLoc(99)), std::vector<std::string>{"Cargo Space (#1)"});
    EXPECT_TRUE(fake.ui.boxes.empty());
    // Nothing reaches the design before Done.
    EXPECT_EQ(Places(), (std::vector<int16_t>{-1, -1, -1, -1}));
}

TEST_F(AllocationTest, DropsFromElsewhereOrWithoutSelectionAreIgnored) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5, 1, 0)});
    auto before = AllLists();
    w->LBoxLoc_DragDrop(1, &w->LBoxAvail);  // no entry selected
    Pick(w->LBoxLoc(0), "AC/5 (#1)");
    w->LBoxLoc_DragDrop(1, &w->LBoxLoc(0));  // from another location
    Pick(w->LBoxAvail, "Medium Laser (#1)");
    w->LBoxLoc_DragDrop(1, &w->LBoxLoc(0));
    w->LBoxLoc_DragDrop(1, &w->PButDone);
    w->LBoxLoc_DragDrop(1, nullptr);
    EXPECT_EQ(AllLists(), before);
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationTest, AmmunitionOnlyToTheBody) {
    Open(kTracked, {Used(kAC5Ammo, 1, -1), Used(kSRMAmmo, 1, 99), Used(kAC5, 1, -1)});
    v->HasTurret = kTrue;
    w->zReloadData();
    auto before = AllLists();
    for (int16_t loc : {0, 3, 4}) {
        Drop(loc, "AC/5 Ammo (#1)");
        ASSERT_EQ(fake.ui.boxes.size(), 1u) << loc;
        const RecordedBox& b = fake.ui.LastBox();
        EXPECT_EQ(b.title, "Unable to add item");
        EXPECT_EQ(b.icon, MsgIcon::Critical);
        EXPECT_EQ(b.text, "Ammunition may only be added to the Body location on a vehicle.");
        EXPECT_EQ(AllLists(), before);
        EXPECT_EQ(w->LBoxLoc(loc).BackColor(), kWhite);
        fake.ui.boxes.clear();
    }
    Drop(99, "AC/5 Ammo (#1)");
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(Texts(w->LBoxLoc(99)), (std::vector<std::string>{"SRM 2 Ammo (#1)", "AC/5 Ammo (#1)"}));

    // Taken out of the body and offered elsewhere: refused again.
    DoubleClick(99, "SRM 2 Ammo (#1)");
    EXPECT_EQ(Texts(w->LBoxAvail), (std::vector<std::string>{"AC/5 (#1)", "SRM 2 Ammo (#1)"}));
    Drop(1, "SRM 2 Ammo (#1)");
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(w->LBoxLoc(1).ListCount(), 0);
}

TEST_F(AllocationTest, MastMountTakesOneItemOfTheInnerSphereList) {
    Open(kVTOL, {Used(kBeagle, 1, -1), Used(kBloodhound, 1, -1), Used(kActiveProbe, 1, -1), Used(kMedLaser, 1, -1),
                 Used(kAC5Ammo, 1, -1)});
    v->HasMastMount = kTrue;
    w->zReloadData();
    EXPECT_EQ(w->wMastMount,
              (std::vector<std::string>{"Beagle Active Probe", "Bloodhound Active Probe", "C(3) Slave"}));

    // "Active Probe" is a Clan name: refused on an Inner Sphere design.
    Drop(5, "Active Probe (#1)");
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unable to add item");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
    EXPECT_EQ(fake.ui.LastBox().text,
              "You may not put this item in a mast mount, only the following items are allowed in a mast mount:\n"
              "\t- Beagle Active Probe\n\t- Bloodhound Active Probe\n\t- C(3) Slave");
    EXPECT_EQ(w->LBoxLoc(5).ListCount(), 0);

    // Ammunition is refused as ammunition first.
    Drop(5, "AC/5 Ammo (#1)");
    EXPECT_EQ(fake.ui.LastBox().text, "Ammunition may only be added to the Body location on a vehicle.");

    Drop(5, "Beagle Active Probe (#1)");
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
    EXPECT_EQ(Texts(w->LBoxLoc(5)), std::vector<std::string>{"Beagle Active Probe (#1)"});

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
    EXPECT_EQ(Texts(w->LBoxLoc(5)), std::vector<std::string>{"Bloodhound Active Probe (#1)"});
}

TEST_F(AllocationTest, ClanMastMountListAndGroundSecondTurretHasNoRules) {
    Open(kVTOL, {Used(kActiveProbe, 1, -1), Used(kBeagle, 1, -1), Used(kWatchdog, 1, -1)}, 1);
    v->HasMastMount = kTrue;
    w->zReloadData();
    Drop(5, "Beagle Active Probe (#1)");
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().text,
              "You may not put this item in a mast mount, only the following items are allowed in a mast mount:\n"
              "\t- Active Probe\n\t- Watchdog System");
    Drop(5, "Active Probe (#1)");
    EXPECT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(Texts(w->LBoxLoc(5)), std::vector<std::string>{"Active Probe (#1)"});

    // On a tank location 5 is a turret like any other.
    fake.ui.boxes.clear();
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kAC5, 1, -1)});
    v->HasSecTurret = kTrue;
    w->zReloadData();
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
    EXPECT_EQ(Texts(w->LBoxLoc(0)), std::vector<std::string>{"Medium Laser (#1)"});
    EXPECT_EQ(Texts(w->LBoxAvail), (std::vector<std::string>{"Cargo Space (#1)", "AC/5 (#1)"}));
    EXPECT_EQ(Data(w->LBoxAvail), (std::vector<int32_t>{3, 1}));
    DoubleClick(99, "AC/5 Ammo (#1)");
    EXPECT_EQ(w->LBoxLoc(99).ListCount(), 0);
    EXPECT_TRUE(fake.ui.boxes.empty());
    w->PButDone_Click();
    EXPECT_EQ(Places(), (std::vector<int16_t>{0, -1, -1, -1}));
}

TEST_F(AllocationTest, SponsonFiguresFollowEveryMove) {
    Open(kTracked, {Used(kAC5, 1, 6), Used(kSearchlight, 1, -1), Used(kMedLaser, 1, -1), Used(kCargo, 1, 7)});
    v->HasSponsonTurrets = kTrue;
    w->zReloadData();
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "8 tons mounted");
    EXPECT_EQ(w->LSponsonRightTonnage.Caption(), "1 tons mounted");
    EXPECT_EQ(w->LSponsonLeftTonnage.ForeColor(), kRed);
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

TEST_F(AllocationTest, SponsonsBalanceByTheFiguresAsShown) {
    // 0.1 + 0.2 is not 0.3 in binary, but both show as 0.3.
    Open(kTracked, {Used(kTenth, 1, 6), Used(kFifth, 1, 6), Used(kThreeTenths, 1, 7)});
    v->HasSponsonTurrets = kTrue;
    w->zReloadData();
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "0.3 tons mounted");
    EXPECT_EQ(w->LSponsonLeftTonnage.ForeColor(), kBlack);
    w->Visible = true;
    w->PButDone_Click();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_TRUE(w->wDone);
}

TEST_F(AllocationTest, BalancedSponsonsOfDifferentEquipmentClose) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kMedLaser, 2, -1), Used(kMedLaser, 3, -1), Used(kAC5Ammo, 1, 99),
                    Used(kCargo, 1, -1), Used(kSearchlight, 1, -1), Used(kSearchlight, 2, -1), Used(kPassengers, 1, -1)});
    v->HasSponsonTurrets = kTrue;
    w->zReloadData();
    for (const char* e : {"Medium Laser (#1)", "Medium Laser (#2)", "Medium Laser (#3)"}) Drop(6, e);
    for (const char* e : {"Cargo Space (#1)", "Searchlight (#1)", "Searchlight (#2)", "Passengers (#1)"}) Drop(7, e);
    EXPECT_EQ(w->LSponsonLeftTonnage.Caption(), "3 tons mounted");
    EXPECT_EQ(w->LSponsonRightTonnage.Caption(), "3 tons mounted");
    int closed = 0;
    w->Unloaded = [&] { ++closed; };
    w->Visible = true;
    w->PButDone.DoClick();
    EXPECT_TRUE(fake.ui.boxes.empty());
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(w->Visible);
    EXPECT_TRUE(w->wDone);
    EXPECT_EQ(Places(), (std::vector<int16_t>{6, 6, 6, 99, 7, 7, 7, 7}));
}

TEST_F(AllocationTest, UnbalancedSponsonsKeepTheWindowOpen) {
    Open(kTracked, {Used(kMedLaser, 1, -1), Used(kLargeLaser, 1, -1)});
    v->HasSponsonTurrets = kTrue;
    w->zReloadData();
    Drop(6, "Medium Laser (#1)");
    Drop(7, "Large Laser (#1)");
    int closed = 0;
    w->Unloaded = [&] { ++closed; };
    w->Visible = true;
    w->PButDone.DoClick();
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Unbalanced Sponson Turrets");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
    EXPECT_EQ(fake.ui.LastBox().text,
              "Your sponson turrets are not properly balanced. You must have the same tonnage of equipment in each "
              "of the sponson turrets. This equipment does not need to be the same type, just have the same total "
              "weight.");
    EXPECT_TRUE(w->Visible);
    EXPECT_FALSE(w->wDone);
    EXPECT_EQ(closed, 0);
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
    Open(kTracked, items);
    v->HasTurret = v->HasSecTurret = v->HasSponsonTurrets = kTrue;
    w->zReloadData();
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
    void TearDown() override {
        ed.reset();
        zResetDatabase();
    }
    frmVhl& Editor() {
        ed = std::make_unique<frmVhl>();
        auto d = std::make_shared<Vehicle>();
        ed->vhl = d;
        d->frm = ed.get();
        ed->Form_Load();
        d->SetTechBase(0);
        d->SetTechLevel(3);
        d->SetType(kTracked);
        d->SetTonnage(5);
        d->SetCruiseSpeed(1);
        ed->zSetUpBaseData();
        d->Items = {Used(kMedLaser, 1, -1), Used(kAC5Ammo, 1, 99)};
        ed->zUpdateWeapons();
        return *ed;
    }
};

TEST_F(AllocationRoadTest, DoneWritesBackAndRefreshesTheEditor) {
    frmVhl& e = Editor();
    ASSERT_NE(e.tvSelectedEq.Find("loc-1"), nullptr);
    int shown = 0;
    e.ShowAllocation = [&](frmVhl& editor) {
        zRunAllocation(editor, [&](frmVEQ& f) {
            ++shown;
            EXPECT_TRUE(f.Visible);
            EXPECT_EQ(f.vhl, editor.vhl);  // the editor's own design, not a copy
            EXPECT_EQ(Texts(f.LBoxAvail), std::vector<std::string>{"Medium Laser (#1)"});
            f.LBoxAvail.SetListIndex(0);
            f.LBoxLoc_DragDrop(2, &f.LBoxAvail);
            f.PButDone.DoClick();
        });
    };
    e.PButAllocate.DoClick();
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(e.vhl->Items[0].wLoc, 2);
    EXPECT_EQ(e.tvSelectedEq.Find("loc-1"), nullptr);
    ASSERT_NE(e.tvSelectedEq.Find("loc2"), nullptr);
    EXPECT_EQ(e.tvSelectedEq.Find("loc2")->Text, "Right");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(AllocationRoadTest, TurretWeightFollowsTheWeaponsPutInIt) {
    frmVhl& e = Editor();
    e.CBoxHasTurret.SetValue(1);
    ASSERT_EQ(e.vhl->HasTurret, kTrue);
    ASSERT_EQ(e.vhl->TurretTonnage, 0.0);
    const double totalBefore = e.vhl->TotalTonnage;
    zRunAllocation(e, [&](frmVEQ& f) {
        f.LBoxAvail.SetListIndex(0);
        f.LBoxLoc_DragDrop(kLocTurret, &f.LBoxAvail);
        f.PButDone.DoClick();
    });
    EXPECT_EQ(e.vhl->Items[0].wLoc, kLocTurret);
    // One ton of laser: a tenth, rounded up to the half ton.
    EXPECT_EQ(e.vhl->TurretTonnage, 0.5);
    EXPECT_EQ(e.LTurretTonnage.Caption(), "0.5");
    EXPECT_EQ(e.vhl->TotalTonnage, totalBefore + 0.5);
}

TEST_F(AllocationRoadTest, ClosingByTheWindowControlChangesNothing) {
    frmVhl& e = Editor();
    const auto before = e.vhl->Items;
    int refreshes = 0;
    e.tvSelectedEq.Subscribe([&] { ++refreshes; });
    zRunAllocation(e, [&](frmVEQ& f) {
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
