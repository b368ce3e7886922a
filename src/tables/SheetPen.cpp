#include "tables/SheetPen.h"

#include "basic/RunTimeError.h"
#include "basic/Text.h"
#include "tables/SheetText.h"
#include "tables/XlsxLibrary.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvel {

namespace {

constexpr double widestColumn = 50;   // characters
constexpr double roomForFilter = 4;   // its button, beside the heading
constexpr double widestPage = 220;    // characters across a printed page that can still be read
constexpr std::size_t mostNaming = 4; // columns that tell what a row is about
constexpr lxw_color_t headingColour = 0xDDEBF7;

void check(lxw_error error) {
    if (error == LXW_ERROR_MEMORY_MALLOC_FAILED) throw RunTimeError(errors::outOfMemory);
    if (error != LXW_NO_ERROR) throw RunTimeError(errors::invalidProcedureCall, xlsx().lxw_strerror(error));
}

lxw_col_t columnNumber(std::size_t column) {
    return static_cast<lxw_col_t>(column);
}

bool isPlace(const std::string& heading) {
    return heading.ends_with("distance") || heading.ends_with("to_mouth") || heading == "km";
}

} // namespace

SheetLooks::SheetLooks(lxw_workbook* workbook)
    : text(xlsx().workbook_add_format(workbook)),
      heading(xlsx().workbook_add_format(workbook)),
      title(xlsx().workbook_add_format(workbook)),
      label(xlsx().workbook_add_format(workbook)),
      wrapped(xlsx().workbook_add_format(workbook)) {
    constexpr double titleSize = 14;
    for (std::size_t k = 1; k < numbers.size(); ++k) {
        numbers[k] = xlsx().workbook_add_format(workbook);
        xlsx().format_set_num_format(numbers[k], numberLooks[k].format);
    }
    for (lxw_format* const bold : {heading, title, label})
        xlsx().format_set_bold(bold);
    xlsx().format_set_bg_color(heading, headingColour);
    xlsx().format_set_bottom(heading, LXW_BORDER_THIN);
    xlsx().format_set_font_size(title, titleSize);
    xlsx().format_set_text_wrap(wrapped);
    for (lxw_format* const indented : {text, heading}) // apart from the numbers of the column before
        xlsx().format_set_indent(indented, 1);
    for (lxw_format* const top : {label, wrapped})
        xlsx().format_set_align(top, LXW_ALIGN_VERTICAL_TOP);
}

SheetPen::SheetPen(lxw_worksheet* sheet, const SheetLooks& looks, const std::vector<std::string>& headings)
    : m_sheet(sheet), m_looks(looks), m_columns(headings.size()) {
    xlsx().worksheet_freeze_panes(sheet, 1, 0);
    for (std::size_t k = 0; k < headings.size(); ++k) {
        const std::string text = sheetText(headings[k]).text;
        m_columns[k].holdsPlaces = isPlace(headings[k]);
        m_columns[k].width = static_cast<double>(shownLength(text)) + roomForFilter;
        check(xlsx().worksheet_write_string(sheet, 0, columnNumber(k), text.c_str(), looks.heading));
    }
}

void SheetPen::nextRow() {
    ++m_row;
    m_column = 0;
}

void SheetPen::put(const Cell& cell) {
    if (const auto* const number = std::get_if<double>(&cell))
        putNumber(*number);
    else if (const auto* const text = std::get_if<std::string_view>(&cell))
        putText(shownText(*text));
    else if (const auto* const whole = std::get_if<int>(&cell))
        putWhole(*whole);
    else if (const auto* const truth = std::get_if<bool>(&cell))
        putTruth(*truth);
    else if (const auto* const names = std::get_if<std::span<const std::string>>(&cell))
        putText(shownText(joined(*names)));
    ++m_column;
}

void SheetPen::putReady(const OwnedCell& cell) {
    const auto* const text = std::get_if<std::string>(&cell);
    if (!text) return put(viewOf(cell));
    putText(*text);
    ++m_column;
}

OwnedCell SheetPen::ready(const Cell& cell) {
    if (const auto* const text = std::get_if<std::string_view>(&cell)) {
        SheetText sheet = sheetText(*text);
        m_textsCut += sheet.isCut ? 1 : 0;
        return std::move(sheet.text);
    }
    if (const auto* const names = std::get_if<std::span<const std::string>>(&cell))
        return std::vector<std::string>(names->begin(), names->end());
    if (const auto* const number = std::get_if<double>(&cell)) return *number;
    if (const auto* const whole = std::get_if<int>(&cell)) return *whole;
    if (const auto* const truth = std::get_if<bool>(&cell)) return *truth;
    return Nothing();
}

const std::string& SheetPen::shownText(std::string_view text) {
    ColumnState& state = column();
    if (text == state.raw && !state.raw.empty()) return state.shown;
    SheetText sheet = sheetText(text);
    m_textsCut += sheet.isCut ? 1 : 0;
    state.raw = text;
    state.shown = std::move(sheet.text);
    return state.shown;
}

void SheetPen::putText(const std::string& text) {
    if (text.empty()) return;
    ColumnState& state = column();
    state.holdsTexts = true;
    if (static_cast<double>(text.size()) > state.width)
        state.width = std::max(state.width, static_cast<double>(shownLength(text)) + 2);
    check(xlsx().worksheet_write_string(m_sheet, m_row, columnNumber(m_column), text.c_str(), m_looks.text));
}

void SheetPen::putNumber(double value) {
    if (!std::isfinite(value)) return;
    ColumnState& state = column();
    const std::size_t look = state.holdsPlaces ? generalLook : numberLook(value);
    state.width = std::max(state.width, shownWidth(value, look) + 1);
    check(
        xlsx().worksheet_write_number(m_sheet, m_row, columnNumber(m_column), value, m_looks.numbers[look]));
}

void SheetPen::putWhole(int value) {
    check(xlsx().worksheet_write_number(m_sheet, m_row, columnNumber(m_column), value, nullptr));
}

void SheetPen::putTruth(bool value) {
    check(xlsx().worksheet_write_boolean(m_sheet, m_row, columnNumber(m_column), value, nullptr));
}

void SheetPen::finish() {
    const lxw_col_t last = columnNumber(m_columns.size() - 1);
    check(xlsx().worksheet_autofilter(m_sheet, 0, 0, m_row, last));
    std::vector<double> widths;
    for (std::size_t k = 0; k < m_columns.size(); ++k) {
        widths.push_back(std::min(m_columns[k].width, widestColumn));
        check(xlsx().worksheet_set_column(m_sheet, columnNumber(k), columnNumber(k), widths[k], nullptr));
    }
    setPages(widths);
}

// What would be too small to read on one page goes on beside it, each page with the columns that name a row.
void SheetPen::setPages(const std::vector<double>& widths) {
    const double all = std::accumulate(widths.begin(), widths.end(), 0.0);
    if (all <= widestPage) return;
    std::size_t naming = 0;
    for (std::size_t k = 0; k < std::min(mostNaming, m_columns.size()); ++k)
        if (m_columns[k].holdsTexts) naming = k + 1;
    const double repeated =
        std::accumulate(widths.begin(), widths.begin() + static_cast<std::ptrdiff_t>(naming), 0.0);
    const double pages = std::ceil((all - repeated) / (widestPage - repeated));
    xlsx().worksheet_fit_to_pages(m_sheet, static_cast<std::uint16_t>(pages), 0);
    if (naming > 0) check(xlsx().worksheet_repeat_columns(m_sheet, 0, columnNumber(naming - 1)));
}

} // namespace korvel
