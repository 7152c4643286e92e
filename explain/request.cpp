// A job that is not printed: its options, its PPD, and the header that it would have.
// SPDX-License-Identifier: Apache-2.0
#include "explain/request.hpp"

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <sstream>
#include <utility>

#include "base/number_text.hpp"
#include "explain/named_media.hpp"
#include "job/job_setup.hpp"
#include "job/ppd_calls.hpp"
#include "platform/platform.hpp"
#include "stdoptions/standard_options.hpp"

namespace kelm::explain {
namespace {

class CupsOptions {
 public:
  CupsOptions() = default;
  ~CupsOptions() { cupsFreeOptions(count, first); }
  CupsOptions(const CupsOptions&) = delete;
  CupsOptions& operator=(const CupsOptions&) = delete;

  int count = 0;
  cups_option_t* first = nullptr;
};

std::vector<Option> listed(int count, const cups_option_t* options) {
  std::vector<Option> list;
  list.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    list.push_back({options[i].name, options[i].value == nullptr ? "" : options[i].value});
  }
  return list;
}

constexpr char kCopies[] = "copies";
constexpr char kMediaCol[] = "media-col";

void setCopies(Request& request, const Option& option) {
  request.copies = std::max(base::leadingInteger(option.value.c_str()), 1);
  request.copiesGiver = option.giver;
  request.copiesName = option.name;
}

void add(CupsOptions& options, const char* name, const std::string& value) {
  options.count = cupsAddOption(name, value.c_str(), options.count, &options.first);
}

bool hasAnyOf(const CupsOptions& options, std::initializer_list<const char*> names) {
  return std::ranges::any_of(names, [&](const char* name) {
    return cupsGetOption(name, options.count, options.first) != nullptr;
  });
}

// A member of a collection as lp(1) reads it; empty if the collection has no such member.
std::string memberOf(const std::string& collection, const char* name) {
  const std::vector<Option> members = parsedOptions({collection});
  const Option* member = findOption(members, name);
  return member == nullptr ? std::string() : member->value;
}

// So near in points, CUPS takes one size for another.
constexpr float kNearPoints = 5.0F;

// cupsd makes a paper of the PPD from "media=Custom.21x29.7cm" where the size fits one. libcups,
// which marks the choices, does not.
void addPaperOfCustomSize(const Request& request, CupsOptions& options) {
  const Option* media = findOption(request.options, "media");
  if (request.ppd == nullptr || media == nullptr || !media->value.starts_with("Custom.") ||
      hasAnyOf(options, {"PageSize", "PageRegion"})) {
    return;
  }
  job::r_ppdMarkDefaults(request.ppd);
  markedPage(request.ppd, "media", media->value.substr(0, media->value.find(',')));
  const ppd_size_t* custom = job::r_ppdPageSize(request.ppd, nullptr);
  if (custom == nullptr || std::string_view(custom->name) != "Custom") return;
  const float width = custom->width;
  const float length = custom->length;
  constexpr float kUnitsPerPoint = 2540.0F / 72.0F;  // hundredths of a millimetre
  const std::string paper =
      paperOfSize(request.ppd, static_cast<int>(std::lround(width * kUnitsPerPoint)),
                  static_cast<int>(std::lround(length * kUnitsPerPoint)));
  const ppd_size_t* page = job::r_ppdPageSize(request.ppd, paper.c_str());
  if (page == nullptr || std::string_view(page->name) == "Custom") return;
  if (std::abs(page->width - width) > kNearPoints || std::abs(page->length - length) > kNearPoints)
    return;
  add(options, "PageSize", paper);
}

// Whether cupsd takes the paper from "media": only from its first word, and not from a custom size.
bool beginsWithPaper(ppd_file_t* ppd, const CupsOptions& options) {
  const char* media = cupsGetOption("media", options.count, options.first);
  if (media == nullptr) return false;
  const std::string word(media, std::strcspn(media, ","));
  const bool isCustom = strncasecmp(word.c_str(), "custom", std::strlen("custom")) == 0;
  return !isCustom && namesAPaper(ppd, word);
}

// The filter does not see "media-col": cupsd makes options of the PPD from its size, its tray and
// its paper type, unless the job has these options. "media" counts before the size only where cupsd
// finds the paper in it.
void addMediaCol(const Request& request, CupsOptions& options) {
  const Option* mediaCol = findOption(request.options, kMediaCol);
  if (request.ppd == nullptr || mediaCol == nullptr) return;
  const std::string& members = mediaCol->value;
  if (!hasAnyOf(options, {"PageSize", "PageRegion"}) && !beginsWithPaper(request.ppd, options)) {
    const std::string size = memberOf(members, "media-size");
    const std::string paper =
        paperOfSize(request.ppd, base::leadingInteger(memberOf(size, "x-dimension").c_str()),
                    base::leadingInteger(memberOf(size, "y-dimension").c_str()));
    if (!paper.empty()) {
      add(options, "PageSize", paper);
      if (!hasAnyOf(options, {"media"})) add(options, "media", paper);
    }
  }
  for (const auto& [keyword, member] :
       {std::pair{"InputSlot", "media-source"}, std::pair{"MediaType", "media-type"}}) {
    if (hasAnyOf(options, {keyword})) continue;
    const std::string choice = choiceOfMedium(request.ppd, keyword, memberOf(members, member));
    if (!choice.empty()) add(options, keyword, choice);
  }
}

// cupsd replaces the job's own options by the choices that the PPD names for the job's finishings.
void addFinishings(const Request& request, CupsOptions& options) {
  const Option* finishings = findOption(request.options, "finishings");
  if (request.ppd == nullptr || finishings == nullptr) return;
  std::istringstream numbers(finishings->value);
  for (std::string number; std::getline(numbers, number, ',');) {
    const ppd_attr_t* choices =
        job::r_ppdFindAttr(request.ppd, "cupsIPPFinishings", number.c_str());
    if (choices == nullptr || choices->value == nullptr) continue;
    std::istringstream words(choices->value);
    for (std::string keyword, choice; words >> keyword >> choice;) {
      if (keyword.starts_with('*')) keyword.erase(0, 1);
      add(options, keyword.c_str(), choice);
    }
  }
}

class KnownComputer final : public platform::ComputerName {
 public:
  explicit KnownComputer(std::string name) : name_(std::move(name)) {}
  std::string get() override { return name_; }

