#include "SmallCatchment.h"

#include "engine/GraphResultsFile.h"

#include <gtest/gtest.h>

namespace korvel {

using namespace engine;

namespace {

// Takes the file apart as a reader of list input does: whole lines, or fields between commas and line ends.
class FieldReader {
  public:
    explicit FieldReader(std::string text) : m_text(std::move(text)) {}

    std::string line() {
        const auto end = m_text.find("\r\n", m_place);
        const std::string line = m_text.substr(m_place, end - m_place);
        m_place = end + 2;
        return line;
    }
    std::string text() {
        skipBlanks();
        std::string field;
        if (m_text[m_place] == '"') {
            const auto end = m_text.find('"', m_place + 1);
            field = m_text.substr(m_place + 1, end - m_place - 1);
            m_place = end + 1;
        } else {
            const auto end = m_text.find_first_of(",\r", m_place);
            field = m_text.substr(m_place, end - m_place);
            m_place = end;
        }
        skipBlanks();
        m_place += m_text[m_place] == '\r' ? 2 : 1;
        return field;
    }
    double number() {
        const std::string field = text();
        std::size_t used = 0;
        const double value = std::stod(field, &used);
        if (used != field.size()) throw std::runtime_error("no number: " + field);
        return value;
    }
    bool atEnd() const { return m_place >= m_text.size(); }

  private:
    void skipBlanks() {
        while (m_text[m_place] == ' ')
            ++m_place;
    }
    std::string m_text;
    std::size_t m_place = 0;
};

void expectNear(double found, double expected) {
    EXPECT_NEAR(found, expected, 6e-6 * std::abs(expected) + 1e-9);
}

void expectSummary(FieldReader& file, const Summary& summary) {
    file.text();
    expectNear(file.number(), summary.mean);
    expectNear(file.number(), summary.meanLimits.lower);
    expectNear(file.number(), summary.meanLimits.upper);
    for (std::size_t m = 0; m < 3; ++m) {
        expectNear(file.number(), summary.percentiles[m]);
        expectNear(file.number(), summary.percentileLimits[m].lower);
        expectNear(file.number(), summary.percentileLimits[m].upper);
    }
}

void expectObserved(FieldReader& file, const Observed& observed) {
    file.text();
    expectNear(file.number(), observed.mean);
    expectNear(file.number(), observed.percentile90);
    expectNear(file.number(), observed.percentile95);
    expectNear(file.number(), observed.percentile99);
}

std::string withoutTag(const std::string& label) {
    return label.substr(0, label.size() - 3);
}

struct SmallRun {
    SmallRun() : catchment(smallCatchment::parsed(smallCatchment::variableText())) {
        result = RiverModel(catchment).run({}, nullptr, [](std::size_t, const Reach&) {});
    }
    FieldReader file() const {
        return FieldReader(graphResultsText(catchment, result, "A title, with a comma"));
    }

    Catchment catchment;
    ModelResult result;
};

} // namespace

TEST(GraphResultsFile, BeginsWithTitleDeterminandsAndReaches) {
    FieldReader file = SmallRun().file();
    EXPECT_EQ(file.line(), "A title, with a comma");
    EXPECT_EQ(file.number(), 0);
    EXPECT_EQ(file.number(), 2);
    EXPECT_EQ(file.number(), 1);
    EXPECT_EQ(file.text(), "Salt");
    EXPECT_EQ(file.number(), 1);
    EXPECT_EQ(file.number(), 1);
    EXPECT_EQ(file.text(), "BOD");
    EXPECT_EQ(file.number(), 3);
    EXPECT_EQ(file.number(), 2);
    EXPECT_EQ(file.line(), "   1 Upper                 4.000    2");
    EXPECT_EQ(file.line(), "   2 Lower                10.000    0");
}

TEST(GraphResultsFile, HoldsEveryValueOfEveryPointInItsPlace) {
    const SmallRun run;
    FieldReader file = run.file();
    for (int line = 0; line < 8; ++line)
        file.line();
    for (const PointResult& point : run.result.points) {
        EXPECT_EQ(file.number(), point.point.reach->number);
        expectNear(file.number(), point.point.distance);
        const std::string side = point.point.side == Side::upstream     ? "U/S "
                                 : point.point.side == Side::downstream ? "D/S "
                                                                        : "";
        EXPECT_EQ(withoutTag(file.text()), side + point.point.label);
        file.text();
        EXPECT_EQ(file.number(), static_cast<int>(point.point.type));
        file.text();
        expectNear(file.number(), point.flow.mean);
        for (const double low : point.flow.percentiles)
            expectNear(file.number(), low);
        const int feature = point.point.feature == nullptr ? 0 : point.point.feature->number;
        expectObserved(file, run.catchment.observedAt(feature, 0));
        for (int d = 1; d <= 2; ++d) {
            const auto place = static_cast<std::size_t>(d - 1);
            expectSummary(file, point.concentrations[place]);
            expectSummary(file, point.loads[place]);
            expectObserved(file, run.catchment.observedAt(feature, d));
            expectObserved(file, {});
            file.text();
            expectNear(file.number(), run.catchment.target(point.point.reach->targets, d).value);
            file.text();
            EXPECT_EQ(file.number(), 0);
        }
    }
    EXPECT_TRUE(file.atEnd());
}

TEST(GraphResultsFile, TakesThreeAndEighteenTimesTheDeterminandsLinesAPoint) {
    const SmallRun run;
    const std::string text = graphResultsText(run.catchment, run.result, "T");
    std::size_t lines = 0;
    for (std::size_t place = text.find('\n'); place != std::string::npos;
         place = text.find('\n', place + 1)) {
        EXPECT_EQ(text[place - 1], '\r');
        ++lines;
    }
    EXPECT_EQ(lines, 8 + run.result.points.size() * (3 + 18 * 2));
}

} // namespace korvel
