#pragma once

#include <cairo.h>

#include <memory>
#include <string_view>
#include <vector>

#include "drivers/simulator/Glyph.h"

namespace quobrak::simulator::painting {

/// The font that comes with the program, at one weight. It is loaded when it is first asked for.
class TextFont {
 public:
  static const TextFont& regular();
  static const TextFont& bold();

  TextFont(const TextFont&) = delete;
  TextFont& operator=(const TextFont&) = delete;

  /// What is drawn of a UTF-8 text, in the order in which it is read; ill-formed bytes become U+FFFD.
  std::vector<Glyph> glyphsOf(std::string_view text) const;

  /// Sets font, size (in the context's units) and rendering for drawing glyphs.
  void select(cairo_t& context, double size) const;

  /// Distances of a line's edges from its baseline at a font size of 1.
  static constexpr double ASCENT = 0.93;
  static constexpr double DESCENT = 0.24;

 private:
  enum class Weight { REGULAR, BOLD };
  explicit TextFont(Weight weight);

  std::vector<Glyph> plainGlyphsOf(std::string_view text) const;

  template <auto Destroy>
  struct Deleter {
    template <class T>
    void operator()(T* object) const {
      Destroy(object);
    }
  };

  std::unique_ptr<cairo_font_options_t, Deleter<cairo_font_options_destroy>> options_;
  std::unique_ptr<cairo_font_face_t, Deleter<cairo_font_face_destroy>> face_;
  std::unique_ptr<cairo_scaled_font_t, Deleter<cairo_scaled_font_destroy>> ruler_;
};

}  // namespace quobrak::simulator::painting
