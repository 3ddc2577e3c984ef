// Editor commands as the user meets them, widgets included: opening a stored
// design of 60 items, filling the largest weapon group, adding and removing
// an item, a tonnage step and an armor input. Run: build/bin/bench_editor
// (offscreen by default).
#include <benchmark/benchmark.h>

#include <QApplication>

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "refdata/Weapons.h"
#include "shell/frmMain.h"
#include "shell/frmVOpen.h"
#include "fighter/frmFtr.h"
#include "shell/qt/FighterEditor.h"
#include "shell/qt/FormHost.h"
#include "core/EditorParts.h"
#include "shell/qt/VehicleEditor.h"
#include "vehicle/frmVhl.h"

using namespace bw;

namespace {

// A 100-ton Inner Sphere level 3 tracked design with 60 allocated items.
std::shared_ptr<Vehicle> Design60() {
    auto v = std::make_shared<Vehicle>();
    v->OverrideInteractiveMode();
    v->Name = "Behemoth";
    v->SetTechBase(0);
    v->SetTechLevel(3);
    v->SetType(kVhlTracked);
    v->SetTonnage(100);
    v->SetCruiseSpeed(3);
    v->SetEngineType(kEngFusion);
    v->CalcEngineRating();
    v->MaxItems = 200;
    const auto valid = zValidVehicleWeapons(0, 3, kVhlTracked);
    std::vector<int16_t> rows;
    for (const auto& list : valid) rows.insert(rows.end(), list.begin(), list.end());
    v->Items.clear();
    for (int i = 0; i < 60; ++i) {
        const int16_t row = rows[static_cast<size_t>(i * 7) % rows.size()];
        v->Items.push_back(VehicleItem{row, static_cast<int16_t>(i + 1), static_cast<int16_t>(i % 4), kTrue});
    }
    v->CalcWeaponTonnages();
    v->CalcItemCount();
    v->CalcTotalTonnage();
    return v;
}

// The main window with one stored design, and the editor Open makes on a
// copy of it (what Open does once the picker has answered).
template <class Editor, class Model, class Design>
struct EditorFixture {
    frmMain main;
    Editor* editor = nullptr;
    std::vector<std::shared_ptr<Design>>& table;
    EditorFixture(std::vector<std::shared_ptr<Design>>& t, std::shared_ptr<Design> stored) : table(t) {
        main.Form_Load();
        table.assign(1, std::move(stored));
    }
    void Open() {
        FormModel* m = zShowModeless(Model::zOpenDesign(*table[0]), &main);
        editor = qobject_cast<Editor*>(qt::QtFormHost::Instance().WidgetOf(*m));
    }
    void Close() {
        if (!editor) return;
        editor->Model().wSaved = kTrue;
        editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        editor = nullptr;
    }
    ~EditorFixture() { Close(); }
};

struct Fixture : EditorFixture<qt::VehicleEditor, frmVhl, Vehicle> {
    Fixture() : EditorFixture(gVehicles, Design60()) {}
};

void BM_OpenStoredDesignWith60Items(benchmark::State& state) {
    Fixture f;
    for (auto _ : state) {
        f.Open();
        QApplication::processEvents();
        state.PauseTiming();
        f.Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenStoredDesignWith60Items)->Unit(benchmark::kMillisecond);

void BM_FillLargestWeaponGroup(benchmark::State& state) {
    Fixture f;
    f.Open();
    frmVhl& m = f.editor->Model();
    size_t largest = 0;
    for (size_t c = 1; c < m.wValid.size(); ++c)
        if (m.wValid[c].size() > m.wValid[largest].size()) largest = c;
    state.counters["rows"] = static_cast<double>(m.wValid[largest].size());
    const std::string key = "node" + std::to_string(largest);
    for (auto _ : state) {
        state.PauseTiming();
        m.zRefreshWeaponsAvail();
        QApplication::processEvents();
        state.ResumeTiming();
        m.tvAvailEq.SetExpanded(key, true);
        QApplication::processEvents();
    }
}
BENCHMARK(BM_FillLargestWeaponGroup)->Unit(benchmark::kMillisecond);

void BM_AddThenRemoveAnItem(benchmark::State& state) {
    Fixture f;
    f.Open();
    frmVhl& m = f.editor->Model();
    const int16_t row = m.wValid[0].front();
    m.tvAvailEq.SetExpanded("node0", true);
    for (auto _ : state) {
        m.tvAvailEq.Select("w" + std::to_string(row));
        m.zAddWeapon();
        QApplication::processEvents();
        // The newest item of that row is the one with the highest number.
        int16_t num = 0;
        for (const auto& it : m.vhl->Items)
            if (it.wType == row && it.wStatus != 0) num = std::max(num, it.wNum);
        m.tvSelectedEq.Select("w" + std::to_string(row) + "-" + std::to_string(num));
        m.zRemoveWeapon();
        QApplication::processEvents();
    }
    state.counters["commands"] = benchmark::Counter(2.0 * static_cast<double>(state.iterations()));
}
BENCHMARK(BM_AddThenRemoveAnItem)->Unit(benchmark::kMillisecond);

void BM_TonnageStep(benchmark::State& state) {
    Fixture f;
    f.Open();
    frmVhl& m = f.editor->Model();
    bool down = true;
    for (auto _ : state) {
        if (down) m.scrlTonnage.StepDown();
        else m.scrlTonnage.StepUp();
        down = !down;
        QApplication::processEvents();
    }
}
BENCHMARK(BM_TonnageStep)->Unit(benchmark::kMillisecond);

void BM_ArmorInput(benchmark::State& state) {
    Fixture f;
    f.Open();
    frmVhl& m = f.editor->Model();
    m.scrlArmorTonnage.SetValue(20);
    int16_t v = 0;
    for (auto _ : state) {
        m.scrlArmorLoc[kLocLeft].SetValue(v);
        v = v == 0 ? 10 : 0;
        QApplication::processEvents();
    }
}
BENCHMARK(BM_ArmorInput)->Unit(benchmark::kMillisecond);

// ---- The fighter editor ------------------------------------------------------

// An aerospace fighter of 60 tons with 20 items, stored in the table.
std::shared_ptr<Fighter> Fighter20() {
    auto f = std::make_shared<Fighter>();
    f->FighterType = 1;
    f->TechBase = 0;
    f->TechLevel = 3;
    f->SetTonnage(60);
    f->SetCruiseSpeed(5);
    f->SetName("Bench Fighter");
    for (int16_t row = 0; row < static_cast<int16_t>(gWeapons.size()) && f->WeaponCount() < 20; ++row)
        f->AddWeapon(row);
    return f;
}

struct FighterFixture : EditorFixture<qt::FighterEditor, frmFtr, Fighter> {
    FighterFixture() : EditorFixture(gFighters, Fighter20()) {}
};

void BM_FighterOpenStoredDesignWith20Items(benchmark::State& state) {
    FighterFixture f;
    for (auto _ : state) {
        f.Open();
        QApplication::processEvents();
        state.PauseTiming();
        f.Close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_FighterOpenStoredDesignWith20Items)->Unit(benchmark::kMillisecond);

void BM_FighterAddThenRemoveAnItem(benchmark::State& state) {
    FighterFixture f;
    f.Open();
    frmFtr& m = f.editor->Model();
    int16_t row = -1;
    for (int16_t r = 0; r < static_cast<int16_t>(gWeapons.size()) && row < 0; ++r)
        if (m.FTR->AddWeapon(r) != 0) row = r;
    m.zUpdateWeapons();
    zExpandAll(m.tvAvailEQ, true);
    state.counters["weapons"] = m.FTR->WeaponCount();
    for (auto _ : state) {
        m.tvAvailEQ.Select(zRowKey(row));
        m.zAddWeapon();
        QApplication::processEvents();
        int16_t num = 0;
        for (const auto& w : m.FTR->Weapons)
            if (w.wIdx == row && w.wActive != 0) num = std::max(num, w.wNum);
        m.tvSelEQ.Select(zItemKey(row, num));
        m.zRemoveWeapon();
        QApplication::processEvents();
    }
    state.counters["commands"] = benchmark::Counter(2.0 * static_cast<double>(state.iterations()));
}
BENCHMARK(BM_FighterAddThenRemoveAnItem)->Unit(benchmark::kMillisecond);

void BM_FighterTonnageStep(benchmark::State& state) {
    FighterFixture f;
    f.Open();
    frmFtr& m = f.editor->Model();
    bool down = true;
    for (auto _ : state) {
        if (down) m.scrlTonnage.StepDown();
        else m.scrlTonnage.StepUp();
        down = !down;
        QApplication::processEvents();
    }
}
BENCHMARK(BM_FighterTonnageStep)->Unit(benchmark::kMillisecond);

void BM_FighterArmorInput(benchmark::State& state) {
    FighterFixture f;
    f.Open();
    frmFtr& m = f.editor->Model();
    m.scrlArmorTonnage.SetValue(m.scrlArmorTonnage.Max() / 2);
    int16_t v = 0;
    for (auto _ : state) {
        m.scrlArmorLoc[0].SetValue(v);
        v = v == 0 ? 10 : 0;
        QApplication::processEvents();
    }
}
BENCHMARK(BM_FighterArmorInput)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    qt::zInstallQtForms();
    SetAppPath(QCoreApplication::applicationDirPath().toStdString());
    if (!zLoadWeapons()) return 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
