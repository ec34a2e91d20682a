# Lays the program's files beside an executable: the manual in its newest form, the INI file only
# where there is none.
file(COPY_FILE ${SOURCE}/Readme.txt ${FOLDER}/Readme.txt ONLY_IF_DIFFERENT)
if(NOT EXISTS ${FOLDER}/Orbisgrid.ini)
  file(COPY_FILE ${SOURCE}/Orbisgrid.ini ${FOLDER}/Orbisgrid.ini)
endif()
