if(WIN32)
  # One folder that can lie anywhere.
  install(TARGETS lorelin XMGR lorelin-abkuerzungen RUNTIME DESTINATION .)
  install(FILES packaging/vts.ico LICENSE packaging/windows/THIRD-PARTY.txt DESTINATION .)
  install(DIRECTORY hypertext packaging/scripts LICENSES DESTINATION .)
  return()
endif()

# Installed layout: the programs in bin, the shared data that seeds a user's program folder in share/lorelin.
include(GNUInstallDirs)
install(TARGETS lorelin-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS lorelin-abkuerzungen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS extensions/python/protokoll.py DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin/extensions)
install(TARGETS lorelin-engine lorelin-import RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET lorelin)
  install(TARGETS lorelin XMGR RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(FILES packaging/vts.ico DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin)
install(DIRECTORY hypertext packaging/scripts DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin)
install(DIRECTORY LICENSES DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/lorelin)

# What desktops, buses and shells look for.
install(FILES packaging/linux/lorelin.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(PROGRAMS packaging/linux/serviceMenu.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/kio/servicemenus RENAME lorelin.desktop)
install(FILES packaging/linux/lorelin.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/linux/org.lorelin.lorelin.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/icons/lorelin.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/icons/speak.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps RENAME lorelin-symbolic.svg)
install(FILES packaging/icons/vts.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/mimetypes
        RENAME application-x-lorelin-vts.svg)
install(FILES packaging/linux/lorelin-cli.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME lorelin-cli)
configure_file(packaging/linux/org.lorelin.Abkuerzungen.service.in ${CMAKE_BINARY_DIR}/org.lorelin.Abkuerzungen.service @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/org.lorelin.Abkuerzungen.service DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(DIRECTORY DESTINATION ${CMAKE_INSTALL_DATADIR}/lorelin/voices)

# The manual pages say what the programs say of themselves.
find_program(HELP2MAN help2man)
if(HELP2MAN)
  set(MANUALS "")
  foreach(pair IN ITEMS "lorelin=liest Texte vor" "XMGR=verwaltet Erweiterungen von Lorelin"
          "lorelin-cli=liest Texte ohne Fenster vor" "lorelin-abkuerzungen=schreibt Abkürzungen für Lorelin aus"
          "lorelin-import=liest Dokumente für Lorelin ein")
    string(REPLACE "=" ";" parts "${pair}")
    list(GET parts 0 program)
    list(GET parts 1 summary)
    if(NOT TARGET ${program})
      continue()
    endif()
    set(manual ${CMAKE_BINARY_DIR}/man/${program}.1)
    add_custom_command(OUTPUT ${manual}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
      COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 ${HELP2MAN} --no-info --name=${summary} --source=Lorelin
              --output=${manual} $<TARGET_FILE:${program}>
      DEPENDS ${program} VERBATIM)
    list(APPEND MANUALS ${manual})
  endforeach()
  add_custom_target(lorelin_manuals ALL DEPENDS ${MANUALS})
  install(FILES ${MANUALS} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
