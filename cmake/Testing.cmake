# plotvane_test(NAME SOURCES… [LIBRARIES…]): one GoogleTest program, one ctest line for each of its tests' files.
# The Windows builds make the programs too; tests/wine runs them there.
function(plotvane_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE plotvane plotvane_floating_point ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  plotvane_warnings(${name})
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT
    "UBSAN_OPTIONS=print_stacktrace=1;ASAN_OPTIONS=detect_leaks=1")
endfunction()
