// The built program and the engine where disks, folders and files fail: what is said, and what stays as it
// was.
#include "endtoend/Installation.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace korvel {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

const char* const unreadable = "[exclamation] Error: There is an error in reading the data for plotting. The "
                               "file either does not exist, is incomplete, or is in the wrong format.  Or it "
                               "may hold more plotting points than the set maximum of 59999.\n";

Words joined(Words first, const Words& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

// A small disk at $1 with an old file $2 on it and no room for more; what is left of both lands in $3 and $4.
const char* const onFullDisk = "mount -t tmpfs -o size=16k none \"$1\" || exit 97\n"
                               "printf good > \"$1/$2\"\n"
                               "dd if=/dev/zero of=\"$1/filler\" bs=4k count=3 2>/dev/null\n"
                               "disk=$1 old=$2 kept=$3 names=$4; shift 4\n"
                               "\"$@\"; status=$?\n"
                               "cat \"$disk/$old\" > \"$kept\"; ls -A \"$disk\" > \"$names\"; exit $status\n";

class Faults : public testing::Test {
  protected:
    Faults() { korvel.putResults("ALDER.SGR"); }

    Outcome inSmallWorld(const char* script, const Words& arguments) const {
        return runProgram(joined({"unshare", "-Urm", "sh", "-c", script, "sh"}, arguments));
    }
    bool canMount() const {
        return inSmallWorld("mount -t tmpfs none \"$1\"", {korvel.dataFolder()}).status == 0;
    }
    // Root may do everything, so that permissions are tried as nobody.
    Outcome asNobody(const Words& arguments) const {
        if (geteuid() != 0) return korvel.runKorvel(arguments);
        return runProgram(joined({"setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups"},
                                 korvel.korvel(arguments)));
    }
    std::string results() const { return korvel.data("ALDER.SGR"); }
    Words report(const char* command, const std::string& output) const {
        return {command, results(), "--determinands", "1", "--output", output};
    }
    Words graph(const std::string& output) const {
        return {"graph", results(), "--from", "1", "--to", "14", "--series", "0", "--output", output};
    }
    void close(const std::string& folder) const {
        fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                    fs::perms::others_exec);
    }
    void open(const std::string& folder) const { fs::permissions(folder, fs::perms::all); }

    const Installation korvel;
};

struct Placed {
    const char* name;
    const char* number; // and words of the failure
};

} // namespace

TEST_F(Faults, AFullDiskKeepsTheOldFileOfEveryWriter) {
    if (!canMount()) GTEST_SKIP() << "this machine lets no user mount a file system of their own";
    korvel.putResults("ALDER.OUT");
    const std::string disk = korvel.data("disk"), kept = korvel.data("kept"), names = korvel.data("names");
    fs::create_directories(disk);
    const char* const trapped = "[critical] KORVEL Error: Error number 61: Disk full\n";
    const char* const untrapped = "[critical] : Run-time error '61': Disk full\n";
    const struct {
        const char* file;
        Words arguments;
        const char* says;
    } writers[] = {
        {"R.csv", report("csv", disk + "/R.csv"), trapped},
        {"R.pdf", report("report", disk + "/R.pdf"), trapped},
        {"R.xlsx", report("report", disk + "/R.xlsx"), trapped},
        {"T.xlsx", {"fit", results(), "--output", disk + "/T.xlsx"}, untrapped},
        {"L.pdf", {"listing", korvel.data("ALDER.OUT"), "--output", disk + "/L.pdf"}, trapped},
        {"G.png", graph(disk + "/G.png"), untrapped},
        {"G.svg", graph(disk + "/G.svg"), untrapped},
        {"G.pdf", graph(disk + "/G.pdf"), untrapped},
        {"G.bmp", graph(disk + "/G.bmp"), untrapped},
    };
    for (const auto& writer : writers) {
        const Outcome outcome = inSmallWorld(
            onFullDisk, joined({disk, writer.file, kept, names}, korvel.korvel(writer.arguments)));
        EXPECT_EQ(outcome.status, 1) << writer.file;
        EXPECT_EQ(outcome.err, writer.says) << writer.file;
        EXPECT_EQ(contentOf(kept), "good") << writer.file;
        EXPECT_EQ(contentOf(names), std::string(writer.file) + "\nfiller\n");
    }
}

