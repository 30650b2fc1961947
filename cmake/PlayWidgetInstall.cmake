# What `cmake --install` puts where, and the packages that CPack makes of it.
# Not here: the Debian side of the packages (PlayWidgetPackages.cmake).
include(CMakePackageConfigHelpers)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/PlayWidget)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/PlayWidget)

# While the version starts with 0 a minor version may change the interface.
set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

# A moved prefix finds its own libraries; in the system's folders they are found anyway.
set(rpath_of_libraries "$ORIGIN")
file(RELATIVE_PATH libdir_of_programs
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(rpath_of_programs "$ORIGIN/${libdir_of_programs}")
set(plugins ${CMAKE_INSTALL_LIBDIR}/qt${PLAYWIDGET_QT}/plugins/designer)
set(rpath_of_plugins "$ORIGIN/../../..")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  unset(rpath_of_libraries)
  unset(rpath_of_programs)
  unset(rpath_of_plugins)
endif()

# --- libraries
# playwidget_install_library(<target> <imported name> <component> <title> PC_REQUIRES <modules>)
function(playwidget_install_library target name component title)
  cmake_parse_arguments(arg "" "PC_REQUIRES;PC_PRIVATE" "" ${ARGN})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${soversion}
    INSTALL_RPATH "${rpath_of_libraries}")
  target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${headers}>)
  target_compile_features(${target} INTERFACE cxx_std_17)
  install(TARGETS ${target} EXPORT PlayWidgetTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
      COMPONENT ${component} NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)

  set(PC_NAME ${target})
  set(PC_TITLE "${title}")
  set(PC_REQUIRES "${arg_PC_REQUIRES}")
  set(PC_PRIVATE "${arg_PC_PRIVATE}")
  file(RELATIVE_PATH PC_PREFIX
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  string(REGEX REPLACE "/$" "" PC_PREFIX "${PC_PREFIX}")
  configure_file(cmake/package.pc.in cmake/${target}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/cmake/${target}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

set(widgets Qt${PLAYWIDGET_QT}Widgets)
set(engine)
if(PLAYWIDGET_ENGINE STREQUAL "mpv")
  set(engine kest)
  playwidget_install_library(kest Kest runtime "Engine on libmpv for PlayWidget"
    PC_REQUIRES ${widgets} PC_PRIVATE "mpv libavformat libavcodec libavutil")
endif()
playwidget_install_library(playwidget PlayWidget runtime "${PROJECT_DESCRIPTION}"
  PC_REQUIRES ${widgets} PC_PRIVATE "${engine}")
playwidget_install_library(fakekest FakeKest development "Recording engine for tests of hosts"
  PC_REQUIRES ${widgets})

# --- headers, under the paths by which they include each other
function(playwidget_install_headers)
  foreach(header IN LISTS ARGN)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${headers}/${folder} COMPONENT development)
  endforeach()
endfunction()

playwidget_install_headers(
  controls/controls_global.h
  controls/iconbutton.h
  controls/imagetracker.h
  engine/kest.h
  engine/mpv/kest_host.h
  engine/videownd.h
  fakekest/fakekest.h
  playwidget/keyboardaccess.h
  playwidget/playwidget.h
  playwidget/playwidget_global.h)

# --- the program, which installs itself (host/CMakeLists.txt), and the plugin
if(TARGET playwidget-preview)
  set_target_properties(playwidget-preview PROPERTIES INSTALL_RPATH "${rpath_of_programs}")
endif()
if(TARGET playwidget_designer)
  set_target_properties(playwidget_designer PROPERTIES INSTALL_RPATH "${rpath_of_plugins}")
  install(TARGETS playwidget_designer DESTINATION ${plugins} COMPONENT designer)
endif()

# --- the CMake package
configure_package_config_file(cmake/PlayWidgetConfig.cmake.in cmake/PlayWidgetConfig.cmake
  INSTALL_DESTINATION ${package}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/PlayWidgetConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/cmake/PlayWidgetConfig.cmake
  ${PROJECT_BINARY_DIR}/cmake/PlayWidgetConfigVersion.cmake
  DESTINATION ${package} COMPONENT development)
install(EXPORT PlayWidgetTargets NAMESPACE PlayWidget::
  DESTINATION ${package} COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
  include(PlayWidgetPackages)
endif()
