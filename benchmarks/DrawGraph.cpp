// How long a redraw of the largest graph takes, layout and painting, against painting a line for each pair of
// neighbouring points; the two pictures are compared to the last pixel. Arguments: a folder, the number of
// rounds.
#include "Rows.h"
#include "drawing/paint/DrawingPainter.h"
#include "drawing/paint/QtTextMetrics.h"
#include "drawing/paint/RunThinning.h"
#include "graphs/GraphSample.h"
#include "graphs/draw/ProfileGraph.h"
#include "toolkit/desktop/StartQt.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace korvel {

namespace {

constexpr int width = 1900;
constexpr int height = 950;
constexpr int panels = 5;
constexpr int featureEvery = 50; // points; the others are interpolated

enum class Shown { means, everything };

// A long river whose values rise at works, fall between them, and scatter.
class River {
  public:
    explicit River(Shown shown) {
        sample.setDeterminands({"BOD", "Ammonia", "Nitrate", "Phosphate"});
        sample.addReach(1, "Long Water", 6000);
        for (int i = 1; i <= MaxPlottingPoints; ++i)
            sample.addPoint(
                {1, 0.1 * i, "Works " + std::to_string(i), i % featureEvery == 1 ? i / 50 % 8 : 99});
        for (int series = 0; series < panels; ++series)
            fill(series);
        sample.graph.plotInterpolatedPoints = true;
        sample.graph.plotObservedValues = shown == Shown::everything;
        sample.graph.graphTitle = "The largest graph";
        if (shown == Shown::everything) showEverything();
        sample.labelAllTypes();
        sample.useArea(width, height);
        sample.plotSeries({1}, {0, 1, 2, 3, 4});
    }

    GraphSample sample;

  private:
    void fill(int series) {
        std::uniform_real_distribution<double> scatter(0.95, 1.05), rise(0.5, 2);
        std::vector<double> means, low, high, targets, observed;
        double level = 3;
        for (int i = 1; i <= MaxPlottingPoints; ++i) {
            level = i % 3000 == 0 ? level + rise(m_random) : level * 0.9998;
            means.push_back(level * (i % featureEvery == 1 ? 1.05 : scatter(m_random)));
            low.push_back(0.8 * means.back());
            high.push_back(1.3 * means.back());
            targets.push_back(i % 20000 < 10000 ? 5 : 4);
            observed.push_back(i % featureEvery == 1 ? level * 1.1 : 0);
        }
        sample.set(ValueField::meanValue, series, means);
        sample.set(ValueField::percentileValues, series, high, 0, 1);
        sample.set(ValueField::meanLimit1, series, low);
        sample.set(ValueField::meanLimit2, series, high);
        sample.set(ValueField::percentileLimit1, series, means, 0, 1);
        sample.set(ValueField::percentileLimit2, series, high, 0, 1);
        sample.set(ValueField::targetValue, series, targets);
        sample.set(ValueField::observedMean, series, observed);
        sample.set(ValueField::observedPercentiles, series, observed, 0, 1);
    }
    void showEverything() {
        sample.graph.plotPercentiles = sample.graph.plotConfidenceLimits = true;
        sample.graph.showTargets = std::vector<bool>(panels, true);
    }

    std::mt19937 m_random{1};
};

// The graph as a window has it: cleared and drawn anew.
struct Graph {
    const GraphSample& sample;
    QtTextMetrics metrics = {};
    Drawing drawing{.width = width * 15.0, .height = height * 15.0, .commands = {}};
    GraphPrimitives primitives{drawing, GraphForm::graph, metrics, metrics};

    void layout() {
        primitives.CloseGraph();
        drawProfileGraph(primitives, OutputTarget::screen, sample.inputs());
    }
};

constexpr PixelGrid grid{0, 0, 1 / 15.0, width, height};

QPen plainPen(const Pen& pen) {
    QPen plain(QColor(pen.colour.red, pen.colour.green, pen.colour.blue), pen.width);
    plain.setCapStyle(Qt::SquareCap);
    if (pen.dash != Dash::solid) plain.setStyle(Qt::DotLine);
    return plain;
}

struct PlainPainting {
    QPainter& painter;

    void operator()(const DrawnRun& run) {
        painter.setPen(plainPen(run.pen));
        QPoint from = *grid.point(run.points.front());
        for (const DrawnPoint& point : run.points) {
            const QPoint to = *grid.point(point);
            if (&point != &run.points.front()) painter.drawLine(from, to);
            from = to;
        }
    }
    void operator()(const DrawnLine& line) {
        painter.setPen(plainPen(line.pen));
        painter.drawLine(*grid.point(line.from), *grid.point(line.to));
    }
    void operator()(const DrawnMarker& marker) {
        const double half = marker.half;
        const auto at = [&](double across, double down) {
            return DrawnPoint{marker.centre.x + across, marker.centre.y + down};
        };
        (*this)(DrawnLine{at(-half, half), at(half, -half), marker.pen});
        (*this)(DrawnLine{at(-half, -half), at(half, half), marker.pen});
    }
    void operator()(const DrawnBand&) {} // the graph has none
    void operator()(const DrawnText& text) {
        paintOnScreen({width * 15.0, height * 15.0, 1440, {text}}, painter);
    }
};

void paintPlainly(const Drawing& drawing, QPainter& painter) {
    for (const DrawnCommand& command : drawing.commands)
        std::visit(PlainPainting{painter}, command);
}

QImage page() {
    return QImage(width, height, QImage::Format_RGB32);
}

// The order of drawing differs, so that the pictures are compared a run at a time.
bool samePictures(const Drawing& drawing) {
    for (const DrawnCommand& command : drawing.commands) {
        const auto* run = std::get_if<DrawnRun>(&command);
        if (!run) continue;
        QImage thinned = page(), plain = page();
        thinned.fill(Qt::white);
        plain.fill(Qt::white);
        QPainter thinnedPainter(&thinned), plainPainter(&plain);
        paintOnScreen({drawing.width, drawing.height, drawing.unitsPerInch, {*run}}, thinnedPainter);
        PlainPainting{plainPainter}(*run);
        thinnedPainter.end();
        plainPainter.end();
        if (thinned != plain) return false;
    }
    return true;
}

Cost paintingCost(QImage& image, const std::function<void(QPainter&)>& paint) {
    return costOf([&] {
        QPainter painter(&image);
        painter.fillRect(image.rect(), Qt::white);
        paint(painter);
    });
}

bool measure(const char* what, Shown shown, int rounds) {
    const River river(shown);
    Graph graph{river.sample};
    graph.layout();
    QImage image = page();
    const auto ours = [&](QPainter& painter) {
        graph.layout();
        paintOnScreen(graph.drawing, painter);
    };
    const auto plain = [&](QPainter& painter) { paintPlainly(graph.drawing, painter); };
    const Contest contest(
        rounds, {[&] { return paintingCost(image, ours); }, [&] { return paintingCost(image, plain); }});
    printTimes(what, "one drawLine a segment", contest, 1, 0.1);
    return samePictures(graph.drawing);
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what fails here may end the benchmark

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    settleForNoDisplay();
    const QGuiApplication application(argc, argv);
    const int rounds = 3 * std::atoi(argv[2]); // they are short
    const bool one = measure("redraw 1900 x 950, 5 x 59999 points", Shown::means, rounds);
    const bool all = measure("the same, limits, targets, observed, labels", Shown::everything, rounds);
    if (one && all) return 0;
    std::fputs("The pictures differ.\n", stderr);
    return 1;
}
