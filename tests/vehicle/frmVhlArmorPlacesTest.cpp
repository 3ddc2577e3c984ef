// The armor inputs on the editor's diagram: every input that shows stands
// inside its own location's outline of the plan view the editor chose, and
// clear of every other location, for each type and turret arrangement.
#include <gtest/gtest.h>

#include <memory>

#include "database/DatabaseOps.h"
#include "databuild/DiagramGeometry.h"
#include "VehicleTestSupport.h"
#include "support/NewEditor.h"
#include "vehicle/frmVhl.h"

using namespace bw;
using namespace bw::test;

namespace {

struct Arrangement {
    int16_t type;
    bool main, sec;
};

class ArmorPlacesTest : public VehicleTest {
protected:
    std::vector<DiagramSource> sources;
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(zReadDiagramFolder(std::string(BW_SOURCE_DIR) + "/data/diagrams", sources, error)) << error;
    }
    void TearDown() override { zResetDatabase(); }

    // The outlines of each location in one editor plan view.
    std::map<int16_t, std::vector<std::vector<DgPt>>> Outlines(int16_t picture) const {
        std::map<int16_t, std::vector<std::vector<DgPt>>> out;
        for (const DiagramSource& src : sources)
            for (const DgVariant& ed : src.editors) {
                if (ed.name != std::to_string(picture)) continue;
                for (const DgItem& it : src.items) {
                    bool on = true;
                    for (const auto& t : it.onlyWith) on = on && ed.tags.count(t) > 0;
                    for (const auto& t : it.onlyWithout) on = on && ed.tags.count(t) == 0;
                    if (!on) continue;
                    if (it.kind == DgItem::Region && !src.regions[it.region].structure)
                        out[src.regions[it.region].location].push_back(src.regions[it.region].shape.Outline());
                    else if (it.kind == DgItem::Outline)
                        out[it.location].push_back(it.shape.Outline());
                }
            }
        return out;
    }
};

bool Inside(const std::vector<std::vector<DgPt>>& polys, DgPt p) {
    for (const auto& poly : polys)
        if (zPointInPolygon(poly, p)) return true;
    return false;
}

}  // namespace

TEST_F(ArmorPlacesTest, EveryShownInputStandsInItsOwnLocation) {
    const std::vector<Arrangement> all{
        {kVhlTracked, false, false}, {kVhlTracked, true, false}, {kVhlTracked, true, true},
        {kVhlWheeled, false, false}, {kVhlWheeled, true, true},  {kVhlHover, true, false},
        {kVhlHover, true, true},     {kVhlVTOL, false, false},   {kVhlVTOL, true, false},
        {kVhlHydrofoil, true, false}, {kVhlNaval, false, false}, {kVhlSubmarine, true, false},
        {kVhlSuperHeavy, false, false}, {kVhlSuperHeavy, true, true},
    };
    for (const Arrangement& a : all) {
        SCOPED_TRACE("type " + std::to_string(a.type) + (a.main ? " turret" : "") + (a.sec ? " second" : ""));
        auto editor = NewEditor(a.type);
        frmVhl& win = *editor;
        const auto& v = win.vhl;
        if (a.main) win.CBoxHasTurret.SetValue(1);
        if (a.sec) win.CBoxHasSecondTurret.SetValue(1);
        ASSERT_EQ(v->HasTurret != 0, a.main);
        ASSERT_EQ(v->HasSecTurret != 0, a.sec);

        const auto outlines = Outlines(win.wArmorPicture);
        ASSERT_FALSE(outlines.empty()) << "no plan view " << win.wArmorPicture;
        int shown = 0;
        for (int16_t i = 0; i < 12; ++i) {
            if (!win.TArmorLoc[i].Visible()) continue;
            ++shown;
            // The rotor of a V.T.O.L. without a chin turret is location 4 of
            // its picture, as the printed sheet counts it.
            const int16_t drawn = a.type == kVhlVTOL && !a.main && i == 5 ? int16_t{4} : i;
            const DgPt spot{double(win.ArmorLocLeft[i]), double(win.ArmorLocTop[i])};
            ASSERT_TRUE(outlines.count(drawn)) << "location " << i << " not drawn";
            EXPECT_TRUE(Inside(outlines.at(drawn), spot)) << "location " << i;
            for (const auto& [loc, polys] : outlines)
                if (loc != drawn) EXPECT_FALSE(Inside(polys, spot)) << "location " << i << " over " << loc;
        }
        const int expected = (a.type == kVhlSuperHeavy ? 6 : 4) + (a.main ? 1 : 0) +
                             (a.sec || a.type == kVhlVTOL ? 1 : 0);
        EXPECT_EQ(shown, expected);
    }
}
