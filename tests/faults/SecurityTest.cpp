// Hostile names and a hostile search path: nothing but the engine in the application folder is started, and
// no name is taken for a command.
#include "endtoend/Installation.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

class Security : public testing::Test {
  protected:
    Security() {
        korvel.putEngine("printf 'arguments %s' $#\ncp RUNDAT.TMP seen\n");
        for (const char* name : {"korvelf157.exe", "KORVELF157.EXE", "korvel", "sh", "wine"}) {
            const std::string fake = korvel.data("path/" + std::string(name));
            write(fake, "#!/bin/bash\n: > '" + korvel.data("hijacked") + "'\n");
            fs::permissions(fake, fs::perms::all);
        }
    }
    Outcome runHere(std::vector<std::string> arguments) const {
        const Surroundings hostile{korvel.dataFolder(), {"PATH=" + korvel.data("path") + ":/usr/bin:/bin"}};
        return korvel.runKorvel(arguments, hostile);
    }
    // Everything below the data folder and in the application folder.
    bool anyFileNamed(const std::string& name) const {
        for (const std::string& top : {korvel.dataFolder(), korvel.application("")})
            for (const auto& entry : fs::recursive_directory_iterator(top))
                if (entry.path().filename() == name) return true;
        return false;
    }

    const Installation korvel;
};

const char* const hostileNames[] = {"$(touch x)",      "`touch x`", "a;touch x;", "a\"; touch x; \"",
                                    "a'; touch x; 'b", "a|touch x", "a&touch x&", "-rf",
                                    "--wait; touch x", "%s%n",      "*",          "a > x"};

} // namespace

TEST_F(Security, NoNameOfADataFileReachesAShell) {
    for (const std::string name : hostileNames) {
        const std::string file = korvel.data("in " + name + "/" + name + ".DAT");
        write(file, "");
        fs::remove(korvel.application("seen"));
        const Outcome outcome = runHere({"run", "--wait", "--", file});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out, "arguments 0") << name;
        const std::string folder = inCapitals(modelNameOf(korvel.data("in " + name))) + "\\";
        EXPECT_EQ(contentOf(korvel.application("seen")),
                  "SINGLE\r\n" + folder + "\r\n" + folder + inCapitals(name) + ".DAT\r\n 0 \r\n");
    }
    EXPECT_FALSE(anyFileNamed("x") || anyFileNamed("X"));
    EXPECT_FALSE(anyFileNamed("hijacked"));
}

TEST_F(Security, NoNameInABatchReachesAShell) {
    std::vector<std::string> arguments = {"batch", "--wait", "--title", "$(touch x); `touch x`", "--"};
    for (const std::string name : hostileNames) {
        write(korvel.data("$(touch x)/" + name + ".DAT"), "");
        arguments.push_back(korvel.data("$(touch x)/" + name + ".DAT"));
    }
    const Outcome outcome = runHere(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(contentOf(korvel.application("seen")).starts_with("$(touch x); `touch x`\r\n"));
    EXPECT_FALSE(anyFileNamed("x") || anyFileNamed("X"));
    EXPECT_FALSE(anyFileNamed("hijacked"));
}

TEST_F(Security, ANameWithALineEndIsRefused) {
    const std::string file = korvel.data("a\r\nZ:\\OTHER\\\r\nB.DAT"), plain = korvel.data("a\nb/C.DAT");
    write(file, "");
    write(plain, "");
    for (const std::string& name : {file, plain})
        for (const char* command : {"run", "batch", "info"}) {
            const Outcome outcome = runHere({command, name});
            EXPECT_EQ(outcome.status, 1) << command;
            EXPECT_TRUE(outcome.err.starts_with("[exclamation] File name: The name holds a ")) << outcome.err;
        }
    EXPECT_FALSE(fs::exists(korvel.application("RUNDAT.TMP")));
    EXPECT_FALSE(fs::exists(korvel.application("seen")));
}

TEST_F(Security, AnEngineInTheSearchPathIsNotStarted) {
    write(korvel.data("A.DAT"), "");
    fs::remove(korvel.application("korvelf157.exe"));
    const Outcome outcome = runHere({"run", "--wait", korvel.data("A.DAT")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] : Run-time error '53': File not found\n");
    EXPECT_FALSE(anyFileNamed("hijacked"));
}

} // namespace korvel
