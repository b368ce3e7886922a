// What the Explorer's window takes, painted: a move of the cursor, a step of the wheel, a dragged frame, and
// from the end of reading to the first picture. Twelve runs as large as they can be and one, five panels.
// Arguments: a folder for the files, the number of rounds.
#include "LargeResultsFile.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "drawing/paint/QtTextMetrics.h"
#include "explore/frmExplore.h"
#include "platform/DiskFiles.h"
#include "toolkit/desktop/QtDialogs.h"
#include "toolkit/desktop/QtMachine.h"
#include "toolkit/desktop/QtWindows.h"
#include "toolkit/desktop/StartQt.h"
#include "toolkit/paper/PdfPaper.h"
#include "toolkit/paper/PrinterChoice.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <cstdlib>

namespace korvel {

namespace {

constexpr double mostOfCursor = 0.004, mostOfFrame = 0.012, mostOfTwelve = 0.040, mostOfOpening = 0.100;
constexpr QSize pictureSize{1900, 950};
constexpr std::size_t allRuns = 12;
constexpr int frames = 20; // of a round

struct Services {
    PrinterChoice printer;
    QtDialogs dialogs{printer};
    DiskFiles files;
    QtMachine machine{[] { return std::string("/tmp"); }};
    QtWindows windows{dialogs};
    QtTextMetrics metrics;
    QtPaper paper{printer, files};
    Platform platform{dialogs, files, machine, windows, paper, metrics};
};

std::vector<std::string> linkedFiles(const std::string& folder, const std::vector<std::string>& originals,
                                     std::size_t count) {
    std::vector<std::string> names;
    for (std::size_t k = 0; k < count; ++k) {
        const std::filesystem::path link = folder + "/" +
                                           std::filesystem::path(originals.front()).stem().string() +
                                           std::to_string(k) + "of" + std::to_string(count) + ".sgr";
        if (!std::filesystem::exists(link))
            std::filesystem::create_symlink(originals[k % originals.size()], link);
        names.push_back(modelNameOfHostPath(link.string()));
    }
    return names;
}

class Window {
  public:
    Window(Services& services, const std::vector<std::string>& files)
        : m_memory(m_folder.filePath("memory.ini")), m_form(services.platform, m_memory, files) {
        m_form.resize(2200, 1400);
        m_form.show();
        passUntil([&] { return m_form.isActiveWindow(); });
        m_form.activate();
        passUntil([&] { return !m_form.state().isEmpty() && picture().isVisible(); });
    }

    const ExploreState& state() const { return m_form.state(); }
    QWidget& picture() { return *m_form.findChild<QWidget*>("picProfile"); }
    template <typename Control>
    Control& control(const char* name) {
        return *m_form.findChild<Control*>(name);
    }

    // Of the size that is asked for, whatever stands around it.
    void fitPicture() {
        auto& parts = control<QSplitter>("splitPictures");
        for (int turn = 0; turn < 3; ++turn) {
            m_form.resize(m_form.size() + pictureSize - picture().size());
            QList<int> sizes = parts.sizes();
            sizes[2] += sizes[1] - pictureSize.height();
            sizes[1] = pictureSize.height();
            parts.setSizes(sizes);
            settle();
        }
    }
    void showFivePanels() {
        auto& list = control<QListWidget>("lstSeries");
        for (int row = 0; row < list.count(); ++row)
            list.item(row)->setCheckState(row < 5 ? Qt::Checked : Qt::Unchecked);
        settle();
    }
    void switchAll(bool on) {
        for (const char* name : {"chkLimits", "chkTargets", "chkObserved"})
            control<QCheckBox>(name).setChecked(on);
        settle();
    }
    void choose(const char* name, int choice) {
        auto& box = control<QComboBox>(name);
        box.setCurrentIndex(choice);
        emit box.activated(choice);
        settle();
    }

    void point(double share) {
        const QPointF at(picture().width() * (0.1 + 0.8 * share), picture().height() / 2.0);
        QMouseEvent event(QEvent::MouseMove, at, picture().mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&picture(), &event);
        paint();
    }
    void press(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(&picture(), &event);
        paint();
    }
    void turn(int angle, double share) {
        const QPointF at(picture().width() * (0.1 + 0.8 * share), picture().height() / 2.0);
        QWheelEvent event(at, picture().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&picture(), &event);
        paint();
    }
    void mouse(QEvent::Type type, double x) {
        const QPointF at(x, picture().height() / 2.0);
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, at, picture().mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
        QApplication::sendEvent(&picture(), &event);
        paint();
    }