TEST_F(Faults, AFullDiskKeepsTheOldRunControlFileAndStartsNothing) {
    if (!canMount()) GTEST_SKIP() << "this machine lets no user mount a file system of their own";
    korvel.putSample("ALDER.DAT");
    const std::string disk = korvel.data("disk"), kept = korvel.data("kept"), names = korvel.data("names");
    fs::create_directories(disk);
    const std::string ran = korvel.data("ran");
    write(korvel.data("engine"), "#!/bin/sh\ntouch '" + ran + "'\n");
    fs::permissions(korvel.data("engine"), fs::perms::all);
    const std::string program = korvel.korvel().front();
    const Outcome outcome =
        inSmallWorld(onFullDisk, {disk, "RUNDAT.TMP", kept, names, "sh", "-c",
                                  "ln -s \"$1\" \"$2/korvelf157.exe\"; exec \"$3\" --application-folder "
                                  "\"$2\" run \"$4\" --wait",
                                  "sh", korvel.data("engine"), disk, program, korvel.data("ALDER.DAT")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] : Run-time error '61': Disk full\n");
    EXPECT_EQ(contentOf(kept), "good");
    EXPECT_EQ(contentOf(names), "RUNDAT.TMP\nfiller\nkorvelf157.exe\n");
    EXPECT_FALSE(fs::exists(ran));
}

TEST_F(Faults, TheEngineKeepsTheOldResultsOnAFullDisk) {
    if (!canMount()) GTEST_SKIP() << "this machine lets no user mount a file system of their own";
    korvel.putSample("ALDER.DAT");
    const std::string disk = korvel.data("disk"), kept = korvel.data("kept"), names = korvel.data("names");
    fs::create_directories(disk);
    const char* const script =
        "mount -t tmpfs -o size=200k none \"$1\" || exit 97\n"
        "cp \"$2\" \"$1/ALDER.DAT\"; printf good > \"$1/ALDER.SGR\"\n"
        "disk=$1 kept=$3 names=$4; shift 4\n"
        "\"$@\"; status=$?\n"
        "cat \"$disk/ALDER.SGR\" > \"$kept\"; ls -A \"$disk\" > \"$names\"; exit $status\n";
    const Outcome outcome =
        inSmallWorld(script, joined({disk, korvel.data("ALDER.DAT"), kept, names},
                                    korvel.korvel({"run", disk + "/ALDER.DAT", "--wait"})));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("can't write"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("No space left on device"), std::string::npos) << outcome.out;
    EXPECT_EQ(contentOf(kept), "good");
    EXPECT_EQ(contentOf(names), "ALDER.DAT\nALDER.SGR\n");
}

TEST_F(Faults, AFullDiskBehindTheStandardOutputIsAFailure) {
    for (const Words& arguments : {Words{"info", results()}, Words{"--help"}, Words{"run", "--help"}}) {
        const Outcome outcome =
            runProgram(joined({"sh", "-c", "exec \"$@\" > /dev/full", "sh"}, korvel.korvel(arguments)));
        EXPECT_EQ(outcome.status, 1) << arguments.front();
        EXPECT_EQ(outcome.err, "[critical] : Run-time error '57': The output can't be written\n");
    }
}

TEST_F(Faults, AFileSizeLimitIsAFullDisk) {
    write(korvel.data("R.csv"), "good");
    const Outcome outcome = runProgram(joined({"sh", "-c", "ulimit -f 1; exec \"$@\"", "sh"},
                                              korvel.korvel(report("csv", korvel.data("R.csv")))));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] KORVEL Error: Error number 61: Disk full\n");
    EXPECT_EQ(contentOf(korvel.data("R.csv")), "good");
}

