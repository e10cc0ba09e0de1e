#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PhoneDescription.h"
#include "platform/foundation/Data.h"

namespace quobrak::host {

/// Writes a picture; all of it, or nothing. A file that is there already is replaced where it is a picture in PNG too,
/// and left alone where it is anything else. Throws `EnvironmentError`.
void writePicture(const std::optional<Data>& png, const std::filesystem::path& file);

/// Writes the pictures of all screens of the applications into a folder, which is made: APPLICATION/SCREEN.png, each as
/// the description has it. The names are what was written, in order. Throws `EnvironmentError`.
std::vector<std::filesystem::path> writePictures(const simulator::PhoneDescription& phone,
                                                 const std::vector<std::string>& applications,
                                                 const std::filesystem::path& folder);

/// The name as that of a file of its own: what would lead to another folder, or is hidden, is written as %2F.
std::string fileNameOf(std::string_view name);

}  // namespace quobrak::host
