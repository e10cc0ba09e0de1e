#include "platform/foundation/Paths.h"

#include <algorithm>

namespace quobrak {

namespace {

std::string_view withoutSlashesAtTheEnd(std::string_view path) {
  return path.substr(0, path.find_last_not_of('/') + 1);
}

std::string_view withoutSlashesAtTheStart(std::string_view path) {
  return path.substr(std::min(path.find_first_not_of('/'), path.size()));
}

// Of a path that is nothing but slashes, one is left.
std::string_view trimmed(std::string_view path) {
  const std::string_view result = withoutSlashesAtTheEnd(path);
  return result.empty() ? path.substr(0, 1) : result;
}

// Where the last component of a trimmed path starts.
std::size_t startOfLastComponent(std::string_view path) {
  return path == "/" ? 0 : path.rfind('/') + 1;
}

}  // namespace

std::string lastPathComponent(std::string_view path) {
  const std::string_view whole = trimmed(path);
  return std::string(whole.substr(startOfLastComponent(whole)));
}

std::string deletingLastPathComponent(std::string_view path) {
  const std::string_view whole = trimmed(path);
  if (whole == "/") {
    return "/";
  }
  return std::string(trimmed(whole.substr(0, startOfLastComponent(whole))));
}

std::string deletingPathExtension(std::string_view path) {
  const std::string_view whole = trimmed(path);
  const std::size_t start = startOfLastComponent(whole);
  const std::string_view name = whole.substr(start);
  const std::size_t dot = name.rfind('.');
  // ".." and "..name" are no more a name with an extension than ".name" is.
  const bool hasExtension = dot != std::string_view::npos && name.find_first_not_of('.') < dot;
  return std::string(hasExtension ? whole.substr(0, start + dot) : whole);
}

std::string appendingPathComponent(std::string_view path, std::string_view component) {
  if (path.empty()) {
    return std::string(component);
  }
  const std::string_view appended = withoutSlashesAtTheStart(component);
  if (appended.empty()) {
    return std::string(trimmed(path));
  }
  std::string result(withoutSlashesAtTheEnd(path));
  result += '/';
  result += appended;
  return result;
}

}  // namespace quobrak
