# Lays the program's files beside an executable: the manual and the map's outlines in their newest
# form, the INI file only where there is none.
file(COPY_FILE ${SOURCE}/Readme.txt ${FOLDER}/Readme.txt ONLY_IF_DIFFERENT)
file(COPY_FILE ${SOURCE}/map/data/orbisgrid-map.dat ${FOLDER}/orbisgrid-map.dat ONLY_IF_DIFFERENT)
if(NOT EXISTS ${FOLDER}/Orbisgrid.ini)
  file(COPY_FILE ${SOURCE}/Orbisgrid.ini ${FOLDER}/Orbisgrid.ini)
endif()
