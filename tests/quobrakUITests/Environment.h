#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <string>

/// The environment of the test process, which is a test's own.
namespace quobrak::testing {

inline void setVariable(const std::string& name, const std::string& value) {
  constexpr int REPLACE = 1;
  ASSERT_EQ(::setenv(name.c_str(), value.c_str(), REPLACE), 0);
}

inline void unsetVariable(const std::string& name) {
  ASSERT_EQ(::unsetenv(name.c_str()), 0);
}

}  // namespace quobrak::testing
