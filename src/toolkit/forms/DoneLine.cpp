#include "toolkit/forms/DoneLine.h"

#include "basic/ModelName.h"
#include "basic/Text.h"
#include "drawing/paint/Shown.h"

#include <QEvent>

namespace korvel {

namespace {

const char* const openLink = "open";
const char* const folderLink = "folder";
const char* const lineEnd = "<br>";

QString link(const char* target, const char* caption) {
    return QString("<a href=\"%1\">%2</a>").arg(target, caption);
}

// Only where there is room for several lines, which may break behind each folder.
QString folderLine(const std::string& folder) {
    const QString escaped = shown(withoutLast(folder, 1)).toHtmlEscaped();
    return "Folder: " + QString(escaped).replace("\\", "\\&#8203;") + lineEnd;
}

// The label takes the colour of its links with its text, and keeps it.
class LinkColours : public QObject {
  public:
    explicit LinkColours(QLabel& label) : QObject(&label), m_label(label) { label.installEventFilter(this); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange) {
            const QString text = m_label.text();
            m_label.clear();
            m_label.setText(text);
        }
        return false;
    }

  private:
    QLabel& m_label;
};

} // namespace

DoneLine::DoneLine(QLabel& label, Machine& machine, Handlers& handlers, const char* parted)
    : m_label(label), m_machine(machine), m_parted(parted) {
    label.setTextFormat(Qt::RichText);
    label.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label.setFocusPolicy(Qt::NoFocus);
    new LinkColours(label);
    QObject::connect(&label, &QLabel::linkActivated, &label,
                     handlers.guarded([this](const QString& target) { follow(target); }));
}

void DoneLine::tell(const std::string& what, const std::string& file) {
    if (file.empty()) return say(what + " was handed to the printer.");
    m_file = file;
    const bool hasLines = m_label.wordWrap() && QString(m_parted) == lineEnd;
    m_label.setFocusPolicy(Qt::StrongFocus); // for its links
    m_label.setText(QString("%1 was written to %2.%3%4%5 &nbsp; %6")
                        .arg(shown(what).toHtmlEscaped(), shown(fileOf(file)).toHtmlEscaped(), m_parted,
                             hasLines ? folderLine(folderOf(file)) : QString(), link(openLink, "Open"),
                             link(folderLink, "Show folder")));
    m_label.setToolTip(shown(file).toHtmlEscaped());
}

void DoneLine::say(const std::string& sentence) {
    clear();
    m_label.setText(shown(sentence).toHtmlEscaped());
}

void DoneLine::clear() {
    m_label.clear();
    m_label.setFocusPolicy(Qt::NoFocus);
    m_label.setToolTip("");
    m_file.clear();
}

void DoneLine::follow(const QString& link) {
    if (link == openLink)
        m_machine.openFile(m_file);
    else
        m_machine.showFolder(folderOf(m_file));
}

} // namespace korvel
