#include "publish/PageTable.h"
#include "publish/PageSample.h"
#include "publish/PageTables.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

std::string written(const Table& table, const PageTableLook& look = {"t", "Caption <1>", 1}) {
    return htmlBy([&](PageHtml& html) { writePageTable(html, table, look); });
}

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

Table rowsOf(int count) {
    return {"rows", {{"reach"}}, [count](RowTaker& taker) {
                for (int k = 0; k < count; ++k) {
                    const Cell cell = k;
                    taker.row({&cell, 1});
                }
            }};
}

TEST(PageTable, KeepsExactNumbersBesideRoundedOnes) {
    const Table table{"t", {{"name"}, {"failing_length"}, {"n"}, {"worse"}}, [](RowTaker& taker) {
                          taker.row(std::vector<Cell>{std::string_view("a<b"), 1.0 / 3, 7, true});
                          taker.row(std::vector<Cell>{std::string_view("c"), Nothing(), 2.5, false});
                      }};
    const std::string html = written(table);
    EXPECT_TRUE(holds(html, "<th scope=row class=t>a&lt;b<td data-v=0.3333333333333333>0.3333<td>7"
                            "<td class=t data-v=true>yes\n"))
        << html;
    EXPECT_TRUE(holds(html, "<th scope=row class=t>c<td><td>2.500<td class=t data-v=false>no\n")) << html;
    EXPECT_TRUE(holds(html, "<caption id=\"t-c\">Caption &lt;1&gt;</caption>")) << html;
    EXPECT_TRUE(holds(html, "data-name=\"failing_length\"")) << html;
}

TEST(PageTable, LeavesOutWhatTheRoundedNumberSays) {
    for (const auto& [value, cell] : {std::pair{1.84, "<td>1.840\n"},
                                      {3.0, "<td>3.000\n"},
                                      {1200.0, "<td>1200\n"},
                                      {1.23456, "<td data-v=1.23456>1.235\n"},
                                      {0.0, "<td>0\n"}}) {
        const Table table{
            "t", {{"value"}}, [value = value](RowTaker& taker) { taker.row(std::vector<Cell>{value}); }};
        EXPECT_TRUE(holds(written(table, {"t", "c", 0}), cell)) << written(table, {"t", "c", 0});
    }
}

TEST(PageTable, MarksVerdicts) {
    const Table table{"t", {{"verdict"}}, [](RowTaker& taker) {
                          taker.row(std::vector<Cell>{std::string_view("pass to fail")});
                      }};
    EXPECT_TRUE(holds(written(table, {"t", "c", 0}), "<td class=\"v worse\">pass to fail\n"));
}

TEST(PageTable, TakesFiveThousandRowsAndSaysSo) {
    const std::string all = written(rowsOf(5000));
    EXPECT_EQ(countOf(all, "<tr>"), 5001U);
    EXPECT_EQ(all.find("class=\"note\""), std::string::npos);
    const std::string more = written(rowsOf(5001));
    EXPECT_EQ(countOf(more, "<tr>"), 5001U);
    EXPECT_NE(more.find("The first 5000 of 5001 rows"), std::string::npos);
    const std::string first = written(rowsOf(5000), {"t", "c", 1, 600000});
    EXPECT_NE(first.find("The first 5000 of 600000 rows"), std::string::npos);
}

TEST(PageTable, NamesReachesBesideTheirNumbers) {
    const Study study = studyOf({millRiver()});
    ComplianceRequest request;
    request.determinands = {1};
    const Table named = withReachNames(complianceByStation(study.base(), request), study.base());
    EXPECT_TRUE(holds(written(named), "<th scope=row>1<td class=t>Reach 1<td")) << written(named);
    EXPECT_EQ(named.columns[1].name, "reach_name");
}

TEST(PageTables, TellTheWorstFirst) {
    const Study study = studyOf({millRiver(), millRiver(3)});
    const PageRequest request = requestOf(study);
    const PageStudy judged(study, request);
    const std::string base = written(worstComplianceTable(judged.runs()[0]));
    EXPECT_LT(base.find(">Reach 1<"), base.find(">Reach 2<"));
    EXPECT_EQ(base.find("change_verdict"), std::string::npos);
    // Reach 2 stands nearer to its target now: 4.5 of 5.
    const std::string later = written(worstComplianceTable(judged.runs()[1]));
    EXPECT_GT(later.find(">Reach 1<"), later.find(">Reach 2<"));
    EXPECT_NE(later.find("fail to pass"), std::string::npos);
}

TEST(PageTables, HoldLossesOfRunsSideBySide) {
    const Study study = studyOf({millRiver(), millRiver(3)});
    const PageRequest request = requestOf(study);
    const PageStudy judged(study, request);
    PageSources sources;
    sources.runs.resize(2);
    sources.runs[0].losses = {{"Along Upper", 1, {}, 2.5}, {"Mill", 1, 4.0, 7.25}};
    sources.runs[1].losses = {{"Mill", 1, 4.0, 1.75}, {"Start of Lower", 2, {}, 9}};
    const std::string table = written(comparedLossesTable(judged, sources));
    EXPECT_TRUE(holds(table, ">Mill<td>1<td class=t>Reach 1<td>4.000<td>7.250<td>1.750\n")) << table;
    EXPECT_TRUE(holds(table, ">Along Upper<td>1<td class=t>Reach 1<td><td>2.500<td>\n")) << table;
    EXPECT_TRUE(holds(table, ">Start of Lower<td>2<td class=t>Reach 2<td><td><td>9.000\n")) << table;
    EXPECT_LT(table.find(">Mill<"), table.find(">Along Upper<")) << "the base's largest first";
}

TEST(PageTables, HoldSourcesOfRunsSideBySide) {
    const Study study = studyOf({millRiver(), millRiver(3)});
    const PageRequest request = requestOf(study);
    const PageStudy judged(study, request);
    for (const PageSources& sources : pageSources(judged)) {
        EXPECT_EQ(sources.refusal, "");
        ASSERT_EQ(sources.runs.size(), 2U);
        const Table table = comparedSourcesTable(judged, sources);
        EXPECT_EQ(table.columns.size(), 5U + 2 * 3);
        EXPECT_EQ(table.columns[7].flatName(), "a.sgr_share");
    }
}

} // namespace

} // namespace korvel
