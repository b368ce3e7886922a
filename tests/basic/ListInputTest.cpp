#include "basic/ListInput.h"

#include "basic/RunTimeError.h"
#include "fakes/LetterByLetterInput.h"
#include "fakes/Rounds.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <random>

namespace korvel {

namespace {

// What one call gave: the error's number, or the value.
struct Outcome {
    int error = 0;
    std::string text;
    double number = 0;
    bool operator==(const Outcome& other) const {
        return error == other.error && text == other.text &&
               std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(other.number);
    }
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
    return out << "error " << outcome.error << " text [" << outcome.text << "] number " << outcome.number;
}

enum class Call { number, integer, text, skip, line, atEnd };

Outcome outcomeOf(auto& input, Call call) {
    Outcome outcome;
    try {
        switch (call) {
        case Call::number: outcome.number = input.number(); break;
        case Call::integer: outcome.number = input.integer(); break;
        case Call::text: outcome.text = input.text(); break;
        case Call::skip: input.skip(); break;
        case Call::line: outcome.text = input.line(); break;
        case Call::atEnd: outcome.number = input.atEnd(); break;
        }
    } catch (const RunTimeError& error) {
        outcome.error = error.number;
    }
    return outcome;
}

std::vector<Outcome> outcomesOf(const std::string& text, const std::vector<Call>& calls,
                                std::size_t chunkSize = 512) {
    TextSource source(text);
    ListInput input(source, chunkSize);
    std::vector<Outcome> outcomes;
    for (Call call : calls)
        outcomes.push_back(outcomeOf(input, call));
    return outcomes;
}

std::vector<double> numbersOf(const std::string& text, std::size_t count) {
    std::vector<double> numbers;
    for (const Outcome& outcome : outcomesOf(text, std::vector<Call>(count, Call::number))) {
        EXPECT_EQ(outcome.error, 0) << text;
        numbers.push_back(outcome.number);
    }
    return numbers;
}

std::vector<std::string> textsOf(const std::string& text, std::size_t count) {
    std::vector<std::string> texts;
    for (const Outcome& outcome : outcomesOf(text, std::vector<Call>(count, Call::text))) {
        EXPECT_EQ(outcome.error, 0) << text;
        texts.push_back(outcome.text);
    }
    return texts;
}

using Numbers = std::vector<double>;
using Texts = std::vector<std::string>;

TEST(ListInput, LeavesAValueAloneThatItFailsToRead) {
    // The bytes in hand end within the field, as if it were "6".
    TextSource source("6x\n");
    ListInput input(source, 1);
    input.hasLine();
    double value = -1;
    EXPECT_THROW(input.numbers({&value, 1}), RunTimeError);
    EXPECT_EQ(value, -1);
}

} // namespace

TEST(ListInput, ReadsNumbersAsTheyAreWritten) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"0", 0},
        {"12", 12},
        {"+12", 12},
        {"-12.5", -12.5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"7.", 7},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1d3", 1000},
        {"1D+3", 1000},
        {"1.5D-3", 0.0015},
        {"0.1", 0.1},
        {"123456789012345", 123456789012345.0},
        {"9007199254740993", 9007199254740992.0},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"0.30000000000000004", 0.30000000000000004},
        {"1e22", 1e22},
        {"1e23", 1e23},
        {"1e-22", 1e-22},
        {"1e-23", 1e-23},
        {"1.7976931348623157e308", 1.7976931348623157e308},
        {"0000000000000000000000000000000012.5", 12.5},
        {"0.00000000000000000000000000000000125", 0.00000000000000000000000000000000125},
        {"2.2250738585072014e-308", 2.2250738585072014e-308},
        {"4.9406564584124654e-324", 4.9406564584124654e-324},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(numbersOf(text, 1), Numbers{value}) << text;
}

TEST(ListInput, TakesANumberTooSmallForADoubleAsZero) {
    for (const char* text :
         {"1e-400", "-1e-400", "1e-99999999999999999999", "0.0001e-330", "0e99999", "0d-5"})
        EXPECT_EQ(numbersOf(text, 1), Numbers{0}) << text;
}

