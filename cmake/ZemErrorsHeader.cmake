# Writes the public header of error codes from the catalogue table, so that
# the code numbers and names live in one place only.
function(zem_generate_errors_header def out)
  file(STRINGS ${def} lines REGEX "^ZEM_ROW\\(")
  set(body "")
  foreach(line IN LISTS lines)
    if(line MATCHES "^ZEM_ROW\\(([0-9]+), *([A-Z_0-9]+),")
      string(APPEND body "  ${CMAKE_MATCH_2} = ${CMAKE_MATCH_1},\n")
    endif()
  endforeach()
  string(CONCAT text "/* Error and warning codes of the message catalogue.\n"
           " * Generated at configure time from frame/catalogue.def; do not edit. */\n"
           "#ifndef ZEM_ERRORS_H\n#define ZEM_ERRORS_H\n\n"
           "enum ZemErrorCode {\n${body}};\n\n#endif /* ZEM_ERRORS_H */\n")
  file(CONFIGURE OUTPUT ${out} CONTENT "${text}" @ONLY)
endfunction()
