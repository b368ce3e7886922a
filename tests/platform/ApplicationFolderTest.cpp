#include "platform/ApplicationFolder.h"

#include "basic/RunTimeError.h"
#include "platform/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace korvel {

namespace {

class ApplicationFolder : public testing::Test {
  protected:
    ApplicationFolder() {
        installed.put("korvelf157.exe", "engine");
        installed.put("KORDAT4.TXT", "page 4");
        installed.put("korvel", "program");
        installed.put("NOTES.TXT", "not a page");
        installed.put("KORDAT4.OLD", "not a page");
        sources.executableFolder = installed.path();
        sources.home = home.path();
    }
    std::string userFolder() const { return home.path(".local/share/korvel"); }

    TemporaryFolder installed, home;
    ApplicationFolderSources sources;
};

} // namespace

TEST_F(ApplicationFolder, IsTheOptionBeforeAllElse) {
    sources.option = "/data/../app/";
    sources.korvelHome = "/other";
    EXPECT_EQ(applicationFolder(sources), "/app");
}

TEST_F(ApplicationFolder, TakesARelativeOptionFromTheCurrentFolder) {
    sources.option = "app";
    EXPECT_EQ(applicationFolder(sources), std::filesystem::current_path() / "app");
}

TEST_F(ApplicationFolder, IsKorvelHomeBeforeTheExecutablesFolder) {
    sources.korvelHome = "/srv/korvel";
    EXPECT_EQ(applicationFolder(sources), "/srv/korvel");
}

TEST_F(ApplicationFolder, IsTheExecutablesFolderWhereItCanBeWritten) {
    EXPECT_EQ(applicationFolder(sources), installed.path());
}

TEST_F(ApplicationFolder, IsTheUsersOwnWhereTheExecutablesFolderCannotBeWritten) {
    sources.executableFolder = installed.path("missing");
    EXPECT_EQ(applicationFolder(sources), userFolder());
    sources.dataHome = "/data";
    EXPECT_EQ(applicationFolder(sources), "/data/korvel");
}

TEST_F(ApplicationFolder, IsNeverWhereTheProgramHappensToBeCalled) {
    sources.executableFolder = installed.path("missing");
    sources.dataHome = "data";
    sources.korvelHome = "korvel";
    EXPECT_EQ(applicationFolder(sources), userFolder());
    for (const char* home : {"", ".", "home"}) {
        sources.home = home;
        try {
            ADD_FAILURE() << applicationFolder(sources);
        } catch (const RunTimeError& error) {
            EXPECT_EQ(
                error.message(),
                "Run-time error '76':\n\nThere is no folder for the program's files. Set HOME, or name a "
                "folder by --application-folder or KORVEL_HOME");
        }
    }
}

TEST_F(ApplicationFolder, IsFoundWhereItCannotBeSearched) {
    home.makeFolder(".local/share");
    std::filesystem::permissions(home.path(".local"), std::filesystem::perms(0600));
    const pid_t child = fork();
    if (child == 0) {
        constexpr unsigned nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(2);
        fillApplicationFolder(userFolder(), sources);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    std::filesystem::permissions(home.path(".local"), std::filesystem::perms::all);
}

TEST_F(ApplicationFolder, IsFilledOnFirstUseFromWhatIsInstalled) {
    fillApplicationFolder(userFolder(), sources);
    const std::string own = ".local/share/korvel/";
    EXPECT_EQ(home.textOf(own + "korvelf157.exe"), "engine");
    EXPECT_EQ(home.textOf(own + "KORDAT4.TXT"), "page 4");
    EXPECT_EQ(home.textOf(own + "MISC.TXT"), home.model() + "\r\n\r\nFalse\r\n");
    for (const char* other : {"korvel", "NOTES.TXT", "KORDAT4.OLD"})
        EXPECT_FALSE(std::filesystem::exists(home.path(own + other))) << other;
}

TEST_F(ApplicationFolder, LeavesWhatIsThereAlone) {
    home.put(".local/share/korvel/MISC.TXT", "mine");
    home.put(".local/share/korvel/korvelf157.exe", "my engine");
    fillApplicationFolder(userFolder(), sources);
    EXPECT_EQ(home.textOf(".local/share/korvel/MISC.TXT"), "mine");
    EXPECT_EQ(home.textOf(".local/share/korvel/korvelf157.exe"), "my engine");
}

TEST_F(ApplicationFolder, HoldsNoHalfOfAFileAfterAFullDisk) {
    installed.put("korvelf157.exe", std::string(100'000, 'e'));
    const std::string engine = ".local/share/korvel/korvelf157.exe";
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{1000, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    fillApplicationFolder(userFolder(), sources);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(std::filesystem::exists(home.path(engine)));
    EXPECT_FALSE(std::filesystem::exists(home.path(engine + ".new")));
    EXPECT_EQ(home.textOf(".local/share/korvel/KORDAT4.TXT"), "page 4");
    fillApplicationFolder(userFolder(), sources);
    EXPECT_EQ(home.textOf(engine).size(), 100'000U);
}

// A variable of the environment, for a while; null is none.
class Variable {
  public:
    Variable(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name)) m_before = before;
        set(value);
    }
    ~Variable() { set(m_before ? m_before->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void set(const char* value) const {
        if (value)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

TEST_F(ApplicationFolder, IsSoughtWithWhatTheEnvironmentSays) {
    const Variable korvelHome("KORVEL_HOME", "/srv/korvel");
    const Variable dataHome("XDG_DATA_HOME", "/data");
    const Variable home("HOME", nullptr);
    const ApplicationFolderSources found = applicationFolderSources("/option");
    EXPECT_EQ(found.option, "/option");
    EXPECT_EQ(found.korvelHome, "/srv/korvel");
    EXPECT_EQ(found.dataHome, "/data");
    EXPECT_EQ(found.home, "");
    EXPECT_EQ(found.executableFolder, std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

TEST_F(ApplicationFolder, FillsNoOtherFolder) {
    TemporaryFolder other;
    fillApplicationFolder(other.path(), sources);
    EXPECT_TRUE(std::filesystem::is_empty(other.path()));
}

} // namespace korvel
