# The adapter on GNUstep's Foundation, with stand-ins for the platform's test framework and the simulated phone in the
# place of a real one.

if(NOT GNUSTEP_FOUND)
  set(count 0)
  foreach(file ${run_tests})
    file(STRINGS ${file} tests REGEX "^TEST")
    list(LENGTH tests length)
    math(EXPR count "${count} + ${length}")
  endforeach()
  quobrak_skipped(xctest.StandIns
    "the ${count} tests of the adapter on stand-ins, and those of foundation on its Foundation: ${GNUSTEP_MISSING}")
  return()
endif()

get_filename_component(objc_folder ${GCC_OBJC} DIRECTORY)
find_package(ICU 72 REQUIRED COMPONENTS uc)

# xctest_objects(NAME LINKS ... SOURCES ...): Objective-C++ that runs here.
function(xctest_objects target)
  cmake_parse_arguments(OBJECTS "" "" "LINKS;SOURCES" ${ARGN})
  add_library(${target} OBJECT ${OBJECTS_SOURCES})
  target_link_libraries(${target} PUBLIC ${OBJECTS_LINKS})
  # The headers of GCC's run time stand last, because clang has better ones of the same names.
  target_compile_options(${target} PRIVATE
    -fobjc-runtime=gcc -fobjc-exceptions -fexceptions -fblocks -fconstant-string-class=NSConstantString
    -I${CMAKE_CURRENT_SOURCE_DIR}/gnustep ${declarations} "SHELL:-isystem ${GNUSTEP_HEADERS}"
    "SHELL:-idirafter ${objc_folder}/include" ${warnings})
endfunction()

xctest_objects(xctest_driver_objects LINKS xctest xctest_encodings SOURCES ${driver} ${foundation})
xctest_objects(xctest_bundle_objects LINKS xctest xctest_bundle SOURCES ${bundle})
xctest_objects(xctest_standin_objects
  LINKS xctest simulator
  SOURCES ${standins})

add_library(xctest_standin_core STATIC ${standin_core})
target_link_libraries(xctest_standin_core PUBLIC simulator PRIVATE ICU::uc)
quobrak_target(xctest_standin_core)

# What a test program links to drive the adapter: it takes the place of foundation_icu too. Object files, because
# classes that are found by their names alone would be left out of an archive.
add_library(xctest_standins INTERFACE)
target_sources(xctest_standins INTERFACE
  $<TARGET_OBJECTS:xctest_driver_objects> $<TARGET_OBJECTS:xctest_bundle_objects>
  $<TARGET_OBJECTS:xctest_standin_objects>)
if(QUOBRAK_SANITIZE)
  list(TRANSFORM leak_suppressions PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(xctest_standins INTERFACE ${leak_suppressions})
endif()
# The blocks' run time comes before Foundation, which brings a copying of blocks that leaves them where they are.
target_link_libraries(xctest_standins INTERFACE
  xctest xctest_encodings xctest_bundle xctest_standin_core ${BLOCKS_RUNTIME} ${GNUSTEP_BASE} ${GCC_OBJC})

# quobrak_standin_tests(NAME [PREFIX ...] LINKS ... SOURCES ...): as quobrak_tests, with Foundation in the place of ICU.
function(quobrak_standin_tests target)
  cmake_parse_arguments(TESTS "" "PREFIX" "LINKS;SOURCES" ${ARGN})
  add_executable(${target} ${TESTS_SOURCES})
  target_link_libraries(${target} PRIVATE ${TESTS_LINKS} xctest_standins GTest::gmock GTest::gtest GTest::gtest_main)
  quobrak_target(${target})
  gtest_discover_tests(${target} TEST_PREFIX "${TESTS_PREFIX}" DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 LABELS conformance)
endfunction()

quobrak_standin_tests(xctest_tests
  LINKS test_support
  SOURCES ${run_tests})
target_compile_definitions(xctest_tests PRIVATE
  QUOBRAK_SELECTORS="${CMAKE_CURRENT_SOURCE_DIR}/selectors.txt"
  QUOBRAK_EXAMPLE_SCRIPT="${PROJECT_SOURCE_DIR}/examples/shop/order.txt")

# What the headers of foundation promise, by the platform's Foundation. GNUstep's cannot show all of it: it knows neither
# emoji sequences, flags nor Hangul as one character, ends a long match at its first report of progress, gives up long
# searches without a word, and tells no reason why a pattern does not compile (nor does the platform).
add_executable(xctest_foundation_tests
  ${PROJECT_SOURCE_DIR}/tests/platform/foundation/NSRegularExpressionTest.cpp
  ${PROJECT_SOURCE_DIR}/tests/platform/foundation/PredicateEvaluatorTest.cpp
  ${PROJECT_SOURCE_DIR}/tests/platform/foundation/UnicodeTest.cpp)
target_link_libraries(xctest_foundation_tests PRIVATE
  test_support xctest_standins GTest::gmock GTest::gtest GTest::gtest_main)
quobrak_target(xctest_foundation_tests)
set(not_shown
  CharacterCount.CountsWhatAReaderTakesForOneCharacter
  Characters.ArePartsOfTheTextInTheirOrder
  NSRegularExpression.PatternThatDoesNotCompileIsNamedWithTheFaultAndItsPlace
  NSRegularExpression.MatchThatWouldBacktrackForEverIsGivenUp
  NSRegularExpression.MatchThatBacktracksTooDeeplyIsGivenUp
  NSRegularExpression.AFirstMatchIsLookedForInTextsOfAnyLength
  PredicateEvaluator.LiteralPatternThatDoesNotCompileIsRefusedAtConstruction
  PredicateEvaluator.PatternOfTheSourceThatDoesNotCompileIsRefusedAtEvaluation
  PredicateEvaluator.PatternThatBacktracksForEverIsGivenUp)
list(JOIN not_shown ":" not_shown)
gtest_discover_tests(xctest_foundation_tests
  TEST_PREFIX OnFoundation. TEST_FILTER "-${not_shown}" DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
