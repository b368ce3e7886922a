// What the Explorer's window takes, painted: from the end of reading to the first picture, a move of the
// cursor, a step of the wheel, a dragged frame, the network, its tables. Twelve runs as large as they can be
// and one, five panels. Arguments: a folder for the files, the number of rounds, and one of opening, one,
// twelve, network where it is to be that alone.
#include "ExploreTables.h"
#include "ExploreWindow.h"
#include "LargeResultsFile.h"
#include "Rows.h"
#include "basic/ModelName.h"
#include "toolkit/desktop/StartQt.h"

#include <QApplication>

#include <cstdlib>

namespace korvel {

namespace {

constexpr double mostOfCursor = 0.004, mostOfFrame = 0.012, mostOfTwelve = 0.040, mostOfOpening = 0.100;
constexpr double sameForAllPoints = 1.25; // what a tenth of the points takes, times
constexpr std::size_t allRuns = 12;
constexpr int frames = 20; // of a round
constexpr int catchmentReaches = 400;

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

void require(bool holds, const std::string& job) {
    if (holds) return;
    std::fprintf(stderr, "bench: %s was not painted\n", job.c_str());
    std::exit(1);
}

// A frame's share of what a round takes. What is measured must have been painted.
Contest::Way roundOf(const std::string& job, const std::function<int()>& paints,
                     const std::function<void()>& frame) {
    return [=] {
        const int before = paints();
        const Cost cost = costOf([&] {
            for (int k = 0; k < frames; ++k)
                frame();
        });
        require(paints() >= before + frames, job);
        return Cost{cost.clock / frames, cost.processor / frames};
    };
}

// Moves of the cursor, each of which has to change the readout.
class CursorMoves {
  public:
    explicit CursorMoves(ExploreWindow& window) : m_window(window) {}

    Contest::Way byPointer() {
        return way("a move of the pointer", [this] { m_window.point((m_step++ * 37 % 100) / 100.0); });
    }
    Contest::Way byKeys() {
        return way("a step of the cursor", [this] { m_window.press(Qt::Key_Right); });
    }

  private:
    Contest::Way way(const std::string& job, const std::function<void()>& move) {
        return roundOf(
            job, [this] { return m_window.paints(); },
            [this, job, move] {
                const QString before = m_window.readout();
                move();
                require(m_window.readout() != before, job);
            });
    }

    ExploreWindow& m_window;
    int m_step = 0;
};

void measureCursor(const std::string& of, ExploreWindow& window, int rounds) {
    CursorMoves moves(window);
    const Contest byPointer(rounds, {moves.byPointer()});
    printTimeBound(of + ", cursor by the pointer", byPointer.medianOf(0).processor, "bound", mostOfCursor);
    window.press(Qt::Key_Home);
    const Contest byKeys(rounds, {moves.byKeys()});
    printTimeBound(of + ", cursor by keys", byKeys.medianOf(0).processor, "bound", mostOfCursor);
    window.press(Qt::Key_Escape);
}

// The same moves in two windows, in turn.
void compareCursors(ExploreWindow& large, ExploreWindow& small, int rounds) {
    CursorMoves ofLarge(large), ofSmall(small);
    const std::string yardstick = "with a tenth of the points";
    printTimes("12 runs, cursor by the pointer", yardstick,
               Contest(rounds, {ofLarge.byPointer(), ofSmall.byPointer()}), 1, sameForAllPoints);
    for (ExploreWindow* window : {&large, &small})
        window->press(Qt::Key_Home);
    printTimes("12 runs, cursor by keys", yardstick, Contest(rounds, {ofLarge.byKeys(), ofSmall.byKeys()}), 1,
               sameForAllPoints);
    for (ExploreWindow* window : {&large, &small})
        window->press(Qt::Key_Escape);
}

class Frames {
  public:
    Frames(std::string of, ExploreWindow& window, double most, int rounds)
        : m_of(std::move(of)), m_window(window), m_most(most), m_rounds(rounds) {}

    void measure(const std::string& with) {
        int step = 0;
        m_window.control<QAction>("actShowAll").trigger();
        measure("zoom, " + with, [&] {
            const int phase = step++ % 10;
            m_window.turn(phase < 5 ? 120 : -120, 0.3 + 0.05 * (step % 7));
        });
        for (int turn = 0; turn < 3; ++turn)
            m_window.turn(120, 0.5);
        const double middle = m_window.picture().width() / 2.0;
        m_window.mouse(QEvent::MouseButtonPress, middle);
        measure("pan, " + with,
                [&] { m_window.mouse(QEvent::MouseMove, middle + 60 * ((step++ % 9) - 4.5)); });
        m_window.mouse(QEvent::MouseButtonRelease, middle);
        m_window.control<QAction>("actShowAll").trigger();
    }

