# Install rules and packages: cpack in a build directory gives TGZ and DEB.
set(QUORVEX_DOC_DIR "${CMAKE_INSTALL_DATADIR}/doc/quorvex")
install(FILES README.md CHANGELOG.md DESTINATION ${QUORVEX_DOC_DIR})
install(DIRECTORY docs examples DESTINATION ${QUORVEX_DOC_DIR})

# Manual pages are installed compressed, as Debian keeps them. -n leaves out the date: the same bytes each time.
find_program(QUORVEX_GZIP gzip REQUIRED)
set(programs quorvex-run)
if(QUORVEX_BUILD_GUI)
  list(APPEND programs quorvex quorvex-plot)
endif()
foreach(program IN LISTS programs)
  set(page "${PROJECT_BINARY_DIR}/${program}.1.gz")
  add_custom_command(OUTPUT "${page}"
    COMMAND ${QUORVEX_GZIP} -9nc "${PROJECT_SOURCE_DIR}/packaging/${program}.1" > "${page}"
    DEPENDS packaging/${program}.1
    VERBATIM)
  list(APPEND pages "${page}")
endforeach()
add_custom_target(quorvex_manual ALL DEPENDS ${pages})
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

if(QUORVEX_BUILD_GUI)
  include(Desktop)
endif()

set(CPACK_PACKAGE_NAME quorvex)
set(CPACK_PACKAGE_VENDOR "Quorvex")
set(CPACK_PACKAGE_CONTACT "The Quorvex developers <quorvex@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(QUORVEX_BUILD_GUI)
  # The libraries only recommend the plugin without which no window opens.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
endif()
include(CPack)
