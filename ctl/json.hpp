// What kelmctl's options --json print.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kelm::ctl {

// A JSON value. Only json.cpp includes nlohmann's library, which takes longer to compile than the
// rest of a subcommand.
class Json {
 public:
  using List = std::vector<Json>;
  using Members = std::vector<std::pair<std::string, Json>>;  // of an object, in their order

  Json(std::nullptr_t = nullptr) {}
  Json(bool value) : value_(value) {}
  template <std::signed_integral Number>
  Json(Number value) : value_(std::int64_t{value}) {}
  template <std::unsigned_integral Number>
  Json(Number value) : value_(std::uint64_t{value}) {}
  Json(const char* text) : value_(std::string(text)) {}
  Json(std::string text) : value_(std::move(text)) {}
  template <typename Value>
  Json(const std::vector<Value>& values) : value_(List(values.begin(), values.end())) {}
  template <typename Value>
  Json(const std::optional<Value>& value) : Json(value ? Json(*value) : Json()) {}
  // An object if each value is a list of a text and another value; otherwise a list.
  Json(std::initializer_list<Json> values);

  static Json array();
  static Json object();

  void push_back(Json value);                 // to a list
  Json& operator[](const std::string& name);  // of an object; adds a missing member
  void update(const Json& object);            // of an object: adds or replaces members

 private:
  friend struct JsonWriter;
  std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, std::string, List, Members>
      value_;
};

enum class JsonLayout { kOneLine, kIndented };

// `value` as JSON, without a line feed at its end. No text in it can fail or control a terminal:
// bytes that are not UTF-8 become U+FFFD, and control characters are escaped.
std::string textOf(const Json& value, JsonLayout layout);

}  // namespace kelm::ctl
