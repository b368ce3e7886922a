// The report form as it comes up, before results are loaded, and what its tests find in it.
#pragma once

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "reports/ReportData.h"
#include "reports/frmReports.h"

namespace korvel {

class ReportsForm : public CleanGlobals {
  protected:
    using Lines = std::vector<std::string>;
    const QColor lightGreen{0, 255, 0}, lightYellow{255, 255, 0}, lightRed{255, 0, 0};

    ReportsForm() {
        platform.putFile("RIVER.SGR", smallRiver().text());
        platform.closesForm = closeWindow;
        form.resize(660, 470);
        showActive(form);
        activate();
    }

    void activate() { static_cast<ShownForm&>(form).activate(); }
    void open(const std::string& name = "RIVER.SGR") {
        platform.willChoose(platform.pathOf(name));
        choose(form, "mnuOpen");
    }
    void openRiver(const ResultsFileBuilder& river) {
        platform.putFile("OTHER.SGR", river.text());
        open("OTHER.SGR");
    }
    // Ten determinands, so twenty lines in the list; one reach, one point.
    static ResultsFileBuilder wideRiver(int mode = 0) {
        ResultsFileBuilder river;
        river.title("Wide river").mode(mode);
        for (int d = 1; d <= 10; ++d)
            river.determinand(1, "Substance " + std::to_string(d));
        river.reach(7, "Only reach").point(7, 0, "Head");
        return river;
    }
    QCheckBox& box(int index) { return control<QCheckBox>(form, "Check_" + std::to_string(index)); }
    QListWidget& reaches() { return control<QListWidget>(form, "lstReaches"); }
    QListWidget& determinands() { return control<QListWidget>(form, "lstDets"); }
    QFrame& frame(const std::string& name) { return control<QFrame>(form, name); }
    bool enabled(const std::string& item) { return control<QAction>(form, item).isEnabled(); }
    QLabel& label(int index) { return control<QLabel>(form, "Label_" + std::to_string(index)); }
    void expectVerdict(int columns, const std::string& fit, QColor colour) {
        EXPECT_EQ(label(7).text().toStdString(),
                  "Number of columns selected for printing =  " + std::to_string(columns));
        EXPECT_EQ(label(8).text().toStdString(), fit);
        for (const int index : {7, 8})
            EXPECT_EQ(label(index).grab().toImage().pixelColor(2, 2), colour) << columns << " columns";
    }

    FakePlatform platform;
    frmReports form{platform};
};

} // namespace korvel
