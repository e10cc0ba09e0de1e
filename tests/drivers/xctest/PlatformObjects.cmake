# The adapter as object files of the platform, with and without automatic reference counting.

set(apple_missing "")
foreach(need QUOBRAK_OBJCXX QUOBRAK_OBJDUMP GNUSTEP_HEADERS APPLE_LIBCXX APPLE_LIBC)
  if(NOT ${need})
    list(APPEND apple_missing ${need})
  endif()
endforeach()
if(apple_missing)
  list(JOIN apple_missing ", " apple_missing)
  quobrak_skipped(xctest.PlatformObjects
    "the 2 checks of the adapter's objects for the platform need what was not found: ${apple_missing} (packages clang-16 llvm-16 libc++-16-dev musl-dev libgnustep-base-dev)")
  return()
endif()

execute_process(COMMAND ${QUOBRAK_OBJCXX} -print-resource-dir OUTPUT_VARIABLE resources OUTPUT_STRIP_TRAILING_WHITESPACE)

# xctest_apple_objects(NAME FLAGS ...): the objects, and the test that they send what is documented and nothing else.
function(xctest_apple_objects target)
  add_library(${target} OBJECT ${driver} ${foundation} ${bundle})
  target_compile_options(${target} PRIVATE
    --target=arm64-apple-ios15.0 -D_GNU_SOURCE -fblocks -fobjc-exceptions -fexceptions ${ARGN} -nostdinc -nostdinc++
    ${declarations} -I${CMAKE_CURRENT_SOURCE_DIR}/apple
    "SHELL:-isystem ${APPLE_LIBCXX}" "SHELL:-isystem ${resources}/include" "SHELL:-isystem ${APPLE_LIBC}"
    "SHELL:-isystem ${GNUSTEP_HEADERS}" ${warnings})
  add_test(NAME xctest.${target}
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/check-selectors ${QUOBRAK_OBJDUMP} ${CMAKE_CURRENT_SOURCE_DIR}/selectors.txt
            $<TARGET_OBJECTS:${target}>
    COMMAND_EXPAND_LISTS)
endfunction()

xctest_apple_objects(xctest_objects_counted_by_hand)
xctest_apple_objects(xctest_objects_counted_automatically -fobjc-arc)
