// The Armor Array Creator: a tool for whoever maintains the dot tables. It
// writes the coordinates of a rectangular patch of dots as "x,y" lines, one
// pair a line, ready to copy into a list of dot places.
//
// How the patch is read:
//  - dot (i, j) of the patch sits at Beginning X + i * X Offset, Beginning
//    Y + j * Y Offset, for i below X Length and j below Y Length; an offset
//    may be negative, to run leftwards or upwards;
//  - "Walk X" fills a row across before stepping down to the next row,
//    "Walk Y" fills a column down before stepping across, which is the order
//    the dots are filled on the sheet;
//  - "Make Mid" gives the places halfway between neighbouring dots, the
//    staggered rows that sit between the rows of the patch: along an axis of
//    length n there are n - 1 of them, half an offset in (an axis of length
//    1 keeps its one place), walked as Go walks; a half pixel rounds down;
//  - every field holds a whole number within its limits (places 0 to 9999,
//    offsets -999 to 999, lengths 0 to 100); anything else is refused with
//    the field named, and the list is left as it was.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class frmAAMaker : public FormModel {
public:
    frmAAMaker();

    Label LX{"LX"}, LY{"LY"}, LXOffset{"LXOffset"}, LYOffset{"LYOffset"}, LXLen{"LXLen"}, LYLen{"LYLen"};
    TextBox TX{"TX"}, TY{"TY"}, TXOffset{"TXOffset"}, TYOffset{"TYOffset"}, TXLen{"TXLen"}, TYLen{"TYLen"};
    // The pairs, one "x,y" a line; the user copies them, the tool writes them.
    TextBox TData{"TData"};
    // 0: "Walk X", 1: "Walk Y".
    OptionButton RButAlter[2] = {OptionButton("RButAlter(0)"), OptionButton("RButAlter(1)")};
    CommandButton PButGo{"PButGo"}, PButMakeMid{"PButMakeMid"}, PButClose{"PButClose"};

    void PButGo_Click();
    void PButMakeMid_Click();

    struct Patch {
        int32_t x = 0, y = 0, xOffset = 0, yOffset = 0, xLen = 0, yLen = 0;
    };
    // The patch's dots in walking order; mid gives the staggered places.
    static std::vector<std::pair<int32_t, int32_t>> zWalk(const Patch& p, bool walkY, bool mid);
    // The pairs as TData shows them.
    static std::string zPairsText(const std::vector<std::pair<int32_t, int32_t>>& pairs);

private:
    // The fields as a patch; false after telling the user which is wrong.
    bool ReadPatch(Patch& p);
    void Fill(bool mid);
    std::vector<OptionButton*> walk_{&RButAlter[0], &RButAlter[1]};
};

}  // namespace bw
