# The Debian packages: the libraries, what developers need, and the preview program.
# Not here: which file belongs to which (PlayWidgetInstall.cmake).

# Packages for Qt 5 hold files of the same names, so the two exclude each other.
set(name playwidget)
set(twin playwidget-qt5)
set(runtime libplaywidget${soversion})
set(runtime_twin libplaywidget-qt5-${soversion})
set(qt_development qt6-base-dev)
set(qt_translations qt6-translations-l10n)
if(PLAYWIDGET_QT EQUAL 5)
  set(name playwidget-qt5)
  set(twin playwidget)
  set(runtime libplaywidget-qt5-${soversion})
  set(runtime_twin libplaywidget${soversion})
  set(qt_development qtbase5-dev)
  set(qt_translations qttranslations5-l10n)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME playwidget)
set(CPACK_PACKAGE_CONTACT "The PlayWidget authors <playwidget@invalid.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_DESIGNER_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

# playwidget_package(<component> <package> <its twin> <section> <title>)
macro(playwidget_package component package other section title)
  string(TOUPPER ${component} COMPONENT)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_CONFLICTS ${other})
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${COMPONENT}_DESCRIPTION "${title}")
  install(FILES LICENSE DESTINATION share/doc/${package} RENAME copyright COMPONENT ${component})
endmacro()

playwidget_package(runtime
  ${runtime} ${runtime_twin} libs
  "Embeddable preview player for Qt ${PLAYWIDGET_QT}, with its engine")
playwidget_package(development
  lib${name}-dev lib${twin}-dev libdevel
  "Embeddable preview player for Qt ${PLAYWIDGET_QT}, for building programs")
if(TARGET playwidget_designer)
  playwidget_package(designer
    ${name}-designer ${twin}-designer libdevel
    "Embeddable preview player in Qt ${PLAYWIDGET_QT} Designer")
endif()
if(TARGET playwidget-preview)
  playwidget_package(tools
    ${name}-tools ${twin}-tools video
    "Preview player with 3D settings for films")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${qt_development})
# Qt's own dialogs speak the program's language with them.
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS ${qt_translations})

include(CPack)
