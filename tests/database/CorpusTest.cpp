// Every stored fuzz input goes through the fuzz target's own entry in the
// regular build: a broken property aborts, which fails the run.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "core/Globals.h"
#include "DatabaseFuzz.h"
#include "database/DatabaseOps.h"
#include "support/FakeUi.h"
#include "support/TempDir.h"

namespace bw {
namespace {

TEST(FuzzCorpus, EveryStoredInputPasses) {
    test::ScopedFakeUi fake;
    test::TempDir scratch;
    const std::string appPath = gAppPath;
    int files = 0;
    for (const auto& e : std::filesystem::directory_iterator(std::string(BW_SOURCE_DIR) + "/fuzz/corpus")) {
        std::ifstream in(e.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        SCOPED_TRACE(e.path().filename().string());
        const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
        zFuzzDatabaseInput(data, bytes.size());
        zFuzzProgramOpenSave(data, bytes.size(), scratch.Path());
        zFuzzParmAndSettings(data, bytes.size(), scratch.Path());
        zFuzzReferenceInput(data, bytes.size(), scratch.Path());
        ++files;
    }
    SetAppPath(appPath);
    zResetDatabase();
    EXPECT_GE(files, 9);
    // The damaged inputs were reported, not passed over in silence.
    EXPECT_FALSE(fake.ui.boxes.empty());
}

}  // namespace
}  // namespace bw
