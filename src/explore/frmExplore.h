// The Explorer, a process of its own: any river of the catchment after a run, several runs against each
// other, against targets and samples. It touches neither the shared state nor the settings file of the given
// forms.
#pragma once

#include "explore/Navigator.h"
#include "explore/NetworkColouring.h"
#include "explore/Scene.h"
#include "explore/StudyFile.h"
#include "explore/tables/ExploreTables.h"
#include "explore/window/EmptyPage.h"
#include "explore/window/ExploreBar.h"
#include "explore/window/HandingOn.h"
#include "explore/window/Memory.h"
#include "explore/window/NetworkPicture.h"
#include "explore/window/OpenRuns.h"
#include "explore/window/ProfilePicture.h"
#include "explore/window/SidePanel.h"
#include "explore/window/StatusLine.h"
#include "explore/window/StudyKeeping.h"
#include "toolkit/desktop/Theme.h"
#include "toolkit/forms/Form.h"

#include <QDockWidget>
#include <QSplitter>
#include <QStackedWidget>

#include <string>
#include <vector>

namespace korvel {

class frmExplore : public Form {
  public:
    // Opens these files (model names) as soon as it is shown: results files, or one study file.
    frmExplore(Platform& services, ExploreMemory& memory, std::vector<std::string> files = {});

    const ExploreState& state() const { return m_state; }

  protected:
    void onActivate() override;
    bool onClose() override;
    bool onKey(int key, Qt::KeyboardModifiers modifiers) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();
    void takeScreen();
    void connectBar();
    void connectSide();
    void connectRuns();
    void connectTables();
    void connectNetwork();
    void connectHandingOn();
    HandedOn handedOn();
    HandingOnNews handingOnNews();
    void saveStudy(bool underAnotherName);
    Drawing picture(double width, double height, Theme theme) const;
    void fillOpenMenu();

    // What is shown is a function of the state.
    void refresh();
    void refreshCursor();
    void giveReadoutRoom();
    std::vector<QString> readoutTexts(std::size_t place) const;
    void refreshPictures();
    void refreshNetwork();
    void told(Changed changed);
    void showTheme();
    std::vector<ListedRun> listedRuns() const;
    std::string titleText() const;

    void choosePath(PathEnds ends);
    void goTo(const ExplorePlace& place);
    void drawAlso(int series);
    void open();
    void openAny(const std::vector<std::string>& files); // model names of results files or of a study
    void openStudy(const std::string& file);
    void showStudy(const std::string& file, const StudyFile& study);
    void setLowIsBad(int determinand, bool isLow);
    void takeRememberedLowIsBad();
    void showProblems(const std::vector<std::string>& problems);
    void runsChanged(const std::vector<std::string>& added);

    ExploreMemory& m_memory;
    std::vector<std::string> m_openOnStart;
    ExploreState m_state;
    ExploreScene m_scene;
    Navigator m_navigator{m_state, m_scene};
    OpenRuns m_runs;
    StudyKeeping m_keeping;
    KnownColouring m_colours;
    HandingOn m_handing;
    Theme m_theme;
    ThemeWatch m_themeWatch;
    QElapsedTimer m_clock;

    ExploreBar* m_bar = nullptr;
    QDockWidget* m_dock = nullptr;
    SidePanel* m_side = nullptr;
    QStackedWidget* m_pages = nullptr;
    EmptyPage* m_empty = nullptr;
    QSplitter* m_parts = nullptr;
    NetworkPicture* m_network = nullptr;
    QComboBox* m_colouring = nullptr;
    ProfilePicture* m_profile = nullptr;
    ExploreTables* m_tables = nullptr;
    QTimer m_followCursor; // the tables come after, when the cursor rests
    StatusLine* m_status = nullptr;
    FileDialogSettings m_openDialog;
};

} // namespace korvel
