#include "publish/Atlas.h"

#include "fakes/FixedTextMetrics.h"
#include "fakes/StudySample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace korvel {

namespace {

using enum ValueField;

// Three reaches, 1 and 3 run into 2; BOD fails at the mill, oxygen is bad when low.
ResultsFileBuilder river(double bodAtMill = 6, const std::string& name = "Upper Mill") {
    ResultsFileBuilder file;
    file.title("The Mill river").determinand(1, "BOD", 1).determinand(1, "DO", 2);
    file.reach(1, name, 4, 2).reach(2, "Lower Mill", 6, 0).reach(3, "Beck", 3, 2);
    file.point(1, 0, "Head", 0).setAll(1).set(targetValue, 1, 4);
    file.point(1, 3, "D/S Works", 3).setAll(2).set(meanValue, 1, bodAtMill).set(targetValue, 1, 4);
    file.set(meanLimit1, 1, bodAtMill - 1).set(meanLimit2, 1, bodAtMill + 1).set(observedMean, 1, 5);
    file.point(2, 1, "Weir", 2).setAll(3).set(targetValue, 1, 9);
    file.point(3, 1, "Spring", 2).setAll(0);
    return file;
}

std::vector<DrawnText> textsOf(const Drawing& drawing) {
    std::vector<DrawnText> found;
    for (const DrawnCommand& command : drawing.commands)
        if (const auto* text = std::get_if<DrawnText>(&command)) found.push_back(*text);
    return found;
}

class AtlasPages {
  public:
    explicit AtlasPages(const std::vector<ResultsFileBuilder>& files,
                        AtlasRequest request = {"", {0, 1, 2, 3, 4}, {2}})
        : m_atlas(studyOf(files), std::move(request), m_metrics) {
        for (std::size_t page = 0; page < m_atlas.pageCount(); ++page)
            m_pages.push_back(m_atlas.page(page));
    }

    const Atlas& atlas() const { return m_atlas; }
    std::size_t count() const { return m_pages.size(); }
    const Drawing& page(std::size_t page) const { return m_pages.at(page); }
    std::vector<DrawnText> texts(std::size_t page) const { return textsOf(m_pages.at(page)); }
    // With blanks between them.
    std::string words(std::size_t page) const {
        std::string all;
        for (const DrawnText& text : texts(page))
            all += text.text + " ";
        return all;
    }
    bool holds(std::size_t page, const std::string& part) const {
        return words(page).find(part) != std::string::npos;
    }

  private:
    FixedTextMetrics m_metrics;
    Atlas m_atlas;
    std::vector<Drawing> m_pages;
};

std::vector<std::string> titlesOf(const DocumentOutline& outline) {
    std::vector<std::string> titles;
    for (const Bookmark& bookmark : outline.bookmarks)
        titles.push_back(std::string(static_cast<std::size_t>(bookmark.level), '>') + bookmark.title);
    return titles;
}

} // namespace

TEST(Atlas, HasAllPartsOfAStudy) {
    const AtlasPages pages({river(), river(3)});
    EXPECT_EQ(
        titlesOf(*pages.atlas().outline()),
        (std::vector<std::string>{"Summary", "Contents", "Verdicts of each run", "Rivers", ">Lower Mill",
                                  ">Beck", "Targets", ">Targets by determinand", ">Targets by reach, a.sgr",
                                  ">Targets by reach, b.sgr", "Changes", ">Changes from a.sgr to b.sgr"}));
    EXPECT_EQ(pages.atlas().title(), "The Mill river");
    EXPECT_EQ(pages.atlas().outline()->language, "en");
    const AtlasPages alone({river()}, {"Own title", {1}, {}});
    EXPECT_EQ(titlesOf(*alone.atlas().outline()),
              (std::vector<std::string>{"Summary", "Contents", "Rivers", ">Lower Mill", ">Beck", "Targets",
                                        ">Targets by determinand", ">Targets by reach, a.sgr"}));
    EXPECT_EQ(alone.atlas().title(), "Own title");
}

