// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/json.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "ctl/safe_text.hpp"

namespace kelm::ctl {

using LibraryJson = nlohmann::ordered_json;

struct JsonWriter {
  static LibraryJson libraryValue(const Json& json) {
    return std::visit([](const auto& value) { return valueOf(value); }, json.value_);
  }

  template <typename Value>
  static LibraryJson valueOf(const Value& value) {
    return value;
  }

  static LibraryJson valueOf(const Json::List& list) {
    LibraryJson values = LibraryJson::array();
    for (const Json& each : list) values.push_back(libraryValue(each));
    return values;
  }

  static LibraryJson valueOf(const Json::Members& members) {
    LibraryJson object = LibraryJson::object();
    for (const auto& [name, value] : members) object[name] = libraryValue(value);
    return object;
  }
};

Json Json::array() {
  Json list;
  list.value_ = List();
  return list;
}

Json Json::object() {
  Json object;
  object.value_ = Members();
  return object;
}

Json::Json(std::initializer_list<Json> values) {
  const bool isObject = std::all_of(values.begin(), values.end(), [](const Json& each) {
    const List* pair = std::get_if<List>(&each.value_);
    return pair != nullptr && pair->size() == 2 &&
           std::holds_alternative<std::string>(pair->front().value_);
  });
  if (!isObject) {
    value_ = List(values);
    return;
  }
  value_ = Members();
  for (const Json& each : values) {
    const List& pair = std::get<List>(each.value_);
    (*this)[std::get<std::string>(pair.front().value_)] = pair.back();
  }
}

void Json::push_back(Json value) { std::get<List>(value_).push_back(std::move(value)); }

Json& Json::operator[](const std::string& name) {
  auto& members = std::get<Members>(value_);
  const auto found = std::find_if(members.begin(), members.end(),
                                  [&](const auto& member) { return member.first == name; });
  if (found != members.end()) return found->second;
  return members.emplace_back(name, Json()).second;
}

void Json::update(const Json& object) {
  for (const auto& [name, value] : std::get<Members>(object.value_)) (*this)[name] = value;
}

std::string textOf(const Json& value, JsonLayout layout) {
  const int indentation = layout == JsonLayout::kIndented ? 2 : -1;
  return safeJson(JsonWriter::libraryValue(value).dump(indentation, ' ', false,
                                                       LibraryJson::error_handler_t::replace));
}

}  // namespace kelm::ctl
