# orbisgrid_room(<name> LINKS <rooms and libraries> [QT] SOURCES <files>)
# One static library per folder.
function(orbisgrid_room name)
  cmake_parse_arguments(ROOM "QT" "" "LINKS;SOURCES" ${ARGN})
  add_library(orbisgrid_${name} STATIC ${ROOM_SOURCES})
  if(ROOM_QT)
    target_link_libraries(orbisgrid_${name} PUBLIC orbisgrid_qt_options ${ROOM_LINKS})
  else()
    target_link_libraries(orbisgrid_${name} PUBLIC orbisgrid_options ${ROOM_LINKS})
    # The executable is made of these and leaves out what it does not call.
    target_compile_options(orbisgrid_${name} PRIVATE -ffunction-sections -fdata-sections)
  endif()
endfunction()
