// What it takes to start a program and to hear of it: what the new process is given, the pipe for what it
// says, and how its end is told.
#pragma once

#include "basic/Descriptor.h"

#include <spawn.h>
#include <sys/types.h>

namespace korvel {

// A process that a signal has ended has this and the signal's number as its exit status, as in a shell.
inline constexpr int signalBase = 128;

// Of the status that wait calls give.
int exitStatusOf(int waitStatus);

// Throws RunTimeError where a call tells of a failure by its result.
void checkCall(int errorCode);

struct Pipe {
    Pipe();
    Descriptor readEnd, writeEnd;
};

// How the new process differs from this one; it has nothing to read.
class Spawning {
  public:
    Spawning();
    ~Spawning();
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    void send(int output, const Descriptor& to);
    void drop(int output);

  protected:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace korvel