TEST(ListInput, RefusesANumberBeyondADouble) {
    for (const char* text : {"1e309", "-1e309", "1e99999999999999999999", "1000e307", "1d400"})
        EXPECT_EQ(outcomesOf(text, {Call::number})[0].error, errors::typeMismatch) << text;
}

TEST(ListInput, RefusesTextThatIsNotANumber) {
    for (const char* text : {"****", "nan", "NaN",   "inf",  "-inf",   "infinity", "abc", "12abc",
                             "1e",   "1e+", "--1",   "+-1",  "-+1",    "1.2.3",    ".",   "-",
                             "+",    "e5",  "1e5e5", "0x10", "\"12\"", "1_000",    "12;"})
        EXPECT_EQ(outcomesOf(text, {Call::number})[0].error, errors::typeMismatch) << text;
}

TEST(ListInput, EndsANumberAtBlankCommaOrLineEnd) {
    const Numbers expected = {1, 2, 3};
    for (const char* text : {"1 2 3", "1,2,3", "1\n2\n3", "1\r2\r3", "1\r\n2\r\n3\r\n", "1\t2\t3",
                             "  1 , 2 , 3", "1,\t2 ,\t3\t", "1 ,2\r\n3", "1 \r\n2 \r3 \n"})
        EXPECT_EQ(numbersOf(text, 3), expected) << text;
}

TEST(ListInput, ReadsAnEmptyFieldAsZeroOrNothing) {
    EXPECT_EQ(numbersOf(",,3", 3), (Numbers{0, 0, 3}));
    EXPECT_EQ(numbersOf("1,,3", 3), (Numbers{1, 0, 3}));
    EXPECT_EQ(numbersOf("1\n\n3", 3), (Numbers{1, 0, 3}));
    EXPECT_EQ(numbersOf("1,\n3", 3), (Numbers{1, 0, 3}));
    EXPECT_EQ(textsOf("a,,c", 3), (Texts{"a", "", "c"}));
    EXPECT_EQ(textsOf("\"\"\r\n\r\nc", 3), (Texts{"", "", "c"}));
}

TEST(ListInput, RoundsAFractionToTheEvenInteger) {
    const std::string text = "0.5 1.5 2.5 -0.5 -1.5 2.4 2.6 2147483647 -2147483648 2147483647.5 3e9 1e300";
    const auto outcomes = outcomesOf(text, std::vector<Call>(12, Call::integer));
    const Numbers expected = {0, 2, 2, 0, -2, 2, 3, 2147483647, -2147483648.0};
    for (std::size_t k = 0; k < expected.size(); ++k)
        EXPECT_EQ(outcomes[k].number, expected[k]);
    for (std::size_t k = expected.size(); k < outcomes.size(); ++k)
        EXPECT_EQ(outcomes[k].error, errors::overflow);
}

TEST(ListInput, ReadsTextToTheCommaOrLineEnd) {
    EXPECT_EQ(textsOf("Upper Mill  , Weir\t\r\nLower", 3), (Texts{"Upper Mill", "Weir", "Lower"}));
    EXPECT_EQ(textsOf("ab\"c\"d,e", 2), (Texts{"ab\"c\"d", "e"}));
    EXPECT_EQ(textsOf("\xE9t\xE9,1", 2), (Texts{"\xE9t\xE9", "1"}));
}

TEST(ListInput, ReadsQuotedTextToTheNextQuote) {
    EXPECT_EQ(textsOf("\"a, b\" , \" c \"", 2), (Texts{"a, b", " c "}));
    EXPECT_EQ(textsOf("\"a\r\nb\nc\",d", 2), (Texts{"a\r\nb\nc", "d"}));
    EXPECT_EQ(textsOf("\"a\"\"b\" c", 3), (Texts{"a", "b", "c"}));
    EXPECT_EQ(textsOf("\"no end, \n", 1), Texts{"no end, \n"});
}

