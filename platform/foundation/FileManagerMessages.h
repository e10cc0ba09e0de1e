#pragma once

#include <string>
#include <string_view>

namespace quobrak {

/// What was tried with a file; creating a folder counts as saving it.
enum class FileOperation { saving, reading, removing };

/// The platform's English sentence for a file operation that failed. `errorNumber` is a value of `errno`; `EILSEQ`
/// while reading says that the bytes are no text. `name` is the last component of the file's path and `folder` that of
/// its folder's path.
std::string fileManagerMessage(FileOperation operation, int errorNumber, std::string_view name,
                               std::string_view folder);

}  // namespace quobrak
