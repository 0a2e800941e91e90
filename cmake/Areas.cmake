# orcussch_area(NAME [LINK targets...] [PRIVATE_LINK targets...] SOURCES files...): a folder's static library with the project's
# settings. An include names its area from the root of its side: "platform/values/value.h" below src/, and for an adapter also
# "engine/translate/names/catalogue.h" below adapters/. What lies in src/ does not see the adapters.
function(orcussch_area name)
  cmake_parse_arguments(AREA "" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${name} STATIC ${AREA_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  set(adapters ${PROJECT_SOURCE_DIR}/adapters)
  cmake_path(IS_PREFIX adapters ${CMAKE_CURRENT_SOURCE_DIR} is_adapter)
  if(is_adapter)
    target_include_directories(${name} PUBLIC ${adapters})
  endif()
  target_link_libraries(${name} PUBLIC ${AREA_LINK} PRIVATE $<BUILD_INTERFACE:orcussch_settings> ${AREA_PRIVATE_LINK})
  if(Qt6::Widgets IN_LIST AREA_LINK)
    orcussch_precompiled(${name} toolkit)
  else()
    orcussch_precompiled(${name} std)
  endif()
endfunction()

# Test code is compiled without optimisation: it spends its time in the libraries, which are optimised.
set(orcussch_test_options -O0)

# orcussch_test(NAME [LABELS ...] [LINK targets...] SOURCES files...): a GoogleTest program and its CTest entries.
function(orcussch_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LINK;LABELS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${T_LINK} orcussch_settings GTest::gmock GTest::gtest GTest::gtest_main)
  target_compile_options(${name} PRIVATE ${orcussch_test_options})
  if(orcussch_desktop IN_LIST T_LINK OR Qt6::Widgets IN_LIST T_LINK)
    orcussch_precompiled(${name} toolkit_test)
  else()
    orcussch_precompiled(${name} test)
  endif()
  target_compile_definitions(${name} PRIVATE ORCUSSCH_TEST_DIR="${PROJECT_SOURCE_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${T_LABELS}" TIMEOUT 600)
endfunction()
