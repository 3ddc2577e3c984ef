#include "shell/frmVOpen.h"

#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "vehicle/Vehicle.h"

namespace bw {

void frmVOpen::zLoadData() {
    FillRows(lvVHLs, gVehicles, [](const Vehicle& v) { return zVehicleTypeName(v.VhlType); });
}

}  // namespace bw
