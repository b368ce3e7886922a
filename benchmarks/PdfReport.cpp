// Pages of a report to a PDF file against Qt's own way, text by text and line by line: time and size.
// Arguments: a folder, the number of rounds.
#include "Rows.h"
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/paper/PdfPaper.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

namespace korvel {

namespace {

constexpr int pages = 1000, rows = 68, columns = 11;
constexpr double lineHeight = 0.145, columnWidth = 0.66, left = 0.3, top = 0.4;

std::string number(std::mt19937& random, std::lognormal_distribution<double>& amount) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", amount(random));
    return text;
}

std::vector<Drawing> report(const TextMetrics& metrics) {
    std::mt19937 random(1);
    std::lognormal_distribution<double> amount(2.0, 2.0);
    std::vector<Drawing> drawings(pages);
    const Pen rule{{0, 0, 0}, 2, Dash::solid};
    for (Drawing& page : drawings) {
        page = {printableShortSide, printableLongSide, 1, {}};
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column) {
                const std::string text =
                    column == 0 ? "Outfall " + std::to_string(row) : number(random, amount);
                const double y = top + row * lineHeight, right = left + (column + 1) * columnWidth;
                const double width = metrics.measure(text, {}).width / 1440;
                page.commands.emplace_back(DrawnLine{{right, y}, {right, y + lineHeight}, rule});
                page.commands.emplace_back(
                    DrawnText{{right - 0.05 - width, y}, width, lineHeight, text, {}, {0, 0, 0}});
            }
    }
    return drawings;
}

void paintOneByOne(const Drawing& page, QPainter& painter) {
    constexpr double dots = 300;
    for (const DrawnCommand& command : page.commands) {
        if (const auto* line = std::get_if<DrawnLine>(&command))
            painter.drawLine(QPointF(line->from.x, line->from.y) * dots,
                             QPointF(line->to.x, line->to.y) * dots);
        else if (const auto* text = std::get_if<DrawnText>(&command))
            painter.drawText(QPointF(text->corner.x, text->corner.y + 0.1) * dots,
                             QString::fromStdString(text->text));
    }
}

void writeOneByOne(const std::vector<Drawing>& drawings, const std::string& path) {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(300);
    writer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()});
    QPainter painter(&writer);
    painter.setFont(QFont(QString::fromStdString(Font().name), 8));
    painter.setPen(QPen(Qt::black, 2));
    for (std::size_t k = 0; k < drawings.size(); ++k) {
        if (k > 0) writer.newPage();
        paintOneByOne(drawings[k], painter);
    }
}

void writeReport(const std::vector<Drawing>& drawings, const std::string& path) {
    DiskFiles files;
    PdfFilePaper paper(files, modelNameOfHostPath(path));
    const auto job = paper.begin({"Report", Orientation::portrait, ""});
    for (const Drawing& page : drawings)
        job->page(page);
    job->finish();
}

double sizeOf(const std::string& path) {
    return static_cast<double>(std::filesystem::file_size(path));
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    settleForNoDisplay();
    const QGuiApplication application(argc, argv);
    const std::string folder = argv[1], ours = folder + "/ours.pdf", theirs = folder + "/text-by-text.pdf";
    const int rounds = std::max(1, std::atoi(argv[2]) / 3); // they are long
    const std::vector<Drawing> drawings = report(QtTextMetrics());
    const Contest contest(rounds, {[&] { return costOf([&] { writeReport(drawings, ours); }); },
                                   [&] { return costOf([&] { writeOneByOne(drawings, theirs); }); }});
    const char* const yardstick = "QPdfWriter, text by text";
    printTimes("report to PDF, 1000 pages", yardstick, contest, 1, 0.45);
    printSizes("its size", sizeOf(ours), yardstick, sizeOf(theirs), 0.5);
}
