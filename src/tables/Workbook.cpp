#include "tables/Workbook.h"

#include "basic/Product.h"
#include "basic/RunTimeError.h"
#include "basic/ScratchFile.h"
#include "basic/Text.h"
#include "tables/AboutSheet.h"
#include "tables/SheetPen.h"
#include "tables/WorkbookChart.h"
#include "tables/XlsxLibrary.h"
#include "tables/ZipParts.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <memory>

namespace korvel {

namespace {

constexpr std::size_t partAround = 65536; // bytes, more than what stands around the rows of a sheet
constexpr std::size_t rowsBetweenQuestions = 4096;
// The oldest day that the parts of a workbook can have, so that it doesn't tell when it was made.
constexpr time_t creationTime = 315532800; // 1980-01-01

// The library writes numbers by the thread's locale.
class PlainNumbers {
  public:
    PlainNumbers() : m_plain(newlocale(LC_NUMERIC_MASK, "C", nullptr)), m_before(uselocale(m_plain)) {}
    ~PlainNumbers() {
        uselocale(m_before);
        freelocale(m_plain);
    }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

  private:
    locale_t m_plain, m_before;
};

class RowCount : public RowTaker {
  public:
    void row(std::span<const Cell>) override { ++m_count; }
    ReadyCells ready(std::size_t, std::span<const Cell>) override { return {}; }
    void row(const ReadyCells&, const ReadyCells&, std::span<const Cell>) override { ++m_count; }

    std::size_t count() const { return m_count; }

  private:
    std::size_t m_count = 0;
};

std::size_t rowsIn(const Sheet& sheet) {
    RowCount rows;
    for (const SheetPart& part : sheet.parts)
        part.table.rows(rows);
    return rows.count();
}

std::vector<std::size_t> countedRows(const std::vector<Sheet>& sheets) {
    std::vector<std::size_t> counts;
    for (const Sheet& sheet : sheets) {
        counts.push_back(rowsIn(sheet));
        if (counts.back() > mostSheetRows)
            throw TableRefused("A sheet of a workbook holds " + std::to_string(mostSheetRows) +
                               " rows at most, but there are " + std::to_string(counts.back()) +
                               ". A database or a CSV file holds them all.");
    }
    return counts;
}

class Workbook {
  public:
    explicit Workbook(const Taken& taken);
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    lxw_worksheet* add(const std::string& name);
    const SheetLooks& looks() const { return m_looks; }
    lxw_workbook* library() const { return m_workbook.get(); }

    // Error 61 where what was written so far is not on the disk.
    static void expectWhole(lxw_worksheet* sheet);
    // Closes it; its bytes are then to be had.
    void close();
    void read(const std::function<void(std::string_view)>& take) const { m_file.read(take); }

  private:
    lxw_workbook* made();
    void expectWholeFile(const std::vector<long>& leastSizes) const;

    std::string m_folder = scratchFolder();
    ScratchFile m_file{m_folder};
    std::unique_ptr<lxw_workbook, void (*)(lxw_workbook*)> m_workbook{made(), xlsx().lxw_workbook_free};
    SheetLooks m_looks{m_workbook.get()};
    std::vector<lxw_worksheet*> m_sheets;
};

lxw_workbook* Workbook::made() {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = m_folder.data();
    lxw_workbook* const workbook = xlsx().workbook_new_opt(m_file.path().c_str(), &options);
    if (!workbook) throw RunTimeError(errors::outOfMemory);
    return workbook;
}

Workbook::Workbook(const Taken& taken) {
    std::string title = shownUtf8(taken.title), writer = std::string(productName) + " " + productVersion;
    lxw_doc_properties properties{};
    properties.title = title.data();
    properties.author = writer.data();
    properties.created = creationTime;
    xlsx().workbook_set_properties(library(), &properties);
}

lxw_worksheet* Workbook::add(const std::string& name) {
    lxw_worksheet* const sheet = xlsx().workbook_add_worksheet(library(), name.c_str());
    if (!sheet) throw RunTimeError(errors::diskFull);
    xlsx().worksheet_set_landscape(sheet);
    xlsx().worksheet_set_paper(sheet, 9); // A4
    xlsx().worksheet_fit_to_pages(sheet, 1, 0);
    xlsx().worksheet_repeat_rows(sheet, 0, 0);
    xlsx().worksheet_set_footer(sheet, "&L&A&R&P of &N");
    m_sheets.push_back(sheet);
    return sheet;
}

// The library itself doesn't look.
void Workbook::expectWhole(lxw_worksheet* sheet) {
    if (std::fflush(sheet->optimize_tmpfile) != 0 || std::ferror(sheet->optimize_tmpfile) != 0)
        throw RunTimeError(errors::diskFull);
}

// Each sheet is copied once more on its way, and there again nobody looks: room for the largest is made sure
// of before, and that all got through afterwards.
void Workbook::close() {
    std::vector<long> sizes;
    for (lxw_worksheet* const sheet : m_sheets) {
        expectWhole(sheet);
        sizes.push_back(std::ftell(sheet->optimize_tmpfile));
    }
    ScratchFile(m_folder).reserve(static_cast<std::size_t>(*std::ranges::max_element(sizes)) + partAround);
    if (xlsx().workbook_close(m_workbook.release()) != LXW_NO_ERROR) throw RunTimeError(errors::diskFull);
    expectWholeFile(sizes);
}

void Workbook::expectWholeFile(const std::vector<long>& leastSizes) const {
    const auto sizes = zipPartSizes(m_file.descriptor());
    for (std::size_t k = 0; k < leastSizes.size(); ++k) {
        const auto found = sizes.find("xl/worksheets/sheet" + std::to_string(k + 1) + ".xml");
        if (found == sizes.end() || found->second < static_cast<std::uint64_t>(leastSizes[k]))
            throw RunTimeError(errors::diskFull);
    }
}

// Rows of one table as rows of a sheet.
class SheetRows : public RowTaker {
  public:
    SheetRows(SheetPen& pen, const std::vector<Fact>& lead, const std::function<void()>& afterRow)
        : m_pen(pen), m_afterRow(afterRow) {
        for (const Fact& fact : lead)
            m_lead.push_back(pen.ready(viewOf(fact.value)));
    }
    void row(std::span<const Cell> cells) override {
        begin();
        putAll(cells);
        m_afterRow();
    }
    ReadyCells ready(std::size_t, std::span<const Cell> cells) override {
        ReadyCells made;
        for (const Cell& cell : cells)
            made.cells.push_back(m_pen.ready(cell));
        return made;
    }
    void row(const ReadyCells& first, const ReadyCells& second, std::span<const Cell> last) override {
        begin();
        putReady(first.cells);
        putReady(second.cells);
        putAll(last);
        m_afterRow();
    }

