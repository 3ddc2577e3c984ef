// The weapon table's text source: its shape, the rows the rules find by
// name, the published values of well-known rows, and the frozen row order.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "refdata/Weapons.h"

using bw::WeaponRec;

namespace {

enum : int16_t { kEnergy, kBallistic, kMissile, kEquipment, kAmmo, kArtillery };
constexpr int16_t kIS = 0, kClan = 1;

// BW_WEAPONS_TSV checks a candidate table before it replaces the real one.
const char* Candidate() { return std::getenv("BW_WEAPONS_TSV"); }

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// The text source through the program's own strict reader: every row 20
// fields, numbers whole and in range; its field order is pinned by the
// loader tests, the values here by the published rows below.
const std::vector<WeaponRec>& Table() {
    static const std::vector<WeaponRec> rows = [] {
        const std::string path = Candidate() ? Candidate() : std::string(BW_SOURCE_DIR) + "/data/weapons.tsv";
        std::vector<WeaponRec> r;
        std::string error;
        if (!bw::zParseWeaponsText(ReadAll(path), path, r, error)) ADD_FAILURE() << error;
        return r;
    }();
    return rows;
}

const WeaponRec* Find(int16_t base, const std::string& name) {
    for (const WeaponRec& r : Table())
        if (r.Base == base && r.Name == name) return &r;
    return nullptr;
}

std::string Where(const WeaponRec& r) { return "row " + std::to_string(&r - Table().data()) + " " + r.Name; }

// The first published rows. Designs store row indexes, so these rows must
// keep their places; new rows are only ever appended.
constexpr size_t kPublishedRows = 247;

}  // namespace

