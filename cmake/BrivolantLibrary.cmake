# SPDX-License-Identifier: MIT
#
# brivolant_library(NAME FOLDER folder SOURCES ... LINKS ... PRIVATE_LINKS ...)
#
# One folder is one static library; a library may only link what was declared before it. Its
# headers are included as "folder/Header.h" through an include path that only its own consumers
# get, so an include of a layer that is not linked does not compile. A folder within it that is a
# library of its own is left out of that path.
set(standard_headers <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional>
  <string> <string_view> <utility> <variant> <vector>)
function(brivolant_library name)
  cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  get_property(libraries GLOBAL PROPERTY brivolant_libraries)
  foreach(link IN LISTS ARG_LINKS ARG_PRIVATE_LINKS)
    if(NOT link MATCHES "::" AND NOT link IN_LIST libraries)
      message(FATAL_ERROR "${name} links ${link}, which does not stand below it")
    endif()
  endforeach()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_BINARY_DIR}/include/${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  if(BRIVOLANT_SANITIZE)
    # Only here: in the build for people each file shows that it includes what it needs.
    target_precompile_headers(${name} PRIVATE ${standard_headers})
  endif()
  set_target_properties(${name} PROPERTIES
    BRIVOLANT_FOLDER ${ARG_FOLDER}
    BRIVOLANT_LINKS "${ARG_LINKS}"
    BRIVOLANT_PRIVATE_LINKS "${ARG_PRIVATE_LINKS}")
  set_property(GLOBAL APPEND PROPERTY brivolant_libraries ${name})
  set_property(GLOBAL APPEND PROPERTY brivolant_folders ${ARG_FOLDER})
endfunction()

# Mirrors `folder` at `root`: its headers and the folders in it that hold no library, as links.
function(brivolant_mirror folder root)
  get_property(folders GLOBAL PROPERTY brivolant_folders)
  file(MAKE_DIRECTORY ${root}/${folder})
  file(GLOB entries RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*)
  foreach(entry IN LISTS entries)
    if(entry IN_LIST folders)
      continue()
    endif()
    set(nested ${folders})
    list(FILTER nested INCLUDE REGEX "^${entry}/")
    if(nested)
      brivolant_mirror(${entry} ${root})
    elseif(entry MATCHES "\\.h$" OR IS_DIRECTORY ${CMAKE_SOURCE_DIR}/${entry})
      file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${entry} ${root}/${entry} SYMBOLIC)
    endif()
  endforeach()
endfunction()

# The libraries whose headers `name` passes on, itself first.
function(brivolant_passed_on name result)
  set(all ${name})
  get_target_property(links ${name} BRIVOLANT_LINKS)
  foreach(link IN LISTS links)
    if(NOT link MATCHES "::")
      brivolant_passed_on(${link} below)
      list(APPEND all ${below})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES all)
  set(${result} ${all} PARENT_SCOPE)
endfunction()

# When every library is known: makes the include paths, and writes "layers.txt" for
# scripts/check-layers, a line for each folder with the folders that it may include.
function(brivolant_finish_libraries)
  file(REMOVE_RECURSE ${CMAKE_BINARY_DIR}/include)
  get_property(libraries GLOBAL PROPERTY brivolant_libraries)
  set(table)
  foreach(name IN LISTS libraries)
    get_target_property(folder ${name} BRIVOLANT_FOLDER)
    brivolant_mirror(${folder} ${CMAKE_BINARY_DIR}/include/${name})
    brivolant_passed_on(${name} seen)
    get_target_property(links ${name} BRIVOLANT_PRIVATE_LINKS)
    foreach(link IN LISTS links)
      if(NOT link MATCHES "::")
        brivolant_passed_on(${link} below)
        list(APPEND seen ${below})
      endif()
    endforeach()
    list(REMOVE_DUPLICATES seen)
    set(line)
    foreach(library IN LISTS seen)
      get_target_property(folder ${library} BRIVOLANT_FOLDER)
      string(APPEND line " ${folder}")
    endforeach()
    string(STRIP "${line}" line)
    string(APPEND table "${line}\n")
  endforeach()
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/layers.txt CONTENT "${table}")
endfunction()
