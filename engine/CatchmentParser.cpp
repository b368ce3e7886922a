#include "engine/CatchmentParser.h"

#include "basic/Text.h"
#include "engine/CatchmentChecks.h"

#include <algorithm>
#include <array>

namespace korvel::engine {

namespace {

constexpr double maxFlow = 1e6;    // Ml/day
constexpr double maxQuality = 1e6; // mg/l
constexpr int maxSet = 99999;

void readDeterminand(const DataRow& row, Catchment& catchment) {
    row.expectFields(6, 8);
    Determinand item;
    item.number = row.integer(0, "the determinand's number", 1, maxDeterminands);
    if (item.number != static_cast<int>(catchment.determinands.size()) + 1)
        row.fail("determinands must be numbered 1, 2, 3 ... in this order");
    item.name = row.text(1, "the determinand's name", 24);
    item.units = row.text(2, "the units", 12);
    item.type = row.integer(3, "the determinand's type", 1, 9);
    const int statistic = row.integer(4, "the statistic", 1, 6);
    if (statistic == 4 || statistic == 5) row.fail("the statistic must be 1, 2, 3 or 6");
    item.statistic = static_cast<StandardStatistic>(statistic);
    item.decay = row.number(5, "the decay rate", 0, 100);
    item.best = row.number(6, "the best effluent", 0, maxQuality);
    item.worst = row.number(7, "the worst effluent", 0, maxQuality);
    if (item.worst < item.best) row.fail("the worst effluent is better than the best one");
    catchment.determinands.push_back(item);
}

void readReach(const DataRow& row, Catchment& catchment) {
    row.expectFields(11, 11);
    Reach item;
    item.number = row.integer(0, "the reach's number", 1, maxReachNumber);
    item.name = row.text(1, "the reach's name", 16);
    item.length = row.number(2, "the length", 0.001, 9999);
    item.next = row.integer(3, "the next reach", 0, maxReachNumber);
    item.velocity = row.number(4, "the velocity", 0.001, 10000);
    item.velocityExponent = row.number(5, "the velocity's exponent", 0, 1);
    item.headFlow = row.integer(6, "the head flow", 0, maxSet);
    item.headQuality = row.integer(7, "the head quality", 0, maxSet);
    item.diffuseFlow = row.integer(8, "the diffuse flow", 0, maxSet);
    item.diffuseQuality = row.integer(9, "the diffuse quality", 0, maxSet);
    item.targets = row.integer(10, "the target set", 0, maxSet);
    item.line = row.line();
    catchment.reaches.push_back(item);
}

FeatureType featureType(const DataRow& row) {
    const std::string word = lowerCase(row.text(3, "the kind of feature", 20));
    static const std::array<std::pair<const char*, FeatureType>, 8> words{
        {{"station", FeatureType::monitoringStation},
         {"stream", FeatureType::stream},
         {"sewage", FeatureType::sewageDischarge},
         {"gauge", FeatureType::flowGauge},
         {"industry", FeatureType::industrialEffluent},
         {"abstraction", FeatureType::abstraction},
         {"weir", FeatureType::weir},
         {"overflow", FeatureType::stormOverflow}}};
    for (const auto& [name, type] : words)
        if (word == name) return type;
    row.fail("the kind of feature must be station, stream, sewage, gauge, industry, abstraction, weir or "
             "overflow");
}

void readFeature(const DataRow& row, Catchment& catchment) {
    row.expectFields(5, 7);
    Feature item;
    item.number = row.integer(0, "the feature's number", 1, maxSet);
    item.reach = row.integer(1, "the reach", 1, maxReachNumber);
    item.distance = row.number(2, "the distance", 0, 9999);
    item.type = featureType(row);
    item.name = row.text(4, "the feature's name", 36);
    item.flow = row.integer(5, "the flow set", 0, maxSet);
    item.quality = row.integer(6, "the quality set", 0, maxSet);
    item.line = row.line();
    catchment.features.push_back(item);
}

template <typename Map>
void keep(const DataRow& row, Map& map, typename Map::key_type key, const typename Map::mapped_type& value) {
    if (!map.emplace(key, value).second) row.fail("repeats an earlier row");
}

int determinandNumber(const DataRow& row, const Catchment& catchment, int lowest) {
    if (catchment.determinands.empty()) row.fail("stands before the section [DETERMINANDS]");
    return row.integer(1, "the determinand", lowest, static_cast<int>(catchment.determinands.size()));
}

void readFlow(const DataRow& row, Catchment& catchment) {
    row.expectFields(4, 4);
    const int set = row.integer(0, "the flow set", 1, maxSet);
    FlowSet item;
    item.mean = row.number(1, "the mean flow", 0, maxFlow);
    item.low = row.number(2, "the low flow", 0, maxFlow);
    item.correlation = row.number(3, "the correlation", -1, 1);
    if (item.low > item.mean) row.fail("the low flow is above the mean");
    if (item.mean > 0 && item.low < item.mean * 1e-4)
        row.fail("the low flow is below a ten-thousandth of the mean");
    keep(row, catchment.flows, set, item);
}

void readQuality(const DataRow& row, Catchment& catchment) {
    row.expectFields(4, 5);
    const int set = row.integer(0, "the quality set", 1, maxSet);
    const int determinand = determinandNumber(row, catchment, 1);
    QualityValue item;
    item.mean = row.number(2, "the mean", 0, maxQuality);
    item.deviation = row.number(3, "the standard deviation", 0, maxQuality);
    item.correlation = row.number(4, "the correlation", -1, 1);
    if (item.deviation > item.mean * 100) row.fail("the standard deviation is above 100 times the mean");
    keep(row, catchment.qualities, {set, determinand}, item);
}

void readTarget(const DataRow& row, Catchment& catchment) {
    row.expectFields(3, 4);
    const int set = row.integer(0, "the target set", 1, maxSet);
    const int determinand = determinandNumber(row, catchment, 1);
    if (catchment.determinands[static_cast<std::size_t>(determinand - 1)].type == 4)
        row.fail("a determinand of type 4 carries no targets");
    TargetValue item;
    item.value = row.number(2, "the target", 0, maxQuality);
    item.better = row.number(3, "the limit of the better class", 0, maxQuality);
    if (item.better > item.value) row.fail("the better class's limit is above the target");
    keep(row, catchment.targets, {set, determinand}, item);
}

void readObserved(const DataRow& row, Catchment& catchment) {
    const int feature = row.integer(0, "the feature", 1, maxSet);
    const int determinand = determinandNumber(row, catchment, 0);
    Observed item;
    if (determinand == 0) {
        row.expectFields(4, 4);
        item.mean = row.number(2, "the observed mean flow", 0, maxFlow);
        const double low = row.number(3, "the observed low flow", 0, maxFlow);
        item.percentile90 = item.percentile95 = item.percentile99 = low;
    } else {
        row.expectFields(6, 6);
        item.mean = row.number(2, "the observed mean", 0, maxQuality);
        item.percentile90 = row.number(3, "the observed 90 percentile", 0, maxQuality);
        item.percentile95 = row.number(4, "the observed 95 percentile", 0, maxQuality);
        item.percentile99 = row.number(5, "the observed 99 percentile", 0, maxQuality);
    }
    keep(row, catchment.observed, {feature, determinand}, item);
}

void readSetting(const DataRow& whole, std::string_view line, Catchment& catchment) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) whole.fail("a setting must read: name = value");
    const std::string name = lowerCase(trim(line.substr(0, equals)));
    const DataRow row(line.substr(equals + 1), whole.line());
    Settings& settings = catchment.settings;
    row.expectFields(1, name == "title" ? 99 : 1);
    if (name == "title") {
        // Commas belong to the title.
        const std::string title = trim(line.substr(equals + 1));
        settings.title = DataRow('"' + title + '"', row.line()).text(0, "the title", 60);
    } else if (name == "shots")
        settings.shots = row.integer(0, "the number of shots", 20, 5000);
    else if (name == "seed")
        settings.seed = row.integer(0, "the seed", 0, 1000000000);
    else if (name == "spacing") {
        settings.spacing = row.number(0, "the spacing", 0, 9999);
        if (settings.spacing > 0 && settings.spacing < 0.01)
            row.fail("the spacing must be 0 or at least 0.01");
    } else if (name == "mode")
        settings.percentileMode = row.integer(0, "the percentile mode", 0, 3);
    else if (name == "samples")
        settings.samples = row.integer(0, "the number of samples", 2, 100000);
    else
        row.fail("the settings are title, shots, seed, spacing, mode and samples");
}

