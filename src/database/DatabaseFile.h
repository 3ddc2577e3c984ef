// The database file: its header, the record layouts of vehicles and
// fighters, and a strict whole-file check.
//
// A database is read through from start to end: there is no index and no
// record length, so a reader can only step over a design by reading it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace bw {

class BinaryReader;
class BinaryWriter;
class Vehicle;
class Fighter;

constexpr const char* kDbCertification = "Brasswick Works 3 Database";
constexpr size_t kDbCertificationLen = 30;
constexpr int16_t kDbVersion = 2;
constexpr size_t kDesignNameLen = 50;
constexpr size_t kVehicleItemBytes = 8;
constexpr size_t kFighterWeaponBytes = 12;
// The fixed parts of the two records, without their item lists.
constexpr size_t kVehicleFixedBytes = 376;  // the item count field included
constexpr size_t kFighterHeadBytes = 146;   // the common head before the fork

// Certification string and version.
void zWriteDatabaseHeader(BinaryWriter& w);

// A name: 50 bytes, blank-padded on the right, cut at 50; read back with
// blanks stripped from both ends.
void zWriteDesignName(BinaryWriter& w, const std::string& name);
std::string zReadDesignName(BinaryReader& r);

// An item count field: -1 or the highest index. A count below -1 raises
// subscript out of range (9); a count whose items cannot fit in the bytes
// left raises input past end (62) before anything is allocated.
int16_t zReadItemCount(BinaryReader& r, size_t itemBytes);

// A design's record, at the writer's end or from the reader's position into
// a fresh object; false after a run-time error, which has been reported.
// Saving a vehicle compacts its item list first, so no hole is ever stored.
bool SaveData(Vehicle& v, BinaryWriter& wFile);
bool LoadData(Vehicle& v, BinaryReader& wFile);
bool SaveData(const Fighter& f, BinaryWriter& wFile);
bool LoadData(Fighter& f, BinaryReader& wFile);

// The strict record readers and writers: they raise the run-time error and
// report nothing. SaveData and LoadData wrap them in the reporter.
void zReadVehicleRecord(BinaryReader& r, Vehicle& v);
// The version 1 vehicle record: the same but for the four corner armor
// fields, which it lacks (they stay 0).
void zReadVehicleRecordV1(BinaryReader& r, Vehicle& v);
void zWriteVehicleRecord(BinaryWriter& w, const Vehicle& v);
void zReadFighterRecord(BinaryReader& r, Fighter& f);
void zWriteFighterRecord(BinaryWriter& w, const Fighter& f);

// Reads one record, reporting a failure under "Vehicle.LoadData" (the
// fighter reader has always reported under the vehicle's name). Returns
// the error number, 0 on success.
int32_t zLoadVehicleReported(BinaryReader& r, Vehicle& v);
int32_t zLoadFighterReported(BinaryReader& r, Fighter& f);

// Reads the two tables that follow the header. A table is never empty: a
// count field of -1 gives one blank object. A failing record is reported
// once; the load goes on with the next record, except that a read past the
// end of the file ends it (every later read would fail the same way), and
// then false is returned. The tables hold what was read so far. A table's
// own count field that is cut raises 62, one below -1 raises 9.
bool zReadDesignTables(BinaryReader& r, std::vector<std::shared_ptr<Vehicle>>& vehicles,
                       std::vector<std::shared_ptr<Fighter>>& fighters);

// The outcome of a strict check of a whole file.
struct DatabaseCheck {
    bool ok = false;
    std::string message;  // one line saying what is wrong and where
    int vehicles = 0;     // records parsed
    int fighters = 0;
};

// Certifies the bytes, requires version 2, parses every record with the
// strict readers and requires the parse to end exactly at the last byte.
DatabaseCheck zCheckDatabaseBytes(const std::string& bytes);

}  // namespace bw
