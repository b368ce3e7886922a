// How long a load takes against counting the lines of the same file, and the memory that it needs. The file
// lies in the page cache; each pair is measured in one go, and the median of the ratios is printed.
#include "basic/ModelName.h"
#include "platform/DiskFiles.h"
#include "results/ResultsReader.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <vector>

#include <sys/resource.h>

namespace {

constexpr int points = 59900;
constexpr int determinands = 10;
constexpr int rounds = 7;

class ResultsFile {
  public:
    explicit ResultsFile(const std::filesystem::path& path) : m_file(std::fopen(path.c_str(), "wb")) {
        if (!m_file) std::exit(1);
        header();
        for (int i = 1; i <= points; ++i)
            point(i);
        std::fclose(m_file);
    }

  private:
    void header() {
        std::fprintf(m_file, "A made-up catchment\r\n 0\r\n %d\r\n", determinands);
        for (int d = 1; d <= determinands; ++d)
            std::fprintf(m_file, " 1,\"Substance %d\", 1\r\n", d);
        std::fprintf(m_file, " 1\r\n%4d %-16s %10.3f %4d\r\n", 1, "Long Water", 6000.0, 0);
    }

    void numbers(const char* caption, int count) {
        std::fputs(caption, m_file);
        for (int k = 0; k < count; ++k)
            std::fprintf(m_file, ", %12.6f", m_amount(m_random));
        std::fputs("\r\n", m_file);
    }

    void rows(int count, int rowsOf) {
        for (int k = 0; k < count; ++k) {
            for (int f = 0; f < rowsOf; ++f)
                std::fprintf(m_file, "%s%12.6f", f ? ", " : "", m_amount(m_random));
            std::fputs("\r\n", m_file);
        }
    }

    void point(int index) {
        std::fprintf(m_file, " 1, %10.3f,\"Weir number %d   \", 0, 10\r\n", 0.1 * index, index);
        numbers("\"Flow\"", 4);
        numbers("\"Observed flow\"", 4);
        for (int d = 1; d <= determinands; ++d) {
            for (int k = 0; k < 2; ++k) {
                numbers("\"Mean\"", 3);
                rows(3, 3);
            }
            for (int k = 0; k < 2; ++k) {
                numbers("\"Observed\"", 1);
                rows(3, 1);
            }
            for (int k = 0; k < 2; ++k)
                numbers("\"Target\"", 1);
        }
    }

    std::FILE* m_file;
    std::mt19937 m_random{1};
    std::lognormal_distribution<double> m_amount{1.0, 2.0};
};

double seconds(auto&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::nth_element(values, values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    return values[values.size() / 2];
}

long countLines(const std::filesystem::path& path) {
    const std::string command = "wc -l " + path.string() + " > /dev/null";
    return std::system(command.c_str());
}

double megabytesAtPeak() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void load(const std::string& name) {
    ResultsDataSet results;
    const auto file = DiskFiles().open(name);
    readResults(*file, results, 0, {[](const Message&) {}, [](double) {}});
    if (results.pointCount != points) std::exit(1);
}

} // namespace

int main() {
    const auto path = std::filesystem::temp_directory_path() / "korvel-bench.sgr";
    ResultsFile file(path);
    const std::string name = modelNameOfHostPath(path.string());
    load(name); // warms the memory
    std::vector<double> loads, counts, ratios;
    for (int round = 0; round < rounds; ++round) {
        counts.push_back(seconds([&] { countLines(path); }));
        loads.push_back(seconds([&] { load(name); }));
        ratios.push_back(loads.back() / counts.back());
    }
    const double bytes = static_cast<double>(std::filesystem::file_size(path));
    std::printf("reading %.0f MB: %.1f x wc -l (%.0f ms to %.0f ms), %.0f MB at its peak\n", bytes / 1e6,
                median(ratios), median(loads) * 1e3, median(counts) * 1e3, megabytesAtPeak());
    std::filesystem::remove(path);
}
