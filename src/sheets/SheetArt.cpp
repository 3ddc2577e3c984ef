#include "sheets/SheetArt.h"

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"

namespace bw {

namespace {

SheetCell Cell(double left, double top, bool bold = false, std::string caption = {}) {
    SheetCell c;
    c.left = left;
    c.top = top;
    c.bold = bold;
    c.caption = std::move(caption);
    return c;
}

// What the platform's picture loader reads: SVG text, PNG, JPEG, GIF, BMP.
bool LooksLikePicture(const std::string& b) {
    auto starts = [&](const char* s) { return b.rfind(s, 0) == 0; };
    if (starts("\x89PNG") || starts("\xFF\xD8") || starts("GIF8") || starts("BM")) return true;
    const size_t first = b.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != std::string::npos && b[first] == '<' && b.find("<svg") != std::string::npos;
}

}  // namespace

frmPBmp::frmPBmp() {
    // Data sheet: positions of the 32 cells; 23 and 25 keep their captions.
    const double data[32][2] = {
        {120, 120},  {120, 1140}, {2080, 1140}, {3000, 1140}, {120, 1560}, {3480, 1560}, {120, 2040}, {1800, 2040},
        {120, 2520}, {1800, 2520}, {120, 3000}, {120, 3960},  {1800, 3960}, {120, 4440}, {2640, 4440}, {120, 4920},
        {2040, 4920}, {3120, 4920}, {120, 5400}, {2640, 5400}, {120, 5840}, {2655, 5840}, {120, 750}, {1920, 750},
        {480, 360},  {2880, 750}, {120, 6630}, {120, 7000},  {120, 7380}, {120, 3480}, {120, 6240}, {2640, 6240}};
    for (const auto& p : data) lVTOLData.push_back(Cell(p[0], p[1]));
    lVTOLData[0].bold = lVTOLData[24].bold = true;
    lVTOLData[23].caption = "Cruise MP:";
    lVTOLData[25].caption = "Flank MP:";
    for (int r = 0; r < 30; ++r) lVTOLWeap.push_back(Cell(3720, 480 + 240 * r));
    lVTOLWeapDesc.push_back(Cell(3840, 120, true, "Weapons and Ammo"));
    lVTOLWeapDesc.push_back(Cell(5880, 120, true, "Turn - Elev."));
    for (int i = 1; i <= 15; ++i) lVTOLWeapDesc.push_back(Cell(3720 + 240 * i, 7560, false, std::to_string(i)));
    lVTOLCrits.push_back(Cell(960, 120, true, "Critical Hit Table"));
    lVTOLCrits.push_back(Cell(240, 480, true, "(1d6)       Result"));
    lVTOLCritResults.push_back(Cell(960, 120, true, "Critical Hit Results"));
    for (int i = 0; i < 6; ++i) {
        lVTOLCrits.push_back(Cell(240, 840 + 240 * i));
        lVTOLCritResults.push_back(Cell(240, 840 + 240 * i));
    }
    lLOGODesc.push_back(Cell(0, 0, true));
}

void zLoadArt(SheetPicture& holder, const std::string& fileName) {
    std::string bytes = zReadWholeFile(gArtPath + fileName);
    if (!LooksLikePicture(bytes)) zRaise(481, "Invalid picture");
    const size_t dot = fileName.rfind('.');
    holder.name = dot == std::string::npos ? fileName : fileName.substr(0, dot);
    holder.bytes = std::move(bytes);
}

std::string zCreditLine() {
    return "The Brasswick Works v" + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision) + " - Tallowmere Workshop " + std::string(1, static_cast<char>(169)) +
           "1996-1997 - " + kSupportMail + " - " + kSupportWeb;
}

double DrawHeader(IPageSurface& page, frmPBmp& art, const std::string& title, int16_t techBase) {
    const double left = page.PageLeft(), top = page.PageTop();
    page.PaintPicture(art.PicLogo, left, top, kLogoWidth, kLogoHeight);
    std::string& caption = art.lLOGODesc[0].caption;
    caption = (techBase != 0 ? "Clan " : "I.S. ") + title;
    page.SetFontSize(14.25);
    page.SetFontBold(true);
    page.SetCurrentX(left + kLogoWidth / 2 - page.TextWidth(caption) / 2);
    page.SetCurrentY(top + kLogoHeight + 50);
    page.PrintText({caption});
    page.SetFontBold(false);
    page.SetFontSize(8);
    const std::string credit = zCreditLine();
    page.SetFontSize(6);
    page.SetCurrentX(left + kLogoWidth / 2 - page.TextWidth(credit) / 2);
    // The title is measured in the font in force, the 6-point one.
    page.SetCurrentY(top + kLogoHeight + page.TextHeight(caption) + 200);
    page.PrintText({credit});
    page.SetFontSize(8);
    return top + kLogoHeight + 200 + page.TextHeight(caption) + page.TextHeight(credit);
}

void DrawCell(IPageSurface& page, const SheetTemplate& cells, size_t index, double pictureX, double pictureY) {
    const SheetCell& c = cells.at(index);
    page.SetCurrentX(pictureX + c.left);
    page.SetCurrentY(pictureY + c.top);
    page.SetFontBold(c.bold);
    page.PrintText({c.caption});
}

}  // namespace bw
