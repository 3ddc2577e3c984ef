// Rewriting a version 1 database in place as a version 2 database.
#pragma once

#include <cstdint>
#include <string>

namespace bw {

// The tests before an upgrade, each refusal with its box; true when the
// file was upgraded (and the result opened).
bool zCheckUpgrade(const std::string& path);
// Runs the upgrade for the version found; "Upgrade failed" for any version
// but 1 and for a failed upgrade. True when upgraded and opened.
bool zUpgradeDatabase(const std::string& path, int16_t version);
// Reads the version 1 tables, rebuilds them as version 2 and replaces the
// file whole; false, reported, with the old file untouched, on any failure.
bool zUpgradeV1DB(const std::string& path);

}  // namespace bw
