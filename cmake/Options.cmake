# What every target of the project is built with, and the two kinds of library that a folder has.

add_library(korvel_options INTERFACE)
target_compile_features(korvel_options INTERFACE cxx_std_20)
target_compile_options(korvel_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
# g++ 12 at -O3 sees an overlap in std::string's own operator+ and unset members in std::variant where there are none.
target_compile_options(korvel_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
target_include_directories(korvel_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(KORVEL_SANITIZE)
  target_compile_options(korvel_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                  -fno-omit-frame-pointer)
  target_link_options(korvel_options INTERFACE -fsanitize=address,undefined)
endif()
if(KORVEL_TESTS STREQUAL "fuzz")
  set(fuzzed -fsanitize=address,undefined,float-cast-overflow)
  target_compile_options(korvel_options INTERFACE -fsanitize=fuzzer-no-link ${fuzzed} -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
  target_link_options(korvel_options INTERFACE ${fuzzed})
endif()

# korvel_core(NAME SOURCES ... LINKS ...): rules apart from windows. Qt is not linked, so that including it does not compile.
function(korvel_core name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC korvel_options ${arg_LINKS})
endfunction()

# korvel_forms(NAME SOURCES ... LINKS ...): windows, made with Qt.
function(korvel_forms name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC korvel_options Qt6::Widgets ${arg_LINKS})
endfunction()

# korvel_test(NAME LABEL label SOURCES ... LINKS ...): one GoogleTest program, which is one ctest test. It lists its tests
# in tested/NAME.json, so that they can be counted.
function(korvel_test name)
  cmake_parse_arguments(arg "" "LABEL" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE korvel_options ${arg_LINKS})
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1 --gtest_output=json:${CMAKE_BINARY_DIR}/tested/${name}.json)
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABEL}"
                       ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=1")
endfunction()
