# Precompiled headers: the standard library's for everything, the toolkit's for the windows, the test framework's for tests.
# Only headers of others stand here, so that a change of ours never compiles everything anew.
option(ORCUSSCH_PRECOMPILED "Compile the headers of others once" ON)

set(orcussch_std_headers <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <cstdlib> <exception> <filesystem> <fstream>
  <functional> <iostream> <limits> <map> <memory> <optional> <random> <set> <sstream> <stdexcept> <string> <string_view>
  <utility> <variant> <vector>)
set(orcussch_test_headers ${orcussch_std_headers} <gmock/gmock.h> <gtest/gtest.h>)
set(orcussch_toolkit_headers ${orcussch_std_headers} <QApplication> <QComboBox> <QDialog> <QHBoxLayout> <QHeaderView> <QKeyEvent>
  <QLabel> <QLineEdit> <QMenu> <QMessageBox> <QPainter> <QPushButton> <QScrollBar> <QSettings> <QStyle> <QTableView> <QTimer>
  <QToolBar> <QWidget>)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Lets ccache see which precompiled header a source took.
  target_compile_options(orcussch_settings INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # The same header makes the same file, so that ccache finds it again.
  target_compile_options(orcussch_settings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp>")
endif()

# orcussch_precompiled(TARGET std|test|toolkit|toolkit_test): TARGET takes the headers of that kind. The first target of each
# kind compiles them for all. Programs and libraries differ in how their code may be placed, and so do their headers.
function(orcussch_precompiled target kind)
  if(NOT ORCUSSCH_PRECOMPILED)
    return()
  endif()
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(owner orcussch_pch_${kind}_program)
  else()
    set(owner orcussch_pch_${kind})
  endif()
  if(NOT TARGET ${owner})
    set(source ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
    if(type STREQUAL "EXECUTABLE")
      add_executable(${owner} EXCLUDE_FROM_ALL ${source})
    else()
      add_library(${owner} STATIC EXCLUDE_FROM_ALL ${source})
    endif()
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF
      RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${owner} PRIVATE orcussch_settings)
    set(headers ${orcussch_std_headers})
    if(kind MATCHES "toolkit")
      find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
      target_link_libraries(${owner} PRIVATE Qt6::Widgets)
      list(APPEND headers ${orcussch_toolkit_headers})
    endif()
    if(kind MATCHES "test")
      target_link_libraries(${owner} PRIVATE GTest::gmock GTest::gtest)
      target_compile_options(${owner} PRIVATE ${orcussch_test_options})
      list(APPEND headers ${orcussch_test_headers})
    endif()
    list(REMOVE_DUPLICATES headers)
    target_precompile_headers(${owner} PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()
