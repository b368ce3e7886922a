// A label whose text breaks inside a word, too, where the line has no other place: in a long path, say.
#pragma once

#include <QLabel>

namespace korvel {

class WrappedText : public QLabel {
  public:
    explicit WrappedText(QWidget* parent);

    // The whole text, also for the pointer that rests on it: at its most it may be longer than the label.
    void tell(const QString& text);
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace korvel
