#include "search/SearchRun.h"

#include <fstream>
#include <type_traits>

#include <nlohmann/json.hpp>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Codepage.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "database/DatabaseFile.h"
#include "database/RecordFields.h"
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

// The report a failing record gets from the database reader.
constexpr const char* kLoadProc = "Vehicle.LoadData";

// What the search needs of a vehicle record, read in place: every 16-bit
// field, found through the record's own field list, with its item list and
// floating figures stepped over. It fails exactly where the full reader
// fails (a cut record, an item count below -1). Returns where the name is.
size_t ReadForSearch(BinaryReader& r, Vehicle& v) {
    const size_t at = r.Pos();
    if (kVehicleFixedBytes > r.Remaining()) zRaise(kErrInputPastEnd);
    const auto* p = reinterpret_cast<const unsigned char*>(r.Data().data()) + at;
    size_t off = kDesignNameLen;
    zVisitVehicleFields(v, [&](const char*, auto& field) {
        if constexpr (std::is_same_v<std::remove_reference_t<decltype(field)>, int16_t>) {
            field = static_cast<int16_t>(static_cast<uint16_t>(p[off] | (p[off + 1] << 8)));
            off += 2;
        } else {
            off += 8;
        }
    });
    r.Seek(at + off);
    const int16_t n = zReadItemCount(r, kVehicleItemBytes);
    if (n >= 0) r.Seek(r.Pos() + (static_cast<size_t>(n) + 1) * kVehicleItemBytes);
    return at;
}

// A name as the reader gives it: blanks gone from both ends.
std::string NameAt(const BinaryReader& r, size_t at) {
    const char* p = r.Data().data() + at;
    size_t b = 0, e = kDesignNameLen;
    while (b < e && p[b] == ' ') ++b;
    while (e > b && p[e - 1] == ' ') --e;
    return std::string(p + b, e - b);
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
    const PreparedCriteria prepared = zPrepareCriteria(criteria);
    std::vector<SearchMatch> matches;
    // The designs are read one at a time into one object whose buffers are
    // reused: a search reads thousands of designs and keeps only the
    // matches. The matches are handed out only once the whole file has
    // read, so a damaged file gives no row.
    const bool ok = zTrap("zOpenDB", false, [&] {
        BinaryReader r(zReadWholeFile(zNormalizePath(path)));
        r.Seek(kDbCertificationLen + 2);
        int16_t n = r.I16();
        if (n < -1) zRaise(kErrSubscript);
        Vehicle v;
        bool present = false;
        for (int32_t i = 0; i <= n; ++i) {
            if (keepGoing && i % 256 == 255 && !keepGoing()) return true;
            size_t nameAt = 0;
            try {
                nameAt = ReadForSearch(r, v);
            } catch (const RunError& e) {
                zReportError(kLoadProc, e);
                return false;
            }
            // The class is absent when the first design has no name.
            if (i == 0) present = !NameAt(r, nameAt).empty();
            if (!present) continue;
            bool matched = false;
            ProcessVehicle(prepared, v, matched);
            if (matched)
                matches.push_back(SearchMatch{NameAt(r, nameAt), v.VhlType, v.TechBase, v.TechLevel, v.Tonnage,
                                              v.CruiseSpeed, path, i});
        }
        n = r.I16();
        if (n < -1) zRaise(kErrSubscript);
        Fighter f;
        for (int32_t i = 0; i <= n; ++i) {
            if (zLoadFighterReported(r, f) != 0) return false;
            if (i == 0) present = !f.Name.empty();
            if (present) ProcessFighter(f);
        }
        return true;
    });
    if (!ok) return false;
    for (const auto& m : matches) found(m);
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
