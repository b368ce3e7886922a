// Where things stand in a graph: apart from each other, inside the area, zoomed and scrolled.
#include "graphs/ProfileGraphFixture.h"

namespace korvel {

namespace {

DrawnPoint zoomed(DrawnPoint point, double height, double factor) {
    return {point.x * factor, height - (height - point.y) * factor};
}

// The drawing with every place and size multiplied about the bottom left; pens stay as they are.
Drawing zoomed(Drawing drawing, double factor) {
    for (DrawnCommand& command : drawing.commands) {
        if (auto* line = std::get_if<DrawnLine>(&command)) {
            line->from = zoomed(line->from, drawing.height, factor);
            line->to = zoomed(line->to, drawing.height, factor);
        } else if (auto* run = std::get_if<DrawnRun>(&command)) {
            for (DrawnPoint& point : run->points)
                point = zoomed(point, drawing.height, factor);
        } else if (auto* marker = std::get_if<DrawnMarker>(&command)) {
            marker->centre = zoomed(marker->centre, drawing.height, factor);
            marker->half *= factor;
        } else if (auto* text = std::get_if<DrawnText>(&command)) {
            text->corner = zoomed(text->corner, drawing.height, factor);
            text->width *= factor;
            text->height *= factor;
            text->font.size *= factor;
        }
    }
    return drawing;
}

double right(const DrawnText& text) {
    return text.corner.x + text.width;
}
double bottom(const DrawnText& text) {
    return text.corner.y + text.height;
}

bool overlap(const DrawnText& one, const DrawnText& other) {
    return one.corner.x < right(other) && other.corner.x < right(one) &&
           one.corner.y < bottom(other) - 1e-6 && other.corner.y < bottom(one) - 1e-6;
}

} // namespace

TEST(FeatureSpacing, IsThirteenVerticalUnitsAndTwiceThatInLargeText) {
    const double unit = 6 * (904 / 452.0);
    for (const int largeTextMode : {0, 1}) {
        const std::vector<double> ends = markedPlaces(0, largeTextMode);
        ASSERT_EQ(ends.size(), 2u);
        const double spacing = 13 * (largeTextMode + 1) * unit;
        const double distance = spacing * 10 / (ends.back() - ends.front());
        EXPECT_EQ(markedPlaces(distance * 0.999, largeTextMode).size(), 2u);
        EXPECT_EQ(markedPlaces(distance * 1.001, largeTextMode).size(), 3u);
    }
}

TEST_F(ProfileGraphTest, NoTextCoversAnother) {
    for (const int mode : {0, 1})
        for (const int small : {0, 1})
            for (const auto& [width, height] : {std::pair{1366, 768}, {1920, 1080}, {800, 600}, {640, 452}}) {
                if (mode == 0)
                    sample.plotSeries({1, 2, 3}, {0, 1, 3});
                else
                    sample.plotReaches({1, 2, 3}, 2);
                sample.view.LargeTextMode = small;
                sample.useArea(width, height);
                const std::vector<DrawnText> texts = allOf<DrawnText>(drawingOf(sample));
                for (std::size_t k = 0; k < texts.size(); ++k)
                    for (std::size_t other = 0; other < k; ++other)
                        EXPECT_FALSE(overlap(texts[k], texts[other]))
                            << texts[k].text << " / " << texts[other].text << " at " << width << " mode "
                            << mode;
            }
}

TEST_F(ProfileGraphTest, StaysInsideTheDrawingArea) {
    for (const auto& [width, height] :
         {std::pair{1366, 768}, {1920, 1080}, {640, 452}, {2000, 700}, {600, 900}}) {
        sample.useArea(width, height);
        for (const DrawnText& text : allOf<DrawnText>(drawingOf(sample))) {
            EXPECT_GE(text.corner.x, 0) << text.text << width;
            EXPECT_GE(text.corner.y, 0) << text.text << width;
            EXPECT_LE(right(text), sample.area.width) << text.text << width;
            EXPECT_LE(bottom(text), sample.area.height) << text.text << width;
        }
    }
}

TEST_F(ProfileGraphTest, EveryZoomShowsTheSamePictureInAnotherSize) {
    for (const bool mode1 : {true, false}) {
        if (!mode1) sample.plotReaches({1, 2, 3}, 1);
        sample.view.ZoomFactor = 1;
        const Drawing whole = drawingOf(sample);
        for (const double zoom : {0.25, 0.5, 2.0, 4.0}) {
            sample.view.ZoomFactor = zoom;
            const Drawing drawing = drawingOf(sample);
            EXPECT_EQ(textsOf(drawing), textsOf(whole));
            expectMoved(zoomed(whole, 1 / zoom), drawing, 0, 0);
        }
    }
}

TEST_F(ProfileGraphTest, TextsGrowWithTheZoom) {
    const Drawing whole = drawingOf(sample);
    sample.view.ZoomFactor = 0.5;
    const std::vector<DrawnText> expected = allOf<DrawnText>(zoomed(whole, 2)),
                                 texts = allOf<DrawnText>(drawingOf(sample));
    ASSERT_EQ(expected.size(), texts.size());
    for (std::size_t k = 0; k < texts.size(); ++k)
        EXPECT_DOUBLE_EQ(texts[k].font.size, expected[k].font.size) << texts[k].text;
}

TEST_F(ProfileGraphTest, HasPanelsWithoutAnyData) {
    sample.unload(0);
    const Drawing drawing = drawingOf(sample);
    EXPECT_TRUE(runsOfColour(drawing, colours::lightBlue).empty());
    EXPECT_TRUE(hasText(drawing, "0.0"));
}

} // namespace korvel
