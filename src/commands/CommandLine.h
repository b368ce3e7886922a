// The options and operands of one command.
#pragma once

#include "basic/DiskNames.h"
#include "platform/Files.h"
#include "platform/Message.h"

#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

// Wrong usage: one line for the user, who is then told where to read more.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A file name that the program can't hold; the user is told why.
struct RefusedName : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What was asked for is refused; the user is told why.
struct RefusedCall {
    Message message;
};

struct CommandOption {
    enum class Kind { flag, withValue };
    std::string_view name; // "--points"
    Kind kind = Kind::flag;
};

struct GivenOption {
    std::string name;
    std::string value; // "" for a flag
};

class CommandLine {
  public:
    // "--name value" and "--name=value" are the same; "--" ends the options. UsageError for an option that is
    // not known, lacks its value or has one too many.
    CommandLine(const std::vector<std::string>& arguments, std::initializer_list<CommandOption> options);

    const std::vector<std::string>& operands() const { return m_operands; }
    // The one operand; UsageError with `what` in words where there is none or more than one.
    const std::string& onlyOperand(const std::string& what) const;
    bool has(std::string_view name) const;
    std::optional<std::string> value(std::string_view name) const;    // the last one given
    const std::vector<GivenOption>& given() const { return m_given; } // in order

  private:
    std::vector<std::string> m_operands;
    std::vector<GivenOption> m_given;
};

// The model name of a file that was typed, relative to the current folder; "" stays. RefusedName where it
// can't be one.
std::string modelNameOfTyped(const std::string& file, NameUse use = NameUse::asChosen);

// RefusedName where the output, a model name, leads to one of the files that the command reads. Called before
// anything is read.
void refuseOwnInput(Files& files, const std::string& output, const std::vector<std::string>& inputs);

} // namespace korvel
