#include "toolkit/forms/DoneLine.h"

#include "basic/ModelName.h"
#include "drawing/paint/Shown.h"

namespace korvel {

namespace {

const char* const openLink = "open";
const char* const folderLink = "folder";

QString link(const char* target, const char* caption) {
    return QString("<a href=\"%1\">%2</a>").arg(target, caption);
}

} // namespace

DoneLine::DoneLine(QLabel& label, Machine& machine, Handlers& handlers, const char* parted)
    : m_label(label), m_machine(machine), m_parted(parted) {
    label.setTextFormat(Qt::RichText);
    label.setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    label.setFocusPolicy(Qt::NoFocus);
    QObject::connect(&label, &QLabel::linkActivated, &label,
                     handlers.guarded([this](const QString& target) { follow(target); }));
}

void DoneLine::tell(const std::string& what, const std::string& file) {
    if (file.empty()) return say(what + " was handed to the printer.");
    m_file = file;
    m_label.setFocusPolicy(Qt::StrongFocus); // for its links
    m_label.setText(QString("%1 was written to %2.%3%4 &nbsp; %5")
                        .arg(shown(what).toHtmlEscaped(), shown(fileOf(file)).toHtmlEscaped(), m_parted,
                             link(openLink, "Open"), link(folderLink, "Show folder")));
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
