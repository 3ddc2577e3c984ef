#include "database/DatabaseOps.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "database/DatabaseFile.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

std::vector<std::shared_ptr<Vehicle>> gVehicles{std::make_shared<Vehicle>()};
std::vector<std::shared_ptr<Fighter>> gFighters{std::make_shared<Fighter>()};
std::string gDatabasePath;


namespace {

constexpr const char* kDefaultDb = "works.bwd";
constexpr const char* kDbFilter = "Brasswick Works Databases (*.bwd)|*.bwd";

std::string FolderOf(const std::string& path) {
    const std::string f = zGetPathFromFile(zNormalizePath(path));
    return f.empty() ? "." : f;
}

// The directory search: the file itself, or else the one in its folder whose
// name matches ignoring case, as the full path to open; empty when there is
// none or the folder is missing.
std::string FindIgnoringCase(const std::string& path) {
    const std::string p = zNormalizePath(path);
    const std::string name = zGetFileFromPath(p);
    if (name.empty()) return {};
    if (zFileExists(p)) return p;
    try {
        const std::string found = zDirFind(FolderOf(p), name);
        return found.empty() ? std::string() : zJoinPath(zGetPathFromFile(p), found);
    } catch (const RunError&) {
        return {};
    }
}

bool SamePath(const std::string& a, const std::string& b) {
    return zLower(zNormalizePath(a)) == zLower(zNormalizePath(b));
}

template <class T>
void CompactTable(std::vector<std::shared_ptr<T>>& table) {
    std::vector<std::shared_ptr<T>> out{std::make_shared<T>()};
    bool first = true;
    for (auto& obj : table) {
        if (!obj || obj->Name.empty()) continue;
        if (first) {
            out[0] = obj;
            first = false;
        } else {
            out.push_back(obj);
        }
    }
    table.swap(out);
}

template <class T>
bool IsBlank(const std::vector<std::shared_ptr<T>>& table) {
    return table.empty() || !table[0] || table[0]->Name.empty();
}

template <class T>
int16_t TableCountField(const std::vector<std::shared_ptr<T>>& table) {
    if (IsBlank(table)) return -1;
    return zI16(static_cast<int64_t>(table.size()) - 1);
}

}  // namespace

std::string zAppTitle() {
    return "The Brasswick Works " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor);
}

void zResetDatabase() {
    gVehicles.assign(1, std::make_shared<Vehicle>());
    gFighters.assign(1, std::make_shared<Fighter>());
    gDatabasePath.clear();
}

void zCompactVHLArray() { CompactTable(gVehicles); }
void zCompactFTRArray() { CompactTable(gFighters); }