TEST(ListInput, DropsAFieldOfAnyForm) {
    const auto afterSkip = [](const std::string& text) {
        return outcomesOf(text, {Call::skip, Call::text})[1].text;
    };
    EXPECT_EQ(afterSkip("\"a, b\",next"), "next");
    EXPECT_EQ(afterSkip("12,next"), "next");
    EXPECT_EQ(afterSkip("****,next"), "next");
    EXPECT_EQ(afterSkip(",next"), "next");
    EXPECT_EQ(afterSkip("two words,next"), "words");
}

TEST(ListInput, ReadsWholeLinesWithTheirBlanks) {
    EXPECT_EQ(outcomesOf(" a, \"b \r\n\r\nc\rd\ne", std::vector<Call>(5, Call::line)),
              (std::vector<Outcome>{{0, " a, \"b "}, {0, ""}, {0, "c"}, {0, "d"}, {0, "e"}}));
}

TEST(ListInput, LeavesTheBlanksAtTheStartOfALineAfterAField) {
    EXPECT_EQ(outcomesOf("3  \r\n   1 Mill", {Call::number, Call::line})[1].text, "   1 Mill");
}

TEST(ListInput, FailsPastTheEnd) {
    for (Call call : {Call::number, Call::integer, Call::text, Call::skip, Call::line}) {
        for (const char* text : {"", "\x1a", "\x1a\r\n \x1a"})
            EXPECT_EQ(outcomesOf(text, {call})[0].error, errors::inputPastEndOfFile);
    }
    EXPECT_EQ(outcomesOf("1,  ", {Call::number, Call::number})[1].error, errors::inputPastEndOfFile);
    EXPECT_EQ(outcomesOf("1,\x1a", {Call::number, Call::number})[1].error, errors::inputPastEndOfFile);
}

TEST(ListInput, IsAtTheEndWhereOnlyBlanksLinesAndControlZAreLeft) {
    const struct {
        const char* text;
        bool ended;
    } cases[] = {{"", true},     {"  \t", true},         {"\r\n\n\r", true},
                 {"\x1a", true}, {" \r\n\x1a\n ", true}, {"\r\n x", false},
                 {",", false},   {"\"\"", false}};
    for (const auto& [text, ended] : cases)
        EXPECT_EQ(outcomesOf(text, {Call::atEnd})[0].number, ended) << text;
}

TEST(ListInput, EndsTheFileAtACtrlZWithNothingBehindIt) {
    for (const char* behind : {"\x1a", "\x1a\r\n", "\x1a \n\x1a\t\r"}) {
        const auto text = [&](const char* before) { return std::string(before) + behind; };
        EXPECT_EQ(outcomesOf(text("1,25"), {Call::number, Call::number, Call::atEnd})[1].number, 25);
        EXPECT_EQ(outcomesOf(text("1,25"), {Call::number, Call::number, Call::atEnd})[2].number, true);
        EXPECT_EQ(outcomesOf(text("7"), {Call::integer})[0].number, 7);
        EXPECT_EQ(outcomesOf(text("Upper Mill "), {Call::text})[0].text, "Upper Mill");
        EXPECT_EQ(outcomesOf(text("\"Upper Mill\""), {Call::text})[0].text, "Upper Mill");
        EXPECT_EQ(outcomesOf(text("\"Upper Mill"), {Call::text})[0].text, "Upper Mill");
        EXPECT_EQ(outcomesOf(text("Upper Mill"), {Call::line})[0].text, "Upper Mill");
        EXPECT_EQ(outcomesOf(text("5"), {Call::skip, Call::number})[1].error, errors::inputPastEndOfFile);
    }
}

TEST(ListInput, TakesACtrlZWithMoreBehindItAsACharacter) {
    EXPECT_EQ(outcomesOf("a\x1a\n\x1a\nb", {Call::text, Call::text, Call::text})[0].text, "a\x1a");
    EXPECT_EQ(outcomesOf("a\x1a\n\x1a\nb", {Call::text, Call::text, Call::text})[1].text, "\x1a");
    EXPECT_EQ(outcomesOf("5\x1a\n6", {Call::number})[0].error, errors::typeMismatch);
    EXPECT_EQ(outcomesOf("\"a\x1a\n\"", {Call::text})[0].text, "a\x1a\n");
}

