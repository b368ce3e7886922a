#include "LargeResultsFile.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace korvel {

namespace {

constexpr const char* names[largeDeterminands] = {"BOD",  "Ammonia", "Nitrate", "Chloride", "Phosphate",
                                                  "Zinc", "Copper",  "Lead",    "Nickel",   "Iron"};
constexpr double kmBetween = 0.1; // points
constexpr const char* loads[] = {"", " load"};

class Writer {
  public:
    Writer(const std::filesystem::path& path, ResultsForm form, unsigned draw)
        : m_file(std::fopen(path.c_str(), "wb")), m_form(form), m_values(draw) {
        if (!m_file) std::exit(1);
    }
    ~Writer() {
        flush();
        std::fclose(m_file);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void header(int reaches, int points) {
        m_text += "A made-up catchment\r\n 0\r\n " + std::to_string(largeDeterminands) + "\r\n";
        for (const char* name : names)
            m_text += std::string(" 1,\"") + name + "\", 1\r\n";
        m_text += ' ' + std::to_string(reaches) + "\r\n";
        for (int reach = 1; reach <= reaches; ++reach)
            reachLine(reach, reaches, kmBetween * (points + 1));
    }

    void point(int reach, int index) {
        place(reach, index);
        captioned("Flow", 4);
        captioned("Observed flow", 4);
        for (const std::string name : names) {
            for (const char* load : loads)
                simulated(name + load + " mean");
            for (const char* load : loads)
                observed(name + load + " observed");
            for (const char* load : loads)
                captioned(name + load + " target", 1);
        }
        if (m_text.size() > 1 << 20) flush();
    }

  private:
    // Reaches run into each other as the twigs of a tree do.
    void reachLine(int reach, int reaches, double length) {
        char text[64];
        const std::string name = reaches == 1 ? "Long Water" : "Water " + std::to_string(reach);
        std::snprintf(text, sizeof text, "%4d %-16s %12.3f %4d\r\n", reach, name.c_str(), length,
                      reach <= 3 ? reach - 1 : reach - 1 - reach % 3);
        m_text += text;
    }
    void place(int reach, int index) {
        char text[96];
        const bool fixed = m_form == ResultsForm::fixedWidth;
        std::snprintf(text, sizeof text,
                      fixed ? " %d, %10.3f,\"Weir number %5d   \", 0, 10"
                            : "%d %.3f \"Weir number %d   \" 0 10",
                      reach, kmBetween * index, index);
        m_text += text;
        lineEnd();
    }
    void simulated(const std::string& caption) {
        captioned(caption, 3);
        for (int level = 0; level < 3; ++level)
            numbers(3);
    }
    void observed(const std::string& caption) {
        captioned(caption, 1);
        for (int level = 0; level < 3; ++level)
            numbers(1);
    }
    void captioned(const std::string& caption, int count) {
        if (m_form == ResultsForm::fixedWidth)
            m_text += '"' + caption + "\", ";
        else
            m_text += '"' + caption.substr(0, m_random() % caption.size()) + "\" ";
        numbers(count);
    }
    void numbers(int count) {
        for (int k = 0; k < count; ++k) {
            if (k > 0) m_text += m_form == ResultsForm::fixedWidth ? ", " : " ";
            number();
        }
        lineEnd();
    }
    // Six decimals, in 12 columns or as short as it is.
    void number() {
        char text[32];
        const auto end =
            std::to_chars(text, text + sizeof text, m_amount(m_values), std::chars_format::fixed, 6);
        const auto length = static_cast<std::size_t>(end.ptr - text);
        if (m_form == ResultsForm::fixedWidth && length < 12) m_text.append(12 - length, ' ');
        m_text.append(text, length);
    }
    void lineEnd() {
        static constexpr const char* ends[] = {"\n", "\r\n", "\r", " \n"};
        m_text += m_form == ResultsForm::fixedWidth ? "\r\n" : ends[m_random() % 4];
    }
    void flush() {
        if (std::fwrite(m_text.data(), 1, m_text.size(), m_file) != m_text.size()) std::exit(1);
        m_text.clear();
    }

    std::FILE* m_file;
    ResultsForm m_form;
    std::string m_text;
    std::mt19937 m_values; // the same values in every form
    std::mt19937 m_random{2};
    std::lognormal_distribution<double> m_amount{1.0, 2.0};
};

} // namespace

void writeLargeResultsFile(const std::filesystem::path& path, ResultsForm form, int points, unsigned draw,
                           int reaches) {
    Writer writer(path, form, draw);
    writer.header(reaches, points / reaches);
    for (int reach = 1; reach <= reaches; ++reach)
        for (int index = 1; index <= points / reaches; ++index)
            writer.point(reach, index);
}

} // namespace korvel
