#include "ExploreWindow.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <ctime>

namespace korvel {

namespace {

constexpr QSize pictureSize{1900, 950};
constexpr int panels = 5;

template <typename Condition>
void passUntil(Condition condition) {
    while (!condition())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void paint() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

void settle() {
    for (int turn = 0; turn < 5; ++turn)
        paint();
}

} // namespace

double threadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

ExploreWindow::ExploreWindow(ExploreServices& services, const std::vector<std::string>& files)
    : m_memory(m_folder.filePath("memory.ini")),
      m_form(services.platform, m_memory, files),
      m_picture(m_form.findChild<QWidget*>("picProfile")) {
    m_picture->installEventFilter(&m_paints);
    control<QWidget>("picNetwork").installEventFilter(&m_networkPaints);
    double lastNews = threadSeconds();
    QObject::connect(&control<QProgressBar>("Progress"), &QProgressBar::valueChanged, &m_paints,
                     [&lastNews] { lastNews = threadSeconds(); });
    m_form.resize(2200, 1400);
    m_form.show();
    passUntil([&] { return m_form.isActiveWindow(); });
    m_form.activate();
    passUntil([&] { return !m_form.state().isEmpty() && m_picture->isVisible() && paints() > 0; });
    m_firstPicture = threadSeconds() - lastNews;
    control<QProgressBar>("Progress").disconnect(&m_paints);
}

QString ExploreWindow::readout() const {
    return control<QLabel>("lblReadout").text();
}

void ExploreWindow::fitPicture() {
    auto& parts = control<QSplitter>("splitPictures");
    for (int turn = 0; turn < 9 && m_picture->size() != pictureSize; ++turn) {
        m_form.resize(m_form.size() + pictureSize - m_picture->size());
        QList<int> sizes = parts.sizes();
        sizes[2] += sizes[1] - pictureSize.height();
        sizes[1] = pictureSize.height();
        parts.setSizes(sizes);
        settle();
    }
}

void ExploreWindow::showFivePanels() {
    auto& list = control<QListWidget>("lstSeries");
    for (int row = 0; row < list.count(); ++row)
        list.item(row)->setCheckState(row < panels ? Qt::Checked : Qt::Unchecked);
    fitPicture();
}

void ExploreWindow::switchAll(bool on) {
    for (const char* name : {"chkLimits", "chkTargets", "chkObserved"})
        control<QCheckBox>(name).setChecked(on);
    settle();
}

void ExploreWindow::choose(const char* comboBox, int choice) {
    auto& box = control<QComboBox>(comboBox);
    box.setCurrentIndex(choice);
    emit box.activated(choice);
    settle();
}

void ExploreWindow::send(QEvent& event) {
    QApplication::sendEvent(m_picture, &event);
    paint();
}

void ExploreWindow::point(double share) {
    const QPointF at(xOf(share), middle());
    QMouseEvent event(QEvent::MouseMove, at, m_picture->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    send(event);
}

void ExploreWindow::press(Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, {});
    send(event);
}

void ExploreWindow::turn(int angle, double share) {
    const QPointF at(xOf(share), middle());
    QWheelEvent event(at, m_picture->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    send(event);
}

void ExploreWindow::mouse(QEvent::Type type, double x) {
    const QPointF at(x, middle());
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, at, m_picture->mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    send(event);
}

} // namespace korvel
