if(WIN32)
  # One folder that can lie anywhere.
  install(TARGETS lorelin XMGR lorelin-abkuerzungen RUNTIME DESTINATION .)
  install(FILES packaging/vts.ico LICENSE packaging/windows/THIRD-PARTY.txt DESTINATION .)
  install(DIRECTORY hypertext packaging/scripts DESTINATION .)
  return()
endif()

# Installed layout: the programs in bin, the shared data that seeds a user's program folder in share/lorelin.
include(GNUInstallDirs)
install(TARGETS lorelin-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS lorelin-abkuerzungen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS extensions/python/protokoll.py DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin/extensions)
install(TARGETS lorelin-engine RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET lorelin)
  install(TARGETS lorelin XMGR RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES packaging/vts.ico DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin)
install(DIRECTORY hypertext packaging/scripts DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin)
