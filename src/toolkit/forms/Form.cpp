#include "toolkit/forms/Form.h"

#include "drawing/paint/Shown.h"
#include "drawing/paint/Twips.h"
#include "toolkit/forms/OneLine.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>

namespace korvel {

namespace {

constexpr int darkestForBlack = 70; // grey value: on a pure red, black words are read best

std::string withoutAccessKey(std::string caption) {
    std::erase(caption, '&');
    return trim(caption);
}

// The style knows the height of a line only where there is one.
int lineHeight(QListWidget& list) {
    if (list.count() > 0) return list.sizeHintForRow(0);
    const QSignalBlocker quiet(list);
    list.addItem("line");
    const int height = list.sizeHintForRow(0);
    list.clear();
    return height;
}

} // namespace

Form::Form(Platform& services, const char* name, const std::string& caption, Scaling scaling)
    : m_services(services), m_handlers(services.windows), m_client(new QWidget(this)), m_scaling(scaling) {
    setObjectName(name);
    setWindowTitle(shown(caption));
    setCentralWidget(m_client);
    menuBar()->setNativeMenuBar(false);
    menuBar()->hide();
}

void Form::activate() {
    m_activated = true;
    m_handlers.run([this] { onActivate(); });
}

void Form::setHelp(std::function<void()> help) {
    onShortcutUnlessBusy(QKeySequence(Qt::Key_F1), std::move(help));
}

void Form::setExplore(std::function<void()> explore) {
    onShortcutUnlessBusy(QKeySequence(Qt::CTRL | Qt::Key_E), std::move(explore));
}

void Form::onShortcutUnlessBusy(const QKeySequence& keys, std::function<void()> action) {
    onShortcut(keys, [this, action = std::move(action)] {
        if (!isBusy()) action();
    });
}

void Form::setOuterPlace(const Place& place) {
    m_outer = place;
    m_fitted = false;
    move(pixels(place.left), pixels(place.top));
    resize(pixels(place.width), pixels(place.height));
    if (isVisible()) fitOuterFrame();
}

// The desktop tells the frame's width only some time after the window is shown.
void Form::fitOuterFrame() {
    const QSize frame = frameGeometry().size() - geometry().size();
    if (m_fitted || frame.isEmpty() || m_outer.width <= 0) return;
    m_fitted = true;
    resize(QSize(pixels(m_outer.width), pixels(m_outer.height)) - frame);
    move(pixels(m_outer.left), pixels(m_outer.top));
}

template <typename Control>
Control& Form::added(Control* control, const std::string& name, const std::string& typeName,
                     const std::string& accessibleName, Place place, const Look& look) {
    control->setObjectName(shown(name));
    if (!accessibleName.empty()) control->setAccessibleName(shown(withoutAccessKey(accessibleName)));
    ControlLayout layout;
    layout.typeName = typeName;
    layout.left = place.left;
    layout.top = place.top;
    layout.width = place.width;
    layout.height = place.height;
    layout.fontSize = look.fontSize;
    m_placed.push_back({control, layout, look.bold});
    if (m_scaling == Scaling::none) apply(m_placed.back());
    return *control;
}

void Form::place(QWidget& control, const std::string& typeName, Place place, double fontSize) {
    added(&control, control.objectName().toStdString(), typeName, control.accessibleName().toStdString(),
          place, {.fontSize = fontSize});
}

// A label is read by its text, which may change.
QLabel& Form::label(const char* name, const std::string& caption, Place place, Look look) {
    auto* control = new QLabel(shown(caption), parentFor(look));
    control->setTextFormat(Qt::PlainText);
    control->setAlignment(look.align);
    control->setWordWrap(look.wraps);
    return added(control, name, "Label", "", place, look);
}

QPushButton& Form::button(const char* name, const std::string& caption, Place place, Look look) {
    auto* control = new QPushButton(shown(caption), parentFor(look));
    control->setAutoDefault(true);
    return added(control, name, "CommandButton", caption, place, look);
}

QCheckBox& Form::checkBox(const std::string& name, const std::string& caption, Place place, Look look) {
    return added(new QCheckBox(shown(caption), parentFor(look)), name, "CheckBox", caption, place, look);
}

QRadioButton& Form::optionButton(const std::string& name, const std::string& caption, Place place,
                                 Look look) {
    return added(new QRadioButton(shown(caption), parentFor(look)), name, "OptionButton", caption, place,
                 look);
}

QLineEdit& Form::textBox(const std::string& name, const std::string& accessibleName, Place place, Look look) {
    auto* control = new QLineEdit(parentFor(look));
    control->setValidator(new OneLine(control));
    return added(control, name, "TextBox", accessibleName, place, look);
}

QListWidget& Form::listBox(const char* name, const std::string& accessibleName, Place place, Look look) {
    auto* control = new QListWidget(parentFor(look));
    control->setSelectionMode(QAbstractItemView::ExtendedSelection);
    control->setUniformItemSizes(true);
    control->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    return added(control, name, "ListBox", accessibleName, place, look);
}

QComboBox& Form::comboBox(const std::string& name, const std::string& accessibleName, Place place,
                          Look look) {
    auto* control = new QComboBox(parentFor(look));
    control->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return added(control, name, "ComboBox", accessibleName, place, look);
}

QFrame& Form::frame(const char* name, Place place, Look look) {
    auto* control = new QFrame(parentFor(look));
    control->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    control->setAutoFillBackground(true);
    return added(control, name, "Frame", "", place, look);
}

QProgressBar& Form::progressBar(const char* name, Place place, Look look) {
    auto* control = new QProgressBar(parentFor(look));
    control->setRange(0, 100);
    control->setValue(0);
    return added(control, name, "ProgressBar", "Progress", place, look);
}

Shape& Form::shape(const std::string& name, Shape::Kind kind, Rgb fill, Place place) {
    return added(new Shape(kind, fill, m_client), name, "Shape", "", place, {});
}

QMenu& Form::submenu(const char* name, const std::string& caption, QMenu* in) {
    menuBar()->show();
    QMenu* menu = in != nullptr ? in->addMenu(shown(caption)) : menuBar()->addMenu(shown(caption));
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
    return *menu;
}

QAction& Form::menuItem(const char* name, const std::string& caption, QMenu* in) {
    menuBar()->show();
    QAction* item = in != nullptr ? in->addAction(shown(caption)) : menuBar()->addAction(shown(caption));
    item->setObjectName(name);
    item->setMenuRole(QAction::NoRole);
    return *item;
}

void Form::apply(const Placed& placed) {
    const ControlLayout& layout = placed.layout;
    setFontSize(*placed.control, layout.fontSize, placed.bold);
    const int height =
        layout.typeName == "ComboBox" ? placed.control->sizeHint().height() : pixels(layout.height);
    placed.control->setGeometry(pixels(layout.left), pixels(layout.top), pixels(layout.width), height);
}

void Form::ScaleFormControls(double scaleX, double scaleY) {
    for (Placed& placed : m_placed) {
        placed.layout = scaledControl(placed.layout, scaleX, scaleY);
        apply(placed);
        if (auto* list = qobject_cast<QListWidget*>(placed.control)) showWholeLines(*list);
    }
}

void Form::showWholeLines(QListWidget& list) {
    const int line = lineHeight(list);
    const int border = 2 * list.frameWidth();
    const int lines = qMax(1, (list.height() - border) / line);
    list.resize(list.width(), lines * line + border);
}

void Form::keepRoomForControls() {
    QRect room(0, 0, 1, 1);
    for (const Placed& placed : m_placed)
        if (placed.control->parentWidget() == m_client) room |= placed.control->geometry();
    m_client->setMinimumSize(room.right() + 1, room.bottom() + 1);
}

Place Form::controlPlace(const QWidget& control) const {
    for (const Placed& placed : m_placed)
        if (placed.control == &control)
            return {placed.layout.left, placed.layout.top, placed.layout.width, placed.layout.height};
    return {};
}

void Form::setControlPlace(QWidget& control, const Place& place) {
    for (Placed& placed : m_placed)
        if (placed.control == &control) {
            placed.layout.left = place.left;
            placed.layout.top = place.top;
            placed.layout.width = place.width;
            placed.layout.height = place.height;
            apply(placed);
        }
}

void Form::setBackground(QWidget& control, Rgb colour) {
    const QColor ground(colour.red, colour.green, colour.blue);
    const bool isLight = qGray(ground.rgb()) > darkestForBlack;
    QPalette palette = paletteOf(isLight ? Theme::light : Theme::dark);
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, isLight ? Qt::black : Qt::white);
    control.setAutoFillBackground(true);
    control.setPalette(palette);
}

