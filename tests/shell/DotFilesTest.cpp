#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "databuild/DiagramSources.h"
#include "shell/DotFiles.h"
#include "shell/frmMain.h"
#include "support/AppFolder.h"
#include "support/FakeUi.h"
#include "vehicle/EditorTestSupport.h"

using namespace bw;
using namespace bw::test;
namespace fs = std::filesystem;

namespace {

std::string ReadBin(const std::string& name) {
    std::ifstream in(std::string(BW_BIN_DIR) + "/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

struct DotFilesFixture : ::testing::Test {
    AppFolder app;
    ScopedFakeUi fake;
    std::vector<DotRecord> savedArmor = gArmorDots, savedInternal = gInternalDots;
    std::vector<DotRecord> armor, internal;
    DotFilesFixture() { zSetDotTableBuilder(&BuildDotTables); }
    ~DotFilesFixture() override {
        zSetDotTableBuilder({});
        gArmorDots = savedArmor;
        gInternalDots = savedInternal;
    }
    void CopySources() {
        fs::create_directories(app.dir.Path() + "/data");
        fs::copy(std::string(BW_SOURCE_DIR) + "/data/diagrams", app.dir.Path() + "/data/diagrams",
                 fs::copy_options::recursive);
    }
};

}  // namespace

// Both commands give the very bytes the build gives, and the program uses
// the new table at once.
TEST_F(DotFilesFixture, TheMenuCommandsRebuildTheFilesAsTheBuildDoes) {
    CopySources();
    std::string error;
    ASSERT_TRUE(BuildDotTables(zDiagramSourceFolder(), armor, internal, error)) << error;
    frmMain m;
    gArmorDots.clear();
    m.mnuSpecialCreateArmor.DoClick();
    EXPECT_EQ(app.dir.Read("armorloc.bin"), ReadBin("armorloc.bin"));
    EXPECT_FALSE(fs::exists(app.dir.Path() + "/intloc.bin"));
    EXPECT_EQ(gArmorDots, armor);
    EXPECT_EQ(LastShown(fake.ui), (Shown{"Create Armor File",
                                         "armorloc.bin was rebuilt from the diagram sources: " +
                                             std::to_string(ReadBin("armorloc.bin").size()) + " bytes.",
                                         MsgIcon::Information}));
    app.dir.Write("intloc.bin", "old");
    m.mnuSpecialCreateInternal.DoClick();
    EXPECT_EQ(app.dir.Read("intloc.bin"), ReadBin("intloc.bin"));
    EXPECT_EQ(fake.ui.LastBox().title, "Create Internal File");
    EXPECT_EQ(fake.ui.boxes.size(), 2u);
}

TEST_F(DotFilesFixture, MissingOrBrokenSourcesLeaveTheOldFile) {
    const std::string dir = app.dir.Path() + "/data/diagrams";
    app.dir.Write("armorloc.bin", "old table");
    zCreateDotFile(false);
    EXPECT_EQ(LastShown(fake.ui), (Shown{"Create Armor File",
                                         "The diagram sources were not found. They belong in " + dir + ".",
                                         MsgIcon::Exclamation}));
    CopySources();
    app.dir.Write("data/diagrams/zz-broken.txt", "diagram 40\nsize 10\n");
    zCreateDotFile(false);
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
    EXPECT_EQ(fake.ui.LastBox().text.rfind("armorloc.bin was not rebuilt: " + dir + "/zz-broken.txt", 0), 0u)
        << fake.ui.LastBox().text;
    zSetDotTableBuilder({});
    zCreateDotFile(true);
    EXPECT_EQ(LastShown(fake.ui), (Shown{"Create Internal File",
                                         "The diagram tools are not part of this copy of the program.",
                                         MsgIcon::Exclamation}));
    EXPECT_EQ(app.dir.Read("armorloc.bin"), "old table");
    EXPECT_EQ(fake.ui.pointerWaits, fake.ui.pointerNormals);
}
