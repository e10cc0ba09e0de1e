#pragma once

#include <cairo.h>

#include <memory>
#include <string_view>
#include <vector>

namespace quobrak::simulator::painting {

/// One drawn character of a text.
struct Glyph {
  enum class Kind { INK, IDEOGRAPH, BLANK, NEWLINE };

  /// Its number in the font; 0 is the box of a character that the font lacks.
  unsigned long index = 0;
  /// Its width at a font size of 1.
  double advance = 0;
  Kind kind = Kind::INK;
};

/// The font that comes with the program, at one weight. It is loaded when it is first asked for.
class TextFont {
 public:
  static const TextFont& regular();
  static const TextFont& bold();

  TextFont(const TextFont&) = delete;
  TextFont& operator=(const TextFont&) = delete;

  /// The characters of a UTF-8 text, one glyph each; ill-formed bytes become U+FFFD.
  std::vector<Glyph> glyphsOf(std::string_view text) const;

  /// Sets font, size (in the context's units) and rendering for drawing glyphs.
  void select(cairo_t& context, double size) const;

  /// Distances of a line's edges from its baseline at a font size of 1.
  static constexpr double ASCENT = 0.93;
  static constexpr double DESCENT = 0.24;

 private:
  enum class Weight { REGULAR, BOLD };
  explicit TextFont(Weight weight);

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
