#include "databuild/DiagramSources.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "databuild/DiagramGeometry.h"

namespace bw {
namespace {

DotRecord MakeRecord(int16_t diagram, int16_t location, const std::vector<DgDot>& dots) {
    DotRecord r;
    r.diagram = diagram;
    r.location = location;
    for (const auto& d : dots) {
        r.X.push_back(d.x);
        r.Y.push_back(d.y);
    }
    return r;
}

bool WriteFile(const std::filesystem::path& path, const std::string& text, std::string& error) {
    try {
        zWriteFileAtomic(path.string(), text);
        return true;
    } catch (const RunError& e) {
        error = path.string() + ": cannot be written: " + e.what();
        return false;
    }
}

// Reads every source of the folder and lays out the two tables; the sources
// stay for the pictures.
bool BuildTables(const std::string& diagramsDir, std::vector<DiagramSource>& sources, std::vector<DotRecord>& armor,
                 std::vector<DotRecord>& internal, std::string& error) {
    armor.clear();
    internal.clear();
    if (!zReadDiagramFolder(diagramsDir, sources, error)) return false;
    if (sources.empty()) {
        error = diagramsDir + ": no diagram sources";
        return false;
    }

    std::map<int16_t, std::string> codeOwner;
    std::map<std::string, std::string> pictureOwner;
    for (const auto& s : sources) {
        for (int16_t code : s.codes) {
            auto [it, fresh] = codeOwner.emplace(code, s.path);
            if (!fresh) {
                error = s.path + ": diagram " + std::to_string(code) + " is already given by " + it->second;
                return false;
            }
        }
        for (const auto* list : {&s.arts, &s.editors})
            for (const auto& v : *list) {
                std::string key = (list == &s.arts ? "art " : "editor ") + v.name;
                auto [it, fresh] = pictureOwner.emplace(key, s.path);
                if (!fresh) {
                    error = s.path + ": " + key + " is already drawn by " + it->second;
                    return false;
                }
            }
    }

    for (const auto& s : sources)
        for (int16_t code : s.codes) {
            for (int16_t loc : s.Locations(false)) armor.push_back(MakeRecord(code, loc, s.Dots(loc, false)));
            for (int16_t loc : s.Locations(true)) internal.push_back(MakeRecord(code, loc, s.Dots(loc, true)));
        }
    auto byKey = [](const DotRecord& a, const DotRecord& b) {
        return a.diagram != b.diagram ? a.diagram < b.diagram : a.location < b.location;
    };
    std::sort(armor.begin(), armor.end(), byKey);
    std::sort(internal.begin(), internal.end(), byKey);
    return true;
}

}  // namespace

bool BuildDotTables(const std::string& diagramsDir, std::vector<DotRecord>& armor, std::vector<DotRecord>& internal,
                    std::string& error) {
    std::vector<DiagramSource> sources;
    return BuildTables(diagramsDir, sources, armor, internal, error);
}

// Every diagram source under dataDir/diagrams gives its pictures (written to
// outDir/bwp, editor plan views to outDir/bwp/editor) and, for each diagram
// code it names, one armor and one structure record per location.
bool BuildDiagramData(const std::string& dataDir, const std::string& outDir, std::vector<DotRecord>& armor,
                      std::vector<DotRecord>& internal, std::string& error) {
    std::vector<DiagramSource> sources;
    if (!BuildTables(zJoinPath(dataDir, "diagrams"), sources, armor, internal, error)) return false;

    namespace fs = std::filesystem;
    const fs::path art = fs::path(zNormalizePath(outDir)) / "bwp";
    const fs::path editor = art / "editor";
    std::error_code ec;
    fs::create_directories(editor, ec);
    if (ec) {
        error = editor.string() + ": cannot be created: " + ec.message();
        return false;
    }
    for (const auto& s : sources) {
        for (const auto& v : s.arts)
            if (!WriteFile(art / (v.name + ".bwp"), zDiagramSvg(s, v, false), error)) return false;
        for (const auto& v : s.editors) {
            char name[32];
            std::snprintf(name, sizeof name, "diag%02d.svg", std::atoi(v.name.c_str()));
            if (!WriteFile(editor / name, zDiagramSvg(s, v, true), error)) return false;
        }
    }
    return true;
}

}  // namespace bw