TEST_F(Faults, AnUnwritableFolderTakesNoNewFileAndLosesNoOldOne) {
    korvel.putResults("ALDER.OUT");
    const std::string folder = korvel.data("closed");
    fs::create_directories(folder);
    for (const char* old : {"R.csv", "R.pdf", "G.png"})
        write(folder + "/" + old, "good");
    close(folder);
    const std::string sheet = modelNameOf(folder) + "\\R.csv";
    const char* const refused = "[critical] KORVEL Error: Error number 75: Path/File access error\n";
    const struct {
        Words arguments;
        std::string says;
    } writers[] = {
        {report("csv", folder + "/R.csv"),
         "[information] File Open: " + sheet + " is already open. Please close the file and try again.\n"},
        {report("csv", folder + "/new.csv"), refused},
        {report("report", folder + "/R.pdf"),
         "[critical] KORVEL Error: Error number 70: Permission denied\n"},
        {report("report", folder + "/new.pdf"), refused},
        {{"listing", korvel.data("ALDER.OUT"), "--output", folder + "/new.pdf"}, refused},
        {graph(folder + "/G.png"), "[critical] : Run-time error '70': Permission denied\n"},
        {graph(folder + "/new.png"), "[critical] : Run-time error '75': Path/File access error\n"},
    };
    for (const auto& writer : writers) {
        const Outcome outcome = asNobody(writer.arguments);
        EXPECT_EQ(outcome.status, 1) << writer.arguments.back();
        EXPECT_EQ(outcome.err, writer.says) << writer.arguments.back();
    }
    for (const char* old : {"R.csv", "R.pdf", "G.png"})
        EXPECT_EQ(contentOf(folder + "/" + old), "good");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 3);
    open(folder);
}

TEST_F(Faults, AReadOnlyApplicationFolderStartsNoRun) {
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("touch '" + korvel.data("ran") + "'\n");
    open(korvel.dataFolder());
    close(korvel.application(""));
    const Outcome outcome = asNobody({"run", korvel.data("ALDER.DAT"), "--wait"});
    open(korvel.application(""));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] : Run-time error '75': Path/File access error\n");
    EXPECT_FALSE(fs::exists(korvel.data("ran")));
    EXPECT_FALSE(fs::exists(korvel.application("RUNDAT.TMP")));
}

TEST_F(Faults, ARunControlFileOfAnotherUserIsLeftAlone) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to another user";
    korvel.putSample("ALDER.DAT");
    korvel.putEngine("touch '" + korvel.data("ran") + "'\n");
    open(korvel.dataFolder());
    open(korvel.application(""));
    write(korvel.application("RUNDAT.TMP"), "another user's");
    const Outcome outcome = asNobody({"run", korvel.data("ALDER.DAT"), "--wait"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "[critical] : Run-time error '70': Permission denied\n");
    EXPECT_EQ(contentOf(korvel.application("RUNDAT.TMP")), "another user's");
    EXPECT_FALSE(fs::exists(korvel.data("ran")));
}

TEST_F(Faults, WhatIsNoFileIsRefusedByEveryReaderWithoutWaiting) {
    fs::create_directories(korvel.data("RIVER.SGR"));
    ASSERT_EQ(mkfifo(korvel.data("PIPE.SGR").c_str(), 0666), 0);
    fs::create_symlink("LOOP.SGR", korvel.data("LOOP.SGR"));
    const std::string notAFile = "75: Path/File access error";
    const std::pair<std::string, std::string> things[] = {{korvel.data("RIVER.SGR"), notAFile},
                                                          {korvel.data("PIPE.SGR"), notAFile},
                                                          {"/dev/zero", notAFile},
                                                          {korvel.data("LOOP.SGR"), "76: Path not found"},
                                                          {korvel.data("none"), "53: File not found"}};
    for (const auto& [thing, says] : things) {
        const Outcome info = korvel.runKorvel({"info", thing});
        EXPECT_EQ(info.status, 1) << thing;
        EXPECT_EQ(info.err, unreadable) << thing;
        const Outcome listing = korvel.runKorvel({"listing", thing, "--output", korvel.data("L.pdf")});
        EXPECT_EQ(listing.status, 1) << thing;
        EXPECT_EQ(listing.err, "[critical] KORVEL Error: Error number " + says + "\n") << thing;
        EXPECT_FALSE(fs::exists(korvel.data("L.pdf")));
    }
}

