# What `cmake --install` lays out for Windows: the program's folder, as the installer and the zip hold it.
# packaging/windows/build makes both.
enable_language(RC)
set(resource_folder ${CMAKE_CURRENT_BINARY_DIR})
configure_file(windows/orvane.manifest.in ${resource_folder}/orvane.manifest @ONLY)

# The target's icons, its version and what it asks of the system, compiled into it.
function(describe_program resource_target resource_description)
  set(source ${resource_folder}/${resource_target}.rc)
  configure_file(windows/program.rc.in ${source} @ONLY)
  set_source_files_properties(${source} PROPERTIES
    OBJECT_DEPENDS "${ORVANE_ICONS}/program.ico;${ORVANE_ICONS}/job.ico;${resource_folder}/orvane.manifest")
  add_library(${resource_target}_resources OBJECT ${source})
  target_link_libraries(${resource_target} PRIVATE $<TARGET_OBJECTS:${resource_target}_resources>)
endfunction()
describe_program(orvane "Orvane Detailing System")
describe_program(orvane-batch "Orvane Detailing System, companion")

install(TARGETS orvane orvane-batch RUNTIME DESTINATION .)
install(DIRECTORY ${ORVANE_NATIVE_BUILD}/program/help DESTINATION .)
install(FILES ${ORVANE_NATIVE_BUILD}/program/Lintaro.chm DESTINATION .)
install(FILES ${catalogue_sources} DESTINATION .)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/catalogue/Drawings DESTINATION . FILES_MATCHING PATTERN *.wmf)
file(GLOB samples CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/samples/*)
install(FILES ${samples} DESTINATION samples)

# The libraries that both stand on. The companion's sheets are made without a screen.
set(qt ${QT6_INSTALL_PREFIX})
foreach(library Core Gui Widgets PrintSupport)
  install(FILES ${qt}/bin/Qt6${library}.dll DESTINATION .)
endforeach()
install(FILES ${qt}/plugins/platforms/qwindows.dll ${qt}/plugins/platforms/qoffscreen.dll DESTINATION platforms)
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
    OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT IS_ABSOLUTE ${found})
    set(found /usr/x86_64-w64-mingw32/lib/${library})
  endif()
  install(FILES ${found} DESTINATION .)
endforeach()

# Their licences, as Debian tells them of its packages.
set(told /usr/share/doc)
install(FILES ${told}/qt6-base-dev/copyright DESTINATION licences RENAME qt.txt)
install(FILES ${told}/gcc-mingw-w64-base/copyright DESTINATION licences RENAME gcc.txt)
install(FILES ${told}/mingw-w64-x86-64-dev/copyright DESTINATION licences RENAME mingw-w64.txt)
install(FILES ${ORVANE_FONT_LICENCE} DESTINATION licences RENAME fonts.txt)
install(FILES ${PROJECT_SOURCE_DIR}/THIRD-PARTY.md DESTINATION licences)
install(FILES /usr/share/common-licenses/LGPL-3 /usr/share/common-licenses/GPL-3 DESTINATION licences)
