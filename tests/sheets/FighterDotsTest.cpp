// The fighter's fixed dot lists against their picture "ad004.bwp" and the
// capacities and runs the fighter sheet relies on.
#include <gtest/gtest.h>

#include <cmath>

#include "databuild/DiagramGeometry.h"
#include "sheets/FighterDots.h"

using namespace bw;

namespace {

const int32_t kCapacity[] = {102, 70, 70, 93, 37, 46};

DiagramSource FighterSource() {
    DiagramSource src;
    std::string error;
    EXPECT_TRUE(zReadDiagramSource(std::string(BW_SOURCE_DIR) + "/data/diagrams/fighter.txt", src, error)) << error;
    return src;
}

TEST(FighterDots, CapacitiesAndRuns) {
    for (int16_t loc = 0; loc < kFighterArmorLocations; ++loc)
        EXPECT_EQ(zFighterDotCount(loc), kCapacity[loc]) << "location " << loc;
    EXPECT_EQ(zFighterDotCount(-1), 0);
    EXPECT_EQ(zFighterDotCount(6), 0);
    // {location, run, length}
    const int32_t runs[][3] = {{0, 0, 83}, {0, 1, 19}, {3, 0, 75}, {3, 1, 18}, {1, 0, 70}, {1, 1, 0}, {0, 2, 0}, {7, 0, 0}};
    for (const auto& r : runs) EXPECT_EQ(zFighterRunLength(int16_t(r[0]), r[1]), r[2]) << r[0] << "/" << r[1];
}

TEST(FighterDots, TextLookupEndsWithTheList) {
    const FighterDot first = zFighterDot(0, 0);
    EXPECT_EQ(zFighterArmorDotText(0, 0), std::to_string(first.x) + "," + std::to_string(first.y));
    const FighterDot last = zFighterDot(5, 45);
    EXPECT_EQ(zFighterArmorDotText(5, 45), std::to_string(last.x) + "," + std::to_string(last.y));
    // Past the end, before the start, and outside the six locations: empty.
    for (auto [loc, k] : {std::pair(5, 46), {0, 102}, {0, -1}, {6, 0}, {-1, 0}})
        EXPECT_EQ(zFighterArmorDotText(int16_t(loc), k), "") << loc << "/" << k;
    EXPECT_EQ(zFighterDot(0, 102).x, 0);
}

TEST(FighterDots, EachRunLiesInsideItsOutlineOnThePicture) {
    const DiagramSource src = FighterSource();
    EXPECT_TRUE(src.codes.empty()) << "the fighter's dots are not a table of their own";
    for (int16_t loc = 0; loc < kFighterArmorLocations; ++loc) {
        std::vector<const DgRegion*> runs;
        for (const auto& r : src.regions)
            if (r.location == loc && !r.structure) runs.push_back(&r);
        ASSERT_FALSE(runs.empty()) << "location " << loc;
        int32_t index = 0;
        for (size_t run = 0; run < runs.size(); ++run) {
            const auto outline = runs[run]->shape.Outline();
            const int32_t length = runs.size() == 1 ? zFighterDotCount(loc) : zFighterRunLength(loc, int(run));
            for (int32_t k = 0; k < length; ++k, ++index) {
                const FighterDot d = zFighterDot(loc, index);
                const DgPt p{double(d.x), double(d.y)};
                EXPECT_TRUE(zPointInPolygon(outline, p) && zDistanceToOutline(outline, p) >= 3.0)
                    << "location " << loc << " run " << run << " dot " << index << " (" << d.x << "," << d.y << ")";
            }
        }
        EXPECT_EQ(index, zFighterDotCount(loc)) << "runs of location " << loc << " do not add up";
    }
}

TEST(FighterDots, ListsAreExactlyWhatThePictureLaysOut) {
    // Editing the picture's source without renewing the lists fails here.
    const DiagramSource src = FighterSource();
    for (int16_t loc = 0; loc < kFighterArmorLocations; ++loc) {
        const auto dots = src.Dots(loc, false);
        ASSERT_EQ(static_cast<int32_t>(dots.size()), zFighterDotCount(loc)) << "location " << loc;
        for (size_t k = 0; k < dots.size(); ++k) {
            const FighterDot d = zFighterDot(loc, static_cast<int32_t>(k));
            EXPECT_EQ(std::pair(d.x, d.y), std::pair(dots[k].x, dots[k].y)) << "location " << loc << " dot " << k;
        }
    }
}

TEST(FighterDots, NoTwoDotsOverlapAndAllAreOnThePicture) {
    std::vector<FighterDot> all;
    for (int16_t loc = 0; loc < kFighterArmorLocations; ++loc)
        for (int32_t k = 0; k < zFighterDotCount(loc); ++k) all.push_back(zFighterDot(loc, k));
    for (size_t i = 0; i < all.size(); ++i) {
        // "ad004.bwp" is drawn in a box of 4845 by 5325 twips: 323 by 355 pixels.
        EXPECT_TRUE(all[i].x >= 3 && all[i].y >= 3 && all[i].x <= 320 && all[i].y <= 352);
        for (size_t j = i + 1; j < all.size(); ++j)
            ASSERT_GE(std::hypot(all[i].x - all[j].x, all[i].y - all[j].y), 6.0)
                << all[i].x << "," << all[i].y << " and " << all[j].x << "," << all[j].y;
    }
}

}  // namespace
