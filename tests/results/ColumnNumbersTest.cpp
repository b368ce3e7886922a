#include "results/ColumnNumbers.h"

#include "basic/ListInput.h"
#include "basic/RunTimeError.h"
#include "basic/SixteenDigits.h"
#include "fakes/Rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>
#include <string>

namespace korvel {

namespace {

using Value = std::optional<std::uint64_t>; // the bits

const std::string before = "\"A caption\", 12.5,";
const std::string behind = ", 1.5\r\n\"B\"";

using Way = bool (*)(const char*, std::span<const ColumnNumber>, double*);

Value readBy(Way way, const std::string& field, const ColumnNumber& number) {
    const std::string text = before + field + behind;
    double value = 0;
    if (!way(text.data(), {&number, 1}, &value)) return {};
    return std::bit_cast<std::uint64_t>(value);
}

// The field must be one number, all of it.
Value readByTheGeneralReader(const std::string& field) {
    TextSource source(field + "\n7\n");
    ListInput input(source);
    try {
        const double value = input.number();
        return input.integer() == 7 ? Value(std::bit_cast<std::uint64_t>(value)) : Value();
    } catch (const RunTimeError&) {
        return {};
    }
}

ColumnNumber placeIn(const std::string& field) {
    const std::string text = before + field + behind;
    const std::size_t first = text.find_first_not_of(' ', before.size());
    return columnNumber(text, before.size(), first, before.size() + field.size());
}

class Fields {
  public:
    std::string column() {
        char text[64];
        const double size = std::uniform_real_distribution(0.0, 10.0)(m_random) * power();
        std::snprintf(text, sizeof text, "%*.*f", m_width, m_decimals, below(8) == 0 ? -size : size);
        return text;
    }
    // The same field with characters changed, but for its point.
    std::string damaged(std::string field) {
        const std::string characters = " 0123456789   -+eED!x\t/:\"";
        for (int changes = below(4); changes > 0; --changes) {
            char& c = field[static_cast<std::size_t>(below(static_cast<int>(field.size())))];
            if (c != '.')
                c = characters[static_cast<std::size_t>(below(static_cast<int>(characters.size())))];
        }
        return field;
    }
    void nextForm() {
        m_width = 1 + below(18);
        m_decimals = below(10);
    }

  private:
    int below(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    double power() {
        double power = 0.001;
        for (int k = below(12); k > 0; --k)
            power *= 10;
        return power;
    }

    std::mt19937 m_random{7};
    int m_width = 12;
    int m_decimals = 6;
};

TEST(ColumnNumbers, BothWaysReadAsTheGeneralReaderDoes) {
    if (!hasVectors()) GTEST_SKIP() << "this machine has no vectors to compare the words with";
    Fields fields;
    int read = 0;
    int refused = 0;
    int inSixteens = 0;
    const int rounds = roundsOf(60000);
    for (int round = 0; round < rounds; ++round) {
        if (round % 10 == 0) fields.nextForm();
        const std::string learnt = fields.column();
        const ColumnNumber number = placeIn(learnt);
        const std::string field = fields.damaged(learnt);
        const Value byWords = readBy(readColumnsByWords, field, number);
        const Value byVectors = readBy(readColumnsByVectors, field, number);
        ASSERT_EQ(byWords, byVectors) << "[" << learnt << "] [" << field << "]";
        const bool frameIsSame =
            field.substr(0, number.start - before.size()) == learnt.substr(0, number.start - before.size());
        if (byWords && frameIsSame) {
            ASSERT_EQ(byWords, readByTheGeneralReader(field)) << "[" << field << "]";
        }
        const auto digits = std::ranges::count_if(learnt, [](char c) { return c >= '0' && c <= '9'; });
        if (field == learnt && digits <= 15) {
            ASSERT_TRUE(byWords) << learnt;
        }
        ++(byWords ? read : refused);
        inSixteens += number.inSixteens ? 1 : 0;
    }
    EXPECT_GT(read, rounds / 3);
    EXPECT_GT(refused, rounds / 6);
    EXPECT_GT(inSixteens, rounds / 3);
}

TEST(ColumnNumbers, RefuseWhatOnlyLooksLikeANumber) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"   12.50", "      . "}, {"   12.50", "      .  "}, {"   12.50", "  1 2.50"},
        {"   12.50", "   12. 0"}, {"   12.50", "        "},  {"   12.50", "   /2.50"},
        {"   12.50", "   12.5:"}, {"      40", "        "},  {"      40", "      4 "},
        {"   12.50", "   12.-0"},
    };
    for (const auto& [learnt, field] : cases) {
        EXPECT_FALSE(readBy(readColumnsByWords, field, placeIn(learnt))) << field;
        EXPECT_FALSE(readBy(readColumnsByVectors, field, placeIn(learnt))) << field;
    }
}

} // namespace

} // namespace korvel
