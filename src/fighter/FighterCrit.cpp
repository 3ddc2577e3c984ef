#include "fighter/FighterCrit.h"

#include "core/Errors.h"

namespace bw {

CritSlot gCurrentCrit;

FighterCrit::FighterCrit() {
    for (size_t l = 0; l < wSlots.size(); ++l) wSlots[l].resize(static_cast<size_t>(kFighterCritSlots[l]));
}

CritSlot& FighterCrit::Slot(int16_t wLocIdx, int16_t wSlot) {
    if (wLocIdx < 0 || wLocIdx > 3) zRaise(kErrSubscript);
    auto& loc = wSlots[static_cast<size_t>(wLocIdx)];
    if (wSlot < 0 || static_cast<size_t>(wSlot) >= loc.size()) zRaise(kErrSubscript);
    return loc[static_cast<size_t>(wSlot)];
}

const CritSlot& FighterCrit::Slot(int16_t wLocIdx, int16_t wSlot) const {
    return const_cast<FighterCrit*>(this)->Slot(wLocIdx, wSlot);
}

void FighterCrit::SetCritGlobal(int16_t wLocIdx, int16_t wSlot) const {
    zTrapVoid("FighterCrit.SetCritGlobal", [&] {
        if (wLocIdx < 0 || wLocIdx > 3) return;
        gCurrentCrit = Slot(wLocIdx, wSlot);
    });
}

void FighterCrit::SetCritStatus(int16_t wLocIdx, int16_t wSlot) {
    zTrapVoid("FighterCrit.SetCritStatus", [&] {
        if (wLocIdx < 0 || wLocIdx > 3) return;
        Slot(wLocIdx, wSlot) = gCurrentCrit;
    });
}

}  // namespace bw
