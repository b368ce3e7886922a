#include "results/DataSetReading.h"

#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"
#include "global/GLOBAL.h"
#include "results/ResultsReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>

namespace korvel {

namespace {

using enum ValueField;

ResultsFileBuilder riverOf(int points) {
    ResultsFileBuilder file;
    file.title("River of " + std::to_string(points)).determinand(1, "BOD").determinand(2, "Ammonia");
    return file.reach(1, "Mill").points(points);
}

class Reading : public testing::Test {
  protected:
    Reading() {
        GLOBAL = {};
        RESULTS = {};
    }
    ~Reading() override {
        EXPECT_EQ(RESULTS.pointCount, 0);
        EXPECT_FALSE(RESULTS.values[0].everWritten());
        EXPECT_EQ(GLOBAL.firstSlotLoads, 0);
        EXPECT_FALSE(GLOBAL.loadFailed);
        EXPECT_EQ(fake.takeTranscript(), "");
        fake.expectDone();
    }

    std::string put(const std::string& name, const std::string& text) {
        fake.putFile(name, text);
        return fake.pathOf(name);
    }
    Files& files() { return fake.platform().files; }

    FakePlatform fake;
};

// Keeps whoever reads waiting until the gate opens.
class GatedFiles : public FakePlatform {
  public:
    explicit GatedFiles(std::string text) : m_text(std::move(text)) {}
    std::promise<void> gate;
    bool isRead() const { return m_openSources > 0; }

  private:
    class Source : public TextSource {
      public:
        explicit Source(GatedFiles& files) : TextSource(files.m_text), m_files(files) {
            ++files.m_openSources;
        }
        ~Source() override { --m_files.m_openSources; }
        std::size_t read(char* into, std::size_t capacity) override {
            m_files.m_opened.wait();
            return TextSource::read(into, capacity);
        }

      private:
        GatedFiles& m_files;
    };

    std::unique_ptr<ByteSource> open(const std::string&) override { return std::make_unique<Source>(*this); }

    std::string m_text;
    std::shared_future<void> m_opened = gate.get_future().share();
    std::atomic<int> m_openSources = 0;
};

} // namespace

TEST_F(Reading, GivesADataSetOfItsOwn) {
    const ReadDataSet read = readDataSet(files(), put("a.sgr", riverOf(3).text()));
    EXPECT_FALSE(read.refusal);
    ASSERT_TRUE(read.data);
    EXPECT_EQ(read.data->resultsTitle, "River of 3");
    EXPECT_EQ(read.data->pointCount, 3);
    EXPECT_EQ(read.data->seriesCount, 4);
    EXPECT_EQ(read.data->values[0].at(percentileLimit2, 3, 4, 2),
              ResultsFileBuilder::value(3, percentileLimit2, 4, 2));
    EXPECT_FALSE(read.data->values[1].everWritten());
}

TEST_F(Reading, RefusesWithTheReadersMessage) {
    const std::string whole = riverOf(3).text();
    const std::string cut = put("cut.sgr", whole.substr(0, 400));
    const std::string eleven = put("eleven.sgr", riverOf(3).determinandCount("11").text());
    for (const std::string& name : {fake.pathOf("none.sgr"), cut, eleven, std::string()}) {
        const ReadDataSet read = readDataSet(files(), name);
        EXPECT_FALSE(read.data);
        EXPECT_EQ(read.refusal, unreadableResults()) << name;
    }
}

TEST_F(Reading, TellsItsProgress) {
    std::vector<double> shares;
    readDataSet(files(), put("a.sgr", riverOf(2000).text()),
                {.progress = [&](double share) { shares.push_back(share); }});
    EXPECT_GT(shares.size(), 50u);
    EXPECT_LT(shares.size(), 150u);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_GT(shares.back(), 0.95);
}

TEST_F(Reading, EndsWithNeitherDataNorMessageWhenCancelled) {
    std::stop_source cancel;
    std::vector<double> shares;
    const auto cancelHalfWay = [&](double share) {
        shares.push_back(share);
        if (share > 0.5) cancel.request_stop();
    };
    const ReadDataSet read = readDataSet(files(), put("a.sgr", riverOf(2000).text()),
                                         {.progress = cancelHalfWay, .cancel = cancel.get_token()});
    EXPECT_FALSE(read.data);
    EXPECT_FALSE(read.refusal);
    EXPECT_LT(shares.back(), 0.6);
}

TEST_F(Reading, ReadsManyFilesSideBySideInTheOrderOfTheirNames) {
    std::vector<std::string> names;
    for (int k = 1; k <= 12; ++k)
        names.push_back(put("r" + std::to_string(k) + ".sgr", riverOf(100 * k).text()));
    names.insert(names.begin() + 5, fake.pathOf("none.sgr"));
    DataSetReading reading(files(), names);
    const std::vector<ReadDataSet> read = reading.take();
    EXPECT_TRUE(reading.isDone());
    EXPECT_EQ(reading.share(), 1);
    ASSERT_EQ(read.size(), 13u);
    EXPECT_EQ(read[5].refusal, unreadableResults());
    for (int k = 1; k <= 12; ++k) {
        const ReadDataSet& one = read[static_cast<std::size_t>(k <= 5 ? k - 1 : k)];
        ASSERT_TRUE(one.data);
        ASSERT_EQ(one.data->pointCount, 100 * k);
        for (int i = 1; i <= 100 * k; ++i)
            ASSERT_EQ(one.data->values[0].at(meanLimit1, i, 3), ResultsFileBuilder::value(i, meanLimit1, 3));
    }
}

TEST_F(Reading, HasNothingToDoWithoutNames) {
    DataSetReading reading(files(), {});
    EXPECT_TRUE(reading.isDone());
    EXPECT_EQ(reading.share(), 1);
    EXPECT_TRUE(reading.take().empty());
}

TEST_F(Reading, CancelsWhatIsBeingReadAndWhatWaits) {
    GatedFiles gated(riverOf(50).text());
    DataSetReading reading(gated.platform().files, std::vector<std::string>(12, "any"));
    EXPECT_FALSE(reading.isDone());
    EXPECT_LT(reading.share(), 1);
    reading.cancel();
    gated.gate.set_value();
    for (const ReadDataSet& one : reading.take()) {
        EXPECT_FALSE(one.data);
        EXPECT_FALSE(one.refusal);
    }
    EXPECT_TRUE(reading.isDone());
}

TEST_F(Reading, TellsWhoWaitsWhetherAllIsDone) {
    GatedFiles gated(riverOf(50).text());
    DataSetReading reading(gated.platform().files, std::vector<std::string>(3, "any"));
    EXPECT_FALSE(reading.waitFor(std::chrono::milliseconds(1)));
    std::jthread opener([&] { gated.gate.set_value(); });
    EXPECT_TRUE(reading.waitFor(std::chrono::hours(1)));
    EXPECT_EQ(reading.share(), 1);
}

TEST_F(Reading, WaitsForItsThreadsWhenItIsLeft) {
    GatedFiles gated(riverOf(50).text());
    std::thread opener;
    {
        const DataSetReading left(gated.platform().files, std::vector<std::string>(12, "any"));
        opener = std::thread([&] { gated.gate.set_value(); });
    }
    opener.join();
    EXPECT_FALSE(gated.isRead());
}

} // namespace korvel
