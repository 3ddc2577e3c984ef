#include "shell/frmAbout.h"

#include <string>

#include "core/Config.h"

namespace bw {

frmAbout::frmAbout() : FormModel("frmAbout") {
    Window.SetCaption("About The Brasswick Works");
    LTitle.SetCaption("The Brasswick Works");
    LVersion.SetCaption(std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                        std::to_string(kVersionRevision));
    LCompany.SetCaption(kCompanyName);
    LNotice.SetCaption("BattleTech is a registered Trademark of the FASA corporation");
    LMaker.SetCaption(kMakerNotice);
    LWeb.SetCaption(kSupportWeb);
    PButOK.SetCaption("OK");
    PButOK.Default = true;
    PButOK.Cancel = true;
    PButOK.Click = [this] { Unload(); };
}

}  // namespace bw
