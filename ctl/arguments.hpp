// The arguments of a subcommand of kelmctl.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// Only arguments.cpp, command_line.cpp and their tests include CLI11, because it takes longer to
// compile than the rest of a subcommand.
namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kelm::ctl {

// One argument or option that was declared: a handle, valid until the subcommand's action has
// ended.
class Argument {
 public:
  Argument(CLI::Option* option, const CLI::App* app) : option_(option), app_(app) {}

  const Argument& required() const;
  const Argument& valueName(const char* name) const;  // what the help calls the value; may be ""
  const Argument& showDefault() const;                // in the help
  const Argument& excludes(const Argument& other) const;

  // `problem` says what is wrong with a value; an empty answer accepts it.
  const Argument& check(const std::function<std::string(const std::string&)>& problem) const;

  // The places of its values among those of all options, in the order of the command line. After
  // parsing.
  std::vector<std::size_t> places() const;

 private:
  CLI::Option* option_;
  const CLI::App* app_;
};

// Where a subcommand declares its arguments. A name that begins with "-" is an option, any other
// name a positional argument. The values and texts must outlive the parsing.
class ArgumentList {
 public:
  explicit ArgumentList(CLI::App& app) : app_(app) {}

  Argument add(const char* name, std::string& value, const char* help);
  Argument add(const char* name, std::optional<std::string>& value, const char* help);
  // An option takes one value each time that it is given, a positional argument takes them all.
  Argument add(const char* name, std::vector<std::string>& values, const char* help);
  Argument addFlag(const char* name, bool& value, const char* help);

  // A number from `least` to `most`; `value` keeps its default without the option.
  Argument addNumber(const char* name, unsigned& value, unsigned least, unsigned most,
                     const char* help);

  // Uses -h for something other than help, so that only --help prints the help. With `values`, -h
  // can be repeated.
  Argument addShortH(std::vector<std::string>& values, bool isRepeatable, const char* help);

  // After parsing: unless `isGiven`, a usage error says that `what` is required.
  void require(const char* what, std::function<bool()> isGiven);

 private:
  CLI::App& app_;
};

}  // namespace kelm::ctl
