#include "database/DatabaseFile.h"

#include <bit>
#include <cstring>
#include <type_traits>
#include <string_view>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "database/RecordFields.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace bw {

void zWriteDatabaseHeader(BinaryWriter& w) {
    w.FixedPadded(kDbCertification, kDbCertificationLen);
    w.I16(kDbVersion);
}

void zWriteDesignName(BinaryWriter& w, const std::string& name) { w.FixedPadded(name, kDesignNameLen); }

std::string zReadDesignName(BinaryReader& r) {
    // Trimmed in place: one string per name, which tells on a large file.
    const size_t at = r.Pos();
    if (kDesignNameLen > r.Remaining()) zRaise(kErrInputPastEnd);
    const char* p = r.Data().data() + at;
    size_t b = 0, e = kDesignNameLen;
    while (b < e && p[b] == ' ') ++b;
    while (e > b && p[e - 1] == ' ') --e;
    r.Seek(at + kDesignNameLen);
    return std::string(p + b, e - b);
}

int16_t zReadItemCount(BinaryReader& r, size_t itemBytes) {
    const size_t at = r.Pos();
    const int16_t n = r.I16();
    // Left at the count field, so that a report names where the damage is.
    if (n < -1) {
        r.Seek(at);
        zRaise(kErrSubscript);
    }
    if (n >= 0 && (static_cast<size_t>(n) + 1) * itemBytes > r.Remaining()) {
        r.Seek(at);
        zRaise(kErrInputPastEnd);
    }
    return n;
}

// ---------------------------------------------------------------------------
// Vehicles

namespace {

// Inline field access over the reader's bytes, for the long runs of fields
// of a record: the same bounds check and error as BinaryReader, without a
// call per field. The reader's position follows when the cursor goes, and a
// failing read leaves it where that read began.
class Cursor {
public:
    explicit Cursor(BinaryReader& r)
        : r_(r), p_(reinterpret_cast<const unsigned char*>(r.Data().data())), pos_(r.Pos()), size_(r.Size()) {}
    ~Cursor() { r_.Seek(pos_); }
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    int16_t I16() {
        Need(2);
        const auto v = static_cast<uint16_t>(p_[pos_] | (p_[pos_ + 1] << 8));
        pos_ += 2;
        return static_cast<int16_t>(v);
    }
    double F64() {
        Need(8);
        uint64_t u = 0;
        if constexpr (std::endian::native == std::endian::little) {
            std::memcpy(&u, p_ + pos_, 8);
        } else {
            for (int i = 7; i >= 0; --i) u = (u << 8) | p_[pos_ + static_cast<size_t>(i)];
        }
        pos_ += 8;
        double d;
        std::memcpy(&d, &u, 8);
        return d;
    }

private:
    void Need(size_t n) const {
        if (n > size_ - pos_) zRaise(kErrInputPastEnd);
    }
    BinaryReader& r_;
    const unsigned char* p_;
    size_t pos_, size_;
};

// The writer's counterpart: whole fields appended at once.
struct Appender {
    std::string& s;
    void I16(int16_t v) const {
        const auto u = static_cast<uint16_t>(v);
        const char b[2] = {static_cast<char>(u & 0xFF), static_cast<char>(u >> 8)};
        s.append(b, 2);
    }
    void F64(double d) const {
        uint64_t u;
        std::memcpy(&u, &d, 8);
        char b[8];
        for (int i = 0; i < 8; ++i) b[i] = static_cast<char>((u >> (8 * i)) & 0xFF);
        s.append(b, 8);
    }
};

struct FieldWriter {
    Appender w;
    explicit FieldWriter(BinaryWriter& bw) : w{bw.Data()} {}
    void operator()(const char*, int16_t v) const { w.I16(v); }
    void operator()(const char*, double v) const { w.F64(v); }
};

struct FieldReader {
    Cursor& r;
    void operator()(const char*, int16_t& v) const { v = r.I16(); }
    void operator()(const char*, double& v) const { v = r.F64(); }
};

// The count field of a list: its highest index when element 0 is in use,
// otherwise -1 and no element follows (a list with a hole at 0 is empty).
template <class List, class Status>
int16_t CountField(const List& list, Status status) {
    if (list.empty() || status(list.front()) != kTrue) return -1;
    return zI16(static_cast<int64_t>(list.size()) - 1);
}

void ReadVehicleItems(BinaryReader& br, std::vector<VehicleItem>& items) {
    const int16_t n = zReadItemCount(br, kVehicleItemBytes);
    items.assign(n < 0 ? 1 : static_cast<size_t>(n) + 1, VehicleItem{});
    if (n < 0) return;
    Cursor r(br);
    for (auto& it : items) {
        it.wType = r.I16();
        it.wNum = r.I16();
        it.wLoc = r.I16();
        it.wStatus = r.I16();
    }
}

}  // namespace

