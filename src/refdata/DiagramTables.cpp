#include "refdata/DiagramTables.h"

#include "core/BinaryIO.h"
#include "core/Config.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Helpers.h"
#include "core/Progress.h"
#include "core/Ui.h"

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

// ---- loading ----------------------------------------------------------------

namespace bw {
namespace {

struct DiagramFileWords {
    const char* file;
    const char* cert;
    const char* what;  // "armor", "internal structure"
    const char* procName;
    int16_t* measuredLength;
    std::vector<DotRecord>* table;
};

std::vector<int16_t> ReadArray(BinaryReader& r) {
    const int16_t dims = r.I16();
    const int32_t count = r.I32();
    const int32_t lower = r.I32();
    if (dims != 1 || lower != 0 || count < 0) zRaise(kErrSubscript);
    if (static_cast<size_t>(count) > r.Remaining() / 2) zRaise(kErrInputPastEnd);
    std::vector<int16_t> a(static_cast<size_t>(count));
    for (int16_t& v : a) v = r.I16();
    return a;
}

bool LoadDiagramFile(const DiagramFileWords& w) {
    return zTrap<bool>(w.procName, false, [&] {
        const std::string closing = std::string("Please goto the Tallowmere Workshop website at ") + kSupportWeb +
                                    " to get a new " + w.what + " database.";
        const std::string found = zDirFind(gAppPath, w.file);
        if (zLower(found) != w.file) {
            zMsgBox(std::string("Unable to find the ") + w.what + " database file. " + closing, MsgButtons::OK,
                    MsgIcon::Critical, "Unable to find file");
            return false;
        }
        BinaryReader r = BinaryReader::FromFile(zAppFile(found));
        const std::string cert = r.FixedTrimmed(45);
        if (cert != w.cert) {
            zMsgBox(std::string("Unable to certify ") + w.what + " database file. " + closing, MsgButtons::OK,
                    MsgIcon::Critical, "Unable to certify file");
            return false;
        }
        const int16_t version = r.I16();
        if (version != kDiagramVersion) {
            zMsgBox(std::string("Your ") + w.what +
                        " database is out of date. This program is looking for a database of version " +
                        std::to_string(kDiagramVersion) + " but your database is of version " +
                        std::to_string(version) + ". " + closing,
                    MsgButtons::OK, MsgIcon::Critical, "Wrong file version");
            return false;
        }
        const int16_t n = r.I16();
        if (n < 0) zRaise(kErrSubscript);
        const size_t count = static_cast<size_t>(n) + 1;
        // Each record takes at least its two codes and two array descriptors.
        if (count > r.Remaining() / (2 + 2 + 10 + 10)) zRaise(kErrInputPastEnd);
        std::vector<DotRecord>& table = *w.table;
        table.assign(count, DotRecord{});

        const int32_t h = static_cast<int32_t>(cert.size()) + 2 + 2;
        const int32_t share = zCInt(static_cast<double>(*w.measuredLength - h) / static_cast<double>(count));
        const int32_t base = zCInt(static_cast<double>(h) / 10 + gSplashDone);
        for (size_t i = 0; i < count; ++i) {
            DotRecord& d = table[i];
            d.diagram = r.I16();
            d.location = r.I16();
            d.X = ReadArray(r);
            d.Y = ReadArray(r);
            if (d.X.size() != d.Y.size()) zRaise(kErrSubscript);
            zSplashProgressSet(zCLng(base + static_cast<double>(static_cast<int64_t>(i) * share) / 10));
        }
        gSplashDone = zSplashProgressValue();
        return true;
    });
}

}  // namespace

bool zLoadArmor() {
    return LoadDiagramFile({kArmorFile, kArmorCert, "armor", "zLoadArmor", &gLenArmor, &gArmorDots});
}

bool zLoadInternal() {
    return LoadDiagramFile(
        {kInternalFile, kInternalCert, "internal structure", "zLoadInternal", &gLenInternal, &gInternalDots});
}

}  // namespace bw
