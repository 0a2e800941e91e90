# orcussch_area(NAME [LINK targets...] SOURCES files...): a folder's static library with the project's settings. The
# include roots are src/ and adapters/, so that an include names its area: "platform/value.h", "engine/catalogue.h".
function(orcussch_area name)
  cmake_parse_arguments(AREA "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${name} STATIC ${AREA_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/adapters)
  target_link_libraries(${name} PUBLIC ${AREA_LINK} PRIVATE $<BUILD_INTERFACE:orcussch_settings> ${AREA_PRIVATE_LINK})
endfunction()

# orcussch_test(NAME [LABELS ...] [LINK targets...] SOURCES files...): a GoogleTest program and its CTest entries.
function(orcussch_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LINK;LABELS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${T_LINK} orcussch_settings GTest::gmock GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE ORCUSSCH_TEST_DIR="${PROJECT_SOURCE_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${T_LABELS}" TIMEOUT 600)
endfunction()
