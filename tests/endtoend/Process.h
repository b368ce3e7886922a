// Programs that a test starts, with time limits, and the end of all that they started in turn.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace korvel {

constexpr std::chrono::seconds patience{30};

// Asks again and again until the answer is yes or the patience is at its end; false then.
bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit = patience);

// What a program is started in. The tests' own display, language and settings are not handed on.
struct Surroundings {
    std::string folder;                // "" is the current one
    std::vector<std::string> settings; // "NAME=value"
};

struct Outcome {
    int status = -1; // 128 + n where signal n ended it; -1 where it was still running at the limit
    std::string out;
    std::string err;
};

Outcome runProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings = {},
                   std::chrono::milliseconds limit = patience);

// A program that runs beside the test and ends with it at the latest.
class BackgroundProgram {
  public:
    BackgroundProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings);
    ~BackgroundProgram();
    BackgroundProgram(const BackgroundProgram&) = delete;
    BackgroundProgram& operator=(const BackgroundProgram&) = delete;

    pid_t id() const { return m_id; }
    bool running();
    // The exit status, as in Outcome.
    int waitForEnd();

  private:
    pid_t m_id = 0;
    int m_status = -1;
};

// While there is one, programs that were started and left alone become the tests' own children; all end with
// it.
class LeftPrograms {
  public:
    LeftPrograms();
    ~LeftPrograms();
    LeftPrograms(const LeftPrograms&) = delete;
    LeftPrograms& operator=(const LeftPrograms&) = delete;
};

} // namespace korvel
