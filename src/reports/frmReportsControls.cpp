#include "reports/frmReports.h"

#include "global/GLOBAL.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double designBottom = 6030; // twips, of the lowest control

} // namespace

ControlArray<QLabel> frmReports::labels() {
    ControlArray<QLabel> array("Label");
    const auto add = [&](int index, const char* caption, Place place, Look look = {}) {
        array.add(index, label(array.elementName(index).c_str(), caption, place, look));
    };
    const Look hint{.align = Qt::AlignLeft | Qt::AlignTop, .wraps = true};
    const Look verdict{.bold = true, .align = Qt::AlignCenter};
    add(0, "REACHES", at(150, 75, 3000, 240), {.bold = true});
    add(1, "Select all reaches, or as many reaches as are required", at(150, 600, 3000, 420), hint);
    add(2, "(Use control key for multiple selections.)", at(150, 1050, 3000, 240));
    add(3, "DETERMINANDS", at(3270, 75, 3000, 240), {.bold = true});
    add(4, "Select all determinands, or as many determinands as are required.", at(3270, 600, 3000, 420),
        hint);
    add(5, "(Use control key for multiple selections.)", at(3270, 1050, 3000, 240));
    add(6, "OPTIONS", at(120, 60, 2730, 240), {.bold = true, .in = &frameOptions});
    add(7, "", at(150, 5430, 4560, 330), verdict);
    add(8, "", at(4800, 5430, 4560, 330), verdict);
    add(9, "SELECT REPORT FORMAT", at(150, 5145, 9210, 240), {.bold = true});
    return array;
}

ControlArray<QCheckBox> frmReports::checkBoxes() {
    ControlArray<QCheckBox> array("Check");
    const auto add = [&](int index, const char* caption, Place place, QWidget* in = nullptr) {
        array.add(index, checkBox(array.elementName(index), caption, place, {.in = in}));
    };
    add(8, "Select all reaches", at(150, 330, 3000, 255));
    add(0, "Select all determinands", at(3270, 330, 3000, 255));
    add(1, "Print means", at(120, 330, 2760, 255), &frameOptions);
    add(2, "Print 90 percentiles", at(120, 600, 2760, 255), &frameOptions);
    add(3, "Print 95 percentiles", at(120, 870, 2760, 255), &frameOptions);
    add(4, "Print 99 percentiles", at(120, 1140, 2760, 255), &frameOptions);
    add(5, "Print quality targets ", at(120, 1410, 2760, 255), &frameOptions);
    add(6, "Print observed values ", at(120, 1680, 2760, 255), &frameOptions);
    add(7, "Print confidence limits", at(120, 1950, 2760, 255), &frameOptions);
    add(9, "Print upstream values", at(120, 2220, 2760, 255), &frameOptions);
    return array;
}

ControlArray<QPushButton> frmReports::viewButtons() {
    ControlArray<QPushButton> array("cmdView");
    const auto add = [&](int index, const char* caption, Place place) {
        array.add(index, button(array.elementName(index).c_str(), caption, place, {.in = &frameExplain}));
    };
    add(0, "Select and view file", at(480, 1650, 2520, 420));
    add(1, "Select and print file", at(3600, 1650, 2520, 420));
    return array;
}

// On a tall screen all but the lists stay as high as they are wide, and the lists have the rest.
void frmReports::scaleToScreen() {
    const double scaleY = std::min(GLOBAL.ScaleX, GLOBAL.ScaleY);
    const double spare = designBottom * (GLOBAL.ScaleY - scaleY) / scaleY;
    for (QWidget* list : {&lstReaches, &lstDets}) {
        Place place = controlPlace(*list);
        place.height += spare;
        setControlPlace(*list, place);
    }
    for (QWidget* below : {&Label[7], &Label[8], &Label[9], &lblFit}) {
        Place place = controlPlace(*below);
        place.top += spare;
        setControlPlace(*below, place);
    }
    ScaleFormControls(GLOBAL.ScaleX, scaleY);
}

} // namespace korvel
