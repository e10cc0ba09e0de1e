#pragma once

#include <string>
#include <string_view>

/// Operations on path texts, under the platform's names. They look at the text alone, never at a disk.
namespace quobrak {

/// The component after the last "/": "b.txt" of "a/b.txt". Slashes at the end are passed over: "b" of "a/b/"; "/" of
/// "/".
std::string lastPathComponent(std::string_view path);

/// The path without its last component and the "/" before it: "a" of "a/b.txt", "" of "b.txt", "/" of "/b.txt".
std::string deletingLastPathComponent(std::string_view path);

/// The path without its last component's final extension and the dot before it: "a.b" of "a.b.txt". A name that only
/// starts with a dot has no extension.
std::string deletingPathExtension(std::string_view path);

/// The two paths with exactly one "/" between them: a leading "/" of `component` is appended, never absolute.
std::string appendingPathComponent(std::string_view path, std::string_view component);

}  // namespace quobrak
