#include "refdata/Weapons.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/BinaryIO.h"
#include "core/Codepage.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Ui.h"

namespace bw {

std::vector<WeaponRec> gWeapons;

std::string zWeaponsFileBytes(const std::vector<WeaponRec>& rows) {
    if (rows.empty() || rows.size() > 32768) zRaise(kErrOverflow);
    BinaryWriter w;
    w.FixedPadded(kWeaponsCert, 45);
    w.I16(kWeaponsVersion);
    w.I16(static_cast<int16_t>(rows.size() - 1));
    for (const WeaponRec& r : rows) {
        w.VarText(r.Name);
        w.I16(r.Type);
        w.I16(r.Level);
        w.I16(r.Base);
        w.F64(r.Tonnage);
        w.I16(r.Heat);
        w.I16(r.Damage);
        w.I16(r.MinRange);
        w.I16(r.ShortRange);
        w.I16(r.MedRange);
        w.I16(r.LongRange);
        w.VarText(r.RangeUnit);
        w.I16(r.Reserved15);
        w.I32(r.Cost);
        w.I16(r.CombatValue);
        w.I16(r.Shots);
        w.VarText(r.DamageUnit);
        w.I16(r.HasDamageUnit);
        w.I16(r.UseClass);
        w.I16(r.TCFlag);
    }
    return w.Data();
}

namespace {

constexpr int kFieldCount = 20;
constexpr const char* kFieldNames[kFieldCount] = {
    "Base",       "Level",    "Type",      "Name",     "Heat",       "Damage",     "HasDamageUnit",
    "DamageUnit", "MinRange", "ShortRange", "MedRange", "LongRange",  "Tonnage",    "RangeUnit",
    "Reserved15", "Shots",    "CombatValue", "Cost",    "UseClass",   "TCFlag",
};

std::string Strip(const std::string& s) {
    size_t b = s.find_first_not_of(" \t");
    if (b == std::string::npos) return {};
    size_t e = s.find_last_not_of(" \t");
    return s.substr(b, e - b + 1);
}

bool ParseInt(const std::string& text, int64_t lo, int64_t hi, int64_t& out) {
    const std::string s = Strip(text);
    if (s.empty()) return false;
    size_t i = (s[0] == '-' || s[0] == '+') ? 1 : 0;
    if (i == s.size()) return false;
    for (size_t k = i; k < s.size(); ++k)
        if (s[k] < '0' || s[k] > '9') return false;
    if (s.size() - i > 12) return false;
    errno = 0;
    const long long v = std::strtoll(s.c_str(), nullptr, 10);
    if (errno != 0 || v < lo || v > hi) return false;
    out = v;
    return true;
}

bool ParseDouble(const std::string& text, double& out) {
    const std::string s = Strip(text);
    if (s.empty()) return false;
    char* end = nullptr;
    errno = 0;
    const double v = std::strtod(s.c_str(), &end);
    if (errno != 0 || end != s.c_str() + s.size() || !std::isfinite(v)) return false;
    out = v;
    return true;
}

std::vector<std::string> SplitTabs(const std::string& line) {
    std::vector<std::string> out(1);
    for (char c : line) {
        if (c == '\t')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

}  // namespace

bool zParseWeaponsText(const std::string& text, const std::string& fileName, std::vector<WeaponRec>& rows,
                       std::string& error) {
    rows.clear();
    size_t start = 0;
    int lineNo = 0;
    auto fail = [&](const std::string& what) {
        error = fileName + ":" + std::to_string(lineNo) + ": " + what;
        rows.clear();
        return false;
    };
    while (start < text.size()) {
        size_t nl = text.find('\n', start);
        if (nl == std::string::npos) nl = text.size();
        std::string line = text.substr(start, nl - start);
        start = nl + 1;
        ++lineNo;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (Strip(line).empty() || line[0] == '#') continue;

        const std::vector<std::string> f = SplitTabs(line);
        if (f.size() != kFieldCount)
            return fail("expected " + std::to_string(kFieldCount) + " tab-separated fields, found " +
                        std::to_string(f.size()));

        WeaponRec r;
        int16_t* const ints[kFieldCount] = {
            &r.Base,       &r.Level,    &r.Type,       nullptr,
            &r.Heat,       &r.Damage,   &r.HasDamageUnit, nullptr,
            &r.MinRange,   &r.ShortRange, &r.MedRange, &r.LongRange,
            nullptr,       nullptr,     &r.Reserved15, &r.Shots,
            &r.CombatValue, nullptr,    &r.UseClass,   &r.TCFlag,
        };
        for (int i = 0; i < kFieldCount; ++i) {
            if (!ints[i]) continue;
            int64_t v = 0;
            if (!ParseInt(f[i], std::numeric_limits<int16_t>::min(), std::numeric_limits<int16_t>::max(), v))
                return fail("field " + std::to_string(i + 1) + " (" + kFieldNames[i] +
                            ") is not a 16-bit integer: '" + f[i] + "'");
            *ints[i] = static_cast<int16_t>(v);
        }
        int64_t cost = 0;
        if (!ParseInt(f[17], std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max(), cost))
            return fail("field 18 (Cost) is not a 32-bit integer: '" + f[17] + "'");
        r.Cost = static_cast<int32_t>(cost);
        if (!ParseDouble(f[12], r.Tonnage)) return fail("field 13 (Tonnage) is not a number: '" + f[12] + "'");

        const int textFields[3] = {3, 7, 13};
        std::string* const texts[3] = {&r.Name, &r.DamageUnit, &r.RangeUnit};
        for (int k = 0; k < 3; ++k) {
            const int i = textFields[k];
            if (!zUtf8ToCp1252(f[i], *texts[k]))
                return fail("field " + std::to_string(i + 1) + " (" + kFieldNames[i] +
                            ") is not UTF-8 text that Windows-1252 can hold");
        }
        if (r.Name.empty()) return fail("field 4 (Name) is empty");
        if (rows.size() == 32768) return fail("more than 32768 rows");
        rows.push_back(std::move(r));
    }
    if (rows.empty()) {
        lineNo = 0;
        return fail("no rows");
    }
    error.clear();
    return true;
}

}  // namespace bw

// ---- loading ----------------------------------------------------------------

namespace bw {
namespace {

// Bytes of the smallest row: three empty texts, thirteen 16-bit fields, the
// tonnage and the cost.
constexpr size_t kMinWeaponRowBytes = 3 * 2 + 13 * 2 + 8 + 4;

std::string WeaponsClosing() {
    return std::string("Please goto the Tallowmere Workshop website at") + kSupportWeb +
           "to get a new weapon database.";
}

void Refuse(const std::string& text, const std::string& title) {
    zLog(text);
    zMsgBox(text, MsgButtons::OK, MsgIcon::Critical, title);
}

WeaponRec ReadWeapon(BinaryReader& r) {
    WeaponRec w;
    w.Name = r.VarText();
    w.Type = r.I16();
    w.Level = r.I16();
    w.Base = r.I16();
    w.Tonnage = r.F64();
    w.Heat = r.I16();
    w.Damage = r.I16();
    w.MinRange = r.I16();
    w.ShortRange = r.I16();
    w.MedRange = r.I16();
    w.LongRange = r.I16();
    w.RangeUnit = r.VarText();
    w.Reserved15 = r.I16();
    w.Cost = r.I32();
    w.CombatValue = r.I16();
    w.Shots = r.I16();
    w.DamageUnit = r.VarText();
    w.HasDamageUnit = r.I16();
    w.UseClass = r.I16();
    w.TCFlag = r.I16();
    return w;
}

}  // namespace

const WeaponRec& zWeaponRow(int32_t wType) {
    if (wType < 0 || static_cast<size_t>(wType) >= gWeapons.size()) zRaise(kErrSubscript);
    return gWeapons[static_cast<size_t>(wType)];
}

bool zLoadWeapons() {
    return zTrap<bool>("zLoadWeapons", false, [] {
        const std::string found = zDirFind(gAppPath, kWeaponsFile);
        if (zLower(found) != kWeaponsFile) {
            Refuse("Unable to find the weapons database file. " + WeaponsClosing(), "Unable to find file");
            return false;
        }
        BinaryReader r = BinaryReader::FromFile(zAppFile(found));
        if (r.FixedTrimmed(45) != kWeaponsCert) {
            Refuse("Unable to certify weapon database file. " + WeaponsClosing(), "Unable to certify file");
            return false;
        }
        const int16_t version = r.I16();
        if (version != kWeaponsVersion) {
            Refuse("You weapon database is out of date. This program is looking for a database of version " +
                       std::to_string(kWeaponsVersion) + " but your database is of version " +
                       std::to_string(version) + ". " + WeaponsClosing(),
                   "Wrong file version");
            return false;
        }
        const int16_t n = r.I16();
        if (n < 0) zRaise(kErrSubscript);
        const size_t rows = static_cast<size_t>(n) + 1;
        // A count the rest of the file cannot hold is a corrupt file, not a
        // reason to allocate.
        if (rows > r.Remaining() / kMinWeaponRowBytes) zRaise(kErrInputPastEnd);
        gWeapons.assign(rows, WeaponRec{});

        const int32_t h = zCInt(static_cast<double>(kRefHeaderBytes) / 10);
        const int32_t s = zCInt(static_cast<double>(gLenWeapons - h) / static_cast<double>(rows));
        for (size_t i = 0; i < rows; ++i) {
            gWeapons[i] = ReadWeapon(r);
            zSplashProgressSet(zCLng(h + static_cast<double>(static_cast<int64_t>(i) * s) / 10));
        }
        gSplashDone = zSplashProgressValue();
        return true;
    });
}

}  // namespace bw
