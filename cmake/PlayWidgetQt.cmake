# Finds the Qt that PLAYWIDGET_QT names. Both versions offer their targets as Qt::.

if(PLAYWIDGET_QT EQUAL 6)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
elseif(PLAYWIDGET_QT EQUAL 5)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Widgets)
else()
  message(FATAL_ERROR "PLAYWIDGET_QT is \"${PLAYWIDGET_QT}\"; it can be 6 or 5")
endif()
if(PLAYWIDGET_TESTS)
  find_package(Qt${PLAYWIDGET_QT} REQUIRED COMPONENTS Test)
endif()
if(PLAYWIDGET_TOOLS)
  find_package(Qt${PLAYWIDGET_QT} QUIET OPTIONAL_COMPONENTS UiPlugin)
endif()
# Programs that link what we built need this version at least.
set(PLAYWIDGET_QT_BUILT_WITH ${Qt${PLAYWIDGET_QT}_VERSION})
