#include "graphs/setup/frmGraphData.h"

namespace korvel {

namespace {

constexpr const char* controlKeyHint = "(Use control key for multiple selections.)";

} // namespace

ControlArray<QLabel> frmGraphData::labels() {
    ControlArray<QLabel> array("Label");
    const auto add = [&](int index, const char* caption, Place place, Look look = {}) {
        array.add(index, label(array.elementName(index).c_str(), caption, place, look));
    };
    const Look inMode1{.in = &frameMode_1}, inMode2{.in = &frameMode_2};
    const Look bold1{.bold = true, .in = &frameMode_1, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true};
    const Look bold2{.bold = true, .in = &frameMode_2, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true};
    add(0, "Data file 1", at(150, 75, 1020, 285), {.bold = true});
    add(1, "Data file 2", at(4860, 75, 930, 285), {.bold = true});
    add(2, "PLEASE WAIT - DATA FILE LOADING", at(5880, 5700, 3480, 300),
        {.bold = true, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});
    add(3, "Display Mode 1: Display a number of determinands for a group of contiguous reaches.",
        at(120, 60, 5400, 405), bold1);
    add(4, "Display Mode 2: Display a single determinand for a number of individual reaches.",
        at(120, 60, 5400, 405), bold2);
    add(5, "Select upstream reach", at(120, 480, 2460, 240), inMode1);
    add(6, "Select downstream reach", at(120, 1260, 2460, 240), inMode1);
    add(7, "Select 1 to 5 determinands to be plotted.", at(2610, 480, 2985, 240), inMode1);
    add(8, "Select determinand to be plotted", at(120, 480, 2460, 240), inMode2);
    add(9, "Select up to six reaches.", at(2610, 480, 2985, 240), inMode2);
    add(10, controlKeyHint, at(2610, 2130, 2985, 240), inMode1);
    add(11, controlKeyHint, at(2610, 1620, 2985, 240), inMode2);
    add(12, "Title and sub-title (max 60 characters each)", at(150, 5130, 5600, 240), {});
    add(13, "OPTIONS", at(90, 45, 3300, 240), {.bold = true, .in = &frameOptions});
    add(14, "Select feature types to be labelled on graphs.", at(90, 45, 3360, 240), {.in = &frameFeatures});
    add(15, "Level", at(2130, 1695, 1200, 240), {.in = &frameOptions});
    return array;
}

ControlArray<QComboBox> frmGraphData::combos() {
    ControlArray<QComboBox> array("Combo");
    const auto add = [&](int index, const char* name, Place place, QWidget& in) {
        array.add(index, comboBox(array.elementName(index), name, place, {.in = &in}));
    };
    add(1, "Select upstream reach", at(120, 735, 2460, 315), frameMode_1);
    add(2, "Select downstream reach", at(120, 1515, 2460, 315), frameMode_1);
    add(3, "Select determinand to be plotted", at(120, 735, 2460, 315), frameMode_2);
    return array;
}

ControlArray<QCheckBox> frmGraphData::checkBoxes() {
    ControlArray<QCheckBox> array("Check");
    const char* const captions[] = {
        "Plot means",           "Plot percentiles",     "Plot confidence limits",
        "Plot quality targets", "Plot observed values", "Plot auto-interpolated points"};
    int index = 0;
    for (const char* caption : captions) {
        const Place place = at(90, 285 + index * 225.0, 3300, 210);
        array.add(index, checkBox(array.elementName(index), caption, place, {.in = &frameOptions}));
        ++index;
    }
    return array;
}

ControlArray<QRadioButton> frmGraphData::plotTypes() {
    ControlArray<QRadioButton> array("optPlotType");
    const auto add = [&](int index, const char* caption, Place place) {
        array.add(index, optionButton(array.elementName(index), caption, place, {.in = &frameOptions}));
    };
    add(0, "Plot 1st data set", at(90, 1935, 2010, 240));
    add(1, "Plot 2nd data set", at(90, 2190, 2010, 240));
    add(2, "Compare two data sets", at(90, 2445, 2010, 240));
    add(3, "90", at(2130, 1935, 600, 240));
    add(4, "95", at(2130, 2190, 600, 240));
    add(5, "99", at(2130, 2445, 600, 240));
    for (const int level : {3, 4, 5})
        array[level].setAccessibleDescription("Percentile to plot");
    return array;
}

ControlArray<QLineEdit> frmGraphData::titleBoxes() {
    ControlArray<QLineEdit> array("txtTitle");
    const auto add = [&](int index, const char* name, Place place, Look look) {
        array.add(index, textBox(array.elementName(index), name, place, look));
    };
    add(0, "Level", at(2790, 2160, 570, 300), {.in = &frameOptions});
    add(1, "Title", at(150, 5370, 5610, 300), {});
    add(2, "Sub-title", at(150, 5700, 5610, 300), {});
    return array;
}

} // namespace korvel