TEST(ListInput, AskingForTheEndTakesNothing) {
    EXPECT_EQ(
        outcomesOf("\n\n5", {Call::atEnd, Call::number, Call::atEnd, Call::number, Call::number})[4].number,
        5);
}

TEST(ListInput, ReadsFieldsLongerThanAChunk) {
    const std::string words(5000, 'x');
    EXPECT_EQ(outcomesOf("\"" + words + "\"," + words + ",1", {Call::text, Call::text, Call::number}, 16),
              (std::vector<Outcome>{{0, words}, {0, words}, {0, "", 1}}));
    EXPECT_EQ(outcomesOf(std::string(5000, '0') + "7", {Call::number}, 16)[0].number, 7);
}

TEST(ListInput, CountsTheBytesItHasConsumed) {
    TextSource source("12,\"ab\"\r\nrest of it\r\n");
    ListInput input(source, 3);
    EXPECT_EQ(input.bytesConsumed(), 0u);
    input.number();
    EXPECT_EQ(input.bytesConsumed(), 3u);
    input.text();
    EXPECT_EQ(input.bytesConsumed(), 9u);
    input.line();
    EXPECT_EQ(input.bytesConsumed(), 21u);
}

TEST(ListInput, PassesOnAFailureOfItsSource) {
    class Failing : public ByteSource {
        std::size_t read(char*, std::size_t) override { throw RunTimeError(errors::deviceIoError); }
    } source;
    ListInput input(source);
    EXPECT_EQ(outcomeOf(input, Call::number).error, errors::deviceIoError);
}

TEST(ListInput, ReadsRandomTextsAsALetterByLetterTwin) {
    const std::string pieces[] = {"1",        "2.5",
                                  "-3",       "4e2",
                                  "5D-1",     "\"",
                                  "\"a b\"",  ",",
                                  " ",        "\t",
                                  "\n",       "\r",
                                  "\r\n",     "abc",
                                  "x y",      "\x1a",
                                  "****",     ".",
                                  "\"\r\n\"", "0.1234567",
                                  "12345678", "123456789.123456789",
                                  "1e400",    "1e-400",
                                  "+",        "\xE9",
                                  "9.99E+22"};
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t count) { return random() % count; };
    for (int round = 0; round < roundsOf(20000); ++round) {
        std::string text;
        for (std::size_t k = upTo(30); k > 0; --k)
            text += pieces[upTo(std::size(pieces))];
        TextSource source(text);
        ListInput input(source, round % 8 == 7 ? 512 : static_cast<std::size_t>(round % 8 + 1));
        LetterByLetterInput twin(text);
        for (int call = 0; call < 25; ++call) {
            const Call next = static_cast<Call>(upTo(6));
            const Outcome expected = outcomeOf(twin, next);
            ASSERT_EQ(outcomeOf(input, next), expected) << "text [" << text << "] call " << call;
            if (expected.error != 0) break;
        }
    }
}

TEST(ListInput, ReadsRandomNumbersToTheLastBit) {
    std::mt19937_64 random(11);
    for (int round = 0; round < roundsOf(100000); ++round) {
        char text[64];
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        std::snprintf(text, sizeof text, "%.*g", static_cast<int>(random() % 20 + 1), value);
        if (std::isinf(std::strtod(text, nullptr))) continue;
        ASSERT_EQ(numbersOf(text, 1), Numbers{std::strtod(text, nullptr)}) << text;
        std::snprintf(text, sizeof text, "%.*f", static_cast<int>(random() % 12),
                      static_cast<double>(random() % 1000000000) / 1e5);
        ASSERT_EQ(numbersOf(text, 1), Numbers{std::strtod(text, nullptr)}) << text;
    }
}

} // namespace korvel
