// Record sheets: one ground vehicle sheet onto the recording surface and
// into a PDF file. Run: build/bin/bench_sheets
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/Loaders.h"
#include "sheets/PageSurface.h"
#include "sheets/RecordingSurface.h"
#include "sheets/SheetArt.h"
#include "sheets/VehicleSheet.h"
#include "sheets/qt/QtPageSurface.h"
#include "vehicle/Vehicle.h"

using namespace bw;

namespace {

// A 50-ton tracked vehicle with a turret, armor on every side and a dozen
// weapons: a full sheet.
Vehicle Design() {
    Vehicle v;
    v.SetTechBase(0);
    v.SetTechLevel(3);
    v.SetType(kVhlTracked);
    v.SetTonnage(50);
    v.SetCruiseSpeed(4);
    v.Name = "Bench Tank";
    v.SetTurret(1);
    for (int16_t row = 0; row < 12; ++row) v.AddWeapon(row);
    for (auto& it : v.Items) it.wLoc = static_cast<int16_t>(it.wType % 5);
    v.ArmorTonnage = 8;
    v.FrontArmor = 40;
    v.LeftArmor = v.RightArmor = 30;
    v.RearArmor = 20;
    v.TurretArmor = 30;
    v.CalcWeaponTonnages();
    return v;
}

void BM_SheetToRecordingSurface(benchmark::State& state) {
    Vehicle v = Design();
    for (auto _ : state) {
        RecordingSurface page;
        SetPageSurface(&page);
        PrintVehicle(v, "Kell", "5", "4");
        state.counters["ops"] = static_cast<double>(page.Ops().size());
    }
    SetPageSurface(nullptr);
}
BENCHMARK(BM_SheetToRecordingSurface)->Unit(benchmark::kMillisecond);

void BM_SheetToPdf(benchmark::State& state) {
    Vehicle v = Design();
    const std::string file = (std::filesystem::temp_directory_path() / "bench-sheet.pdf").string();
    for (auto _ : state) {
        QPdfWriter writer(QString::fromStdString(file));
        writer.setResolution(1440);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                         QMarginsF(0.25, 0.25, 0.25, 0.25), QPageLayout::Inch));
        qt::QtPageSurface page(writer, false);
        SetPageSurface(&page);
        PrintVehicle(v, "Kell", "5", "4");
        page.Finish();
        SetPageSurface(nullptr);
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(file));
    std::filesystem::remove(file);
}
BENCHMARK(BM_SheetToPdf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    SetAppPath(QCoreApplication::applicationDirPath().toStdString());
    gLogFile = "/dev/null";
    for (bool (*load)() : zReferenceLoaders())
        if (!load()) return 1;
    gArtPath = zAppFile("bwp") + "/";
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
