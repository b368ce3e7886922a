// The graph set-up form with results files beside it; real clicks and real focus.
#pragma once

#include "basic/Palette.h"
#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "graphs/DrawnThings.h"
#include "graphs/setup/frmGraphData.h"

#include <QHelpEvent>
#include <QTest>

namespace korvel {

class FrmGraphData : public CleanGlobals {
  protected:
    using Lines = std::vector<std::string>;

    FrmGraphData() {
        platform.putFile("A.SGR", longRiver());
        platform.putFile("B.SGR", longRiver(8, "Second run"));
        platform.putFile("CUT.SGR", longRiver().substr(0, 900));
        platform.putFile("SHORT.SGR", longRiver(3));
        platform.setBottomForm(form);
        platform.closesForm = closeWindow;
    }
    ~FrmGraphData() override { EXPECT_EQ(platform.takeTranscript(), ""); }

    void activate() { static_cast<ShownForm&>(form).activate(); }
    void load(const std::string& item, const std::string& file) {
        platform.willChoose(platform.pathOf(file));
        choose(form, item);
        platform.takeTranscript();
    }
    // Shown, with a first data set.
    void showLoaded(const std::string& file = "A.SGR") {
        load("mnuDataFile1", file);
        showActive(form);
    }
    void afterARun(const std::string& file) {
        GLOBAL.fileNames[0] = platform.pathOf(file);
        GLOBAL.graphResultsPending = true;
    }
    void expectRefusal(const std::string& text) {
        platform.willAnswer(Answer::ok);
        choose(form, "mnuPlot");
        EXPECT_EQ(platform.takeTranscript(), "box [exclamation] Missing data: " + text + " -> ok\n");
    }
    // What can be plotted in mode 1: reaches 1 to 3, one series.
    void chooseMode1() {
        combo(1).setCurrentIndex(0);
        combo(2).setCurrentIndex(2);
        clickLine(dets, 1);
    }

    std::string labelText(int k) { return text("Label_" + std::to_string(k)); }
    std::string text(const std::string& name) { return control<QLabel>(form, name).text().toStdString(); }
    QComboBox& combo(int k) { return control<QComboBox>(form, "Combo_" + std::to_string(k)); }
    QCheckBox& check(int k) { return control<QCheckBox>(form, "Check_" + std::to_string(k)); }
    QRadioButton& option(int k) { return control<QRadioButton>(form, "optPlotType_" + std::to_string(k)); }
    QLineEdit& box(int k) { return control<QLineEdit>(form, "txtTitle_" + std::to_string(k)); }
    Lines itemsOf(const QComboBox& list) {
        Lines items;
        for (int i = 0; i < list.count(); ++i)
            items.push_back(list.itemText(i).toStdString());
        return items;
    }
    Lines itemsOf(const QListWidget& list) {
        Lines items;
        for (int i = 0; i < list.count(); ++i)
            items.push_back(list.item(i)->text().toStdString());
        return items;
    }
    QColor colourOf(const std::string& frame) {
        return control<QFrame>(form, frame).palette().color(QPalette::Window);
    }
    // Which frame is highlighted; 0 where not exactly one is.
    int highlightedMode() {
        const Rgb highlight = paletteColour(colours::yellow);
        const QColor yellow(highlight.red, highlight.green, highlight.blue);
        const bool first = colourOf("frameMode_1") == yellow, second = colourOf("frameMode_2") == yellow;
        return first == second ? 0 : (first ? 1 : 2);
    }
    // As the pointer makes it.
    std::string tipOf(QWidget& control) {
        QHelpEvent ask(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QApplication::sendEvent(&control, &ask);
        return control.toolTip().toStdString();
    }
    Lines ticked() {
        Lines captions;
        for (int k = 0; k <= 5; ++k)
            if (check(k).isChecked()) captions.push_back(check(k).text().toStdString());
        for (int k = 0; k <= 5; ++k)
            if (option(k).isChecked()) captions.push_back(option(k).text().toStdString());
        return captions;
    }

    // The main series that the graph draws of BOD when the plot type is chosen: as the key names them, and no
    // more than there are lines of.
    Lines meansOf(QRadioButton& plotType) {
        chooseMode1();
        click(plotType);
        Lines named;
        platform.willActOn("frmSimgraph", [&](ShownForm&) {
            for (const std::string& text : textsOf(graph.drawing()))
                if (text.starts_with("Mean values")) named.push_back(text);
            const std::size_t lines = runsOfColour(graph.drawing(), colours::lightBlue).size() +
                                      runsOfColour(graph.drawing(), colours::lightGreen).size();
            EXPECT_EQ(lines, named.size());
        });
        choose(form, "mnuPlot");
        platform.takeTranscript();
        return named;
    }
    Lines comparison() { return meansOf(option(2)); }

    FakePlatform platform;
    frmSimgraph graph{platform};
    frmGraphData form{platform, graph};
    QListWidget& dets = control<QListWidget>(form, "lstDets");
    QListWidget& sites = control<QListWidget>(form, "lstSites");
    QListWidget& features = control<QListWidget>(form, "lstFeatures");
};

} // namespace korvel
