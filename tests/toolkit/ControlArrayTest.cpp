#include "toolkit/forms/ControlArray.h"

#include <gtest/gtest.h>

namespace korvel {

TEST(ControlArray, NamesItsElements) {
    const ControlArray<int> array("Check");
    EXPECT_EQ(array.elementName(0), "Check_0");
    EXPECT_EQ(array.elementName(12), "Check_12");
}

TEST(ControlArray, GivesTheControlOfAnIndexThatMayHaveGaps) {
    int first = 10, second = 20;
    ControlArray<int> array("Cmd");
    array.add(3, second);
    array.add(1, first);
    EXPECT_EQ(&array[1], &first);
    EXPECT_EQ(&array[3], &second);
    std::string order;
    for (const auto& [index, control] : array)
        order += std::to_string(index) + ":" + std::to_string(*control) + " ";
    EXPECT_EQ(order, "1:10 3:20 ");
}

TEST(ControlArray, FailsOnAnIndexWithoutAControl) {
    int control = 0;
    ControlArray<int> array("Cmd");
    array.add(1, control);
    try {
        array[2] = 5;
        FAIL() << "no failure";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number, 340);
    }
}

} // namespace korvel
