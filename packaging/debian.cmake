# The Debian package, and what `cmake --install` lays out. The program's folder is /usr/lib/orvane; what a
# person edits lies in /etc/orvane and is linked from there.
include(GNUInstallDirs)
set(folder lib/orvane)
set(edited ${CMAKE_INSTALL_FULL_SYSCONFDIR}/orvane)
set(debian ${CMAKE_CURRENT_SOURCE_DIR}/debian)
set(made ${CMAKE_CURRENT_BINARY_DIR})
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# A link in the folder `where` that leads to `target`.
function(install_link target where name)
  string(MD5 apart ${where})
  file(MAKE_DIRECTORY ${made}/links/${apart})
  file(CREATE_LINK ${target} ${made}/links/${apart}/${name} SYMBOLIC)
  install(FILES ${made}/links/${apart}/${name} DESTINATION ${where})
endfunction()

# A file packed without its time and name, so that equal files make equal packages.
find_program(ORVANE_GZIP gzip REQUIRED)
function(install_packed source where name)
  add_custom_command(
    OUTPUT ${made}/${name}.gz
    COMMAND ${ORVANE_GZIP} -9nc ${source} > ${made}/${name}.gz
    DEPENDS ${source}
    VERBATIM)
  add_custom_target(orvane_packed_${name} ALL DEPENDS ${made}/${name}.gz)
  install(FILES ${made}/${name}.gz DESTINATION ${where})
endfunction()

# The program, its companion and the help.
install(TARGETS orvane orvane-batch RUNTIME DESTINATION ${folder})
foreach(name orvane orvane-batch)
  install_link(../${folder}/${name} bin ${name})
endforeach()
install(DIRECTORY ${CMAKE_BINARY_DIR}/program/help DESTINATION ${folder})
if(ORVANE_CHMCMD)
  install(FILES ${CMAKE_BINARY_DIR}/program/Lintaro.chm DESTINATION ${folder})
endif()

# The catalogue with its pictures.
install(FILES ${catalogue_sources} DESTINATION ${edited})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/catalogue/Drawings DESTINATION ${edited} FILES_MATCHING PATTERN *.wmf)
foreach(name ${catalogue_files} Drawings)
  install_link(${edited}/${name} ${folder} ${name})
endforeach()

# What the desktop knows of it.
set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES ${ORVANE_ICONS}/program-${size}.png
    DESTINATION ${theme}/${size}x${size}/apps RENAME orvane.png)
  install(FILES ${ORVANE_ICONS}/job-${size}.png
    DESTINATION ${theme}/${size}x${size}/mimetypes RENAME application-x-orvane-job.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/ui/icons/program.svg
  DESTINATION ${theme}/scalable/apps RENAME orvane.svg)
install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/icons/job.svg
  DESTINATION ${theme}/scalable/mimetypes RENAME application-x-orvane-job.svg)
install(FILES ${debian}/orvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${debian}/orvane.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
set(metadata example.lintaro.orvane.metainfo.xml)
configure_file(${debian}/${metadata}.in ${made}/${metadata} @ONLY)
install(FILES ${made}/${metadata} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# What a person reads.
foreach(page orvane.1 orvane-batch.1)
  configure_file(${debian}/${page}.in ${made}/${page} @ONLY)
  install_packed(${made}/${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
endforeach()
set(documents ${CMAKE_INSTALL_DATADIR}/doc/orvane)
install(FILES ${debian}/copyright DESTINATION ${documents})
install_packed(${debian}/changelog ${documents} changelog.Debian)
if(EXISTS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
  configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${made}/changelog COPYONLY)
  install_packed(${made}/changelog ${documents} changelog)
endif()
file(GLOB samples CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/samples/*)
install(FILES ${samples} DESTINATION ${folder}/samples)
install_link(../../../${folder}/samples ${documents} examples)
install(FILES ${debian}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME orvane)

# The package's own figures. The names of what a person edits, each a line, tell the packager to ask
# before an update replaces one that was changed.
file(GLOB pictures CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/catalogue
  ${PROJECT_SOURCE_DIR}/catalogue/Drawings/*.wmf)
set(names ${catalogue_files} ${pictures})
list(TRANSFORM names PREPEND ${edited}/)
list(JOIN names "\n" lines)
file(WRITE ${made}/conffiles "${lines}\n")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VENDOR Lintaro)
set(CPACK_PACKAGE_CONTACT "Lintaro <sales@lintaro.example>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "detailing of cold-rolled steel building sections
A job is a list of marked sections: Z purlins and rails, eaves beams,
C-channels, vertical cladding rails, cleader rails and top hats, with
their punching, notches, mitred ends and accessories.

From it come the fabrication sheets, the contract summary and the cutting
list, the CAM file that drives the production line and the accessory list
beside it. What can't be made is told before steel is cut. A companion
without a screen, orvane-batch, does the same for many jobs at once.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "kchmviewer | xchm | www-browser, shared-mime-info, desktop-file-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups-client")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${made}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