TEST(Atlas, NumbersItsPages) {
    const AtlasPages pages({river(), river(3)});
    for (std::size_t page = 0; page < pages.count(); ++page)
        EXPECT_TRUE(pages.holds(page, std::to_string(page + 1) + " of " + std::to_string(pages.count())))
            << page;
}

TEST(Atlas, LeadsFromItsContentsToTheirPages) {
    const AtlasPages pages({river(), river(3)});
    const auto outline = pages.atlas().outline();
    const std::vector<DrawnText> contents = pages.texts(1);
    ASSERT_EQ(outline->links.size(), pages.count());
    ASSERT_EQ(outline->links[1].size(), outline->bookmarks.size());
    for (std::size_t k = 0; k < outline->bookmarks.size(); ++k) {
        const Bookmark& bookmark = outline->bookmarks[k];
        const PageLink& link = outline->links[1][k];
        EXPECT_EQ(link.page, bookmark.page);
        const auto title = std::find_if(contents.begin() + 1, contents.end(),
                                        [&](const DrawnText& text) { return text.text == bookmark.title; });
        ASSERT_NE(title, contents.end()) << bookmark.title;
        const double y = title->corner.y / atlasHeight;
        EXPECT_LE(link.top, y + 1e-9);
        EXPECT_GE(link.bottom, y + 0.8 * title->height / atlasHeight);
        const auto number = std::ranges::find_if(contents, [&](const DrawnText& text) {
            return text.corner.y == title->corner.y && text.text == std::to_string(bookmark.page + 1);
        });
        EXPECT_NE(number, contents.end()) << bookmark.title;
        if (bookmark.level == 1) {
            EXPECT_EQ(pages.texts(bookmark.page).front().text, bookmark.title);
        }
    }
}

TEST(Atlas, SaysWhatWasJudgedAndFound) {
    const AtlasPages pages({river(), river(3)});
    for (const char* words :
         {"The Mill river", "Profiles, targets and changes of 2 runs", "a.sgr", "b.sgr",
          "Judged: BOD by the mean; DO by the 95 percentile, low is bad. Unless said otherwise, high is bad.",
          "2 of 3 reaches are judged: 1 meets every target, 1 fails at least one. With confidence 1 "
          "fails, 0 pass and 1 is unsure.",
          "Failing: BOD in 1 reach (1.2 km).",
          "The worst: BOD at Works in Upper Mill, 6.000 where 4.000 is the target.",
          "Network of a.sgr: what its reaches come to", "Written by KORVEL",
          "Against a.sgr: 1 reach from fail to pass, 0 reaches from pass to fail;"})
        EXPECT_TRUE(pages.holds(0, words)) << words << "\n" << pages.words(0);
}

TEST(Atlas, TellsOfManyRunsOnThePagesOfTheirVerdicts) {
    const AtlasPages pages(std::vector<ResultsFileBuilder>(12, river()));
    EXPECT_TRUE(pages.holds(0, "Further runs: see the verdicts of each run."));
    EXPECT_TRUE(pages.holds(0, "km to the mouth")); // the network keeps its place
    int told = 0;
    for (std::size_t page = 2; page < 8; ++page)
        for (const DrawnText& text : pages.texts(page))
            told += text.text.starts_with("2 of 3 reaches are judged");
    EXPECT_EQ(told, 12);
}

TEST(Atlas, ShowsConcentrationsAsTheyAreJudged) {
    const AtlasPages pages({river()});
    std::string words;
    for (std::size_t page = 0; page < pages.count(); ++page)
        words += pages.words(page);
    for (const char* title :
         {"Flow, mean", "BOD (Conc), mean", "DO (Conc), 95 percentile", "DO (Load), mean"})
        EXPECT_NE(words.find(title), std::string::npos) << title;
    EXPECT_EQ(words.find("DO (Conc), mean"), std::string::npos);
}

