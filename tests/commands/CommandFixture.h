// Commands run as the program runs them, on files in a folder of the test's own.
#pragma once

#include "commands/Commands.h"
#include "fakes/FakePlatform.h"
#include "fakes/ResultsFileBuilder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace korvel {

class CommandFixture : public testing::Test {
  protected:
    // The name by which a user calls the file.
    std::string put(const std::string& name, const ResultsFileBuilder& file) {
        fake.putFile(name, file.text());
        return hostPathOf(fake.pathOf(name));
    }

    int run(const std::vector<std::string>& arguments, const ConsoleTraits& console = {}) {
        std::ostringstream outStream, errorStream;
        const int status = runCommand(arguments, fake.platform(), outStream, errorStream, console);
        out = outStream.str();
        errors = errorStream.str();
        return status;
    }

    void expectHolds(const std::string& part) {
        EXPECT_NE(out.find(part), std::string::npos) << part << "\nin " << out;
    }

    FakePlatform fake;
    std::string out, errors;
};

} // namespace korvel
