// The graph form as the set-up form leaves it, for the tests of what can be done with a graph.
#pragma once

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"
#include "graphs/draw/frmSimgraph.h"
#include "graphs/setup/PlottingLists.h"
#include "graphs/setup/ReachLists.h"
#include "results/LoadResultsFile.h"

namespace korvel {

// Loads the long river and hands over flow and BOD along its reaches 1 to 3.
inline void handOverLongRiver(FakePlatform& platform) {
    platform.putFile("A.SGR", longRiver());
    GLOBAL.fileNames[0] = platform.pathOf("A.SGR");
    LoadResultsFile(platform, true, {});
    GraphChoices choices;
    choices.firstDataSetLoaded = true;
    choices.title = "Long river";
    fillLists(choices, RESULTS);
    chooseUpstreamReach(choices, 0, RESULTS);
    choices.downstream = 2;
    choices.selectedSeries[0] = choices.selectedSeries[1] = true;
    EXPECT_FALSE(prepareGraph(choices, RESULTS, GLOBAL, GLOBAL));
}

// That graph, shown and activated.
class DrawnGraphForm : public CleanGlobals {
  protected:
    DrawnGraphForm() {
        platform.closesForm = closeWindow;
        platform.setBottomForm(form);
        handOverLongRiver(platform);
        form.resize(760, 560);
        showActive(form);
        static_cast<ShownForm&>(form).activate();
    }

    QWidget& graph() { return control<QWidget>(form, "picGraph"); }
    DrawingArea area() const { return {form.drawing().width, form.drawing().height, form.drawing().width}; }

    FakePlatform platform;
    frmSimgraph form{platform};
};

} // namespace korvel
