// What each field of a data file may hold: every row read whole, its counts of fields and the limits that the
// refusals tell.
#include "SmallCatchment.h"

#include "engine/GapFills.h"

#include <gtest/gtest.h>

namespace korvel {

using namespace engine;

namespace {

// The message, or "" where the text is in order.
std::string messageOf(const std::string& text) {
    const auto result = parseCatchment(text);
    const auto* error = std::get_if<DataError>(&result);
    return error == nullptr ? "" : error->message;
}

std::string withField(const std::string& row, std::size_t field, const std::string& value) {
    std::size_t begin = 0;
    for (; field > 0; --field)
        begin = row.find(',', begin) + 1;
    const std::size_t end = std::min(row.find_first_of(",\n", begin), row.size());
    return row.substr(0, begin) + ' ' + value + row.substr(end);
}

std::string messageWith(const std::string& row, const std::string& changed) {
    return messageOf(smallCatchment::replaced(smallCatchment::text(), row, changed));
}

const std::string salt = "1, Salt, mg/l, 1, 1, 0, 0, 0\n", upper = "1, Upper, 4, 2, 10, 0, 1, 1, 0, 0, 0\n",
                  works = "1, 2, 5, sewage, Works, 3, 3\n", flow = "1, 10, 10, 0\n", quality = "1, 1, 2, 0\n",
                  target = "1, 2, 9, 6\n", observedQuality = "3, 2, 7, 9, 10, 12\n",
                  observedFlow = "4, 0, 50, 40\n";

struct Limit {
    std::string row;
    std::size_t field;
    const char* message;
};

const Limit limits[] = {
    {salt, 0, "the determinand's number must lie between 1 and 10"},
    {salt, 3, "the determinand's type must lie between 1 and 9"},
    {salt, 4, "the statistic must lie between 1 and 6"},
    {salt, 5, "the decay rate must lie between 0 and 100"},
    {salt, 6, "the best effluent must lie between 0 and 1000000"},
    {salt, 7, "the worst effluent must lie between 0 and 1000000"},
    {upper, 0, "the reach's number must lie between 1 and 9999"},
    {upper, 2, "the length must lie between 0.001 and 9999"},
    {upper, 3, "the next reach must lie between 0 and 9999"},
    {upper, 4, "the velocity must lie between 0.001 and 10000"},
    {upper, 5, "the velocity's exponent must lie between 0 and 1"},
    {upper, 6, "the head flow must lie between 0 and 99999"},
    {upper, 7, "the head quality must lie between 0 and 99999"},
    {upper, 8, "the diffuse flow must lie between 0 and 99999"},
    {upper, 9, "the diffuse quality must lie between 0 and 99999"},
    {upper, 10, "the target set must lie between 0 and 99999"},
    {works, 0, "the feature's number must lie between 1 and 99999"},
    {works, 1, "the reach must lie between 1 and 9999"},
    {works, 2, "the distance must lie between 0 and 9999"},
    {works, 5, "the flow set must lie between 0 and 99999"},
    {works, 6, "the quality set must lie between 0 and 99999"},
    {flow, 0, "the flow set must lie between 1 and 99999"},
    {flow, 1, "the mean flow must lie between 0 and 1000000"},
    {flow, 2, "the low flow must lie between 0 and 1000000"},
    {flow, 3, "the correlation must lie between -1 and 1"},
    {quality, 0, "the quality set must lie between 1 and 99999"},
    {quality, 1, "the determinand must lie between 1 and 2"},
    {quality, 2, "the mean must lie between 0 and 1000000"},
    {quality, 3, "the standard deviation must lie between 0 and 1000000"},
    {target, 0, "the target set must lie between 1 and 99999"},
    {target, 1, "the determinand must lie between 1 and 2"},
    {target, 2, "the target must lie between 0 and 1000000"},
    {target, 3, "the limit of the better class must lie between 0 and 1000000"},
    {observedFlow, 0, "the feature must lie between 1 and 99999"},
    {observedFlow, 1, "the determinand must lie between 0 and 2"},
    {observedFlow, 2, "the observed mean flow must lie between 0 and 1000000"},
    {observedFlow, 3, "the observed low flow must lie between 0 and 1000000"},
    {observedQuality, 2, "the observed mean must lie between 0 and 1000000"},
    {observedQuality, 3, "the observed 90 percentile must lie between 0 and 1000000"},
    {observedQuality, 4, "the observed 95 percentile must lie between 0 and 1000000"},
    {observedQuality, 5, "the observed 99 percentile must lie between 0 and 1000000"},
    {"shots = 200", 0, "the number of shots must lie between 20 and 5000"},
};

struct FieldCount {
    std::string row;
    std::string fewer;
    std::string more;
    const char* wanted;
};

const FieldCount counts[] = {
    {salt, "1, Salt, mg/l, 1, 1\n", "1, Salt, mg/l, 1, 1, 0, 0, 0, 0\n", "6 to 8"},
    {upper, "1, Upper, 4, 2, 10, 0, 1, 1, 0, 0\n", "1, Upper, 4, 2, 10, 0, 1, 1, 0, 0, 0, 0\n", "11"},
    {works, "1, 2, 5, sewage\n", "1, 2, 5, sewage, Works, 3, 3, 0\n", "5 to 7"},
    {flow, "1, 10, 10\n", "1, 10, 10, 0, 0\n", "4"},
    {quality, "1, 1, 2\n", "1, 1, 2, 0, 0, 0\n", "4 to 5"},
    {target, "1, 2\n", "1, 2, 9, 6, 0\n", "3 to 4"},
    {observedFlow, "4, 0, 50\n", "4, 0, 50, 40, 30\n", "4"},
    {observedQuality, "3, 2, 7, 9, 10\n", "3, 2, 7, 9, 10, 12, 13\n", "6"},
    {"shots = 200", "", "shots = 200, 300", "1"},
};

struct LongName {
    std::string row;
    std::size_t field;
    std::size_t longest;
};

const LongName names[] = {{salt, 1, 24}, {salt, 2, 12}, {upper, 1, 16}, {works, 4, 36}};

std::string gapFillMessage(const std::string& line) {
    const auto result = parseGapFills(line, smallCatchment::parsed(smallCatchment::text()));
    const auto* error = std::get_if<DataError>(&result);
    return error == nullptr ? "" : error->message;
}

} // namespace

TEST(DataLimits, AreToldWhereAFieldLiesBeyondThem) {
    for (const auto& [row, field, message] : limits)
        for (const char* value : {"-99999999", "99999999"}) {
            const bool isSetting = row.find('=') != std::string::npos;
            const std::string changed =
                isSetting ? row.substr(0, row.find('=') + 1) + value : withField(row, field, value);
            EXPECT_EQ(messageWith(row, changed), message) << changed;
        }
}

TEST(DataLimits, OfSettingsAreTold) {
    for (const auto& [setting, message] :
         {std::pair("seed = -1", "the seed must lie between 0 and 1000000000"),
          std::pair("spacing = 10000", "the spacing must lie between 0 and 9999"),
          std::pair("spacing = 0.009", "the spacing must be 0 or at least 0.01"),
          std::pair("mode = 4", "the percentile mode must lie between 0 and 3"),
          std::pair("samples = 1", "the number of samples must lie between 2 and 100000")})
        EXPECT_EQ(messageWith("spacing = 1", setting), message);
    for (const char* setting :
         {"shots = 20", "shots = 5000", "spacing = 0", "mode = 3", "samples = 2", "seed = 0"})
        EXPECT_EQ(messageWith("shots = 200", setting), "") << setting;
}

TEST(DataLimits, AreOfTheNumberOfFieldsToo) {
    for (const auto& [row, fewer, more, wanted] : counts)
        for (const std::string& changed : {fewer, more}) {
            if (changed.empty()) continue;
            const std::string message = messageWith(row, changed);
            EXPECT_TRUE(message.ends_with(std::string(" fields where ") + wanted + " are wanted"))
                << changed << message;
        }
}

TEST(DataLimits, AreOfTheLengthOfNames) {
    for (const auto& [row, field, longest] : names) {
        EXPECT_EQ(messageWith(row, withField(row, field, std::string(longest, 'x'))), "") << row;
        EXPECT_TRUE(messageWith(row, withField(row, field, std::string(longest + 1, 'x')))
                        .ends_with("has more than " + std::to_string(longest) + " characters"))
            << row;
    }
    const std::string title = "title = Small River";
    EXPECT_EQ(messageWith(title, "title = " + std::string(60, 'x')), "");
    EXPECT_EQ(messageWith(title, "title = " + std::string(61, 'x')), "the title has more than 60 characters");
    EXPECT_EQ(messageWith(title, "title = a, b, c"), "");
    EXPECT_EQ(messageWith(works, withField(works, 3, std::string(21, 'x'))),
              "the kind of feature has more than 20 characters");
}

TEST(DataLimits, BelongToWhatIsAllowed) {
    for (const auto& [row, changed] :
         {std::pair(flow, "1, 10, 0.001, 1\n"), std::pair(flow, "1, 0, 0, -1\n"),
          std::pair(quality, "1, 1, 2, 200, 1\n"), std::pair(target, "1, 2, 9, 9\n"),
          std::pair(works, "1, 2, 10, sewage, Works, 3, 3\n"),
          std::pair(salt, "1, Salt, mg/l, 1, 6, 0, 5, 5\n"),
          std::pair(works, "99999, 2, 0, sewage, Works, 3\n")})
        EXPECT_EQ(messageWith(row, changed), "") << changed;
    EXPECT_EQ(messageWith(flow, "1, 10, 0.00099, 0\n"), "the low flow is below a ten-thousandth of the mean");
    EXPECT_EQ(messageWith(quality, "1, 1, 2, 200.1\n"), "the standard deviation is above 100 times the mean");
    EXPECT_EQ(messageWith(works, "1, 2, 10.01, sewage, Works, 3, 3\n"), "lies beyond the end of reach 2");
    EXPECT_EQ(messageWith(salt, "1, Salt, mg/l, 1, 5, 0, 0, 0\n"), "the statistic must be 1, 2, 3 or 6");
}

TEST(DataLimits, LeaveEveryFieldWhereItBelongs) {
    const Catchment read =
        smallCatchment::parsed("DEMONSTRATION RIVER DATA\n[RUN]\ntitle = T\nshots = 21\nseed = 22\nspacing = "
                               "2.5\nmode = 2\nsamples = 24\n"
                               "[DETERMINANDS]\n1, Name, units, 5, 6, 0.75, 8, 9\n"
                               "[REACHES]\n71, Reach, 2.5, 0, 4.5, 0.5, 61, 62, 63, 64, 65\n"
                               "[FEATURES]\n81, 71, 1.5, stream, Brook, 66, 67\n"
                               "[FLOWS]\n61, 10, 3, 0.25\n63, 11, 4, -0.5\n66, 12, 5, 0.75\n"
                               "[QUALITIES]\n62, 1, 2, 3, 0.125\n64, 1, 1, 1\n67, 1, 1, 1\n"
                               "[TARGETS]\n65, 1, 7, 6\n[OBSERVED]\n81, 0, 33, 31\n81, 1, 41, 42, 43, 44\n");
    EXPECT_EQ(read.settings.shots, 21);
    EXPECT_EQ(read.settings.seed, 22);
    EXPECT_EQ(read.settings.percentileMode, 2);
    EXPECT_EQ(read.settings.samples, 24);
    const Determinand& determinand = read.determinands.at(0);
    EXPECT_EQ(determinand.units, "units");
    EXPECT_EQ(determinand.type, 5);
    EXPECT_EQ(determinand.statistic, StandardStatistic::percentile99);
    EXPECT_EQ(determinand.best, 8);
    EXPECT_EQ(determinand.worst, 9);
    const Reach& reach = read.reaches.at(0);
    EXPECT_EQ(reach.velocity, 4.5);
    EXPECT_EQ(reach.velocityExponent, 0.5);
    EXPECT_EQ((std::vector{reach.headFlow, reach.headQuality, reach.diffuseFlow, reach.diffuseQuality,
                           reach.targets}),
              (std::vector{61, 62, 63, 64, 65}));
    const Feature& feature = read.features.at(0);
    EXPECT_EQ((std::vector{feature.number, feature.reach, feature.flow, feature.quality}),
              (std::vector{81, 71, 66, 67}));
    EXPECT_EQ(feature.distance, 1.5);
    EXPECT_EQ(read.flow(61).low, 3);
    EXPECT_EQ(read.flow(63).correlation, -0.5);
    EXPECT_EQ(read.quality(62, 1).deviation, 3);
    EXPECT_EQ(read.quality(62, 1).correlation, 0.125);
    EXPECT_EQ(read.target(65, 1).value, 7);
    const Observed low = read.observedAt(81, 0), quality1 = read.observedAt(81, 1);
    EXPECT_EQ(low.mean, 33);
    EXPECT_EQ((std::vector{low.percentile90, low.percentile95, low.percentile99}),
              (std::vector<double>{31, 31, 31}));
    EXPECT_EQ(quality1.mean, 41);
    EXPECT_EQ((std::vector{quality1.percentile90, quality1.percentile95, quality1.percentile99}),
              (std::vector<double>{42, 43, 44}));
}

TEST(DataLimits, OfGapFillsAreTold) {
    for (const auto& [line, message] :
         {std::pair("FLOW, 0, 0, 1, 1, 1", "the reach must lie between 1 and 9999"),
          std::pair("FLOW, 10000, 0, 1, 1, 1", "the reach must lie between 1 and 9999"),
          std::pair("FLOW, 1, -1, 1, 1, 1", "the start must lie between 0 and 4"),
          std::pair("FLOW, 1, 0, 4.1, 1, 1", "the end must lie between 0 and 4"),
          std::pair("FLOW, 1, 1, 1, 1, 1", "the end lies before the start"),
          std::pair("FLOW, 1, 0, 1, 1000001, 1", "the mean flow must lie between -1000000 and 1000000"),
          std::pair("FLOW, 1, 0, 1, 1, -1", "the low flow must lie between 0 and 1000000"),
          std::pair("FLOW, 1, 0, 1, 1, 1.1", "the low flow does not fit its mean"),
          std::pair("FLOW, 1, 0, 1, 1, 0.000099", "the low flow does not fit its mean"),
          std::pair("QUALITY, 1, 0, 1, 0, 1", "the determinand must lie between 1 and 2"),
          std::pair("QUALITY, 1, 0, 1, 3, 1", "the determinand must lie between 1 and 2"),
          std::pair("QUALITY, 1, 0, 1, 1, 1001", "the rate must lie between -1000 and 1000"),
          std::pair("FLOW, 1, 0, 1, 1", "has 5 fields where 6 are wanted"),
          std::pair("FLOW, 1, 0, 1, 1, 1, 1", "has 7 fields where 6 are wanted"),
          std::pair("ELEVEN WIDE, 1, 0, 1, 1, 1", "the kind has more than 10 characters"),
          std::pair("TEN ARE OK, 1, 0, 1, 1, 1", "begins neither with FLOW nor with QUALITY")})
        EXPECT_EQ(gapFillMessage(line), message) << line;
    for (const char* line :
         {"FLOW, 1, 0, 4, -1000000, 100", "FLOW, 1, 0, 4, 1, 1", "QUALITY, 1, 0, 4, 2, -1000"})
        EXPECT_EQ(gapFillMessage(line), "") << line;
}

} // namespace korvel
