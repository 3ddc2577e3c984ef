// The reference loaders in the order start-up runs them. Start-up lives
// below the tables, so its host hands these over.
#pragma once

#include <vector>

#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"

namespace bw {

inline std::vector<bool (*)()> zReferenceLoaders() { return {&zLoadWeapons, &zLoadArmor, &zLoadInternal}; }

}  // namespace bw
