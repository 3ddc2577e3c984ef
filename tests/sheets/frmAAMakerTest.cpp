#include <gtest/gtest.h>

#include "sheets/frmAAMaker.h"
#include "support/FakeUi.h"
#include "vehicle/EditorTestSupport.h"

using namespace bw;
using namespace bw::test;

TEST(frmAAMaker, CaptionsAreTheToolsOwn) {
    frmAAMaker f;
    EXPECT_EQ(f.Window.Caption(), "Armor Array Creator");
    const std::pair<const Control*, const char*> captions[] = {
        {&f.LX, "Beginning X:"},      {&f.LY, "Beginning Y:"},   {&f.LXOffset, "X Offset:"},
        {&f.LYOffset, "Y Offset:"},   {&f.LXLen, "X Length:"},   {&f.LYLen, "Y Length:"},
        {&f.RButAlter[0], "Walk X"}, {&f.RButAlter[1], "Walk Y"}, {&f.PButMakeMid, "Make Mid"},
    };
    for (const auto& [c, text] : captions) EXPECT_EQ(c->Caption(), text) << c->Name;
    EXPECT_TRUE(f.RButAlter[0].Value());
}

// Fields: x, y, x offset, y offset, x length, y length.
TEST(frmAAMaker, GoAndMakeMidWalkThePatch) {
    struct Case {
        const char* fields[6];
        bool walkY, mid;
        const char* data;
    } cases[] = {
        {{"10", "20", "9", "8", "3", "2"}, false, false, "10,20\r\n19,20\r\n28,20\r\n10,28\r\n19,28\r\n28,28"},
        {{"10", "20", "9", "8", "3", "2"}, true, false, "10,20\r\n10,28\r\n19,20\r\n19,28\r\n28,20\r\n28,28"},
        {{"100", "5", "-7", "0", "3", "1"}, false, false, "100,5\r\n93,5\r\n86,5"},
        {{"10", "20", "9", "8", "3", "0"}, false, false, ""},
        // Halfway places: a half pixel rounds down, leftwards too.
        {{"10", "20", "9", "8", "3", "2"}, false, true, "14,24\r\n23,24"},
        {{"10", "20", "9", "8", "3", "3"}, true, true, "14,24\r\n14,32\r\n23,24\r\n23,32"},
        {{"100", "5", "-7", "9", "3", "1"}, false, true, "96,5\r\n89,5"},
        {{" 0", "9999 ", "+999", "-999", "1", "100"}, false, false, nullptr},
    };
    for (const Case& c : cases) {
        ScopedFakeUi fake;
        frmAAMaker f;
        TextBox* boxes[] = {&f.TX, &f.TY, &f.TXOffset, &f.TYOffset, &f.TXLen, &f.TYLen};
        for (int i = 0; i < 6; ++i) boxes[i]->SetText(c.fields[i]);
        f.RButAlter[c.walkY ? 1 : 0].SetValue(true);
        (c.mid ? f.PButMakeMid : f.PButGo).DoClick();
        EXPECT_TRUE(fake.ui.boxes.empty());
        if (c.data) EXPECT_EQ(f.TData.Text(), c.data) << c.fields[0] << " " << c.walkY << c.mid;
        else EXPECT_EQ(f.TData.Text().substr(0, 9), "0,9999\r\n0") << "limits are accepted";
    }
}

TEST(frmAAMaker, AFieldOutsideItsLimitsIsNamedAndTheListStays) {
    const std::pair<const char*, std::string> cases[] = {
        {"", "Beginning X must be a whole number from 0 to 9999."},
        {"10000", "Beginning X must be a whole number from 0 to 9999."},
        {"-1", "Beginning X must be a whole number from 0 to 9999."},
        {"2.5", "Beginning X must be a whole number from 0 to 9999."},
        {"99999999999999999999", "Beginning X must be a whole number from 0 to 9999."},
    };
    for (const auto& [text, message] : cases) {
        ScopedFakeUi fake;
        frmAAMaker f;
        f.PButGo.DoClick();
        const std::string before = f.TData.Text();
        f.TX.SetText(text);
        f.PButGo.DoClick();
        EXPECT_EQ(LastShown(fake.ui), (Shown{"Armor Array Creator", message, MsgIcon::Exclamation})) << text;
        EXPECT_EQ(f.TData.Text(), before);
    }
    ScopedFakeUi fake;
    frmAAMaker f;
    f.TXLen.SetText("101");
    f.TYOffset.SetText("1000");
    f.PButMakeMid.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "Y Offset must be a whole number from -999 to 999.");
    f.TYOffset.SetText("-999");
    f.PButMakeMid.DoClick();
    EXPECT_EQ(fake.ui.LastBox().text, "X Length must be a whole number from 0 to 100.");
}

TEST(frmAAMaker, AFocusedFieldHasItsTextSelected) {
    frmAAMaker f;
    for (TextBox* t : {&f.TX, &f.TY, &f.TXOffset, &f.TYOffset, &f.TXLen, &f.TYLen}) {
        t->SetText("1234");
        const int32_t before = t->SelectRequests();
        ASSERT_TRUE(t->GotFocus) << t->Name;
        t->GotFocus();
        EXPECT_EQ(t->SelectRequests(), before + 1) << t->Name;
        EXPECT_EQ(t->SelStart(), 0);
        EXPECT_EQ(t->SelLength(), 4) << t->Name;
    }
}
