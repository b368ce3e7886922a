#include "tables/Json.h"

#include "tables/TableSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

const std::string rows =
    "[\n{\"name\":\"=A, \\\"B\\\"\",\"count\":2,\"worst\":{\"value\":0.25,\"feature\":\"Weir\"},"
    "\"sure\":true,\"names\":[\"BOD\",\"Zinc\"]},\n"
    "{\"name\":\"\",\"count\":-3,\"worst\":null,\"sure\":null,\"names\":[]}]";

} // namespace

TEST(JsonText, EscapesWhatNeedsIt) {
    EXPECT_EQ(jsonText("a\"b\\c\n\x1B"), "\"a\\\"b\\\\c\\u000a\\u001b\"");
    EXPECT_EQ(jsonText("\xC9tang"), "\"\xC3\x89tang\"");
}

TEST(Json, WritesRowsAsObjects) {
    EXPECT_EQ(written([](OutputBytes& out) { writeJson(tableSample(), out); }), rows + "\n");
    EXPECT_EQ(written([](OutputBytes& out) { writeJson(tableInParts(), out); }), rows + "\n");
}

TEST(Json, WritesRunsWithTheirFactsAndLists) {
    const auto run = [](const std::string& name) {
        return "\n{\"run\":\"" + name +
               "\",\"at\":{\"reach\":3,\"distance\":null},\"load\":1.5,\n\"rows\":" + rows +
               ",\"agreement\":{\"pass\":1,\"fail\":2}}";
    };
    EXPECT_EQ(written([](OutputBytes& out) { writeJson(reportSample(), out); }),
              "{\"base\":\"a.sgr\",\"runs\":[" + run("b.sgr") + "," + run("c.sgr") + "]}\n");
}

TEST(JsonWriter, SetsCommasByItself) {
    EXPECT_EQ(written([](OutputBytes& out) {
                  JsonWriter json(out);
                  json.beginObject().key("a").value(1).key("b").beginArray().value(2.5).value(Nothing());
                  json.beginArray().endArray().endArray().key("c").beginObject().endObject().endObject();
              }),
              "{\"a\":1,\"b\":[2.5,null,[]],\"c\":{}}");
}

TEST(Json, TellsNoNumberBeyondTheRangeOfDoubles) {
    EXPECT_EQ(written([](OutputBytes& out) { writeJson(tableBeyondRange(), out); }),
              "[\n{\"a\":null,\"b\":null,\"c\":1}]\n");
}

} // namespace korvel
