// Pictures for the eye: every armor diagram with all of its dots, every
// sheet picture and every editor diagram, rendered to PNG so that anyone
// can check the art and the dot tables together without printing a sheet.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "Commands.h"
#include "Options.h"
#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "databuild/DiagramGeometry.h"
#include "sheets/FighterDots.h"

namespace fs = std::filesystem;

namespace {

struct ArmorArt {
    const char* name;
    int16_t diagram;        // -1: the fighter's own lists
    int16_t lastLocation;   // the sheet plots locations 0 to this one
};

// Which dot table each armor picture carries, and how far the sheet plots.
const ArmorArt kArmorArts[] = {
    {"ad011", 0, 4}, {"ad111", 0, 3}, {"ad021", 1, 4}, {"ad121", 1, 3}, {"ad031", 2, 4}, {"ad131", 2, 3},
    {"ad002", 3, 4}, {"ad003", 4, 4}, {"ad012", 8, 5}, {"ad211", 9, 5}, {"ad221", 10, 5}, {"ad231", 11, 5},
    {"ad004", -1, 5},
};

struct Record {
    int16_t diagram, location;
    std::vector<bw::DgDot> dots;
};

bool ReadTable(const std::string& path, std::vector<Record>& out, std::string& error) {
    try {
        bw::BinaryReader r = bw::BinaryReader::FromFile(path);
        r.Bytes(45);
        r.I16();
        int16_t n = r.I16();
        if (n < -1) throw bw::RunError(62);
        for (int i = 0; i <= n; ++i) {
            Record rec;
            rec.diagram = r.I16();
            rec.location = r.I16();
            std::vector<int16_t> xs, ys;
            for (auto* v : {&xs, &ys}) {
                r.I16();
                int32_t count = r.I32();
                r.I32();
                if (count < 0 || static_cast<size_t>(count) * 2 > r.Remaining()) throw bw::RunError(62);
                for (int32_t k = 0; k < count; ++k) v->push_back(r.I16());
            }
            if (xs.size() != ys.size()) throw bw::RunError(62);
            for (size_t k = 0; k < xs.size(); ++k) rec.dots.push_back({xs[k], ys[k]});
            out.push_back(std::move(rec));
        }
        return true;
    } catch (const bw::RunError& e) {
        error = path + ": " + e.what();
        return false;
    }
}

std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool WriteText(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    return static_cast<bool>(out);
}

// SVG to PNG through librsvg's converter, at twice the size for legibility.
bool Render(const std::string& svgPath, const std::string& pngPath) {
    std::string cmd = "rsvg-convert -z 2 -b white -o '" + pngPath + "' '" + svgPath + "'";
    if (std::system(cmd.c_str()) != 0) {
        std::fprintf(stderr, "bwtool preview: rsvg-convert failed on %s (is librsvg2-bin installed?)\n", svgPath.c_str());
        return false;
    }
    return true;
}

std::string Lower(std::string s) {
    for (auto& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

int RunPreview(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    if (const int rc = bwtool::ParseCommand(parser, "preview", options, {{"OUT_DIR", "where the pictures go"}}, 1, 1,
                                            "usage: bwtool preview OUT_DIR", args);
        rc >= 0)
        return rc;
    const fs::path out = args[0];
    const fs::path dir = out / "preview";
    std::error_code ec;
    fs::create_directories(dir, ec);
    if (ec) {
        std::fprintf(stderr, "bwtool preview: cannot create %s: %s\n", dir.string().c_str(), ec.message().c_str());
        return 1;
    }
    std::vector<Record> armor, internal;
    std::string error;
    if (!ReadTable((out / "armorloc.bin").string(), armor, error) ||
        !ReadTable((out / "intloc.bin").string(), internal, error)) {
        std::fprintf(stderr, "bwtool preview: %s\n", error.c_str());
        return 1;
    }
    std::vector<fs::path> pictures;
    for (const auto& sub : {out / "bwp", out / "bwp" / "editor"})
        for (fs::directory_iterator it(sub, ec), end; !ec && it != end; it.increment(ec))
            if (it->is_regular_file()) pictures.push_back(it->path());
    std::sort(pictures.begin(), pictures.end());
    int rendered = 0, failed = 0;
    for (const auto& pic : pictures) {
        std::string svg = ReadText(pic.string());
        const std::string stem = Lower(pic.stem().string());
        std::vector<bw::DgDot> dots;
        size_t armorDots = 0, structureDots = 0;
        for (const auto& a : kArmorArts) {
            if (stem != a.name || pic.parent_path().filename() != "bwp") continue;
            for (int16_t loc = 0; loc <= a.lastLocation; ++loc) {
                if (a.diagram < 0) {
                    for (int32_t k = 0; k < bw::zFighterDotCount(loc); ++k) {
                        bw::FighterDot d = bw::zFighterDot(loc, k);
                        dots.push_back({d.x, d.y});
                        ++armorDots;
                    }
                    continue;
                }
                for (const auto* table : {&armor, &internal})
                    for (const auto& r : *table)
                        if (r.diagram == a.diagram && r.location == loc) {
                            dots.insert(dots.end(), r.dots.begin(), r.dots.end());
                            (table == &armor ? armorDots : structureDots) += r.dots.size();
                            break;  // the sheet takes the first matching record
                        }
            }
        }
        if (!dots.empty()) svg = bw::zSvgWithDots(svg, dots);
        std::string name = (pic.parent_path().filename() == "editor" ? "editor-" : "") + pic.stem().string();
        fs::path svgOut = dir / (name + ".svg"), pngOut = dir / (name + ".png");
        if (!WriteText(svgOut.string(), svg) || !Render(svgOut.string(), pngOut.string())) {
            ++failed;
            continue;
        }
        ++rendered;
        if (armorDots || structureDots)
            std::printf("%s: %zu armor and %zu structure dots\n", pngOut.string().c_str(), armorDots, structureDots);
        else
            std::printf("%s\n", pngOut.string().c_str());
    }
    std::printf("%d pictures rendered, %d failed\n", rendered, failed);
    return failed ? 1 : 0;
}

// Authoring aid: lays out the diagram sources, tells each outline's room,
// and with --cpp NAME prints that source's dots as C++ initialisers (how
// the fighter's fixed lists are made).
int RunDiagrams(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    const QCommandLineOption cppOpt("cpp", "print the dots of source NAME as C++ initialisers", "NAME");
    const QCommandLineOption renderOpt("render", "draw every art and editor diagram with its dots", "OUT_DIR");
    parser.addOptions({cppOpt, renderOpt});
    const std::string usage = "usage: bwtool diagrams DIAGRAM_DIR [--cpp NAME | --render OUT_DIR]";
    std::vector<std::string> args;
    if (const int rc = bwtool::ParseCommand(parser, "diagrams", options, {{"DIAGRAM_DIR", "the diagram sources"}}, 1,
                                            1, usage, args);
        rc >= 0)
        return rc;
    if (parser.isSet(cppOpt) && parser.isSet(renderOpt)) {
        std::fprintf(stderr, "%s\n", usage.c_str());
        return 2;
    }
    // The chosen mode and its value where they always stood.
    if (parser.isSet(cppOpt)) args = {args[0], "--cpp", parser.value(cppOpt).toStdString()};
    if (parser.isSet(renderOpt)) args = {args[0], "--render", parser.value(renderOpt).toStdString()};
    std::vector<bw::DiagramSource> sources;
    std::string error;
    if (!bw::zReadDiagramFolder(args[0], sources, error)) {
        std::fprintf(stderr, "bwtool diagrams: %s\n", error.c_str());
        return 1;
    }
    for (const auto& s : sources) {
        if (args.size() == 3 && args[1] == "--render") {
            std::vector<bw::DgDot> dots;
            for (const auto& r : s.regions) dots.insert(dots.end(), r.dots.begin(), r.dots.end());
            fs::create_directories(args[2]);
            for (const auto& v : s.arts) {
                fs::path svg = fs::path(args[2]) / (v.name + ".svg");
                WriteText(svg.string(), bw::zSvgWithDots(bw::zDiagramSvg(s, v, false), dots));
                Render(svg.string(), (fs::path(args[2]) / (v.name + ".png")).string());
            }
            for (const auto& v : s.editors) {
                fs::path svg = fs::path(args[2]) / ("diag" + v.name + ".svg");
                WriteText(svg.string(), bw::zDiagramSvg(s, v, true));
                Render(svg.string(), (fs::path(args[2]) / ("diag" + v.name + ".png")).string());
            }
        }
        if (args.size() == 3 && args[1] == "--cpp") {
            if (fs::path(s.path).stem() != args[2]) continue;
            for (int16_t loc : s.Locations(false)) {
                std::printf("// location %d\n", loc);
                for (const auto& r : s.regions) {
                    if (r.structure || r.location != loc) continue;
                    std::printf("// run of %d\n", r.count);
                    int n = 0;
                    for (const auto& d : r.dots) std::printf("{%d, %d},%s", d.x, d.y, ++n % 8 ? " " : "\n");
                    std::printf("\n");
                }
            }
            return 0;
        }
        std::printf("%s:", fs::path(s.path).filename().string().c_str());
        for (const auto& r : s.regions)
            std::printf(" %s%d=%d/%d", r.structure ? "s" : "a", r.location, r.count, r.room);
        std::printf("\n");
    }
    return 0;
}

bwtool::Registrar regPreview("preview", "preview OUT_DIR",
                             "render every sheet picture, diagram and its dots to PNG in OUT_DIR/preview", &RunPreview);
bwtool::Registrar regDiagrams("diagrams", "diagrams DIAGRAM_DIR [--cpp NAME | --render OUT_DIR]",
                              "lay out the armor diagram sources and tell each outline's room", &RunDiagrams);

}  // namespace
