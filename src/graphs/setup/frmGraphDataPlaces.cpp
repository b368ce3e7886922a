// Where the set-up form's controls stand: each text takes its line, and the lists have all the height that is
// left.
#include "graphs/setup/frmGraphData.h"

#include "drawing/paint/Twips.h"
#include "global/GLOBAL.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double designWidth = 9510; // twips, of what is inside the form
constexpr double besideEdge = 150;
constexpr double leftWidth = 5610, rightLeft = 5880, rightWidth = 3480;
constexpr double fileName1 = 1200, fileName1Width = 3420, file2 = 4860, fileName2 = 5970;
constexpr double insideFrame = 120, secondColumn = 2550, comboWidth = 2310;
constexpr double beyondList = 90; // of the texts over and under it
constexpr double levelColumn = 2190, levelBox = 2790;
constexpr int leastLines = 3;    // of a list
constexpr int nextLines = 3;     // of what to do next
constexpr double waiting = 3900; // of the words while a file is read; the bar follows them
constexpr int plotChoices = 9;   // rows of boxes and circles

} // namespace

frmGraphData::Measures frmGraphData::measures() const {
    Measures its;
    its.line = Label[5].sizeHint().height();
    its.box = qRound(its.line * looks::lineBox);
    its.small = qMax(2, qRound(its.line * looks::betweenLines));
    its.gap = 2 * its.small;
    its.across = centralWidget()->width() / designWidth;
    return its;
}

// Of a frame with a list that shows `lines`.
int frmGraphData::modeHeight(const Measures& its, const QLabel& title, int lines) const {
    const int inside = its.x(leftWidth - 2 * insideFrame);
    const int list = lines * its.line + its.gap;
    const int combos = 2 * (its.line + its.small + its.box) + its.gap;
    return 3 * its.gap + title.heightForWidth(inside) + std::max(2 * (its.line + its.small) + list, combos);
}

int frmGraphData::optionsHeight(const Measures& its, int row) const {
    return 3 * its.gap + its.line + its.small + plotChoices * row + its.box;
}

int frmGraphData::featuresHeight(const Measures& its) const {
    return 2 * its.gap + its.line + its.small + featureLines();
}

// The list's height: all of its lines.
int frmGraphData::featureLines() const {
    return lstFeatures.count() * lstFeatures.sizeHintForRow(0) + 2 * lstFeatures.frameWidth();
}

// Nothing is lost in a form of this height.
void frmGraphData::keepLeastRoom() {
    Measures its = measures();
    const int width = pixels(designWidth * GLOBAL.ScaleX);
    its.across = width / designWidth;
    const int top = 2 * its.gap + its.box;
    const int titles = its.line + 2 * (its.small + its.box);
    const int left = 2 * (modeHeight(its, Label[3], leastLines) + its.gap) + titles + its.gap + its.line;
    const int right =
        optionsHeight(its, its.line + 1) + featuresHeight(its) + nextLines * its.line + 2 * its.gap;
    client().setMinimumSize(width, top + std::max(left, right) + its.gap);
}

void frmGraphData::arrange() {
    const Measures its = measures();
    const int top = its.gap + its.box + its.gap;
    arrangeFiles(its, its.gap);
    const int wait = client().height() - its.gap - its.line;
    const int titles = wait - its.gap - its.line - 2 * (its.small + its.box);
    const int mode = (titles - its.gap - its.gap - top) / 2;
    arrangeMode(its, 1, top, mode);
    arrangeMode(its, 2, top + mode + its.gap, mode);
    arrangeTitles(its, titles);
    arrangeWaiting(its, wait);
    const int rest = client().height() - top - featuresHeight(its) - nextLines * its.line - 3 * its.gap;
    const int spare = (rest - optionsHeight(its, 0)) / plotChoices;
    const int row = std::clamp(spare, its.line + 1, its.box);
    arrangeOptions(its, top, row);
    arrangeFeatures(its, top + optionsHeight(its, row) + its.gap);
}

void frmGraphData::arrangeFiles(const Measures& its, int top) {
    const auto put = [&](QLabel& label, double from, double to) {
        label.setGeometry(its.x(from), top, its.x(to) - its.x(from), its.box);
    };
    put(Label[0], besideEdge, fileName1);
    put(lblFileName_0, fileName1, fileName1 + fileName1Width);
    put(Label[1], file2, fileName2);
    put(lblFileName_1, fileName2, rightLeft + rightWidth);
}

