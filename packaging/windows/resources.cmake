# What a Windows program carries: icon, manifest and version, and no console.
foreach(program IN ITEMS lorelin XMGR)
  set(RESOURCE_TITLE "Lorelin")
  if(program STREQUAL XMGR)
    set(RESOURCE_TITLE "Lorelin Erweiterungsverwaltung")
  endif()
  set(RESOURCE_NAME ${program})
  configure_file(packaging/windows/program.rc.in ${CMAKE_BINARY_DIR}/generated/${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_BINARY_DIR}/generated/${program}.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/generated/${program}.rc PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/packaging/windows/lorelin.manifest;${CMAKE_SOURCE_DIR}/packaging/lorelin.ico")
  set_target_properties(${program} PROPERTIES WIN32_EXECUTABLE ON)
endforeach()
