#include "shell/DotFiles.h"

#include <filesystem>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "core/Globals.h"
#include "core/Ui.h"

namespace bw {

namespace {
DotTableBuilder& Builder() {
    static DotTableBuilder builder;
    return builder;
}

// Start-up reads a table file's length as a 16-bit number.
constexpr size_t kMaxTableBytes = 32767;
}  // namespace

void zSetDotTableBuilder(DotTableBuilder builder) { Builder() = std::move(builder); }

std::string zDiagramSourceFolder() { return zJoinPath(gAppPath, "data/diagrams"); }

void zCreateDotFile(bool internal) {
    const std::string title = internal ? "Create Internal File" : "Create Armor File";
    const std::string file = internal ? kInternalFile : kArmorFile;
    auto tell = [&](const std::string& text, MsgIcon icon) { zMsgBox(text, MsgButtons::OK, icon, title); };
    bool waiting = false;
    zTrapVoid(internal ? "mnuSpecialCreateInternal_Click" : "mnuSpecialCreateArmor_Click", [&] {
        if (!Builder()) {
            tell("The diagram tools are not part of this copy of the program.", MsgIcon::Exclamation);
            return;
        }
        const std::string dir = zDiagramSourceFolder();
        std::error_code ec;
        if (!std::filesystem::is_directory(zNormalizePath(dir), ec)) {
            tell("The diagram sources were not found. They belong in " + dir + ".", MsgIcon::Exclamation);
            return;
        }
        zPointerWait();
        waiting = true;
        std::vector<DotRecord> armor, structure;
        std::string error;
        const bool built = Builder()(dir, armor, structure, error);
        std::string bytes;
        if (built) bytes = zDiagramFileBytes(internal ? kInternalCert : kArmorCert, internal ? structure : armor);
        zPointerNormal();
        waiting = false;
        if (!built) {
            tell(file + " was not rebuilt: " + error, MsgIcon::Critical);
            return;
        }
        if (bytes.size() > kMaxTableBytes) {
            tell(file + " was not rebuilt: it would be " + std::to_string(bytes.size()) +
                     " bytes, and a table file must stay under 32768 bytes.",
                 MsgIcon::Critical);
            return;
        }
        try {
            zWriteFileAtomic(zJoinPath(gAppPath, file), bytes);
        } catch (const RunError& e) {
            tell(file + " could not be written: " + e.Description(), MsgIcon::Critical);
            return;
        }
        // The sheets drawn from now on use the new places.
        if (!(internal ? zLoadInternal() : zLoadArmor())) return;
        tell(file + " was rebuilt from the diagram sources: " + std::to_string(bytes.size()) + " bytes.",
             MsgIcon::Information);
    });
    if (waiting) zPointerNormal();
}

}  // namespace bw