TEST_F(Faults, WhatIsNoFileIsReplacedByNoWriter) {
    fs::create_directories(korvel.data("D.csv"));
    ASSERT_EQ(mkfifo(korvel.data("P.csv").c_str(), 0666), 0);
    fs::create_symlink("L.csv", korvel.data("L.csv"));
    const std::pair<std::string, const char*> things[] = {
        {korvel.data("D.csv"), "75: Path/File access error"},
        {korvel.data("P.csv"), "75: Path/File access error"},
        {"/dev/zero", "75: Path/File access error"},
        {korvel.data("L.csv"), "76: Path not found"}};
    for (const auto& [thing, says] : things) {
        const Outcome outcome = korvel.runKorvel(report("csv", thing));
        EXPECT_EQ(outcome.status, 1) << thing;
        EXPECT_EQ(outcome.err, std::string("[critical] KORVEL Error: Error number ") + says + "\n") << thing;
    }
    EXPECT_TRUE(fs::is_directory(korvel.data("D.csv")));
    EXPECT_TRUE(fs::is_fifo(korvel.data("P.csv")));
    EXPECT_TRUE(fs::is_symlink(korvel.data("L.csv")));
    EXPECT_TRUE(fs::is_character_file("/dev/zero"));
}

TEST_F(Faults, AHelpPageThatIsNoFileIsTheRunTimesError) {
    ASSERT_EQ(mkfifo(korvel.application("KORDAT4.TXT").c_str(), 0666), 0);
    fs::create_directories(korvel.application("KORDAT5.TXT"));
    fs::create_symlink("KORDAT6.TXT", korvel.application("KORDAT6.TXT"));
    for (const auto& [page, says] : {std::pair{"4", "75': Path/File access error"},
                                     {"5", "75': Path/File access error"},
                                     {"6", "76': Path not found"},
                                     {"7", "53': File not found"}}) {
        const Outcome outcome = korvel.runKorvel({"help-page", page});
        EXPECT_EQ(outcome.status, 1) << page;
        EXPECT_EQ(outcome.err, std::string("[critical] : Run-time error '") + says + "\n");
    }
}

TEST_F(Faults, TheEngineRefusesADataFileThatIsNoFile) {
    ASSERT_EQ(mkfifo(korvel.data("P.DAT").c_str(), 0666), 0);
    const Outcome outcome = korvel.runKorvel({"run", korvel.data("P.DAT"), "--wait"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out.find("not a file"), std::string::npos) << outcome.out;
}

TEST_F(Faults, TheEngineReplacesNoFolderOrPipeByResults) {
    korvel.putSample("ALDER.DAT");
    fs::remove(results());
    fs::create_directories(results());
    const Outcome onFolder = korvel.runKorvel({"run", korvel.data("ALDER.DAT"), "--wait"});
    EXPECT_EQ(onFolder.status, 1);
    EXPECT_NE(onFolder.out.find("not a file"), std::string::npos) << onFolder.out;
    EXPECT_TRUE(fs::is_directory(results()));
    fs::remove(results());
    ASSERT_EQ(mkfifo(results().c_str(), 0666), 0);
    EXPECT_EQ(korvel.runKorvel({"run", korvel.data("ALDER.DAT"), "--wait"}).status, 1);
    EXPECT_TRUE(fs::is_fifo(results()));
}

TEST_F(Faults, AFolderThatIsGoneIsAPathNotFound) {
    const std::string gone = korvel.data("gone");
    for (const Words& arguments :
         {Words{"info", "a.sgr"}, Words{"run", "a.dat"}, Words{"listing", "a.out"}}) {
        const Outcome outcome = runProgram(
            joined({"sh", "-c", "mkdir \"$1\"; cd \"$1\"; rmdir \"$1\"; shift; exec \"$@\"", "sh", gone},
                   korvel.korvel(arguments)));
        EXPECT_EQ(outcome.status, 1) << arguments.front();
        EXPECT_EQ(outcome.err, "[critical] : Run-time error '76': Path not found\n");
    }
}

TEST_F(Faults, WhatIsNoFileIsNoEngine) {
    korvel.putSample("ALDER.DAT");
    const std::string engine = korvel.application("korvelf157.exe");
    const auto run = [&] {
        for (const Words& arguments :
             {Words{"run", korvel.data("ALDER.DAT")}, {"run", korvel.data("ALDER.DAT"), "--wait"}}) {
            const Outcome outcome = korvel.runKorvel(arguments);
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.err, "[critical] : Run-time error '53': File not found\n");
        }
    };
    fs::remove(engine);
    fs::create_directory(engine);
    run();
    fs::remove(engine);
    ASSERT_EQ(mkfifo(engine.c_str(), 0777), 0);
    run();
}

