# Writes one C++ source with the text of every drawing, found by file name without ending.
set(body "#include \"desktop/toolkit/icons.h\"\n\nnamespace lorelin {\n\nstd::string_view IconSource(std::string_view name) {\n")
foreach(icon IN LISTS ICONS)
  get_filename_component(name "${icon}" NAME_WE)
  file(READ "${icon}" text)
  string(APPEND body "  if (name == \"${name}\") return R\"svg(${text})svg\";\n")
endforeach()
string(APPEND body "  return {};\n}\n\n}  // namespace lorelin\n")
file(WRITE "${OUTPUT}" "${body}")
