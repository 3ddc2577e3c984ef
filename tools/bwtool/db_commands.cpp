// bwtool check / dump / copy: database files from the command line.
#include <cstdio>
#include <string>
#include <vector>

#include "Commands.h"
#include "ConsoleUi.h"
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

int RunCheck(const std::vector<std::string>& args) {
    if (args.size() != 1) {
        std::fprintf(stderr, "usage: bwtool check FILE\n");
        return 2;
    }
    std::string bytes;
    if (!ReadWhole(args[0], bytes)) {
        std::printf("%s: cannot be read\n", args[0].c_str());
        return 1;
    }
    const bw::DatabaseCheck c = bw::zCheckDatabaseBytes(bytes);
    std::printf("%s: %s\n", args[0].c_str(), c.message.c_str());
    return c.ok ? 0 : 1;
}

// JSON text of Windows-1252 bytes: converted to UTF-8 so that any JSON
// reader accepts it, with quotes, backslashes and control characters
// escaped; a byte the code page leaves unassigned keeps the C1 control of
// its number, escaped too.
std::string JsonText(const std::string& s) {
    std::string out = "\"";
    for (char ch : s) {
        const auto c = static_cast<unsigned char>(ch);
        const bool unassigned = c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D;
        if (c == '"' || c == '\\') {
            out += '\\';
            out += ch;
        } else if (c < 0x20 || c == 0x7F || unassigned) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\u%04x", static_cast<unsigned>(c));
            out += buf;
        } else {
            out += bw::zCp1252ToUtf8(std::string(1, ch));
        }
    }
    return out + "\"";
}

std::string JsonNumber(double d) {
    // JSON has no NaN or infinity; a damaged file may hold them.
    if (d != d) return "\"NaN\"";
    if (d == 1.0 / 0.0) return "\"Infinity\"";
    if (d == -1.0 / 0.0) return "\"-Infinity\"";
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.17g", d);
    return buf;
}

struct JsonFields {
    std::string& out;
    void operator()(const char* name, int16_t v) const { out += ",\"" + std::string(name) + "\":" + std::to_string(v); }
    void operator()(const char* name, double v) const { out += ",\"" + std::string(name) + "\":" + JsonNumber(v); }
};

// Lists show what the file holds: nothing when element 0 is not in use
// (count field -1), though the program reads that as one empty element.
std::string WeaponList(const std::vector<bw::FighterWeapon>& list) {
    std::string out = "[";
    const size_t n = !list.empty() && list[0].wActive == bw::kTrue ? list.size() : 0;
    for (size_t i = 0; i < n; ++i) {
        const auto& e = list[i];
        if (i) out += ",";
        out += "{\"wIdx\":" + std::to_string(e.wIdx) + ",\"wNum\":" + std::to_string(e.wNum) +
               ",\"wBase\":" + std::to_string(e.wBase) + ",\"wActive\":" + std::to_string(e.wActive) +
               ",\"wSlot\":" + std::to_string(e.wSlot) + ",\"wLoc\":" + std::to_string(e.wLoc) + "}";
    }
    return out + "]";
}

template <class T>
std::string Array6(const std::array<T, bw::kOmniConfigs>& a) {
    std::string out = "[";
    for (size_t i = 0; i < a.size(); ++i) {
        if (i) out += ",";
        if constexpr (std::is_same_v<T, double>) out += JsonNumber(a[i]);
        else out += std::to_string(a[i]);
    }
    return out + "]";
}

std::string DumpVehicle(const bw::Vehicle& v, size_t index) {
    std::string out = "{\"kind\":\"vehicle\",\"index\":" + std::to_string(index) + ",\"Name\":" + JsonText(v.Name);
    bw::zVisitVehicleFields(v, JsonFields{out});
    out += ",\"Items\":[";
    const size_t n = !v.Items.empty() && v.Items[0].wStatus == bw::kTrue ? v.Items.size() : 0;
    for (size_t i = 0; i < n; ++i) {
        const auto& it = v.Items[i];
        if (i) out += ",";
        out += "{\"wType\":" + std::to_string(it.wType) + ",\"wNum\":" + std::to_string(it.wNum) +
               ",\"wLoc\":" + std::to_string(it.wLoc) + ",\"wStatus\":" + std::to_string(it.wStatus) + "}";
    }
    return out + "]}";
}

std::string DumpFighter(const bw::Fighter& f, size_t index) {
    std::string out = "{\"kind\":\"fighter\",\"index\":" + std::to_string(index) + ",\"Name\":" + JsonText(f.Name);
    bw::zVisitFighterHead(f, JsonFields{out});
    if (f.FighterType != 2) {
        bw::zVisitFighterPlainTail(f, JsonFields{out});
        out += ",\"Weapons\":" + WeaponList(f.Weapons);
        return out + "}";
    }
    out += ",\"OmniBaseLocked\":" + std::to_string(f.OmniBaseLocked);
    out += ",\"OmniHasTC\":" + Array6(f.OmniHasTC);
    out += ",\"OmniTCTonnage\":" + Array6(f.OmniTCTonnage);
    out += ",\"OmniTCLocation\":" + Array6(f.OmniTCLocation);
    out += ",\"OmniWeaponHeat\":" + Array6(f.OmniWeaponHeat);
    out += ",\"OmniWeaponTonnage\":" + Array6(f.OmniWeaponTonnage);
    out += ",\"OmniTotalTonnage\":" + Array6(f.OmniTotalTonnage);
    out += ",\"OmniFreeTonnage\":" + Array6(f.OmniFreeTonnage);
    out += ",\"OmniWeapons\":[";
    for (size_t c = 0; c < f.OmniWeapons.size(); ++c) out += (c ? "," : "") + WeaponList(f.OmniWeapons[c]);
    out += "]";
    out += ",\"OmniConfigUsed\":" + Array6(f.OmniConfigUsed);
    out += ",\"OmniFuelTonnage\":" + Array6(f.OmniFuelTonnage);
    out += ",\"OmniHeatSinks\":" + Array6(f.OmniHeatSinks);
    out += ",\"OmniHeatSinkTonnage\":" + Array6(f.OmniHeatSinkTonnage);
    return out + "}";
}

int RunDump(const std::vector<std::string>& args) {
    if (args.size() != 1) {
        std::fprintf(stderr, "usage: bwtool dump FILE\n");
        return 2;
    }
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
        std::printf("%s\n", DumpVehicle(*vehicles[i], i).c_str());
    for (size_t i = 0; i < fighters.size() && c.fighters > 0; ++i)
        std::printf("%s\n", DumpFighter(*fighters[i], i).c_str());
    return 0;
}

using bwtool::ConsoleUi;

int RunCopy(const std::vector<std::string>& args) {
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: bwtool copy IN OUT\n");
        return 2;
    }
    ConsoleUi ui;
    bw::SetUi(&ui);
    // The temporary file of a save belongs in the program's folder; for
    // bwtool that is the output's folder, so the final rename stays on one
    // file system. The log goes nowhere.
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
int RunUpgrade(const std::vector<std::string>& args) {
    if (args.size() != 1) {
        std::fprintf(stderr, "usage: bwtool upgrade FILE\n");
        return 2;
    }
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
