# What every target of ours has in common. Warnings stay private: whoever links us keeps their own.

function(quobrak_target target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                                           -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Joining texts with + raises a false alarm in this version (bug 105651 of GCC).
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(QUOBRAK_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all
                                            -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # Between the sanitizers' checks it loses sight of what is initialised.
      target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
    endif()
  endif()
  if(QUOBRAK_FUZZER)
    # Tells the fuzzing library which ways through the code an input takes.
    target_compile_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
  endif()
endfunction()

# quobrak_folder(NAME HEADERS ... SOURCES ... LINKS ... PRIVATE_LINKS ...): the one library of a folder.
# LINKS are the folders that it may include; PRIVATE_LINKS are outside libraries that its sources alone see.
function(quobrak_folder target)
  cmake_parse_arguments(FOLDER "" "" "HEADERS;SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${target} STATIC ${FOLDER_SOURCES})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${FOLDER_HEADERS})
  # A header that does not compile on its own fails `./dev check`.
  set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  target_link_libraries(${target} PUBLIC ${FOLDER_LINKS} PRIVATE ${FOLDER_PRIVATE_LINKS})
  quobrak_target(${target})
endfunction()
