#include "drivers/simulator/PageText.h"

#include <algorithm>
#include <cstddef>
#include <pugixml.hpp>
#include <utility>

#include "drivers/simulator/PageSourceError.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
constexpr std::string_view UTF16_MARKS[] = {"\xFF\xFE", "\xFE\xFF"};

/// The mark that the bytes lack where every other one is zero, as with UTF-16. No text in UTF-8 has a zero.
std::string_view missingMark(std::string_view bytes) {
  if (bytes.size() < 2 || (bytes[0] == '\0') == (bytes[1] == '\0')) {
    return "";
  }
  return UTF16_MARKS[bytes[0] == '\0' ? 1 : 0];
}

/// Empty where the page's XML declaration does not say.
std::string_view declaredEncoding(std::string_view bytes) {
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  const auto open = declaration.find_first_of("\"'", declaration.find("encoding"));
  if (!declaration.starts_with("<?xml") || open == declaration.npos) {
    return "";
  }
  const auto close = declaration.find(declaration[open], open + 1);
  return close == declaration.npos ? "" : declaration.substr(open + 1, close - open - 1);
}

bool isLatin1(std::string_view encoding) {
  const std::string name = caseFolded(encoding).text;
  return name == "iso-8859-1" || name == "latin1";
}

/// Its characters are the first 256 of Unicode, a byte each.
std::string fromLatin1(std::string_view bytes) {
  std::wstring characters(bytes.size(), L'\0');
  std::transform(bytes.begin(), bytes.end(), characters.begin(),
                 [](char byte) { return static_cast<wchar_t>(static_cast<unsigned char>(byte)); });
  return pugi::as_utf8(characters);
}

PageSourceError error(std::string_view text, std::size_t offset, std::string reason) {
  PageSourceFaults faults(text);
  faults.add(offset, std::move(reason));
  return faults.error();
}

/// Of bytes that are in no encoding that is read here.
PageSourceError unreadable(std::string_view bytes) {
  const std::string repaired = repairedUTF8(bytes);
  const auto wellFormed = std::mismatch(bytes.begin(), bytes.end(), repaired.begin(), repaired.end()).first;
  const std::string encoding(declaredEncoding(repaired));
  const std::string declared = encoding.empty() ? "" : " (its declaration calls it \"" + encoding + "\")";
  return error(repaired, static_cast<std::size_t>(wellFormed - bytes.begin()),
               "the page is not UTF-8" + declared + "; it must be saved in UTF-8");
}

/// The text in bytes that are not UTF-8.
std::string decoded(std::string_view bytes) {
  std::optional<std::string> text = decodedText(std::string(missingMark(bytes)).append(bytes));
  if (text) {
    return std::move(*text);
  }
  if (isLatin1(declaredEncoding(bytes))) {
    return fromLatin1(bytes);
  }
  throw unreadable(bytes);
}

bool isJSON(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  return first != text.npos && std::string_view("{[\"").find(text[first]) != text.npos;
}

}  // namespace

PageText::PageText(std::string_view bytes) : bytes_(bytes) {
  if (!missingMark(bytes).empty() || !isUTF8(bytes)) {
    decoded_ = decoded(bytes);
  } else if (bytes.starts_with(UTF8_MARK)) {
    bytes_.remove_prefix(UTF8_MARK.size());
  }
  if (isJSON(utf8())) {
    throw error(utf8(), utf8().find_first_of("{[\""),
                "this is JSON, and a page is XML; in a server's reply it is the text of \"value\", which is taken out "
                "with, for example, jq -r .value REPLY > PAGE");
  }
}

}  // namespace quobrak::simulator
