// A file that comes in one piece is read by the layout of its points where they have one, and many numbers at
// a time where they have none; one that dribbles in is read number by number. Both give the same, to the last
// bit, on files of all kinds and with all kinds of damage.
#include "fakes/Rounds.h"
#include "results/PointValues.h"
#include "results/ReaderFixture.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <random>

namespace korvel {

namespace {

class DribblingSource : public ByteSource {
  public:
    explicit DribblingSource(const std::string& text) : m_text(text) {}
    std::size_t read(char* into, std::size_t capacity) override {
        return m_text.read(into, std::min<std::size_t>(capacity, 32));
    }

  private:
    TextSource m_text;
};

class ColumnFile {
  public:
    explicit ColumnFile(std::mt19937& random) : m_random(random) {}

    std::string text() {
        m_text = "River" + m_lineEnd + "0" + m_lineEnd + "1" + m_lineEnd + "1" + m_separator + "\"BOD\"" +
                 m_separator + "1" + m_lineEnd + "0" + m_lineEnd;
        for (int point = 0; point < 8; ++point)
            addPoint();
        if (chance(3)) damage();
        return m_text;
    }

  private:
    int below(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    bool chance(int oneIn) { return below(oneIn) == 0; }
    template <typename T>
    T oneOf(std::vector<T> values) {
        return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
    }

    void addPoint() {
        m_text += "1" + m_separator + "0.5" + m_separator + "\"Weir" +
                  std::string(static_cast<std::size_t>(below(5)), 'x') + "   \"" + m_separator + "0" +
                  m_separator + oneOf<std::string>({"0", "10", "99"}) + m_lineEnd;
        for (int count : valuesByCaption(1)) {
            m_text += m_caption;
            for (int k = 0; k < count; ++k)
                m_text += (k % 3 == 0 && k > 0 ? m_lineEnd : m_separator) + number();
            m_text += m_lineEnd;
        }
        if (chance(20)) m_width = 6 + below(10);
    }

    std::string number() {
        if (chance(400)) return "";
        const double size =
            std::uniform_real_distribution(-1.0, 1.0)(m_random) * std::pow(10.0, below(9) - 3);
        char text[64];
        const char* format = chance(m_exponentOneIn) ? "%*.*E" : "%*.*f";
        std::snprintf(text, sizeof text, format, m_inColumns ? m_width : 0, m_decimals,
                      m_negative ? size : std::abs(size));
        return text;
    }

    void damage() {
        const auto at = static_cast<std::size_t>(below(static_cast<int>(m_text.size())));
        const char bytes[] = " ,.\"\r\n\t-+eE0123456789x!\x1a";
        if (chance(3))
            m_text.erase(at, 1);
        else if (chance(2))
            m_text.insert(at, 1, bytes[below(sizeof bytes)]);
        else
            m_text[at] = bytes[below(sizeof bytes)];
    }

    std::mt19937& m_random;
    std::string m_lineEnd = oneOf<std::string>({"\r\n", "\n", "\r"});
    std::string m_separator = oneOf<std::string>({",", ", ", " ", "   "});
    // One without quotes goes up to the next comma.
    std::string m_caption =
        m_separator.starts_with(',')
            ? oneOf<std::string>({"\"Mean\"", "\"Mean\"", "Mean", "7 \"Mean\"", "7 \"a\" \"b"})
            : "\"Mean\"";
    bool m_inColumns = chance(2);
    int m_width = 5 + below(14);
    int m_decimals = below(10);
    bool m_negative = chance(3);
    int m_exponentOneIn = oneOf<int>({1, 50, 100000});
    std::string m_text;
};

class ReadingWays : public ReaderFixture {
  protected:
    struct Outcome {
        Ending ending;
        int failure;
        int points;
        bool interpolated;
        std::vector<std::string> labels;
        std::vector<std::uint64_t> values;
        bool operator==(const Outcome&) const = default;
    };

    Outcome outcomeOf(ByteSource& source) {
        results.values[0].reset();
        const Ending ending = load(source);
        Outcome outcome{ending, failure, results.pointCount, results.hasInterpolatedPoints, {}, {}};
        for (int point = 1; point <= 9; ++point) {
            outcome.labels.push_back(results.pointLabel[point]);
            for (const ValuePlace& place : valuePlacesOfPoint(1))
                outcome.values.push_back(std::bit_cast<std::uint64_t>(
                    results.values[0].at(place.field, point, place.series, place.level)));
        }
        for (double largest : results.seriesMaximum)
            outcome.values.push_back(std::bit_cast<std::uint64_t>(largest));
        return outcome;
    }
};

TEST_F(ReadingWays, GiveTheSameToTheLastBit) {
    std::mt19937 random(20);
    int loaded = 0;
    int failed = 0;
    const int rounds = roundsOf(1500);
    for (int round = 0; round < rounds; ++round) {
        const std::string text = ColumnFile(random).text();
        results = {};
        TextSource whole(text);
        const Outcome quick = outcomeOf(whole);
        results = {};
        DribblingSource dribbling(text);
        const Outcome plain = outcomeOf(dribbling);
        ASSERT_TRUE(quick == plain) << "round " << round << "\n" << text;
        ++(plain.ending == Ending::loaded ? loaded : failed);
    }
    EXPECT_GT(loaded, rounds / 2);
    EXPECT_GT(failed, rounds / 30);
}

} // namespace

} // namespace korvel
