# orbisgrid_small(<target>): compiles for size instead of speed. For what waits for a hand, a disk or
# another program: a start reads the less of it, and nobody could tell how long a call takes. In Release
# alone: the other kinds of build choose their -O for reasons of their own.
function(orbisgrid_small target)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-Os>)
endfunction()

# orbisgrid_room(<name> LINKS <rooms and libraries> [QT] [SMALL] SOURCES <files>)
# One static library per folder.
function(orbisgrid_room name)
  cmake_parse_arguments(ROOM "QT;SMALL" "" "LINKS;SOURCES" ${ARGN})
  add_library(orbisgrid_${name} STATIC ${ROOM_SOURCES})
  if(ROOM_QT)
    target_link_libraries(orbisgrid_${name} PUBLIC orbisgrid_qt_options ${ROOM_LINKS})
  else()
    target_link_libraries(orbisgrid_${name} PUBLIC orbisgrid_options ${ROOM_LINKS})
  endif()
  if(ROOM_SMALL)
    orbisgrid_small(orbisgrid_${name})
  endif()
  # Executables and the library of the windows are made of these and leave out what they do not call.
  target_compile_options(orbisgrid_${name} PRIVATE -ffunction-sections -fdata-sections)
endfunction()
