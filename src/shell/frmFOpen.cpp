#include "shell/frmFOpen.h"

#include "core/Vocabulary.h"
#include "database/DatabaseOps.h"
#include "fighter/Fighter.h"

namespace bw {

void frmFOpen::zLoadData() {
    FillRows(lvFTRs, gFighters, [](const Fighter& f) { return zFighterTypeName(f.FighterType); });
}

}  // namespace bw
