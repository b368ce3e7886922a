#include "explore/window/StatusLine.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace korvel {

namespace {

constexpr int progressWidth = 160;  // pixels
constexpr int runsOfALine = 4;      // in the readout
constexpr int lettersLost = 14;     // at the end of a line
constexpr int shareOfWindow = 10;   // one part of so many
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
    int lines() const { return m_lines; }
    void setLines(int lines) {
        if (std::exchange(m_lines, lines) != lines) updateGeometry();
    }
    QSize sizeHint() const override { return {0, heightOf(m_lines)}; }
    QSize minimumSizeHint() const override { return {0, heightOf(1)}; }
    int heightForWidth(int) const override { return heightOf(m_lines); }

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
    int heightOf(int lines) const { return lines * fontMetrics().lineSpacing() + 2 * above; }

    QString m_hint;
    int m_lines = 1;
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
    lblReadout->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // no text widens the window
    lblDone->setObjectName("lblDone");
    lblDone->setContentsMargins(aside, 0, aside, 0);
    lblDone->setMinimumWidth(1); // nor does one that tells of a long name
    m_progress->setObjectName("Progress");
    m_progress->setAccessibleName("Progress");
    m_progress->setFixedWidth(progressWidth);
    m_progress->setTextVisible(false);
    bar.setSizeGripEnabled(false);
    bar.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred); // lower in a low window
    bar.addWidget(lblReadout, 1);
    bar.addPermanentWidget(lblDone);
    bar.addPermanentWidget(m_progressText);
    bar.addPermanentWidget(m_progress);
    endProgress();
}

void StatusLine::showReadout(const std::vector<QString>& texts) {
    lblReadout->setText(texts.empty() ? QString() : texts.back());
    lblReadout->setToolTip(texts.empty() ? QString() : texts.front());
    lblReadout->setAccessibleName(texts.size() < 2 ? QString() : texts.front());
}

// A line that is broken between words has some room left.
bool StatusLine::fits(const QString& text) const {
    const QFontMetrics metrics = lblReadout->fontMetrics();
    const int lines = lblReadout->lines(), lost = (lines - 1) * lettersLost * metrics.averageCharWidth();
    return metrics.horizontalAdvance(text) <= lines * lblReadout->contentsRect().width() - lost;
}

void StatusLine::setHint(const QString& hint) {
    lblReadout->setHint(hint);
}

void StatusLine::giveRoom(std::size_t runs, int windowHeight) {
    const int wanted = 1 + static_cast<int>(runs) / runsOfALine;
    const int most = windowHeight / (shareOfWindow * lblReadout->fontMetrics().lineSpacing());
    lblReadout->setLines(std::clamp(most, 1, wanted));
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
