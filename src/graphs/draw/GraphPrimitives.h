// The marks of a graph. The layout works in graph coordinates (twips, y upward from the bottom left); the
// primitives turn them into the drawing's, and choose font and line width for the target. Their names and
// codes are those by which marks of a graph are known outside; everything above them works with the types of
// GraphSheet.
#pragma once

#include "drawing/Drawing.h"

#include <string>
#include <vector>

namespace korvel {

// The form that carries the primitives: the capture form widens every thick line and has no narrow font.
enum class GraphForm { graph, capture };

class GraphPrimitives {
  public:
    // Both metrics are the same where screen and printer measure alike.
    GraphPrimitives(Drawing& drawing, GraphForm form, const TextMetrics& screen, const TextMetrics& printer);

    double GraphFontSize = 8; // points
    bool GraphFontBold = false;
    int LabelCount = 0; // texts on screen since the last CloseGraph

    // `pr`: on the printer. `Thick` 4 is the thick style, where `Style` is the width's multiplier on the
    // printer and on the capture form; otherwise `Style` is the dash style 0 to 4. `Col` 0 to 15.
    void DisplayLine(bool pr, double x1, double y1, double x2, double y2, int Thick, int Style, int Col);
    // Points joined by lines, each as DisplayLine draws it.
    void DisplayRun(bool pr, std::vector<DrawnPoint> points, int Thick, int Style, int Col);
    // A cross, each of its strokes as DisplayLine draws it.
    void DisplayCross(bool pr, DrawnPoint centre, double half, int Thick, int Style, int Col);
    // In the drawing's coordinates. Widths: 0 nothing, 1, 2, 3; above 3 as 3.
    void WideLine(double x1, double y1, double x2, double y2, int DWidth, Rgb Color);

    // y is the bottom of the text's box. align: 0 x is the left edge, 2 the centre, any other the right edge.
    void DisplayText(bool pr, double x, double y, int align, const std::string& text);
    // The same in "Arial Narrow".
    void DisplayTextY(bool pr, double x, double y, int align, const std::string& text);
    double TxtWidth(bool pr, const std::string& Text) const;
    // The width that DisplayTextY takes.
    double narrowWidth(bool pr, const std::string& text) const;
    // The widest of screen and paper, and of the saved image, too.
    double widestWidth(const std::string& text) const;
    double widestNarrowWidth(const std::string& text) const;
    // Always measured on screen, also while printing: the lines on paper stand as far apart as on screen.
    double TxtHeight(const std::string& Text) const;

    void CloseGraph();

  private:
    Font font(const std::string& name) const;
    std::string narrowFontName() const;
    double surfaceY(double y) const { return m_drawing.height - y; }
    Pen pen(bool pr, int Thick, int Style, int Col) const;
    void addText(bool pr, double x, double y, int align, const std::string& text, const Font& font);
    const TextMetrics& metrics(bool pr) const { return pr ? m_printer : m_screen; }

    Drawing& m_drawing;
    GraphForm m_form;
    const TextMetrics& m_screen;
    const TextMetrics& m_printer;
};

} // namespace korvel
