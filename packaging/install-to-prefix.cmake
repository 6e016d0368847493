# Run while installing: the files whose place or content depends on the prefix.

configure_file("${source}/${appId}.service.in" "${binary}/${appId}.service" @ONLY)
file(INSTALL "${binary}/${appId}.service" DESTINATION "${datadir}/dbus-1/services")

# Sessions look for autostart entries in /etc/xdg (freedesktop.org's XDG Base Directories), which
# belongs to /usr; other prefixes have an etc of their own.
set(configuration "${CMAKE_INSTALL_PREFIX}/etc")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(configuration "/etc")
endif()
file(INSTALL "${source}/${appId}.autostart" DESTINATION "${configuration}/xdg/autostart"
    RENAME "${appId}.desktop")

# Where Debian's zsh looks for what packages bring; elsewhere, and below other prefixes, it is zsh's
# own folder for a site.
set(zshFolder "${datadir}/zsh/site-functions")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS /etc/debian_version)
    set(zshFolder "${datadir}/zsh/vendor-completions")
endif()
file(INSTALL "${source}/completion/zsh/_kelmar-widgets" "${source}/completion/zsh/_kelmar-widgetctl"
    DESTINATION "${zshFolder}")