namespace {

// Writes into room made beforehand: one size check per record instead of one
// per field (the field appends were most of a save's time).
struct PtrAppender {
    char* p;
    void I16(int16_t v) {
        const auto u = static_cast<uint16_t>(v);
        p[0] = static_cast<char>(u & 0xFF);
        p[1] = static_cast<char>(u >> 8);
        p += 2;
    }
    void F64(double d) {
        uint64_t u;
        std::memcpy(&u, &d, 8);
        for (int i = 0; i < 8; ++i) p[i] = static_cast<char>((u >> (8 * i)) & 0xFF);
        p += 8;
    }
};

}  // namespace

void zWriteVehicleRecord(BinaryWriter& w, const Vehicle& v) {
    zWriteDesignName(w, v.Name);
    const int16_t n = CountField(v.Items, [](const VehicleItem& it) { return it.wStatus; });
    std::string& s = w.Data();
    const size_t start = s.size();
    // Every field is at most 8 bytes; the exact length is set afterwards.
    s.resize(start + kVehicleFixedBytes + kVehicleItemBytes * (static_cast<size_t>(n) + 1));
    PtrAppender a{s.data() + start};
    zVisitVehicleFields(v, [&a](const char*, auto field) {
        if constexpr (std::is_same_v<decltype(field), double>) a.F64(field);
        else a.I16(field);
    });
    a.I16(n);
    for (int i = 0; i <= n; ++i) {
        const VehicleItem& it = v.Items[static_cast<size_t>(i)];
        a.I16(it.wType);
        a.I16(it.wNum);
        a.I16(it.wLoc);
        a.I16(it.wStatus);
    }
    s.resize(static_cast<size_t>(a.p - s.data()));
}

void zReadVehicleRecord(BinaryReader& r, Vehicle& v) {
    v.Name = zReadDesignName(r);
    {
        Cursor c(r);
        zVisitVehicleFields(v, FieldReader{c});
    }
    // Not in the file: the computer's location comes back as 0.
    v.TCLocation = 0;
    ReadVehicleItems(r, v.Items);
}

void zReadVehicleRecordV1(BinaryReader& r, Vehicle& v) {
    v.Name = zReadDesignName(r);
    {
        Cursor c(r);
        FieldReader read{c};
        // The older record has no corner armor: those four stay 0.
        zVisitVehicleFields(v, [&](const char* name, auto& field) {
            const std::string_view n(name);
            if (n == "FrontLeftArmor" || n == "FrontRightArmor" || n == "RearLeftArmor" || n == "RearRightArmor") return;
            read(name, field);
        });
    }
    v.TCLocation = 0;
    ReadVehicleItems(r, v.Items);
}

// ---------------------------------------------------------------------------
// Fighters

namespace {

void WriteWeapon(BinaryWriter& w, const FighterWeapon& e) {
    w.I16(e.wIdx);
    w.I16(e.wNum);
    w.I16(e.wBase);
    w.I16(e.wActive);
    w.I16(e.wSlot);
    w.I16(e.wLoc);
}

void WriteWeaponList(BinaryWriter& w, const std::vector<FighterWeapon>& list) {
    const int16_t n = CountField(list, [](const FighterWeapon& e) { return e.wActive; });
    w.I16(n);
    for (int i = 0; i <= n; ++i) WriteWeapon(w, list[static_cast<size_t>(i)]);
}

void ReadWeaponList(BinaryReader& br, std::vector<FighterWeapon>& list) {
    const int16_t n = zReadItemCount(br, kFighterWeaponBytes);
    list.assign(n < 0 ? 1 : static_cast<size_t>(n) + 1, FighterWeapon{});
    if (n < 0) return;
    Cursor r(br);
    for (auto& e : list) {
        e.wIdx = r.I16();
        e.wNum = r.I16();
        e.wBase = r.I16();
        e.wActive = r.I16();
        e.wSlot = r.I16();
        e.wLoc = r.I16();
    }
}

// The live list without holes: active entries in order, or one empty entry.
std::vector<FighterWeapon> Compacted(const std::vector<FighterWeapon>& list) {
    std::vector<FighterWeapon> out;
    for (const auto& e : list)
        if (e.wActive == kTrue) out.push_back(e);
    if (out.empty()) out.resize(1);
    return out;
}

template <class T>
void WriteArray16(BinaryWriter& w, const std::array<T, kOmniConfigs>& a) {
    for (T v : a) w.I16(v);
}
void WriteArrayF(BinaryWriter& w, const std::array<double, kOmniConfigs>& a) {
    for (double v : a) w.F64(v);
}
void ReadArray16(BinaryReader& r, std::array<int16_t, kOmniConfigs>& a) {
    for (auto& v : a) v = r.I16();
}
void ReadArrayF(BinaryReader& r, std::array<double, kOmniConfigs>& a) {
    for (auto& v : a) v = r.F64();
}

constexpr int16_t kOmniFighter = 2;

}  // namespace

