// The New Fighter dialog: lists by base, the defaults of the preferences,
// and the design its choices make.
#include <gtest/gtest.h>

#include "FighterTestSupport.h"
#include "core/Settings.h"
#include "fighter/frmNFtr.h"

using namespace bw;
using namespace bw::test;

namespace {

std::vector<std::string> Lines(const ComboBox& box) {
    std::vector<std::string> out;
    for (int32_t i = 0; i < box.ListCount(); ++i) out.push_back(box.List(i));
    return out;
}

// Sets the fighter defaults for one test and puts the old ones back.
struct Defaults {
    int16_t type, base, level;
    Defaults(int16_t t, int16_t b, int16_t l) : type(gDefFtrType), base(gDefFtrBase), level(gDefFtrLevel) {
        gDefFtrType = t;
        gDefFtrBase = b;
        gDefFtrLevel = l;
    }
    ~Defaults() {
        gDefFtrType = type;
        gDefFtrBase = base;
        gDefFtrLevel = level;
    }
};

}  // namespace

TEST_F(FighterTest, NewFighterListsFollowTheBaseAndTheDefaults) {
    struct Case {
        int16_t type, base, level;
        std::vector<std::string> levels, types;
        std::string levelShown, typeShown;
    };
    const Case cases[] = {
        {0, 0, 1, {"1", "2", "3"}, {"Conventional", "Aerospace"}, "1", "Conventional"},
        {2, 1, 3, {"2", "3"}, {"Conventional", "Aerospace", "Omni-Fighter"}, "3", "Omni-Fighter"},
        {1, 1, 1, {"2", "3"}, {"Conventional", "Aerospace", "Omni-Fighter"}, "2", "Aerospace"},  // no level 1
        // No Omni-Fighter on the Inner Sphere: the error ends the defaults there.
        {2, 0, 2, {"1", "2", "3"}, {"Conventional", "Aerospace"}, "1", "Conventional"},
    };
    for (const Case& c : cases) {
        Defaults d(c.type, c.base, c.level);
        frmNFtr dlg;
        dlg.Form_Load();
        EXPECT_EQ(Lines(dlg.cmboLevel), c.levels);
        EXPECT_EQ(Lines(dlg.cmboType), c.types);
        EXPECT_EQ(dlg.cmboLevel.Text(), c.levelShown) << c.type << c.base << c.level;
        EXPECT_EQ(dlg.cmboType.Text(), c.typeShown) << c.type << c.base << c.level;
    }
    // That type default was the run-time's invalid-value error, reported.
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.boxes[0].title, "Error");

    frmNFtr dlg;
    dlg.Form_Load();
    dlg.cmboBase.SetListIndex(1);
    dlg.cmboType.SetListIndex(2);
    dlg.cmboBase.SetListIndex(0);  // changing the base starts both lists over
    EXPECT_EQ(dlg.cmboType.ListIndex(), 0);
    EXPECT_EQ(dlg.cmboLevel.ListIndex(), 0);
    dlg.PButCreate.DoClick();
    EXPECT_EQ(dlg.wCancel, kFalse);
    dlg.PButCancel.DoClick();
    EXPECT_EQ(dlg.wCancel, kTrue);
}

TEST_F(FighterTest, CreatedFighterStartsAtFiveTonsWithTheRatingOfThrustZero) {
    struct Case {
        int16_t base, levelPos, type;
        int16_t level, rating;
        double engine, cockpit;
    };
    const Case cases[] = {
        {0, 0, 0, 1, 0, 0, 0.5},
        {0, 2, 1, 3, -10, 100, 3},
        {1, 0, 2, 2, -10, 100, 3},
        {1, 1, 0, 3, 0, 0, 0.5},
    };
    for (const Case& c : cases) {
        frmNFtr dlg;
        dlg.Form_Load();
        dlg.cmboBase.SetListIndex(c.base);
        dlg.cmboLevel.SetListIndex(c.levelPos);
        dlg.cmboType.SetListIndex(c.type);
        const Fighter f = zCreateFighter(dlg);
        EXPECT_EQ(f.FighterType, c.type);
        EXPECT_EQ(f.TechBase, c.base);
        EXPECT_EQ(f.TechLevel, c.level);
        EXPECT_EQ(f.SIRating + f.FlankSpeed, 3);  // thrust 1 on 5 tons
        EXPECT_EQ(f.EngineRating, c.rating) << c.type;
        EXPECT_EQ(f.EngineTonnage, c.engine) << c.type;
        EXPECT_EQ(f.CockpitTonnage, c.cockpit);
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}
