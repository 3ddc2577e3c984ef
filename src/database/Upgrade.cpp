#include "database/Upgrade.h"

#include <filesystem>
#include <memory>
#include <vector>

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

// Reads one table: a count field, then that many records; -1 is one blank
// design. Any damage raises: an upgrade takes a whole file or nothing.
template <class T, class Read>
std::vector<std::shared_ptr<T>> ReadTable(BinaryReader& r, Read read) {
    const int16_t n = r.I16();
    if (n < -1) zRaise(kErrSubscript);
    std::vector<std::shared_ptr<T>> table;
    if (n == -1) {
        table.push_back(std::make_shared<T>());
        return table;
    }
    for (int i = 0; i <= n; ++i) {
        auto d = std::make_shared<T>();
        read(r, *d);
        table.push_back(std::move(d));
    }
    return table;
}

template <class T>
int16_t CountField(const std::vector<std::shared_ptr<T>>& table) {
    if (table.empty() || table[0]->Name.empty()) return -1;
    return zI16(static_cast<int64_t>(table.size()) - 1);
}

}  // namespace

bool zUpgradeV1DB(const std::string& path) {
    std::vector<std::shared_ptr<Vehicle>> vehicles;
    std::vector<std::shared_ptr<Fighter>> fighters;
    const bool loaded = zTrap("zUpgradeV1DB.LoadData", false, [&] {
        BinaryReader r(zReadWholeFile(path));
        r.Seek(kDbCertificationLen + 2);
        vehicles = ReadTable<Vehicle>(r, zReadVehicleRecordV1);
        fighters = ReadTable<Fighter>(r, zReadFighterRecord);
        // Bytes past the last record mean a count field that lies: the file
        // is damaged somewhere before its end.
        if (r.Pos() != r.Size()) zRaise(kErrInputPastEnd);
        return true;
    });
    if (!loaded) return false;

    const bool rebuilt = zTrap("zUpgradeV1DB.RebuildData", false, [&] {
        std::error_code ec;
        std::filesystem::remove(zAppFile("curupgdb.bwd"), ec);
        // The designs were read straight into the new layout; the corner
        // armor the older record lacks stays 0.
        return true;
    });
    if (!rebuilt) return false;

    return zTrap("zUpgradeV1DB.SaveData", false, [&] {
        BinaryWriter w;
        zWriteDatabaseHeader(w);
        w.I16(CountField(vehicles));
        for (int i = 0; i <= CountField(vehicles); ++i) {
            Vehicle& v = *vehicles[static_cast<size_t>(i)];
            if (!SaveData(v, w)) {
                zMsgBox("There was an error while writing the data on the vehicle named " + v.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return false;
            }
        }
        w.I16(CountField(fighters));
        for (int i = 0; i <= CountField(fighters); ++i) {
            const Fighter& f = *fighters[static_cast<size_t>(i)];
            if (!SaveData(f, w)) {
                zMsgBox("There was an error while writing the data on the fighter named " + f.Name +
                            ". Data was not saved.",
                        MsgButtons::OK, MsgIcon::Critical, "Error while writing");
                return false;
            }
        }
        // Replaced whole, as a save does: the old file stays until the new
        // one is complete on disk.
        zWriteFileAtomic(path, w.Data());
        return true;
    });
}

bool zUpgradeDatabase(const std::string& path, int16_t version) {
    if (version == 1 && zUpgradeV1DB(path)) {
        zOpenDatabase(path);
        return true;
    }
    zMsgBox(std::string("The upgrade failed. Please contact Tallowmere Workshop at ") + kSupportMail + ".",
            MsgButtons::OK, MsgIcon::Information, "Upgrade failed");
    return false;
}

bool zCheckUpgrade(const std::string& path) {
    if (path.empty()) return false;
    const std::string p = zNormalizePath(path);
    std::string found;
    try {
        found = zDirFind(zGetPathFromFile(p).empty() ? "." : zGetPathFromFile(p), zGetFileFromPath(p));
    } catch (const RunError&) {
        return false;
    }
    if (zLower(found) != zLower(zGetFileFromPath(p))) return false;
    const std::string file = zJoinPath(zGetPathFromFile(p), found);
    int16_t version = 0;
    const bool read = zTrap("zCheckUpgrade", false, [&] {
        BinaryReader r(zReadWholeFile(file));
        const std::string cert =
            r.Size() >= kDbCertificationLen ? r.FixedTrimmed(kDbCertificationLen) : std::string();
        if (cert != kDbCertification) {
            zMsgBox(
                "The Brasswick Works was unable to certify this database. This is either not a Brasswick Works v3 "
                "database, or it is corrupt.",
                MsgButtons::OK, MsgIcon::Information, "Unable to certify");
            return false;
        }
        version = r.I16();
        return true;
    });
    if (!read) return false;
    if (version == kDbVersion) {
        zMsgBox("This database does not need to upgraded since it is the version this executable is looking for. "
                "This database will not be opened normally.",
                MsgButtons::OK, MsgIcon::Information, "No upgrade needed");
        return false;
    }
    if (version > kDbVersion) {
        zMsgBox("This database is from a later executable. This is a version " + std::to_string(version) +
                    " database, but this program is looking for a version " + std::to_string(kDbVersion) +
                    " database. Please go to the Tallowmere Workshop website at " + kSupportWeb +
                    " to get the latest executable.",
                MsgButtons::OK, MsgIcon::Information, "Wrong DB version");
        return false;
    }
    return zUpgradeDatabase(file, version);
}

}  // namespace bw
