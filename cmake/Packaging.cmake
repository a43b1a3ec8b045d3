# Install rules and packages: cpack in a build directory gives TGZ and DEB.
set(QUORVEX_DOC_DIR "${CMAKE_INSTALL_DATADIR}/doc/quorvex")
install(FILES README.md CHANGELOG.md packaging/copyright DESTINATION ${QUORVEX_DOC_DIR})
install(DIRECTORY docs examples DESTINATION ${QUORVEX_DOC_DIR})

# Manual pages and the package's changelog are installed compressed, as Debian keeps them. -n leaves out the date: the
# same bytes each time.
find_program(QUORVEX_GZIP gzip REQUIRED)
function(quorvex_compressed name destination)
  set(packed "${PROJECT_BINARY_DIR}/${name}.gz")
  add_custom_command(OUTPUT "${packed}"
    COMMAND ${QUORVEX_GZIP} -9nc "${PROJECT_SOURCE_DIR}/packaging/${name}" > "${packed}"
    DEPENDS packaging/${name}
    VERBATIM)
  add_custom_target(quorvex_packed_${name} ALL DEPENDS "${packed}")
  install(FILES "${packed}" DESTINATION ${destination})
endfunction()
quorvex_compressed(changelog ${QUORVEX_DOC_DIR})
set(programs quorvex-run)
if(QUORVEX_BUILD_GUI)
  list(APPEND programs quorvex quorvex-plot)
endif()
foreach(program IN LISTS programs)
  quorvex_compressed(${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

if(QUORVEX_BUILD_GUI)
  include(Desktop)
endif()

set(CPACK_PACKAGE_NAME quorvex)
set(CPACK_PACKAGE_VENDOR "Quorvex")
set(CPACK_PACKAGE_CONTACT "The Quorvex developers <quorvex@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
# Lines of less than 80 letters, as Debian's descriptions have them; a point stands for an empty one.
set(CPACK_PACKAGE_DESCRIPTION
"Quorvex integrates Maxwell's equations in one dimension by finite differences,
coupled at every node of the mesh to the density matrices of atoms with a few
levels: six numerical schemes, pulses of seven shapes, one or two field
components, absorbing ends or a cavity.
.
quorvex-run is the program for scripts and clusters.")
if(QUORVEX_BUILD_GUI)
  string(APPEND CPACK_PACKAGE_DESCRIPTION " quorvex is the desktop
program, with forms for every parameter and a plotter; quorvex-plot draws
results without a window.")
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(QUORVEX_BUILD_GUI)
  # The libraries only recommend the plugin without which no window opens.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
endif()
include(CPack)