void zWriteFighterRecord(BinaryWriter& w, const Fighter& f) {
    zWriteDesignName(w, f.Name);
    zVisitFighterHead(f, FieldWriter{w});
    if (f.FighterType != kOmniFighter) {
        zVisitFighterPlainTail(f, FieldWriter{w});
        // No hole is stored.
        WriteWeaponList(w, Compacted(f.Weapons));
        return;
    }
    w.I16(f.OmniBaseLocked);
    WriteArray16(w, f.OmniHasTC);
    WriteArrayF(w, f.OmniTCTonnage);
    WriteArray16(w, f.OmniTCLocation);
    WriteArray16(w, f.OmniWeaponHeat);
    WriteArrayF(w, f.OmniWeaponTonnage);
    WriteArrayF(w, f.OmniTotalTonnage);
    WriteArrayF(w, f.OmniFreeTonnage);
    for (const auto& list : f.OmniWeapons) WriteWeaponList(w, list);
    WriteArray16(w, f.OmniConfigUsed);
    WriteArray16(w, f.OmniFuelTonnage);
    WriteArray16(w, f.OmniHeatSinks);
    WriteArray16(w, f.OmniHeatSinkTonnage);
}

void zReadFighterRecord(BinaryReader& r, Fighter& f) {
    f.Name = zReadDesignName(r);
    {
        Cursor c(r);
        zVisitFighterHead(f, FieldReader{c});
    }
    if (f.FighterType != kOmniFighter) {
        {
            Cursor c(r);
            zVisitFighterPlainTail(f, FieldReader{c});
        }
        ReadWeaponList(r, f.Weapons);
        return;
    }
    f.OmniBaseLocked = r.I16();
    ReadArray16(r, f.OmniHasTC);
    ReadArrayF(r, f.OmniTCTonnage);
    ReadArray16(r, f.OmniTCLocation);
    ReadArray16(r, f.OmniWeaponHeat);
    ReadArrayF(r, f.OmniWeaponTonnage);
    ReadArrayF(r, f.OmniTotalTonnage);
    ReadArrayF(r, f.OmniFreeTonnage);
    for (auto& list : f.OmniWeapons) ReadWeaponList(r, list);
    ReadArray16(r, f.OmniConfigUsed);
    ReadArray16(r, f.OmniFuelTonnage);
    ReadArray16(r, f.OmniHeatSinks);
    ReadArray16(r, f.OmniHeatSinkTonnage);
    // The live fields show configuration 0; the live list is "Primary" once
    // the base is locked, the base itself before. The current configuration
    // is never stored and stays 0.
    f.HeatSinks = f.OmniHeatSinks[0];
    f.HeatSinkTonnage = f.OmniHeatSinkTonnage[0];
    f.FuelTonnage = f.OmniFuelTonnage[0];
    f.HasTC = f.OmniHasTC[0];
    f.TCTonnage = f.OmniTCTonnage[0];
    f.TCLocation = f.OmniTCLocation[0];
    f.WeaponHeat = f.OmniWeaponHeat[0];
    f.WeaponTonnage = f.OmniWeaponTonnage[0];
    f.Weapons = f.OmniWeapons[f.OmniBaseLocked == kTrue ? 1 : 0];
    f.OmniCurrentConfig = 0;
}

// ---------------------------------------------------------------------------
// Reporting wrappers and the tables

