# How every target of the project is compiled, and where the results go.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# Unless the builder or an embedding project says otherwise; the choice stays in this folder.
if(NOT DEFINED BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS ON)
endif()

# Compile options for our own targets; an embedding project's targets stay as they are.
add_library(playwidget_options INTERFACE)
target_compile_options(playwidget_options INTERFACE -Wall -Wextra)
if(PLAYWIDGET_WERROR)
  target_compile_options(playwidget_options INTERFACE -Werror)
endif()
target_include_directories(playwidget_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(playwidget_options INTERFACE QT_DEPRECATED_WARNINGS)

if(PLAYWIDGET_SANITIZE)
  target_compile_options(playwidget_options INTERFACE
    -fsanitize=${PLAYWIDGET_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(playwidget_options INTERFACE -fsanitize=${PLAYWIDGET_SANITIZE})
endif()

if(PLAYWIDGET_COVERAGE)
  target_compile_options(playwidget_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(playwidget_options INTERFACE --coverage)
endif()
