// Opening and saving a large database against reading and writing the same
// number of bytes plainly, side by side in one run: a database of 10,000
// vehicles of 20 items each. Open should stay within 3 times the plain read,
// save within 3 times the plain write plus one flush. The reads are timed
// both from the cache and from the disk.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "core/Globals.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"
#include "vehicle/Vehicle.h"

namespace {

constexpr int kVehicles = 10000;
constexpr int kItems = 20;

struct Fixture {
    std::filesystem::path dir;
    std::string db;
    std::string plain;
    size_t bytes = 0;

    Fixture() {
        dir = std::filesystem::temp_directory_path() / ("bwbench-" + std::to_string(::getpid()));
        std::filesystem::create_directories(dir);
        bw::SetAppPath(dir.string());
        bw::gLogFile = "/dev/null";
        db = (dir / "bench.bwd").string();
        plain = (dir / "plain.bin").string();
        bw::zResetDatabase();
        bw::gVehicles.clear();
        for (int i = 0; i < kVehicles; ++i) {
            auto v = std::make_shared<bw::Vehicle>();
            v->Name = "Bench Vehicle " + std::to_string(i);
            v->VhlType = static_cast<int16_t>(i % 8);
            v->Tonnage = static_cast<int16_t>(5 + i % 100);
            v->TotalTonnage = 12.5;
            v->Items.assign(kItems, bw::VehicleItem{});
            for (int k = 0; k < kItems; ++k)
                v->Items[static_cast<size_t>(k)] = bw::VehicleItem{static_cast<int16_t>(k % 7),
                                                                   static_cast<int16_t>(k / 7 + 1), 0, -1};
            bw::gVehicles.push_back(std::move(v));
        }
        bw::gDatabasePath = db;
        bw::zSaveDatabase();
        bytes = std::filesystem::file_size(db);
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

std::string ReadAll(const std::string& path) {
    std::string s(std::filesystem::file_size(path), '\0');
    std::FILE* f = std::fopen(path.c_str(), "rb");
    s.resize(std::fread(s.data(), 1, s.size(), f));
    std::fclose(f);
    return s;
}

// Drops the file's pages from the cache, so that the next read goes to the
// disk as the first open of a session does.
void Evict(const std::string& path) {
    int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) return;
    ::fdatasync(fd);
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
    ::close(fd);
}

void BM_PlainReadCold(benchmark::State& st) {
    auto& f = F();
    for (auto _ : st) {
        st.PauseTiming();
        Evict(f.db);
        st.ResumeTiming();
        benchmark::DoNotOptimize(ReadAll(f.db));
    }
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

void BM_OpenDatabaseCold(benchmark::State& st) {
    auto& f = F();
    for (auto _ : st) {
        st.PauseTiming();
        Evict(f.db);
        st.ResumeTiming();
        bw::zOpenDatabase(f.db);
    }
    if (bw::gVehicles.size() != static_cast<size_t>(kVehicles)) st.SkipWithError("open did not read every vehicle");
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

void BM_PlainRead(benchmark::State& st) {
    auto& f = F();
    for (auto _ : st) benchmark::DoNotOptimize(ReadAll(f.db));
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
    st.counters["file_bytes"] = static_cast<double>(f.bytes);
}

void BM_OpenDatabase(benchmark::State& st) {
    auto& f = F();
    for (auto _ : st) {
        bw::zOpenDatabase(f.db);
        benchmark::DoNotOptimize(bw::gVehicles.size());
    }
    if (bw::gVehicles.size() != static_cast<size_t>(kVehicles)) st.SkipWithError("open did not read every vehicle");
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

void BM_PlainWriteFlush(benchmark::State& st) {
    auto& f = F();
    const std::string bytes = ReadAll(f.db);
    for (auto _ : st) {
        int fd = ::open(f.plain.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        size_t done = 0;
        while (done < bytes.size()) done += static_cast<size_t>(::write(fd, bytes.data() + done, bytes.size() - done));
        ::fsync(fd);
        ::close(fd);
    }
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

void BM_SaveDatabase(benchmark::State& st) {
    auto& f = F();
    bw::zOpenDatabase(f.db);
    for (auto _ : st) bw::zSaveDatabase();
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations() * f.bytes));
}

BENCHMARK(BM_PlainRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainReadCold)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenDatabaseCold)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenDatabase)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWriteFlush)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveDatabase)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
