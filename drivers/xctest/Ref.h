#pragma once

#include <utility>

namespace quobrak::xctest {

/// Owns an object of the platform for as long as it lives, whether the compiler counts references itself or not. `T` is
/// the pointer's type.
template <class T>
class Ref {
 public:
  Ref() = default;
#if __has_feature(objc_arc)
  explicit Ref(T object) : object_(object) {}
  static Ref adopting(T object) {
    return Ref(object);
  }
#else
  explicit Ref(T object) : object_([object retain]) {}
  /// Takes over an object that the caller owns: one that came from `alloc`.
  static Ref adopting(T object) {
    Ref owner;
    owner.object_ = object;
    return owner;
  }
  Ref(const Ref& other) : object_([other.object_ retain]) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, T{})) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Ref() {
    [object_ release];
  }
#endif

  T get() const {
    return object_;
  }

 private:
  T object_{};
};

}  // namespace quobrak::xctest
