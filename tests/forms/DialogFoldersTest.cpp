// Where file dialogs begin: in the results' folder once results are there, before that in the last one.
#include "app/frmStart.h"
#include "reports/frmReports.h"

#include "fakes/FakePlatform.h"
#include "forms/FormDriver.h"
#include "forms/GraphForms.h"

#include <algorithm>

namespace korvel {

namespace {

struct AskingItem {
    const char* form;
    const char* item;
    bool needsResults;
};

constexpr AskingItem items[] = {
    {"frmGraphData", "mnuDataFile1", false}, {"frmGraphData", "mnuDataFile2", true},
    {"frmReports", "mnuOpen", false},        {"frmReports", "cmdView_0", false},
    {"frmReports", "cmdView_1", false},      {"frmReports", "mnuWorkbook", true},
    {"frmSimgraph", "mnuSavePicture", true}};

class DialogFolders : public CleanGlobals, public testing::WithParamInterface<AskingItem> {
  protected:
    DialogFolders() {
        platform.putFile("MISC.TXT", "Z:\\LAST\\\r\n\r\nFalse\r\n");
        platform.putFile(platform.pathOf("rivers\\A.SGR"), longRiver());
        platform.closesForm = closeWindow;
        main.load();
        platform.takeTranscript();
    }
    void loadResults() {
        platform.willChoose(platform.pathOf("rivers\\A.SGR"));
        choose(formNamed("frmGraphData"), "mnuDataFile1");
        platform.willChoose(platform.pathOf("rivers\\A.SGR"));
        choose(formNamed("frmReports"), "mnuOpen");
        platform.takeTranscript();
    }
    // What the item's dialog began with.
    std::string dialogOf(const AskingItem& asking) {
        QWidget& form = formNamed(asking.form);
        platform.willCancel();
        if (auto* button = form.findChild<QAbstractButton*>(asking.item))
            button->click();
        else
            choose(form, asking.item);
        return platform.takeTranscript();
    }
    static std::string beginsIn(const std::string& folder) { return " folder \"" + folder + "\" "; }

    FakePlatform platform;
    frmStart main{platform};
};

INSTANTIATE_TEST_SUITE_P(Items, DialogFolders, testing::ValuesIn(items), [](const auto& asking) {
    std::string name = std::string(asking.param.form) + asking.param.item;
    std::erase(name, '_');
    return name;
});

} // namespace

TEST_P(DialogFolders, AreTheResultsOnceTheyAreThere) {
    loadResults();
    const std::string dialog = dialogOf(GetParam());
    EXPECT_NE(dialog.find(beginsIn("{app}\\rivers\\")), std::string::npos) << dialog;
}

TEST_P(DialogFolders, AreTheLastOneBeforeThereAreResults) {
    if (GetParam().needsResults) return; // it can't be chosen then
    const std::string dialog = dialogOf(GetParam());
    EXPECT_NE(dialog.find(beginsIn("Z:\\LAST\\")), std::string::npos) << dialog;
}

TEST_F(DialogFolders, AreThoseOfTheLastRun) {
    GLOBAL.fileNames[0] = platform.pathOf("runs\\B.SGR");
    const std::string dialog = dialogOf({"frmReports", "mnuOpen", false});
    EXPECT_NE(dialog.find(beginsIn("{app}\\runs\\")), std::string::npos) << dialog;
}

} // namespace korvel
