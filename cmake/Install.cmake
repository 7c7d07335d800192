# Where everything lies once installed, and the Debian package. `cmake --install` takes the component "system", for a
# prefix such as /usr/local; the component "portable" puts the program and its data into one folder that can be carried
# about:
#   cmake --install build/release --component portable --prefix ~/halvorine
include(GNUInstallDirs)
set(share ${CMAKE_INSTALL_DATADIR})

# version and date stand in the project's head and at the top of CHANGELOG.md alone, which must agree
file(STRINGS CHANGELOG.md newest LIMIT_COUNT 1 REGEX "^## [0-9]")
if(NOT newest MATCHES "^## ${PROJECT_VERSION} - ([0-9]+)-([0-9]+)-([0-9]+)$")
  message(FATAL_ERROR "CHANGELOG.md begins with '${newest}', the project's version is ${PROJECT_VERSION}")
endif()
set(release_date ${CMAKE_MATCH_1}-${CMAKE_MATCH_2}-${CMAKE_MATCH_3})
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C date -u -R -d ${release_date}
                OUTPUT_VARIABLE release_day OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
foreach(text changelog halvorine.1 org.halvorine.Halvorine.metainfo.xml)
  configure_file(packaging/${text}.in packaging/${text} @ONLY)
endforeach()

install(TARGETS halvorine DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT system)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/ DESTINATION ${share}/halvorine COMPONENT system
        PATTERN SOURCES.md EXCLUDE)
install(FILES packaging/halvorine.desktop DESTINATION ${share}/applications COMPONENT system)
install(FILES ${CMAKE_BINARY_DIR}/packaging/org.halvorine.Halvorine.metainfo.xml DESTINATION ${share}/metainfo COMPONENT system)
install(FILES packaging/halvorine.svg DESTINATION ${share}/icons/hicolor/scalable/apps COMPONENT system)
install(FILES packaging/copyright data/SOURCES.md DESTINATION ${share}/doc/halvorine COMPONENT system)

# texts lie compressed, as the package rules want them
find_program(GZIP gzip REQUIRED)
function(install_compressed text name folder)
  set(packed ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
  add_custom_command(OUTPUT ${packed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND ${GZIP} -9nc ${text} > ${packed}
    DEPENDS ${text} COMMENT "Compressing ${text}")
  add_custom_target(compressed_${name} ALL DEPENDS ${packed})
  install(FILES ${packed} DESTINATION ${folder} COMPONENT system)
endfunction()
install_compressed(${CMAKE_BINARY_DIR}/packaging/halvorine.1 halvorine.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(${CMAKE_BINARY_DIR}/packaging/changelog changelog ${share}/doc/halvorine)
install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md NEWS ${share}/doc/halvorine)

install(TARGETS halvorine DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/ DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES README.md LICENSE CHANGELOG.md DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halvorine)
set(CPACK_PACKAGE_VENDOR Halvorine)
set(CPACK_PACKAGE_CONTACT "Halvorine developers <halvorine@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "satellite tracker and sky mapper for amateur observers")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Computes from two-line element sets where artificial satellites are,
shows them on a world map and on sky charts, predicts their passes, tabulates
ephemerides and relative motion, and keeps the catalogue of element files.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL system)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, ca-certificates")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
include(CPack)
