#include "core/Settings.h"

#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Ui.h"

namespace bw {

int16_t gOpenLast = 0;
int16_t gGiftMessage = 0;
int16_t gAeroPrintHeader = 0;
int16_t gExpandSel = 0;
std::string gOpenDBPath;
int16_t gDefVhlType = 0, gDefVhlBase = 0, gDefVhlLevel = 1;
int16_t gDefFtrType = 0, gDefFtrBase = 0, gDefFtrLevel = 1;
int32_t gActiveEdit = 16777215, gDeActiveEdit = 16777215, gActiveText = 0, gDeActiveText = 0;

namespace {
int16_t ReadI16(const char* section, const char* key, int16_t def) {
    const std::string v = gSettingsStore().Get(section, key, std::string());
    return v.empty() ? def : zTextToI16(v);
}
int32_t ReadColour(const char* key, int32_t def) {
    return zCLng(zGetNumericSetting(kSettingsApp, "General", key, def, true));
}
}  // namespace

void zLoadSettings() {
    gOpenLast = ReadI16("General", "OpenLast", 0);
    gGiftMessage = ReadI16("General", "GiftMessage", 0);
    gAeroPrintHeader = ReadI16("General", "AeroPrintHeader", 0);
    gExpandSel = ReadI16("General", "ExpandSel", 0);
    gOpenDBPath = zAppFile("Works.BWD");
    if (gOpenLast == 1) {
        const std::string last = gSettingsStore().Get("General", "LastDB", std::string());
        if (!last.empty()) gOpenDBPath = last;
    }
    gDefVhlType = ReadI16("Vehicle", "Type", 0);
    gDefVhlBase = ReadI16("Vehicle", "Base", 0);
    gDefVhlLevel = ReadI16("Vehicle", "Level", 1);
    gDefFtrType = ReadI16("Fighter", "Type", 0);
    gDefFtrBase = ReadI16("Fighter", "Base", 0);
    gDefFtrLevel = ReadI16("Fighter", "Level", 1);
    gActiveEdit = ReadColour("ActiveEdit", 16777215);
    gDeActiveEdit = ReadColour("DeActiveEdit", 16777215);
    gActiveText = ReadColour("ActiveText", 0);
    gDeActiveText = ReadColour("DeActiveText", 0);
}

}  // namespace bw
