#include "quobrakUITests/Fields.h"

#include <cstddef>

namespace quobrak {

void splitAtCommas(std::string_view line, std::vector<std::string_view>& fields) {
  fields.clear();
  std::size_t begin = 0;
  for (std::size_t comma = line.find(','); comma != std::string_view::npos; comma = line.find(',', begin)) {
    fields.push_back(line.substr(begin, comma - begin));
    begin = comma + 1;
  }
  fields.push_back(line.substr(begin));
}

}  // namespace quobrak
