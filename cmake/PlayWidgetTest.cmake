# playwidget_test(<name> [SOURCES <file>...] [LIBRARIES <target>...] [PLATFORM <qpa platform>]
#                 [TIMEOUT <seconds>] [SCALES <factor>...] [SESSION <program>])
#
# Builds <name>.cpp and SOURCES into a Qt Test program and registers it with CTest. It runs on Qt's
# offscreen platform unless PLATFORM names another; with xcb it gets an X display of its own, so that
# tests with real windows and a real mouse can run side by side. With SCALES it is registered once
# for each density of the screen, under its name and the factor. SESSION names a program that runs it
# in surroundings of its own, a display included. A sanitizer gives it five times TIMEOUT.
function(playwidget_test name)
  cmake_parse_arguments(arg "" "PLATFORM;TIMEOUT;SESSION" "SOURCES;LIBRARIES;SCALES" ${ARGN})
  if(NOT arg_PLATFORM)
    set(arg_PLATFORM offscreen)
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  if(PLAYWIDGET_SANITIZE)
    math(EXPR arg_TIMEOUT "5 * ${arg_TIMEOUT}")
  endif()
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  # Qt's widgets for the precompiled headers, which have to be read under the same macros.
  target_link_libraries(${name} PRIVATE playwidget_options ${arg_LIBRARIES} Qt::Widgets Qt::Test)
  # A test runs for a moment and is compiled for longer; what it tests keeps its own options.
  target_compile_options(${name} PRIVATE -O0)
  # libmpv's own options would make the headers others.
  if(NOT "${arg_LIBRARIES}" MATCHES "PkgConfig::MPV")
    playwidget_use_precompiled(${name} playwidget_test_headers)
  endif()
  # Its one class stands in its one file: nothing to search for, as AUTOMOC would.
  set(moc ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
  qt_generate_moc(${name}.cpp ${moc} TARGET ${name})
  target_sources(${name} PRIVATE ${moc})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  set(display ${arg_SESSION})
  if(arg_PLATFORM STREQUAL "xcb" AND NOT arg_SESSION)
    # Keys do not repeat: a busy machine may hold one longer than a hand would.
    set(display xvfb-run --auto-servernum --server-args "-screen 0 1280x1024x24 -r")
  endif()
  if(NOT arg_SCALES)
    set(arg_SCALES 1)
  endif()
  foreach(scale IN LISTS arg_SCALES)
    set(test ${name})
    if(NOT scale EQUAL 1)
      string(APPEND test _${scale}x)
    endif()
    add_test(NAME ${test} COMMAND ${display} $<TARGET_FILE:${name}>)
    set_tests_properties(${test} PROPERTIES
      TIMEOUT ${arg_TIMEOUT}
      ENVIRONMENT "QT_QPA_PLATFORM=${arg_PLATFORM};QT_SCALE_FACTOR=${scale};LC_ALL=C.UTF-8")
  endforeach()
endfunction()
