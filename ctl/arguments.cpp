// The arguments of a subcommand of kelmctl, declared with CLI11.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/arguments.hpp"

#include <CLI/CLI.hpp>
#include <utility>

namespace kelm::ctl {

const Argument& Argument::required() const {
  option_->required();
  return *this;
}

const Argument& Argument::valueName(const char* name) const {
  option_->type_name(name);
  return *this;
}

const Argument& Argument::showDefault() const {
  option_->capture_default_str();
  return *this;
}

const Argument& Argument::excludes(const Argument& other) const {
  option_->excludes(other.option_);
  return *this;
}

const Argument& Argument::check(
    const std::function<std::string(const std::string&)>& problem) const {
  option_->check(problem);
  return *this;
}

std::vector<std::size_t> Argument::places() const {
  std::vector<std::size_t> places;
  const std::vector<CLI::Option*>& order = app_->parse_order();
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (order[i] == option_) places.push_back(i);
  }
  return places;
}

Argument ArgumentList::add(const char* name, std::string& value, const char* help) {
  return {app_.add_option(name, value, help), &app_};
}

Argument ArgumentList::add(const char* name, std::optional<std::string>& value, const char* help) {
  return {app_.add_option(name, value, help), &app_};
}

Argument ArgumentList::add(const char* name, std::vector<std::string>& values, const char* help) {
  const bool isOption = name[0] == '-';
  return {app_.add_option(name, values, help)->allow_extra_args(!isOption), &app_};
}

Argument ArgumentList::addNumber(const char* name, unsigned& value, unsigned least, unsigned most,
                                 const char* help) {
  return {app_.add_option(name, value, help)
              ->type_name("NUMBER")
              ->check(CLI::Range(least, most).description("")),
          &app_};
}

Argument ArgumentList::addShortH(std::vector<std::string>& values, bool isRepeatable,
                                 const char* help) {
  app_.set_help_flag("--help", "Print this help message and exit");
  CLI::Option* option = app_.add_option("-h", values, help)->allow_extra_args(false);
  if (!isRepeatable) option->expected(1);
  return {option, &app_};
}

Argument ArgumentList::addFlag(const char* name, bool& value, const char* help) {
  return {app_.add_flag(name, value, help), &app_};
}

void ArgumentList::require(const char* what, std::function<bool()> isGiven) {
  app_.parse_complete_callback([what, isGiven = std::move(isGiven)] {
    if (!isGiven()) throw CLI::RequiredError(what);
  });
}

}  // namespace kelm::ctl
