// A search over 50 databases of 1,000 vehicles each against reading the
// same files plainly, side by side in one run. The search, with its
// validity check of each file and a criteria list that tests every section,
// should stay within 3 times the plain read.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "core/BinaryIO.h"
#include "core/Globals.h"
#include "database/DatabaseFile.h"
#include "search/SearchRun.h"
#include "vehicle/Vehicle.h"

namespace {

constexpr int kDatabases = 50;
constexpr int kVehicles = 1000;
constexpr int kItems = 20;

struct Fixture {
    std::filesystem::path dir;
    std::vector<std::string> files;
    size_t bytes = 0;

    Fixture() {
        dir = std::filesystem::temp_directory_path() / ("bwsearch-" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir);
        bw::gLogFile = "/dev/null";
        for (int d = 0; d < kDatabases; ++d) {
            bw::BinaryWriter w;
            bw::zWriteDatabaseHeader(w);
            w.I16(kVehicles - 1);
            for (int i = 0; i < kVehicles; ++i) {
                bw::Vehicle v;
                v.Name = "Vehicle " + std::to_string(d) + "-" + std::to_string(i);
                v.VhlType = static_cast<int16_t>(i % 8);
                v.Tonnage = static_cast<int16_t>(5 + i % 100);
                v.TechBase = static_cast<int16_t>(i % 2);
                v.TechLevel = static_cast<int16_t>(1 + i % 3);
                v.CruiseSpeed = static_cast<int16_t>(1 + i % 9);
                v.HasTurret = i % 3 == 0 ? -1 : 0;
                v.Items.assign(kItems, bw::VehicleItem{});
                for (int k = 0; k < kItems; ++k)
                    v.Items[static_cast<size_t>(k)] = bw::VehicleItem{static_cast<int16_t>(k % 7),
                                                                     static_cast<int16_t>(k / 7 + 1), 0, -1};
                bw::zWriteVehicleRecord(w, v);
            }
            w.I16(-1);
            files.push_back((dir / ("db" + std::to_string(d) + ".bwd")).string());
            bw::zWriteFileAtomic(files.back(), w.Data());
            bytes += w.Data().size();
        }
    }
    ~Fixture() {
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }
};

Fixture& F() {
    static Fixture f;
    return f;
}

// Three criteria: the last passes for a third of the designs, so most
// designs are tested against all three, extras included.
std::vector<bw::SearchCriterion> Criteria() {
    bw::SearchCriterion a;
    a.TechBase = {true, true};
    a.TechLevel = {true, true, true};
    a.MovementType = 5;
    bw::SearchCriterion b = a;
    b.MovementType = -1;
    b.Tonnage = 10, b.TonnageCompare = 0;
    bw::SearchCriterion c = b;
    c.Tonnage = 0;
    c.ExtraItems = {"Minesweeper", "Engine - Fusion XL", "Main Turret"};
    return {a, b, c};
}

void BM_PlainRead(benchmark::State& st) {
    auto& f = F();
    for (auto _ : st)
        for (const auto& p : f.files) benchmark::DoNotOptimize(bw::zReadWholeFile(p));
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
    st.counters["file_bytes"] = static_cast<double>(f.bytes);
}

void BM_Search(benchmark::State& st) {
    auto& f = F();
    const auto criteria = Criteria();
    size_t matches = 0;
    for (auto _ : st) {
        matches = 0;
        for (const auto& p : f.files) {
            bool ok = false;
            bw::TValidDatabase(p, ok);
            if (ok) bw::zSearchDatabase(p, criteria, [&](const bw::SearchMatch&) { ++matches; }, [] { return true; });
        }
    }
    if (matches == 0) st.SkipWithError("the search found nothing");
    st.counters["matches"] = static_cast<double>(matches);
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

BENCHMARK(BM_PlainRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
