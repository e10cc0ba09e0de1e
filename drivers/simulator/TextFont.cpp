#include "drivers/simulator/TextFont.h"

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/TextLayout.h"
#include "drivers/simulator/TextShaping.h"
#include "platform/foundation/FatalError.h"
#include "platform/foundation/Unicode.h"

#include <cairo-ft.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstddef>
#include <string>

namespace quobrak::simulator::painting {
namespace {

// Large enough that the widths measured there are exact to the font's own units.
constexpr double RULER_SIZE = 2048;

// A FreeType face with the library that it lives in; cairo keeps both for as long as it may draw with them.
class LoadedFace {
 public:
  LoadedFace() {
    const std::string_view font = builtinFont();
    if (FT_Init_FreeType(&library_) != 0 || FT_New_Memory_Face(library_, reinterpret_cast<const FT_Byte*>(font.data()),
                                                               static_cast<FT_Long>(font.size()), 0, &face_) != 0) {
      fatalError("The built-in font cannot be loaded.");
    }
  }
  ~LoadedFace() { FT_Done_FreeType(library_); }
  LoadedFace(const LoadedFace&) = delete;
  LoadedFace& operator=(const LoadedFace&) = delete;

  FT_Face face() const { return face_; }

 private:
  FT_Library library_ = nullptr;
  FT_Face face_ = nullptr;
};

cairo_font_face_t* makeFontFace() {
  static const cairo_user_data_key_t KEY{};
  auto loaded = std::make_unique<LoadedFace>();
  cairo_font_face_t* const face = cairo_ft_font_face_create_for_ft_face(loaded->face(), FT_LOAD_NO_HINTING);
  const auto destroy = [](void* owned) { delete static_cast<LoadedFace*>(owned); };
  if (cairo_font_face_set_user_data(face, &KEY, loaded.get(), destroy) == CAIRO_STATUS_SUCCESS) {
    static_cast<void>(loaded.release());
  }
  return face;
}

cairo_font_options_t* makeFontOptions() {
  cairo_font_options_t* const options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  return options;
}

cairo_scaled_font_t* makeRuler(cairo_font_face_t* face, const cairo_font_options_t* options) {
  cairo_matrix_t size;
  cairo_matrix_init_scale(&size, RULER_SIZE, RULER_SIZE);
  cairo_matrix_t identity;
  cairo_matrix_init_identity(&identity);
  return cairo_scaled_font_create(face, &size, &identity, options);
}

// The arrays that cairo allocates for a text's glyphs.
struct GlyphArrays {
  GlyphArrays() = default;
  ~GlyphArrays() {
    cairo_glyph_free(glyphs);
    cairo_text_cluster_free(clusters);
  }
  GlyphArrays(const GlyphArrays&) = delete;
  GlyphArrays& operator=(const GlyphArrays&) = delete;

  cairo_glyph_t* glyphs = nullptr;
  int glyphCount = 0;
  cairo_text_cluster_t* clusters = nullptr;
  int clusterCount = 0;
  cairo_text_cluster_flags_t flags{};
};

}  // namespace

const TextFont& TextFont::regular() {
  static const TextFont FONT(Weight::REGULAR);
  return FONT;
}

const TextFont& TextFont::bold() {
  static const TextFont FONT(Weight::BOLD);
  return FONT;
}

TextFont::TextFont(Weight weight) : options_(makeFontOptions()), face_(makeFontFace()) {
  if (weight == Weight::BOLD) {
    cairo_ft_font_face_set_synthesize(face_.get(), CAIRO_FT_SYNTHESIZE_BOLD);
  }
  ruler_.reset(makeRuler(face_.get(), options_.get()));
}

std::vector<Glyph> TextFont::glyphsOf(std::string_view text) const {
  const std::string repaired = repairedUTF8(text);
  return needsShaping(repaired) ? shapedGlyphs(repaired) : plainGlyphsOf(repaired);
}

// One glyph for each character, one after the other.
std::vector<Glyph> TextFont::plainGlyphsOf(std::string_view text) const {
  std::vector<Glyph> result;
  GlyphArrays arrays;
  const cairo_status_t status =
      cairo_scaled_font_text_to_glyphs(ruler_.get(), 0, 0, text.data(), static_cast<int>(text.size()), &arrays.glyphs,
                                       &arrays.glyphCount, &arrays.clusters, &arrays.clusterCount, &arrays.flags);
  if (status != CAIRO_STATUS_SUCCESS) {
    return result;
  }
  std::size_t position = 0;
  for (int number = 0; number < arrays.glyphCount; ++number) {
    const auto length = static_cast<std::size_t>(arrays.clusters[number].num_bytes);
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(ruler_.get(), arrays.glyphs + number, 1, &extents);
    result.push_back(
        {arrays.glyphs[number].index, extents.x_advance / RULER_SIZE, kindOf(text.substr(position, length))});
    position += length;
  }
  return result;
}

void TextFont::select(cairo_t& context, double size) const {
  cairo_set_font_face(&context, face_.get());
  cairo_set_font_size(&context, size);
  cairo_set_font_options(&context, options_.get());
}

}  // namespace quobrak::simulator::painting
