// Where each location's armor input stands on the editor's armor diagram.
#include "vehicle/frmVhl.h"

namespace bw {

void frmVhl::zMoveArmorControls(int16_t vhlType) {
    (void)vhlType;
    ArmorLocLeft.fill(-1);
    ArmorLocTop.fill(-1);
}

}  // namespace bw
