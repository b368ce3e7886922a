// The report form: what a tabular report of the results is to hold, and where it goes.
#pragma once

#include "platform/DialogsAfter.h"
#include "reports/Output.h"
#include "reports/ReportChoices.h"
#include "reports/frmListing.h"
#include "toolkit/forms/ControlArray.h"
#include "toolkit/forms/DoneLine.h"
#include "toolkit/forms/Form.h"

#include <memory>

namespace korvel {

class frmReports : public Form {
  public:
    explicit frmReports(Platform& services);

  protected:
    void onActivate() override;
    bool onClose() override { return !m_busy; }
    bool onKey(int key, Qt::KeyboardModifiers modifiers) override;
    bool isBusy() const override { return m_busy; }

  private:
    ControlArray<QLabel> labels();
    ControlArray<QCheckBox> checkBoxes();
    ControlArray<QPushButton> viewButtons();
    void connectMenus();
    void connectChoices();
    void connectLists();
    void arrangeTabOrder();
    void scaleToScreen();
    void addListMenus();
    void addListMenu(QListWidget& list, ReportBox all,
                     void (ReportChoices::*choose)(const std::vector<bool>&),
                     const std::vector<ListEntry>& (ReportChoices::*lines)() const,
                     std::initializer_list<ListPick> picks);

    void openResults();
    void loadResults();
    void takeOverResults();
    void produce(OutputMode mode);
    void produce(OutputMode mode, const OutputRequest& request);
    void saveWorkbook();
    void addWorkbookItem();
    bool showProgress(double share);
    void showExplanation();
    void chooseOutputFile(int button);
    void viewListing(const std::string& name);
    std::optional<std::string> askForFile();
    void setBusy(const std::string& doing);
    void setIdle();
    void enableChoices(bool enabled);
    void centreFrames();

    void refresh();
    void refreshLists();
    void showVerdict();
    std::string nextStep() const;

    QAction& mnuOpen = menuItem("mnuOpen", "&Open");
    QAction& mnuPrint = menuItem("mnuPrint", "&Print tabular output");
    QAction& mnuSpreadsheet = menuItem("mnuSpreadsheet", "&Spreadsheet file");
    QAction& mnuViewOutputFile = menuItem("mnuViewOutputFile", "&View/print Korvel output file");
    QAction mnuWorkbook{"Save as &workbook...", this};
    QAction& mnuExit = menuItem("mnuExit", "Exit");

    QListWidget& lstReaches = listBox("lstReaches", "REACHES", at(150, 1320, 3000, 3750));
    QListWidget& lstDets = listBox("lstDets", "DETERMINANDS", at(3270, 1320, 3000, 3750));
    QFrame& frameOptions = frame("frameOptions", at(6390, 75, 2970, 2610));
    ControlArray<QCheckBox> Check = checkBoxes();
    ControlArray<QLabel> Label = labels();
    QLabel& lblNextStep = label("lblNextStep", "", at(6390, 2850, 2970, 1035),
                                {.bold = true, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});
    QLabel& lblDone = label("lblDone", "", at(6390, 3900, 2970, 1170),
                            {.align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});
    QLabel& lblFit = label("lblFit", "", at(4800, 5775, 4560, 255), {.align = Qt::AlignCenter});
    QFrame& frameExplain = frame("frameExplain", at(1500, 1500, 6600, 2250));
    QLabel& lblExplain;
    ControlArray<QPushButton> cmdView = viewButtons();
    QFrame& frameProgress = frame("frameProgress", at(2550, 2250, 4500, 1260));
    QLabel& lblProgress = label("lblProgress", "", at(240, 150, 4020, 270), {.in = &frameProgress});
    QProgressBar& Progress = progressBar("Progress", at(240, 480, 4020, 270), {.in = &frameProgress});
    QLabel& lblCancel =
        label("lblCancel", "Press Esc to cancel.", at(240, 840, 4020, 270), {.in = &frameProgress});

    ReportChoices m_choices;
    DoneLine m_done{lblDone, services().machine, handlers()};
    // A message that ends a load or a report stands alone on the form.
    DialogsAfter m_dialogs{services().dialogs, [this] { frameProgress.hide(); }};
    Platform m_quietServices = withDialogs(services(), m_dialogs);
    FileDialogSettings CDFilename;
    std::unique_ptr<frmListing> m_listing; // made when it is shown first
    bool m_loaded = false;
    int m_loadsSeen = 0; // of the first slot, by number
    bool m_busy = false;
    QWidget* m_focusBefore = nullptr; // one of this form's controls, while it is busy
    bool m_cancelled = false;
};

} // namespace korvel
