#include "explore/window/StatusLine.h"

namespace korvel {

namespace {

constexpr int progressWidth = 160; // pixels
constexpr int runsOfALine = 4;     // in the readout

// Has the height that it is given: asking a long text for its own with each move of the cursor takes longer
// than painting it.
class ReadoutLabel : public QLabel {
  public:
    using QLabel::QLabel;
    QSize sizeHint() const override { return {0, minimumHeight()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    int heightForWidth(int) const override { return minimumHeight(); }
};

} // namespace

StatusLine::StatusLine(QStatusBar& bar)
    : QObject(&bar),
      lblReadout(new ReadoutLabel(&bar)),
      m_progressText(new QLabel(&bar)),
      m_progress(new QProgressBar(&bar)) {
    lblReadout->setObjectName("lblReadout");
    lblReadout->setTextFormat(Qt::PlainText);
    lblReadout->setContentsMargins(8, 4, 8, 4);
    lblReadout->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblReadout->setWordWrap(true);
    lblReadout->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // no text widens the window
    m_progress->setObjectName("Progress");
    m_progress->setAccessibleName("Progress");
    m_progress->setFixedWidth(progressWidth);
    m_progress->setTextVisible(false);
    bar.setSizeGripEnabled(false);
    bar.addWidget(lblReadout, 1);
    bar.addPermanentWidget(m_progressText);
    bar.addPermanentWidget(m_progress);
    endProgress();
}

void StatusLine::showReadout(const QString& text) {
    lblReadout->setText(text);
    lblReadout->setToolTip(text);
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
