#include "tables/WorkbookChart.h"
#include "tables/XlsxLibrary.h"

#include "basic/Text.h"

#include <array>

namespace korvel {

namespace {

struct LineLook {
    lxw_color_t colour;
    std::uint8_t dash;
};

// Colours that colour-blind people tell apart (Okabe and Ito); after them, the dashes change.
constexpr std::array<lxw_color_t, 6> colours = {0x0072B2, 0xD55E00, 0x009E73, 0xCC79A7, 0xE69F00, 0x56B4E9};
constexpr std::array<std::uint8_t, 3> dashes = {LXW_CHART_LINE_DASH_SOLID, LXW_CHART_LINE_DASH_DASH,
                                                LXW_CHART_LINE_DASH_ROUND_DOT};
constexpr float lineWidth = 2;                    // points
constexpr double scaleAcross = 2, scaleUp = 1.75; // of the usual chart, 480 x 288 pixels
constexpr lxw_color_t gridColour = 0xD9D9D9;

LineLook lookOf(std::size_t line) {
    return {colours[line % colours.size()], dashes[line / colours.size() % dashes.size()]};
}

void setLook(lxw_chart_series* series, const LineLook& look) {
    lxw_chart_line line{};
    line.color = look.colour;
    line.width = lineWidth;
    line.dash_type = look.dash;
    xlsx().chart_series_set_line(series, &line);
}

void setAxis(lxw_chart_axis* axis, const std::string& name) {
    xlsx().chart_axis_set_name(axis, shownUtf8(name).c_str());
    lxw_chart_line grid{};
    grid.color = gridColour;
    xlsx().chart_axis_major_gridlines_set_visible(axis, LXW_TRUE);
    xlsx().chart_axis_major_gridlines_set_line(axis, &grid);
}

lxw_col_t columnNumber(std::size_t column) {
    return static_cast<lxw_col_t>(column);
}

} // namespace

void WorkbookChart::take(std::uint32_t row, const std::string& name) {
    if (m_lines.empty() || m_lines.back().name != name) m_lines.push_back({name, row, row});
    m_lines.back().last = row;
}

void WorkbookChart::insert(lxw_workbook* workbook, lxw_worksheet* sheet, const Sheet& content) const {
    if (m_lines.empty()) return;
    lxw_chart* const chart = xlsx().workbook_add_chart(workbook, LXW_CHART_SCATTER_STRAIGHT);
    const lxw_col_t across = columnNumber(m_chart.acrossColumn), up = columnNumber(m_chart.upColumn);
    for (std::size_t k = 0; k < m_lines.size(); ++k) {
        const Line& line = m_lines[k];
        lxw_chart_series* const series = xlsx().chart_add_series(chart, nullptr, nullptr);
        xlsx().chart_series_set_categories(series, content.name.c_str(), line.first, across, line.last,
                                           across);
        xlsx().chart_series_set_values(series, content.name.c_str(), line.first, up, line.last, up);
        xlsx().chart_series_set_name(series, line.name.c_str());
        setLook(series, lookOf(k));
    }
    xlsx().chart_title_set_name(chart, shownUtf8(m_chart.title).c_str());
    setAxis(chart->x_axis, m_chart.across);
    setAxis(chart->y_axis, m_chart.up);
    xlsx().chart_axis_set_min(chart->x_axis, 0);
    xlsx().chart_legend_set_position(chart, LXW_CHART_LEGEND_BOTTOM);
    lxw_chart_options options{};
    options.x_scale = scaleAcross;
    options.y_scale = scaleUp;
    // Not just under the headings, or its edge would be printed with them on every page.
    xlsx().worksheet_insert_chart_opt(sheet, 2, columnNumber(content.headings.size() + 1), chart, &options);
}

} // namespace korvel
