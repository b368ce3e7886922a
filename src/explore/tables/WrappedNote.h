// Words beside a table: as many lines as they need where there is room, and no hindrance where there is none.
#pragma once

#include <QLabel>

namespace korvel {

class WrappedNote : public QLabel {
  public:
    WrappedNote(const char* name, const QString& text, QWidget* parent) : QLabel(text, parent) {
        setObjectName(name);
        setWordWrap(true);
    }
    QSize minimumSizeHint() const override {
        return {leastLetters * fontMetrics().averageCharWidth(), fontMetrics().height()};
    }

  private:
    static constexpr int leastLetters = 12;
};

} // namespace korvel
