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
    QCheckBox& box(int index) { return control<QCheckBox>(form, "Check_" + std::to_string(index)); }
    QListWidget& reaches() { return control<QListWidget>(form, "lstReaches"); }
    QListWidget& determinands() { return control<QListWidget>(form, "lstDets"); }
    QFrame& frame(const std::string& name) { return control<QFrame>(form, name); }
    bool enabled(const std::string& item) { return control<QAction>(form, item).isEnabled(); }

    FakePlatform platform;
    frmReports form{platform};
};

} // namespace korvel
