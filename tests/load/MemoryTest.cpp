// What little memory does, and how much is taken: not with the sanitizers, which map memory of their own.
#include "basic/DiskNames.h"
#include "commands/CommandFixture.h"
#include "commands/CommandList.h"
#include "fakes/ResourceLimits.h"
#include "global/GLOBAL.h"
#include "results/DataSetReading.h"
#include "results/LoadResultsFile.h"
#include "results/ResultsDataSet.h"
#include "results/ResultsReader.h"

namespace korvel {

namespace {

const std::string readError = "box [exclamation] Error: There is an error in reading the data for plotting. "
                              "The file either does not exist, is incomplete, or is in the wrong format.  Or "
                              "it may hold more plotting points than the set maximum of 59999. -> ok\n";

ResultsFileBuilder riverOf(int points) {
    ResultsFileBuilder file;
    file.title("River of " + std::to_string(points)).determinand(1, "BOD").determinand(2, "Ammonia");
    return file.reach(1, "Mill").points(points);
}

std::size_t residentBytes() {
    std::size_t all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * 4096;
}

class Memory : public CommandFixture {
  protected:
    Memory() {
        GLOBAL = {};
        RESULTS = {};
        put("a.sgr", riverOf(3));
    }
    ~Memory() override {
        fake.expectDone();
        GLOBAL = {};
        RESULTS = {};
    }
    Files& files() { return fake.platform().files; }
    std::string river() { return hostPathOf(fake.pathOf("a.sgr")); }
    bool load() {
        GLOBAL.fileNames[0] = fake.pathOf("a.sgr");
        LoadResultsFile(fake, true);
        return !GLOBAL.loadFailed;
    }
};

} // namespace

TEST_F(Memory, IsTakenByThePointsOfAReading) {
    put("b.sgr", riverOf(1000));
    const std::vector<std::string> names(12, fake.pathOf("b.sgr"));
    const std::size_t before = residentBytes();
    const std::vector<ReadDataSet> read = DataSetReading(files(), names).take();
    ASSERT_TRUE(read.back().data);
    // 76 columns of 1000 numbers are 0.6 MB.
    EXPECT_LT(residentBytes() - before, 12u * 2'500'000);
}

TEST_F(Memory, MissingIsARefusalOfAReading) {
    ReadDataSet read;
    {
        const SpareMemory spare(100'000'000);
        read = readDataSet(files(), fake.pathOf("a.sgr"));
    }
    EXPECT_FALSE(read.data);
    EXPECT_EQ(read.refusal, unreadableResults());
    EXPECT_EQ(RESULTS.pointCount, 0);
    EXPECT_EQ(GLOBAL.firstSlotLoads, 0);
    EXPECT_TRUE(readDataSet(files(), fake.pathOf("a.sgr")).data);
}

TEST_F(Memory, MissingIsTheReadErrorOfALoad) {
    fake.willAnswer(Answer::ok);
    {
        const SpareMemory spare(100'000'000);
        EXPECT_FALSE(load());
    }
    EXPECT_EQ(fake.takeTranscript(), readError);
    EXPECT_TRUE(load());
}

TEST_F(Memory, MissingIsErrorSevenOfALargePicture) {
    const std::vector<std::string> picture = {
        "graph", river(), "--reaches", "1", "--series", "0", "--output", hostPathOf(fake.pathOf("g.svg"))};
    EXPECT_EQ(run(picture), exitStatus::done) << errors; // what a first picture keeps is there
    std::vector<std::string> large = picture;
    large.back() = hostPathOf(fake.pathOf("large.png"));
    large.insert(large.end(), {"--size", "10000x10000"});
    int status = exitStatus::done;
    {
        const SpareMemory spare(300'000'000); // the picture takes 400
        status = run(large);
    }
    EXPECT_EQ(status, exitStatus::failed);
    EXPECT_EQ(errors, "[critical] : Run-time error '7': Out of memory\n");
    EXPECT_FALSE(fake.hasFile("large.png"));
}

} // namespace korvel
