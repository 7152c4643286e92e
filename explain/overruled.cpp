// Options that do nothing because another option of the job counts before them.
//
// Nothing here knows which option counts before which. An option is overruled when the header is
// the same without it, although it would have another line if the option were alone.
// SPDX-License-Identifier: Apache-2.0
#include "explain/overruled.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "explain/words.hpp"

namespace kelm::explain {
namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;  // variable and value
using Header = std::map<const pjl::HeaderStep*, Lines>;

Header headerOf(Request request, std::vector<Option> options) {
  request.options = std::move(options);
  Header header;
  for (const pjl::RecordedLine& line : outcomeOf(request).header) {
    if (line.step != nullptr) header[line.step].emplace_back(line.variable, line.value);
  }
  return header;
}

const Lines& linesOf(const Header& header, const pjl::HeaderStep* step) {
  static const Lines kNone;
  const auto found = header.find(step);
  return found == header.end() ? kNone : found->second;
}

// One thing that an option asks for.
struct Part {
  Option alone;
  std::optional<Option> rest;  // the option without it; nothing when the option asks for no more
  std::string what;            // of several things
};

Part partOf(const Option& option, std::string alone, std::string rest, std::string what) {
  Part part{{option.name, std::move(alone), option.giver}, {}, std::move(what)};
  if (!rest.empty()) part.rest = Option{option.name, std::move(rest), option.giver};
  return part;
}

// All texts but one, with a separator before each of them.
std::string others(const std::vector<std::string>& texts, std::size_t left, char separator) {
  std::string all;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i != left) all += separator + texts[i];
  }
  return all;
}

std::vector<Part> partsOfMedia(const Option& option) {
  std::vector<Part> parts;
  const std::vector<std::string> words = wordsOf(option.value);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string rest = others(words, i, ',');
    parts.push_back(
        partOf(option, words[i], rest.empty() ? rest : rest.substr(1), "\"" + words[i] + "\""));
  }
  return parts;
}

std::vector<Part> partsOfMediaCol(const Option& option) {
  std::vector<Part> parts;
  const std::vector<Option> members = parsedOptions({option.value});
  std::vector<std::string> texts;
  texts.reserve(members.size());
  for (const Option& member : members) texts.push_back(member.name + "=" + member.value);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string rest = others(texts, i, ' ');
    parts.push_back(partOf(option, "{" + texts[i] + "}", rest.empty() ? rest : "{" + rest + "}",
                           members[i].name));
  }
  return parts;
}

std::vector<Part> partsOf(const Option& option) {
  if (option.name == "media") return partsOfMedia(option);
  if (option.name == "media-col") return partsOfMediaCol(option);
  return {{option, {}, ""}};
}

class HeaderTrials {
 public:
  explicit HeaderTrials(const Request& request)
      : request_(request),
        base_(headerOf(request, {})),
        whole_(headerOf(request, request.options)) {}

  // The option that counts before this part; null when it has an effect, or asks for nothing.
  const Option* winnerOver(const Option& option, const Part& part) const;

 private:
  Header without(const Option& option, const Part& part) const;

  const Request& request_;
  const Header base_;
  const Header whole_;
};

Header HeaderTrials::without(const Option& option, const Part& part) const {
  std::vector<Option> options = request_.options;
  if (part.rest) {
    std::ranges::replace(options, option, *part.rest);
  } else {
    std::erase(options, option);
  }
  return headerOf(request_, std::move(options));
}

const Option* HeaderTrials::winnerOver(const Option& option, const Part& part) const {
  const Header alone = headerOf(request_, {part.alone});
  const auto lost = std::ranges::find_if(alone, [&](const auto& line) {
    return line.second != linesOf(base_, line.first) && line.second != linesOf(whole_, line.first);
  });
  if (lost == alone.end() || without(option, part) != whole_) return nullptr;
  const pjl::HeaderStep* step = lost->first;
  const auto winner = std::ranges::find_if(request_.options, [&](const Option& other) {
    return other.name != option.name &&
           linesOf(headerOf(request_, {part.alone, other}), step) == linesOf(whole_, step);
  });
  return winner == request_.options.end() ? nullptr : &*winner;
}

std::string problemOf(const Part& part, const Option& winner) {
  const std::string because = ", because " + winner.name + "=" + winner.value + " overrides it";
  return !part.rest ? "has no effect" + because
                    : "asks for " + part.what + " without effect" + because;
}

}  // namespace

void addOverruled(const Request& request, std::vector<Remark>& remarks) {
  if (request.ppd == nullptr || request.isDialogJob() || request.options.size() < 2) return;
  const HeaderTrials trials(request);
  const std::size_t before = remarks.size();
  for (const Option& option : request.options) {
    const auto isSame = [&](const Remark& remark) { return remark.option == option; };
    const bool isNamed =
        std::any_of(remarks.begin(), remarks.begin() + std::ptrdiff_t(before), isSame);
    if (option.giver != Giver::kJob || isNamed) continue;
    for (const Part& part : partsOf(option)) {
      const Option* winner = trials.winnerOver(option, part);
      if (winner != nullptr) remarks.push_back({option, problemOf(part, *winner), {}, ""});
    }
  }
  outcomeOf(request);  // marks the request's choices again
}

}  // namespace kelm::explain
