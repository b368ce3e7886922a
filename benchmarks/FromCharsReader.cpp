// A yardstick: reads the points of a results file in the general way, each number with std::from_chars, into
// arrays of one column a value. It takes what the benchmarks write and nothing else.
#include "LargeResultsFile.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace korvel {

namespace {

constexpr std::size_t chunk = 1 << 20;
constexpr std::size_t longestField = 4096; // a field may begin in one chunk and end in the next

struct Free {
    void operator()(double* values) const { std::free(values); }
};

class Fields {
  public:
    explicit Fields(const char* path) : m_file(open(path, O_RDONLY)) {
        if (m_file < 0) std::exit(1);
    }
    ~Fields() { close(m_file); }
    Fields(const Fields&) = delete;
    Fields& operator=(const Fields&) = delete;

    void skipLine() {
        fillUp();
        while (*m_at != '\n')
            ++m_at;
    }
    bool atEnd() {
        skipSeparators();
        return m_at == m_end;
    }
    double number() {
        skipSeparators();
        double value = 0;
        m_at = std::from_chars(m_at, m_end, value).ptr;
        return value;
    }
    void text() {
        skipSeparators();
        for (++m_at; *m_at != '"'; ++m_at) {
        }
        ++m_at;
    }

  private:
    void skipSeparators() {
        fillUp();
        while (m_at < m_end && (*m_at == ' ' || *m_at == ',' || *m_at == '\r' || *m_at == '\n'))
            ++m_at;
    }
    void fillUp() {
        const auto left = static_cast<std::size_t>(m_end - m_at);
        if (left >= longestField || m_ended) return;
        std::memmove(m_buffer.get(), m_at, left);
        const ssize_t count = read(m_file, m_buffer.get() + left, chunk);
        m_ended = count <= 0;
        m_at = m_buffer.get();
        m_end = m_at + left + (count > 0 ? count : 0);
    }

    int m_file;
    std::unique_ptr<char[]> m_buffer{new char[chunk + longestField]};
    const char* m_at = m_buffer.get();
    const char* m_end = m_at;
    bool m_ended = false;
};

class Columns {
  public:
    double& at(int column, std::size_t point) {
        return m_values[static_cast<std::size_t>(column) * extent + point];
    }

  private:
    static constexpr std::size_t extent = largePoints + 1;
    std::unique_ptr<double[], Free> m_values{
        static_cast<double*>(std::calloc(extent * largeValuesPerPoint, sizeof(double)))};
};

// The values after each caption of a point.
void readValues(Fields& fields, Columns& columns, std::size_t point) {
    int column = 0;
    const auto captioned = [&](int count) {
        fields.text();
        for (int k = 0; k < count; ++k, ++column)
            columns.at(column, point) = fields.number();
    };
    captioned(4);
    captioned(4);
    for (int d = 0; d < largeDeterminands; ++d)
        for (const int count : {12, 12, 4, 4, 1, 1})
            captioned(count);
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int argc, char** argv) {
    if (argc != 2) return 1;
    Fields fields(argv[1]);
    for (int line = 0; line < 3 + largeDeterminands + 2; ++line) {
        fields.skipLine();
        fields.atEnd();
    }
    Columns columns;
    std::size_t points = 0;
    while (!fields.atEnd()) {
        ++points;
        fields.number(); // reach
        fields.number(); // distance
        fields.text();
        fields.number();
        fields.number(); // type
        readValues(fields, columns, points);
    }
    std::printf("%zu points, last value %g\n", points, columns.at(largeValuesPerPoint - 1, points));
    return points == largePoints ? 0 : 1;
}
