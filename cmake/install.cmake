# cmake --install, and the Debian packages of the same files: `cpack --preset release`, or `arm`.
include(GNUInstallDirs)

# What goes compressed into the packages, smallest and the same whenever it is made: FILE as COMMAND... prints it.
set(packed ${CMAKE_CURRENT_BINARY_DIR}/packed)
function(compress file)
  execute_process(COMMAND ${ARGN} COMMAND gzip -9n OUTPUT_FILE ${packed}/${file}.gz COMMAND_ERROR_IS_FATAL ANY
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
endfunction()
file(MAKE_DIRECTORY ${packed})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/console.8 cmake/changelog.awk)
compress(console.8 cat docs/console.8)
compress(changelog awk -f cmake/changelog.awk CHANGELOG.md)

install(TARGETS console RUNTIME DESTINATION ${CMAKE_INSTALL_SBINDIR} COMPONENT console)
install(FILES ${packed}/console.8.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man8 COMPONENT console)
foreach(package console console-dev)
  string(REPLACE console-dev headers component ${package})
  install(FILES ${packed}/changelog.gz cmake/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/ntx4830-${package}
    COMPONENT ${component})
endforeach()
# For the other programs of the device: -I .../include/console, #include <config/segment.h>.
install(FILES config/segment.h config/values.h config/login_record.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/console/config COMPONENT headers)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ntx4830-console)
set(CPACK_PACKAGE_CONTACT "NTX4830 console maintainers <maintainers@ntx4830.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Configuration console of the NTX4830 VoIP gateway")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL console headers)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_CONSOLE_PACKAGE_NAME ntx4830-console)
# The C library that it is built with, or a later one. For another machine's program, Debian's own search for what is
# needed names the cross compiler's library.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -E -dM -include features.h -x c++ /dev/null
  OUTPUT_VARIABLE macros ERROR_QUIET)
if(macros MATCHES "__GLIBC_MINOR__ ([0-9]+)")
  set(CPACK_DEBIAN_CONSOLE_PACKAGE_DEPENDS "libc6 (>= 2.${CMAKE_MATCH_1})")
endif()
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION
  "One process per administrator connection, on its standard input and output:\n a login, a tree of text menus, dialogues that change settings, status pages.")
set(CPACK_DEBIAN_HEADERS_PACKAGE_NAME ntx4830-console-dev)
set(CPACK_DEBIAN_HEADERS_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_HEADERS_DESCRIPTION
  "The layout of the settings in shared memory, as C++ structs, for the other\n programs of the device. Headers only.")
if(CMAKE_SYSTEM_PROCESSOR STREQUAL arm)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
endif()
include(CPack)