  private:
    template <typename Condition>
    static void passUntil(Condition condition) {
        while (!condition())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    static void paint() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
    static void settle() {
        for (int turn = 0; turn < 5; ++turn)
            paint();
    }

    QTemporaryDir m_folder;
    ExploreMemory m_memory;
    frmExplore m_form;
};

class Bench {
  public:
    Bench(std::string of, Window& window, double mostOfZoom, int rounds)
        : m_of(std::move(of)), m_window(window), m_most(mostOfZoom), m_rounds(rounds) {}

    void measureCursor() {
        int step = 0;
        measure("cursor by the pointer", mostOfCursor, [&] { m_window.point((step++ * 37 % 100) / 100.0); });
        m_window.press(Qt::Key_Home);
        measure("cursor by keys", mostOfCursor, [&] { m_window.press(Qt::Key_Right); });
        m_window.press(Qt::Key_Escape);
    }

    void measureFrames(const std::string& with) {
        int step = 0;
        measure("zoom, " + with, m_most, [&] {
            const int phase = step++ % 10;
            m_window.turn(phase < 5 ? 120 : -120, 0.3 + 0.05 * (step % 7));
        });
        for (int turn = 0; turn < 3; ++turn)
            m_window.turn(120, 0.5);
        const double middle = m_window.picture().width() / 2.0;
        m_window.mouse(QEvent::MouseButtonPress, middle);
        measure("pan, " + with, m_most,
                [&] { m_window.mouse(QEvent::MouseMove, middle + 60 * ((step++ % 9) - 4.5)); });
        m_window.mouse(QEvent::MouseButtonRelease, middle);
        m_window.control<QAction>("actShowAll").trigger();
    }

  private:
    void measure(const std::string& job, double most, const std::function<void()>& frame) {
        const auto round = [&] {
            Cost cost = costOf([&] {
                for (int k = 0; k < frames; ++k)
                    frame();
            });
            return Cost{cost.clock / frames, cost.processor / frames};
        };
        const Contest contest(m_rounds, {round});
        printTimeBound(m_of + ", " + job, contest.medianOf(0).processor, "bound", most);
    }

    std::string m_of;
    Window& m_window;
    double m_most;
    int m_rounds;
};

void measureMoving(const std::string& of, Window& window, double most, int rounds) {
    window.fitPicture();
    window.showFivePanels();
    Bench bench(of, window, most, rounds);
    window.switchAll(false);
    bench.measureFrames("curves alone");
    window.switchAll(true);
    bench.measureCursor();
    bench.measureFrames("all on");
    window.control<QCheckBox>("chkLogarithmic").setChecked(true);
    bench.measureFrames("all on, log");
    window.control<QCheckBox>("chkLogarithmic").setChecked(false);
    window.choose("cboView", 1);
    bench.measureFrames("Change");
    window.choose("cboView", 2);
    bench.measureFrames("Ratio");
    window.choose("cboView", 0);
}

// Of the processor, so that other programs count less: what is not reading is one thread after the other.
void measureOpening(const std::string& of, Services& services, const std::vector<std::string>& files,
                    int rounds) {
    const auto open = [&] { return costOf([&] { Window window(services, files); }); };
    const auto read = [&] { return costOf([&] { loadStudy(services.files, files); }); };
    const Contest contest(std::max(3, rounds / 3), {open, read});
    printTimeBound(of + ", opening beside reading",
                   contest.medianOf(0).processor - contest.medianOf(1).processor, "bound", mostOfOpening);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KORVEL_THEME", "light");
    QApplication application(argc, argv);
    settleExplorerLook();
    const std::string folder = argv[1];
    const int rounds = std::atoi(argv[2]);
    std::vector<std::string> large, tenth;
    for (const unsigned draw : {1u, 2u}) {
        large.push_back(folder + (draw == 1 ? "/fixed.sgr" : "/other.sgr"));
        tenth.push_back(folder + "/tenth" + std::to_string(draw) + ".sgr");
        if (!std::filesystem::exists(large.back()))
            writeLargeResultsFile(large.back(), ResultsForm::fixedWidth, largePoints, draw);
        if (!std::filesystem::exists(tenth.back()))
            writeLargeResultsFile(tenth.back(), ResultsForm::fixedWidth, largePoints / 10, draw);
    }
    Services services;
    const std::vector<std::string> one = linkedFiles(folder, large, 1),
                                   twelve = linkedFiles(folder, large, allRuns);
    measureOpening("1 run", services, one, rounds);
    measureOpening("12 runs", services, twelve, rounds);
    {
        Window window(services, one);
        measureMoving("1 run", window, mostOfFrame, rounds);
    }
    {
        Window window(services, linkedFiles(folder, tenth, allRuns));
        window.fitPicture();
        window.showFivePanels();
        Bench("12 runs, 1/10 of the points", window, mostOfTwelve, rounds).measureCursor();
    }
    Window window(services, twelve);
    measureMoving("12 runs", window, mostOfTwelve, rounds);
}
