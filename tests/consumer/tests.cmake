# A stranger uses what we install, from a moved prefix, and the tree itself. Not under a sanitizer,
# which the stranger would have to use as well. Unoptimised, since nearly all of the time goes into
# compiling. Their label is `builds`, for those who have no use for that.
set(prefix ${CMAKE_CURRENT_BINARY_DIR}/consumer)
set(film ${PROJECT_SOURCE_DIR}/samples/depth.mkv)

# playwidget_consumer(<name> <source> <program> [BUILD_ONLY] [NEEDS <fixture>]
#                     [MAKES <fixture>] OPTIONS <cmake option>... ARGUMENTS <argument>...)
function(playwidget_consumer name source program)
  cmake_parse_arguments(arg "BUILD_ONLY" "NEEDS;MAKES" "OPTIONS;ARGUMENTS" ${ARGN})
  set(build ${prefix}/${name})
  set(run --test-command ${build}/${program} ${arg_ARGUMENTS})
  if(arg_BUILD_ONLY)
    set(run)
  endif()
  add_test(NAME consumer_${name}
    COMMAND ${CMAKE_CTEST_COMMAND}
      --build-and-test ${source} ${build}
      --build-noclean
      --build-generator ${CMAKE_GENERATOR}
      --build-options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}
        -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 ${arg_OPTIONS}
      ${run})
  set_tests_properties(consumer_${name} PROPERTIES
    LABELS builds
    ENVIRONMENT QT_QPA_PLATFORM=offscreen
    FIXTURES_REQUIRED "${arg_NEEDS}"
    FIXTURES_SETUP "${arg_MAKES}"
    PROCESSORS 2
    TIMEOUT 600)
endfunction()

add_test(NAME consumer_install COMMAND ${CMAKE_COMMAND}
  -D build=${PROJECT_BINARY_DIR} -D prefix=${prefix}/prefix
  -P ${CMAKE_CURRENT_SOURCE_DIR}/consumer/install.cmake)
set_tests_properties(consumer_install PROPERTIES LABELS builds FIXTURES_SETUP moved_prefix)

playwidget_consumer(find_package ${CMAKE_CURRENT_SOURCE_DIR}/consumer consumer
  NEEDS moved_prefix
  OPTIONS -DCMAKE_PREFIX_PATH=${prefix}/prefix/moved
  ARGUMENTS ${film})
playwidget_consumer(host_tests ${PROJECT_SOURCE_DIR}/examples/hosttest tst_filmdialog
  NEEDS moved_prefix
  OPTIONS -DCMAKE_PREFIX_PATH=${prefix}/prefix/moved)

# The project that README.md shows. It is built and not run: its dialog waits for a user.
configure_file(snippets/filmviewer/CMakeLists.txt consumer/readme_source/CMakeLists.txt COPYONLY)
configure_file(snippets/embed.cpp consumer/readme_source/main.cpp COPYONLY)
playwidget_consumer(readme ${prefix}/readme_source filmviewer BUILD_ONLY
  NEEDS moved_prefix
  OPTIONS -DCMAKE_PREFIX_PATH=${prefix}/prefix/moved)

add_test(NAME consumer_pkg_config COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/consumer/pkg_config.sh
  ${prefix}/prefix/moved ${prefix}/pkg_config/consumer ${film})
set_tests_properties(consumer_pkg_config PROPERTIES
  LABELS builds
  ENVIRONMENT "CXX=${CMAKE_CXX_COMPILER};QT_QPA_PLATFORM=offscreen"
  FIXTURES_REQUIRED moved_prefix)

# The widget with another engine: whatever has the functions and the window, such as the recording
# engine; one version shows that.
if(PLAYWIDGET_QT EQUAL 6)
  playwidget_consumer(external_engine ${PROJECT_SOURCE_DIR} none BUILD_ONLY
    OPTIONS -DPLAYWIDGET_ENGINE=external
      -DPLAYWIDGET_ENGINE_LIBRARY=$<TARGET_FILE:fakekest>
      -DPLAYWIDGET_VIDEOWND_LIBRARY=$<TARGET_FILE:fakekest>
      -DPLAYWIDGET_WERROR=${PLAYWIDGET_WERROR} -DPLAYWIDGET_PRECOMPILE=ON
      -DPLAYWIDGET_TESTS=OFF -DPLAYWIDGET_BENCHMARKS=OFF -DPLAYWIDGET_TOOLS=OFF)
endif()

# The tree inside a stranger's project, as static libraries; those are installed and found as well.
playwidget_consumer(add_subdirectory ${CMAKE_CURRENT_SOURCE_DIR}/consumer consumer
  MAKES static_build
  OPTIONS -DPLAYWIDGET_SOURCE=${PROJECT_SOURCE_DIR} -DPLAYWIDGET_QT=${PLAYWIDGET_QT}
    -DPLAYWIDGET_WERROR=${PLAYWIDGET_WERROR} -DPLAYWIDGET_PRECOMPILE=ON -DBUILD_SHARED_LIBS=OFF -DPLAYWIDGET_INSTALL=ON
  ARGUMENTS ${film})
add_test(NAME consumer_install_static COMMAND ${CMAKE_COMMAND}
  -D build=${prefix}/add_subdirectory -D prefix=${prefix}/static_prefix
  -P ${CMAKE_CURRENT_SOURCE_DIR}/consumer/install.cmake)
set_tests_properties(consumer_install_static PROPERTIES
  LABELS builds
  FIXTURES_REQUIRED static_build
  FIXTURES_SETUP static_prefix)

# With Qt 6 our own host program as well, which may see nothing else, and whose names stand beside
# those of the libraries in one program; one version shows that.
set(host_sources)
if(PLAYWIDGET_QT EQUAL 6)
  set(host_sources -DHOST_SOURCES=${PROJECT_SOURCE_DIR}/host)
endif()
playwidget_consumer(find_static ${CMAKE_CURRENT_SOURCE_DIR}/consumer consumer
  NEEDS static_prefix
  MAKES static_preview
  OPTIONS -DCMAKE_PREFIX_PATH=${prefix}/static_prefix/moved ${host_sources}
  ARGUMENTS ${film})
if(host_sources)
  add_test(NAME consumer_static_preview COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/preview_commandline.sh
    ${prefix}/find_static/host_build/playwidget-preview ${PROJECT_SOURCE_DIR}/samples
    ${PROJECT_SOURCE_DIR}/host/desktop/playwidget-preview.1)
  set_tests_properties(consumer_static_preview PROPERTIES
    LABELS builds
    FIXTURES_REQUIRED static_preview
    TIMEOUT 120)
endif()
