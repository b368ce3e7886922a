#include "platform/Machine.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(Machine, WritesTheDayWithTwoDigitsAndTheYearWithFour) {
    EXPECT_EQ(dayMonthYear({1, 2, 2003}), "01/02/2003");
    EXPECT_EQ(dayMonthYear({31, 12, 1999}), "31/12/1999");
    EXPECT_EQ(dayMonthYear({9, 10, 987}), "09/10/0987");
}

} // namespace korvel
