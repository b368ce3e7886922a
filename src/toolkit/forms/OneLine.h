// What is typed or pasted into a text box of one line stays one line: line ends and tabs become blanks.
#pragma once

#include <QValidator>

namespace korvel {

class OneLine : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& text, int& cursor) const override;
};

} // namespace korvel
