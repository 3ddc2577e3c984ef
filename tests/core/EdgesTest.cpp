// Edges that a fault slips through unseen: reads ending exactly at the end
// of a file, the last and first entries of small tables, a NUL in a name.
#include <gtest/gtest.h>

#include <string>

#include "core/BinaryIO.h"
#include "core/Codepage.h"
#include "core/Errors.h"
#include "core/Vocabulary.h"
#include "core/frmSet.h"
#include "support/FakeUi.h"

namespace bw {
namespace {

TEST(Edges, NumbersEndingExactlyAtTheEndOfTheFileAreRead) {
    BinaryReader r(std::string("\x01\x00\x00\x80", 4));
    EXPECT_EQ(r.I32(), static_cast<int32_t>(0x80000001u));
    BinaryReader s(std::string("\x00\x00\x80\x3f", 4));
    EXPECT_EQ(s.F32(), 1.0f);
    BinaryReader t(std::string("\x00\x00\x80", 3));
    EXPECT_THROW(t.I32(), RunError);
}

TEST(Edges, EngineCostFactorsOutsideTheTableAreNothing) {
    const std::pair<int16_t, int32_t> cases[] = {{-1, 0}, {0, 1250}, {7, 10000}, {8, 0}};
    for (auto [engine, factor] : cases) EXPECT_EQ(zEngineCostFactor(engine), factor) << engine;
}

TEST(Edges, ANulCharacterConvertsLikeAnyOther) {
    std::string out;
    EXPECT_TRUE(zUtf8ToCp1252(std::string("a\0b", 3), out));
    EXPECT_EQ(out, std::string("a\0b", 3));
}

TEST(Edges, PreferencesOfferBothBasesAndThreeLevels) {
    test::ScopedFakeUi fake;
    frmSet f;
    f.Form_Load();
    for (const frmSet::Combo* c : {&f.cmboDefVHLBase, &f.cmboDefFTRBase})
        EXPECT_EQ(c->List, (std::vector<std::string>{"Inner Sphere", "Clan"}));
    for (const frmSet::Combo* c : {&f.cmboDefVHLLevel, &f.cmboDefFTRLevel})
        EXPECT_EQ(c->List, (std::vector<std::string>{"1", "2", "3"}));
}

}  // namespace
}  // namespace bw
