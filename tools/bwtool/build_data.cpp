// bwtool build-data: turns the text sources under data/ into the reference
// files beside the program, and copies the sheet art.
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "Commands.h"
#include "Options.h"
#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "databuild/DiagramSources.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"

namespace fs = std::filesystem;

namespace {

// Start-up narrows each reference file's length to 16 bits.
constexpr size_t kMaxRefFileBytes = 32767;

bool ReadText(const std::string& path, std::string& out) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool LowerExtIs(const fs::path& p, const std::string& ext) {
    std::string e = p.extension().string();
    for (char& c : e) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return e == ext;
}

int Fail(const std::string& msg) {
    std::fprintf(stderr, "bwtool build-data: %s\n", msg.c_str());
    return 1;
}

int RunBuildData(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    if (const int rc = bwtool::ParseCommand(parser, "build-data", options,
                                            {{"DATA_DIR", "the reference sources"}, {"OUT_DIR", "where the files go"}},
                                            2, 2, "bwtool build-data: usage: build-data DATA_DIR OUT_DIR", args, 1);
        rc >= 0)
        return rc;
    const std::string dataDir = args[0];
    const std::string outDir = args[1];

    struct Output {
        std::string name;
        std::string bytes;
    };
    std::vector<Output> outputs;
    try {
        const std::string tsvPath = bw::zJoinPath(dataDir, "weapons.tsv");
        std::string tsv;
        if (!ReadText(tsvPath, tsv)) return Fail(tsvPath + ": cannot be read");
        std::vector<bw::WeaponRec> rows;
        std::string error;
        if (!bw::zParseWeaponsText(tsv, tsvPath, rows, error)) return Fail(error);
        outputs.push_back({bw::kWeaponsFile, bw::zWeaponsFileBytes(rows)});

        std::vector<bw::DotRecord> armor, internal;
        if (!bw::BuildDiagramData(dataDir, outDir, armor, internal, error)) return Fail(error);
        outputs.push_back({bw::kArmorFile, bw::zDiagramFileBytes(bw::kArmorCert, armor)});
        outputs.push_back({bw::kInternalFile, bw::zDiagramFileBytes(bw::kInternalCert, internal)});
    } catch (const bw::RunError& e) {
        return Fail("cannot build the reference files: error " + std::to_string(e.Number()) + ", " +
                    e.Description());
    }

    // Check every file before writing any, so a refused build leaves the old
    // files in place.
    for (const Output& o : outputs)
        if (o.bytes.size() > kMaxRefFileBytes)
            return Fail(o.name + " would be " + std::to_string(o.bytes.size()) +
                        " bytes; a reference file must stay under 32768 bytes");

    std::error_code ec;
    fs::create_directories(outDir, ec);
    if (ec) return Fail(outDir + ": cannot create folder: " + ec.message());
    try {
        for (const Output& o : outputs) bw::zWriteFileAtomic(bw::zJoinPath(outDir, o.name), o.bytes);
    } catch (const bw::RunError& e) {
        return Fail("cannot write into " + outDir + ": " + e.Description());
    }

    int art = 0;
    const fs::path artSrc = fs::path(bw::zNormalizePath(dataDir)) / "bwp";
    if (fs::is_directory(artSrc, ec)) {
        const fs::path artDst = fs::path(bw::zNormalizePath(outDir)) / "bwp";
        fs::create_directories(artDst, ec);
        if (ec) return Fail(artDst.string() + ": cannot create folder: " + ec.message());
        for (const auto& entry : fs::directory_iterator(artSrc, ec)) {
            if (!entry.is_regular_file() || !LowerExtIs(entry.path(), ".bwp")) continue;
            fs::copy_file(entry.path(), artDst / entry.path().filename(), fs::copy_options::overwrite_existing, ec);
            if (ec) return Fail(entry.path().string() + ": cannot copy: " + ec.message());
            ++art;
        }
        if (ec) return Fail(artSrc.string() + ": cannot list: " + ec.message());
    }

    for (const Output& o : outputs) std::printf("%s: %zu bytes\n", o.name.c_str(), o.bytes.size());
    std::printf("bwp: %d art files\n", art);
    return 0;
}

bwtool::Registrar reg("build-data", "build-data DATA_DIR OUT_DIR",
                      "build weapons.bin, armorloc.bin, intloc.bin and copy the sheet art", &RunBuildData);

}  // namespace
