// Which features a whole graph labels, and with what text.
#include "graphs/draw/ProfileGraph.h"

#include "basic/Text.h"
#include "fakes/FixedTextMetrics.h"
#include "graphs/DrawnThings.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/GraphSheet.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace korvel {

namespace {

// A device whose letters are wider than the screen's, and whose narrow font is not as narrow.
class PaperMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override {
        TextSize size = FixedTextMetrics().measure(text, font);
        size.width *= font.name == "Arial" ? 1.05 : 0.9;
        return size;
    }
};
class ScreenMetrics : public TextMetrics {
  public:
    TextSize measure(std::string_view text, const Font& font) const override {
        TextSize size = FixedTextMetrics().measure(text, font);
        size.width *= font.name == "Arial" ? 1 : 0.8;
        return size;
    }
};

Drawing drawingOf(const GraphSample& sample, GraphForm form = GraphForm::graph,
                  OutputTarget target = OutputTarget::screen) {
    const ScreenMetrics screen;
    const PaperMetrics paper;
    Drawing drawing{.width = sample.area.width, .height = sample.area.height, .commands = {}};
    GraphPrimitives primitives(drawing, form, screen, paper);
    drawProfileGraph(primitives, target, sample.inputs());
    return drawing;
}

std::vector<DrawnText> featureTexts(const Drawing& drawing) {
    std::vector<DrawnText> found;
    for (const DrawnText& text : allOf<DrawnText>(drawing))
        if (text.text.ends_with("km)")) found.push_back(text);
    return found;
}

std::vector<std::string> labelsOf(const Drawing& drawing) {
    std::vector<std::string> labels;
    for (const DrawnText& text : featureTexts(drawing))
        labels.push_back(text.text);
    return labels;
}

// A river with a feature at each of the distances.
GraphSample river(const std::vector<double>& distances, const std::string& name = "Gauge") {
    GraphSample sample;
    sample.useArea(1366, 768);
    sample.addReach(1, "Long Water", 100);
    for (const double distance : distances)
        sample.addPoint({1, distance, name, 4});
    sample.set(ValueField::meanValue, 1, 2.0);
    sample.labelAllTypes();
    sample.plotSeries({1}, {1});
    return sample;
}

using Labels = std::vector<std::string>;

} // namespace

TEST(FeatureRows, AreThereWhereDistancesDoNotAscend) {
    const std::pair<std::vector<double>, Labels> columns[] = {
        {{100, 50, 0}, {"Gauge (100.0km)", "Gauge (50.0km)", "Gauge (0.0km)"}},
        {{50, 0, 100}, {"Gauge (50.0km)", "Gauge (0.0km)", "Gauge (100.0km)"}},
        {{20, 20}, {"Gauge (20.0km)", "Gauge (20.0km)"}},
        {{0, 100, 0}, {"Gauge (0.0km)", "Gauge (100.0km)", "Gauge (0.0km)"}},
    };
    for (const auto& [distances, labels] : columns)
        EXPECT_EQ(labelsOf(drawingOf(river(distances))), labels);
}

TEST(FeatureRows, LabelTheFirstAndTheLastPointOfAColumnThatGoesToAndFro) {
    std::vector<double> distances;
    for (int k = 0; k < 400; ++k)
        distances.push_back(k % 2 == 0 ? 40 + 0.01 * k : 60 - 0.02 * k);
    const Labels labels = labelsOf(drawingOf(river(distances)));
    ASSERT_GT(labels.size(), 2u);
    EXPECT_EQ(labels.front(), "Gauge (40.0km)");
    EXPECT_EQ(labels.back(), "Gauge (52.0km)");
}

TEST(FeatureRows, AreFoundAmongVeryManyFeaturesToo) {
    std::vector<double> distances;
    for (int k = 0; k < 20000; ++k)
        distances.push_back(k % 2 == 0 ? 0.004 * k : 100 - 0.003 * k);
    GraphSample sample = river(distances);
    for (int i = 1; i <= sample.results.pointCount; ++i)
        sample.results.pointFeatureType.set(i, i % 500 == 0 ? 3 : 2);
    const Drawing drawing = drawingOf(sample);
    const Labels labels = labelsOf(drawing);
    ASSERT_GT(labels.size(), 20u);
    EXPECT_EQ(labels.front(), "Gauge (0.0km)");
    EXPECT_EQ(labels.back(), "Gauge (40.0km)");
    const Pen pen{paletteColour(looks::leader.colour), 1, Dash::solid};
    const auto marks = std::ranges::count(allOf<DrawnLine>(drawing), pen, &DrawnLine::pen);
    EXPECT_GT(marks, 19000) << "candidates without a label keep their marks";
}

TEST(FeatureRows, CutANameThatIsWiderThanTheGraph) {
    const std::string name = "Outfall of the works that bear the longest name of all works on this river";
    GraphSample sample = river({0, 50, 100}, name);
    for (const int width : {400, 800}) {
        sample.useArea(width, 768);
        sample.constants.ScaleX = 3;
        const std::vector<DrawnText> texts = featureTexts(drawingOf(sample));
        ASSERT_FALSE(texts.empty());
        for (const DrawnText& text : texts) {
            EXPECT_TRUE(text.text.starts_with("Outfall of")) << text.text;
            EXPECT_TRUE(contains(text.text, "\u2026 (")) << text.text;
            EXPECT_GE(text.corner.x, 0);
            EXPECT_LE(text.corner.x + text.width, sample.area.rightEdge);
        }
        EXPECT_TRUE(texts.back().text.ends_with("\u2026 (100.0km)"));
    }
}

TEST(FeatureRows, KeepANameThatJustFits) {
    for (const DrawnText& text : featureTexts(drawingOf(river({0, 50, 100}, std::string(60, 'n')))))
        EXPECT_TRUE(text.text.starts_with(std::string(60, 'n') + " ("));
}

TEST(FeatureRows, AreTheSameOnScreenInTheSavedImageAndOnPaper) {
    std::vector<double> distances;
    for (int k = 0; k <= 70; ++k)
        distances.push_back(k * 100.0 / 70);
    for (const int width : {800, 1366, 1920}) {
        GraphSample sample = river(distances);
        sample.useArea(width, 768);
        const Labels screen = labelsOf(drawingOf(sample));
        EXPECT_GT(screen.size(), 10u);
        EXPECT_EQ(labelsOf(drawingOf(sample, GraphForm::capture)), screen);
        EXPECT_EQ(labelsOf(drawingOf(sample, GraphForm::graph, OutputTarget::printer)), screen);
    }
}

} // namespace korvel
