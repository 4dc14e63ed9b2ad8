# What a Windows program carries: icon, manifest and version.
function(lorelin_add_resources program)
  list(JOIN ARGN " " RESOURCE_TITLE)
  set(RESOURCE_NAME ${program})
  configure_file(packaging/windows/program.rc.in ${CMAKE_BINARY_DIR}/generated/${program}.rc @ONLY)
  target_sources(${program} PRIVATE ${CMAKE_BINARY_DIR}/generated/${program}.rc)
  set_source_files_properties(${CMAKE_BINARY_DIR}/generated/${program}.rc PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/packaging/windows/lorelin.manifest;${CMAKE_SOURCE_DIR}/packaging/lorelin.ico")
endfunction()

lorelin_add_resources(lorelin-cli Lorelin Befehlszeile)
lorelin_add_resources(lorelin-import Lorelin liest Dokumente ein)
if(LORELIN_WINDOW)
  lorelin_add_resources(lorelin Lorelin)
  lorelin_add_resources(XMGR Lorelin Erweiterungsverwaltung)
  # No console.
  set_target_properties(lorelin XMGR PROPERTIES WIN32_EXECUTABLE ON)
endif()