TEST(Atlas, ShowsKeyTargetsSamplesAndFeaturesOfEachRiver) {
    const AtlasPages pages({river(), river(3)}, {"", {1}, {2}});
    const auto outline = pages.atlas().outline();
    const auto mill = std::ranges::find(outline->bookmarks, "Lower Mill", &Bookmark::title);
    ASSERT_NE(mill, outline->bookmarks.end());
    for (const char* words : {"a.sgr", "b.sgr", "target", "observed", "confidence limits", "Works", "Weir",
                              "Upper Mill", "Lower Mill", "km", "10.0 km, 2 reaches"})
        EXPECT_TRUE(pages.holds(mill->page, words)) << words << "\n" << pages.words(mill->page);
    std::size_t crosses = 0, bands = 0;
    for (const DrawnCommand& command : pages.page(mill->page).commands) {
        crosses += std::holds_alternative<DrawnMarker>(command);
        bands += std::holds_alternative<DrawnBand>(command);
    }
    EXPECT_GE(crosses, 2U); // a sample and the one of the key
    EXPECT_GE(bands, 3U);
}

TEST(Atlas, KeepsItsTextsOnThePage) {
    std::string hostile = "<script>=1+1 \x07\\(" + std::string(300, 'W');
    AtlasRequest request{hostile + " " + hostile, {0, 1, 2, 3, 4}, {2}};
    const AtlasPages pages(std::vector<ResultsFileBuilder>(12, river(7, "=cmd()\xE4\xFF (x")), request);
    for (std::size_t page = 0; page < pages.count(); ++page)
        for (const DrawnText& text : pages.texts(page)) {
            EXPECT_GE(text.corner.x, -1) << text.text;
            EXPECT_LE(text.corner.x + text.width, atlasWidth + 1) << text.text;
            EXPECT_GE(text.corner.y, -1) << text.text;
            EXPECT_LE(text.corner.y + text.height, atlasHeight + 1) << page << ' ' << text.text;
        }
}

TEST(Atlas, ShowsNoControlCharacters) {
    ResultsFileBuilder file = river(7, "Mi\x01ll\tB\x7F");
    file.title("The \x1B[31mMill\x9D").point(2, 2, "D/S W\x07ks", 3).setAll(2);
    const AtlasPages pages({file, file}, {"", {0, 1, 2, 3, 4}, {2}});
    std::string all;
    for (std::size_t page = 0; page < pages.count(); ++page)
        all += pages.words(page);
    for (const std::string& title : titlesOf(*pages.atlas().outline()))
        all += title;
    EXPECT_TRUE(std::ranges::none_of(all, [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; }));
    EXPECT_EQ(all.find("\u009d"), std::string::npos);
    EXPECT_EQ(pages.atlas().title(), "The [31mMill");
    for (const char* words : {"Mill B", "Wks"})
        EXPECT_NE(all.find(words), std::string::npos) << words;
}

TEST(Atlas, KeepsNamesFromRightToLeftFromTurningItsWords) {
    ResultsFileBuilder file;
    file.title("River").determinand(1, "\u05de\u05dc\u05d7", 1).reach(1, "\u05e0\u05d4\u05e8", 4, 0);
    file.point(1, 0, "Head", 0).setAll(1).point(1, 3, "D/S Works", 3).setAll(2).set(targetValue, 1, 4);
    ResultsFileBuilder other = file;
    other.set(meanValue, 1, 3);
    const AtlasPages pages({file, other}, {"", {0, 1}, {}});
    const std::string salt = "\u2068\u05de\u05dc\u05d7\u2069", river = "\u2068\u05e0\u05d4\u05e8\u2069";
    EXPECT_TRUE(pages.holds(0, "Judged: " + salt + " by the mean")) << pages.words(0);
    EXPECT_TRUE(pages.holds(pages.count() - 1, "1 " + river)) << pages.words(pages.count() - 1);
}

