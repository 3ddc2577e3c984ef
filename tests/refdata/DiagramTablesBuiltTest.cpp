// The dot tables and armor pictures as the build makes them from the real
// diagram sources: capacities, places inside the drawn outlines, spacing,
// and file sizes.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "databuild/DiagramGeometry.h"
#include "databuild/DiagramSources.h"
#include "refdata/DiagramTables.h"
#include "support/TempDir.h"

namespace fs = std::filesystem;
using namespace bw;

namespace {

const std::string kData = std::string(BW_SOURCE_DIR) + "/data";

// Armor dots per diagram and location, as the record sheets expect them.
const std::map<int16_t, std::vector<int>> kArmorCapacity = {
    {0, {124, 111, 111, 78, 60}},       {1, {124, 111, 111, 78, 60}},       {2, {124, 111, 111, 78, 60}},
    {9, {108, 123, 123, 118, 91, 72}},  {10, {108, 123, 123, 118, 91, 72}}, {11, {108, 123, 123, 118, 91, 72}},
    {3, {38, 30, 30, 21, 2}},           {8, {65, 74, 74, 36, 22, 2}},       {4, {118, 192, 177, 109, 116}},
    {5, {118, 192, 177, 109, 116}},     {6, {118, 192, 177, 109, 116}},
};
const std::map<int16_t, int> kStructureCapacity = {{0, 10}, {1, 10}, {2, 10}, {9, 10}, {10, 10}, {11, 10},
                                                   {4, 30}, {5, 30}, {6, 30}, {3, 3},   {8, 3}};

// Independent geometry for the checks: even-odd rule and edge distance.
bool Inside(const std::vector<DgPt>& poly, double x, double y) {
    bool in = false;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        if ((poly[i].y > y) != (poly[j].y > y) &&
            x < (poly[j].x - poly[i].x) * (y - poly[i].y) / (poly[j].y - poly[i].y) + poly[i].x)
            in = !in;
    }
    return in;
}
double EdgeDistance(const std::vector<DgPt>& poly, double x, double y) {
    double best = 1e9;
    for (size_t i = 0, j = poly.size() - 1; i < poly.size(); j = i++) {
        double ax = poly[j].x, ay = poly[j].y, bx = poly[i].x, by = poly[i].y;
        double dx = bx - ax, dy = by - ay, len2 = dx * dx + dy * dy;
        double t = len2 ? std::clamp(((x - ax) * dx + (y - ay) * dy) / len2, 0.0, 1.0) : 0;
        best = std::min(best, std::hypot(ax + t * dx - x, ay + t * dy - y));
    }
    return best;
}

class BuiltTables : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        out_ = new test::TempDir;
        ok_ = BuildDiagramData(kData, out_->Path(), armor_, internal_, error_);
        zReadDiagramFolder(kData + "/diagrams", sources_, error_);
    }
    static void TearDownTestSuite() {
        delete out_;
        out_ = nullptr;
    }
    static const DiagramSource* SourceOf(int16_t diagram) {
        for (const auto& s : sources_)
            for (int16_t c : s.codes)
                if (c == diagram) return &s;
        return nullptr;
    }
    static test::TempDir* out_;
    static bool ok_;
    static std::string error_;
    static std::vector<DotRecord> armor_, internal_;
    static std::vector<DiagramSource> sources_;
};
test::TempDir* BuiltTables::out_ = nullptr;
bool BuiltTables::ok_ = false;
std::string BuiltTables::error_;
std::vector<DotRecord> BuiltTables::armor_, BuiltTables::internal_;
std::vector<DiagramSource> BuiltTables::sources_;

TEST_F(BuiltTables, EveryDiagramAndLocationHasExactlyItsCapacity) {
    ASSERT_TRUE(ok_) << error_;
    std::map<std::pair<int16_t, int16_t>, size_t> armor, structure;
    for (const auto& r : armor_) {
        ASSERT_EQ(r.X.size(), r.Y.size());
        EXPECT_TRUE(armor.emplace(std::pair{r.diagram, r.location}, r.X.size()).second)
            << "two armor records for diagram " << r.diagram << " location " << r.location;
    }
    for (const auto& r : internal_) {
        ASSERT_EQ(r.X.size(), r.Y.size());
        EXPECT_TRUE(structure.emplace(std::pair{r.diagram, r.location}, r.X.size()).second);
    }
    size_t expectedRecords = 0;
    for (const auto& [diagram, caps] : kArmorCapacity) {
        for (size_t loc = 0; loc < caps.size(); ++loc) {
            auto key = std::pair{diagram, static_cast<int16_t>(loc)};
            EXPECT_EQ(armor[key], static_cast<size_t>(caps[loc])) << "armor, diagram " << diagram << " location " << loc;
            EXPECT_EQ(structure[key], static_cast<size_t>(kStructureCapacity.at(diagram)))
                << "structure, diagram " << diagram << " location " << loc;
        }
        expectedRecords += caps.size();
    }
    // Nothing beyond the table: no diagram 7, no stray locations.
    EXPECT_EQ(armor_.size(), expectedRecords);
    EXPECT_EQ(internal_.size(), expectedRecords);
}

TEST_F(BuiltTables, VtolNoseStartsOnTheCentreLineAndPairsOutward) {
    ASSERT_TRUE(ok_) << error_;
    for (const auto& r : armor_) {
        if (r.diagram != 3 || r.location != 0) continue;
        ASSERT_GE(r.X.size(), 6u);
        const int16_t x[] = {112, 120, 112, 120, 104, 128}, y[] = {27, 27, 35, 35, 35, 35};
        for (int k = 0; k < 6; ++k) EXPECT_EQ(std::pair(r.X[k], r.Y[k]), std::pair(x[k], y[k])) << "dot " << k;
        return;
    }
    FAIL() << "no record for diagram 3 location 0";
}

