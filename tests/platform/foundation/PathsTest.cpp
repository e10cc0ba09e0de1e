#include "platform/foundation/Paths.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quobrak {
namespace {

struct Row {
  std::string_view path;
  std::string_view expected;
};

TEST(Paths, LastPathComponent) {
  constexpr Row ROWS[] = {
      {"", ""},       {"/", "/"},
      {"//", "/"},    {"a", "a"},
      {"/a", "a"},    {"a/b.txt", "b.txt"},
      {"a/b/", "b"},  {"//a//b//", "b"},
      {"a/..", ".."}, {"Bücher/é🙂.txt", "é🙂.txt"},
  };
  for (const auto& [path, expected] : ROWS) {
    EXPECT_EQ(lastPathComponent(path), expected) << path;
  }
}

TEST(Paths, DeletingLastPathComponent) {
  constexpr Row ROWS[] = {
      {"", ""},
      {"/", "/"},
      {"//", "/"},
      {"testsStatus.json", ""},
      {"a/", ""},
      {"measures/x", "measures"},
      {"/x", "/"},
      {"//x", "/"},
      {"a/b/", "a"},
      {"a//b", "a"},
      {"/a/b/c", "/a/b"},
      {"//a//b//", "//a"},
      {"Bücher/é🙂.txt", "Bücher"},
  };
  for (const auto& [path, expected] : ROWS) {
    EXPECT_EQ(deletingLastPathComponent(path), expected) << path;
  }
}

TEST(Paths, DeletingPathExtension) {
  constexpr Row ROWS[] = {
      {"", ""},
      {"/", "/"},
      {"/tmp/", "/tmp"},
      {"login", "login"},
      {"login.txt", "login"},
      {"a.b.txt", "a.b"},
      {"a.", "a"},
      {".tiff", ".tiff"},
      {"..tiff", "..tiff"},
      {"..", ".."},
      {"...", "..."},
      {".a.b", ".a"},
      {"x/.hidden", "x/.hidden"},
      {"scratch..tiff", "scratch."},
      {"scratch.bundle/", "scratch"},
      {"/tmp/scratch.tiff", "/tmp/scratch"},
      {"a.d/b", "a.d/b"},
      {"a.d/b.c", "a.d/b"},
      {"é.🙂", "é"},
  };
  for (const auto& [path, expected] : ROWS) {
    EXPECT_EQ(deletingPathExtension(path), expected) << path;
  }
}

TEST(Paths, AppendingPathComponent) {
  struct AppendingRow {
    std::string_view path;
    std::string_view component;
    std::string_view expected;
  };
  constexpr AppendingRow ROWS[] = {
      {"/root", "x", "/root/x"},
      {"/root/", "x", "/root/x"},
      {"/root//", "//x", "/root/x"},
      {"/root", "/scripts/a.txt", "/root/scripts/a.txt"},
      {"/root", "", "/root"},
      {"/root/", "", "/root"},
      {"/root", "/", "/root"},
      {"/", "x", "/x"},
      {"/", "", "/"},
      {"", "x", "x"},
      {"", "/x", "/x"},
      {"", "", ""},
      {"a", "../b", "a/../b"},
  };
  for (const auto& [path, component, expected] : ROWS) {
    EXPECT_EQ(appendingPathComponent(path, component), expected) << path << " and " << component;
  }
}

}  // namespace
}  // namespace quobrak
