# Qt's common headers, read once for all files of a kind: a build from nothing takes half the time.
# Files include what they use all the same; what is shipped is built without, and shows it.

# clang refuses headers that were read under other macros.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(PLAYWIDGET_PRECOMPILE OFF)
endif()

# playwidget_precompiled_headers(<owner> [OPTIONS <compile option>...] [LIBRARIES <target>...]
#                                HEADERS <header>...)
function(playwidget_precompiled_headers owner)
  cmake_parse_arguments(arg "" "" "OPTIONS;LIBRARIES;HEADERS" ${ARGN})
  if(NOT PLAYWIDGET_PRECOMPILE)
    return()
  endif()
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${owner}.cpp CONTENT "")
  add_library(${owner} OBJECT EXCLUDE_FROM_ALL ${CMAKE_CURRENT_BINARY_DIR}/${owner}.cpp)
  target_compile_options(${owner} PRIVATE ${arg_OPTIONS})
  target_link_libraries(${owner} PRIVATE playwidget_options Qt::Widgets ${arg_LIBRARIES})
  target_precompile_headers(${owner} PRIVATE ${arg_HEADERS})
endfunction()

# playwidget_use_precompiled(<target> <owner>): both are compiled with the same options.
function(playwidget_use_precompiled target owner)
  if(PLAYWIDGET_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

playwidget_precompiled_headers(playwidget_qt_headers
  HEADERS <QApplication> <QWidget> <QLabel> <QTimer> <QImage> <QPainter> <QRegularExpression>
    <functional> <memory> <vector>)
