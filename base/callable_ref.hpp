// A reference to something callable that lives as long as the program: a function, or a constant
// object with a call operator. It lets one table hold rows of different kinds.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <concepts>
#include <type_traits>

namespace kelm::base {

template <class Signature>
class CallableRef;

template <class Result, class... Arguments>
class CallableRef<Result(Arguments...)> {
 public:
  // Refers to nothing; must not be called.
  constexpr CallableRef() = default;

  constexpr CallableRef(Result (*function)(Arguments...)) : function_(function) {}

  // `object` is not copied and must outlive the reference.
  template <class Object>
  requires(std::is_class_v<Object> &&
           !std::same_as<Object, CallableRef>) constexpr CallableRef(const Object& object)
      : object_(&object), call_([](const void* self, Arguments... arguments) -> Result {
          return (*static_cast<const Object*>(self))(arguments...);
        }) {}
  template <class Object>
  requires(std::is_class_v<Object> && !std::same_as<Object, CallableRef>)
      CallableRef(const Object&& temporary)
  = delete;

  constexpr explicit operator bool() const { return function_ != nullptr || call_ != nullptr; }

  constexpr bool refersTo(Result (*function)(Arguments...)) const { return function_ == function; }

  Result operator()(Arguments... arguments) const {
    return function_ != nullptr ? function_(arguments...) : call_(object_, arguments...);
  }

 private:
  Result (*function_)(Arguments...) = nullptr;
  const void* object_ = nullptr;
  Result (*call_)(const void*, Arguments...) = nullptr;
};

}  // namespace kelm::base
