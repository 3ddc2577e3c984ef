#include <gtest/gtest.h>

#include <cmath>

#include "core/Errors.h"
#include "support/FakeUi.h"
#include "support/RaisesError.h"

using namespace bw;

TEST(CheckedArithmetic, NarrowingRaisesOverflowAtTheEdges) {
    EXPECT_EQ(zI16(32767), 32767);
    EXPECT_EQ(zI16(-32768), -32768);
    EXPECT_EQ(test::ErrNumberOf([] { zI16(32768); }), kErrOverflow);
    EXPECT_EQ(test::ErrNumberOf([] { zI16(-32769); }), kErrOverflow);
    EXPECT_EQ(test::ErrNumberOf([] { zI16(int32_t{300} * 300); }), kErrOverflow);
    EXPECT_EQ(zI32(2147483647LL), 2147483647);
    EXPECT_EQ(test::ErrNumberOf([] { zI32(2147483648LL); }), kErrOverflow);
}

TEST(CheckedArithmetic, ConversionRoundsHalfToEven) {
    EXPECT_EQ(zCInt(0.5), 0);
    EXPECT_EQ(zCInt(1.5), 2);
    EXPECT_EQ(zCInt(2.5), 2);
    EXPECT_EQ(zCInt(-2.5), -2);
    EXPECT_EQ(zCInt(2.5000001), 3);
    EXPECT_EQ(zCLng(12.75), 13);
    EXPECT_EQ(zCInt(32767.4), 32767);
    EXPECT_EQ(test::ErrNumberOf([] { zCInt(32767.5); }), kErrOverflow);  // rounds to 32768
    EXPECT_EQ(test::ErrNumberOf([] { zCInt(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(test::ErrNumberOf([] { zCLng(3e9); }), kErrOverflow);
}

TEST(CheckedArithmetic, DivisionByZeroIsError11) {
    EXPECT_EQ(zDiv16(7, 2), 3);
    EXPECT_EQ(test::ErrNumberOf([] { zDiv16(1, 0); }), kErrDivByZero);
    EXPECT_EQ(test::ErrNumberOf([] { zDiv16(-32768, -1); }), kErrOverflow);
}

TEST(ErrorReporter, ShowsTheExactTextInACriticalBoxTitledError) {
    test::ScopedFakeUi fake;
    int r = zTrap("zSomething", -7, []() -> int { zRaise(kErrOverflow); });
    EXPECT_EQ(r, -7);
    ASSERT_EQ(fake.ui.boxes.size(), 1u);
    EXPECT_EQ(fake.ui.LastBox().title, "Error");
    EXPECT_EQ(fake.ui.LastBox().icon, MsgIcon::Critical);
    EXPECT_EQ(fake.ui.LastBox().text,
              "A problem has occurred. Your application may now be unstable. Please contact Tallowmere Workshop "
              "by sending email to:support@tallowmere-workshop.example Please include the following information:\n\n"
              "\tFunction: zSomething\n\tError Number: 6\n\tError Description: Overflow");
}

TEST(ErrorReporter, NoBoxWhenNotAsked) {
    test::ScopedFakeUi fake;
    zReportError("x", RunError(kErrSubscript), false, false);
    EXPECT_TRUE(fake.ui.boxes.empty());
}
