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

std::function<void(const std::string&)> gSetMainCaption;
std::function<int16_t(DesignKind, const std::string&, const std::string&)> gPickDesign;

namespace {

constexpr const char* kTempName = "tempdb.bwd";
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

// The whole file in one read: a database is read through from start to end
// anyway, and this keeps an open within a small multiple of a plain read.
BinaryReader ReadWholeFile(const std::string& path) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) zRaise(kErrFileNotFound);
    std::string bytes;
    long size = -1;
    if (std::fseek(f, 0, SEEK_END) == 0) size = std::ftell(f);
    std::rewind(f);
    // Straight into the string when the size is known; then whatever more
    // the file turns out to hold.
    if (size > 0) {
        bytes.resize(static_cast<size_t>(size));
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), f));
    }
    char buf[1 << 16];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) bytes.append(buf, n);
    const bool failed = std::ferror(f) != 0;
    std::fclose(f);
    if (failed) zRaise(kErrPathFileAccess);
    return BinaryReader(std::move(bytes));
}

void SetCaptionWithPath() {
    if (gSetMainCaption) gSetMainCaption(zAppTitle() + " - " + gDatabasePath);
}

bool SamePath(const std::string& a, const std::string& b) {
    return zLower(zNormalizePath(a)) == zLower(zNormalizePath(b));
}

// Writes the whole file through "tempdb.bwd" in the program's folder, flushed
// to disk, then renamed over the database: the old file is replaced in one
// step and never deleted first. A rename cannot cross file systems, and the
// program's folder may not be writable; in either case the temporary is
// written beside the database instead.
void WriteThroughTemp(const std::string& target, const std::string& bytes) {
    const std::string temp = zAppFile(kTempName);
    const std::string dest = zNormalizePath(target);
    int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) {
        zWriteFileAtomic(dest, bytes, kTempName);
        return;
    }
    size_t done = 0;
    bool good = true;
    while (good && done < bytes.size()) {
        const ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (w <= 0) good = false;
        else done += static_cast<size_t>(w);
    }
    good = ::fsync(fd) == 0 && good;
    good = ::close(fd) == 0 && good;
    if (!good) {
        ::unlink(temp.c_str());
        zRaise(kErrPathFileAccess);
    }
    if (std::rename(temp.c_str(), dest.c_str()) != 0) {
        const int err = errno;
        ::unlink(temp.c_str());
        if (err == EXDEV) {
            zWriteFileAtomic(dest, bytes, kTempName);
            return;
        }
        zRaise(kErrPathFileAccess);
    }
    const std::string folder = FolderOf(dest);
    int dfd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (dfd >= 0) {
        ::fsync(dfd);
        ::close(dfd);
    }
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

const char* VehicleTypeWord(int16_t t) {
    static const char* const words[] = {"tracked vehicle", "wheeled vehicle", "hovercraft", "V.T.O.L.",
                                        "hydrofoil",       "ship",            "submarine",  "super heavy tank"};
    return t >= 0 && t < 8 ? words[t] : "";
}

const char* FighterTypeWord(int16_t t) {
    static const char* const words[] = {"conventional fighter", "aerospace fighter", "omni-fighter"};
    return t >= 0 && t < 3 ? words[t] : "";
}

// The overwrite question; true when the user agrees.
bool AskOverwrite(int16_t techBase, const char* typeWord, const std::string& name) {
    // The two blanks after "already" are the program's own.
    const std::string text = std::string("There is already ") + (techBase == 0 ? " an Inner Sphere " : " a Clan ") +
                             typeWord + " named " + name + " in this database, would you like to overwrite it?";
    return zMsgBox(text, MsgButtons::YesNo, MsgIcon::Question, "Overwrite?") == MsgResult::Yes;
}

template <class T, class TypeOf>
void SaveDesign(std::vector<std::shared_ptr<T>>& table, const std::shared_ptr<T>& d, bool& ok, TypeOf typeOf,
                const char* (*typeWord)(int16_t)) {
    ok = false;
    size_t match = table.size();
    for (size_t i = 0; i < table.size(); ++i) {
        const auto& e = table[i];
        if (e && !e->Name.empty() && e->Name == d->Name && e->TechBase == d->TechBase && typeOf(*e) == typeOf(*d)) {
            match = i;
            break;
        }
    }
    if (match < table.size()) {
        if (!AskOverwrite(d->TechBase, typeWord(typeOf(*d)), d->Name)) return;
        table[match] = d;
    } else if (IsBlank(table)) {
        if (table.empty()) table.push_back(d);
        else table[0] = d;
    } else {
        table.push_back(d);
    }
    zSaveDatabase();
    ok = true;
}

