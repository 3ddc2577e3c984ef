// bwtool check, dump and copy run as the user runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "core/BinaryIO.h"
#include "database/DatabaseFile.h"
#include "database/DbBytes.h"
#include "support/TempDir.h"

namespace bw {
namespace {

struct ToolRun {
    int code;
    std::string out;
};

ToolRun Bwtool(const std::string& args) {
    const std::string cmd = std::string(BW_BIN_DIR) + "/bwtool " + args + " 2>&1";
    ToolRun r{-1, {}};
    FILE* p = popen(cmd.c_str(), "r");
    if (!p) return r;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
    const int st = pclose(p);
    r.code = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    return r;
}

std::string Sample() {
    Vehicle v;
    // Windows-1252 text: an accented letter, quotes, the euro sign, a
    // backslash, an unassigned byte and a control character.
    v.Name = "Caf\xe9 \"Racer\" \x80\\\x81\x01";
    v.Tonnage = 25;
    v.Items = {{2, 1, 0, -1}};
    Fighter f;
    f.Name = "Omni";
    f.FighterType = 2;
    f.OmniBaseLocked = -1;
    BinaryWriter w;
    zWriteDatabaseHeader(w);
    w.I16(0);
    zWriteVehicleRecord(w, v);
    w.I16(0);
    zWriteFighterRecord(w, f);
    return w.Data();
}

TEST(BwtoolDb, CheckSaysWhatIsWrongAndWhere) {
    test::TempDir dir;
    const std::string good = Sample();
    dir.Write("good.bwd", good);
    dir.Write("cut.bwd", good.substr(0, 40));
    ToolRun r = Bwtool("check " + dir.File("good.bwd"));
    EXPECT_EQ(r.code, 0);
    EXPECT_EQ(r.out, dir.File("good.bwd") + ": ok: 1 vehicles, 1 fighters\n");
    r = Bwtool("check " + dir.File("cut.bwd"));
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(r.out, dir.File("cut.bwd") +
                         ": truncated: read past the end of the file at byte offset 34 (vehicle 0, which begins at 34)\n");
    r = Bwtool("check " + dir.File("absent.bwd"));
    EXPECT_EQ(r.code, 1);
    EXPECT_EQ(r.out, dir.File("absent.bwd") + ": cannot be read\n");
}

TEST(BwtoolDb, DumpPrintsOneJsonLinePerDesign) {
    test::TempDir dir;
    dir.Write("good.bwd", Sample());
    const ToolRun r = Bwtool("dump " + dir.File("good.bwd"));
    ASSERT_EQ(r.code, 0) << r.out;
    const size_t nl = r.out.find('\n');
    ASSERT_NE(nl, std::string::npos);
    const std::string first = r.out.substr(0, nl), second = r.out.substr(nl + 1);
    EXPECT_EQ(first.rfind("{\"kind\":\"vehicle\",\"index\":0,\"Name\":\"Caf\xc3\xa9 \\\"Racer\\\" \xe2\x82\xac\\\\\\u0081\\u0001\",\"VhlType\":0,", 0), 0u)
        << first;
    EXPECT_NE(first.find(",\"Tonnage\":25,"), std::string::npos);
    EXPECT_NE(first.find(",\"Items\":[{\"wType\":2,\"wNum\":1,\"wLoc\":0,\"wStatus\":-1}]}"), std::string::npos);
    EXPECT_EQ(second.rfind("{\"kind\":\"fighter\",\"index\":0,\"Name\":\"Omni\",\"FighterType\":2,", 0), 0u);
    EXPECT_NE(second.find("\"OmniBaseLocked\":-1,\"OmniHasTC\":[0,0,0,0,0,0],"), std::string::npos);
    EXPECT_NE(second.find("\"OmniWeapons\":[[],[],[],[],[],[]]"), std::string::npos);
    EXPECT_EQ(r.out.back(), '\n');
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 2);
}

TEST(BwtoolDb, CopyOfACopyIsByteIdentical) {
    test::TempDir dir;
    dir.Write("in.bwd", Sample());
    ASSERT_EQ(Bwtool("copy " + dir.File("in.bwd") + " " + dir.File("one.bwd")).code, 0);
    ASSERT_EQ(Bwtool("copy " + dir.File("one.bwd") + " " + dir.File("two.bwd")).code, 0);
    EXPECT_EQ(dir.Read("one.bwd"), dir.Read("two.bwd"));
    EXPECT_EQ(dir.Read("one.bwd"), Sample());
    // A damaged input writes nothing.
    dir.Write("cut.bwd", Sample().substr(0, 100));
    const ToolRun r = Bwtool("copy " + dir.File("cut.bwd") + " " + dir.File("three.bwd"));
    EXPECT_EQ(r.code, 1);
    EXPECT_NE(r.out.find("Function: Vehicle.LoadData"), std::string::npos);
    EXPECT_TRUE(dir.Read("three.bwd").empty());
}

}  // namespace
}  // namespace bw
