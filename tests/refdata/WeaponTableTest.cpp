// The weapon table's text source: its shape, the rows the rules find by
// name, the published values of well-known rows, and the frozen row order.
#include <gtest/gtest.h>

#include <iterator>

#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "core/Globals.h"
#include "refdata/Weapons.h"
#include "support/FakeUi.h"

namespace {

struct Row {
    int line = 0;
    int16_t Base = 0, Level = 0, Type = 0, Heat = 0, Damage = 0, HasDamageUnit = 0;
    std::string Name, DamageUnit, RangeUnit;
    int16_t MinRange = 0, ShortRange = 0, MedRange = 0, LongRange = 0, Reserved15 = 0;
    double Tonnage = 0;
    int16_t Shots = 0, CombatValue = 0, UseClass = 0, TCFlag = 0;
    int32_t Cost = 0;
};

enum : int16_t { kEnergy, kBallistic, kMissile, kEquipment, kAmmo, kArtillery };
constexpr int16_t kIS = 0, kClan = 1;

std::vector<std::string> Split(const std::string& s, char sep) {
    std::vector<std::string> out;
    std::string cur;
    for (char c : s) {
        if (c == sep) {
            out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    out.push_back(cur);
    return out;
}

int64_t Int(const std::string& s, int line, int64_t lo, int64_t hi) {
    size_t used = 0;
    int64_t v = std::stoll(s, &used);
    if (used != s.size() || v < lo || v > hi)
        throw std::runtime_error("line " + std::to_string(line) + ": bad number '" + s + "'");
    return v;
}

// Strict reader: every row exactly 20 fields, numbers whole and in range.
// BW_WEAPONS_TSV checks a candidate table before it replaces the real one.
std::string TablePath() {
    const char* over = std::getenv("BW_WEAPONS_TSV");
    return over ? std::string(over) : std::string(BW_SOURCE_DIR) + "/data/weapons.tsv";
}

std::vector<Row> ReadTable(std::string* error = nullptr) {
    std::ifstream in(TablePath(), std::ios::binary);
    std::vector<Row> rows;
    std::string text;
    int line = 0;
    try {
        if (!in) throw std::runtime_error("data/weapons.tsv not readable");
        while (std::getline(in, text)) {
            ++line;
            if (!text.empty() && text.back() == '\r') text.pop_back();
            if (text.empty() || text[0] == '#') continue;
            auto f = Split(text, '\t');
            if (f.size() != 20)
                throw std::runtime_error("line " + std::to_string(line) + ": " + std::to_string(f.size()) + " fields");
            auto i16 = [&](int k) { return static_cast<int16_t>(Int(f[k - 1], line, -32768, 32767)); };
            Row r;
            r.line = line;
            r.Base = i16(1);
            r.Level = i16(2);
            r.Type = i16(3);
            r.Name = f[3];
            r.Heat = i16(5);
            r.Damage = i16(6);
            r.HasDamageUnit = i16(7);
            r.DamageUnit = f[7];
            r.MinRange = i16(9);
            r.ShortRange = i16(10);
            r.MedRange = i16(11);
            r.LongRange = i16(12);
            size_t used = 0;
            r.Tonnage = std::stod(f[12], &used);
            if (used != f[12].size()) throw std::runtime_error("line " + std::to_string(line) + ": bad tonnage");
            r.RangeUnit = f[13];
            r.Reserved15 = i16(15);
            r.Shots = i16(16);
            r.CombatValue = i16(17);
            r.Cost = static_cast<int32_t>(Int(f[17], line, INT32_MIN, INT32_MAX));
            r.UseClass = i16(19);
            r.TCFlag = i16(20);
            rows.push_back(r);
        }
    } catch (const std::exception& e) {
        if (error) *error = e.what();
        return {};
    }
    return rows;
}

const std::vector<Row>& Table() {
    static const std::vector<Row> rows = ReadTable();
    return rows;
}

const Row* Find(int16_t base, const std::string& name) {
    for (const Row& r : Table())
        if (r.Base == base && r.Name == name) return &r;
    return nullptr;
}

std::string Where(const Row& r) { return "line " + std::to_string(r.line) + " " + r.Name; }

// Bytes of one row in weapons.bin: 2-byte counts before each of the three
// texts, fifteen int16, the tonnage double, the int32 cost.
size_t BinaryRowSize(const Row& r) {
    return 3 * 2 + r.Name.size() + r.RangeUnit.size() + r.DamageUnit.size() + 15 * 2 + 8 + 4;
}

// The first published rows. Designs store row indexes, so these rows must
// keep their places; new rows are only ever appended.
constexpr size_t kPublishedRows = 247;

}  // namespace

TEST(WeaponTableText, EveryRowIsWellFormed) {
    std::string error;
    auto rows = ReadTable(&error);
    ASSERT_EQ(error, "");
    ASSERT_GE(rows.size(), kPublishedRows);
    std::set<std::pair<int16_t, std::string>> seen;
    for (const Row& r : rows) {
        SCOPED_TRACE(Where(r));
        EXPECT_TRUE(r.Base == kIS || r.Base == kClan);
        // Clan designs exist only at levels 2 and 3.
        EXPECT_GE(r.Level, r.Base == kClan ? 2 : 1);
        EXPECT_LE(r.Level, 3);
        EXPECT_GE(r.Type, 0);
        EXPECT_LE(r.Type, 5);
        EXPECT_FALSE(r.Name.empty());
        EXPECT_EQ(r.Name.find_first_of("\t\"\r\n"), std::string::npos);
        EXPECT_EQ(r.Name, r.Name.substr(0, r.Name.find_last_not_of(' ') + 1)) << "trailing blank";
        EXPECT_TRUE(seen.insert({r.Base, r.Name}).second) << "duplicate name within its base";
        EXPECT_TRUE(r.RangeUnit == "Hex" || r.RangeUnit == "Map");
        EXPECT_GE(r.UseClass, 0);
        EXPECT_LE(r.UseClass, 3);
        EXPECT_TRUE(r.TCFlag == 0 || r.TCFlag == 1);
        EXPECT_GE(r.Tonnage, 0.0);
        EXPECT_EQ(r.Tonnage * 4, static_cast<int>(r.Tonnage * 4)) << "tonnage not in quarter tons";
        EXPECT_GE(r.Cost, -1);
        EXPECT_GE(r.CombatValue, -1);
        EXPECT_EQ(r.Reserved15, 0);
        for (int16_t v : {r.Heat, r.Damage, r.MinRange, r.ShortRange, r.MedRange, r.LongRange, r.Shots})
            EXPECT_GE(v, -1);
        // Bands that exist are increasing.
        if (r.ShortRange != -1 && r.MedRange != -1) { EXPECT_LT(r.ShortRange, r.MedRange); }
        if (r.MedRange != -1 && r.LongRange != -1) { EXPECT_LT(r.MedRange, r.LongRange); }
        if (r.MinRange != -1) { EXPECT_LE(r.MinRange, r.ShortRange); }
        // The file's text is single-byte: plain ASCII keeps it so.
        for (unsigned char c : r.Name) { EXPECT_LT(c, 0x80); }
    }
}

TEST(WeaponTableText, ReaderRejectsMalformedRows) {
    // The shape test above is only as good as its reader: a bad field must fail.
    EXPECT_THROW(Int("12x", 1, -32768, 32767), std::runtime_error);
    EXPECT_THROW(Int("40000", 1, -32768, 32767), std::runtime_error);
    EXPECT_EQ(Int("-1", 1, -32768, 32767), -1);
    EXPECT_EQ(Split("a\t\tb", '\t').size(), 3u);
}

TEST(WeaponTableText, BinaryStaysUnderTheSixteenBitLengthLimit) {
    // The start-up narrows each reference file's length to a signed 16-bit
    // integer: 32768 bytes or more would stop the program.
    size_t bytes = 45 + 2 + 2;
    for (const Row& r : Table()) bytes += BinaryRowSize(r);
    EXPECT_LT(bytes, 32768u);
    // Leave room for rows appended later.
    EXPECT_LT(bytes, 24000u);

    if (std::getenv("BW_WEAPONS_TSV")) return;  // a candidate table is not what the build encoded
    std::filesystem::path bin = std::filesystem::path(BW_BIN_DIR) / "weapons.bin";
    ASSERT_TRUE(std::filesystem::exists(bin));
    EXPECT_EQ(std::filesystem::file_size(bin), bytes);
}

TEST(WeaponTableText, BuiltFileHoldsExactlyTheseRows) {
    // The program's own reader and writer agree with this test's reader
    // field by field, and the build's weapons.bin is their encoding.
    std::ifstream in(TablePath(), std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<bw::WeaponRec> recs;
    std::string error;
    ASSERT_TRUE(bw::zParseWeaponsText(text, "weapons.tsv", recs, error)) << error;
    const auto& t = Table();
    ASSERT_EQ(recs.size(), t.size());
    for (size_t i = 0; i < t.size(); ++i) {
        const Row& r = t[i];
        const bw::WeaponRec& w = recs[i];
        SCOPED_TRACE(Where(r));
        EXPECT_EQ(w.Name, r.Name);
        EXPECT_EQ(std::tuple(w.Base, w.Level, w.Type, w.Heat, w.Damage, w.HasDamageUnit, w.MinRange),
                  std::tuple(r.Base, r.Level, r.Type, r.Heat, r.Damage, r.HasDamageUnit, r.MinRange));
        EXPECT_EQ(std::tuple(w.ShortRange, w.MedRange, w.LongRange, w.Reserved15, w.Shots, w.CombatValue),
                  std::tuple(r.ShortRange, r.MedRange, r.LongRange, r.Reserved15, r.Shots, r.CombatValue));
        EXPECT_EQ(std::tuple(w.Cost, w.UseClass, w.TCFlag, w.Tonnage, w.RangeUnit, w.DamageUnit),
                  std::tuple(r.Cost, r.UseClass, r.TCFlag, r.Tonnage, r.RangeUnit, r.DamageUnit));
    }
    if (std::getenv("BW_WEAPONS_TSV")) return;  // a candidate table is not what the build encoded
    std::ifstream bin(std::string(BW_BIN_DIR) + "/weapons.bin", std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(bin)), std::istreambuf_iterator<char>());
    EXPECT_TRUE(bytes == bw::zWeaponsFileBytes(recs)) << "weapons.bin is stale or differs from the table";
}

TEST(WeaponTableText, RowsTheRulesFindByNameExist) {
    for (int16_t base : {kIS, kClan}) {
        SCOPED_TRACE(base);
        for (const char* name : {"Cargo Space", "Passengers"}) {
            const Row* r = Find(base, name);
            ASSERT_NE(r, nullptr) << name;
            EXPECT_EQ(r->Type, kEquipment);
            // Offered from the lowest level of the base, and to every vehicle type.
            EXPECT_EQ(r->Level, base == kIS ? 1 : 2);
            EXPECT_NE(r->UseClass, 2);
            EXPECT_EQ(r->CombatValue, -1);
        }
        // Fighters keep cargo rows, found by the first five characters.
        int fighterCargo = 0;
        for (const Row& r : Table())
            if (r.Base == base && r.Name.rfind("Cargo", 0) == 0 && (r.UseClass == 0 || r.UseClass == 3))
                ++fighterCargo;
        EXPECT_GE(fighterCargo, 1);
    }
    // The mast-mount names of each base.
    for (const char* name : {"Beagle Active Probe", "Bloodhound Active Probe", "C(3) Slave"}) {
        const Row* r = Find(kIS, name);
        ASSERT_NE(r, nullptr) << name;
        EXPECT_EQ(r->Type, kEquipment);
        EXPECT_EQ(Find(kClan, name), nullptr) << name;
    }
    for (const char* name : {"Active Probe", "Watchdog System"}) {
        const Row* r = Find(kClan, name);
        ASSERT_NE(r, nullptr) << name;
        EXPECT_EQ(r->Type, kEquipment);
        EXPECT_EQ(Find(kIS, name), nullptr) << name;
    }
    // Only the two special rows may be named like them.
    for (const Row& r : Table())
        if (r.Name != "Cargo Space" && r.Name != "Passengers") { EXPECT_EQ(r.Name.find("Passengers"), std::string::npos); }
}

TEST(WeaponTableText, PublishedRowsKeepTheirPlacesAndOrder) {
    const auto& t = Table();
    ASSERT_GE(t.size(), kPublishedRows);
    struct Pin {
        size_t index;
        int16_t base;
        const char* name;
    };
    const Pin pins[] = {
        {0, kIS, "Small Laser"},      {1, kIS, "Medium Laser"},      {17, kIS, "Machine Gun"},
        {21, kIS, "AC/20"},   {33, kIS, "Gauss Rifle"},      {42, kIS, "LRM 20"},
        {65, kIS, "Cargo Space"},     {66, kIS, "Passengers"},       {73, kIS, "C(3) Slave"},
        {76, kIS, "Bloodhound Active Probe"}, {77, kIS, "Machine Gun Ammo"},
        {135, kIS, "Arrow IV"},       {138, kIS, "Thumper"},         {139, kClan, "ER Small Laser"},
        {141, kClan, "ER Large Laser"}, {166, kClan, "Gauss Rifle"}, {189, kClan, "Cargo Space"},
        {195, kClan, "Active Probe"}, {198, kClan, "Watchdog System"}, {246, kClan, "Thumper"},
    };
    for (const Pin& p : pins) {
        EXPECT_EQ(t[p.index].Name, p.name) << "row " << p.index;
        EXPECT_EQ(t[p.index].Base, p.base) << "row " << p.index;
    }
    // Any change of base, name or place among the published rows changes this.
    uint64_t h = 0xcbf29ce484222325ull;
    for (size_t i = 0; i < kPublishedRows; ++i) {
        for (unsigned char c : std::to_string(t[i].Base) + "|" + t[i].Name + "\n") {
            h ^= c;
            h *= 0x100000001b3ull;
        }
    }
    EXPECT_EQ(h, 0xe4915e3ed06cf41dull);
    // Sorted by base, then category, then level, within the published rows.
    for (size_t i = 1; i < kPublishedRows; ++i) {
        auto key = [&](const Row& r) { return std::tuple(r.Base, r.Type, r.Level); };
        EXPECT_LE(key(t[i - 1]), key(t[i])) << Where(t[i]);
    }
}

TEST(WeaponTableText, RowCountsPerBaseCategoryAndLevel) {
    std::map<std::tuple<int, int, int>, int> n;
    for (size_t i = 0; i < kPublishedRows; ++i) ++n[{Table()[i].Base, Table()[i].Type, Table()[i].Level}];
    auto at = [&](int b, int t, int l) { return n[{b, t, l}]; };
    // Inner Sphere.
    EXPECT_EQ(at(0, kEnergy, 1), 5);
    EXPECT_EQ(at(0, kEnergy, 2), 7);
    EXPECT_EQ(at(0, kEnergy, 3), 5);
    EXPECT_EQ(at(0, kBallistic, 1), 6);
    EXPECT_EQ(at(0, kBallistic, 2), 11);
    EXPECT_EQ(at(0, kBallistic, 3), 5);
    EXPECT_EQ(at(0, kMissile, 1), 7);
    EXPECT_EQ(at(0, kMissile, 2), 15);
    EXPECT_EQ(at(0, kMissile, 3), 4);
    EXPECT_EQ(at(0, kEquipment, 1), 2);
    EXPECT_EQ(at(0, kEquipment, 2), 9);
    EXPECT_EQ(at(0, kEquipment, 3), 1);
    EXPECT_EQ(at(0, kAmmo, 1), 14);
    EXPECT_EQ(at(0, kAmmo, 2), 35);
    EXPECT_EQ(at(0, kAmmo, 3), 9);
    EXPECT_EQ(at(0, kArtillery, 2), 4);
    // Clan.
    EXPECT_EQ(at(1, kEnergy, 2), 8);
    EXPECT_EQ(at(1, kEnergy, 3), 8);
    EXPECT_EQ(at(1, kBallistic, 2), 12);
    EXPECT_EQ(at(1, kMissile, 2), 22);
    EXPECT_EQ(at(1, kEquipment, 2), 9);
    EXPECT_EQ(at(1, kEquipment, 3), 1);
    EXPECT_EQ(at(1, kAmmo, 2), 44);
    EXPECT_EQ(at(1, kArtillery, 2), 4);
    int total = 0;
    for (auto& [k, v] : n) total += v;
    EXPECT_EQ(total, static_cast<int>(kPublishedRows));
}

TEST(WeaponTableText, EveryAmmunitionUsingWeaponHasItsAmmunition) {
    const auto& t = Table();
    auto weaponOf = [&](const Row& ammo) -> const Row* {
        // The longest weapon name of the same base that prefixes the ammunition name.
        const Row* best = nullptr;
        for (const Row& w : t)
            if (w.Base == ammo.Base && w.Type != kAmmo && ammo.Name.rfind(w.Name + " ", 0) == 0 &&
                (!best || w.Name.size() > best->Name.size()))
                best = &w;
        return best;
    };
    std::set<const Row*> fed;
    for (const Row& a : t) {
        if (a.Type != kAmmo) continue;
        SCOPED_TRACE(Where(a));
        const Row* w = weaponOf(a);
        ASSERT_NE(w, nullptr) << "ammunition for no weapon";
        fed.insert(w);
        EXPECT_EQ(a.Level, w->Level);
        EXPECT_EQ(a.UseClass, w->UseClass) << "ammunition offered where its weapon is not";
        EXPECT_GT(a.Shots, 0);
        EXPECT_GT(a.Cost, 0);
        EXPECT_LE(a.Tonnage, 1.0);
        EXPECT_GT(a.Tonnage, 0.0);
        // Ammunition deals no damage by itself in the damage report.
        EXPECT_LE(a.Damage, 0);
        EXPECT_EQ(a.RangeUnit, "Hex");
        EXPECT_EQ(a.TCFlag, 0);
    }
    for (const Row& w : t) {
        bool needsAmmo = w.Type == kBallistic || w.Type == kMissile || w.Type == kArtillery ||
                         w.Name == "Anti-Missile System";
        if (needsAmmo) {
            EXPECT_TRUE(fed.count(&w)) << Where(w) << " has no ammunition row";
        } else if (w.Type != kAmmo) {
            EXPECT_FALSE(fed.count(&w)) << Where(w) << " takes no ammunition";
        }
    }
}

TEST(WeaponTableText, PublishedValuesOfWellKnownRows) {
    struct Want {
        int16_t base;
        const char* name;
        double tons;
        int16_t heat, damage, minR, s, m, l;
        int32_t cost;
        int16_t cv;
    };
    const Want wants[] = {
        {kIS, "Medium Laser", 1, 3, 5, -1, 3, 6, 9, 40000, 46},
        {kIS, "Small Laser", 0.5, 1, 3, -1, 1, 2, 3, 11250, 9},
        {kIS, "PPC", 7, 10, 10, 3, 6, 12, 18, 200000, 176},
        {kIS, "AC/20", 14, 7, 20, -1, 3, 6, 9, 300000, 178},
        {kIS, "AC/2", 6, 1, 2, 4, 8, 16, 24, 75000, 37},
        {kIS, "Gauss Rifle", 15, 1, 15, 2, 7, 15, 22, 300000, 321},
        {kIS, "LRM 20", 10, 6, 1, 6, 7, 14, 21, 250000, 181},
        {kIS, "SRM 6", 3, 4, 2, -1, 3, 6, 9, 80000, 59},
        {kIS, "ER PPC", 7, 15, 10, -1, 7, 14, 23, 300000, 229},
        {kClan, "ER Large Laser", 4, 12, 10, -1, 8, 15, 25, 200000, 248},
        {kClan, "ER Medium Laser", 1, 5, 7, -1, 5, 10, 15, 80000, 108},
        {kClan, "Gauss Rifle", 12, 1, 15, 2, 7, 15, 22, 300000, 321},
        {kClan, "LRM 20", 5, 6, 1, -1, 7, 14, 21, 250000, 220},
        {kClan, "Streak SRM 6", 3, 4, 2, -1, 4, 8, 12, 120000, 119},
    };
    for (const Want& w : wants) {
        SCOPED_TRACE(std::string(w.base ? "Clan " : "IS ") + w.name);
        const Row* r = Find(w.base, w.name);
        ASSERT_NE(r, nullptr);
        EXPECT_EQ(r->Tonnage, w.tons);
        EXPECT_EQ(r->Heat, w.heat);
        EXPECT_EQ(r->Damage, w.damage);
        EXPECT_EQ(r->MinRange, w.minR);
        EXPECT_EQ(r->ShortRange, w.s);
        EXPECT_EQ(r->MedRange, w.m);
        EXPECT_EQ(r->LongRange, w.l);
        EXPECT_EQ(r->Cost, w.cost);
        EXPECT_EQ(r->CombatValue, w.cv);
        EXPECT_EQ(r->RangeUnit, "Hex");
    }
    struct Ammo {
        int16_t base;
        const char* name;
        int16_t shots;
        int32_t cost;
    };
    const Ammo ammo[] = {
        {kIS, "AC/20 Ammo", 5, 10000}, {kIS, "Machine Gun Ammo", 200, 1000},
        {kIS, "LRM 20 Ammo", 6, 30000},        {kIS, "SRM 2 Ammo", 50, 27000},
        {kIS, "Gauss Rifle Ammo", 8, 20000},   {kClan, "LRM 5 Ammo", 24, 30000},
        {kIS, "Machine Gun Ammo (1/2 ton)", 100, 500},
    };
    for (const Ammo& a : ammo) {
        SCOPED_TRACE(a.name);
        const Row* r = Find(a.base, a.name);
        ASSERT_NE(r, nullptr);
        EXPECT_EQ(r->Type, kAmmo);
        EXPECT_EQ(r->Shots, a.shots);
        EXPECT_EQ(r->Cost, a.cost);
    }
    EXPECT_EQ(Find(kIS, "Machine Gun Ammo (1/2 ton)")->Tonnage, 0.5);
}

TEST(WeaponTableText, ClusterWeaponsCarryPerMissileAndTotalDamage) {
    int cluster = 0;
    for (const Row& r : Table()) {
        SCOPED_TRACE(Where(r));
        if (r.HasDamageUnit == -1) {
            EXPECT_EQ(r.DamageUnit, "");
            continue;
        }
        ++cluster;
        EXPECT_EQ(r.Type, kMissile);
        EXPECT_EQ(r.DamageUnit, "Msl");
        EXPECT_GT(r.Damage, 0);
        // The total is a whole number of missiles of the per-missile damage,
        // and the launcher's size is the number that ends its name.
        EXPECT_EQ(r.HasDamageUnit % r.Damage, 0);
        int size = std::stoi(r.Name.substr(r.Name.find_last_of(' ') + 1));
        EXPECT_EQ(r.HasDamageUnit, size * r.Damage);
    }
    EXPECT_GE(cluster, 40);
    EXPECT_EQ(Find(kIS, "LRM 20")->HasDamageUnit, 20);
    EXPECT_EQ(Find(kIS, "SRM 6")->HasDamageUnit, 12);
    EXPECT_EQ(Find(kIS, "MRM 40")->HasDamageUnit, 40);
    EXPECT_EQ(Find(kClan, "ATM 12")->HasDamageUnit, 24);
    // Direct-fire single-shot weapons show plain damage.
    EXPECT_EQ(Find(kIS, "AC/20")->HasDamageUnit, -1);
}

TEST(WeaponTableText, ArtilleryReachesInMapSheets) {
    for (int16_t base : {kIS, kClan})
        for (const char* name : {"Arrow IV", "Long Tom", "Sniper", "Thumper"}) {
            SCOPED_TRACE(name);
            const Row* r = Find(base, name);
            ASSERT_NE(r, nullptr);
            EXPECT_EQ(r->Type, kArtillery);
            EXPECT_EQ(r->RangeUnit, "Map");
            EXPECT_EQ(r->ShortRange, -1);
            EXPECT_EQ(r->MedRange, -1);
            EXPECT_GT(r->LongRange, 0);
            EXPECT_GT(r->Damage, 0);
            // Not offered to fighters.
            EXPECT_EQ(r->UseClass, 1);
        }
    EXPECT_EQ(Find(kIS, "Arrow IV")->LongRange, 8);
    EXPECT_EQ(Find(kClan, "Arrow IV")->LongRange, 9);
    EXPECT_EQ(Find(kIS, "Long Tom")->Tonnage, 30);
    for (const Row& r : Table())
        if (r.Type != kArtillery) { EXPECT_EQ(r.RangeUnit, "Hex") << Where(r); }
}

TEST(WeaponTableText, UseClassesFollowWhoMayMountEachRow) {
    std::map<int, int> perClass;
    for (const Row& r : Table()) {
        ++perClass[r.UseClass];
        // Naval-only rows are the torpedoes and their ammunition.
        bool torpedo = r.Name.rfind("LRT ", 0) == 0 || r.Name.rfind("SRT ", 0) == 0;
        EXPECT_EQ(r.UseClass == 2, torpedo) << Where(r);
    }
    EXPECT_EQ(perClass[2], 28);
    EXPECT_GT(perClass[0], 150);
    // A fighter of each base sees energy, ballistic and missile weapons and their ammunition.
    for (int16_t base : {kIS, kClan}) {
        std::set<int16_t> fighterTypes;
        for (const Row& r : Table())
            if (r.Base == base && (r.UseClass == 0 || r.UseClass == 3)) fighterTypes.insert(r.Type);
        EXPECT_EQ(fighterTypes, (std::set<int16_t>{kEnergy, kBallistic, kMissile, kEquipment, kAmmo}));
    }
    // Ground-only electronics stay off fighters; weapons do not.
    EXPECT_EQ(Find(kIS, "Guardian ECM Suite")->UseClass, 1);
    EXPECT_EQ(Find(kIS, "Medium Laser")->UseClass, 0);
    EXPECT_EQ(Find(kIS, "Passengers")->UseClass, 1);
}

TEST(WeaponTableText, TargetingComputerCountsDirectFireWeaponsOnly) {
    for (const Row& r : Table()) {
        bool directFire = (r.Type == kEnergy || r.Type == kBallistic) && r.Damage > 0;
        EXPECT_EQ(r.TCFlag == 1, directFire) << Where(r);
    }
}

TEST(WeaponTableText, ProgramLoadsTheBuiltTable) {
    if (std::getenv("BW_WEAPONS_TSV")) GTEST_SKIP() << "a candidate table is not what the build encoded";
    bw::test::ScopedFakeUi fake;
    const std::string savedPath = bw::gAppPath;
    bw::SetAppPath(BW_BIN_DIR);
    bw::gLenWeapons = static_cast<int16_t>(std::filesystem::file_size(std::filesystem::path(BW_BIN_DIR) / "weapons.bin"));
    bw::gWeapons.clear();
    const bool ok = bw::zLoadWeapons();
    bw::SetAppPath(savedPath);
    ASSERT_TRUE(ok);
    EXPECT_TRUE(fake.ui.boxes.empty());
    const auto& t = Table();
    ASSERT_EQ(bw::gWeapons.size(), t.size());
    for (size_t i = 0; i < t.size(); ++i) {
        EXPECT_EQ(bw::gWeapons[i].Name, t[i].Name) << "row " << i;
        EXPECT_EQ(bw::gWeapons[i].Base, t[i].Base) << "row " << i;
        EXPECT_EQ(bw::gWeapons[i].Tonnage, t[i].Tonnage) << "row " << i;
        EXPECT_EQ(bw::gWeapons[i].Cost, t[i].Cost) << "row " << i;
    }
    // The rows the allocation and fighter rules look up by name, as loaded.
    std::set<std::string> names;
    for (const auto& w : bw::gWeapons) names.insert(w.Name);
    for (const char* n : {"Cargo Space", "Passengers", "Beagle Active Probe", "Bloodhound Active Probe", "C(3) Slave",
                          "Active Probe", "Watchdog System"})
        EXPECT_TRUE(names.count(n)) << n;
    bw::gWeapons.clear();
}