void zOpenDatabase(const std::string& path) {
    bool waiting = false;
    zTrapVoid("zOpenDatabase", [&] {
        if (path.empty()) return;
        const std::string found = FindIgnoringCase(path);
        if (found.empty()) return;
        BinaryReader r(zReadWholeFile(found));
        // A file too short to hold the string is simply not certified.
        const std::string cert = r.Size() >= kDbCertificationLen ? r.FixedTrimmed(kDbCertificationLen) : std::string();
        if (cert != kDbCertification) {
            zMsgBox(
                "The Brasswick Works was unable to certify this database. This is either not a Brasswick Works v3 "
                "database, or it is corrupt.",
                MsgButtons::OK, MsgIcon::Information, "Unable to certify");
            return;
        }
        const int16_t version = r.I16();
        if (version != kDbVersion) {
            zMsgBox("The database '" + path +
                        "' can not be opened because it is of the wrong version. This is a version " +
                        std::to_string(version) + " database, but this program is looking for a version " +
                        std::to_string(kDbVersion) +
                        " database. Please choose 'Upgrade Existing v3 Database' from the 'File' menu.",
                    MsgButtons::OK, MsgIcon::Information, "Wrong DB version");
            const std::string def = zAppFile(kDefaultDb);
            if (!SamePath(path, def)) {
                zOpenDatabase(def);
            } else {
                // "because it of" is the program's own wording.
                zMsgBox(
                    "The works default database could not be opened because it of the wrong version. You will need "
                    "to create a new database or open a valid database before any vehicles can be saved.",
                    MsgButtons::OK, MsgIcon::Information, "Unable to open works database");
            }
            return;
        }
        zPointerWait();
        waiting = true;
        // Read into tables of its own: only a whole read replaces the open
        // database, so a damaged file never leaves a half table to be saved
        // over the database that was open.
        std::vector<std::shared_ptr<Vehicle>> vehicles;
        std::vector<std::shared_ptr<Fighter>> fighters;
        if (!zReadDesignTables(r, vehicles, fighters)) {
            zPointerNormal();
            waiting = false;
            return;
        }
        gVehicles.swap(vehicles);
        gFighters.swap(fighters);
        gDatabasePath = found;
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

bool zSaveDatabase() {
    if (gDatabasePath.empty()) {
        zMsgBox("You do not have a database open. You must open a valid database before attempting to save.",
                MsgButtons::OK, MsgIcon::Critical, "No database open");
        return false;
    }
    return zTrap("zSaveDatabase", false, [&] {
        // The whole file is built in memory first, so a failing design
        // leaves the database on disk untouched.
        BinaryWriter w;
        size_t estimate = kDbCertificationLen + 6;
        for (const auto& v : gVehicles) estimate += kVehicleFixedBytes + kVehicleItemBytes * v->Items.size();
        for (const auto& f : gFighters) estimate += 1024 + kFighterWeaponBytes * f->Weapons.size();
        w.Data().reserve(estimate);
        zWriteDatabaseHeader(w);
        zCompactVHLArray();
        const int16_t nv = TableCountField(gVehicles);
        w.I16(nv);
        for (int i = 0; i <= nv; ++i) {
            Vehicle& v = *gVehicles[static_cast<size_t>(i)];
            if (!SaveData(v, w)) {
                zMsgBox("There was an error while writing the data on the vehicle named " + v.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return false;
            }
        }
        zCompactFTRArray();
        const int16_t nf = TableCountField(gFighters);
        w.I16(nf);
        for (int i = 0; i <= nf; ++i) {
            const Fighter& f = *gFighters[static_cast<size_t>(i)];
            if (!SaveData(f, w)) {
                zMsgBox("There was an error while writing the data on the fighter named " + f.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return false;
            }
        }
        zWriteFileAtomic(gDatabasePath, w.Data());
        return true;
    });
}

namespace {

template <class T, class TypeOf>
int16_t FindDesign(const std::vector<std::shared_ptr<T>>& table, const T& d, TypeOf typeOf) {
    for (size_t i = 0; i < table.size(); ++i) {
        const auto& e = table[i];
        if (e && !e->Name.empty() && e->Name == d.Name && e->TechBase == d.TechBase && typeOf(*e) == typeOf(d))
            return zI16(static_cast<int64_t>(i));
    }
    return -1;
}

// The table keeps a copy of its own: later edits the user abandons never
// reach it. A save that fails puts the table back as it was, so nothing
// reaches the file but through a save that worked.
template <class T>
bool StoreDesign(std::vector<std::shared_ptr<T>>& table, const T& d, int16_t index) {
    auto copy = std::make_shared<T>(d);
    copy->frm = nullptr;
    const auto before = table;
    if (index >= 0 && static_cast<size_t>(index) < table.size()) {
        table[static_cast<size_t>(index)] = copy;
    } else if (IsBlank(table)) {
        if (table.empty()) table.push_back(copy);
        else table[0] = copy;
    } else {
        table.push_back(copy);
    }
    if (zSaveDatabase()) return true;
    table = before;
    return false;
}

template <class T>
bool DropDesign(std::vector<std::shared_ptr<T>>& table, int16_t index) {
    if (index < 0 || static_cast<size_t>(index) >= table.size() || !table[static_cast<size_t>(index)]) return false;
    // The entry is replaced, not changed: whoever still holds the old
    // object keeps it whole.
    const auto before = table;
    auto blank = std::make_shared<T>(*table[static_cast<size_t>(index)]);
    blank->Name.clear();
    table[static_cast<size_t>(index)] = blank;
    if (zSaveDatabase()) return true;
    table = before;
    return false;
}

}  // namespace

int16_t zFindVehicle(const Vehicle& v) {
    return FindDesign(gVehicles, v, [](const Vehicle& x) { return x.VhlType; });
}
int16_t zFindFighter(const Fighter& f) {
    return FindDesign(gFighters, f, [](const Fighter& x) { return x.FighterType; });
}
bool zStoreVehicle(const Vehicle& v, int16_t index) { return StoreDesign(gVehicles, v, index); }
bool zStoreFighter(const Fighter& f, int16_t index) { return StoreDesign(gFighters, f, index); }
bool zDropVehicle(int16_t index) { return DropDesign(gVehicles, index); }
bool zDropFighter(int16_t index) { return DropDesign(gFighters, index); }
bool zNoVehicles() { return IsBlank(gVehicles); }
bool zNoFighters() { return IsBlank(gFighters); }

void zNewDB() {
    zTrapVoid("zNewDB", [&] {
        std::string name = zTrim(zDlgSaveFile("New Database", 0, kDbFilter));
        if (name.empty()) return;
        // A name typed without an extension gets the one the open dialog
        // looks for.
        if (zGetFileFromPath(zNormalizePath(name)).find('.') == std::string::npos) name += ".bwd";
        if (zFileExists(name)) {
            // The doubled word is the program's own.
            if (zMsgBox("This file already already exists, overwrite it?", MsgButtons::YesNo, MsgIcon::Question,
                        "Overwrite?") != MsgResult::Yes)
                return;
        }
        std::error_code ec;
        std::filesystem::remove(zNormalizePath(name), ec);
        gDatabasePath = zNormalizePath(name);
        gVehicles.assign(1, std::make_shared<Vehicle>());
        gFighters.assign(1, std::make_shared<Fighter>());
    });
}

}  // namespace bw
