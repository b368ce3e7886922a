// The records of a CSV text: commas, double quotes as usual, LF or CR LF. Empty lines and lines that begin
// with "#" are left out. Where something stands is kept as a byte offset, from which a line and a column are
// told.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

struct CsvField {
    std::string text; // without the blanks around an unquoted field
    std::size_t offset = 0;
};

using CsvRecord = std::vector<CsvField>;

struct CsvProblem {
    std::size_t offset = 0;
    std::string text;
};

struct CsvRecords {
    std::vector<CsvRecord> records;
    std::vector<CsvProblem> problems; // a record that has one is left out
};

CsvRecords csvRecords(std::string_view text);

struct PlaceInText { // from 1; columns are counted as shown
    std::size_t line = 1;
    std::size_t column = 1;
    bool operator==(const PlaceInText&) const = default;
};
PlaceInText placeInText(std::string_view text, std::size_t offset);

} // namespace korvel