template <class T>
void DeleteDesign(std::vector<std::shared_ptr<T>>& table, DesignKind kind, const std::string& caption,
                  const std::string& question, const std::string& lead) {
    const int16_t sel = gPickDesign ? gPickDesign(kind, caption, "&Delete") : -1;
    if (sel < 0 || static_cast<size_t>(sel) >= table.size() || !table[static_cast<size_t>(sel)]) return;
    T& d = *table[static_cast<size_t>(sel)];
    if (zMsgBox(lead + d.Name + "?", MsgButtons::YesNo, MsgIcon::Question, question) != MsgResult::Yes) return;
    d.Name.clear();
    zSaveDatabase();
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
        BinaryReader r = ReadWholeFile(found);
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
        // The tables are replaced as they are read: a damaged file leaves a
        // half-filled table while the path keeps its old value.
        if (!zReadDesignTables(r, gVehicles, gFighters)) {
            zPointerNormal();
            waiting = false;
            return;
        }
        gDatabasePath = found;
        SetCaptionWithPath();
        zPointerNormal();
        waiting = false;
    });
    if (waiting) zPointerNormal();
}

void zSaveDatabase() {
    if (gDatabasePath.empty()) {
        zMsgBox("You do not have a database open. You must open a valid database before attempting to save.",
                MsgButtons::OK, MsgIcon::Critical, "No database open");
        return;
    }
    zTrapVoid("zSaveDatabase", [&] {
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
            if (!v.SaveData(w)) {
                zMsgBox("There was an error while writing the data on the vehicle named " + v.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return;
            }
        }
        zCompactFTRArray();
        const int16_t nf = TableCountField(gFighters);
        w.I16(nf);
        for (int i = 0; i <= nf; ++i) {
            const Fighter& f = *gFighters[static_cast<size_t>(i)];
            if (!f.SaveData(w)) {
                zMsgBox("There was an error while writing the data on the fighter named " + f.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return;
            }
        }
        WriteThroughTemp(gDatabasePath, w.Data());
    });
}

void zSaveVehicle(const std::shared_ptr<Vehicle>& v, bool& ok) {
    ok = false;
    if (!v) return;
    zTrapVoid("zSaveVehicle", [&] {
        SaveDesign(gVehicles, v, ok, [](const Vehicle& x) { return x.VhlType; }, VehicleTypeWord);
    });
}

void zSaveFighter(const std::shared_ptr<Fighter>& f, bool& ok) {
    ok = false;
    if (!f) return;
    zTrapVoid("zSaveFighter", [&] {
        SaveDesign(gFighters, f, ok, [](const Fighter& x) { return x.FighterType; }, FighterTypeWord);
    });
}

void zDeleteVehicle() {
    zTrapVoid("zDeleteVehicle", [&] {
        DeleteDesign(gVehicles, DesignKind::Vehicle, "Delete Vehicle", "Delete Vehicle?",
                     "Are you sure you want to delete the vehicle named ");
    });
}

void zDeleteFighter() {
    zTrapVoid("zDeleteFighter", [&] {
        DeleteDesign(gFighters, DesignKind::Fighter, "Delete Fighter", "Delete Fighter?",
                     "Are you sure you want to delete the fighter named ");
    });
}

void zNewDB() {
    zTrapVoid("zNewDB", [&] {
        const std::string name = zTrim(zDlgSaveFile("New Database", 0, kDbFilter));
        if (name.empty()) return;
        if (zFileExists(name)) {
            // The doubled word is the program's own.
            if (zMsgBox("This file already already exists, overwrite it?", MsgButtons::YesNo, MsgIcon::Question,
                        "Overwrite?") != MsgResult::Yes)
                return;
        }
        std::error_code ec;
        std::filesystem::remove(zNormalizePath(name), ec);
        gDatabasePath = zNormalizePath(name);
        SetCaptionWithPath();
        gVehicles.assign(1, std::make_shared<Vehicle>());
        gFighters.assign(1, std::make_shared<Fighter>());
    });
}

int16_t zPickVehicleToOpen() {
    return zTrap<int16_t>("zOpenVehicle", -1, [&]() -> int16_t {
        if (IsBlank(gVehicles)) {
            zMsgBox("There are no vehicles within this database.", MsgButtons::OK, MsgIcon::Information,
                    "No Vehicles");
            return -1;
        }
        const int16_t sel = gPickDesign ? gPickDesign(DesignKind::Vehicle, "Open Vehicle", "&Open") : -1;
        return sel >= 0 && static_cast<size_t>(sel) < gVehicles.size() ? sel : -1;
    });
}

int16_t zPickFighterToOpen() {
    return zTrap<int16_t>("zOpenFighter", -1, [&]() -> int16_t {
        if (IsBlank(gFighters)) {
            zMsgBox("There are no fighters within this database.", MsgButtons::OK, MsgIcon::Information,
                    "No Fighters");
            return -1;
        }
        const int16_t sel = gPickDesign ? gPickDesign(DesignKind::Fighter, "Open Fighter", "&Open") : -1;
        return sel >= 0 && static_cast<size_t>(sel) < gFighters.size() ? sel : -1;
    });
}

}  // namespace bw
