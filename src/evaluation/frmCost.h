// The cost and combat window: parts, weapons and ammunition price lists, the
// cost multiplier and total, the combat value, and the chart of damage by
// range with its two per-ton figures.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class Fighter;
class Vehicle;

// Chart scale, in twips: the origin stands this far from the panel's left
// edge; one hex of range is one step wide; one damage point is one unit high.
constexpr int32_t kDamageChartLeft = 720;
constexpr int32_t kDamageStepWidth = 120;
constexpr int32_t kDamagePointHeight = 18;
// Damage at or above this value is drawn at the cap's height.
constexpr int32_t kDamageCap = 100;
constexpr int32_t kDamageCapHeight = 1800;
// Map-range weapons reach every hex up to this index.
constexpr int32_t kMapRangeLastIndex = 42;

// Fill and border colour of a bar by its damage value (0x00BBGGRR).
int32_t zDamageColor(int32_t value);

// One filled rectangle of the damage chart. Left is measured from the
// panel's left edge; the bar stands on the chart's base line and rises by
// Height.
struct DamageShape {
    int32_t Left = 0;
    int32_t Width = 0;
    int32_t Height = 0;
    int32_t Color = 0;
    bool Visible = false;
};

class frmCost : public FormModel {
public:
    frmCost();

    // Price lists: item and cost.
    ListView lvParts{"lvParts"};
    ListView lvWeapons{"lvWeapons"};
    ListView lvAmmo{"lvAmmo"};
    // The column keys of each list, item first.
    static constexpr const char* kPartsColumns[2] = {"colParts", "colCost"};
    static constexpr const char* kWeaponColumns[2] = {"colWpn", "colCost"};
    static constexpr const char* kAmmoColumns[2] = {"colAmmo", "colCost"};

    Label lPartsSubtotal{"lPartsSubtotal"};
    Label lWeapSubtotal{"lWeapSubtotal"};
    Label lAmmoSubtotal{"lAmmoSubtotal"};
    Label lVhlMultiplier{"lVhlMultiplier"};
    Label lTotalCost{"lTotalCost"};
    Label lCV{"lCV"};
    Label lDamVhl{"lDamVhl"};
    Label lDamWeap{"lDamWeap"};

    // The captions beside the figures.
    Label lblPartsSubtotal{"lblPartsSubtotal"};
    Label lblWeapSubtotal{"lblWeapSubtotal"};
    Label lblAmmoSubtotal{"lblAmmoSubtotal"};
    Label lblMultiplier{"lblMultiplier"};
    Label lblTotalCost{"lblTotalCost"};
    Label lblCV{"lblCV"};
    Label lblDamVhl{"lblDamVhl"};
    Label lblDamWeap{"lblDamWeap"};
    // The panel of the chart.
    Label fraDamage{"fraDamage"};

    CommandButton PButDone{"PButDone"};

    // The damage at each range, entry i for i + 1 hexes, before the cap.
    std::vector<int32_t> wDamage;
    // Run-length form of the capped profile: (value, count).
    std::vector<std::pair<int32_t, int32_t>> wRuns;
    // The chart's bars, one per run, in range order.
    std::vector<DamageShape> shpDamage;

    // Captions and visible labels for a vehicle; the first step of filling.
    void zSetUpForVehicle();
    // The same for a fighter, which has no combat value.
    void zSetUpForFighter();
    // Empties the lists, figures and chart.
    void zClear();

    // Observers of the chart (the bars are not controls of their own).
    std::function<void()> ChartChanged;
};

// The reports, each trapping its own errors: on a run-time error the report
// is made under its name and the figures written so far stay.

// The chart and the two per-ton figures, from the weapon rows of the active
// entries of a design of that tonnage.
void zGenDamageReport(const std::vector<int16_t>& activeRows, int16_t tonnage, frmCost& frm);
void zGenDamageReport(const Vehicle& vhl, frmCost& frm);
void zGenDamageReport(const Fighter& ftr, frmCost& frm);
// The parts list, its subtotal and the cost multiplier.
void zGenPartsCost(const Vehicle& vhl, frmCost& frm);
// The weapons and ammunition lists from the weapon rows of the active
// entries, in order. With wFinishTotal the vehicle's total is made from the
// multiplier and parts subtotal already on the window.
void zGenWeapCost(const std::vector<int16_t>& activeRows, frmCost& frm, bool wFinishTotal);
void zGenWeapCost(const Vehicle& vhl, frmCost& frm);
// A fighter's weapons come first; its parts report makes the total.
void zGenWeapCost(const Fighter& ftr, frmCost& frm);
// The parts of an aerospace or Omni-Fighter and of a conventional fighter,
// their subtotal, the multiplier and the total, from the weapon and
// ammunition subtotals already on the window.
void zGenAeroPartsCost(const Fighter& ftr, frmCost& frm);
void zGenConvPartsCost(const Fighter& ftr, frmCost& frm);
// The combat value.
void zGenCombatValue(const Vehicle& vhl, frmCost& frm);

// What the editor's "Cost/Stats" does for a vehicle: the captions, then the
// four reports in their order.
void zFillVehicleCost(const Vehicle& vhl, frmCost& frm);
// What the fighter editor's "Cost/Stats" does: the captions, the damage
// chart, the weapons, then the parts of its kind.
void zFillFighterCost(const Fighter& ftr, frmCost& frm);

// Figures of the reports, computed alone (each raises run-time errors).
int32_t zVehicleCostMultiplierDivisor(int16_t vhlType);  // raises 11 for an unknown type
int32_t zCombatValue(const Vehicle& vhl);

}  // namespace bw
