// Reading diagram sources and laying out their dots: fill order, mirror
// images, the crosswise axis, holes, and every way a source can be wrong.
#include <gtest/gtest.h>

#include "databuild/DiagramGeometry.h"
#include "databuild/DiagramSources.h"
#include "support/TempDir.h"

using namespace bw;

namespace {

std::vector<std::pair<int, int>> Pairs(const std::vector<DgDot>& dots) {
    std::vector<std::pair<int, int>> out;
    for (const auto& d : dots) out.push_back({d.x, d.y});
    return out;
}

struct Source {
    test::TempDir dir;
    DiagramSource src;
    std::string error;
    bool Read(const std::string& text, const std::string& name = "d.txt") {
        dir.Write(name, text);
        return zReadDiagramSource(dir.File(name), src, error);
    }
};

const std::string kHead = "diagram 0\nart x\nsize 100 100\ncentre 50\n";

TEST(DiagramLayout, FillOrderByDirectionGridAndAxis) {
    using Dots = std::vector<std::pair<int, int>>;
    const std::pair<std::string, Dots> cases[] = {
        // Rows from the centre line outward, left first: grid x = 50 +- 4 +- 8k;
        // the first row 5 below the top edge.
        {kHead + "armor 0 7 down rect 25,20 50,20\n",
         {{46, 25}, {54, 25}, {38, 25}, {62, 25}, {30, 25}, {70, 25}, {46, 33}}},
        // Upward from the bottom edge; a whole grid centres on the line.
        {kHead + "armor 0 4 up rect 25,20 50,20 grid=whole\n", {{50, 35}, {42, 35}, {58, 35}, {34, 35}}},
        // Crosswise: from the right edge inward, each column from the centre line y = 30.
        {"diagram 4\nart x\nsize 100 60\ncentre 30\naxis horizontal\narmor 0 5 left rect 20,10 60,40\n",
         {{75, 26}, {75, 34}, {75, 18}, {75, 42}, {67, 26}}},
    };
    for (const auto& [text, dots] : cases) {
        Source s;
        ASSERT_TRUE(s.Read(text)) << s.error;
        EXPECT_EQ(Pairs(s.src.Dots(0, false)), dots) << text;
    }
    // The places an outline offers are counted past the dots it holds.
    Source s;
    ASSERT_TRUE(s.Read(cases[0].first));
    EXPECT_EQ(s.src.regions[0].room, 12);
}

TEST(DiagramLayout, MirroredLocationIsTheMirrorImage) {
    Source s;
    ASSERT_TRUE(s.Read(kHead + "armor 1 3 down rect 10,10 20,40 mirror=2\n")) << s.error;
    auto mirrored = Pairs(s.src.Dots(1, false));
    ASSERT_EQ(mirrored.size(), 3u);
    for (auto& [x, y] : mirrored) x = 100 - x;
    EXPECT_EQ(Pairs(s.src.Dots(2, false)), mirrored);
    EXPECT_EQ(s.src.Locations(false), (std::vector<int16_t>{1, 2}));
}

TEST(DiagramLayout, StructureBoxesAreHolesInTheArmorAroundThem) {
    Source s;
    ASSERT_TRUE(s.Read(kHead + "armor 0 20 down rect 10,10 80,80\nstructure 0 3 50,50 3 1\n")) << s.error;
    auto structure = s.src.Dots(0, true);
    EXPECT_EQ(Pairs(structure), (std::vector<std::pair<int, int>>{{50, 50}, {42, 50}, {58, 50}}));
    // Box spans 37..63 x 45..55; no armor dot within 5 of it.
    for (const auto& d : s.src.Dots(0, false))
        EXPECT_FALSE(d.x > 32 && d.x < 68 && d.y > 40 && d.y < 60) << d.x << "," << d.y;
}

TEST(DiagramLayout, DotsStayClearOfSlantedEdges) {
    Source s;
    ASSERT_TRUE(s.Read(kHead + "armor 0 20 down poly 50,10 90,90 10,90\n")) << s.error;
    auto outline = s.src.regions[0].shape.Outline();
    for (const auto& d : s.src.Dots(0, false)) {
        EXPECT_TRUE(zPointInPolygon(outline, {double(d.x), double(d.y)}));
        EXPECT_GE(zDistanceToOutline(outline, {double(d.x), double(d.y)}), 5.0);
    }
}

TEST(DiagramSourceErrors, EachNamesFileLineAndFault) {
    struct Case {
        std::string text, error;
    } cases[] = {
        {kHead + "bogus 1\n", ":5: unknown command 'bogus'"},
        {kHead + "text 1,1 7 \"open\n", ":5: unclosed quote"},
        {kHead + "armor 0 3 sideways rect 0,0 10,10\n", ":5: fill direction up or down expected"},
        {kHead + "armor 0 3 down rect 0,0 -5,10\n", ":5: rect needs a positive size"},
        {kHead + "armor 0 3 down line 0,0 10,10\n", ":5: an armor outline must be closed"},
        {kHead + "armor 0 3 down poly 0,0 10,10\n", ":5: poly needs at least 3 points"},
        {kHead + "armor 0 3 down blob 1,1\n", ":5: unknown shape 'blob'"},
        {kHead + "structure 0 7 50,50 3 2\n", ":5: structure box of 3 by 2 cannot hold 7 dots"},
        {kHead + "pitch 7\n", ":5: pitch must be even, from 8 to 40"},
        {kHead + "armor 0 3 down rect 0,0 10,10 wobble\n", ":5: unknown option 'wobble'"},
        {kHead + "draw sparkly rect 0,0 10,10\n", ":5: drawing style expected"},
        {"diagram 0\nart x\nsize 100 100\ndraw line rect 0,0 10,10 mirror\n", ":4: mirror before the centre line is given"},
        {"diagram 0\nart x\nsize 100 100\ncentre 50\naxis diagonal\n", ":5: axis vertical or horizontal expected"},
        {"diagram 0\nart x\nsize 99999 10\n", ":3: size out of range"},
        {"diagram 0\nart x\n", ": no size given"},
        {"diagram 0\nsize 10 10\n", ": neither art nor editor picture named"},
        {kHead + "armor 3 13 down rect 25,20 50,20\n", ": armor of location 3: only 12 of 13 dots fit its outline"},
    };
    for (const auto& c : cases) {
        Source s;
        EXPECT_FALSE(s.Read(c.text)) << c.text;
        EXPECT_EQ(s.error, s.dir.File("d.txt") + c.error) << c.text;
    }
}

TEST(DiagramSourceErrors, SelfIncludeAndMissingFile) {
    Source s;
    // A file that includes itself stops instead of recursing for ever.
    EXPECT_FALSE(s.Read(kHead + "include d.txt\n"));
    EXPECT_NE(s.error.find("includes nested too deep"), std::string::npos) << s.error;
    EXPECT_FALSE(zReadDiagramSource(s.dir.File("missing.txt"), s.src, s.error));
    EXPECT_EQ(s.error, s.dir.File("missing.txt") + ": cannot be read");
}

TEST(DiagramSourceErrors, TwoSourcesMayNotClaimOneDiagramOrPicture) {
    test::TempDir data, out;
    std::filesystem::create_directories(data.File("diagrams"));
    data.Write("diagrams/a.txt", kHead + "armor 0 2 down rect 25,20 50,20\n");
    data.Write("diagrams/b.txt", "diagram 0\nart y\nsize 100 100\ncentre 50\n");
    std::vector<DotRecord> armor, internal;
    std::string error;
    EXPECT_FALSE(BuildDiagramData(data.Path(), out.Path(), armor, internal, error));
    EXPECT_EQ(error, data.File("diagrams/b.txt") + ": diagram 0 is already given by " + data.File("diagrams/a.txt"));
    data.Write("diagrams/b.txt", "diagram 1\nart x\nsize 100 100\ncentre 50\n");
    EXPECT_FALSE(BuildDiagramData(data.Path(), out.Path(), armor, internal, error));
    EXPECT_EQ(error, data.File("diagrams/b.txt") + ": art x is already drawn by " + data.File("diagrams/a.txt"));
}

TEST(DiagramSourceErrors, EmptyOrMissingFolderIsRefused) {
    test::TempDir data, out;
    std::vector<DotRecord> armor, internal;
    std::string error;
    EXPECT_FALSE(BuildDiagramData(data.Path(), out.Path(), armor, internal, error));
    std::filesystem::create_directories(data.File("diagrams"));
    EXPECT_FALSE(BuildDiagramData(data.Path(), out.Path(), armor, internal, error));
    EXPECT_NE(error.find("no diagram sources"), std::string::npos) << error;
}

TEST(DiagramBuild, RecordsAreSortedAndPicturesWritten) {
    test::TempDir data, out;
    std::filesystem::create_directories(data.File("diagrams"));
    data.Write("diagrams/a.txt", "diagram 9 2\nart pic turret\neditor 3 \"TANK\"\nsize 100 100\ncentre 50\n"
                                 "armor 1 2 down rect 10,10 30,30\narmor 0 2 down rect 50,10 40,30\n"
                                 "structure 0 1 50,70 1 1\n?turret text 5,5 6 \"TURRET\"\n");
    std::vector<DotRecord> armor, internal;
    std::string error;
    ASSERT_TRUE(BuildDiagramData(data.Path(), out.Path(), armor, internal, error)) << error;
    ASSERT_EQ(armor.size(), 4u);
    std::vector<std::pair<int16_t, int16_t>> keys;
    for (const auto& r : armor) keys.push_back({r.diagram, r.location});
    EXPECT_EQ(keys, (std::vector<std::pair<int16_t, int16_t>>{{2, 0}, {2, 1}, {9, 0}, {9, 1}}));
    ASSERT_EQ(internal.size(), 2u);
    EXPECT_EQ(internal[0].X, std::vector<int16_t>{50});
    const std::string pic = out.Read("bwp/pic.bwp"), ed = out.Read("bwp/editor/diag03.svg");
    EXPECT_NE(pic.find(">TURRET</text>"), std::string::npos);
    // The editor view has the caption of its own and no structure boxes.
    EXPECT_EQ(ed.find(">TURRET</text>"), std::string::npos);
    EXPECT_NE(ed.find(">TANK</text>"), std::string::npos);
    EXPECT_EQ(ed.find("#d4d4d4"), std::string::npos);
    EXPECT_NE(pic.find("#d4d4d4"), std::string::npos);
}

TEST(DiagramSvg, DotsGoJustBeforeTheClosingTag) {
    const std::string svg = "<svg a=\"1\">\n<rect/>\n</svg>\n";
    EXPECT_EQ(zSvgWithDots(svg, {{10, 20}}),
              "<svg a=\"1\">\n<rect/>\n<g fill=\"#fff\" stroke=\"#000\" stroke-width=\"0.6\">\n"
              "<circle cx=\"10\" cy=\"20\" r=\"3\"/>\n</g>\n</svg>\n");
    EXPECT_EQ(zSvgWithDots("not a picture", {{1, 1}}), "not a picture");
}

TEST(DiagramSvg, TextIsEscapedAndUpperHalfBytesBecomeReferences) {
    Source s;
    ASSERT_TRUE(s.Read(kHead + "text 1,1 6 \"A<B & \xA9\"\n")) << s.error;
    std::string svg = zDiagramSvg(s.src, s.src.arts[0], false);
    EXPECT_NE(svg.find(">A&lt;B &amp; &#169;</text>"), std::string::npos) << svg;
}

}  // namespace
