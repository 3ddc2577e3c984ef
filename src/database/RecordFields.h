// The numeric fields of the two design records in file order, as visitors:
// the reader, the writer and bwtool's dump walk the same lists, so the order
// is written down once. fn(name, field) receives an int16_t or a double.
#pragma once

namespace bw {

// Vehicle record fields 2 to 79: between the name and the item count field.
template <class V, class Fn>
void zVisitVehicleFields(V& v, Fn&& fn) {
    fn("VhlType", v.VhlType);
    fn("Tonnage", v.Tonnage);
    fn("ISTonnage", v.ISTonnage);
    fn("TotalTonnage", v.TotalTonnage);
    fn("FreeTonnage", v.FreeTonnage);
    fn("TechBase", v.TechBase);
    fn("TechLevel", v.TechLevel);
    fn("MovementType", v.MovementType);
    fn("CruiseSpeed", v.CruiseSpeed);
    fn("FlankSpeed", v.FlankSpeed);
    fn("EngineType", v.EngineType);
    fn("EngineRating", v.EngineRating);
    fn("EngineTonnage", v.EngineTonnage);
    fn("SuspensionFactor", v.SuspensionFactor);
    fn("HeatSinks", v.HeatSinks);
    fn("HeatSinkTonnage", v.HeatSinkTonnage);
    fn("ArmorType", v.ArmorType);
    fn("ArmorTonnage", v.ArmorTonnage);
    fn("ArmorPoints", v.ArmorPoints);
    fn("ArmorAllocated", v.ArmorAllocated);
    fn("FrontArmor", v.FrontArmor);
    fn("LeftArmor", v.LeftArmor);
    fn("RightArmor", v.RightArmor);
    fn("RearArmor", v.RearArmor);
    fn("TurretArmor", v.TurretArmor);
    fn("SecTurretArmor", v.SecTurretArmor);
    // Left before right: the reverse of the order in memory.
    fn("FrontLeftArmor", v.FrontLeftArmor);
    fn("FrontRightArmor", v.FrontRightArmor);
    fn("RearLeftArmor", v.RearLeftArmor);
    fn("RearRightArmor", v.RearRightArmor);
    fn("HasTurret", v.HasTurret);
    fn("TurretTonnage", v.TurretTonnage);
    fn("HasSecTurret", v.HasSecTurret);
    fn("SecTurretTonnage", v.SecTurretTonnage);
    fn("HasSponsonTurrets", v.HasSponsonTurrets);
    fn("SponsonTurretTonnage", v.SponsonTurretTonnage);
    fn("HasSupercharger", v.HasSupercharger);
    fn("SuperchargerTonnage", v.SuperchargerTonnage);
    fn("HasMastMount", v.HasMastMount);
    fn("MastMountTonnage", v.MastMountTonnage);
    fn("BaseCrew", v.BaseCrew);
    fn("NumCrew", v.NumCrew);
    fn("CrewTonnage", v.CrewTonnage);
    fn("HasBridgeLayer", v.HasBridgeLayer);
    fn("BridgeLayerType", v.BridgeLayerType);
    fn("BridgeLayerTonnage", v.BridgeLayerTonnage);
    fn("HasBulldozer", v.HasBulldozer);
    fn("BulldozerTonnage", v.BulldozerTonnage);
    fn("HasMinesweeper", v.HasMinesweeper);
    fn("MinesweeperTonnage", v.MinesweeperTonnage);
    fn("HasMASHUnit", v.HasMASHUnit);
    fn("MASHTheatres", v.MASHTheatres);
    fn("MASHTonnage", v.MASHTonnage);
    fn("HasAmphibEquip", v.HasAmphibEquip);
    fn("AmphibTonnage", v.AmphibTonnage);
    fn("HasDuneBuggyEquip", v.HasDuneBuggyEquip);
    fn("DuneBuggyTonnage", v.DuneBuggyTonnage);
    fn("HasSnowmobileEquip", v.HasSnowmobileEquip);
    fn("SnowmobileTonnage", v.SnowmobileTonnage);
    fn("HasCoolantSystem", v.HasCoolantSystem);
    fn("CoolantSystemTonnage", v.CoolantSystemTonnage);
    fn("HasJumpJet", v.HasJumpJet);
    fn("NumJumpJets", v.NumJumpJets);
    fn("JumpJetTonnage", v.JumpJetTonnage);
    fn("HasMobileHQ", v.HasMobileHQ);
    fn("MobileHQTonnage", v.MobileHQTonnage);
    fn("ControlTonnage", v.ControlTonnage);
    fn("PowerAmpTonnage", v.PowerAmpTonnage);
    fn("LiftEqTonnage", v.LiftEqTonnage);
    fn("MaxItems", v.MaxItems);
    fn("NumItems", v.NumItems);
    // The rotor arrangement stands here, far from the engine data.
    fn("RotorConfig", v.RotorConfig);
    fn("HasTC", v.HasTC);
    fn("TCTonnage", v.TCTonnage);
    fn("EnergyHeat", v.EnergyHeat);
    fn("EnergyTonnage", v.EnergyTonnage);
    fn("TurretWeaponTonnage", v.TurretWeaponTonnage);
    fn("WeaponTonnage", v.WeaponTonnage);
}

// Fighter common head, fields 2 to 28.
template <class V, class Fn>
void zVisitFighterHead(V& f, Fn&& fn) {
    fn("FighterType", f.FighterType);
    fn("Tonnage", f.Tonnage);
    fn("SIRating", f.SIRating);
    fn("CockpitTonnage", f.CockpitTonnage);
    fn("TotalTonnage", f.TotalTonnage);
    fn("FreeTonnage", f.FreeTonnage);
    fn("TechBase", f.TechBase);
    fn("TechLevel", f.TechLevel);
    fn("CruiseSpeed", f.CruiseSpeed);
    fn("FlankSpeed", f.FlankSpeed);
    fn("EngineType", f.EngineType);
    fn("EngineRating", f.EngineRating);
    fn("EngineTonnage", f.EngineTonnage);
    fn("HeatSinkType", f.HeatSinkType);
    fn("ArmorType", f.ArmorType);
    fn("ArmorTonnage", f.ArmorTonnage);
    fn("ArmorPoints", f.ArmorPoints);
    fn("ArmorAllocated", f.ArmorAllocated);
    fn("FrontArmor", f.FrontArmor);
    fn("LeftArmor", f.LeftArmor);
    fn("RightArmor", f.RightArmor);
    fn("FuselageArmor", f.FuselageArmor);
    fn("CPArmor", f.CPArmor);
    fn("EngineArmor", f.EngineArmor);
    fn("PowerAmpTonnage", f.PowerAmpTonnage);
    fn("HasVTOLJets", f.HasVTOLJets);
    fn("VTOLJetTonnage", f.VTOLJetTonnage);
}

// The tail of a Conventional or Aerospace fighter before its item list.
template <class V, class Fn>
void zVisitFighterPlainTail(V& f, Fn&& fn) {
    fn("HeatSinks", f.HeatSinks);
    fn("HeatSinkTonnage", f.HeatSinkTonnage);
    fn("FuelTonnage", f.FuelTonnage);
    fn("HasTC", f.HasTC);
    fn("TCTonnage", f.TCTonnage);
    fn("TCLocation", f.TCLocation);
    fn("EnergyHeat", f.EnergyHeat);
    fn("EnergyTonnage", f.EnergyTonnage);
    fn("WeaponHeat", f.WeaponHeat);
    fn("WeaponTonnage", f.WeaponTonnage);
}

}  // namespace bw
