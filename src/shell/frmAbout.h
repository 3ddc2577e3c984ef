// The About window: the program's name and version, its maker and the
// trademark notice.
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
    CommandButton PButOK{"PButOK"};
};

}  // namespace bw
