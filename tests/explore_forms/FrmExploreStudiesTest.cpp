// Studies saved, opened and left, by the real controls.
#include "explore_forms/ExploreWindow.h"

namespace korvel {

namespace {

class FrmExploreStudies : public FrmExploreWindow {
  protected:
    void showSaved() {
        show({"a.sgr"});
        platform.willChoose(platform.pathOf("kept.korvel-study"));
        control<QAction>(*form, "actSaveStudy").trigger();
    }
};

} // namespace

TEST_F(FrmExploreStudies, AsksBeforeAChangedStudyIsClosedWithAWayBack) {
    showSaved();
    choose("cboView", "Ratio");
    const std::string saved = platform.fileText("kept.korvel-study");
    platform.willAnswer(Answer::cancel);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    platform.willAnswer(Answer::discard);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(platform.fileText("kept.korvel-study"), saved);
    platform.expectDone();
}

TEST_F(FrmExploreStudies, LeavesARunThatIsMissingInTheFileWhereItStood) {
    platform.putFile("s.korvel-study",
                     R"({"korvel_study": 1, "runs": [{"file": "lost.sgr", "mine": 7}, {"file": "a.sgr"}]})");
    platform.willAnswer(Answer::ok);
    showRuns({"s.korvel-study"}, 1);
    choose("cboView", "Ratio");
    control<QAction>(*form, "actSaveStudy").trigger();
    const std::string saved = platform.fileText("s.korvel-study");
    EXPECT_LT(saved.find("\"lost.sgr\""), saved.find("\"a.sgr\""));
    EXPECT_NE(saved.find("\"mine\": 7"), std::string::npos) << "what is not known is kept";
    EXPECT_EQ(form->windowTitle(), "s.korvel-study - KORVEL Explorer");
    platform.expectDone();
}

TEST_F(FrmExploreStudies, MarksAChangedStudyInTheTitle) {
    showSaved();
    EXPECT_EQ(form->windowTitle(), "kept.korvel-study - KORVEL Explorer");
    choose("cboView", "Ratio");
    EXPECT_EQ(form->windowTitle(), "*kept.korvel-study - KORVEL Explorer");
    choose("cboView", "Values");
    EXPECT_EQ(form->windowTitle(), "kept.korvel-study - KORVEL Explorer");
    control<QAction>(*form, "actZoomIn").trigger();
    EXPECT_EQ(form->windowTitle(), "*kept.korvel-study - KORVEL Explorer");
    control<QAction>(*form, "actSaveStudy").trigger();
    EXPECT_EQ(form->windowTitle(), "kept.korvel-study - KORVEL Explorer");
}

TEST_F(FrmExploreStudies, KeepsWhatIsShownWhereAnotherStudyIsNotOpenedAfterAll) {
    showSaved();
    choose("cboView", "Ratio");
    platform.putFile("other.korvel-study", R"({"korvel_study": 1, "runs": [{"file": "b.sgr"}]})");
    platform.willChoose(platform.pathOf("other.korvel-study"));
    platform.willAnswer(Answer::cancel);
    control<QToolButton>(*form, "cmdAddRun").click();
    passEvents();
    EXPECT_EQ(runText(0), "a.sgr  (base)");
    EXPECT_EQ(form->state().view, ExploreView::ratio);
    platform.expectDone();
    form->hide();
}

} // namespace korvel
