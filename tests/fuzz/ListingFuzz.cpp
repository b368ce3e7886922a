// The engine's text files as pages: what is drawn is compared with the file, cell by cell.
#include "fakes/FixedTextMetrics.h"
#include "fuzz/Fuzzing.h"
#include "reports/CodePage437.h"
#include "reports/Listing.h"

#include <cmath>
#include <map>
#include <set>

namespace korvel {

namespace {

constexpr double margin = 0.3; // inches
constexpr double lowestLine = 10.4;

// A page taken apart into its cells. A stroke is half a cell long and told by its halves.
struct Cells {
    struct Stroke {
        bool vertical;
        int row, column; // in half cells along its direction
        int pen;
        auto operator<=>(const Stroke&) const = default;
    };
    std::map<std::pair<int, int>, std::string> characters; // by row and column, without blanks
    std::set<Stroke> strokes;
    bool operator==(const Cells&) const = default;

    void put(int row, int column, const std::string& character) {
        if (character != " ") characters[{row, column}] = character;
    }
};

class PageReader {
  public:
    explicit PageReader(TextSize cell) : m_cell(cell) {}

    Cells read(const Drawing& page) {
        for (const DrawnCommand& command : page.commands)
            std::visit([&](const auto& drawn) { take(drawn); }, command);
        return std::move(m_cells);
    }

  private:
    static int places(double inches, double size) {
        const double count = (inches - margin) / size;
        require(std::abs(count - std::round(count)) < 1e-6, "everything lies on the cells");
        return static_cast<int>(std::lround(count));
    }
    void take(const DrawnText& text) {
        int column = places(text.corner.x, m_cell.width);
        const int row = places(text.corner.y, m_cell.height);
        for (const std::string& character : utf8Characters(text.text))
            m_cells.put(row, column++, character);
    }
    void take(const DrawnLine& line) {
        const int pen = static_cast<int>(line.pen.width);
        const int left = places(line.from.x, m_cell.width / 2), right = places(line.to.x, m_cell.width / 2);
        const int top = places(line.from.y, m_cell.height / 2), bottom = places(line.to.y, m_cell.height / 2);
        require((left == right) != (top == bottom), "a line is horizontal or vertical");
        for (int half = left; half < right; ++half)
            m_cells.strokes.insert({false, top, half, pen});
        for (int half = top; half < bottom; ++half)
            m_cells.strokes.insert({true, half, left, pen});
    }
    void take(const DrawnRun&) { require(false, "a listing has no runs of points"); }
    void take(const DrawnMarker&) { require(false, "a listing has no markers"); }
    void take(const DrawnBand&) { require(false, "a listing has no bands"); }

    TextSize m_cell;
    Cells m_cells;
};

void addLine(Cells& cells, int row, const std::string& line, int columns) {
    int column = 0;
    for (const char character : line) {
        if (character == '\f') continue;
        if (column == columns) break;
        const auto strokes = boxStrokesOf(character);
        if (!strokes) cells.put(row, column, utf8OfCodePage437({&character, 1}));
        const auto draw = [&](bool drawn, Cells::Stroke stroke) {
            if (drawn) cells.strokes.insert(stroke);
        };
        const int pen = strokes ? static_cast<int>(strokes->penWidth) : 0;
        draw(strokes && strokes->left, {false, 2 * row + 1, 2 * column, pen});
        draw(strokes && strokes->right, {false, 2 * row + 1, 2 * column + 1, pen});
        draw(strokes && strokes->top, {true, 2 * row, 2 * column + 1, pen});
        draw(strokes && strokes->bottom, {true, 2 * row + 1, 2 * column + 1, pen});
        ++column;
    }
}

std::vector<Cells> plainPages(const std::string& text, TextSize cell) {
    const auto linesOfPage = static_cast<int>((lowestLine - margin) / cell.height + 1e-6) + 1;
    const auto columns = static_cast<int>(std::ceil((printableShortSide - margin) / cell.width - 1e-6));
    std::vector<Cells> pages(1);
    int row = 0;
    for (const std::string& line : plainLines(text)) {
        if (row == linesOfPage) {
            pages.emplace_back();
            row = 0;
        }
        addLine(pages.back(), row++, line, columns);
    }
    return pages;
}

std::vector<Drawing> pagesOf(ByteSource&& file) {
    const FixedTextMetrics metrics;
    Listing listing(file, metrics);
    std::vector<Drawing> pages;
    while (auto page = listing.nextPage())
        pages.push_back(std::move(*page));
    return pages;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = textOf(data, size);
    const TextSize twips = FixedTextMetrics().measure(" ", {"Courier New", 7, false});
    const TextSize cell{twips.width / 1440, twips.height / 1440};

    const std::vector<Drawing> pages = pagesOf(TextSource(text));
    require(pagesOf(ShortReads(text, 5)) == pages, "a file may come in any pieces");
    std::vector<Cells> drawn;
    for (const Drawing& page : pages)
        drawn.push_back(PageReader(cell).read(page));
    require(drawn == plainPages(text, cell), "every character of the file is drawn in its cell");
    return 0;
}

} // namespace korvel
