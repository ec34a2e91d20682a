# Removes what the last `cmake --install` wrote, and the folders that are empty then. The INI file is
# not in the list: it stays, and the program folder with it.
if(NOT EXISTS "${MANIFEST}")
  message(FATAL_ERROR "orbisgrid: nothing was installed from here (no ${MANIFEST})")
endif()
file(STRINGS "${MANIFEST}" files)


set(executable ${files})
list(FILTER executable INCLUDE REGEX "/lib/orbisgrid/orbisgrid$")
string(REGEX REPLACE "/lib/orbisgrid/orbisgrid$" "" prefix "${executable}")
if(prefix STREQUAL "")
  message(FATAL_ERROR "orbisgrid: no installation is described in ${MANIFEST}")
endif()

# A folder directly below the place of installation (bin, share) stays, as others use it.
function(remove_if_empty folder)
  get_filename_component(above "${folder}" DIRECTORY)
  if("${above}" STREQUAL "${prefix}" OR "${above}" STREQUAL "${folder}")
    return()
  endif()
  execute_process(COMMAND rmdir -- "$ENV{DESTDIR}${folder}" RESULT_VARIABLE status ERROR_QUIET)
  if(status EQUAL 0)
    remove_if_empty("${above}")
  endif()
endfunction()

foreach(file IN LISTS files)
  message(STATUS "Removing: $ENV{DESTDIR}${file}")
  file(REMOVE "$ENV{DESTDIR}${file}")
  get_filename_component(folder "${file}" DIRECTORY)
  remove_if_empty("${folder}")
endforeach()
set(ini "$ENV{DESTDIR}${prefix}/lib/orbisgrid/Orbisgrid.ini")
if(EXISTS "${ini}")
  message(STATUS "Kept: ${ini}")
endif()
file(REMOVE "${MANIFEST}")
