#include "search/SearchRun.h"

#include <fstream>

#include <nlohmann/json.hpp>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Codepage.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "database/DatabaseFile.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

// The first bytes of a file, as many as there are up to n; nothing for a
// file that cannot be opened. Only the header is read, however large the
// file.
std::string Prefix(const std::string& path, size_t n) {
    std::ifstream in(zNormalizePath(path), std::ios::binary);
    if (!in) return {};
    std::string s(n, '\0');
    in.read(s.data(), static_cast<std::streamsize>(n));
    s.resize(static_cast<size_t>(in.gcount()));
    return s;
}

// Reads one table: its count field, then each record. False after a record
// that failed (it has been reported).
template <class T, class Load>
bool ReadTable(BinaryReader& r, std::vector<std::shared_ptr<T>>& table, Load load) {
    const int16_t n = r.I16();
    if (n < -1) zRaise(kErrSubscript);
    table.clear();
    if (n == -1) {
        table.push_back(std::make_shared<T>());
        return true;
    }
    // Grown as read, so that a hostile count costs nothing.
    for (int i = 0; i <= n; ++i) {
        auto obj = std::make_shared<T>();
        if (load(r, *obj) != 0) return false;
        table.push_back(std::move(obj));
    }
    return true;
}

}  // namespace

void TValidDatabase(const std::string& path, bool& ok) {
    ok = false;
    zTrapVoid("TValidDatabase", [&] {
        BinaryReader r(Prefix(path, kDbCertificationLen + 2));
        const std::string cert = r.Size() >= kDbCertificationLen ? r.FixedTrimmed(kDbCertificationLen) : std::string();
        if (cert != kDbCertification) {
            zMsgBox(
                "The Brasswick Works was unable to certify this database. This is either not a Brasswick Works v3 "
                "database, or it is corrupt.",
                MsgButtons::OK, MsgIcon::Information, "Unable to certify");
            return;
        }
        // A version word cut off reads as 0.
        const int16_t version = r.Remaining() >= 2 ? r.I16() : int16_t{0};
        if (version != kDbVersion) {
            zMsgBox("This database can not be opened because it is of the wrong version. This is a version " +
                        std::to_string(version) + " database, but this program is looking for a version " +
                        std::to_string(kDbVersion) + " database.",
                    MsgButtons::OK, MsgIcon::Information, "Wrong DB version");
            return;
        }
        ok = true;
    });
}

bool LoadedDatabase::HasVehicles() const { return !vehicles.empty() && vehicles[0] && !vehicles[0]->Name.empty(); }
bool LoadedDatabase::HasFighters() const { return !fighters.empty() && fighters[0] && !fighters[0]->Name.empty(); }

bool zOpenDB(const std::string& path, LoadedDatabase& db) {
    zPointerWait();
    const bool ok = zTrap("zOpenDB", false, [&] {
        BinaryReader r(zReadWholeFile(zNormalizePath(path)));
        r.Seek(kDbCertificationLen + 2);
        return ReadTable(r, db.vehicles, zLoadVehicleReported) && ReadTable(r, db.fighters, zLoadFighterReported);
    });
    zPointerNormal();
    return ok;
}

bool zSearchDatabase(const std::string& path, const std::vector<SearchCriterion>& criteria,
                     const std::function<void(const SearchMatch&)>& found, const std::function<bool()>& keepGoing) {
    LoadedDatabase db;
    if (!zOpenDB(path, db)) return false;
    if (db.HasVehicles()) {
        for (size_t i = 0; i < db.vehicles.size(); ++i) {
            if (keepGoing && i % 256 == 255 && !keepGoing()) return true;
            const Vehicle& v = *db.vehicles[i];
            bool matched = false;
            ProcessVehicle(criteria, v, matched);
            if (matched)
                found(SearchMatch{v.Name, v.VhlType, v.TechBase, v.TechLevel, v.Tonnage, v.CruiseSpeed, path,
                                  static_cast<int32_t>(i)});
        }
    }
    if (db.HasFighters())
        for (const auto& f : db.fighters) ProcessFighter(*f);
    return true;
}

std::string zMatchToJson(const SearchMatch& m) {
    nlohmann::ordered_json o;
    o["Name"] = zCp1252ToUtf8(m.Name);
    o["Type"] = zVehicleTypeName(m.VhlType);
    o["Base"] = m.TechBase;
    o["Level"] = m.TechLevel;
    o["Tonnage"] = m.Tonnage;
    o["Speed"] = m.CruiseSpeed;
    // The path as given, which need not be valid UTF-8.
    o["Database"] = m.Database;
    o["Index"] = m.Index;
    return o.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

std::string zResultKey(int32_t index, const std::string& database) {
    return "v" + std::to_string(index) + "|" + database;
}

bool zParseResultKey(const std::string& key, int32_t& index, std::string& database) {
    const size_t bar = key.find('|');
    if (key.size() < 3 || key[0] != 'v' || bar == std::string::npos || bar == 1 || bar > 11) return false;
    int64_t n = 0;
    for (size_t i = 1; i < bar; ++i) {
        if (key[i] < '0' || key[i] > '9') return false;
        n = n * 10 + (key[i] - '0');
    }
    if (n > INT32_MAX) return false;
    index = static_cast<int32_t>(n);
    database = key.substr(bar + 1);
    return true;
}

}  // namespace bw
