// Two runs of a small river, for the commands that look at studies.
#pragma once

#include "commands/CommandFixture.h"

namespace korvel {

class StudyCommands : public CommandFixture {
  protected:
    // Two reaches: 1 runs into 2. BOD is judged by its mean, DO (bad when low) too.
    static ResultsFileBuilder river(double bodAtMill = 6) {
        using enum ValueField;
        ResultsFileBuilder file;
        file.determinand(1, "BOD", 1).determinand(1, "DO", 1);
        file.reach(1, "Upper, Mill", 4, 2).reach(2, "Lower", 6, 0);
        file.point(1, 0, "=Head", 0)
            .setAll(0)
            .set(meanValue, 0, 2)
            .set(meanValue, 1, 2)
            .set(targetValue, 1, 4);
        file.set(meanValue, 2, 9).set(meanValue, 3, 10);
        file.point(1, 4, "Mill", 1)
            .setAll(0)
            .set(meanValue, 0, 2)
            .set(meanValue, 1, bodAtMill)
            .set(targetValue, 1, 4);
        file.set(meanLimit1, 1, bodAtMill - 1).set(meanLimit2, 1, bodAtMill + 1).set(observedMean, 1, 5);
        file.set(meanValue, 2, 8).set(targetValue, 2, 10).set(meanValue, 3, 25);
        file.point(2, 0, "", 99).setAll(0).set(meanValue, 0, 2).set(meanValue, 1, 1).set(meanValue, 3, 25);
        return file;
    }

    void expectOut(const std::vector<std::string>& arguments, const std::string& expected) {
        EXPECT_EQ(run(arguments), 0) << errors;
        EXPECT_EQ(out, expected);
        EXPECT_EQ(errors, "");
    }

    void expectRefused(const std::vector<std::string>& arguments, int status, const std::string& words) {
        EXPECT_EQ(run(arguments), status);
        EXPECT_EQ(out, "");
        EXPECT_NE(errors.find(words), std::string::npos) << errors;
    }

    // The number that follows a key, for the first time.
    double numberAfter(const std::string& key) {
        const auto at = out.find("\"" + key + "\":");
        EXPECT_NE(at, std::string::npos) << key << " in " << out;
        return at == std::string::npos ? 0 : std::stod(out.substr(at + key.size() + 3));
    }

    std::string a = put("a.sgr", river()), b = put("b.sgr", river(3));
};

} // namespace korvel
