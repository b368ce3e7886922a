#include "publish/Page.h"
#include "publish/PageParts.h"
#include "publish/PagePolicy.h"
#include "publish/PageSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

bool isCell(const std::string& name) {
    return name == "td" || name == "th";
}

// Rows and cells of tables end by themselves where the next begins, or their table ends.
void endRowsBefore(std::vector<std::string>& open, const std::string& name) {
    const bool endsCells =
        isCell(name) || name == "tr" || name == "/tr" || name == "/tbody" || name == "/thead";
    if (endsCells && !open.empty() && isCell(open.back())) open.pop_back();
    if ((name == "tr" || name == "/tbody") && !open.empty() && open.back() == "tr") open.pop_back();
}

// The elements that stand open at the end; the name of one that is closed in its turn by another.
std::vector<std::string> openElements(std::string_view html) {
    std::vector<std::string> open;
    for (std::size_t at = html.find('<'); at != std::string::npos; at = html.find('<', at + 1)) {
        const std::size_t end = html.find('>', at);
        const std::string_view tag = html.substr(at + 1, end - at - 1);
        if (tag.starts_with('!') || tag.ends_with('/')) continue;
        const std::string name(tag.substr(0, tag.find(' ')));
        endRowsBefore(open, name);
        if (name.starts_with('/')) {
            if (open.empty() || "/" + open.back() != name) return {"wrong " + name};
            open.pop_back();
            continue;
        }
        open.push_back(name);
        // Scripts and styles are no markup.
        if (name == "script" || name == "style") at = html.find("</" + name, at) - 1;
    }
    return open;
}

bool holds(const std::string& page, const std::string& part) {
    return page.find(part) != std::string::npos;
}

TEST(Page, IsWellFormed) {
    const std::string page = pageOf(studyOf({millRiver(), millRiver(3)}));
    EXPECT_EQ(openElements(page), std::vector<std::string>());
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta http-equiv"));
}

TEST(Page, ShowsHostileTextsAsTexts) {
    const std::string evil = "</title></script><img src=x onerror=alert(1)>'&\x01\x1b\xe2\x80\xae\xd7\x90";
    const std::string title = evil + "\"";
    ResultsFileBuilder file = millRiver(6, evil);
    file.title(title);
    ResultsFileBuilder other = riverOf({{1, 10}}, 1, "<b>BOD</b>");
    addPoints(
        other, 1,
        {{.value = 2, .target = 1, .observed = 3, .label = evil}, {.distance = 5, .value = 3, .target = 1}});
    other.title(title);
    for (const ResultsFileBuilder& each : {file, other}) {
        const std::string page = pageOf(studyOf({each, each}));
        EXPECT_EQ(openElements(page), std::vector<std::string>());
        EXPECT_FALSE(holds(page, "<img"));
        EXPECT_FALSE(holds(page, "<b>BOD"));
        EXPECT_FALSE(holds(page, "\x01"));
        EXPECT_FALSE(holds(page, "\x1b"));
        EXPECT_TRUE(holds(page, "&lt;/title&gt;&lt;/script&gt;&lt;img src=x onerror=alert(1)&gt;&#39;&amp;"));
    }
}

TEST(Page, CutsTextsThatAreVeryLong) {
    const std::string page = pageOf(studyOf({millRiver(6, std::string(100000, 'W'))}));
    EXPECT_LT(page.size(), 300000U);
    EXPECT_TRUE(holds(page, std::string(400, 'W') + "\u2026"));
    const std::string whole = "id=\"text-1\">" + std::string(100000, 'W') + "</p>";
    EXPECT_TRUE(holds(page, whole)) << "it stands once, whole";
    EXPECT_TRUE(holds(page, "data-text=1>")) << "and tables lead to it";
    EXPECT_TRUE(holds(page, "<a href=\"#text-1\">(whole text)</a>"));
    EXPECT_FALSE(holds(pageOf(studyOf({millRiver()})), "id=\"texts\""));
}

TEST(Page, LeadsFromTheNetworkToItsRivers) {
    const std::string page = pageOf(studyOf({millRiver()}));
    EXPECT_TRUE(holds(page, "<a href=\"#river-1\" fill="));
    EXPECT_TRUE(holds(page, "<section class=\"river\" id=\"river-1\""));
    EXPECT_TRUE(holds(page, "role=\"group\" aria-labelledby=\"network-1-t network-1-d\""));
}

TEST(Page, ColoursEachRunsLimitsAsTheRun) {
    const std::string page = pageOf(studyOf({millRiver(), millRiver(3)}));
    for (const char* band : {"class=\"band run-0\"", "class=\"band run-1\""})
        EXPECT_TRUE(holds(page, band)) << band;
}

