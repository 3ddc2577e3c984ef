// Replacing a file whole: racing saves, links and permissions.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include <sys/stat.h>

#include "core/BinaryIO.h"
#include "core/Errors.h"
#include "support/TempDir.h"

namespace bw {
namespace {

namespace fs = std::filesystem;

TEST(AtomicWrite, TwoSavesRacingIntoOneFolderEachKeepTheirOwnBytes) {
    test::TempDir dir;
    std::atomic<int> wrong{0};
    auto saver = [&](const std::string& name, char fill) {
        const std::string mine(20000, fill);
        for (int i = 0; i < 150; ++i) {
            zWriteFileAtomic(dir.File(name), mine);
            if (dir.Read(name) != mine) ++wrong;
        }
    };
    std::thread a(saver, "a.bwd", 'a'), b(saver, "b.bwd", 'b');
    a.join();
    b.join();
    EXPECT_EQ(wrong.load(), 0);
    // Nothing left behind but the two databases.
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 2);
}

TEST(AtomicWrite, ALinkKeepsPointingAtTheReplacedFile) {
    test::TempDir dir;
    fs::create_directory(dir.File("real"));
    dir.Write("real/designs.bwd", "old");
    fs::create_symlink(dir.File("real/designs.bwd"), dir.File("link.bwd"));
    zWriteFileAtomic(dir.File("link.bwd"), "new");
    EXPECT_TRUE(fs::is_symlink(dir.File("link.bwd")));
    EXPECT_EQ(dir.Read("real/designs.bwd"), "new");
}

TEST(AtomicWrite, TheNewFileKeepsTheOldPermissions) {
    test::TempDir dir;
    dir.Write("private.bwd", "old");
    ::chmod(dir.File("private.bwd").c_str(), 0600);
    zWriteFileAtomic(dir.File("private.bwd"), "new");
    struct stat st {};
    ASSERT_EQ(::stat(dir.File("private.bwd").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0600u);
    EXPECT_EQ(dir.Read("private.bwd"), "new");
    // A new file gets the usual permissions.
    zWriteFileAtomic(dir.File("fresh.bwd"), "x");
    ASSERT_EQ(::stat(dir.File("fresh.bwd").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0644u);
}

TEST(AtomicWrite, AFolderThatCannotTakeTheTemporaryLeavesTheFileAlone) {
    test::TempDir dir;
    dir.Write("kept.bwd", "old");
    EXPECT_THROW(zWriteFileAtomic(dir.File("missing/kept.bwd"), "new"), RunError);
    EXPECT_EQ(dir.Read("kept.bwd"), "old");
}

}  // namespace
}  // namespace bw
