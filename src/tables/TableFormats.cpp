#include "tables/TableFormats.h"

#include "basic/Text.h"
#include "tables/Csv.h"
#include "tables/Json.h"
#include "tables/Workbook.h"

#include <algorithm>
#include <array>

namespace korvel {

namespace {

void writeTextFormat(const TableContent& content, const Writing& writing, OutputBytes& out) {
    TextPage page(writing.look);
    content.text(page);
    out.append(page.text());
}

void writeCsvFormat(const TableContent& content, const Writing&, OutputBytes& out) {
    content.alone ? writeCsv(*content.alone, out) : writeCsv(content.report(), out);
}

void writeJsonFormat(const TableContent& content, const Writing&, OutputBytes& out) {
    content.alone ? writeJson(*content.alone, out) : writeJson(content.report(), out);
}

void writeWorkbookFormat(const TableContent& content, const Writing& writing, OutputBytes& out) {
    WorkbookContent workbook{content.taken, {}};
    workbook.sheets =
        content.alone ? std::vector{sheetOf(*content.alone)} : sheetsOf(content.report(), workbook.taken);
    if (content.charted) {
        workbook.sheets.push_back(sheetOf(content.charted->table));
        workbook.sheets.back().chart = content.charted->chart;
    }
    writeWorkbook(workbook, writing, out);
}

using enum TableFormatKind;

constexpr std::array formats = {TableFormat{"text", ".txt", "Text", forPeople, writeTextFormat},
                                TableFormat{"csv", ".csv", "CSV", forPrograms, writeCsvFormat},
                                TableFormat{"json", ".json", "JSON", forPrograms, writeJsonFormat},
                                TableFormat{"xlsx", ".xlsx", "Workbook", asFile, writeWorkbookFormat},
                                TableFormat{"sqlite", ".sqlite", "Database", database, nullptr}};

} // namespace

std::span<const TableFormat> tableFormats() {
    return formats;
}

const TableFormat& workbookFormat() {
    return *formatNamed("xlsx");
}

std::string tableFilter(const TableFormat& format) {
    const std::string pattern = "*" + std::string(format.extension);
    return std::string(format.title) + " (" + pattern + ")|" + pattern;
}

bool needsFile(const TableFormat& format) {
    return format.kind == asFile || format.kind == database;
}

bool isFormatFor(TableUse use, const TableFormat& format) {
    return format.kind != (use == TableUse::analysis ? database : forPeople);
}

std::string formatNames(TableUse use) {
    std::vector<std::string> names;
    for (const TableFormat& format : formats)
        if (isFormatFor(use, format)) names.emplace_back(format.name);
    return inWords(names, "or");
}

const TableFormat* formatNamed(std::string_view name) {
    const auto found = std::ranges::find(formats, name, &TableFormat::name);
    return found == formats.end() ? nullptr : &*found;
}

const TableFormat* formatOfExtension(std::string_view file) {
    const std::string lower = lowerCase(file);
    const auto fits = [&](const TableFormat& format) { return lower.ends_with(format.extension); };
    const auto found = std::ranges::find_if(formats, fits);
    return found == formats.end() ? nullptr : &*found;
}

} // namespace korvel
