// The library that writes workbooks, loaded when the first one is written.
#pragma once

#include <xlsxwriter.h>

namespace korvel {

class LateLibrary;

// Its functions, named as they are.
struct XlsxLibrary {
    // Throws TableRefused where the system has no such library.
    explicit XlsxLibrary(const char* fileName);

    decltype(&::workbook_new_opt) workbook_new_opt = nullptr;
    decltype(&::workbook_set_properties) workbook_set_properties = nullptr;
    decltype(&::workbook_add_worksheet) workbook_add_worksheet = nullptr;
    decltype(&::workbook_add_format) workbook_add_format = nullptr;
    decltype(&::workbook_add_chart) workbook_add_chart = nullptr;
    decltype(&::workbook_close) workbook_close = nullptr;
    decltype(&::lxw_workbook_free) lxw_workbook_free = nullptr;
    decltype(&::lxw_strerror) lxw_strerror = nullptr;

    decltype(&::worksheet_set_landscape) worksheet_set_landscape = nullptr;
    decltype(&::worksheet_set_paper) worksheet_set_paper = nullptr;
    decltype(&::worksheet_fit_to_pages) worksheet_fit_to_pages = nullptr;
    decltype(&::worksheet_repeat_rows) worksheet_repeat_rows = nullptr;
    decltype(&::worksheet_repeat_columns) worksheet_repeat_columns = nullptr;
    decltype(&::worksheet_set_footer) worksheet_set_footer = nullptr;
    decltype(&::worksheet_set_column) worksheet_set_column = nullptr;
    decltype(&::worksheet_set_row) worksheet_set_row = nullptr;
    decltype(&::worksheet_freeze_panes) worksheet_freeze_panes = nullptr;
    decltype(&::worksheet_autofilter) worksheet_autofilter = nullptr;
    decltype(&::worksheet_write_string) worksheet_write_string = nullptr;
    decltype(&::worksheet_write_number) worksheet_write_number = nullptr;
    decltype(&::worksheet_write_boolean) worksheet_write_boolean = nullptr;
    decltype(&::worksheet_insert_chart_opt) worksheet_insert_chart_opt = nullptr;

    decltype(&::format_set_num_format) format_set_num_format = nullptr;
    decltype(&::format_set_bold) format_set_bold = nullptr;
    decltype(&::format_set_bg_color) format_set_bg_color = nullptr;
    decltype(&::format_set_bottom) format_set_bottom = nullptr;
    decltype(&::format_set_font_size) format_set_font_size = nullptr;
    decltype(&::format_set_text_wrap) format_set_text_wrap = nullptr;
    decltype(&::format_set_indent) format_set_indent = nullptr;
    decltype(&::format_set_align) format_set_align = nullptr;

    decltype(&::chart_add_series) chart_add_series = nullptr;
    decltype(&::chart_series_set_categories) chart_series_set_categories = nullptr;
    decltype(&::chart_series_set_values) chart_series_set_values = nullptr;
    decltype(&::chart_series_set_name) chart_series_set_name = nullptr;
    decltype(&::chart_series_set_line) chart_series_set_line = nullptr;
    decltype(&::chart_title_set_name) chart_title_set_name = nullptr;
    decltype(&::chart_axis_set_name) chart_axis_set_name = nullptr;
    decltype(&::chart_axis_set_min) chart_axis_set_min = nullptr;
    decltype(&::chart_axis_major_gridlines_set_visible) chart_axis_major_gridlines_set_visible = nullptr;
    decltype(&::chart_axis_major_gridlines_set_line) chart_axis_major_gridlines_set_line = nullptr;
    decltype(&::chart_legend_set_position) chart_legend_set_position = nullptr;

  private:
    void findWorkbooks(LateLibrary& library);
    void findSheets(LateLibrary& library);
    void findLooks(LateLibrary& library);
    void findCharts(LateLibrary& library);
};

// Loads it at the first call. Throws TableRefused.
const XlsxLibrary& xlsx();

} // namespace korvel
