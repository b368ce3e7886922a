// Tables of the page: whatever is a Table, with headings for people, a caption and its exact numbers.
#pragma once

#include "publish/PageHtml.h"
#include "tables/Table.h"

#include <cstddef>
#include <string>

namespace korvel {

inline constexpr std::size_t mostPageRows = 5000; // a table

struct PageTableLook {
    std::string id;          // unique on the page; the CSV file is named by it
    std::string caption;     // UTF-8
    std::size_t headers = 1; // so many columns on the left tell what a row is about
    std::size_t rows = 0;    // where the table holds only the first of them: so many are there
};

// With a note below where there are more rows than a page takes.
void writePageTable(PageHtml& html, const Table& table, const PageTableLook& look);

struct PageHeading {
    std::string_view words;
    std::string_view explanation; // "" where the words say it all
};

// For a column by its flat name; its own name in words where there is nothing better.
std::string headingOf(const Column& column);
std::string_view explanationOf(const Column& column);

} // namespace korvel
