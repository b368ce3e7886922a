#include "tables/PeopleNumbers.h"
#include "tables/TableFormats.h"
#include "tables/TableSample.h"
#include "tables/TextRows.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvel {

TEST(PeopleNumbers, HaveAboutFourFigures) {
    const struct {
        double value;
        const char* shown;
    } cases[] = {{0, "0"},           {1, "1.000"},          {12.3456, "12.35"},
                 {123.456, "123.5"}, {1234.56, "1235"},     {123456, "123456"},
                 {-0.5, "-0.5000"},  {0.012345, "0.01235"}, {1e10, "1.000e+10"},
                 {1e-6, "1.000e-06"}};
    for (const auto& [value, shown] : cases)
        EXPECT_EQ(shownNumber(value), shown);
    EXPECT_EQ(shownNumber(std::optional<double>()), "-");
    EXPECT_EQ(shownDecimals(-0.04, 1), "0.0");
    EXPECT_EQ(shownKm(3.36), "3.36 km");
    EXPECT_EQ(counted(1, "reach", "reaches"), "1 reach");
    EXPECT_EQ(counted(0, "reach", "reaches"), "0 reaches");
}

TEST(PeopleNumbers, HaveOnTheScreenThePowersOfTenThatAxesHave) {
    const struct {
        double value;
        const char* shown;
    } cases[] = {{0, "0"},
                 {12.3456, "12.35"},
                 {-123456, "-123456"},
                 {9999000, "9999000"},
                 {407279893, "4.073E8"},
                 {-1.5e9, "-1.500E9"},
                 {1e12, "1.000E12"},
                 {0.000123456, "0.0001235"},
                 {0.00002052, "2.052E-5"},
                 {1.374e-6, "1.374E-6"},
                 {0.99999, "1.000"}, // four figures after rounding, too
                 {9.9996, "10.00"},
                 {999.96, "1000"}};
    for (const auto& [value, shown] : cases)
        EXPECT_EQ(shownFigures(value), shown);
    EXPECT_EQ(shownFigures(std::numeric_limits<double>::infinity()), "-");
}

TEST(PeopleNumbers, AreNoneBeyondTheRangeOfDoubles) {
    EXPECT_EQ(shownNumber(std::numeric_limits<double>::infinity()), "-");
    EXPECT_EQ(shownNumber(std::numeric_limits<double>::quiet_NaN()), "-");
}

TEST(Controls, AreShownWithCarets) {
    EXPECT_EQ(withVisibleControls("a\x1B[31mb\x07\x7F\t"), "a^[[31mb^G^?^I");
    EXPECT_EQ(withVisibleControls("\xC2\x9B"
                                  "31m"),
              "^[[31m");
    EXPECT_EQ(withVisibleControls("\xC3\x89tang"), "\xC3\x89tang");
}

TEST(Colours, AreForTerminalsAlone) {
    EXPECT_EQ(toned("fail", TextTone::bad, {}), "fail");
    EXPECT_EQ(toned("fail", TextTone::bad, {true}), "\033[31mfail\033[0m");
    EXPECT_EQ(toned("fail", TextTone::plain, {true}), "fail");
}

TEST(TextTable, AlignsColumnsWhateverTheirColour) {
    TextTable table({"Verdict", "Value"}, {0});
    table.row({TextCell("fail", TextTone::bad), "1.5"});
    table.row({"\xC9\x1B", "10.25"});
    EXPECT_EQ(table.text(), "Verdict  Value\nfail       1.5\n\xC3\x89^[      10.25\n");
    EXPECT_EQ(table.text({true}),
              "\033[1mVerdict\033[0m  \033[1mValue\033[0m\n\033[31mfail\033[0m       1.5\n"
              "\xC3\x89^[      10.25\n");
}

TEST(TextRows, ShowAnyTable) {
    EXPECT_EQ(textTable(tableSample()).text(),
              "name     count  worst value  worst feature  sure  names\n"
              "=A, \"B\"      2       0.2500  Weir            yes  BOD; Zinc\n"
              "            -3            -  -                 -\n");
}

TEST(TableFormats, AreFoundByNameAndByExtension) {
    EXPECT_EQ(formatNamed("csv")->name, "csv");
    EXPECT_EQ(formatNamed("CSV"), nullptr);
    EXPECT_EQ(formatNamed("odt"), nullptr);
    EXPECT_EQ(formatOfExtension("Z:\\a.JSON")->name, "json");
    EXPECT_EQ(formatOfExtension("Z:\\a.Txt")->name, "text");
    EXPECT_EQ(formatOfExtension("Z:\\csv"), nullptr);
}

} // namespace korvel
