# quobrak_embed_files(TARGET FUNCTION name NAMESPACE a::b BASE folder FILES path...): compiles files into a target.
#
# The target gets `std::optional<std::string_view> a::b::name(std::string_view path)`, which gives the bytes of the file
# at that path below BASE, none where FILES does not list it. Who calls it declares it. The assembler reads the files
# as they stand, so that a large one costs no compile time; a changed file is embedded anew at the next build.
function(quobrak_embed_files target)
  cmake_parse_arguments(EMBED "" "FUNCTION;NAMESPACE;BASE" "FILES" ${ARGN})
  set(declarations "")
  set(rows "")
  set(paths "")
  set(number 0)
  foreach(file IN LISTS EMBED_FILES)
    set(path ${EMBED_BASE}/${file})
    if(NOT EXISTS ${path})
      message(FATAL_ERROR "The file to embed does not exist: ${path}")
    endif()
    set(symbol ${EMBED_FUNCTION}_${number})
    string(APPEND declarations "QUOBRAK_EMBED(${symbol}, \"${path}\")\n")
    string(APPEND rows "    File{\"${file}\", ${symbol}, ${symbol}_end},\n")
    list(APPEND paths ${path})
    math(EXPR number "${number} + 1")
  endforeach()

  set(source ${CMAKE_CURRENT_BINARY_DIR}/${EMBED_FUNCTION}.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT [=[
// Made by cmake/EmbedFiles.cmake.
#include <optional>
#include <string_view>

// The section is left as it was found, and the byte after the file keeps an empty file's ends apart from its neighbours.
#define QUOBRAK_EMBED(symbol, path)                                                                   \
  extern "C" const char symbol[];                                                                     \
  extern "C" const char symbol##_end[];                                                               \
  asm(".pushsection .rodata\n.balign 16\n.global " #symbol "\n.global " #symbol "_end\n" #symbol ":\n" \
      ".incbin \"" path "\"\n" #symbol "_end:\n.byte 0\n.popsection\n");

@declarations@
namespace {

struct File {
  std::string_view path;
  const char* begin;
  const char* end;
};

const File FILES[] = {
@rows@};

}  // namespace

namespace @EMBED_NAMESPACE@ {

std::optional<std::string_view> @EMBED_FUNCTION@(std::string_view path) {
  for (const File& file : FILES) {
    if (file.path == path) {
      return std::string_view(file.begin, file.end);
    }
  }
  return std::nullopt;
}

}  // namespace @EMBED_NAMESPACE@
]=])
  # The compiler's own dependency scan does not see what the assembler reads.
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${paths}")
  target_sources(${target} PRIVATE ${source})
endfunction()
