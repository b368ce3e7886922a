// The primitives with their target chosen, and the looks that the graph gives to its lines.
#pragma once

#include "graphs/draw/GraphPrimitives.h"

namespace korvel {

struct LineLook {
    int thick = 0;
    int style = 0;
    int colour = 0;
    bool operator==(const LineLook&) const = default;
};

namespace looks {
inline constexpr LineLook first{4, 2, colours::lightBlue}; // the means, or the first of two data sets
inline constexpr LineLook second{4, 2, colours::lightGreen};
inline constexpr LineLook limits{0, 0, colours::black};
inline constexpr LineLook targets{0, 2, colours::lightRed};
inline constexpr LineLook observed{4, 2, colours::black};
inline constexpr LineLook axis{0, 0, colours::darkGrey};
inline constexpr LineLook grid{0, 2, colours::lightGrey};
inline constexpr LineLook boundary{0, 1, colours::darkGrey};
inline constexpr LineLook leader{0, 0, colours::lightGrey};
} // namespace looks

// The alignment's code that the primitives take.
constexpr int alignCode(TextAlign align) {
    return align == TextAlign::left ? 0 : align == TextAlign::centre ? 2 : 1;
}

enum class OutputTarget { screen, printer };

class GraphSheet {
  public:
    GraphSheet(GraphPrimitives& primitives, OutputTarget target)
        : m_primitives(primitives), m_pr(target == OutputTarget::printer) {}

    void line(LineLook look, DrawnPoint from, DrawnPoint to) const {
        m_primitives.DisplayLine(m_pr, from.x, from.y, to.x, to.y, look.thick, look.style, look.colour);
    }
    void run(LineLook look, std::vector<DrawnPoint> points) const {
        m_primitives.DisplayRun(m_pr, std::move(points), look.thick, look.style, look.colour);
    }
    void cross(LineLook look, DrawnPoint centre, double half) const {
        m_primitives.DisplayCross(m_pr, centre, half, look.thick, look.style, look.colour);
    }
    // `at`: the bottom of the text.
    void text(DrawnPoint at, TextAlign align, const std::string& text) const {
        m_primitives.DisplayText(m_pr, at.x, at.y, alignCode(align), text);
    }
    void narrowText(DrawnPoint at, TextAlign align, const std::string& text) const {
        m_primitives.DisplayTextY(m_pr, at.x, at.y, alignCode(align), text);
    }
    // For layout: the widest of screen and paper, so that both are laid out alike.
    double width(const std::string& text) const { return m_primitives.widestWidth(text); }
    double narrowWidth(const std::string& text) const { return m_primitives.narrowWidth(m_pr, text); }
    double labelWidth(const std::string& text) const { return m_primitives.widestNarrowWidth(text); }
    // Half the size of the cross of an observed value.
    double crossHalf() const { return 0.25 * lineHeight(); }
    double lineHeight() const { return m_primitives.TxtHeight("0"); }
    void setFont(double size, bool bold) const {
        m_primitives.GraphFontSize = size;
        m_primitives.GraphFontBold = bold;
    }

  private:
    GraphPrimitives& m_primitives;
    bool m_pr;
};

} // namespace korvel