  private:
    void measure(const std::string& job, const std::function<void()>& frame) {
        const auto paints = [this] { return m_window.paints(); };
        const Contest contest(m_rounds, {roundOf(job, paints, frame)});
        printTimeBound(m_of + ", " + job, contest.medianOf(0).processor, "bound", m_most);
    }

    std::string m_of;
    ExploreWindow& m_window;
    double m_most;
    int m_rounds;
};

void measureMoving(const std::string& of, ExploreWindow& window, double most, int rounds) {
    window.showFivePanels();
    Frames frames(of, window, most, rounds);
    window.switchAll(false);
    frames.measure("curves alone");
    window.switchAll(true);
    measureCursor(of, window, rounds);
    frames.measure("all on");
    auto& logarithmic = window.control<QCheckBox>("chkLogarithmic");
    logarithmic.setChecked(true);
    frames.measure("all on, log");
    logarithmic.setChecked(false);
    window.choose("cboView", 1);
    frames.measure("Change");
    window.choose("cboView", 2);
    frames.measure("Ratio");
    window.choose("cboView", 0);
}

// Of the window's own thread: files are read on others, so that this is what opening takes beside reading.
void measureOpening(const std::string& of, ExploreServices& services, const std::vector<std::string>& files,
                    int rounds) {
    std::vector<double> opening, firstPicture;
    for (int round = 0; round <= std::max(3, rounds / 3); ++round) {
        const double before = threadSeconds();
        const ExploreWindow window(services, files);
        if (round == 0) continue; // it warms the memory
        opening.push_back(threadSeconds() - before);
        firstPicture.push_back(window.firstPicture());
    }
    printTimeBound(of + ", opening beside reading", median(opening), "bound", mostOfOpening);
    printTimeBound(of + ", of it from the last byte to the picture", median(firstPicture), "bound",
                   mostOfOpening);
}

// Coloured by verdict and by value in turn: found, laid out and painted anew.
void measureNetwork(ExploreWindow& window, int rounds) {
    const auto paints = [&] { return window.networkPaints(); };
    int step = 1; // by verdict at first
    const Contest contest(
        rounds, {roundOf("the network", paints, [&] { window.choose("cboColouring", step++ % 2); })});
    printTimeBound("network of 400 reaches, coloured otherwise", contest.medianOf(0).processor, "bound",
                   mostOfFrame);
}

struct ExploreFiles {
    std::vector<std::string> one, twelve, tenth, catchment;
};

ExploreFiles madeFiles(const std::string& folder) {
    const auto made = [&](const std::string& name, int points, unsigned draw, int reaches = 1) {
        const std::string path = folder + "/" + name + ".sgr";
        if (!std::filesystem::exists(path))
            writeLargeResultsFile(path, ResultsForm::fixedWidth, points, draw, reaches);
        return path;
    };
    const std::vector<std::string> large{made("fixed", largePoints, 1), made("other", largePoints, 2)};
    const std::vector<std::string> tenth{made("tenth1", largePoints / 10, 1),
                                         made("tenth2", largePoints / 10, 2)};
    const std::vector<std::string> catchment{made("reaches", largePoints / 10, 1, catchmentReaches)};
    return {linkedFiles(folder, large, 1), linkedFiles(folder, large, allRuns),
            linkedFiles(folder, tenth, allRuns), linkedFiles(folder, catchment, 1)};
}

void measureTwelve(ExploreServices& services, const ExploreFiles& files, int rounds) {
    ExploreWindow window(services, files.twelve);
    measureMoving("12 runs", window, mostOfTwelve, rounds);
    {
        ExploreWindow small(services, files.tenth);
        small.showFivePanels();
        compareCursors(window, small, rounds);
    }
    measureExploreTables(window.state(), rounds);
}

void measure(const ExploreFiles& files, int rounds, const std::string& only) {
    ExploreServices services;
    const auto isWanted = [&](const char* part) { return only.empty() || only == part; };
    if (isWanted("opening")) {
        measureOpening("1 run", services, files.one, rounds);
        measureOpening("12 runs", services, files.twelve, rounds);
    }
    if (isWanted("network")) {
        ExploreWindow window(services, files.catchment);
        measureNetwork(window, rounds);
    }
    if (isWanted("one")) {
        ExploreWindow window(services, files.one);
        measureMoving("1 run", window, mostOfFrame, rounds);
    }
    if (isWanted("twelve")) measureTwelve(services, files, rounds);
}

} // namespace

} // namespace korvel

int main(int argc, char** argv) {
    if (argc != 3 && argc != 4) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KORVEL_THEME", "light");
    QApplication application(argc, argv);
    korvel::settleExplorerLook();
    korvel::measure(korvel::madeFiles(argv[1]), std::atoi(argv[2]), argc == 4 ? argv[3] : "");
}
