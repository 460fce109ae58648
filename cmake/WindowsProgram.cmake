# SPDX-License-Identifier: GPL-3.0-or-later
# Gives a program of Windows its icon, version and manifest. On other machines it does nothing.
function(kelp_windows_program target description)
  if(NOT WIN32)
    return()
  endif()
  set(KELP_ICON ${PROJECT_BINARY_DIR}/kelp.ico)
  if(NOT TARGET kelp_icon)
    find_program(RSVG_CONVERT rsvg-convert REQUIRED)
    find_program(ICOTOOL icotool REQUIRED)
    foreach(size 16 24 32 48 64 256)
      list(APPEND draw COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o icon${size}.png
                               ${PROJECT_SOURCE_DIR}/packaging/org.kelp.Kelp.svg)
      list(APPEND sizes icon${size}.png)
    endforeach()
    add_custom_command(OUTPUT ${KELP_ICON} ${draw} COMMAND ${ICOTOOL} -c -o ${KELP_ICON} ${sizes}
                       DEPENDS ${PROJECT_SOURCE_DIR}/packaging/org.kelp.Kelp.svg
                       WORKING_DIRECTORY ${PROJECT_BINARY_DIR} VERBATIM)
    add_custom_target(kelp_icon DEPENDS ${KELP_ICON})
  endif()
  set(resource ${PROJECT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
  set_source_files_properties(
    ${resource} PROPERTIES OBJECT_DEPENDS
                           "${KELP_ICON};${PROJECT_SOURCE_DIR}/packaging/windows/kelp.manifest")
  add_dependencies(${target} kelp_icon)
endfunction()
