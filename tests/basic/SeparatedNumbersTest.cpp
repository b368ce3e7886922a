#include "basic/SeparatedNumbers.h"

#include "basic/ByteSource.h"
#include "basic/ListInput.h"
#include "basic/SixteenDigits.h"
#include "fakes/Rounds.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace korvel {

namespace {

struct Read {
    std::vector<double> values;
    std::size_t length = 0; // bytes
};

// At most `count` fields from the beginning of a text.
Read readAtOnce(const std::string& text, std::size_t count) {
    const std::string padded = text + std::string(7, '\n');
    std::vector<double> values(count, -1);
    const auto [read, next] = readSeparatedNumbers(padded.data(), padded.data() + text.size(), values);
    values.resize(read);
    return {values, static_cast<std::size_t>(next - padded.data())};
}

Read readOneByOne(const std::string& text, std::size_t count) {
    constexpr std::size_t chunk = 32; // too few bytes in hand to be looked at together
    TextSource source(text);
    ListInput input(source, chunk);
    Read read;
    while (read.values.size() < count)
        read.values.push_back(input.number());
    read.length = input.bytesConsumed();
    return read;
}

const std::string more =
    " 7 \"Something else\", and so on, long enough for the bytes that are looked at together";

class Lists {
  public:
    std::string next() {
        std::string text = oneOf({"", " ", "  \t"});
        const int fields = 1 + below(14);
        for (int k = 0; k < fields; ++k)
            text += number() + separator();
        if (below(3) == 0) text[static_cast<std::size_t>(below(static_cast<int>(text.size())))] = damage();
        return text + more;
    }

  private:
    int below(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    std::string oneOf(const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(below(static_cast<int>(texts.size())))];
    }
    std::string separator() {
        return oneOf({" ", " ", ", ", ",", "\r\n", "\n", "\r", " \n", "\t", " , ", "     ", ",,"});
    }
    std::string number() {
        const double size = std::uniform_real_distribution(-10.0, 10.0)(m_random) * std::pow(10.0, below(8));
        char text[64];
        std::snprintf(text, sizeof text, oneOf({"%.*f", "%.*f", "%.*f", "%+.*f", "%.*e"}).c_str(), below(9),
                      size);
        return text;
    }
    char damage() { return " ,.\"\r\n\t-+eE0123456789x!\x1a"[below(24)]; }

    std::mt19937 m_random{11};
};

class SeparatedNumbers : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasVectors()) GTEST_SKIP() << "this machine has no vectors to try";
    }
};

TEST_F(SeparatedNumbers, AreWhatTheReaderOneByOneGives) {
    Lists lists;
    std::size_t all = 0;
    const int rounds = roundsOf(20000);
    for (int round = 0; round < rounds; ++round) {
        const std::string text = lists.next();
        const std::size_t wanted = 1 + static_cast<std::size_t>(round % 20);
        const Read quick = readAtOnce(text, wanted);
        if (quick.values.empty()) {
            ASSERT_EQ(quick.length, 0u) << text;
            continue;
        }
        const Read plain = readOneByOne(text, quick.values.size());
        ASSERT_EQ(quick.length, plain.length) << text;
        for (std::size_t k = 0; k < quick.values.size(); ++k)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(quick.values[k]),
                      std::bit_cast<std::uint64_t>(plain.values[k]))
                << "field " << k << " of " << text;
        all += quick.values.size();
    }
    EXPECT_GT(all, static_cast<std::size_t>(rounds) * 5 / 4);
}

TEST_F(SeparatedNumbers, ComeInAllWidthsAndBetweenAllSeparators) {
    const Read read =
        readAtOnce("  1 -2.5,+.25\r\n4.\n 0.000000005 , 1234567.12345678\t-0 \r 42 \n" + more, 8);
    EXPECT_EQ(read.values, (std::vector<double>{1, -2.5, .25, 4, .000000005, 1234567.12345678, -0., 42}));
    EXPECT_EQ(read.length, 59u);
}

TEST_F(SeparatedNumbers, StopAtWhatIsNoPlainNumber) {
    const std::vector<std::pair<const char*, std::size_t>> cases = {
        {"1.5 2E3 4", 1}, {"1.5 x 4", 1},    {"1.5 2.5.1 4", 1}, {"1.5 - 4", 1},
        {"1.5 . 4", 1},   {"1.5 2!5 4", 1},  {"1.5 --2 4", 1},   {"1.5 1234567890.123456 4", 1},
        {"1.5 2/3 4", 1}, {"1.5 \x1a 4", 1}, {"1.5 2:3 4", 1},   {"1.5 \"2\" 4", 1},
    };
    for (const auto& [text, count] : cases)
        EXPECT_EQ(readAtOnce(text + more, 3).values.size(), count) << text;
}

TEST_F(SeparatedNumbers, LeaveEmptyFieldsAlone) {
    for (const char* text : {",1 2", "1,,2", "1\n\n2", "1 , , 2", "1,\r\n2", "\r\n1 2", "1\r\r\n2"})
        EXPECT_EQ(readAtOnce(text + more, 2).values.size(), 0u) << text;
}

TEST_F(SeparatedNumbers, LeaveTheLastOfTheBytesInHand) {
    std::string text;
    for (int k = 0; k < 30; ++k)
        text += "12.25 ";
    for (std::size_t size = 0; size < text.size(); ++size) {
        const Read read = readAtOnce(text.substr(0, size), 30);
        EXPECT_EQ(read.length, 6 * read.values.size());
        EXPECT_LT(read.length, std::max<std::size_t>(size, 1));
        EXPECT_EQ(read.values.empty(), size < 72) << size;
    }
}

} // namespace

} // namespace korvel
