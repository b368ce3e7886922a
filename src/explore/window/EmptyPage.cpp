#include "explore/window/EmptyPage.h"

#include <QFile>
#include <QFileInfo>

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace korvel {

namespace {

constexpr int columnWidth = 560; // pixels
constexpr int between = 14;
constexpr double titleSize = 1.7; // times the text's

QLabel* wrapped(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

QLabel* title(const QString& text, QWidget* parent) {
    auto* label = wrapped(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * titleSize);
    label->setFont(font);
    return label;
}

} // namespace

EmptyPage::EmptyPage(Handlers& handlers, QWidget* parent)
    : QWidget(parent),
      m_open(new QPushButton("&Open results ...", this)),
      m_recentHeading(wrapped("Opened lately", this)),
      m_recent(new QListWidget(this)) {
    setObjectName("pageEmpty");
    m_open->setObjectName("cmdOpenFirst");
    m_open->setAutoDefault(true); // Enter presses it too
    m_open->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    m_recent->setObjectName("lstRecent");
    m_recent->setAccessibleName("Opened lately");
    m_recent->setFrameShape(QFrame::NoFrame);
    m_recent->setTextElideMode(Qt::ElideMiddle);
    connect(m_open, &QPushButton::clicked, this, handlers.guarded([this] { onOpen(); }));
    connect(m_recent, &QListWidget::itemActivated, this, handlers.guarded([this](QListWidgetItem* item) {
        onRecent(m_files[static_cast<std::size_t>(m_recent->row(item))]);
    }));
    auto* column = new QWidget(this);
    column->setMaximumWidth(columnWidth);
    auto* down = new QVBoxLayout(column);
    down->setSpacing(between);
    down->addStretch(2);
    down->addWidget(title("Look down any river", column));
    down->addWidget(
        wrapped("Open the results of a model run (.SGR), or drop the files here: up to 12 runs of one "
                "catchment, side by side. The first is the base that the others are held against.",
                column));
    down->addWidget(m_open);
    down->addSpacing(between);
    down->addWidget(m_recentHeading);
    down->addWidget(m_recent, 3);
    down->addStretch(2);
    auto* across = new QHBoxLayout(this);
    across->addStretch(1);
    across->addWidget(column, columnWidth); // all that there is, up to its width
    across->addStretch(1);
}

void EmptyPage::show(const std::vector<std::string>& recent) {
    m_files = recent;
    m_recent->clear();
    for (const std::string& file : recent) {
        const QFileInfo info(QFile::decodeName(file.c_str()));
        auto* line = new QListWidgetItem(info.fileName() + "   \u2013   " + info.path(), m_recent);
        line->setToolTip(info.filePath());
    }
    m_recentHeading->setVisible(!recent.empty());
    m_recent->setVisible(!recent.empty());
}

} // namespace korvel
