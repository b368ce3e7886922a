#include "reports/Listing.h"

#include "basic/Text.h"
#include "reports/CodePage437.h"
#include "reports/PrintedPage.h"

namespace korvel {

namespace {

const Font listingFont{"Courier New", 7, false};
constexpr double margin = 0.3; // inches, left and top
constexpr double lowestLine = 10.4;
constexpr double epsilon = 1e-9; // inches, less than any pen could show
constexpr char formFeed = 12;

bool isPlain(char character) {
    return character >= ' ' && character <= '~';
}

// One line of the file on its way to the page, cell by cell.
class LinePainter {
  public:
    LinePainter(Drawing& page, TextSize cell, int line)
        : m_page(page),
          m_cell(cell),
          m_top(margin + line * cell.height),
          m_bottom(margin + (line + 1) * cell.height) {}

    void paint(std::string_view line) {
        for (const char character : line) {
            if (character == formFeed) continue;
            if (cellLeft(m_column) >= m_page.width) break;
            put(character);
            ++m_column;
        }
        endText();
    }

  private:
    void put(char character) {
        const std::optional<BoxStrokes> strokes = boxStrokesOf(character);
        if (strokes || !isPlain(character)) endText();
        if (strokes) return drawBox(*strokes);
        if (m_text.empty()) m_textColumn = m_column;
        m_text.push_back(character);
        // A character that another font may have to lend stands alone, so that none behind it is moved.
        if (!isPlain(character)) endText();
    }

    void endText() {
        const std::string text = trimRight(m_text);
        const auto blanks = text.find_first_not_of(' ');
        if (blanks != std::string::npos) {
            const std::string shown = utf8OfCodePage437(text.substr(blanks));
            m_page.commands.push_back(DrawnText{{cellLeft(m_textColumn + static_cast<int>(blanks)), m_top},
                                                static_cast<double>(text.size() - blanks) * m_cell.width,
                                                m_cell.height,
                                                shown,
                                                listingFont,
                                                paletteColour(colours::black)});
        }
        m_text.clear();
    }

    void drawBox(const BoxStrokes& strokes) {
        const double left = cellLeft(m_column), right = cellLeft(m_column + 1);
        const DrawnPoint centre{(left + right) / 2, (m_top + m_bottom) / 2};
        const Pen pen{paletteColour(colours::black), strokes.penWidth, Dash::solid};
        if (strokes.left) drawAcross(left, centre.x, centre.y, pen);
        if (strokes.top) m_page.commands.push_back(DrawnLine{{centre.x, m_top}, centre, pen});
        if (strokes.bottom) m_page.commands.push_back(DrawnLine{centre, {centre.x, m_bottom}, pen});
        if (strokes.right) drawAcross(centre.x, right, centre.y, pen);
    }

    // Strokes that go on from cell to cell are one line.
    void drawAcross(double from, double to, double y, const Pen& pen) {
        DrawnLine* const before =
            m_page.commands.empty() ? nullptr : std::get_if<DrawnLine>(&m_page.commands.back());
        if (before != nullptr && before->to == DrawnPoint{from, y} && before->from.y == y &&
            before->pen == pen)
            before->to.x = to;
        else
            m_page.commands.push_back(DrawnLine{{from, y}, {to, y}, pen});
    }

    double cellLeft(int column) const { return margin + column * m_cell.width; }

    Drawing& m_page;
    TextSize m_cell;
    double m_top;
    double m_bottom;
    int m_column = 0;
    std::string m_text; // plain characters not yet printed
    int m_textColumn = 0;
};

TextSize cellSize(const TextMetrics& metrics) {
    const TextSize blank = metrics.measure(" ", listingFont);
    return {blank.width / twipsPerInch, blank.height / twipsPerInch};
}

} // namespace

Listing::Listing(ByteSource& file, const TextMetrics& metrics) : m_lines(file), m_cell(cellSize(metrics)) {}

std::optional<Drawing> Listing::nextPage() {
    if (m_started && !m_lines.hasLine()) return std::nullopt;
    m_started = true;
    Drawing page = emptyPage(Orientation::portrait);
    for (int line = 0; margin + line * m_cell.height <= lowestLine + epsilon && m_lines.hasLine(); ++line)
        LinePainter(page, m_cell, line).paint(m_lines.line());
    return page;
}

} // namespace korvel
