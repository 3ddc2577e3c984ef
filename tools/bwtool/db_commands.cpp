// bwtool check / dump / copy: database files from the command line.
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Commands.h"
#include "ConsoleUi.h"
#include "Options.h"
#include "core/Codepage.h"
#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Ui.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "database/RecordFields.h"
#include "database/Upgrade.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace {

bool ReadWhole(const std::string& path, std::string& bytes) {
    try {
        bytes = bw::zReadWholeFile(path);
        return true;
    } catch (const bw::RunError&) {
        return false;
    }
}

int RunCheck(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    const int parsed = bwtool::ParseCommand(parser, "check", options, {{"FILE", "the database file"}}, 1, 1,
                                            "usage: bwtool check FILE", args);
    if (parsed >= 0) return parsed;
    std::string bytes;
    if (!ReadWhole(args[0], bytes)) {
        std::printf("%s: cannot be read\n", args[0].c_str());
        return 1;
    }
    const bw::DatabaseCheck c = bw::zCheckDatabaseBytes(bytes);
    std::printf("%s: %s\n", args[0].c_str(), c.message.c_str());
    return c.ok ? 0 : 1;
}

using Json = nlohmann::ordered_json;

// A number as the dump has always shown it: whole values without a
// fraction, and JSON's missing NaN and infinities as strings (a damaged
// file may hold them).
Json Number(double d) {
    if (d != d) return "NaN";
    if (std::isinf(d)) return d > 0 ? "Infinity" : "-Infinity";
    if (d == std::trunc(d) && std::fabs(d) < 1e15) return static_cast<int64_t>(d);
    return d;
}

// A Windows-1252 text as UTF-8, so any JSON reader accepts it; a byte the
// code page leaves unassigned keeps the C1 control of its number.
Json Text(const std::string& s) {
    std::string out;
    for (char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D) out += {'\xC2', ch};
        else out += bw::zCp1252ToUtf8(std::string(1, ch));
    }
    return out;
}

// The library's text, with every control character (C0, DEL and C1) as a
// \u escape, the style the dump has always used, so no raw control byte
// reaches a terminal.
std::string Line(const Json& j) {
    const std::string in = j.dump();
    std::string out;
    char buf[8];
    auto escape = [&](unsigned c) {
        std::snprintf(buf, sizeof buf, "\\u%04x", c);
        out += buf;
    };
    for (size_t i = 0; i < in.size(); ++i) {
        const auto c = static_cast<unsigned char>(in[i]);
        if (c == '\\' && i + 1 < in.size()) {
            const char e = in[++i];
            switch (e) {
                case 'b': escape('\b'); break;
                case 't': escape('\t'); break;
                case 'n': escape('\n'); break;
                case 'f': escape('\f'); break;
                case 'r': escape('\r'); break;
                default: out += {'\\', e};
            }
        } else if (c == 0x7F) {
            escape(c);
        } else if (c == 0xC2 && i + 1 < in.size() && static_cast<unsigned char>(in[i + 1]) >= 0x80 &&
                   static_cast<unsigned char>(in[i + 1]) <= 0x9F) {
            escape(static_cast<unsigned char>(in[++i]));
        } else {
            out += in[i];
        }
    }
    return out;
}

struct JsonFields {
    Json& out;
    void operator()(const char* name, int16_t v) const { out[name] = v; }
    void operator()(const char* name, double v) const { out[name] = Number(v); }
};

// Lists show what the file holds: nothing when element 0 is not in use
// (count field -1), though the program reads that as one empty element.
Json WeaponList(const std::vector<bw::FighterWeapon>& list) {
    Json out = Json::array();
    const size_t n = !list.empty() && list[0].wActive == bw::kTrue ? list.size() : 0;
    for (size_t i = 0; i < n; ++i) {
        const auto& e = list[i];
        out.push_back({{"wIdx", e.wIdx}, {"wNum", e.wNum}, {"wBase", e.wBase}, {"wActive", e.wActive},
                       {"wSlot", e.wSlot}, {"wLoc", e.wLoc}});
    }
    return out;
}

template <class T>
Json Array6(const std::array<T, bw::kOmniConfigs>& a) {
    Json out = Json::array();
    for (const T& x : a) {
        if constexpr (std::is_same_v<T, double>) out.push_back(Number(x));
        else out.push_back(x);
    }
    return out;
}

Json DumpVehicle(const bw::Vehicle& v, size_t index) {
    Json out = {{"kind", "vehicle"}, {"index", index}, {"Name", Text(v.Name)}};
    bw::zVisitVehicleFields(v, JsonFields{out});
    Json items = Json::array();
    const size_t n = !v.Items.empty() && v.Items[0].wStatus == bw::kTrue ? v.Items.size() : 0;
    for (size_t i = 0; i < n; ++i) {
        const auto& it = v.Items[i];
        items.push_back({{"wType", it.wType}, {"wNum", it.wNum}, {"wLoc", it.wLoc}, {"wStatus", it.wStatus}});
    }
    out["Items"] = std::move(items);
    return out;
}

