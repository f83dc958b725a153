# SPDX-License-Identifier: MIT
#
# brivolant_library(NAME FOLDER folder SOURCES ... LINKS ... PRIVATE_LINKS ...)
#
# One folder is one static library. Its headers are included as "folder/Header.h" through an
# include path that only its own consumers get, so an include of a layer that is not linked
# does not compile.
function(brivolant_library name)
  cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  set(include_root ${CMAKE_BINARY_DIR}/include/${name})
  get_filename_component(parent ${include_root}/${ARG_FOLDER} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${include_root}/${ARG_FOLDER})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${ARG_FOLDER} ${include_root}/${ARG_FOLDER} SYMBOLIC)
  endif()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${include_root})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
endfunction()
