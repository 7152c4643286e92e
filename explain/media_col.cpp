// What is wrong with a job's media-col.
// SPDX-License-Identifier: Apache-2.0
#include "explain/media_col.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/number_text.hpp"
#include "explain/named_media.hpp"
#include "explain/standard_remarks.hpp"
#include "explain/words.hpp"

namespace kelm::explain {
namespace {

constexpr double kHundredthsPerPoint = 2540.0 / 72.0;
constexpr double kNear = 0.1;  // of a length: papers that may be taken for each other

// In 1/100 mm.
struct Size {
  int width;
  int height;
};

// Margins choose between papers of the same size.
bool isRead(const std::string& member) {
  return member == "media-size" || member == "media-source" || member == "media-type" ||
         member.ends_with("-margin");
}

std::optional<Size> sizeIn(const std::string& value) {
  const std::vector<Option> members = parsedOptions({value});
  const Option* width = findOption(members, "x-dimension");
  const Option* height = findOption(members, "y-dimension");
  if (width == nullptr || height == nullptr) return std::nullopt;
  return Size{base::leadingInteger(width->value.c_str()),
              base::leadingInteger(height->value.c_str())};
}

std::string millimetres(double hundredths) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", hundredths / 100.0);
  return text;
}

std::string roundedMillimetres(float points) {
  return millimetres(std::round(static_cast<double>(points) * kHundredthsPerPoint / 100.0) * 100.0);
}

std::string rangeOfCustomPapers(const ppd_file_t& ppd) {
  if (ppd.variable_sizes == 0) return {};
  const auto range = [&](int i) {
    return roundedMillimetres(ppd.custom_min[i]) + " to " + roundedMillimetres(ppd.custom_max[i]) +
           " mm";
  };
  return "; a paper of its own size is " + range(0) + " wide and " + range(1) + " high";
}

Remark remarkOnSize(const Request& request, const Option& mediaCol, Size size) {
  Remark remark{mediaCol,
                "has a media-size of " + millimetres(size.width) + " x " +
                    millimetres(size.height) + " mm, which the printer does not have" +
                    rangeOfCustomPapers(*request.ppd),
                {},
                ""};
  double least = kNear;
  for (const ppd_size_t& paper :
       std::span(request.ppd->sizes, static_cast<std::size_t>(request.ppd->num_sizes))) {
    if (std::string_view(paper.name) == "Custom") continue;
    remark.choices.emplace_back(paper.name);
    const auto difference = [](int asked, float points) {
      return std::abs(asked / (static_cast<double>(points) * kHundredthsPerPoint) - 1.0);
    };
    const double distance =
        std::max(difference(size.width, paper.width), difference(size.height, paper.length));
    if (distance > least) continue;
    least = distance;
    remark.nearest = paper.name;
  }
  return remark;
}

std::optional<Remark> unlessSize(const Request& request, const Option& mediaCol,
                                 const std::string& value) {
  const auto size = sizeIn(value);
  if (!size) {
    return Remark{mediaCol, "has a media-size without x-dimension and y-dimension", {}, ""};
  }
  if (request.ppd == nullptr || !paperOfSize(request.ppd, size->width, size->height).empty()) {
    return std::nullopt;
  }
  return remarkOnSize(request, mediaCol, *size);
}

// A tray or a paper type counts under the names that cupsd makes of the PPD's choices.
std::optional<Remark> unlessName(const Request& request, const Option& mediaCol,
                                 const Option& member, const char* keyword) {
  if (request.ppd == nullptr || !choiceOfMedium(request.ppd, keyword, member.value).empty()) {
    return std::nullopt;
  }
  std::vector<std::string> names = keywordsOfIpp(request, member.name);
  std::erase_if(names, [&](const std::string& name) {
    return choiceOfMedium(request.ppd, keyword, name).empty();
  });
  std::string nearest = nearestOf(member.value, names);
  return Remark{mediaCol,
                "has the " + member.name + " \"" + member.value + "\", which CUPS ignores",
                std::move(names), std::move(nearest)};
}

std::optional<Remark> remarkOnMember(const Request& request, const Option& mediaCol,
                                     const Option& member) {
  if (!isRead(member.name)) {
    return Remark{mediaCol, "has the member \"" + member.name + "\", which CUPS ignores", {}, ""};
  }
  if (member.name == "media-size") return unlessSize(request, mediaCol, member.value);
  if (member.name == "media-source") return unlessName(request, mediaCol, member, "InputSlot");
  if (member.name == "media-type") return unlessName(request, mediaCol, member, "MediaType");
  return std::nullopt;
}

}  // namespace

std::vector<Remark> remarksOnMediaCol(const Request& request) {
  std::vector<Remark> remarks;
  const Option* mediaCol = findOption(request.options, "media-col");
  if (mediaCol == nullptr) return remarks;
  const std::vector<Option> members = parsedOptions({mediaCol->value});
  for (const Option& member : members) {
    if (auto remark = remarkOnMember(request, *mediaCol, member)) {
      remarks.push_back(std::move(*remark));
    }
  }
  if (members.empty()) {
    remarks.push_back({*mediaCol, "has no media-size, media-source or media-type", {}, ""});
  }
  if (request.ppd != nullptr) outcomeOf(request);  // marks the request's choices again
  return remarks;
}

}  // namespace kelm::explain