 private:
  std::string name_;
};

class KnownUser final : public platform::ConsoleUser {
 public:
  explicit KnownUser(std::string name) : name_(std::move(name)) {}
  std::string name() override { return name_; }

 private:
  std::string name_;
};

class SilentLog final : public platform::SystemLog {
 public:
  void error(const std::string& /*message*/) override {}
};

}  // namespace

const Option* findOption(const std::vector<Option>& options, std::string_view name) {
  const auto option =
      std::ranges::find_if(options, [&](const Option& one) { return one.name == name; });
  return option == options.end() ? nullptr : &*option;
}

std::vector<Option> parsedOptions(const std::vector<std::string>& words) {
  CupsOptions parsed;
  for (const std::string& word : words) {
    parsed.count = cupsParseOptions(word.c_str(), parsed.count, &parsed.first);
  }
  return listed(parsed.count, parsed.first);
}

bool takeCopies(Request& request, bool hasCopies, bool optionIsLast) {
  const Option* option = findOption(request.options, kCopies);
  if (option == nullptr) return hasCopies;
  const Option number{request.copiesName, std::to_string(request.copies), request.copiesGiver};
  const bool differ = base::leadingInteger(option->value.c_str()) != request.copies;
  if (hasCopies && differ) request.overruledCopies = optionIsLast ? number : *option;
  if (!hasCopies || optionIsLast) setCopies(request, *option);
  std::erase_if(request.options, [](const Option& one) { return one.name == kCopies; });
  return true;
}

void addDefaults(Request& request, const std::vector<Option>& defaults, bool hasCopies) {
  for (const Option& option : defaults) {
    const auto isSame = [&](const Option& own) {
      return strcasecmp(own.name.c_str(), option.name.c_str()) == 0;
    };
    if (option.name == kCopies) {
      if (!hasCopies) setCopies(request, option);
    } else if (std::ranges::none_of(request.options, isSame)) {
      request.options.push_back(option);
    }
  }
}

Outcome outcomeOf(const Request& request, const pjl::HeaderStep* step) {
  CupsOptions options;
  for (const Option& option : request.options) {
    if (option.name != kMediaCol) add(options, option.name.c_str(), option.value);
  }
  addMediaCol(request, options);
  addPaperOfCustomSize(request, options);
  addFinishings(request, options);
  job::PrintJobData job;
  job.title = request.title.c_str();
  job.ppd = request.ppd;
  job.numOptions = options.count;
  job.options = options.first;
  job::completePrintJobData(job);
  stdoptions::settleOptions(job, request.copies);
  job::decideCustomPaper(job);
  job::decideOutputFace(job);
  Outcome outcome{step == nullptr ? pjl::recordHeader(job) : pjl::recordStep(job, *step),
                  listed(job.numOptions, job.options)};
  options.count = job.numOptions;
  options.first = job.options;
  return outcome;
}

struct QuietPlatform::Parts {
  KnownComputer computer{platform::platform().computerName->get()};
  KnownUser user{platform::platform().consoleUser->name()};
  SilentLog log;
  platform::Platform set = platform::platform();
  std::optional<platform::ScopedPlatform> scope;
};

QuietPlatform::QuietPlatform() : parts_(std::make_unique<Parts>()) {
  parts_->set.computerName = &parts_->computer;
  parts_->set.consoleUser = &parts_->user;
  parts_->set.systemLog = &parts_->log;
  parts_->scope.emplace(parts_->set);
}

QuietPlatform::~QuietPlatform() = default;

}  // namespace kelm::explain
