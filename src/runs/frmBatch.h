// The batch form: two steps on one button choose a folder's data files and run them. It stands modeless
// beside the main form; closed and shown again, it starts anew.
#pragma once

#include "runs/BatchRun.h"
#include "toolkit/forms/ControlArray.h"
#include "toolkit/forms/Form.h"
#include "toolkit/forms/WrappedText.h"

namespace korvel {

class frmBatch : public Form {
  public:
    explicit frmBatch(Platform& services);

  protected:
    bool onClose() override;
    void onTheme() override;
    bool event(QEvent* event) override;

  private:
    void connectList();
    void connectRun();
    void arrangeTabOrder();
    bool keyInList(int key);
    void startAnew();
    void refresh();
    void refreshList();
    std::string nextStep() const;

    ControlArray<QPushButton> stepButtons();
    ControlArray<QRadioButton> options();
    ControlArray<QLabel> labels();
    WrappedText& listNote(Place place);

    // The controls in the designer's order.
    QFrame& picBox = frame("picBox", at(5550, 1710, 3300, 3780));
    QListWidget& lstSelectedFiles =
        listBox("lstSelectedFiles", "Base Files", at(90, 330, 3120, 2580), {.in = &picBox});
    ControlArray<QPushButton> cmdBatch = stepButtons();
    QLineEdit& txtBatch = textBox("txtBatch", "Title of run:", at(1290, 1710, 3720, 315));
    ControlArray<QRadioButton> optRun = options();
    ControlArray<QLabel> lblBatch = labels();
    QLabel& lblNextStep = label("lblNextStep", "", at(150, 4320, 5250, 400),
                                {.bold = true, .align = Qt::AlignLeft | Qt::AlignTop, .wraps = true});
    WrappedText& lblList = listNote(at(150, 4740, 5250, 940));
    QFrame& frameProgress = frame("frameProgress", at(2100, 2100, 4800, 1080));
    QLabel& lblProgress = label("lblProgress", "Wait ... assembling files ...", at(240, 150, 4320, 300),
                                {.fontSize = 10, .in = &frameProgress});
    QProgressBar& Progress = progressBar("Progress", at(240, 570, 4320, 300), {.in = &frameProgress});

    BatchRun m_batch;
    LeaveWatch& m_leaveList;
};

} // namespace korvel
