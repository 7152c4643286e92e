// What is wrong with a job's media-col.
// SPDX-License-Identifier: Apache-2.0
#include "explain/media_col.hpp"

#include <string>
#include <vector>

namespace kelm::explain {
namespace {

// Margins choose between papers of the same size.
bool isRead(const std::string& member) {
  return member == "media-size" || member == "media-source" || member == "media-type" ||
         member.ends_with("-margin");
}

bool isSize(const std::string& value) {
  const std::vector<Option> members = parsedOptions({value});
  return findOption(members, "x-dimension") != nullptr &&
         findOption(members, "y-dimension") != nullptr;
}

}  // namespace

std::optional<Remark> remarkOnMediaCol(const Request& request) {
  const Option* mediaCol = findOption(request.options, "media-col");
  if (mediaCol == nullptr) return std::nullopt;
  bool asks = false;
  for (const Option& member : parsedOptions({mediaCol->value})) {
    if (!isRead(member.name)) {
      return Remark{
          *mediaCol, "has the member \"" + member.name + "\", which CUPS ignores", {}, ""};
    }
    if (member.name == "media-size" && !isSize(member.value)) {
      return Remark{*mediaCol, "has a media-size without x-dimension and y-dimension", {}, ""};
    }
    asks = true;
  }
  if (asks) return std::nullopt;
  return Remark{*mediaCol, "has no media-size, media-source or media-type", {}, ""};
}

}  // namespace kelm::explain
