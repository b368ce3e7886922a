#include "publish/PageTable.h"

#include "basic/Numbers.h"
#include "publish/PageText.h"
#include "tables/PeopleNumbers.h"

#include <algorithm>
#include <cmath>

namespace korvel {

namespace {

// Words stand to the left; those that are verdicts have a sign and a colour.
std::string classOf(std::string_view text) {
    if (text == "pass" || text == "fail" || text == "unsure") return "v " + std::string(text);
    if (text == "fail to pass") return "v better";
    if (text == "pass to fail") return "v worse";
    return "t";
}

// As a rounded number without the noughts at its end, which the page's script leaves out, too.
bool isSaidBy(std::string_view shown, std::string_view exact) {
    if (shown == exact) return true;
    if (shown.find('.') == std::string_view::npos || shown.find('e') != std::string_view::npos) return false;
    const std::size_t last = shown.find_last_not_of('0');
    return shown.substr(0, shown[last] == '.' ? last : last + 1) == exact;
}

class PageRows : public RowTaker {
  public:
    PageRows(PageHtml& html, std::size_t headers) : m_html(html), m_headers(headers) {}

    void row(std::span<const Cell> cells) override {
        if (++m_rows > mostPageRows) return;
        m_html.markup("<tr>");
        for (std::size_t k = 0; k < cells.size(); ++k)
            std::visit([&](const auto& value) { cell(k, value); }, cells[k]);
        m_html.line();
    }
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell> last) override { row(last); }

    std::size_t rows() const { return m_rows; }

  private:
    // Rows make up most of a page: their ends, and quotes around words, are left out as HTML allows.
    void begin(std::size_t column, std::string_view kind, std::string_view exact = "") {
        beginCell(column, kind);
        if (!exact.empty()) m_html.markup(" data-v=").markup(exact);
        m_html.markup(">");
    }
    void beginCell(std::size_t column, std::string_view kind) {
        m_html.markup(column < m_headers ? "<th scope=row" : "<td");
        if (!kind.empty())
            m_html.markup(kind.find(' ') == std::string_view::npos ? " class=" : " class=\"").markup(kind);
        if (kind.find(' ') != std::string_view::npos) m_html.markup("\"");
    }
    void cell(std::size_t column, Nothing) { begin(column, ""); }
    void cell(std::size_t column, bool value) {
        begin(column, "t", value ? "true" : "false");
        m_html.markup(value ? "yes" : "no");
    }
    void cell(std::size_t column, int value) {
        begin(column, "");
        m_html.markup(std::to_string(value));
    }
    // The exact number stands beside a rounded one.
    void cell(std::size_t column, double value) {
        if (!std::isfinite(value)) return cell(column, Nothing());
        const std::string exact = shortestNumber(value), shown = shownNumber(value);
        begin(column, "", isSaidBy(shown, exact) ? "" : exact);
        m_html.markup(shown);
    }
    void cell(std::size_t column, std::string_view value) {
        beginCell(column, classOf(value));
        if (const std::size_t number = m_html.longText(value))
            m_html.markup(" data-text=" + std::to_string(number));
        m_html.markup(">").name(value);
    }
    void cell(std::size_t column, std::span<const std::string> names) {
        std::string joined;
        for (const std::string& name : names)
            joined += (joined.empty() ? "" : "; ") + name;
        cell(column, std::string_view(joined));
    }

    PageHtml& m_html;
    std::size_t m_headers;
    std::size_t m_rows = 0;
};

void writeHeadings(PageHtml& html, const std::vector<Column>& columns) {
    html.open("thead").open("tr");
    for (const Column& column : columns) {
        const std::string explanation(explanationOf(column));
        html.open("th", {{"scope", "col"},
                         {"data-name", pageText(column.flatName())},
                         {explanation.empty() ? "" : "title", explanation}});
        html.words(pageText(headingOf(column))).close();
    }
    html.close().closeLine();
}

} // namespace

void writePageTable(PageHtml& html, const Table& table, const PageTableLook& look) {
    html.open(
        "div",
        {{"class", "table"}, {"role", "region"}, {"tabindex", "0"}, {"aria-labelledby", look.id + "-c"}});
    html.open("table", {{"class", "data"}, {"id", look.id}});
    html.element("caption", look.caption, {{"id", look.id + "-c"}}).line();
    writeHeadings(html, table.columns);
    html.open("tbody").line();
    PageRows rows(html, look.headers);
    table.rows(rows);
    html.close().close().closeLine();
    const std::size_t all = std::max(rows.rows(), look.rows);
    if (all > mostPageRows)
        html.element("p",
                     "The first " + std::to_string(mostPageRows) + " of " + std::to_string(all) +
                         " rows stand here; the commands of the program give all.",
                     {{"class", "note"}});
    html.line();
}

} // namespace korvel
