# The catalogue's pictures, laid beside a program's catalogue in its folder Drawings; the copies' names
# are put into the variable `copies`.
function(orvane_lay_pictures folder copies)
  file(GLOB names CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/catalogue/Drawings
    ${PROJECT_SOURCE_DIR}/catalogue/Drawings/*.wmf)
  list(TRANSFORM names PREPEND ${PROJECT_SOURCE_DIR}/catalogue/Drawings/ OUTPUT_VARIABLE sources)
  list(TRANSFORM names PREPEND ${folder}/Drawings/ OUTPUT_VARIABLE targets)
  add_custom_command(
    OUTPUT ${targets}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}/Drawings
    COMMAND ${CMAKE_COMMAND} -E copy ${sources} ${folder}/Drawings
    DEPENDS ${sources}
    COMMENT "Laying the pictures beside the catalogue")
  set(${copies} ${targets} PARENT_SCOPE)
endfunction()