TEST(WeaponTableText, EveryRowIsWellFormed) {
    ASSERT_GE(Table().size(), kPublishedRows);
    std::set<std::pair<int16_t, std::string>> seen;
    for (const WeaponRec& r : Table()) {
        SCOPED_TRACE(Where(r));
        EXPECT_TRUE(r.Base == kIS || r.Base == kClan);
        // Clan designs exist only at levels 2 and 3.
        EXPECT_GE(r.Level, r.Base == kClan ? 2 : 1);
        EXPECT_LE(r.Level, 3);
        EXPECT_GE(r.Type, 0);
        EXPECT_LE(r.Type, 5);
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

TEST(WeaponTableText, BuiltFileIsTheTableAndStaysUnderTheSixteenBitLimit) {
    // The start-up narrows each reference file's length to a signed 16-bit
    // integer: 32768 bytes or more would stop the program. Each row is three
    // counted texts, fifteen int16, the tonnage double and the int32 cost.
    size_t bytes = 45 + 2 + 2;
    for (const WeaponRec& r : Table())
        bytes += 3 * 2 + r.Name.size() + r.RangeUnit.size() + r.DamageUnit.size() + 15 * 2 + 8 + 4;
    // Leave room for rows appended later.
    EXPECT_LT(bytes, 24000u);
    if (Candidate()) return;  // a candidate table is not what the build encoded
    const std::string bin = ReadAll(std::string(BW_BIN_DIR) + "/weapons.bin");
    EXPECT_EQ(bin.size(), bytes);
    EXPECT_TRUE(bin == bw::zWeaponsFileBytes(Table())) << "weapons.bin is stale or differs from the table";
}

TEST(WeaponTableText, RowsTheRulesFindByNameExist) {
    for (int16_t base : {kIS, kClan}) {
        SCOPED_TRACE(base);
        for (const char* name : {"Cargo Space", "Passengers"}) {
            const WeaponRec* r = Find(base, name);
            ASSERT_NE(r, nullptr) << name;
            EXPECT_EQ(r->Type, kEquipment);
            // Offered from the lowest level of the base, and to every vehicle type.
            EXPECT_EQ(r->Level, base == kIS ? 1 : 2);
            EXPECT_NE(r->UseClass, 2);
            EXPECT_EQ(r->CombatValue, -1);
        }
        // Fighters keep cargo rows, found by the first five characters.
        int fighterCargo = 0;
        for (const WeaponRec& r : Table())
            if (r.Base == base && r.Name.rfind("Cargo", 0) == 0 && (r.UseClass == 0 || r.UseClass == 3))
                ++fighterCargo;
        EXPECT_GE(fighterCargo, 1);
    }
    // The mast-mount names of each base, found in that base only.
    const std::pair<int16_t, const char*> probes[] = {{kIS, "Beagle Active Probe"}, {kIS, "Bloodhound Active Probe"},
                                                      {kIS, "C(3) Slave"},          {kClan, "Active Probe"},
                                                      {kClan, "Watchdog System"}};
    for (const auto& [base, name] : probes) {
        const WeaponRec* r = Find(base, name);
        ASSERT_NE(r, nullptr) << name;
        EXPECT_EQ(r->Type, kEquipment);
        EXPECT_EQ(Find(base == kIS ? kClan : kIS, name), nullptr) << name;
    }
    // Only the two special rows may be named like them.
    for (const WeaponRec& r : Table())
        if (r.Name != "Cargo Space" && r.Name != "Passengers") { EXPECT_EQ(r.Name.find("Passengers"), std::string::npos); }
}

TEST(WeaponTableText, PublishedRowsKeepTheirPlacesOrderAndCounts) {
    const auto& t = Table();
    ASSERT_GE(t.size(), kPublishedRows);
    // Any change of base, name or place among the published rows changes this.
    uint64_t h = 0xcbf29ce484222325ull;
    for (size_t i = 0; i < kPublishedRows; ++i) {
        for (unsigned char c : std::to_string(t[i].Base) + "|" + t[i].Name + "\n") {
            h ^= c;
            h *= 0x100000001b3ull;
        }
    }
    EXPECT_EQ(h, 0xe4915e3ed06cf41dull);
    // Sorted by base, then category, then level, within the published rows,
    // with these many rows in each group.
    std::map<std::tuple<int, int, int>, int> n;
    for (size_t i = 0; i < kPublishedRows; ++i) {
        auto key = [&](const WeaponRec& r) { return std::tuple(r.Base, r.Type, r.Level); };
        if (i > 0) EXPECT_LE(key(t[i - 1]), key(t[i])) << Where(t[i]);
        ++n[key(t[i])];
    }
    const std::map<std::tuple<int, int, int>, int> want = {
        {{0, kEnergy, 1}, 5},     {{0, kEnergy, 2}, 7},     {{0, kEnergy, 3}, 5},    {{0, kBallistic, 1}, 6},
        {{0, kBallistic, 2}, 11}, {{0, kBallistic, 3}, 5},  {{0, kMissile, 1}, 7},   {{0, kMissile, 2}, 15},
        {{0, kMissile, 3}, 4},    {{0, kEquipment, 1}, 2},  {{0, kEquipment, 2}, 9}, {{0, kEquipment, 3}, 1},
        {{0, kAmmo, 1}, 14},      {{0, kAmmo, 2}, 35},      {{0, kAmmo, 3}, 9},      {{0, kArtillery, 2}, 4},
        {{1, kEnergy, 2}, 8},     {{1, kEnergy, 3}, 8},     {{1, kBallistic, 2}, 12}, {{1, kMissile, 2}, 22},
        {{1, kEquipment, 2}, 9},  {{1, kEquipment, 3}, 1},  {{1, kAmmo, 2}, 44},     {{1, kArtillery, 2}, 4},
    };
    EXPECT_EQ(n, want);
}

TEST(WeaponTableText, EveryAmmunitionUsingWeaponHasItsAmmunition) {
    const auto& t = Table();
    auto weaponOf = [&](const WeaponRec& ammo) -> const WeaponRec* {
        // The longest weapon name of the same base that prefixes the ammunition name.
        const WeaponRec* best = nullptr;
        for (const WeaponRec& w : t)
            if (w.Base == ammo.Base && w.Type != kAmmo && ammo.Name.rfind(w.Name + " ", 0) == 0 &&
                (!best || w.Name.size() > best->Name.size()))
                best = &w;
        return best;
    };
    std::set<const WeaponRec*> fed;
    for (const WeaponRec& a : t) {
        if (a.Type != kAmmo) continue;
        SCOPED_TRACE(Where(a));
        const WeaponRec* w = weaponOf(a);
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
    for (const WeaponRec& w : t) {
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
        const WeaponRec* r = Find(w.base, w.name);
        ASSERT_NE(r, nullptr);
        EXPECT_EQ(std::tuple(r->Tonnage, r->Heat, r->Damage, r->MinRange, r->ShortRange, r->MedRange, r->LongRange),
                  std::tuple(w.tons, w.heat, w.damage, w.minR, w.s, w.m, w.l));
        EXPECT_EQ(std::tuple(r->Cost, r->CombatValue, r->RangeUnit), std::tuple(w.cost, w.cv, std::string("Hex")));
    }
    const std::tuple<int16_t, const char*, int16_t, int32_t, double> ammo[] = {
        {kIS, "AC/20 Ammo", 5, 10000, 1},        {kIS, "Machine Gun Ammo", 200, 1000, 1},
        {kIS, "LRM 20 Ammo", 6, 30000, 1},       {kIS, "SRM 2 Ammo", 50, 27000, 1},
        {kIS, "Gauss Rifle Ammo", 8, 20000, 1},  {kClan, "LRM 5 Ammo", 24, 30000, 1},
        {kIS, "Machine Gun Ammo (1/2 ton)", 100, 500, 0.5},
    };
    for (const auto& [base, name, shots, cost, tons] : ammo) {
        SCOPED_TRACE(name);
        const WeaponRec* r = Find(base, name);
        ASSERT_NE(r, nullptr);
        EXPECT_EQ(std::tuple(r->Type, r->Shots, r->Cost, r->Tonnage), std::tuple(kAmmo, shots, cost, tons));
    }
}

TEST(WeaponTableText, ClusterWeaponsCarryPerMissileAndTotalDamage) {
    int cluster = 0;
    for (const WeaponRec& r : Table()) {
        SCOPED_TRACE(Where(r));
        if (r.HasDamageUnit == -1) {
            EXPECT_EQ(r.DamageUnit, "");
            continue;
        }
        ++cluster;
        EXPECT_EQ(r.Type, kMissile);
        EXPECT_EQ(r.DamageUnit, "Msl");
        EXPECT_GT(r.Damage, 0);
        // The total is the launcher's size, the number that ends its name,
        // times the per-missile damage.
        int size = std::stoi(r.Name.substr(r.Name.find_last_of(' ') + 1));
        EXPECT_EQ(r.HasDamageUnit, size * r.Damage);
    }
    EXPECT_GE(cluster, 40);
    EXPECT_EQ(Find(kClan, "ATM 12")->HasDamageUnit, 24);
}

TEST(WeaponTableText, ArtilleryReachesInMapSheets) {
    for (int16_t base : {kIS, kClan})
        for (const char* name : {"Arrow IV", "Long Tom", "Sniper", "Thumper"}) {
            SCOPED_TRACE(name);
            const WeaponRec* r = Find(base, name);
            ASSERT_NE(r, nullptr);
            EXPECT_EQ(r->Type, kArtillery);
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
    for (const WeaponRec& r : Table()) EXPECT_EQ(r.RangeUnit == "Map", r.Type == kArtillery) << Where(r);
}

TEST(WeaponTableText, UseClassesAndTargetingComputerFlags) {
    std::map<int, int> perClass;
    for (const WeaponRec& r : Table()) {
        ++perClass[r.UseClass];
        // Naval-only rows are the torpedoes and their ammunition.
        bool torpedo = r.Name.rfind("LRT ", 0) == 0 || r.Name.rfind("SRT ", 0) == 0;
        EXPECT_EQ(r.UseClass == 2, torpedo) << Where(r);
        // The targeting computer counts direct-fire weapons only.
        bool directFire = (r.Type == kEnergy || r.Type == kBallistic) && r.Damage > 0;
        EXPECT_EQ(r.TCFlag == 1, directFire) << Where(r);
    }
    EXPECT_EQ(perClass[2], 28);
    EXPECT_GT(perClass[0], 150);
    // A fighter of each base sees energy, ballistic and missile weapons and their ammunition.
    for (int16_t base : {kIS, kClan}) {
        std::set<int16_t> fighterTypes;
        for (const WeaponRec& r : Table())
            if (r.Base == base && (r.UseClass == 0 || r.UseClass == 3)) fighterTypes.insert(r.Type);
        EXPECT_EQ(fighterTypes, (std::set<int16_t>{kEnergy, kBallistic, kMissile, kEquipment, kAmmo}));
    }
    // Ground-only electronics stay off fighters; weapons do not.
    EXPECT_EQ(Find(kIS, "Guardian ECM Suite")->UseClass, 1);
    EXPECT_EQ(Find(kIS, "Medium Laser")->UseClass, 0);
    EXPECT_EQ(Find(kIS, "Passengers")->UseClass, 1);
}
