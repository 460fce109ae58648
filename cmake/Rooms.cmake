# SPDX-License-Identifier: GPL-3.0-or-later
# A room is a folder of the program with a library of its own. It is seen through a link in the build folder
# that shows this one folder and nothing beside it: who includes a room that it does not link does not compile.
function(kelp_room target folder)
  string(REPLACE "/" "_" name ${folder})
  set(view ${CMAKE_BINARY_DIR}/rooms/${name})
  cmake_path(GET folder PARENT_PATH above)
  file(MAKE_DIRECTORY ${view}/${above})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${view}/${folder} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${view})
endfunction()

# The library of a room with everything in its folder; it links, and so sees, what ARGN names.
function(kelp_library folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/${folder}/*/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/platform/(qt|posix|windows)/")
  add_library(kelp_${folder} STATIC ${sources})
  kelp_room(kelp_${folder} ${folder})
  target_compile_definitions(kelp_${folder} PRIVATE KELP_VERSION="${PROJECT_VERSION}")
  target_link_libraries(kelp_${folder} PUBLIC ${ARGN})
  kelp_warnings(kelp_${folder})
endfunction()
