// Designs and database files for the search tests.
#pragma once

#include <string>
#include <vector>

#include "core/BinaryIO.h"
#include "database/DatabaseFile.h"
#include "fighter/Fighter.h"
#include "search/SearchCriterion.h"
#include "vehicle/Vehicle.h"

namespace bw::test {

// An Inner Sphere level 1 tracked vehicle of 50 tons, cruise 4.
inline Vehicle Design(const std::string& name, int base = 0, int level = 1, int type = 0, int tons = 50,
                      int speed = 4) {
    Vehicle v;
    v.Name = name;
    v.TechBase = static_cast<int16_t>(base);
    v.TechLevel = static_cast<int16_t>(level);
    v.VhlType = static_cast<int16_t>(type);
    v.Tonnage = static_cast<int16_t>(tons);
    v.CruiseSpeed = static_cast<int16_t>(speed);
    return v;
}

// A criterion that lets every vehicle through.
inline SearchCriterion Any() {
    SearchCriterion c;
    c.TechBase = {true, true};
    c.TechLevel = {true, true, true};
    return c;
}

// The bytes of a database holding these designs (none: a blank table).
inline std::string DbBytes(const std::vector<Vehicle>& vehicles, const std::vector<Fighter>& fighters = {}) {
    BinaryWriter w;
    zWriteDatabaseHeader(w);
    w.I16(static_cast<int16_t>(static_cast<int>(vehicles.size()) - 1));
    for (const auto& v : vehicles) zWriteVehicleRecord(w, v);
    w.I16(static_cast<int16_t>(static_cast<int>(fighters.size()) - 1));
    for (const auto& f : fighters) zWriteFighterRecord(w, f);
    return w.Data();
}

}  // namespace bw::test
