# lorelin_wx: wxWidgets, as a library of others, whose headers give no warnings.
add_library(lorelin_wx INTERFACE)
if(MSVC)
  find_package(wxWidgets REQUIRED COMPONENTS webview core base)
  include(${wxWidgets_USE_FILE})
  target_link_libraries(lorelin_wx INTERFACE ${wxWidgets_LIBRARIES})
  return()
endif()

find_program(WX_CONFIG wx-config REQUIRED)
execute_process(COMMAND ${WX_CONFIG} --cxxflags core base webview OUTPUT_VARIABLE WX_CXXFLAGS
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${WX_CONFIG} --libs webview core base OUTPUT_VARIABLE WX_LIBS
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(WX_CXXFLAGS)
string(REPLACE "-I" "-isystem" WX_CXXFLAGS "${WX_CXXFLAGS}")
separate_arguments(WX_LIBS)
target_compile_options(lorelin_wx INTERFACE ${WX_CXXFLAGS})
target_link_libraries(lorelin_wx INTERFACE ${WX_LIBS})
if(NOT WIN32)
  pkg_check_modules(GTK REQUIRED gtk+-3.0 webkit2gtk-4.0)
  target_include_directories(lorelin_wx SYSTEM INTERFACE ${GTK_INCLUDE_DIRS})
  target_link_libraries(lorelin_wx INTERFACE ${GTK_LINK_LIBRARIES})
endif()
