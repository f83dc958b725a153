# SPDX-License-Identifier: MIT
# Installs the build into a folder of its own and looks at what the desktop would find.
# cmake -DBUILD=folder -DINTO=folder -DRESOURCES=folder -P CheckInstall.cmake
file(REMOVE_RECURSE ${INTO})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${INTO}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
foreach(name bin/brivolant bin/brivolant-cli share/applications/brivolant-photos.desktop
    share/mime/packages/brivolant-photos.xml share/icons/hicolor/scalable/apps/brivolant-photos.svg
    share/metainfo/com.quillmere.brivolantPhotos.metainfo.xml
    share/brivolant-photos/Icons/Crop.svg share/brivolant-photos/translations/brivolant_de.qm
    share/brivolant-photos/translations/brivolant_en.qm share/brivolant-photos/Textures/Wood.jpg
    "share/brivolant-photos/Textures/Film Grain.jpg"
    share/brivolant-photos/1-ClickStyleExample.jpg)
  if(NOT EXISTS ${INTO}/${name})
    message(FATAL_ERROR "${name} is not installed")
  endif()
endforeach()
# Every icon, language and style.
foreach(pattern Icons/*.svg translations/*.ts "styles/*.style")
  file(GLOB sources ${RESOURCES}/${pattern})
  string(REPLACE "styles/" "1-Click Styles/" installed "${pattern}")
  string(REPLACE ".style" ".oneClick" installed "${installed}")
  string(REPLACE ".ts" ".qm" installed "${installed}")
  file(GLOB found "${INTO}/share/brivolant-photos/${installed}")
  list(LENGTH sources wanted)
  list(LENGTH found count)
  if(wanted EQUAL 0 OR count LESS wanted)
    message(FATAL_ERROR "of ${wanted} files ${pattern}, ${count} are installed")
  endif()
endforeach()
execute_process(COMMAND desktop-file-validate ${INTO}/share/applications/brivolant-photos.desktop
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND update-mime-database ${INTO}/share/mime COMMAND_ERROR_IS_FATAL ANY)
file(READ ${INTO}/share/mime/globs2 globs)
if(NOT globs MATCHES "application/x-brivolant-photo:\\*.brvphoto")
  message(FATAL_ERROR "the document's type is not known: ${globs}")
endif()
execute_process(
  COMMAND appstreamcli validate --no-net
    ${INTO}/share/metainfo/com.quillmere.brivolantPhotos.metainfo.xml
  COMMAND_ERROR_IS_FATAL ANY)
# The installed program finds its own resources.
execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
    HOME=${INTO}/home XDG_CONFIG_HOME=${INTO}/home/config XDG_DATA_HOME=${INTO}/home/data
    ${INTO}/bin/brivolant --measure-start
  COMMAND_ERROR_IS_FATAL ANY)
