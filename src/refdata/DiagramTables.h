// The armor and internal structure dot tables of the vehicle record sheets:
// where each printed dot of a location sits on a diagram.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bw {

struct DotRecord {
    int16_t diagram = 0;
    int16_t location = 0;
    std::vector<int16_t> X;
    std::vector<int16_t> Y;

    bool operator==(const DotRecord&) const = default;
};

extern std::vector<DotRecord> gArmorDots;
extern std::vector<DotRecord> gInternalDots;

constexpr const char* kArmorFile = "armorloc.bin";
constexpr const char* kInternalFile = "intloc.bin";
constexpr const char* kArmorCert = "Brasswick Works 3 Armor Database";
constexpr const char* kInternalCert = "Brasswick Works 3 Internal Database";
constexpr int16_t kDiagramVersion = 1;

// Load "armorloc.bin" / "intloc.bin" from the program's folder. False after
// telling the user.
bool zLoadArmor();
bool zLoadInternal();

// The complete file for a table under the given certification string.
// Raises overflow when a record holds more than 2^31-1 dots or the table
// more than 32768 records.
std::string zDiagramFileBytes(const std::string& cert, const std::vector<DotRecord>& records);

}  // namespace bw
