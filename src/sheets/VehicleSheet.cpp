#include "sheets/VehicleSheet.h"

#include <cmath>
#include <cstdlib>

#include "core/Config.h"
#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"
#include "refdata/DiagramTables.h"
#include "refdata/Weapons.h"
#include "sheets/PrintJob.h"

namespace bw {

namespace {

std::string DotText(const std::vector<DotRecord>& table, int16_t location, int32_t dotIndex, int16_t diagram) {
    for (const DotRecord& r : table) {
        if (r.diagram != diagram || r.location != location) continue;
        if (dotIndex < 0 || static_cast<size_t>(dotIndex) >= r.X.size() || static_cast<size_t>(dotIndex) >= r.Y.size())
            return {};
        return std::to_string(r.X[static_cast<size_t>(dotIndex)]) + "," + std::to_string(r.Y[static_cast<size_t>(dotIndex)]);
    }
    return {};
}

// One open white dot over the art, from an "x,y" text in diagram pixels.
void PlotDot(IPageSurface& page, const std::string& xy, double originX, double originY) {
    const size_t comma = xy.find(',');
    const double x = std::strtod(xy.substr(0, comma).c_str(), nullptr);
    const double y = std::strtod(xy.substr(comma + 1).c_str(), nullptr);
    const double dotX = zBankersRound(x * 15), dotY = zBankersRound(y * 15);
    page.SetFill(0, 0xFFFFFF);
    page.Circle(dotX + originX, dotY + originY, 45, 0);
}

int16_t ArmorOf(const Vehicle& v, int16_t location) {
    switch (location) {
        case 0: return v.FrontArmor;
        case 1: return v.LeftArmor;
        case 2: return v.RightArmor;
        case 3: return v.RearArmor;
        case 4: return v.TurretArmor;
        case 5: return v.SecTurretArmor;
        default: return 0;
    }
}

const WeaponRec& WeaponAt(int16_t row) {
    if (row < 0 || static_cast<size_t>(row) >= gWeapons.size()) zRaise(kErrSubscript);
    return gWeapons[static_cast<size_t>(row)];
}

std::string I(int32_t v) { return std::to_string(v); }
std::string N(double v) { return zNumText(v); }

const char* SheetTitle(int16_t vhlType) {
    if (vhlType == kVhlHydrofoil) return "NAVAL HYDROFOIL RECORD SHEET";
    if (vhlType == kVhlNaval) return "NAVAL SURFACE VESSEL RECORD SHEET";
    return "GROUND VEHICLE RECORD SHEET";
}

bool IsNaval(int16_t vhlType) { return vhlType == kVhlHydrofoil || vhlType == kVhlNaval; }

void FillDataCells(const Vehicle& v, SheetTemplate& c, const std::string& pilotName, const std::string& pilotSkill,
                   const std::string& gunnerySkill) {
    const int16_t t = v.VhlType;
    auto loc = [t](int16_t code) { return zArmorLocationName(code, t); };
    auto tons = [&v](int16_t points) { return N(zLocationArmorTons(v, points)); };
    c[0].caption = "Unit Type:";
    c[24].caption = v.Name;
    c[1].caption = "Tonnage: " + I(v.Tonnage);
    c[2].caption = v.HasSupercharger ? I(v.CruiseSpeed) + " (" + I(zI16(int32_t{v.CruiseSpeed} * 2)) + ")"
                                     : I(v.CruiseSpeed);
    c[3].caption = I(v.FlankSpeed);
    c[22].caption = "Movement: " + zVehicleTypeName(t);
    c[4].caption = "Engine: " + I(v.EngineRating) + "  " + "Tonnage: " + N(v.EngineTonnage) + " (" +
                   zEngineName(v.EngineType) + ")";
    c[5].caption.clear();
    c[6].caption = "Controls: " + N(v.ControlTonnage);
    c[7].caption = "Lift Equipment: " + N(v.LiftEqTonnage);
    c[8].caption = "Power Amps: " + N(v.PowerAmpTonnage);
    c[9].caption = "Heat Sinks: " + I(v.HeatSinks);
    c[10].caption = "Internal Structure: " + N(v.ISTonnage);
    c[11].caption = "Armor Tons: " + N(v.ArmorTonnage);
    static const char* kArmorSuffix[] = {" (Normal)", " (Ferro)", " (Light Ferro)",
                                         " (Heavy Ferro)", " (Laser Ref.)", " (Reactive)"};
    c[12].caption = "Armor: " + I(v.ArmorPoints) +
                    (v.ArmorType >= 0 && v.ArmorType <= 5 ? kArmorSuffix[v.ArmorType] : "");
    c[13].caption = loc(0) + ": " + tons(v.FrontArmor);
    c[14].caption = I(v.FrontArmor);
    c[15].caption = loc(1) + "/" + loc(2) + ": " + tons(v.LeftArmor);
    c[16].caption = I(v.LeftArmor);
    c[17].caption = I(v.RightArmor);
    c[18].caption = loc(3) + ": " + tons(v.RearArmor);
    c[19].caption = I(v.RearArmor);
    c[20].caption = loc(4) + ": " + tons(v.TurretArmor);
    c[21].caption = I(v.TurretArmor);
    if (v.HasSecTurret) {
        c[29].caption = loc(4) + "/" + loc(5) + ": " + N(v.TurretTonnage) + "/" + N(v.SecTurretTonnage);
        c[30].caption = loc(5) + ": " + tons(v.SecTurretArmor);
        c[31].caption = I(v.SecTurretArmor);
    } else {
        c[29].caption = loc(4) + ": " + N(v.TurretTonnage);
    }
    c[26].caption = "Pilot Name: " + pilotName;
    c[27].caption = "Piloting Skill: " + pilotSkill;
    c[28].caption = "Gunnery Skill: " + gunnerySkill + "                    # Crew: " + I(v.NumCrew);
}

void FillCritCells(const Vehicle& v, frmPBmp& art) {
    const bool naval = IsNaval(v.VhlType);
    const char* unit = naval ? "Ship" : "Vehicle";
    SheetTemplate& c = art.lVTOLCrits;
    c[2].caption = "1  Crew stunned, 2 turns";
    c[3].caption = "2  Main weapon jammed, 1 turn";
    c[4].caption = "3  Engine hit, no movement";
    c[5].caption = "4  Crew killed";
    c[6].caption = std::string("5  Fuel tank hit, ") + unit + " explodes";
    c[7].caption = std::string("6  Ammo/power plant hit, ") + unit + " explodes";
    static const char* kDamaged[] = {"Drive", "Wheel", "Airskirt", "", "Lift Foils", "Engine Room"};
    static const char* kDestroyed[] = {"Track", "Axle", "Lift Fan", "", "Lift Foils", "Engine Room"};
    const size_t t = static_cast<size_t>(v.VhlType);
    SheetTemplate& r = art.lVTOLCritResults;
    r[1].caption = std::string("_   ") + kDamaged[t] + " Damaged";
    r[2].caption = std::string("_   ") + kDestroyed[t] + " Destroyed";
    r[3].caption = "_   Engine Hit";
    r[4].caption = "_   Crew Killed";
    r[5].caption = "_   Crew Stunned";
    r[6].caption = v.HasTurret ? "_   Turret Locked" : "";
}

void DrawWeaponsTable(SheetJob& job, const Vehicle& v, double dataX, double dataY) {
    std::vector<PrintRow> rows;
    if (!TGetWeaponsPrintData(v, rows)) {
        zMsgBox("Could not build mounted item data. Printing aborted.", MsgButtons::OK, MsgIcon::Critical,
                "Printing Aborted");
        job.Abort();
    }
    IPageSurface& page = job.page;
    SheetTemplate& cells = job.art->lVTOLWeap;
    int16_t current = -1;
    size_t offset = 0;
    auto tooMany = [] {
        zMsgBox(std::string("Your vehicle has more items than can be printed, please contact Tallowmere Workshop at ") +
                    kSupportMail + " ",
                MsgButtons::OK, MsgIcon::Information, "Too many items");
    };
    for (size_t i = 0; i < rows.size(); ++i) {
        if (i + offset > 29) return tooMany();
        const PrintRow& row = rows[i];
        if (row.weapon == -1) continue;
        if (row.location != current) {
            current = row.location;
            SheetCell& heading = cells[i + offset];
            heading.caption = zItemLocationName(row.location, v.VhlType);
            heading.bold = true;
            DrawCell(page, cells, i + offset, dataX, dataY);
            ++offset;
            // A heading on the last line leaves no room for its row.
            if (i + offset > 29) return tooMany();
        }
        const WeaponRec& w = WeaponAt(row.weapon);
        SheetCell& cell = cells[i + offset];
        cell.caption = row.count == -1 ? w.Name + " (" + I(row.shots) + ")" : I(row.count) + " " + w.Name;
        cell.width = 3000;
        cell.autoSize = cell.wordWrap = true;
        page.SetCurrentX(dataX + cell.left);
        page.SetCurrentY(dataY + cell.top);
        page.SetFontBold(false);
        page.PrintText({"   ", cell.caption});
    }
}

void DrawSpecialEquipment(IPageSurface& page, const Vehicle& v, double left, double top) {
    page.SetCurrentX(left);
    page.SetCurrentY(top);
    page.SetFontSize(10);
    page.SetFontBold(true);
    page.PrintText({"Special Equipment"});
    page.SetFontSize(8);
    page.SetFontBold(false);
    auto line = [&](const std::string& text) {
        page.SetCurrentX(left);
        page.PrintText({"     ", text});
    };
    static const char* kBridges[] = {"Light Bridge Layer - CF 7", "Medium Bridge Layer - CF 20",
                                     "Heavy Bridge Layer - CF 45"};
    if (v.HasBridgeLayer && v.BridgeLayerType >= 0 && v.BridgeLayerType <= 2) line(kBridges[v.BridgeLayerType]);
    if (v.HasBulldozer) line("Bulldozer Blade");
    if (v.HasMinesweeper) line("Minesweeper Setup");
    if (v.HasCoolantSystem) line("Coolant System");
    if (v.HasMASHUnit) line("M*A*S*H* Unit - " + I(v.MASHTheatres) + " operating theatres");
    if (v.HasMobileHQ) {
        const double t = v.MobileHQTonnage;
        line("Mobile HQ - " + N(t) +
             (t < 3 ? " tons [+0 initiative]" : t < 7 ? " tons [+1 initiative]" : " tons [+2 initiative]"));
    }
    if (v.HasAmphibEquip) line("Amphibious Equipment");
    if (v.HasDuneBuggyEquip) line("Dune Buggy Gear");
    if (v.HasSnowmobileEquip) line("Snowmobile Equipment");
    if (v.HasSupercharger) line("Supercharger");
    if (v.HasJumpJet) line("Jump Jets (" + I(v.NumJumpJets) + ")");
    if (v.HasTC) line("Targetting Computer (" + zItemLocationName(v.TCLocation, v.VhlType) + ")");
}

// A job that draws nothing: the prologue, loading and finishing steps.
bool EmptyJob(Vehicle& v, const char* procName) {
    SheetJob job(v.Name, procName);
    return job.Run([](SheetJob&) {});
}

}  // namespace

std::string GetArmorDot(int16_t location, int32_t dotIndex, int16_t diagram) {
    return DotText(gArmorDots, location, dotIndex, diagram);
}

std::string GetInternalDot(int16_t location, int32_t dotIndex, int16_t diagram) {
    return DotText(gInternalDots, location, dotIndex, diagram);
}

int16_t zVehicleDiagram(const Vehicle& v) {
    if (v.VhlType == kVhlVTOL) return v.HasTurret ? 8 : 3;
    if (v.VhlType >= 0 && v.VhlType <= 2 && v.HasSecTurret) return static_cast<int16_t>(v.VhlType + 9);
    return v.VhlType;
}

int16_t zLastDotLocation(const Vehicle& v) {
    if (v.VhlType == kVhlVTOL) return v.HasTurret ? 5 : 4;
    if (v.HasSecTurret) return 5;
    return v.HasTurret ? 4 : 3;
}

double zLocationArmorTons(const Vehicle& v, int16_t points) {
    int ppt = 16;
    if (v.TechBase == 0) {
        static const int kIS[] = {16, 18, 17, 20, 16, 16};
        if (v.ArmorType >= 0 && v.ArmorType <= 5) ppt = kIS[v.ArmorType];
    } else if (v.ArmorType != 0) {
        ppt = 19;
    }
    return zRoundHalf(static_cast<double>(points) / ppt);
}

bool HasSpecialEquipment(const Vehicle& v) {
    return v.HasBridgeLayer || v.HasBulldozer || v.HasMinesweeper || v.HasMastMount || v.HasMobileHQ ||
           v.HasMASHUnit || v.HasCoolantSystem || v.HasAmphibEquip || v.HasDuneBuggyEquip || v.HasSnowmobileEquip ||
           v.HasJumpJet || v.HasSupercharger || v.HasTC;
}

bool TGetWeaponsPrintData(const Vehicle& v, std::vector<PrintRow>& rows) {
    rows.assign(1, PrintRow{});
    if (v.WeaponCount() == 0) return true;
    for (const VehicleItem& it : v.Items) {
        if (it.wStatus != kTrue) continue;
        const WeaponRec& w = WeaponAt(it.wType);
        const bool ammo = w.Type == 4;
        PrintRow fresh{it.wType, it.wLoc, static_cast<int16_t>(ammo ? -1 : 1), static_cast<int16_t>(ammo ? w.Shots : -1)};
        if (rows[0].weapon == -1) {
            rows[0] = fresh;
            continue;
        }
        bool found = false;
        for (PrintRow& r : rows) {
            if (r.weapon != it.wType || r.location != it.wLoc) continue;
            if (ammo) r.shots = zI16(int32_t{r.shots} + w.Shots);
            else r.count = zI16(int32_t{r.count} + 1);
            found = true;
            break;
        }
        if (!found) rows.push_back(fresh);
    }
    TSortWeaponsPrint(rows);
    return true;
}

void TSortWeaponsPrint(std::vector<PrintRow>& rows) {
    for (size_t pass = 0; pass < rows.size(); ++pass)
        for (size_t k = 1; k < rows.size(); ++k)
            if (rows[k - 1].location > rows[k].location) std::swap(rows[k - 1], rows[k]);
}

bool PrintVehicle(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                  const std::string& gunnerySkill) {
    switch (v.VhlType) {
        case kVhlTracked:
        case kVhlWheeled:
        case kVhlHover:
        case kVhlHydrofoil:
        case kVhlNaval: return PrintGroundVehicle(v, pilotName, pilotSkill, gunnerySkill);
        case kVhlVTOL:
        case kVhlSubmarine: return PrintElevationVehicle(v, pilotName, pilotSkill, gunnerySkill);
        case kVhlSuperHeavy: return PrintSuperHeavyTank(v, pilotName, pilotSkill, gunnerySkill);
        default: return false;
    }
}

bool PrintElevationVehicle(Vehicle& v, const std::string&, const std::string&, const std::string&) {
    return EmptyJob(v, "zPrintVTOL");
}

bool PrintVehicleMini(Vehicle& v, const std::string&, const std::string&, const std::string&) {
    return EmptyJob(v, "PrintVehicleMini");
}

bool PrintSuperHeavyTank(Vehicle& v, const std::string&, const std::string&, const std::string&) {
    return EmptyJob(v, "PrintGroundVehicle");
}

bool zDoubleSheetFits(const Vehicle& v, bool showMessage) {
    if (v.VhlType >= kVhlHydrofoil) {
        if (showMessage)
            zMsgBox("Naval vehicles and superheavy tanks can not be printed in 'double sheet' format, reverting to "
                    "normal format.",
                    MsgButtons::OK, MsgIcon::Information, "Cannot Print Double");
        return false;
    }
    if (int32_t{v.WeaponCount()} + v.GetLocationCount() < 26) return true;
    if (showMessage)
        zMsgBox("This vehicle has too many weapons mounted to fit on a print out in the 'double sheet' format, "
                "reverting to normal format.",
                MsgButtons::OK, MsgIcon::Information, "Too many weapons");
    return false;
}

bool zPrintDoubleRule(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                      const std::string& gunnerySkill, bool showMessage) {
    return zDoubleSheetFits(v, showMessage) ? PrintVehicleMini(v, pilotName, pilotSkill, gunnerySkill)
                                            : PrintVehicle(v, pilotName, pilotSkill, gunnerySkill);
}

bool PrintGroundVehicle(Vehicle& v, const std::string& pilotName, const std::string& pilotSkill,
                        const std::string& gunnerySkill) {
    // What needs the design only comes before the job starts.
    const int32_t structureDots = (int32_t{v.Tonnage} + 9) / 10;
    SheetJob job(v.Name, "PrintGroundVehicle");
    return job.Run([&](SheetJob& j) {
        IPageSurface& page = j.page;
        frmPBmp& art = *j.art;
        const int16_t t = v.VhlType;
        const bool naval = IsNaval(t);
        if (!(t >= 0 && t <= 2) && !naval) zRaise(kErrInvalidCall);
        zLoadArt(art.PicLogo, "lgmn001.bwp");
        zLoadArt(art.picVHLData, "dt002.bwp");
        zLoadArt(art.picVTOLCritTable, "crt001.bwp");
        zLoadArt(art.picVTOLCritRes, "crt002.bwp");
        if (naval) {
            zLoadArt(art.picArmor, "ad003.bwp");
        } else {
            const int turrets = v.HasSecTurret ? 2 : v.HasTurret ? 1 : 0;
            static const char* kPrefix[] = {"ad1", "ad0", "ad2"};
            zLoadArt(art.picArmor, std::string(kPrefix[turrets]) + I(t + 1) + "1.bwp");
        }
        j.Step(15, naval ? "Printing naval pictures..." : "Printing vehicle pictures...");

        const double left = page.PageLeft(), width = page.PageWidth(), height = page.PageHeight();
        const double dataTop = DrawHeader(page, art, SheetTitle(t), v.TechBase);
        page.PaintPicture(art.picVHLData, left, dataTop, kDataWidth, kDataHeight);
        double armorX, armorY, critX, critY, resX, resY;
        if (naval) {
            armorX = width / 2 - 9870.0 / 2;
            armorY = height - 4965;
            page.PaintPicture(art.picArmor, armorX, armorY, 9870, 4965);
            critX = resX = width - kCritWidth - 25;
            critY = dataTop;
            resY = dataTop + kCritHeight + 200;
        } else {
            const double aw = v.HasSecTurret ? 3600 : 3585, ah = v.HasSecTurret ? 5745 : 5505;
            armorX = width - aw - 25;
            armorY = dataTop;
            page.PaintPicture(art.picArmor, armorX, armorY, aw, ah);
            critX = left;
            critY = resY = dataTop + kDataHeight + 100;
            resX = left + kDataWidth - kCritResWidth;
        }
        page.PaintPicture(art.picVTOLCritTable, critX, critY, kCritWidth, kCritHeight);
        page.PaintPicture(art.picVTOLCritRes, resX, resY, kCritResWidth, kCritHeight);

        const int16_t diagram = zVehicleDiagram(v);
        const int16_t last = zLastDotLocation(v);
        j.Step(45, "Plotting and printing internal structure...");
        for (int32_t dot = 0; dot < structureDots; ++dot)
            for (int16_t loc = 0; loc <= last; ++loc) {
                const std::string xy = GetInternalDot(loc, dot, diagram);
                if (xy.empty()) break;
                PlotDot(page, xy, armorX, armorY);
            }
        j.Step(55, "Plotting and printing armor...");
        for (int16_t loc = 0; loc <= last; ++loc)
            for (int32_t dot = 0; dot < ArmorOf(v, loc); ++dot) {
                const std::string xy = GetArmorDot(loc, dot, diagram);
                if (xy.empty()) break;
                PlotDot(page, xy, armorX, armorY);
            }

        j.Step(75, "Filling Crit Tables...");
        FillCritCells(v, art);
        for (size_t i = 0; i < art.lVTOLCrits.size(); ++i) DrawCell(page, art.lVTOLCrits, i, critX, critY);
        for (size_t i = 0; i < art.lVTOLCritResults.size(); ++i)
            DrawCell(page, art.lVTOLCritResults, i, resX, resY);

        j.Step(85, "Filling Data Sheet...");
        FillDataCells(v, art.lVTOLData, pilotName, pilotSkill, gunnerySkill);
        for (size_t i = 0; i < art.lVTOLData.size(); ++i) DrawCell(page, art.lVTOLData, i, left, dataTop);
        DrawCell(page, art.lVTOLWeapDesc, 0, left, dataTop);
        page.SetFontBold(false);

        j.Step(90, "Building Mounted Item Data...");
        DrawWeaponsTable(j, v, left, dataTop);
        if (HasSpecialEquipment(v)) {
            if (naval)
                DrawSpecialEquipment(page, v, critX, dataTop + kCritHeight + 200 + kCritHeight + 200);
            else
                DrawSpecialEquipment(page, v, left, dataTop + kDataHeight + 100 + kCritHeight + 200);
        }
    });
}

}  // namespace bw