TEST_F(Faults, WithoutAHomeOnlyWhatNeedsOneFails) {
    if (geteuid() != 0) GTEST_SKIP() << "the program's own folder is this user's";
    const std::string program = korvel.korvel().front();
    fs::create_directories(korvel.data("closed"));
    const auto runIn = [&](const Words& settings, const Words& arguments) {
        const Words tools = {"env", "-u", "HOME", "-u", "XDG_DATA_HOME", "-u", "KORVEL_HOME"};
        // As nobody, who can't write in the program's own folder.
        const Words nobody = {"setpriv", "--reuid", "65534", "--regid", "65534", "--clear-groups"};
        return runProgram(joined(geteuid() == 0 ? nobody : Words{},
                                 joined(tools, joined(settings, joined({program}, arguments)))),
                          {korvel.dataFolder(), {}});
    };
    korvel.putSample("ALDER.DAT");
    open(korvel.dataFolder());
    for (const Words& settings : {Words{}, {"XDG_DATA_HOME=share"}, {"HOME=."}}) {
        EXPECT_EQ(runIn(settings, {"--version"}).status, 0);
        EXPECT_EQ(runIn(settings, {"info", results()}).status, 0);
        const Outcome outcome = runIn(settings, {"run", korvel.data("ALDER.DAT"), "--wait"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err,
                  "[critical] : Run-time error '76': There is no folder for the program's files. Set "
                  "HOME, or name a folder by --application-folder or KORVEL_HOME\n");
    }
    EXPECT_FALSE(fs::exists(korvel.data("share"))) << "no folder is made where the program is called";
    EXPECT_FALSE(fs::exists(korvel.data(".local")));
    fs::permissions(korvel.data("closed"), fs::perms::none);
    EXPECT_EQ(runIn({"HOME=" + korvel.data("closed")}, {"--version"}).status, 0);
    EXPECT_EQ(runIn({"HOME=" + korvel.data("closed")}, {"run", korvel.data("ALDER.DAT")}).status, 1);
    fs::permissions(korvel.data("closed"), fs::perms::all);
}

TEST_F(Faults, WritersNeedNoFilesWithoutNames) {
    if (!canMount()) GTEST_SKIP() << "this machine lets no user mount a file system of their own";
    write(korvel.data("R.csv"), "old");
    write(korvel.data(".korvel-a1b2c3"), "left by a killed program");
    const Outcome outcome = inSmallWorld("mount -t tmpfs none /proc || exit 97\n\"$@\"\n",
                                         korvel.korvel(report("csv", korvel.data("R.csv"))));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_GT(contentOf(korvel.data("R.csv")).size(), 1000U);
    EXPECT_FALSE(fs::exists(korvel.data(".korvel-a1b2c3")));
    EXPECT_EQ(std::distance(fs::directory_iterator(korvel.dataFolder()), fs::directory_iterator()), 2);
}

} // namespace korvel
