// The About window: the program's name and version, its maker, the notice
// and web address of the splash, the trademark line and the toolkit in use.
#pragma once

#include "core/Controls.h"
#include "core/Forms.h"

namespace bw {

class frmAbout : public FormModel {
public:
    frmAbout();

    Label LTitle{"LTitle"};
    Label LVersion{"LVersion"};
    Label LCompany{"LCompany"};
    Label LNotice{"LNotice"};
    Label LMaker{"LMaker"};
    Label LWeb{"LWeb"};
    // The window system says which toolkit draws the program.
    Label LToolkit{"LToolkit"};
    CommandButton PButOK{"PButOK"};
};

}  // namespace bw
