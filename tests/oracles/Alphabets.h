#pragma once

#include <string_view>

namespace quobrak::oracles {

// XPath 1.0 knows no case; its translate() replaces the characters that one lists. Here are the letters that have a
// partner in the other case and nothing more to them, and their partners in the same order.

inline constexpr std::string_view CAPITALS =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"
    "ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΪΫΆΈΉΊΌΎΏ"
    "АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁЄІЇ";
inline constexpr std::string_view SMALL_LETTERS =
    "abcdefghijklmnopqrstuvwxyz"
    "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"
    "αβγδεζηθικλμνξοπρστυφχψωϊϋάέήίόύώ"
    "абвгдежзийклмнопрстуфхцчшщъыьэюяёєії";

/// Whether replacing capitals by small letters is all that comparing the text in any case needs: whether its characters
/// are ASCII, in the lists above, or of scripts and signs that have no case. Not so ß, which equals ss, or İ.
bool areAllTheAlphabets(std::string_view text);

}  // namespace quobrak::oracles