// Choices on the left, the list on the right.
void frmGraphData::arrangeMode(const Measures& its, int mode, int top, int height) {
    const bool first = mode == 1;
    QFrame& frame = first ? frameMode_1 : frameMode_2;
    QLabel &title = first ? Label[3] : Label[4], &above = first ? Label[7] : Label[9];
    QLabel& hint = first ? Label[10] : Label[11];
    QListWidget& list = first ? lstDets : lstSites;
    frame.setGeometry(its.x(besideEdge), top, its.x(leftWidth), height);
    const int left = its.x(insideFrame), inside = its.x(leftWidth - 2 * insideFrame);
    title.setGeometry(left, its.gap, inside, title.heightForWidth(inside));
    const int under = title.geometry().bottom() + 1 + its.gap;
    const auto choice = [&](QLabel& caption, QComboBox& box, int y) {
        caption.setGeometry(left, y, its.x(secondColumn) - left, its.line);
        box.setGeometry(left, y + its.line + its.small, its.x(comboWidth), its.box);
    };
    choice(first ? Label[5] : Label[8], first ? Combo[1] : Combo[3], under);
    if (first) choice(Label[6], Combo[2], under + its.line + its.small + its.box + its.gap);
    const int column = its.x(secondColumn), wide = its.x(leftWidth - insideFrame) - column;
    const int listTop = under + its.line + its.small;
    above.setGeometry(column, under, wide + its.x(beyondList), its.line);
    list.setGeometry(column, listTop, wide, height - its.gap - its.line - its.small - listTop);
    showWholeLines(list);
    hint.setGeometry(column, list.geometry().bottom() + 1 + its.small, wide + its.x(beyondList), its.line);
}

void frmGraphData::arrangeTitles(const Measures& its, int top) {
    Label[12].setGeometry(its.x(besideEdge), top, its.x(leftWidth), its.line);
    for (const int which : {1, 2}) {
        top += (which == 1 ? its.line : its.box) + its.small;
        txtTitle[which].setGeometry(its.x(besideEdge), top, its.x(leftWidth), its.box);
    }
}

void frmGraphData::arrangeWaiting(const Measures& its, int top) {
    const int left = its.x(besideEdge), bar = its.x(besideEdge + waiting);
    Label[2].setGeometry(left, top, bar - left - its.gap, its.line);
    Progress.setGeometry(bar, top, its.x(besideEdge + leftWidth) - bar, its.line);
}

// Six boxes, then the plot types beside the levels.
void frmGraphData::arrangeOptions(const Measures& its, int top, int row) {
    frameOptions.setGeometry(its.x(rightLeft), top, its.x(rightWidth), optionsHeight(its, row));
    const int left = its.x(insideFrame), wide = its.x(rightWidth - 2 * insideFrame);
    Label[13].setGeometry(left, its.gap, wide, its.line);
    int y = its.gap + its.line + its.small;
    for (const auto& [index, box] : Check) {
        box->setGeometry(left, y, wide, row);
        y += row;
    }
    y += its.gap;
    const int levels = its.x(levelColumn), level = its.x(levelBox);
    Label[15].setGeometry(levels, y, level - levels, its.box);
    txtTitle[0].setGeometry(level, y, left + wide - level, its.box);
    y += its.box;
    for (int k = 0; k < 3; ++k) {
        optPlotType[k].setGeometry(left, y + k * row, levels - left, row);
        optPlotType[k + 3].setGeometry(levels, y + k * row, level - levels, row);
    }
}

// As high as the list has lines; what comes next follows.
void frmGraphData::arrangeFeatures(const Measures& its, int top) {
    const int left = its.x(rightLeft), wide = its.x(rightWidth);
    const int inside = its.x(insideFrame), insideWide = its.x(rightWidth - 2 * insideFrame);
    Label[14].setGeometry(inside, its.gap, insideWide + its.x(beyondList), its.line);
    lstFeatures.setGeometry(inside, its.gap + its.line + its.small, insideWide, featureLines());
    frameFeatures.setGeometry(left, top, wide, lstFeatures.geometry().bottom() + 1 + its.gap);
    const int next = frameFeatures.geometry().bottom() + 1 + its.gap;
    lblNextStep.setGeometry(left, next, wide, nextLines * its.line);
}

} // namespace korvel