using ReadRow = void (*)(const DataRow&, Catchment&);
struct Section {
    const char* name;
    ReadRow read; // null: settings
};
constexpr std::array<Section, 8> sections{{{"[RUN]", nullptr},
                                           {"[DETERMINANDS]", readDeterminand},
                                           {"[REACHES]", readReach},
                                           {"[FEATURES]", readFeature},
                                           {"[FLOWS]", readFlow},
                                           {"[QUALITIES]", readQuality},
                                           {"[TARGETS]", readTarget},
                                           {"[OBSERVED]", readObserved}}};

class Parser {
  public:
    Catchment parse(std::string_view text) {
        while (!text.empty()) {
            const auto end = std::min(text.find('\n'), text.size());
            readLine(withoutComment(text.substr(0, end)), ++m_line);
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        if (!m_marked) throw DataError{1, notOurs()};
        finishCatchment(m_catchment);
        return std::move(m_catchment);
    }

  private:
    static std::string notOurs() {
        return "is not a data file of the demonstration engine: it must begin with \"" +
               std::string(dataFileMark) + "\"";
    }

    void readLine(std::string_view line, int number) {
        if (line.empty() || line == "\x1A") return;
        if (!m_marked) {
            if (upperCase(line) != dataFileMark) throw DataError{number, notOurs()};
            m_marked = true;
        } else if (line.front() == '[')
            enterSection(line, number);
        else if (m_section == nullptr)
            throw DataError{number, "stands before the first section"};
        else if (m_section->read == nullptr)
            readSetting(DataRow(line, number), line, m_catchment);
        else
            m_section->read(DataRow(line, number), m_catchment);
    }

    void enterSection(std::string_view line, int number) {
        const std::string name = upperCase(line);
        const auto place = std::find_if(sections.begin(), sections.end(),
                                        [&](const Section& section) { return name == section.name; });
        if (place == sections.end()) throw DataError{number, "is not the name of a section"};
        m_section = &*place;
    }

    Catchment m_catchment;
    const Section* m_section = nullptr;
    bool m_marked = false;
    int m_line = 0;
};

} // namespace

std::variant<Catchment, DataError> parseCatchment(std::string_view text) {
    try {
        return Parser().parse(text);
    } catch (const DataError& error) {
        return error;
    }
}

} // namespace korvel::engine
