#include "reports/frmListing.h"

#include "basic/ListInput.h"
#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"
#include "global/GLOBAL.h"
#include "platform/Guide.h"
#include "reports/CodePage437.h"
#include "reports/Output.h"
#include "toolkit/desktop/StartQt.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace korvel {

namespace {

// Line by line, as it is printed: a form feed takes no cell.
QString listingText(ByteSource& file) {
    ListInput lines(file);
    std::string text;
    while (lines.hasLine()) {
        std::string line(lines.line());
        std::erase(line, '\f');
        text += utf8OfCodePage437(line) + '\n';
    }
    return QString::fromStdString(text);
}

constexpr double fewestPoints = 6, mostPoints = 40;

// Of our own windows, as much larger as the desktop asks for.
double usualPoints() {
    return looks::windowText * desktopsTextFactor();
}

} // namespace

frmListing::frmListing(Platform& services)
    : Form(services, "frmListing", "Korvel output file"), txtListing(*new QPlainTextEdit(&client())) {
    layOut();
    setHelp([this] { OpenGuide(this->services()); });
    on(cmdNext, &QPushButton::clicked, [this] { find(Direction::forward); });
    on(txtFind, &QLineEdit::returnPressed, [this] { find(Direction::forward); });
    on(cmdPrevious, &QPushButton::clicked, [this] { find(Direction::backward); });
    on(cmdPrint, &QPushButton::clicked, [this] { print(); });
    on(cmdClose, &QPushButton::clicked, [this] { this->services().windows.close(*this); });
    onShortcut(QKeySequence::Find, [this] {
        txtFind.setFocus();
        txtFind.selectAll();
    });
    for (const QKeySequence& nearer :
         {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)})
        onShortcut(nearer, [this] { setLetters(m_points + 1); });
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { setLetters(m_points - 1); });
    onShortcut(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { setLetters(usualPoints()); });
    onShortcut(QKeySequence(Qt::Key_F3), [this] { find(Direction::forward); });
    onShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { find(Direction::backward); });
}

void frmListing::layOut() {
    txtListing.setObjectName("txtListing");
    txtListing.setAccessibleName("Listing");
    txtListing.setReadOnly(true);
    txtListing.setLineWrapMode(QPlainTextEdit::NoWrap);
    lblFind.setBuddy(&txtFind);

    auto* bar = new QHBoxLayout;
    for (QWidget* control : std::initializer_list<QWidget*>{&lblFind, &txtFind, &cmdNext, &cmdPrevious})
        bar->addWidget(control);
    bar->addWidget(&lblFound, 1);
    bar->addWidget(&cmdPrint);
    bar->addWidget(&cmdClose);
    auto* all = new QVBoxLayout(&client());
    all->setContentsMargins(looks::margin, looks::margin, looks::margin, looks::margin);
    all->setSpacing(looks::gap);
    all->addLayout(bar);
    all->addWidget(&txtListing, 1);
    setLetters(usualPoints());
}

void frmListing::print() {
    const OutputResult printed = PrintFile(services(), m_fileName);
    if (printed == OutputEnd::done) m_done.tell("The listing", printed.file);
}

void frmListing::view(const std::string& fileName) {
    try {
        const auto file = services().files.open(fileName);
        txtListing.setPlainText(listingText(*file));
    } catch (const RunTimeError& error) {
        services().dialogs.show({"Error number " + std::to_string(error.number) + ": " + error.description,
                                 "KORVEL Error", Icon::critical, Buttons::ok});
        return;
    }
    m_fileName = fileName;
    setWindowTitle(shown(fileOf(fileName)));
    lblFound.clear();
    const WorkArea area = services().machine.workArea();
    setOuterPlace({area.left, area.top, area.width, area.height});
    services().windows.showModal(*this);
}

// Ctrl and the wheel change those of the listing alone.
void frmListing::setLetters(double points) {
    m_points = std::clamp(points, fewestPoints, mostPoints);
    for (QWidget* control : std::initializer_list<QWidget*>{&lblFind, &txtFind, &cmdNext, &cmdPrevious,
                                                            &lblFound, &cmdPrint, &cmdClose})
        setFontSize(*control, m_points, false);
    txtListing.setFont(looks::fixedFont(m_points));
}

// From the cursor on, and round at the end of the file.
void frmListing::find(Direction direction) {
    const bool backward = direction == Direction::backward;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = txtListing.find(txtFind.text(), flags);
    if (!found) {
        txtListing.moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = txtListing.find(txtFind.text(), flags);
    }
    lblFound.setText(found || txtFind.text().isEmpty() ? QString() : QString("Not found."));
}

} // namespace korvel
