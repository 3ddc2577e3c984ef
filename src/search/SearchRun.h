// The run of a search over database files: the validity check, the reading
// of one database into the loaded lists, and the scan of its vehicles. The
// files are only read; the open database is never touched.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "search/SearchCriterion.h"

namespace bw {

class Vehicle;
class Fighter;

// Reads the header and compares it with the certification and the version;
// a refusal shows its message (titled "Unable to certify" or "Wrong DB
// version") and gives false. A file that is missing or too short is not
// certified.
void TValidDatabase(const std::string& path, bool& ok);

// The contents of the database being read.
struct LoadedDatabase {
    std::vector<std::shared_ptr<Vehicle>> vehicles;
    std::vector<std::shared_ptr<Fighter>> fighters;
    // The lists hold at least one entry; an empty first name means none.
    bool HasVehicles() const;
    bool HasFighters() const;
};

// Reads the header and counts without checking them, then every vehicle and
// every fighter, each by its own reader, under a busy pointer. A record that
// fails is reported and ends the read: false, and the lists are then
// unusable. Errors of the file itself are reported under "zOpenDB".
bool zOpenDB(const std::string& path, LoadedDatabase& db);

// One match: what the results list shows and what reopens the design.
struct SearchMatch {
    std::string Name;
    int16_t VhlType = 0;
    int16_t TechBase = 0;
    int16_t TechLevel = 0;
    int16_t Tonnage = 0;
    int16_t CruiseSpeed = 0;
    std::string Database;
    int32_t Index = 0;  // the vehicle's index in its table
};

// The search of one listed database: every vehicle in file order through
// ProcessVehicle, then every fighter through ProcessFighter, as zOpenDB
// reads them; then each match is handed to found. keepGoing is asked every
// few hundred designs; false ends the scan with the matches so far. A file
// that fails to read is reported (as zOpenDB does), gives no match and false.
bool zSearchDatabase(const std::string& path, const std::vector<SearchCriterion>& criteria,
                     const std::function<void(const SearchMatch&)>& found,
                     const std::function<bool()>& keepGoing = {});

// One match as a JSON object on one line: Name, Type (the type name), Base,
// Level, Tonnage, Speed, Database, Index.
std::string zMatchToJson(const SearchMatch& m);

// A result row's key: the vehicle's index joined with its database.
std::string zResultKey(int32_t index, const std::string& database);
bool zParseResultKey(const std::string& key, int32_t& index, std::string& database);

}  // namespace bw
