#include "explore/window/StatusLine.h"

#include <QPainter>

namespace korvel {

namespace {

constexpr int progressWidth = 160;  // pixels
constexpr int runsOfALine = 4;      // in the readout
constexpr int aside = 8, above = 4; // pixels

} // namespace

// Has the height that it is given: asking a long text for its own with each move of the cursor takes longer
// than painting it.
class StatusLine::ReadoutLabel : public QLabel {
  public:
    using QLabel::QLabel;
    void setHint(const QString& hint) {
        m_hint = hint;
        setAccessibleDescription(hint);
        update();
    }
    QSize sizeHint() const override { return {0, minimumHeight()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    int heightForWidth(int) const override { return minimumHeight(); }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!text().isEmpty()) return;
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(m_hint, Qt::ElideRight, contentsRect().width()));
    }

  private:
    QString m_hint;
};

StatusLine::StatusLine(QStatusBar& bar, Machine& machine, Handlers& handlers)
    : QObject(&bar),
      lblReadout(new ReadoutLabel(&bar)),
      lblDone(new QLabel(&bar)),
      m_done(*lblDone, machine, handlers, " &nbsp; "),
      m_progressText(new QLabel(&bar)),
      m_progress(new QProgressBar(&bar)) {
    lblReadout->setObjectName("lblReadout");
    lblReadout->setTextFormat(Qt::PlainText);
    lblReadout->setContentsMargins(aside, above, aside, above);
    lblReadout->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblReadout->setWordWrap(true);
    lblReadout->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // no text widens the window
    lblDone->setObjectName("lblDone");
    lblDone->setMinimumWidth(1); // nor does one that tells of a long name
    m_progress->setObjectName("Progress");
    m_progress->setAccessibleName("Progress");
    m_progress->setFixedWidth(progressWidth);
    m_progress->setTextVisible(false);
    bar.setSizeGripEnabled(false);
    bar.addWidget(lblReadout, 1);
    bar.addPermanentWidget(lblDone);
    bar.addPermanentWidget(m_progressText);
    bar.addPermanentWidget(m_progress);
    endProgress();
}

void StatusLine::showReadout(const QString& text) {
    lblReadout->setText(text);
    lblReadout->setToolTip(text);
}

void StatusLine::setHint(const QString& hint) {
    lblReadout->setHint(hint);
}

void StatusLine::giveRoom(std::size_t runs) {
    const int lines = 1 + static_cast<int>(runs) / runsOfALine;
    const QMargins margins = lblReadout->contentsMargins();
    lblReadout->setFixedHeight(lines * lblReadout->fontMetrics().lineSpacing() + margins.top() +
                               margins.bottom());
}

void StatusLine::tellProgress(const QString& words, double share) {
    m_progressText->setText(words);
    m_progress->setValue(static_cast<int>(share * m_progress->maximum()));
    m_progressText->show();
    m_progress->show();
}

void StatusLine::endProgress() {
    m_progressText->hide();
    m_progress->hide();
}

} // namespace korvel
