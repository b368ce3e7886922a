#include "tables/XlsxLibrary.h"

#include "basic/LateLibrary.h"
#include "tables/Writing.h"

namespace korvel {

void XlsxLibrary::findWorkbooks(LateLibrary& library) {
    library.find("workbook_new_opt", workbook_new_opt);
    library.find("workbook_set_properties", workbook_set_properties);
    library.find("workbook_add_worksheet", workbook_add_worksheet);
    library.find("workbook_add_format", workbook_add_format);
    library.find("workbook_add_chart", workbook_add_chart);
    library.find("workbook_close", workbook_close);
    library.find("lxw_workbook_free", lxw_workbook_free);
    library.find("lxw_strerror", lxw_strerror);
}

void XlsxLibrary::findSheets(LateLibrary& library) {
    library.find("worksheet_set_landscape", worksheet_set_landscape);
    library.find("worksheet_set_paper", worksheet_set_paper);
    library.find("worksheet_fit_to_pages", worksheet_fit_to_pages);
    library.find("worksheet_repeat_rows", worksheet_repeat_rows);
    library.find("worksheet_repeat_columns", worksheet_repeat_columns);
    library.find("worksheet_set_footer", worksheet_set_footer);
    library.find("worksheet_set_column", worksheet_set_column);
    library.find("worksheet_set_row", worksheet_set_row);
    library.find("worksheet_freeze_panes", worksheet_freeze_panes);
    library.find("worksheet_autofilter", worksheet_autofilter);
    library.find("worksheet_write_string", worksheet_write_string);
    library.find("worksheet_write_number", worksheet_write_number);
    library.find("worksheet_write_boolean", worksheet_write_boolean);
    library.find("worksheet_insert_chart_opt", worksheet_insert_chart_opt);
}

void XlsxLibrary::findLooks(LateLibrary& library) {
    library.find("format_set_num_format", format_set_num_format);
    library.find("format_set_bold", format_set_bold);
    library.find("format_set_bg_color", format_set_bg_color);
    library.find("format_set_bottom", format_set_bottom);
    library.find("format_set_font_size", format_set_font_size);
    library.find("format_set_text_wrap", format_set_text_wrap);
    library.find("format_set_indent", format_set_indent);
    library.find("format_set_align", format_set_align);
}

void XlsxLibrary::findCharts(LateLibrary& library) {
    library.find("chart_add_series", chart_add_series);
    library.find("chart_series_set_categories", chart_series_set_categories);
    library.find("chart_series_set_values", chart_series_set_values);
    library.find("chart_series_set_name", chart_series_set_name);
    library.find("chart_series_set_line", chart_series_set_line);
    library.find("chart_title_set_name", chart_title_set_name);
    library.find("chart_axis_set_name", chart_axis_set_name);
    library.find("chart_axis_set_min", chart_axis_set_min);
    library.find("chart_axis_major_gridlines_set_visible", chart_axis_major_gridlines_set_visible);
    library.find("chart_axis_major_gridlines_set_line", chart_axis_major_gridlines_set_line);
    library.find("chart_legend_set_position", chart_legend_set_position);
}

XlsxLibrary::XlsxLibrary(const char* fileName) {
    LateLibrary library(fileName);
    findWorkbooks(library);
    findSheets(library);
    findLooks(library);
    findCharts(library);
    if (!library.failure().empty())
        throw TableRefused("The library that writes workbooks can't be loaded (" + library.failure() +
                           "). Install libxlsxwriter, or write a CSV file.");
}

const XlsxLibrary& xlsx() {
    static const XlsxLibrary library("libxlsxwriter.so." LXW_SOVERSION);
    return library;
}

} // namespace korvel
