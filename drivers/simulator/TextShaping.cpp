#include "drivers/simulator/TextShaping.h"

#include "drivers/simulator/BuiltinFiles.h"
#include "drivers/simulator/TextDirection.h"
#include "drivers/simulator/TextLayout.h"
#include "platform/foundation/Unicode.h"

#include <hb.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace quobrak::simulator::painting {
namespace {

template <auto Destroy>
struct Deleter {
  template <class T>
  void operator()(T* object) const {
    Destroy(object);
  }
};
using Blob = std::unique_ptr<hb_blob_t, Deleter<hb_blob_destroy>>;
using Face = std::unique_ptr<hb_face_t, Deleter<hb_face_destroy>>;
using Font = std::unique_ptr<hb_font_t, Deleter<hb_font_destroy>>;
using Buffer = std::unique_ptr<hb_buffer_t, Deleter<hb_buffer_destroy>>;

// Its lengths are in the units that the font itself counts in.
Font loadedFont() {
  const std::string_view font = builtinFont();
  const Blob blob(
      hb_blob_create(font.data(), static_cast<unsigned>(font.size()), HB_MEMORY_MODE_READONLY, nullptr, nullptr));
  const Face face(hb_face_create(blob.get(), 0));
  return Font(hb_font_create(face.get()));
}

hb_font_t* sharedFont() {
  static const Font FONT = loadedFont();
  return FONT.get();
}

double atSizeOne(hb_position_t length) {
  return static_cast<double>(length) / hb_face_get_upem(hb_font_get_face(sharedFont()));
}

struct Paragraph {
  CodePoints codePoints;
  /// For each code point the number of the user-perceived character that it belongs to.
  std::vector<std::uint32_t> characterOf;
  /// For each user-perceived character.
  std::vector<Glyph::Kind> kinds;
  ParagraphLevels levels;
};

Paragraph paragraphOf(std::string_view text) {
  Paragraph paragraph;
  for (const std::string_view character : characters(text)) {
    const CodePoints codePoints = codePointsOf(character);
    const auto number = static_cast<std::uint32_t>(paragraph.kinds.size());
    paragraph.codePoints.insert(paragraph.codePoints.end(), codePoints.begin(), codePoints.end());
    paragraph.characterOf.resize(paragraph.codePoints.size(), number);
    paragraph.kinds.push_back(kindOf(character));
  }
  paragraph.levels = levelsOf(paragraph.codePoints);
  return paragraph;
}

bool isOfAnyScript(hb_script_t script) {
  return script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED;
}

// What all scripts share, such as blanks, is of the script before it, or at the start of the one that follows.
std::vector<hb_script_t> scriptsOf(const CodePoints& codePoints) {
  std::vector<hb_script_t> scripts;
  scripts.reserve(codePoints.size());
  for (const std::uint32_t codePoint : codePoints) {
    scripts.push_back(hb_unicode_script(hb_unicode_funcs_get_default(), codePoint));
  }
  const auto first = std::find_if_not(scripts.begin(), scripts.end(), isOfAnyScript);
  hb_script_t current = first == scripts.end() ? HB_SCRIPT_COMMON : *first;
  for (hb_script_t& script : scripts) {
    current = isOfAnyScript(script) ? current : script;
    script = current;
  }
  return scripts;
}

// Code points of one direction and one script.
struct Run {
  std::size_t start = 0;
  std::size_t end = 0;
  signed char level = 0;
  hb_script_t script = HB_SCRIPT_COMMON;
};

std::vector<Run> runsOf(const Paragraph& paragraph) {
  const std::vector<hb_script_t> scripts = scriptsOf(paragraph.codePoints);
  std::vector<Run> runs;
  for (std::size_t at = 0; at < paragraph.codePoints.size(); ++at) {
    const Run alone{at, at + 1, paragraph.levels.levels[at], scripts[at]};
    const bool isInsideCharacter = at > 0 && paragraph.characterOf[at] == paragraph.characterOf[at - 1];
    if (isInsideCharacter ||
        (!runs.empty() && runs.back().level == alone.level && runs.back().script == alone.script)) {
      runs.back().end = alone.end;
    } else {
      runs.push_back(alone);
    }
  }
  return runs;
}

// No language is set: HarfBuzz would guess it from the machine's settings.
Buffer shapedBuffer(const Paragraph& paragraph, const Run& run) {
  // Latin text is drawn with its letters apart, whether it needs shaping or not.
  static constexpr auto OFF = [](hb_tag_t tag) {
    return hb_feature_t{tag, 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
  };
  static constexpr std::array FEATURES{OFF(HB_TAG('k', 'e', 'r', 'n')), OFF(HB_TAG('l', 'i', 'g', 'a')),
                                       OFF(HB_TAG('c', 'l', 'i', 'g'))};
  Buffer buffer(hb_buffer_create());
  hb_buffer_add_codepoints(buffer.get(), paragraph.codePoints.data(), static_cast<int>(paragraph.codePoints.size()),
                           static_cast<unsigned>(run.start), static_cast<int>(run.end - run.start));
  unsigned count = 0;
  hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
  for (hb_glyph_info_t& info : std::span(infos, count)) {
    info.cluster = paragraph.characterOf[info.cluster];
  }
  hb_buffer_set_direction(buffer.get(), run.level % 2 == 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  hb_buffer_set_script(buffer.get(), run.script);
  hb_buffer_set_flags(buffer.get(), HB_BUFFER_FLAG_REMOVE_DEFAULT_IGNORABLES);
  hb_shape(sharedFont(), buffer.get(), FEATURES.data(), static_cast<unsigned>(FEATURES.size()));
  return buffer;
}

// What HarfBuzz made of a run, which it lists as it stands from left to right, in the order in which it is read.
struct ShapedSign {
  std::uint32_t character = 0;
  Glyph glyph;
};

std::vector<ShapedSign> signsOf(const Buffer& buffer, const Run& run, const Paragraph& paragraph) {
  unsigned count = 0;
  const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
  const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(buffer.get(), &count);
  std::vector<ShapedSign> signs;
  signs.reserve(count);
  for (unsigned number = 0; number < count; ++number) {
    const hb_glyph_position_t& position = positions[number];
    signs.push_back({infos[number].cluster,
                     {.index = infos[number].codepoint,
                      .advance = atSizeOne(position.x_advance),
                      .kind = paragraph.kinds[infos[number].cluster],
                      .right = atSizeOne(position.x_offset),
                      .above = atSizeOne(position.y_offset),
                      .level = run.level,
                      .paragraphLevel = paragraph.levels.base}});
  }
  if (run.level % 2 == 1) {
    std::reverse(signs.begin(), signs.end());
  }
  return signs;
}

void appendCharacter(std::vector<Glyph>& glyphs, std::span<const ShapedSign> signs) {
  constexpr hb_codepoint_t BOX = 0;
  const bool isLacking =
      std::any_of(signs.begin(), signs.end(), [](const ShapedSign& sign) { return sign.glyph.index == BOX; });
  if (isLacking) {
    const Glyph& first = signs.front().glyph;
    glyphs.push_back({.index = BOX,
                      .advance = atSizeOne(hb_font_get_glyph_h_advance(sharedFont(), BOX)),
                      .kind = first.kind,
                      .level = first.level,
                      .paragraphLevel = first.paragraphLevel});
    return;
  }
  for (const ShapedSign& sign : signs) {
    glyphs.push_back(sign.glyph);
    glyphs.back().isAttached = &sign != &signs.front();
  }
}

void appendRun(std::vector<Glyph>& glyphs, std::span<const ShapedSign> signs) {
  while (!signs.empty()) {
    const auto end = std::find_if(signs.begin(), signs.end(),
                                  [&](const ShapedSign& sign) { return sign.character != signs.front().character; });
    const auto length = static_cast<std::size_t>(end - signs.begin());
    appendCharacter(glyphs, signs.first(length));
    signs = signs.subspan(length);
  }
}

}  // namespace

bool needsShaping(std::string_view text) {
  // Combining marks, which are the first such characters, begin there.
  constexpr unsigned char FIRST_BYTE_FROM_U0300_ON = 0xCC;
  return std::any_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) >= FIRST_BYTE_FROM_U0300_ON; });
}

std::vector<Glyph> shapedGlyphs(std::string_view text) {
  constexpr std::string_view NEWLINES = "\n\r";
  std::vector<Glyph> glyphs;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find_first_of(NEWLINES, start), text.size());
    const Paragraph paragraph = paragraphOf(text.substr(start, end - start));
    for (const Run& run : runsOf(paragraph)) {
      appendRun(glyphs, signsOf(shapedBuffer(paragraph, run), run, paragraph));
    }
    if (end < text.size()) {
      glyphs.push_back({.kind = Glyph::Kind::NEWLINE});
    }
    start = end + 1;
  }
  return glyphs;
}

}  // namespace quobrak::simulator::painting
