// The Explorer's real window, moved as by a user: each step ends when what it changed has been painted.
#pragma once

#include "drawing/paint/QtTextMetrics.h"
#include "explore/frmExplore.h"
#include "platform/DiskFiles.h"
#include "toolkit/desktop/QtDialogs.h"
#include "toolkit/desktop/QtMachine.h"
#include "toolkit/desktop/QtWindows.h"
#include "toolkit/paper/PdfPaper.h"
#include "toolkit/paper/PrinterChoice.h"

#include <QTemporaryDir>

namespace korvel {

struct ExploreServices {
    PrinterChoice printer;
    QtDialogs dialogs{printer};
    DiskFiles files;
    QtMachine machine{[] { return std::string("/tmp"); }};
    QtWindows windows{dialogs};
    QtTextMetrics metrics;
    QtPaper paper{printer, files};
    Platform platform{dialogs, files, machine, windows, paper, metrics};
};

// Counts how often a widget is painted.
class PaintCount : public QObject {
  public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

class ExploreWindow {
  public:
    // Returns when the files have been read and the first picture is painted.
    ExploreWindow(ExploreServices& services, const std::vector<std::string>& files);

    // Seconds of the window's own thread, from the last news of the reading to the first picture.
    double firstPicture() const { return m_firstPicture; }
    const ExploreState& state() const { return m_form.state(); }
    QWidget& picture() const { return *m_picture; }
    int paints() const { return m_paints.paints; }               // of the profile
    int networkPaints() const { return m_networkPaints.paints; } // of the network
    QString readout() const;
    template <typename Control>
    Control& control(const char* name) const {
        return *m_form.findChild<Control*>(name);
    }

    // Of 1900 x 950, whatever stands around it, with the first five series.
    void showFivePanels();
    void switchAll(bool on); // limits, targets, samples
    void choose(const char* comboBox, int choice);

    void point(double share); // of the width
    void press(Qt::Key key);
    void turn(int angle, double share); // the wheel
    void mouse(QEvent::Type type, double x);

  private:
    void fitPicture();
    double middle() const { return m_picture->height() / 2.0; }
    double xOf(double share) const { return m_picture->width() * (0.1 + 0.8 * share); }
    void send(QEvent& event);

    QTemporaryDir m_folder;
    ExploreMemory m_memory;
    frmExplore m_form;
    QWidget* m_picture;
    PaintCount m_paints, m_networkPaints;
    double m_firstPicture = 0;
};

// Of the thread that calls.
double threadSeconds();

} // namespace korvel
