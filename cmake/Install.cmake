# What `cmake --install` puts where, and the Debian package.

include(GNUInstallDirs)
find_program(QUOBRAK_GZIP gzip REQUIRED)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME quobrak)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# Manual pages, compressed, and completions. Which ones there are is known when the program is built, not before.
set(pages ${PROJECT_BINARY_DIR}/pages)
set(written_pages)
foreach(page phoneserver/quobrakPhone.1 runner/quobrakUITests.1)
  get_filename_component(name ${page} NAME)
  configure_file(${page}.in ${PROJECT_BINARY_DIR}/${name} @ONLY)
  list(APPEND written_pages ${PROJECT_BINARY_DIR}/${name})
endforeach()
add_custom_command(OUTPUT ${pages}/man1/quobrak.1.gz
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${pages}
  COMMAND quobrakPages ${pages}
  COMMAND ${CMAKE_COMMAND} -E copy ${written_pages} ${pages}/man1
  COMMAND ${QUOBRAK_GZIP} -9 -n -r ${pages}/man1
  DEPENDS quobrakPages ${written_pages}
  COMMENT "Writing manual pages and completions"
  VERBATIM)
add_custom_target(pages ALL DEPENDS ${pages}/man1/quobrak.1.gz)

install(TARGETS quobrak quobrakUITests quobrakPhone)
install(DIRECTORY ${pages}/man1 DESTINATION ${CMAKE_INSTALL_MANDIR})
install(FILES ${pages}/quobrak.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME quobrak)
install(FILES ${pages}/quobrak.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
# Debian's zsh looks elsewhere for what packages bring than for what else is installed.
install(FILES ${pages}/quobrak.zsh DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions RENAME _quobrak
  COMPONENT zsh_site)
install(FILES ${pages}/quobrak.zsh DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions RENAME _quobrak
  COMPONENT debian EXCLUDE_FROM_ALL)

# The pages link one another as they do in the sources. The schemas of descriptions are among them.
set(documents ${CMAKE_INSTALL_DATADIR}/doc/quobrak)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${documents})
install(DIRECTORY docs examples DESTINATION ${documents})

set(developers "The quobrak developers <quobrak@example.com>")

# A package needs a changelog of Debian's form; what changed stands in ours. The time is SOURCE_DATE_EPOCH where that is set.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${PROJECT_BINARY_DIR}/changelog "quobrak (${PROJECT_VERSION}) unstable; urgency=medium

  * See CHANGELOG.md.

 -- ${developers}  ${now}
")
execute_process(COMMAND ${QUOBRAK_GZIP} -9 -n -f ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${documents} COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quobrak)
set(CPACK_PACKAGE_CONTACT ${developers})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_COMPONENTS_ALL quobrak debian)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "checks, rehearses and runs UI scripts for phones
quobrak runs plain-text scripts that start applications on a phone, find and
tap elements, press keys and wait, and that mark measured steps in
milliseconds, so that an energy or performance measurement taken outside can
be cut into those steps.

It comes with a simulated phone, on which a script can be checked and
rehearsed without a phone and without waiting, and drives real phones over
WebDriver.")
include(CPack)
