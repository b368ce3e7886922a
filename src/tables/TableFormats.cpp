#include "tables/TableFormats.h"

#include "basic/Text.h"
#include "tables/Csv.h"
#include "tables/Json.h"

#include <algorithm>
#include <array>

namespace korvel {

namespace {

void writeTextFormat(const TableContent& content, const TextLook& look, OutputBytes& out) {
    TextPage page(look);
    content.text(page);
    out.append(page.text());
}

void writeCsvFormat(const TableContent& content, const TextLook&, OutputBytes& out) {
    content.alone ? writeCsv(*content.alone, out) : writeCsv(content.report(), out);
}

void writeJsonFormat(const TableContent& content, const TextLook&, OutputBytes& out) {
    content.alone ? writeJson(*content.alone, out) : writeJson(content.report(), out);
}

constexpr std::array formats = {TableFormat{"text", ".txt", true, writeTextFormat},
                                TableFormat{"csv", ".csv", false, writeCsvFormat},
                                TableFormat{"json", ".json", false, writeJsonFormat}};

} // namespace

std::span<const TableFormat> tableFormats() {
    return formats;
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
