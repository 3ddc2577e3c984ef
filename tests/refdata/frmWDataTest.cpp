// The weapon data window's texts.
#include <gtest/gtest.h>

#include "core/Errors.h"
#include "refdata/frmWData.h"

using namespace bw;

namespace {

int32_t ErrNumberOf(auto&& f) {
    try {
        f();
    } catch (const RunError& e) {
        return e.Number();
    }
    return 0;
}

struct Bands {
    int16_t s, m, l;
    const char* unit;
    const char* shortText;
    const char* medText;
    const char* longText;
};

}  // namespace

TEST(WeaponDataTexts, RangeBands) {
    const Bands cases[] = {
        {3, 6, 9, "Hex", "1-3", "4-6", "7-9"},
        {1, 2, 3, "Hex", "1", "2", "3"},
        {7, 14, 21, "Hex", "1-7", "8-14", "15-21"},
        // Bands one hex apart show the single hex; the others a span.
        {1, 3, 4, "Hex", "1", "2-3", "4"},
        {-1, -1, -1, "Hex", "-", "-", "-"},
        // Equipment with a reach only: the long band covers it all.
        {-1, -1, 6, "Hex", "-", "-", "1-6"},
        // No short band: the medium one starts at 1.
        {-1, 4, 8, "Hex", "-", "1-4", "5-8"},
        // Heavy machine gun: no long band.
        {1, 2, -1, "Hex", "1", "2", "-"},
        // Artillery in map sheets.
        {-1, -1, 8, "Map", "-", "-", "8 maps"},
        {-1, -1, 1, "Map", "-", "-", "1 maps"},
        {-1, -1, 30, "MAP", "-", "-", "30 maps"},
        // Only a row without a medium band reads its unit.
        {-1, 5, 9, "Map", "-", "1-5", "6-9"},
        // Short band of 0 is not 1.
        {0, 1, 2, "Hex", "1-0", "1", "2"},
    };
    for (const Bands& b : cases) {
        SCOPED_TRACE(std::to_string(b.s) + "/" + std::to_string(b.m) + "/" + std::to_string(b.l) + " " + b.unit);
        EXPECT_EQ(zWpnShortRangeText(b.s), b.shortText);
        EXPECT_EQ(zWpnMedRangeText(b.s, b.m), b.medText);
        EXPECT_EQ(zWpnLongRangeText(b.m, b.l, b.unit), b.longText);
    }
    // The unit compare is exact: "hex" is a unit of its own.
    EXPECT_EQ(zWpnLongRangeText(-1, 4, "hex"), "4 hexs");
}

TEST(WeaponDataTexts, BandAfterTheLargestSixteenBitEndOverflows) {
    EXPECT_EQ(ErrNumberOf([] { zWpnMedRangeText(32767, 5); }), kErrOverflow);
    EXPECT_EQ(ErrNumberOf([] { zWpnLongRangeText(32767, 5, "Hex"); }), kErrOverflow);
    EXPECT_EQ(zWpnLongRangeText(32766, 32767, "Hex"), "32767");
}

TEST(WeaponDataTexts, DamageHeatShotsCostAndTonnage) {
    EXPECT_EQ(zWpnDamageText(5, -1, ""), "5");
    EXPECT_EQ(zWpnDamageText(-1, -1, ""), "-");
    EXPECT_EQ(zWpnDamageText(0, -1, ""), "0");
    // Split damage shows the per-missile figure and its unit, never the total.
    EXPECT_EQ(zWpnDamageText(1, 20, "Msl"), "1/Msl");
    EXPECT_EQ(zWpnDamageText(2, 0, "Msl"), "2/Msl");
    EXPECT_EQ(zWpnDamageText(-1, 12, "Msl"), "-1/Msl");

    EXPECT_EQ(zWpnNumberOrDash(-1), "-");
    EXPECT_EQ(zWpnNumberOrDash(0), "0");
    EXPECT_EQ(zWpnNumberOrDash(-2), "-2");
    EXPECT_EQ(zWpnNumberOrDash(32767), "32767");

    EXPECT_EQ(zWpnCostText(-1), "0");
    EXPECT_EQ(zWpnCostText(0), "0");
    EXPECT_EQ(zWpnCostText(40000), "40000");
    EXPECT_EQ(zWpnCostText(1500000), "1500000");
    EXPECT_EQ(zWpnCostText(-2), "-2");

    EXPECT_EQ(zWpnTonnageText(1), "1");
    EXPECT_EQ(zWpnTonnageText(0.5), "0.5");
    EXPECT_EQ(zWpnTonnageText(0.25), "0.25");
    EXPECT_EQ(zWpnTonnageText(4.5), "4.5");
    EXPECT_EQ(zWpnTonnageText(0), "0");
    EXPECT_EQ(zWpnTonnageText(30), "30");
}
