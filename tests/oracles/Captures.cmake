# CTest reads this each time it starts, because which captures there are is not known when the program is built: one test
# for each capture, or one that shows as skipped.
set(folder "$ENV{QUOBRAK_PAGE_SOURCES}")
set(captures "")
if(folder)
  file(GLOB captures "${folder}/*.xml")
endif()

foreach(capture IN LISTS captures)
  get_filename_component(name "${capture}" NAME_WLE)
  string(REGEX REPLACE "[^A-Za-z0-9]" "_" name "${name}")
  add_test("oracle:capture ${name}" "$<TARGET_FILE:oracle_tests>" "--gtest_filter=Captures/*/${name}")
  set_tests_properties("oracle:capture ${name}"
    PROPERTIES TIMEOUT 120 LABELS oracle FAIL_REGULAR_EXPRESSION "Running 0 tests")
endforeach()

if(NOT captures)
  if(folder)
    set(reason "no capture: there is none in ${folder}")
  else()
    set(reason "skipped: QUOBRAK_PAGE_SOURCES names no folder of captures")
  endif()
  add_test("oracle:captures" echo "${reason}")
  set_tests_properties("oracle:captures" PROPERTIES LABELS oracle
    SKIP_REGULAR_EXPRESSION "^skipped: " FAIL_REGULAR_EXPRESSION "^no capture: ")
endif()
