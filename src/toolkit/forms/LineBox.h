// Short lines of text, some with a sample of a curve before them and a value at the right; as many as there
// is room for.
#pragma once

#include "basic/Palette.h"

#include <QLabel>

#include <functional>
#include <string>
#include <vector>

namespace korvel {

struct BoxLine {
    enum class Look { plain, bold, italic };
    enum class Sample { none, thickLine, thinLine, dottedLine, cross };

    std::string text;
    std::string value = {};
    Look look = Look::plain;
    Sample sample = Sample::none;
    Rgb colour = {};
    bool operator==(const BoxLine&) const = default;
};

class LineBox : public QLabel {
  public:
    explicit LineBox(QWidget* parent);

    // At most so many of the lines.
    using Lines = std::function<std::vector<BoxLine>(std::size_t most)>;

    // `spoken`: all of it, for those who listen.
    void tell(Lines lines, const std::string& spoken);
    // A text instead, while there is nothing to tell.
    void hint(const std::string& text);

    // As shown.
    std::vector<BoxLine> lines() const;
    // Small enough for every line, and for every value beside its name.
    QFont fittingFont() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::size_t room(const QFont& font) const;

    Lines m_lines;
};

} // namespace korvel