namespace {

// Both readers report under this name.
constexpr const char* kLoadProc = "Vehicle.LoadData";

template <class F>
int32_t LoadReported(F&& body) {
    try {
        body();
        return 0;
    } catch (const RunError& e) {
        zReportError(kLoadProc, e);
        return e.Number();
    } catch (const std::bad_alloc&) {
        zReportError(kLoadProc, RunError(kErrOutOfMemory));
        return kErrOutOfMemory;
    }
}

constexpr size_t kBlockDesigns = 256;

template <class T, class Load>
bool ReadTable(BinaryReader& r, std::vector<std::shared_ptr<T>>& table, Load load) {
    const int16_t n = r.I16();
    if (n < -1) zRaise(kErrSubscript);
    table.clear();
    if (n == -1) {
        table.push_back(std::make_shared<T>());
        return true;
    }
    // The designs live in blocks of a few hundred, each design sharing its
    // block's ownership: one allocation per block instead of one per design
    // (most of an open's time went there), and a hostile count costs one
    // block at most before the records are really there.
    std::shared_ptr<std::vector<T>> block;
    for (int i = 0; i <= n; ++i) {
        if (!block || block->size() == kBlockDesigns) {
            // Reserved whole: no design moves while the block fills.
            block = std::make_shared<std::vector<T>>();
            block->reserve(kBlockDesigns);
        }
        T& obj = block->emplace_back();
        const int32_t err = load(r, obj);
        table.emplace_back(block, &obj);
        if (err == kErrInputPastEnd) return false;
    }
    return true;
}

}  // namespace

bool SaveData(Vehicle& v, BinaryWriter& wFile) {
    return zTrap("Vehicle.SaveData", false, [&] {
        v.zCompactItems();
        zWriteVehicleRecord(wFile, v);
        return true;
    });
}

bool LoadData(Vehicle& v, BinaryReader& wFile) { return zLoadVehicleReported(wFile, v) == 0; }

bool SaveData(const Fighter& f, BinaryWriter& wFile) {
    return zTrap("Fighter.SaveData", false, [&] {
        zWriteFighterRecord(wFile, f);
        return true;
    });
}

bool LoadData(Fighter& f, BinaryReader& wFile) { return zLoadFighterReported(wFile, f) == 0; }

int32_t zLoadVehicleReported(BinaryReader& r, Vehicle& v) {
    return LoadReported([&] { zReadVehicleRecord(r, v); });
}

int32_t zLoadFighterReported(BinaryReader& r, Fighter& f) {
    return LoadReported([&] { zReadFighterRecord(r, f); });
}

bool zReadDesignTables(BinaryReader& r, std::vector<std::shared_ptr<Vehicle>>& vehicles,
                       std::vector<std::shared_ptr<Fighter>>& fighters) {
    if (!ReadTable(r, vehicles, zLoadVehicleReported)) return false;
    return ReadTable(r, fighters, zLoadFighterReported);
}

// ---------------------------------------------------------------------------
// The strict check

DatabaseCheck zCheckDatabaseBytes(const std::string& bytes) {
    DatabaseCheck out;
    BinaryReader r(bytes);
    std::string where = "header";
    size_t start = 0;
    auto fail = [&](const std::string& what) {
        out.ok = false;
        out.message = what + " at byte offset " + std::to_string(start) + " (" + where + ")";
        return out;
    };
    try {
        if (bytes.size() < kDbCertificationLen || r.FixedTrimmed(kDbCertificationLen) != kDbCertification)
            return fail("not certified as \"" + std::string(kDbCertification) + "\"");
        start = r.Pos();
        const int16_t version = r.I16();
        if (version != kDbVersion)
            return fail("version " + std::to_string(version) + ", expected " + std::to_string(kDbVersion));
        for (int table = 0; table < 2; ++table) {
            const char* kind = table == 0 ? "vehicle" : "fighter";
            start = r.Pos();
            where = std::string(kind) + " count field";
            const int16_t n = r.I16();
            if (n < -1) return fail("count field " + std::to_string(n) + " below -1");
            for (int i = 0; i <= n; ++i) {
                start = r.Pos();
                where = std::string(kind) + " " + std::to_string(i);
                if (table == 0) {
                    Vehicle v;
                    zReadVehicleRecord(r, v);
                    ++out.vehicles;
                } else {
                    Fighter f;
                    zReadFighterRecord(r, f);
                    ++out.fighters;
                }
            }
        }
    } catch (const RunError& e) {
        // The offset where the failing read began.
        std::string what = e.Number() == kErrInputPastEnd ? "truncated: read past the end of the file"
                           : e.Number() == kErrSubscript   ? "item count field below -1"
                                                           : e.Description();
        out.ok = false;
        out.message = what + " at byte offset " + std::to_string(r.Pos()) + " (" + where + ", which begins at " +
                      std::to_string(start) + ")";
        return out;
    }
    if (!r.AtEnd()) {
        start = r.Pos();
        where = "after the last fighter";
        return fail(std::to_string(r.Remaining()) + " stray bytes");
    }
    out.ok = true;
    out.message = "ok: " + std::to_string(out.vehicles) + " vehicles, " + std::to_string(out.fighters) + " fighters";
    return out;
}

}  // namespace bw
