#include "evaluation/frmVStat.h"

#include <cstdio>

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Vocabulary.h"
#include "vehicle/Vehicle.h"

namespace bw {

namespace {

std::string Num(double v) { return zNumText(v); }

std::string Num(int32_t v) { return std::to_string(v); }

}  // namespace

frmVStat::frmVStat() : FormModel("frmVStat") {
    Window.SetCaption("Vehicle Statistics");
    TStats.Locked = true;
    PButDone.SetCaption("&Done");
    PButDone.Click = [this] { Unload(); };
}

void frmVStat::zAddText(const std::string& text) { wText += text; }
void frmVStat::zIndentLine() { wText += "\t"; }
void frmVStat::zNewLine() { wText += "\r\n"; }

void frmVStat::Form_Load() {
    wText.clear();
    zTrapVoid("frmVStat.Form_Load", [&] {
        if (!vhl) zRaise(kErrInvalidCall);
        Vehicle& v = *vhl;
        const bool vtol = v.VhlType == kVhlVTOL;
        auto line = [&](const std::string& text) {
            zIndentLine();
            zAddText(text);
            zNewLine();
        };
        auto part = [&](const std::string& text) { line("   - " + text); };

        zAddText("Unit type: " + v.Name);
        zNewLine();
        zNewLine();
        line("Tonnage: " + Num(int32_t{v.Tonnage}));
        line("Free tonnage: " + Num(v.FreeTonnage));
        line("Total used tonnage: " + Num(v.TotalTonnage));
        part(Num(v.ArmorTonnage) + " tons devoted to armor (" + Num(int32_t{v.ArmorPoints}) + " points)");
        part(Num(v.WeaponTonnage) + " tons devoted to weapons and equipment");
        part(Num(v.EngineTonnage) + " tons devoted to the engine");
        part(Num(v.ISTonnage) + " tons devoted to the internal structure");
        if (v.TurretTonnage > 0) part(Num(v.TurretTonnage) + " tons devoted to a turret");
        if (v.SecTurretTonnage > 0) part(Num(v.SecTurretTonnage) + " tons devoted to a secondary turret");
        if (v.SponsonTurretTonnage > 0) part(Num(v.SponsonTurretTonnage) + " tons devoted to sponson turrets");
        if (v.LiftEqTonnage > 0) {
            const char* what = vtol                            ? " tons devoted to the rotor"
                               : v.VhlType == kVhlSubmarine ? " tons devoted to dive equipment"
                                                            : " tons devoted to lift equipment";
            part(Num(v.LiftEqTonnage) + what);
        }
        if (v.ControlTonnage > 0) part(Num(v.ControlTonnage) + " tons devoted to controls");
        if (v.HasMastMount) part(".5 tons devoted to a mast mount");
        if (v.HasSupercharger)
            part(Num(v.SuperchargerTonnage) + " tons devoted to " + (vtol ? "jet boosters " : "a supercharger "));
        if (v.NumCrew > v.BaseCrew) part(Num(v.CrewTonnage) + " tons devoted to additional crew members");
        if (v.HasBridgeLayer) part(Num(v.BridgeLayerTonnage) + " tons devoted to a bridge layer");
        if (v.HasBulldozer) part(Num(v.BulldozerTonnage) + " tons devoted to a bulldozer blade");
        if (v.HasMinesweeper) part(Num(v.MinesweeperTonnage) + " tons devoted to a minesweeper");
        if (v.HasCoolantSystem) part(Num(v.CoolantSystemTonnage) + " tons devoted to a coolant system");
        if (v.HasMASHUnit) part(Num(v.MASHTonnage) + " tons devoted to a M*A*S*H* Unit");
        if (v.HasMobileHQ) part(Num(v.MobileHQTonnage) + " tons devoted to a Mobile HQ");
        if (v.HasAmphibEquip) part(Num(v.AmphibTonnage) + " tons devoted to amphibious equipment");
        if (v.HasDuneBuggyEquip) part(Num(v.DuneBuggyTonnage) + " tons devoted to dune buggy equipment");
        if (v.HasSnowmobileEquip) part(Num(v.SnowmobileTonnage) + " tons devoted to snowmobile equipment");
        if (v.HasJumpJet) part(Num(v.JumpJetTonnage) + " tons devoted to jump jets");
        if (v.HasTC) part(Num(v.TCTonnage) + " tons devoted to a targetting computer");

        if (v.HeatSinks > 0) {
            line("Heat sinks: " + Num(int32_t{v.HeatSinks}));
            if (v.EngineType == kEngICE) {
                line("  - " + Num(int32_t{v.HeatSinkTonnage}) + " tons devoted to heat sinks");
                line("  - All heat sinks mounted due to energy weapon heat");
            } else {
                line("  - 10 Heat sinks free with engine");
                if (v.HeatSinks > 10) {
                    line("  - " + Num(int32_t{v.HeatSinkTonnage}) + " extra tons devoted to additional heat sinks");
                    line("  - Additional heat sinks mounted due to energy weapon heat");
                }
            }
        }

        line("Max number of items: " + Num(int32_t{v.MaxItems}));
        if (v.NumItems > 0) {
            line("Total items mounted: " + Num(int32_t{v.NumItems}));
            v.CalcIndividualItems();
            if (v.WeaponItems > 0) part(Num(int32_t{v.WeaponItems}) + " item slots devoted to weapons and equipment");
            if (v.AmmoItems > 0) part(Num(int32_t{v.AmmoItems}) + " item slots devoted to ammunition");
            switch (v.ArmorType) {
                case kArmNormal: break;
                case kArmFerroFibrous: part("2 item slots devoted to Ferro-Fibrous armor"); break;
                case kArmLightFerro: part("1 item slot devoted to Light Ferro-Fibrous armor"); break;
                case kArmHeavyFerro: part("3 item slots devoted to Heavy Ferro-Fibrous armor"); break;
                case kArmLaserReflective: part("1 item slot devoted to Laser Reflective armor"); break;
                case kArmReactive: part("2 item slots devoted to Reactive armor"); break;
                default: break;  // an armor this program does not know takes no slot here
            }
            const int16_t engineSlots = zEngineItemSlots(v.EngineType, v.TechBase);
            if (engineSlots != 0)
                part(Num(int32_t{engineSlots}) + " item slots devoted to a " + zEngineName(v.EngineType) + " engine");
            if (v.HasSupercharger) part(std::string("1 item slot devoted to ") + (vtol ? "jet boosters" : "a supercharger"));
            if (v.NumCrew > v.BaseCrew)
                part(Num(int32_t{v.NumCrew} - v.BaseCrew) + " item slots devoted to additional crew members");
            if (v.HasBridgeLayer) part("1 item slot devoted to a bridge layer");
            if (v.HasBulldozer) part("1 item slot devoted to a bulldozer blade");
            if (v.HasMinesweeper) part("1 item slot devoted to a minesweeper");
            if (v.HasCoolantSystem) part("2 items slots devoted to a coolant system");
            if (v.HasMASHUnit) part(Num(int32_t{v.MASHTheatres}) + " item slots devoted to a M*A*S*H* Unit");
            if (v.HasMobileHQ) part("1 item slot devoted to a Mobile HQ");
            if (v.HasJumpJet) part("1 item slot devoted to jump jets");
        }
    });
    // What was written before a failure stays on show.
    TStats.SetText(wText);
}

std::string zVehicleStatsText(Vehicle& vhl) {
    frmVStat f;
    f.vhl = &vhl;
    f.Form_Load();
    return f.TStats.Text();
}

}  // namespace bw
