# Runs when the program is installed, in a folder that is known only then: writes into ENTRIES the files that name it.
set(programs "${CMAKE_INSTALL_PREFIX}/${BIN_FOLDER}")

# As a word between quotation marks, for the bus and for the desktop.
string(REGEX REPLACE "([\"\\\\$`])" "\\\\\\1" quoted "${programs}")
set(service "[D-BUS Service]\nName=org.lorelin.Abkuerzungen\nExec=\"${quoted}/lorelin-abkuerzungen\"\n")
if(programs MATCHES "^[A-Za-z0-9_./-]+$")
  string(REPLACE "\"" "" service "${service}")
endif()
file(WRITE "${ENTRIES}/org.lorelin.Abkuerzungen.service" "${service}")

# A program in the folders that every session searches is found by its name; a desktop entry's texts are escaped again.
foreach(entry IN ITEMS lorelin serviceMenu)
  file(READ "${SOURCES}/${entry}.desktop" text)
  if(NOT CMAKE_INSTALL_PREFIX MATCHES "^/usr(/local)?/?$")
    string(REPLACE "\\" "\\\\" escaped "${quoted}")
    string(REPLACE "%" "%%" escaped "${escaped}")
    string(REPLACE "Exec=lorelin" "Exec=\"${escaped}/lorelin\"" text "${text}")
  endif()
  file(WRITE "${ENTRIES}/${entry}.desktop" "${text}")
endforeach()
