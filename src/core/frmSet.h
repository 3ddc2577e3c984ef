// The settings window: shows the preferences of the settings store and
// writes every key back on OK; Cancel writes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Forms.h"

namespace bw {

class frmSet : public FormModel {
public:
    frmSet() : FormModel("frmSet") { Window.SetCaption("Preferences"); }

    // A drop-down list: its lines and the chosen position (-1 none).
    struct Combo {
        std::vector<std::string> List;
        int16_t ListIndex = -1;
        std::string Text() const;
    };

    // Check boxes: 1 checked, 0 clear.
    int16_t CBoxOpenLast = 0;
    int16_t CBoxSuppressGift = 0;
    int16_t CBoxUseAltAeroHeader = 0;
    int16_t CBoxExpandSel = 0;
    Combo cmboDefVHL, cmboDefVHLBase, cmboDefVHLLevel;
    Combo cmboDefFTR, cmboDefFTRBase, cmboDefFTRLevel;
    // Colour pickers: activated edit box, deactivated edit box, text in an
    // activated box, text in a deactivated box.
    enum { kActiveEdit, kDeActiveEdit, kActiveText, kDeActiveText };
    int32_t pnlColor[4] = {16777215, 16777215, 0, 0};

    // Fills the lists and shows the stored values (absent keys show their
    // defaults; an unreadable value shows the default too).
    void Form_Load() override;
    // Stores every key, brings the program's settings up to date (the
    // database to open at start-up excepted) and closes.
    void PButOK_Click();
    void PButCancel_Click();
};

}  // namespace bw
