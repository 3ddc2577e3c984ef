#include "DatabaseFuzz.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "database/DatabaseOps.h"
#include "core/Ui.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

// The image a save would write of these tables, blank designs dropped;
// empty when a record cannot be written.
template <class V, class F>
std::string Image(const V& vehicles, const F& fighters) {
    try {
        BinaryWriter w;
        zWriteDatabaseHeader(w);
        std::vector<const Vehicle*> vs;
        for (const auto& v : vehicles)
            if (!v->Name.empty()) vs.push_back(v.get());
        w.I16(static_cast<int16_t>(static_cast<int>(vs.size()) - 1));
        for (const Vehicle* v : vs) zWriteVehicleRecord(w, *v);
        std::vector<const Fighter*> fs;
        for (const auto& f : fighters)
            if (!f->Name.empty()) fs.push_back(f.get());
        w.I16(static_cast<int16_t>(static_cast<int>(fs.size()) - 1));
        for (const Fighter* f : fs) zWriteFighterRecord(w, *f);
        return w.Data();
    } catch (const RunError&) {
        return {};
    }
}

}  // namespace

void zFuzzDatabaseInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const DatabaseCheck check = zCheckDatabaseBytes(bytes);
    if (check.message.empty()) std::abort();

    // The program's reader starts after the header whatever it holds.
    BinaryReader r(bytes);
    if (size < kDbCertificationLen + 2) return;
    r.Seek(kDbCertificationLen + 2);
    std::vector<std::shared_ptr<Vehicle>> vehicles;
    std::vector<std::shared_ptr<Fighter>> fighters;
    bool complete = false;
    try {
        complete = zReadDesignTables(r, vehicles, fighters);
    } catch (const RunError& e) {
        // Only a table's own count field raises; the program's open traps it.
        if (e.Number() != kErrInputPastEnd && e.Number() != kErrSubscript) std::abort();
    }
    if (complete && (vehicles.empty() || fighters.empty())) std::abort();
    if (check.ok && !complete) std::abort();
    if (!check.ok || !complete) return;

    // Saving what was read, reading that and saving again gives the same
    // bytes: whatever a first save normalises, a second keeps.
    const std::string first = Image(vehicles, fighters);
    if (first.empty()) return;
    if (!zCheckDatabaseBytes(first).ok) std::abort();
    BinaryReader r2(first);
    r2.Seek(kDbCertificationLen + 2);
    std::vector<std::shared_ptr<Vehicle>> v2;
    std::vector<std::shared_ptr<Fighter>> f2;
    if (!zReadDesignTables(r2, v2, f2)) std::abort();
    if (Image(v2, f2) != first) std::abort();
}

void zFuzzReferenceInput(const uint8_t* data, size_t size, const std::string& scratchFolder) {
    if (gAppPath != scratchFolder) SetAppPath(scratchFolder);
    gLogFile = "/dev/null";
    for (const char* name : {kWeaponsFile, kArmorFile, kInternalFile}) {
        std::ofstream out(zAppFile(name), std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    gLenWeapons = gLenArmor = gLenInternal = static_cast<int16_t>(size > 32767 ? 32767 : size);
    zLoadWeapons();
    zLoadArmor();
    zLoadInternal();
}

namespace {

// Every key answers with the same text: the fuzz input.
class TextStore final : public ISettingsStore {
public:
    explicit TextStore(std::string text) : text_(std::move(text)) {}
    std::string Get(const std::string&, const std::string&, const std::string&) override { return text_; }
    void Set(const std::string&, const std::string&, const std::string&) override {}

private:
    std::string text_;
};

}  // namespace

void zFuzzProgramOpenSave(const uint8_t* data, size_t size, const std::string& scratchFolder) {
    if (gAppPath != scratchFolder) SetAppPath(scratchFolder);
    gLogFile = "/dev/null";
    const std::string path = zJoinPath(scratchFolder, "fuzz.bwd");
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    zResetDatabase();
    zOpenDatabase(path);
    // A refused or damaged file leaves the blank database, path and all.
    if (gDatabasePath.empty()) {
        if (gVehicles.size() != 1 || gFighters.size() != 1 || !gVehicles[0]->Name.empty()) std::abort();
        return;
    }
    if (!zSaveDatabase()) return;  // a design that cannot be written is refused whole
    const std::string first = zReadWholeFile(path);
    if (!zCheckDatabaseBytes(first).ok) std::abort();
    zOpenDatabase(path);
    if (!zSaveDatabase() || zReadWholeFile(path) != first) std::abort();
}

void zFuzzParmAndSettings(const uint8_t* data, size_t size, const std::string& scratchFolder) {
    if (gAppPath != scratchFolder) SetAppPath(scratchFolder);
    const std::string text(reinterpret_cast<const char*>(data), size);
    {
        std::ofstream out(zAppFile("parm.txt"), std::ios::binary | std::ios::trunc);
        out << text;
    }
    zHasParm("Special Menu");
    zHasParm("Ignore Version");
    TextStore store(text);
    ISettingsStore* before = &gSettingsStore();
    SetSettingsStore(&store);
    try {
        zLoadSettings();
    } catch (const RunError&) {
        // A value that is no number is the run-time's type mismatch, which
        // start-up reports; anything else escaping is a fault.
    }
    SetSettingsStore(before);
}

}  // namespace bw