TEST(Atlas, ShowsReachesOneByOneWhereTheyRunInACircle) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD")
        .reach(1, "A", 5, 2)
        .reach(2, "B", 5, 1)
        .point(1, 1, "P", 10)
        .point(2, 1, "Q", 10);
    const AtlasPages pages({file, file});
    EXPECT_EQ(titlesOf(*pages.atlas().outline()).at(3), ">A");
    EXPECT_TRUE(pages.holds(0, "Reaches 1, 2 run in a circle"));
}

TEST(Atlas, StandsAFileWithoutPoints) {
    ResultsFileBuilder file;
    file.determinand(1, "BOD").reach(1, "A", 5, 0);
    const AtlasPages pages({file});
    EXPECT_TRUE(pages.holds(0, "No reach has targets to be judged by."));
    const auto titles = titlesOf(*pages.atlas().outline());
    EXPECT_EQ(std::ranges::count(titles, "Rivers"), 0);
}

TEST(AtlasTable, HasEveryRowOnOnePage) {
    AtlasTable table;
    table.headings = {"Name", "Number"};
    table.textColumns = {true, false};
    const FixedTextMetrics metrics;
    for (const std::size_t rows : {0, 1, 40, 41, 42, 43, 500}) {
        table.rows.assign(rows, {"a", "1"});
        if (rows > 40) table.rows[40][0] = std::string(400, 'x') + " " + std::string(400, 'y');
        const TableLayout layout(table, metrics);
        std::size_t next = 0;
        for (const TablePart& part : layout.parts()) {
            EXPECT_EQ(part.from, next);
            next = part.to;
            AtlasSheet sheet(metrics);
            layout.paint(part, sheet);
            std::size_t numbers = 0;
            for (const DrawnText& text : textsOf(sheet.drawing())) {
                EXPECT_LE(text.corner.y + text.height, AtlasSheet::bottom() + 1);
                numbers += text.text == "1";
            }
            EXPECT_EQ(numbers, part.to - part.from);
        }
        EXPECT_EQ(next, rows);
        EXPECT_EQ(layout.parts().size() > 1, rows > 40) << rows;
    }
}

TEST(AtlasTable, KeepsCellsApart) {
    const FixedTextMetrics metrics;
    AtlasTable table;
    table.headings = {"Name", "Some heading of words", "At", "Number"};
    table.textColumns = {true, false, true, false};
    table.rows = {{std::string(150, 'n'), "-0.00001234", std::string(90, 'f'), "1"}, {"short", "2", "", "3"}};
    AtlasSheet sheet(metrics);
    const TableLayout layout(table, metrics);
    layout.paint(layout.parts().front(), sheet);
    const std::vector<DrawnText> texts = textsOf(sheet.drawing());
    std::string names;
    for (std::size_t k = 0; k < texts.size(); ++k) {
        if (texts[k].text.starts_with("nn")) names += texts[k].text;
        EXPECT_LE(texts[k].corner.x + texts[k].width, atlasWidth + 1) << texts[k].text;
        for (std::size_t j = 0; j < k; ++j) {
            const bool apart = texts[k].corner.x >= texts[j].corner.x + texts[j].width + 100 ||
                               texts[j].corner.x >= texts[k].corner.x + texts[k].width + 100 ||
                               texts[k].corner.y >= texts[j].corner.y + 0.9 * texts[j].height ||
                               texts[j].corner.y >= texts[k].corner.y + 0.9 * texts[k].height;
            EXPECT_TRUE(apart) << texts[k].text << " and " << texts[j].text;
        }
    }
    EXPECT_EQ(names, table.rows[0][0]);
}

