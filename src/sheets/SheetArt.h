// The page model the sheets share: the art holders and their files, the
// layout templates of text cells, the header block and the cell rule.
#pragma once

#include <string>
#include <vector>

#include "sheets/PageSurface.h"

namespace bw {

// One text cell of a template, placed from its picture's top-left corner.
struct SheetCell {
    double left = 0, top = 0, width = 0, height = 0;
    bool bold = false;
    std::string caption;
    bool autoSize = false, wordWrap = false;
};
using SheetTemplate = std::vector<SheetCell>;

// frmPBmp: the art holders and the templates of one job. Made fresh for each
// job, so captions set by one job never reach the next.
struct frmPBmp {
    frmPBmp();
    SheetPicture PicLogo, picVHLData, picVTOLData, picVTOLDataMini, picArmor, picVTOLCritTable, picVTOLCritRes,
        picAeroData, picAeroVelo, picAeroHeat, picAeroArmor;
    SheetTemplate lVTOLData, lVTOLWeap, lVTOLWeapDesc, lVTOLCrits, lVTOLCritResults, lLOGODesc;
};

// Loads an art file ("dt002.bwp") from the art folder into a holder. A
// missing file raises the run-time's file error, a file that is no picture
// raises 481 ("Invalid picture"): the job's trap handles both.
void zLoadArt(SheetPicture& holder, const std::string& fileName);

// The logo, the title centred on it and the credit line; returns DataTop.
double DrawHeader(IPageSurface& page, frmPBmp& art, const std::string& title, int16_t techBase);
// Prints one cell at the picture's origin: pen to the cell, the cell's
// weight, its caption. Nothing clips or wraps.
void DrawCell(IPageSurface& page, const SheetTemplate& cells, size_t index, double pictureX, double pictureY);
// "The Brasswick Works v3.0.18 - Tallowmere Workshop (c)1996-1997 - ...",
// in the program's code page.
std::string zCreditLine();

// Sizes of the art boxes, twips.
constexpr double kLogoWidth = 7620, kLogoHeight = 810;
constexpr double kDataWidth = 7185, kDataHeight = 7800;
constexpr double kCritWidth = 3570, kCritHeight = 2505, kCritResWidth = 3135;

}  // namespace bw
