# Copies the files of SOURCE that TARGET does not have.
file(GLOB files RELATIVE ${SOURCE} ${SOURCE}/*)
file(MAKE_DIRECTORY ${TARGET})
foreach(file IN LISTS files)
  if(NOT EXISTS ${TARGET}/${file})
    configure_file(${SOURCE}/${file} ${TARGET}/${file} COPYONLY)
  endif()
endforeach()