// Names of 40 letters without a blank, and ten determinands.
TEST(AtlasTable, CutsNoText) {
    const auto name = [](char letter) { return std::string(1, letter) + std::string(38, 'm') + letter; };
    ResultsFileBuilder file = river(6, name('R')), changed = river(3, name('R'));
    for (ResultsFileBuilder* each : {&file, &changed}) {
        const double value = each == &file ? 2.5 : 123456.789;
        for (int d = 3; d <= 10; ++d)
            each->determinand(1, name(static_cast<char>('A' + d)), 1);
        each->point(1, 3.5, name('F'), 3).setAll(value);
        for (int d = 1; d <= 10; ++d)
            each->set(targetValue, d, 2);
    }
    AtlasRequest request;
    for (int series = 0; series <= 20; ++series)
        request.series.push_back(series);
    const AtlasPages pages({file, changed}, request);
    std::size_t first = 0;
    const auto outline = pages.atlas().outline();
    for (const Bookmark& bookmark : outline->bookmarks)
        if (bookmark.title == "Targets") first = bookmark.page;
    ASSERT_GT(first, 0U);
    std::string words;
    for (std::size_t page = first; page < pages.count(); ++page)
        for (const DrawnText& text : pages.texts(page)) {
            EXPECT_EQ(text.text.find("\u2026"), std::string::npos) << text.text;
            EXPECT_LE(text.corner.x + text.width, atlasWidth + 1) << text.text;
            words += text.text;
        }
    for (const char letter : {'D', 'F', 'K', 'R'})
        EXPECT_NE(words.find(name(letter).substr(0, 5)), std::string::npos) << letter;
}

TEST(AtlasSheet, GivesALongTitleTwoLines) {
    const FixedTextMetrics metrics;
    AtlasSheet sheet(metrics), plain(metrics);
    const std::string title = "Changes from " + std::string(60, 'a') + " to " + std::string(60, 'b');
    EXPECT_GT(sheet.head(title, "rows 1 to 4"), plain.head("Changes", "rows 1 to 4"));
    const std::vector<DrawnText> texts = textsOf(sheet.drawing());
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(texts[0].text + " " + texts[1].text, title);
    EXPECT_GT(texts[2].corner.x, texts[0].corner.x + texts[0].width);
}

TEST(AtlasTable, RoundsPercentsToOneDecimal) {
    const Table numbers{"numbers", {{"n"}, {"percent"}}, [](RowTaker& taker) {
                            taker.row(std::vector<Cell>{0.38481, -27.7182});
                        }};
    const AtlasTable made = atlasTable(numbers, {{{"n", "N"}, {"percent", "%", AtlasNumber::percent}}});
    EXPECT_EQ(made.rows.front(), (std::vector<std::string>{"0.3848", "-27.7"}));
}

TEST(AtlasTable, TellsOfRowsThatItLeavesOut) {
    const Table numbers{"numbers", {{"n"}}, [](RowTaker& taker) {
                            for (int n = 0; n < 9; ++n)
                                taker.row(std::vector<Cell>{n});
                        }};
    const AtlasTable made = atlasTable(numbers, {{{"n", "N"}}, {}, "", 5});
    EXPECT_EQ(made.rows.size(), 5U);
    EXPECT_EQ(made.note, "The first 5 of 9 rows.");
    EXPECT_EQ(atlasTable(numbers, {{{"n", "N"}}, {}, "", 9}).note, "");
}

TEST(Wrapped, BreaksAtBlanks) {
    const FixedTextMetrics metrics;
    const Font font{"Arial", 10, false}; // 100 twips a letter
    EXPECT_EQ(wrapped("one two three", 700, font, metrics), (std::vector<std::string>{"one two", "three"}));
    EXPECT_EQ(wrapped("one", 700, font, metrics), (std::vector<std::string>{"one"}));
    EXPECT_EQ(wrapped("", 700, font, metrics), std::vector<std::string>());
    EXPECT_EQ(wrapped("immeasurable it", 500, font, metrics),
              (std::vector<std::string>{"immea", "surab", "le it"}));
    EXPECT_EQ(wrapped("\u00e9\u00e9\u00e9", 50, font, metrics),
              (std::vector<std::string>{"\u00e9", "\u00e9", "\u00e9"}));
}

} // namespace korvel