TEST(Page, SetsModelAgainstSamplesInAPicture) {
    const std::string page = pageOf(studyOf({millRiver(), millRiver(3)}));
    EXPECT_TRUE(holds(page, "Observed and simulated, BOD, mean, a.sgr"));
    EXPECT_TRUE(holds(page, "Observed and simulated, BOD, mean, b.sgr"));
}

TEST(Page, IsTheSameForTheSameRuns) {
    EXPECT_EQ(pageOf(studyOf({millRiver(), millRiver(3)})), pageOf(studyOf({millRiver(), millRiver(3)})));
}

TEST(Page, AllowsItsOwnScriptAndStyleAlone) {
    const std::string page = pageOf(studyOf({millRiver()}));
    const auto between = [&](const std::string& start, const std::string& end) {
        const std::size_t at = page.find(start) + start.size();
        return page.substr(at, page.find(end, at) - at);
    };
    const std::string policy = pagePolicy(between("<script>", "</script>"), between("<style>", "</style>"));
    std::string written;
    for (const char c : policy)
        written += c == '\'' ? std::string("&#39;") : std::string(1, c);
    EXPECT_TRUE(holds(page, "content=\"" + written + "\""));
    EXPECT_FALSE(holds(page, " style=")) << "the policy forbids them";
    EXPECT_FALSE(holds(page, "javascript:"));
    EXPECT_FALSE(holds(page, " src="));
}

TEST(Page, HasPartsThatCanStandInIt) {
    for (const std::string_view part : {pageScript, plotScript})
        for (const std::string_view end : {"</script", "<!--"})
            EXPECT_EQ(part.find(end), std::string_view::npos) << end;
    for (const std::string_view part : {pageStyle, plotStyle})
        EXPECT_EQ(part.find("</style"), std::string_view::npos);
    EXPECT_EQ(std::string(pageScript).find('\r'), std::string::npos) << "browsers would sum other bytes";
}

TEST(Page, AnswersAtAGlance) {
    const std::string page = pageOf(studyOf({millRiver(), millRiver(3)}));
    EXPECT_TRUE(holds(page, "1 of 2 reaches miss at least one target, 1 of them for sure"));
    EXPECT_TRUE(holds(page, "All of 2 reaches meet their targets"));
    EXPECT_TRUE(holds(page, "<strong>1</strong>: <bdi>BOD in 1 Reach 1</bdi>")) << "fail to pass";
}

TEST(Page, LeavesChangesOutWhereThereIsOneRun) {
    const std::string page = pageOf(studyOf({millRiver()}));
    EXPECT_FALSE(holds(page, "id=\"changes\""));
    EXPECT_FALSE(holds(page, "href=\"#changes\""));
}

TEST(Page, ShowsTheSeriesThatAreAskedFor) {
    const Study study = studyOf({millRiver()});
    PageRequest request;
    request.series = {0};
    request.title = "A <title>";
    const std::string page = bytesBy([&](OutputBytes& out) { writePage(study, request, out); });
    EXPECT_TRUE(holds(page, "<title>A &lt;title&gt;</title>"));
    EXPECT_TRUE(holds(page, "Nothing is judged."));
    EXPECT_FALSE(holds(page, "BOD"));
}

TEST(Page, RefusesReachesThatRunInACircle) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 5, 2).reach(2, "B", 5, 1).point(1, 0, "P");
    const Study study = studyOf({file});
    try {
        pageOf(study);
        FAIL() << "not refused";
    } catch (const PageRefused& refused) {
        EXPECT_STREQ(refused.what(), "a.sgr: Reaches 1, 2 run in a circle");
    }
}

TEST(Page, TellsWhereSourcesCantBeTold) {
    ResultsFileBuilder file = millRiver();
    file.set(ValueField::meanValue, 2, -1.0);
    const std::string page = pageOf(studyOf({file}));
    EXPECT_TRUE(holds(page, "It can&#39;t be told: a.sgr: "));
}

TEST(Page, CanBeGivenUp) {
    const Study study = studyOf({millRiver()});
    PageRequest request = requestOf(study);
    double last = -1;
    bool rises = true;
    request.progress = [&](double share) {
        rises &= share >= last;
        last = share;
        return true;
    };
    bytesBy([&](OutputBytes& out) { writePage(study, request, out); });
    EXPECT_TRUE(rises);
    EXPECT_EQ(last, 1);
    request.progress = [](double) { return false; };
    EXPECT_THROW(bytesBy([&](OutputBytes& out) { writePage(study, request, out); }), PageCancelled);
}

TEST(Page, IsMadeOfAFileWithoutPointsToo) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 5);
    const std::string page = pageOf(studyOf({file}));
    EXPECT_EQ(openElements(page), std::vector<std::string>());
    EXPECT_TRUE(holds(page, "Nothing is judged: there are no targets."));
}

} // namespace

} // namespace korvel
