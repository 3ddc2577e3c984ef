#include "core/frmSet.h"

#include <string>

#include "core/Errors.h"
#include "core/Helpers.h"
#include "core/Settings.h"
#include "core/Ui.h"
#include "core/Vocabulary.h"

namespace bw {

std::string frmSet::Combo::Text() const {
    return ListIndex >= 0 && static_cast<size_t>(ListIndex) < List.size() ? List[ListIndex] : std::string();
}

namespace {

// A stored number, or def when absent or not a 16-bit number: the window
// must open even over a damaged store.
int16_t Stored(const char* section, const char* key, int16_t def) {
    const std::string v = gSettingsStore().Get(section, key, std::string());
    if (v.empty() || !zIsNumeric(v)) return def;
    try {
        return zTextToI16(v);
    } catch (const RunError&) {
        return def;
    }
}

int32_t StoredColour(const char* key, int32_t def) {
    try {
        return zCLng(zGetNumericSetting(kSettingsApp, "General", key, def, true));
    } catch (const RunError&) {
        return def;
    }
}

void Pick(frmSet::Combo& c, int16_t index) {
    c.ListIndex = index >= 0 && static_cast<size_t>(index) < c.List.size() ? index : 0;
}

constexpr const char* kColourKeys[4] = {"ActiveEdit", "DeActiveEdit", "ActiveText", "DeActiveText"};
constexpr int32_t kColourDefaults[4] = {16777215, 16777215, 0, 0};

}  // namespace

void frmSet::Form_Load() {
    cmboDefVHL.List.clear();
    for (int16_t t = 0; t <= 7; ++t) cmboDefVHL.List.push_back(zVehicleTypeName(t));
    cmboDefFTR.List.clear();
    for (int16_t t = 0; t <= 2; ++t) cmboDefFTR.List.push_back(zFighterTypeName(t));
    for (Combo* c : {&cmboDefVHLBase, &cmboDefFTRBase}) c->List = {zTechBaseName(0), zTechBaseName(1)};
    for (Combo* c : {&cmboDefVHLLevel, &cmboDefFTRLevel}) c->List = {"1", "2", "3"};

    CBoxOpenLast = Stored("General", "OpenLast", 0) == 1 ? 1 : 0;
    CBoxSuppressGift = Stored("General", "GiftMessage", 0) == 1 ? 1 : 0;
    CBoxUseAltAeroHeader = Stored("General", "AeroPrintHeader", 0) == 1 ? 1 : 0;
    CBoxExpandSel = Stored("General", "ExpandSel", 0) == 1 ? 1 : 0;
    Pick(cmboDefVHL, Stored("Vehicle", "Type", 0));
    Pick(cmboDefVHLBase, Stored("Vehicle", "Base", 0));
    Pick(cmboDefVHLLevel, static_cast<int16_t>(Stored("Vehicle", "Level", 1) - 1));
    Pick(cmboDefFTR, Stored("Fighter", "Type", 0));
    Pick(cmboDefFTRBase, Stored("Fighter", "Base", 0));
    Pick(cmboDefFTRLevel, static_cast<int16_t>(Stored("Fighter", "Level", 1) - 1));
    for (int i = 0; i < 4; ++i) pnlColor[i] = StoredColour(kColourKeys[i], kColourDefaults[i]);
}

void frmSet::PButOK_Click() {
    ISettingsStore& s = gSettingsStore();
    auto num = [](int v) { return std::to_string(v); };
    s.Set("General", "OpenLast", num(CBoxOpenLast));
    s.Set("General", "GiftMessage", num(CBoxSuppressGift));
    s.Set("General", "AeroPrintHeader", num(CBoxUseAltAeroHeader));
    s.Set("General", "ExpandSel", num(CBoxExpandSel));
    s.Set("Vehicle", "Type", num(cmboDefVHL.ListIndex));
    s.Set("Vehicle", "Base", num(cmboDefVHLBase.ListIndex));
    s.Set("Vehicle", "Level", cmboDefVHLLevel.Text());
    s.Set("Fighter", "Type", num(cmboDefFTR.ListIndex));
    s.Set("Fighter", "Base", num(cmboDefFTRBase.ListIndex));
    s.Set("Fighter", "Level", cmboDefFTRLevel.Text());
    for (int i = 0; i < 4; ++i) s.Set("General", kColourKeys[i], num(pnlColor[i]));

    gOpenLast = CBoxOpenLast;
    gGiftMessage = CBoxSuppressGift;
    gAeroPrintHeader = CBoxUseAltAeroHeader;
    gExpandSel = CBoxExpandSel;
    gDefVhlType = cmboDefVHL.ListIndex;
    gDefVhlBase = cmboDefVHLBase.ListIndex;
    gDefVhlLevel = static_cast<int16_t>(cmboDefVHLLevel.ListIndex + 1);
    gDefFtrType = cmboDefFTR.ListIndex;
    gDefFtrBase = cmboDefFTRBase.ListIndex;
    gDefFtrLevel = static_cast<int16_t>(cmboDefFTRLevel.ListIndex + 1);
    gActiveEdit = pnlColor[kActiveEdit];
    gDeActiveEdit = pnlColor[kDeActiveEdit];
    gActiveText = pnlColor[kActiveText];
    gDeActiveText = pnlColor[kDeActiveText];
    Unload();
}

void frmSet::PButCancel_Click() { Unload(); }

}  // namespace bw
