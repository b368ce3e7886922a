#include "fuzz/Corpus.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace korvel {

namespace {

std::string corpusOf(const std::string& harness) {
    std::ifstream file(std::string(KORVEL_CORPORA) + "/" + harness + ".corpus", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Kept {
    const char* harness;
    std::size_t least; // how many inputs there were when they were packed; merging may leave out some
    std::vector<std::string> named;
};

const std::vector<Kept> keptInputs{
    {"command_lists",
     200,
     {"batch", "csv", "endless-scroll", "graph-run", "graph-sites", "help-page", "info", "listing",
      "minus-zero", "names", "report", "run"}},
    {"engine_data", 200, {"batch", "single-run", "small-river", "with-gap-filling"}},
    {"engine_output", 80, {"batch", "long"}},
    {"help_page", 60, {"page-11", "page-4", "page-5"}},
    {"list_input", 120, {"ends", "numbers", "texts"}},
    {"listing", 110, {"all-codes", "boxes", "two-pages"}},
    {"results_first", 190, {"flow-alone", "free-format", "one-determinand", "two-determinands"}},
    {"results_second",
     210,
     {"both-files", "both-with-targets", "fits-the-river", "lone_quote_in_a_caption", "other-mode",
      "other-reach", "shorter"}},
    {"settings", 130, {"as-written", "quoted", "true-flag"}}};

} // namespace

TEST(Corpus, GivesEachInputItsNameAndItsBytes) {
    const auto inputs = corpusInputs("korvel corpus 3\nempty 0\n\nlines 3\na\n\n\nnamed 9\nnamed 2\nx\n");
    ASSERT_EQ(inputs.size(), 3u);
    EXPECT_EQ(inputs[0].name, "empty");
    EXPECT_EQ(inputs[0].bytes, "");
    EXPECT_EQ(inputs[1].bytes, "a\n\n");
    EXPECT_EQ(inputs[2].name, "named");
    EXPECT_EQ(inputs[2].bytes, "named 2\nx");
}

TEST(Corpus, RefusesWhatIsCutOffOrMiscounted) {
    for (const char* text :
         {"", "korvel corpus 1", "korvel corpus 1\n", "korvel corpus x\na 1\nb\n", "corpus 1\na 1\nb\n",
          "korvel corpus 2\na 1\nb\n", "korvel corpus 1\na 1\nb\na 1\nb\n", "korvel corpus 1\na 2\nb\n",
          "korvel corpus 1\na 1\nb", "korvel corpus 1\na 1\nbc\n", "korvel corpus 1\na\nb\n",
          "korvel corpus 1\na 1x\nb\n"})
        EXPECT_THROW(corpusInputs(text), std::runtime_error) << text;
}

TEST(Corpus, HoldsEveryHarnesssInputsAndTheNamedOnes) {
    for (const Kept& kept : keptInputs) {
        const std::string text = corpusOf(kept.harness);
        std::set<std::string> names;
        for (const CorpusInput& input : corpusInputs(text))
            names.insert(input.name);
        EXPECT_GE(names.size(), kept.least) << kept.harness;
        EXPECT_EQ(text.substr(0, text.find('\n')), "korvel corpus " + std::to_string(names.size()));
        for (const std::string& name : kept.named)
            EXPECT_TRUE(names.contains(name)) << kept.harness << ": " << name;
    }
}

} // namespace korvel
