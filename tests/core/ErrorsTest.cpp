#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "core/Errors.h"
#include "support/Boxes.h"
#include "support/RaisesError.h"

using namespace bw;
using test::ErrNumberOf;

TEST(CheckedArithmetic, NarrowingRoundingAndDivisionRaiseAtTheEdges) {
    EXPECT_EQ(zI16(32767), 32767);
    EXPECT_EQ(zI16(-32768), -32768);
    EXPECT_EQ(zI32(2147483647LL), 2147483647);
    // Rounding is half to even.
    for (auto [in, out] : {std::pair(0.5, 0), {1.5, 2}, {2.5, 2}, {-2.5, -2}, {2.5000001, 3}, {32767.4, 32767}})
        EXPECT_EQ(zCInt(in), out) << in;
    EXPECT_EQ(zCLng(12.75), 13);
    EXPECT_EQ(zDiv16(7, 2), 3);
    const std::pair<std::function<void()>, int> raises[] = {
        {[] { zI16(32768); }, kErrOverflow},        {[] { zI16(-32769); }, kErrOverflow},
        {[] { zI16(int32_t{300} * 300); }, kErrOverflow}, {[] { zI32(2147483648LL); }, kErrOverflow},
        {[] { zCInt(32767.5); }, kErrOverflow},  // rounds to 32768
        {[] { zCInt(std::nan("")); }, kErrOverflow}, {[] { zCLng(3e9); }, kErrOverflow},
        {[] { zDiv16(1, 0); }, kErrDivByZero},      {[] { zDiv16(-32768, -1); }, kErrOverflow},
    };
    for (size_t i = 0; i < std::size(raises); ++i) EXPECT_EQ(ErrNumberOf(raises[i].first), raises[i].second) << i;
}

TEST(ErrorReporter, ShowsTheExactTextInACriticalBoxTitledErrorWhenAsked) {
    test::ScopedFakeUi fake;
    EXPECT_EQ(zTrap("zSomething", -7, []() -> int { zRaise(kErrOverflow); }), -7);
    zReportError("x", RunError(kErrSubscript), false, false);
    EXPECT_EQ(test::TakeBoxes(fake.ui),
              (std::vector<test::Box>{
                  {"Error",
                   "A problem has occurred. Your application may now be unstable. Please contact Tallowmere Workshop "
                   "by sending email to:help@tallowmere.example Please include the following "
                   "information:\n\n\tFunction: zSomething\n\tError Number: 6\n\tError Description: Overflow",
                   MsgIcon::Critical}}));
}
