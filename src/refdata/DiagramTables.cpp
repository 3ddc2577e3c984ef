#include "refdata/DiagramTables.h"

#include "core/BinaryIO.h"
#include "core/Errors.h"

namespace bw {

std::vector<DotRecord> gArmorDots;
std::vector<DotRecord> gInternalDots;

namespace {
void WriteArray(BinaryWriter& w, const std::vector<int16_t>& a) {
    w.I16(1);  // one dimension
    w.I32(zI32(static_cast<int64_t>(a.size())));
    w.I32(0);  // lower bound
    for (int16_t v : a) w.I16(v);
}
}  // namespace

std::string zDiagramFileBytes(const std::string& cert, const std::vector<DotRecord>& records) {
    if (records.empty() || records.size() > 32768) zRaise(kErrOverflow);
    BinaryWriter w;
    w.FixedPadded(cert, 45);
    w.I16(kDiagramVersion);
    w.I16(static_cast<int16_t>(records.size() - 1));
    for (const DotRecord& r : records) {
        if (r.X.size() != r.Y.size()) zRaise(kErrSubscript);
        w.I16(r.diagram);
        w.I16(r.location);
        WriteArray(w, r.X);
        WriteArray(w, r.Y);
    }
    return w.Data();
}

}  // namespace bw