Json DumpFighter(const bw::Fighter& f, size_t index) {
    Json out = {{"kind", "fighter"}, {"index", index}, {"Name", Text(f.Name)}};
    bw::zVisitFighterHead(f, JsonFields{out});
    if (f.FighterType != 2) {
        bw::zVisitFighterPlainTail(f, JsonFields{out});
        out["Weapons"] = WeaponList(f.Weapons);
        return out;
    }
    out["OmniBaseLocked"] = f.OmniBaseLocked;
    out["OmniHasTC"] = Array6(f.OmniHasTC);
    out["OmniTCTonnage"] = Array6(f.OmniTCTonnage);
    out["OmniTCLocation"] = Array6(f.OmniTCLocation);
    out["OmniWeaponHeat"] = Array6(f.OmniWeaponHeat);
    out["OmniWeaponTonnage"] = Array6(f.OmniWeaponTonnage);
    out["OmniTotalTonnage"] = Array6(f.OmniTotalTonnage);
    out["OmniFreeTonnage"] = Array6(f.OmniFreeTonnage);
    Json configs = Json::array();
    for (const auto& list : f.OmniWeapons) configs.push_back(WeaponList(list));
    out["OmniWeapons"] = std::move(configs);
    out["OmniConfigUsed"] = Array6(f.OmniConfigUsed);
    out["OmniFuelTonnage"] = Array6(f.OmniFuelTonnage);
    out["OmniHeatSinks"] = Array6(f.OmniHeatSinks);
    out["OmniHeatSinkTonnage"] = Array6(f.OmniHeatSinkTonnage);
    return out;
}

int RunDump(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    const int parsed = bwtool::ParseCommand(parser, "dump", options, {{"FILE", "the database file"}}, 1, 1,
                                            "usage: bwtool dump FILE", args);
    if (parsed >= 0) return parsed;
    std::string bytes;
    if (!ReadWhole(args[0], bytes)) {
        std::fprintf(stderr, "%s: cannot be read\n", args[0].c_str());
        return 1;
    }
    // Only a file that checks clean is dumped: a damaged one says where.
    const bw::DatabaseCheck c = bw::zCheckDatabaseBytes(bytes);
    if (!c.ok) {
        std::fprintf(stderr, "%s: %s\n", args[0].c_str(), c.message.c_str());
        return 1;
    }
    bw::BinaryReader r(bytes);
    r.Seek(bw::kDbCertificationLen + 2);
    std::vector<std::shared_ptr<bw::Vehicle>> vehicles;
    std::vector<std::shared_ptr<bw::Fighter>> fighters;
    bw::zReadDesignTables(r, vehicles, fighters);
    // A blank table (count field -1) holds no design.
    for (size_t i = 0; i < vehicles.size() && c.vehicles > 0; ++i)
        std::printf("%s\n", Line(DumpVehicle(*vehicles[i], i)).c_str());
    for (size_t i = 0; i < fighters.size() && c.fighters > 0; ++i)
        std::printf("%s\n", Line(DumpFighter(*fighters[i], i)).c_str());
    return 0;
}

using bwtool::ConsoleUi;

int RunCopy(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    const int parsed = bwtool::ParseCommand(parser, "copy", options,
                                            {{"IN", "the database to open"}, {"OUT", "the file to save it as"}}, 2, 2,
                                            "usage: bwtool copy IN OUT", args);
    if (parsed >= 0) return parsed;
    ConsoleUi ui;
    bw::SetUi(&ui);
    // The program's folder is the output's, so nothing the save or the open
    // looks for lands beside bwtool. The log goes nowhere.
    const std::string out = bw::zNormalizePath(args[1]);
    const size_t slash = out.rfind('/');
    bw::SetAppPath(slash == std::string::npos ? "." : slash == 0 ? "/" : out.substr(0, slash));
    bw::gLogFile = "/dev/null";
    bw::zResetDatabase();
    bw::zOpenDatabase(args[0]);
    int rc = 0;
    if (bw::gDatabasePath.empty() || ui.boxes > 0) {
        if (ui.boxes == 0) std::fprintf(stderr, "%s: not found\n", args[0].c_str());
        rc = 1;
    } else {
        bw::gDatabasePath = out;
        bw::zSaveDatabase();
        if (ui.boxes > 0) rc = 1;
    }
    bw::SetUi(nullptr);
    return rc;
}

// Runs the program's upgrade command on the file; its boxes become lines on
// standard error.
int RunUpgrade(const std::vector<std::string>& options) {
    QCommandLineParser parser;
    std::vector<std::string> args;
    const int parsed = bwtool::ParseCommand(parser, "upgrade", options, {{"FILE", "the version 1 database"}}, 1, 1,
                                            "usage: bwtool upgrade FILE", args);
    if (parsed >= 0) return parsed;
    ConsoleUi ui;
    bw::SetUi(&ui);
    // The program's folder is the file's, so nothing lands beside bwtool.
    const std::string path = bw::zNormalizePath(args[0]);
    const size_t slash = path.rfind('/');
    bw::SetAppPath(slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash));
    bw::gLogFile = "/dev/null";
    bw::zResetDatabase();
    const bool upgraded = bw::zCheckUpgrade(args[0]);
    bw::SetUi(nullptr);
    return upgraded ? 0 : 1;
}

bwtool::Registrar regCheck("check", "check FILE", "certify a database and parse it to its last byte", &RunCheck);
bwtool::Registrar regDump("dump", "dump FILE", "print every design of a database as one JSON line", &RunDump);
bwtool::Registrar regCopy("copy", "copy IN OUT", "open IN as the program does and save it as OUT", &RunCopy);
bwtool::Registrar regUpgrade("upgrade", "upgrade FILE", "upgrade a version 1 database to version 2 in place",
                             &RunUpgrade);

}  // namespace