  private:
    void begin() {
        m_pen.nextRow();
        putReady(m_lead);
    }
    void putAll(std::span<const Cell> cells) {
        for (const Cell& cell : cells)
            m_pen.put(cell);
    }
    void putReady(const std::vector<OwnedCell>& cells) {
        for (const OwnedCell& cell : cells)
            m_pen.putReady(cell);
    }

    SheetPen& m_pen;
    std::vector<OwnedCell> m_lead;
    const std::function<void()>& m_afterRow;
};

class WorkbookWriting {
  public:
    WorkbookWriting(const WorkbookContent& content, const Writing& writing)
        : m_content(content), m_writing(writing), m_tally{countedRows(content.sheets)} {
        for (const std::size_t count : m_tally.rows)
            m_allRows += count;
    }

    void write(OutputBytes& out);

  private:
    void writeSheet(const Sheet& sheet, lxw_worksheet* on);
    void takeRow(lxw_worksheet* on);

    const WorkbookContent& m_content;
    const Writing& m_writing;
    SheetTally m_tally;
    Workbook m_workbook{m_content.taken};
    std::size_t m_allRows = 0, m_rowsDone = 0;
};

// The first sheet is written last, when everything is known.
void WorkbookWriting::write(OutputBytes& out) {
    const bool tells = !m_content.taken.facts.empty();
    lxw_worksheet* const first = tells ? m_workbook.add("About") : nullptr;
    for (const Sheet& sheet : m_content.sheets)
        writeSheet(sheet, m_workbook.add(sheet.name));
    if (tells) writeAbout(first, m_workbook.looks(), m_content, m_tally);
    m_workbook.close();
    m_workbook.read([&](std::string_view bytes) { out.append(bytes); });
}

void WorkbookWriting::takeRow(lxw_worksheet* on) {
    if (++m_rowsDone % rowsBetweenQuestions != 0) return;
    Workbook::expectWhole(on);
    tellShare(m_writing, static_cast<double>(m_rowsDone) / static_cast<double>(m_allRows));
}

void WorkbookWriting::writeSheet(const Sheet& sheet, lxw_worksheet* on) {
    SheetPen pen(on, m_workbook.looks(), sheet.headings);
    std::optional<WorkbookChart> chart;
    if (sheet.chart) chart.emplace(*sheet.chart);
    const std::function<void()> afterRow = [&] {
        if (chart) chart->take(pen.row(), pen.firstText());
        takeRow(on);
    };
    for (const SheetPart& part : sheet.parts) {
        SheetRows rows(pen, part.lead, afterRow);
        part.table.rows(rows);
    }
    m_tally.textsCut += pen.textsCut();
    pen.finish();
    if (chart) chart->insert(m_workbook.library(), on, sheet);
}

} // namespace

void writeWorkbook(const WorkbookContent& content, const Writing& writing, OutputBytes& out) {
    const PlainNumbers plain;
    WorkbookWriting(content, writing).write(out);
}

} // namespace korvel
