// One row of a data file: comma-separated fields, text optionally in double quotes, ";" begins a comment.
// Whatever is wrong with a field is a DataError that names the row's line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::engine {

struct DataError {
    int line = 0; // 0: the file as a whole
    std::string message;
};

// Without the comment and the blanks around; a ";" between quotes is text.
std::string_view withoutComment(std::string_view line);

class DataRow {
  public:
    DataRow(std::string_view line, int lineNumber);

    int line() const { return m_line; }
    std::size_t size() const { return m_fields.size(); }
    void expectFields(std::size_t least, std::size_t most) const;

    // A missing field at the end of a row reads as 0.
    double number(std::size_t index, const char* what, double low, double high) const;
    int integer(std::size_t index, const char* what, int low, int high) const;
    // 1 to `longest` printable characters without a double quote.
    std::string text(std::size_t index, const char* what, std::size_t longest) const;

    [[noreturn]] void fail(const std::string& message) const;

  private:
    std::vector<std::string_view> m_fields;
    int m_line;
};

} // namespace korvel::engine
