# Two Debian packages: the widgets, and the stand-in for the planner, which nobody should find in a
# menu beside the planner itself without having asked for it. "cpack" in the build folder makes both.

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL widgets demo)
set(CPACK_PACKAGE_NAME kelmar-planner-widgets)
set(CPACK_PACKAGE_CONTACT "Kelmar Planner desktop widgets <widgets@kelmarplanner.example>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# One synopsis of the whole project would stand above that of each package.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(CPACK_DEBIAN_WIDGETS_PACKAGE_NAME kelmar-planner-widgets)
# Rounded figures and texts are set in Quicksand; links are opened and preferences followed over the
# session's bus.
set(CPACK_DEBIAN_WIDGETS_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus, fonts-quicksand, fonts-noto-color-emoji")
set(CPACK_DEBIAN_WIDGETS_PACKAGE_SUGGESTS "kelmar-planner-demo, xdg-desktop-portal")
set(CPACK_DEBIAN_WIDGETS_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_LIST_DIR}/conffiles")
set(CPACK_DEBIAN_WIDGETS_DESCRIPTION "desktop widgets of Kelmar Planner
What is due today, the day's timetable, the study timer and the day streak
lie on the desktop below all windows. Assignments are ticked off and the
timer is started and paused right there.

The widgets show what Kelmar Planner writes for them, need no network and use
next to nothing while nothing changes.")

set(CPACK_DEBIAN_DEMO_PACKAGE_NAME kelmar-planner-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_ENHANCES kelmar-planner-widgets)
set(CPACK_DEBIAN_DEMO_DESCRIPTION "stand-in for Kelmar Planner, for trying its widgets
Shows a week of believable assignments to the desktop widgets of Kelmar
Planner, and does what they ask of the planner, on a computer where there is
no planner. It works only in a folder that it made itself.")

include(CPack)