TEST_F(BuiltTables, EveryDotLiesWhollyInsideAnOutlineOfItsOwnLocation) {
    ASSERT_TRUE(ok_) << error_;
    for (const auto* table : {&armor_, &internal_}) {
        const bool structure = table == &internal_;
        for (const auto& r : *table) {
            const DiagramSource* src = SourceOf(r.diagram);
            ASSERT_NE(src, nullptr) << "diagram " << r.diagram;
            std::vector<std::vector<DgPt>> outlines;
            for (const auto& reg : src->regions)
                if (reg.location == r.location && reg.structure == structure) outlines.push_back(reg.shape.Outline());
            ASSERT_FALSE(outlines.empty());
            for (size_t k = 0; k < r.X.size(); ++k) {
                bool found = false;
                for (const auto& o : outlines)
                    if (Inside(o, r.X[k], r.Y[k]) && EdgeDistance(o, r.X[k], r.Y[k]) >= 3.0) found = true;
                EXPECT_TRUE(found) << (structure ? "structure" : "armor") << " dot " << k << " (" << r.X[k] << ","
                                   << r.Y[k] << ") of diagram " << r.diagram << " location " << r.location;
                EXPECT_TRUE(r.X[k] >= 3 && r.Y[k] >= 3 && r.X[k] <= src->width - 3 && r.Y[k] <= src->height - 3);
            }
        }
    }
}

TEST_F(BuiltTables, NoTwoDotsOfADiagramOverlap) {
    ASSERT_TRUE(ok_) << error_;
    std::map<int16_t, std::vector<std::pair<int, int>>> all;
    for (const auto* table : {&armor_, &internal_})
        for (const auto& r : *table)
            for (size_t k = 0; k < r.X.size(); ++k) all[r.diagram].push_back({r.X[k], r.Y[k]});
    for (const auto& [diagram, dots] : all)
        for (size_t i = 0; i < dots.size(); ++i)
            for (size_t j = i + 1; j < dots.size(); ++j) {
                double d = std::hypot(dots[i].first - dots[j].first, dots[i].second - dots[j].second);
                // A dot is 90 twips across: 6 pixels.
                ASSERT_GE(d, 6.0) << "diagram " << diagram << ": (" << dots[i].first << "," << dots[i].second
                                  << ") and (" << dots[j].first << "," << dots[j].second << ")";
            }
}

TEST_F(BuiltTables, FilesStayUnderTheSixteenBitLimit) {
    // The start-up narrows each file's length to a signed 16-bit integer.
    ASSERT_TRUE(ok_) << error_;
    EXPECT_LT(zDiagramFileBytes(kArmorCert, armor_).size(), 32768u);
    EXPECT_LT(zDiagramFileBytes(kInternalCert, internal_).size(), 32768u);
}

TEST_F(BuiltTables, EverySheetPictureIsPlainSvgOfItsBox) {
    ASSERT_TRUE(ok_) << error_;
    // Box in twips over the 15-twip pixel; each picture comes either from a
    // diagram source or from the fixed art, never both.
    const std::map<std::string, std::pair<int, int>> boxes = {
        {"ad011", {239, 367}},  {"ad021", {239, 367}},  {"ad031", {239, 367}},  {"ad111", {239, 367}},
        {"ad121", {239, 367}},  {"ad131", {239, 367}},  {"ad211", {240, 383}},  {"ad221", {240, 383}},
        {"ad231", {240, 383}},  {"ad002", {239, 367}},  {"ad012", {239, 367}},  {"ad003", {658, 331}},
        {"ad004", {323, 355}},  {"lgmn001", {508, 54}}, {"alg001", {722, 50}},  {"alg002", {722, 50}},
        {"dt001", {479, 520}},  {"dt002", {479, 520}},  {"dt003", {341, 369}},  {"avl001", {341, 520}},
        {"ahw001", {385, 520}}, {"crt001", {238, 167}}, {"crt002", {209, 167}},
    };
    std::vector<std::string> needed = {"dt011", "dt012"};
    for (const auto& b : boxes) needed.push_back(b.first);
    for (const std::string& name : needed) {
        SCOPED_TRACE(name);
        const std::string generated = out_->Read("bwp/" + name + ".bwp");
        std::ifstream in(kData + "/bwp/" + name + ".bwp", std::ios::binary);
        const std::string fixed((std::istreambuf_iterator<char>(in)), {});
        ASSERT_TRUE(generated.empty() != fixed.empty()) << "must come from exactly one place";
        const std::string& svg = generated.empty() ? fixed : generated;
        ASSERT_EQ(svg.rfind("<svg ", 0), 0u) << "must open with its svg tag for the picture loader";
        EXPECT_NE(svg.find("</svg>"), std::string::npos);
        for (unsigned char c : svg) ASSERT_LT(c, 0x80) << "a byte outside ASCII";
        if (boxes.count(name)) {
            const auto [w, h] = boxes.at(name);
            EXPECT_NE(svg.find("width=\"" + std::to_string(w) + "\" height=\"" + std::to_string(h) + "\""),
                      std::string::npos);
        }
    }
    for (int n = 0; n <= 13; ++n) {
        char name[32];
        std::snprintf(name, sizeof name, "bwp/editor/diag%02d.svg", n);
        EXPECT_EQ(out_->Read(name).rfind("<svg ", 0), 0u) << name;
    }
    // The turretless picture shares the table; only the picture differs.
    const std::string with = out_->Read("bwp/ad011.bwp"), without = out_->Read("bwp/ad111.bwp");
    EXPECT_NE(with.find("TURRET"), std::string::npos);
    EXPECT_EQ(without.find("TURRET"), std::string::npos);
}

}  // namespace