void Form::clearBackground(QWidget& control) {
    control.setPalette({});
}

void Form::setTextColour(QWidget& control, Rgb colour) {
    QPalette palette = control.palette();
    palette.setColor(QPalette::WindowText, QColor(colour.red, colour.green, colour.blue));
    control.setForegroundRole(QPalette::WindowText); // also on a ground of another role
    control.setPalette(palette);
}

void Form::setFontSize(QWidget& control, double points, bool bold) {
    QFont font(looks::textFamily);
    font.setPointSizeF(qMax(1.0, points));
    font.setBold(bold);
    control.setFont(font);
}

void Form::onEnter(QWidget& control, std::function<void()> action) {
    new EnterWatch(control, m_handlers.guarded(std::move(action)));
}

LeaveWatch& Form::onLeave(QWidget& control, std::function<void()> action) {
    return *new LeaveWatch(control, m_handlers.guarded(std::move(action)));
}

void Form::onShortcut(const QKeySequence& keys, std::function<void()> action) {
    auto* shortcut = new QShortcut(keys, this);
    on(*shortcut, &QShortcut::activated, std::move(action));
}

void Form::tip(QWidget& control, std::function<std::string()> text) {
    new HoverTip(control, std::move(text));
}

void Form::tip(QWidget& control, const std::string& text) {
    control.setToolTip(shown(text));
}

void Form::closeEvent(QCloseEvent* event) {
    bool closes = true;
    m_handlers.run([&] { closes = onClose(); });
    event->setAccepted(closes);
    if (closes && closed) m_handlers.run(closed);
}

void Form::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitOuterFrame();
    m_handlers.run([this] { onResize(); });
}

void Form::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    fitOuterFrame();
}

void Form::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    for (const int milliseconds : {0, 50, 200, 600})
        QTimer::singleShot(milliseconds, this, [this] { fitOuterFrame(); });
}

void Form::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) m_handlers.run([this] { onTheme(); });
}

void Form::keyPressEvent(QKeyEvent* event) {
    bool used = false;
    m_handlers.run([&] { used = onKey(event->key(), event->modifiers()); });
    if (!used) QMainWindow::keyPressEvent(event);
}

} // namespace korvel
