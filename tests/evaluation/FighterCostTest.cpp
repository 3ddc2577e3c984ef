// Cost of a fighter: the parts of each kind, the Omni conversion, the
// unrounded multiplier, the total, and the window as the fighter fills it.
#include <utility>

#include "evaluation/EvalTestSupport.h"
#include "evaluation/frmCost.h"
#include "fighter/Fighter.h"

namespace bw::test {
namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;

Lines LinesOf(const ListView& lv) {
    Lines out;
    for (int32_t i = 0; i < lv.Count(); ++i) out.emplace_back(lv.Item(i).Text, lv.Item(i).SubItem(1));
    return out;
}

class FighterCostTest : public EvalTest {
protected:
    // A 50-ton Fusion aerospace fighter, thrust 6, with two medium lasers,
    // a ton of LRM ammunition and a searchlight that was removed.
    static Fighter Aero(int16_t type = kFtrAerospace) {
        Fighter f;
        f.FighterType = type;
        f.Tonnage = 50;
        f.CruiseSpeed = 6;
        f.EngineType = kEngFusion;
        f.EngineRating = 200;
        f.EngineTonnage = 8.5;
        f.SIRating = 6;
        f.HeatSinks = 12;
        f.ArmorTonnage = 8;
        f.Weapons = {FighterWeapon{kMedLaser, 1, 0, kTrue, 0, 0}, FighterWeapon{kLight, 1, 0, kFalse, 0, 0},
                     FighterWeapon{kMedLaser, 2, 0, kTrue, 0, 1}, FighterWeapon{kLRMAmmo, 1, 0, kTrue, 1, 0}};
        return f;
    }
    // A 30-ton conventional fighter, I.C.E., thrust 5.
    static Fighter Conv() {
        Fighter f;
        f.Tonnage = 30;
        f.CruiseSpeed = 5;
        f.EngineType = kEngICE;
        f.EngineTonnage = 11;
        f.SIRating = 5;
        f.HeatSinks = 6;
        f.ArmorTonnage = 3;
        f.Weapons = {FighterWeapon{kMedLaser, 1, 0, kTrue, 0, 0}, FighterWeapon{kMedLaser, 2, 0, kTrue, 0, 1}};
        return f;
    }
};

TEST_F(FighterCostTest, AerospaceAndOmniPartsMultiplierAndTotal) {
    const Lines aero = {{"200 power rated fusion power plant", "666667"},
                        {"Cockpit", "200000"},
                        {"Structural Integrity", "300000"},
                        {"12 heat sinks", "4000"},
                        {"8 tons armor (normal)", "160000"},
                        {"Sensors", "100000"},
                        {"Life Support", "50000"}};
    frmCost w;
    zFillFighterCost(Aero(), w);
    EXPECT_EQ(LinesOf(w.lvParts), aero);
    EXPECT_EQ(w.lPartsSubtotal.Caption(), "1480667");
    EXPECT_EQ(w.lVhlMultiplier.Caption(), "x 1.25");
    EXPECT_EQ(w.lTotalCost.Caption(), "1988334");  // 1.25 × 1590667

    // The conversion is a quarter of everything above it, weapons included,
    // so they count twice over; 2485417.5 goes to the even whole number.
    frmCost o;
    zFillFighterCost(Aero(kFtrOmni), o);
    Lines omni = aero;
    omni.emplace_back("OmniFighter Conversion", "397667");
    EXPECT_EQ(LinesOf(o.lvParts), omni);
    EXPECT_EQ(o.lPartsSubtotal.Caption(), "1878334");
    EXPECT_EQ(o.lTotalCost.Caption(), "2485418");
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterCostTest, AerospaceLinesByEngineSinksAndArmor) {
    struct Case {
        int16_t engine, sinkType, sinks, armor;
        size_t line;
        std::pair<std::string, std::string> expected;
    };
    const Case cases[] = {
        {kEngFusionXL, 0, 12, 0, 0, {"200 power rated fusion XL power plant", "2666667"}},
        {0, 0, 12, 0, 0, {"200", "0"}},  // a fresh design names no engine
        {kEngFusion, 1, 12, 0, 3, {"12 double heat sinks", "72000"}},
        {kEngFusion, 0, 8, 0, 3, {"8 heat sinks", "-4000"}},
        {kEngFusion, 0, 12, 1, 4, {"8 tons armor (ferro)", "80000"}},  // cheaper than normal here
    };
    for (const Case& c : cases) {
        Fighter f = Aero();
        f.EngineType = c.engine;
        f.HeatSinkType = c.sinkType;
        f.HeatSinks = c.sinks;
        f.ArmorType = c.armor;
        frmCost w;
        zGenWeapCost(f, w);  // the parts report reads its subtotals
        zGenAeroPartsCost(f, w);
        ASSERT_GT(w.lvParts.Count(), static_cast<int32_t>(c.line));
        EXPECT_EQ(LinesOf(w.lvParts)[c.line], c.expected);
    }
    struct Mult {
        int16_t tons;
        std::string text;
    };
    for (const Mult& m : {Mult{10, "x 1.05"}, Mult{45, "x 1.225"}}) {
        Fighter f = Aero();
        f.Tonnage = m.tons;
        f.EngineRating = 100;
        frmCost w;
        zFillFighterCost(f, w);
        EXPECT_EQ(w.lVhlMultiplier.Caption(), m.text) << m.tons;
    }
    EXPECT_TRUE(fake.ui.boxes.empty());
}

TEST_F(FighterCostTest, ConventionalPartsWithWholeTonEngines) {
    frmCost w;
    zFillFighterCost(Conv(), w);
    EXPECT_EQ(LinesOf(w.lvParts), (Lines{{"150 power rated I.C.E. power plant", "27500"},
                                         {"Avionics", "120000"},
                                         {"Structural Integrity", "20000"},
                                         {"6 heat sinks", "12000"},
                                         {"3 tons armor (Normal)", "30000"}}));
    EXPECT_EQ(w.lPartsSubtotal.Caption(), "209500");
    EXPECT_EQ(w.lVhlMultiplier.Caption(), "x 1.15");
    EXPECT_EQ(w.lTotalCost.Caption(), "332925");

    struct Case {
        int16_t engine, thrust, tons;
        double engineTons;
        int16_t sinks, armor;
        Lines expected;
    };
    const Case cases[] = {
        // Engine tons are whole, half to even: 2.25 and 2.5 are 2, 3.5 is 4.
        {kEngFusion, 5, 10, 2.25, 10, 0, {{"50 power rated Fusion power plant", "6667"}, {"10 heat sinks", "0"}}},
        {kEngFusionXL, 5, 30, 2.5, 12, 0, {{"150 power rated Fusion XL power plant", "80000"}, {"12 heat sinks", "4000"}}},
        {kEngICE, 5, 30, 3.5, 0, 1, {{"150 power rated I.C.E. power plant", "10000"}}},  // no sinks, no line
    };
    for (const Case& c : cases) {
        Fighter f = Conv();
        f.EngineType = c.engine;
        f.CruiseSpeed = c.thrust;
        f.Tonnage = c.tons;
        f.EngineTonnage = c.engineTons;
        f.HeatSinks = c.sinks;
        f.ArmorType = c.armor;
        frmCost x;
        zGenWeapCost(f, x);
        zGenConvPartsCost(f, x);
        const Lines all = LinesOf(x.lvParts);
        Lines picked = {all.front()};
        for (const auto& l : all)
            if (l.first.find("heat sinks") != std::string::npos) picked.push_back(l);
        EXPECT_EQ(picked, c.expected) << c.engine;
        EXPECT_EQ(all.back().first, c.armor ? "3 tons armor (Ferro-Aluminum)" : "3 tons armor (Normal)");
        EXPECT_EQ(all.back().second, c.armor ? "60000" : "30000");
    }
}

TEST_F(FighterCostTest, SixteenBitRatingOverflowStopsTheReport) {
    Fighter a = Aero();
    a.Tonnage = 100;
    a.EngineRating = 400;
    frmCost w;
    zGenWeapCost(a, w);
    zGenAeroPartsCost(a, w);
    ExpectOneReport("zGenAeroPartsCost", kErrOverflow);
    EXPECT_EQ(w.lTotalCost.Caption(), "");

    fake.ui.boxes.clear();
    Fighter c = Conv();
    c.CruiseSpeed = 45;
    c.Tonnage = 800;
    frmCost x;
    zGenConvPartsCost(c, x);
    ExpectOneReport("zGenConvPartsCost", kErrOverflow);
    EXPECT_EQ(x.lPartsSubtotal.Caption(), "");
}

TEST_F(FighterCostTest, WindowCaptionsAndTheDamageChartOfActiveEntries) {
    frmCost w;
    w.zSetUpForVehicle();
    zFillFighterCost(Aero(), w);
    EXPECT_EQ(w.lblDamVhl.Caption(), "Damage per ton of fighter:");
    EXPECT_EQ(w.lblTotalCost.Caption(), "Fighter Cost:");
    EXPECT_FALSE(w.lblCV.Visible());
    EXPECT_FALSE(w.lCV.Visible());
    EXPECT_EQ(w.wRuns, (std::vector<std::pair<int32_t, int32_t>>{{10, 9}}));
    EXPECT_EQ(w.lDamVhl.Caption(), "0.2 points / ton");
    EXPECT_EQ(w.lDamWeap.Caption(), "5 points / ton");  // ammunition weighs nothing here
    EXPECT_TRUE(fake.ui.boxes.empty());
}

}  // namespace
}  // namespace bw::test
