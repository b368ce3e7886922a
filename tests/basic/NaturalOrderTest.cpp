#include "basic/NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace korvel {

TEST(NaturalOrder, CountsWhereBothHaveNumbersAndSpellsWhereNot) {
    const std::vector<std::string> ordered = {"",        "1A.DAT",   "A.DAT",  "A1.DAT", "A02.DAT", "A2.DAT",
                                              "A10.DAT", "A10B.DAT", "AB.DAT", "B1X2",   "B1X10",   "B2"};
    for (std::size_t i = 0; i < ordered.size(); ++i)
        for (std::size_t j = 0; j < ordered.size(); ++j)
            EXPECT_EQ(comesBefore(ordered[i], ordered[j]), i < j) << ordered[i] << " and " << ordered[j];
}

} // namespace korvel
