#include "tables/AboutSheet.h"

#include "basic/Product.h"
#include "basic/Text.h"
#include "tables/PeopleNumbers.h"
#include "tables/SheetText.h"
#include "tables/XlsxLibrary.h"

#include <algorithm>

namespace korvel {

namespace {

constexpr double labelWidth = 24, textWidth = 100;  // characters
constexpr std::size_t lettersALine = 80;            // of a text, in the widest of the usual fonts
constexpr double lineHeight = 15, highestRow = 409; // points

class AboutLines {
  public:
    AboutLines(lxw_worksheet* sheet, const SheetLooks& looks) : m_sheet(sheet), m_looks(looks) {}

    void title(const std::string& text) { write(0, text, m_looks.title); }
    void fact(const std::string& name, const std::string& value) {
        write(0, name, m_looks.label);
        note(value);
    }
    void note(const std::string& text) {
        makeRoom(text);
        write(1, text, m_looks.wrapped);
        space();
    }
    void space() { ++m_row; }

  private:
    // Not every program finds the height of a row whose text goes on on further lines.
    void makeRoom(const std::string& text) {
        const std::size_t lines = (shownLength(shownUtf8(text)) + lettersALine - 1) / lettersALine;
        if (lines < 2) return;
        const double height = std::min(lineHeight * static_cast<double>(lines), highestRow);
        xlsx().worksheet_set_row(m_sheet, m_row, height, nullptr);
    }
    void write(lxw_col_t column, const std::string& text, lxw_format* look) {
        xlsx().worksheet_write_string(m_sheet, m_row, column, sheetText(text).text.c_str(), look);
    }

    lxw_worksheet* m_sheet;
    const SheetLooks& m_looks;
    lxw_row_t m_row = 0;
};

// A line of the notes each; empty ones go.
void writeNotes(AboutLines& lines, const Taken& taken) {
    if (!taken.notes) return;
    TextPage page;
    taken.notes(page);
    const std::string& text = page.text();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        if (end > at) lines.note(text.substr(at, end - at));
        at = end + 1;
    }
}

std::string rowsText(std::size_t count) {
    return counted(static_cast<int>(count), "row", "rows");
}

} // namespace

void writeAbout(lxw_worksheet* sheet, const SheetLooks& looks, const WorkbookContent& content,
                const SheetTally& tally) {
    xlsx().worksheet_set_column(sheet, 0, 0, labelWidth, nullptr);
    xlsx().worksheet_set_column(sheet, 1, 1, textWidth, nullptr);
    AboutLines lines(sheet, looks);
    lines.title(content.taken.title);
    lines.space();
    lines.space();
    for (const Taken::Fact& fact : content.taken.facts)
        lines.fact(fact.name, fact.value);
    for (std::size_t k = 0; k < content.sheets.size(); ++k)
        lines.fact("Sheet " + content.sheets[k].name, rowsText(tally.rows[k]));
    if (tally.textsCut > 0)
        lines.fact("Texts cut",
                   std::to_string(tally.textsCut) + " longer than a cell holds; they end with \xE2\x80\xA6");
    lines.fact("Written by", std::string(productName) + " " + productVersion);
    lines.space();
    writeNotes(lines, content.taken);
}

} // namespace korvel
