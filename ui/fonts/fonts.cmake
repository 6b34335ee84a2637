# The fonts that the program ships, as the package installs them: they have Arial's metrics, so that
# every machine measures and prints alike.
set(ORVANE_FONT_FOLDER /usr/share/fonts/truetype/liberation2 CACHE PATH "Where the shipped fonts are taken from")
set(ORVANE_FONT_LICENCE /usr/share/doc/fonts-liberation2/copyright CACHE FILEPATH "Their licence")

# Lays the fonts' licence into a folder of the build, beside a program that contains them, whenever that
# is built.
function(orvane_lay_font_licence folder target)
  set(copy ${folder}/fonts-licence.txt)
  add_custom_command(
    OUTPUT ${copy}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${CMAKE_COMMAND} -E copy ${ORVANE_FONT_LICENCE} ${copy}
    DEPENDS ${ORVANE_FONT_LICENCE}
    COMMENT "Laying the fonts' licence beside the program")
  add_custom_target(${target}_font_licence DEPENDS ${copy})
  add_dependencies(${target} ${target}_font_licence)
endfunction()
