# Puts the page's frame together and writes it as a C++ source: style and scripts are set into page.html, and the
# policy of the page names their hashes, so that a browser runs these and nothing else.
#
# cmake -DSOURCE=<folder of page.html> -DSCRIPTS=<names of the page's scripts, in their order, with commas>
#       -DSTYLES=<style sheets, in their order, with commas> -DPROGRAM=<folder in programs/, which names the namespace>
#       [-DDYGRAPHS=<folder of the library>] -DOUTPUT=<file.cc> -P embed.cmake

# policy_hash(RESULT TEXT): 'sha256-...' of TEXT, in base64.
function(policy_hash result text)
  set(alphabet "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  string(SHA256 hex "${text}")
  # 32 bytes are ten groups of three and two bytes over.
  set(base64 "")
  foreach(place RANGE 0 60 6)
    string(SUBSTRING "${hex}0000" ${place} 6 group)
    math(EXPR number "0x${group}")
    foreach(shift 18 12 6 0)
      math(EXPR digit "(${number} >> ${shift}) & 63")
      string(SUBSTRING "${alphabet}" ${digit} 1 letter)
      string(APPEND base64 "${letter}")
    endforeach()
  endforeach()
  string(SUBSTRING "${base64}" 0 43 base64)
  set(${result} "'sha256-${base64}='" PARENT_SCOPE)
endfunction()

set(LIBRARY_SCRIPT "")
string(REPLACE "," ";" styles "${STYLES}")
if(DYGRAPHS)
  file(READ ${DYGRAPHS}/dygraph.min.js LIBRARY_SCRIPT)
  list(PREPEND styles ${DYGRAPHS}/dygraph.min.css)
endif()
# One function around all scripts: they see each other, and the document sees none of their names.
set(PAGE_SCRIPT "// All texts of the data reach the document by textContent.\n'use strict';\n(() => {\n")
string(REPLACE "," ";" scripts "${SCRIPTS}")
foreach(script IN LISTS scripts)
  file(READ ${SOURCE}/${script}.js text)
  # Comments on lines of their own, indents and empty lines are for who reads the source.
  string(REGEX REPLACE "\n *//[^\n]*" "" text "\n${text}")
  string(REGEX REPLACE "\n +" "\n" text "${text}")
  string(REGEX REPLACE "\n\n+" "\n" text "${text}")
  string(APPEND PAGE_SCRIPT "\n${text}")
endforeach()
string(APPEND PAGE_SCRIPT "})();\n")
set(STYLE "")
foreach(style IN LISTS styles)
  file(READ ${style} text)
  string(REGEX REPLACE "\n +" "\n" text "${text}")
  string(APPEND STYLE "${text}\n")
endforeach()
foreach(part LIBRARY_SCRIPT PAGE_SCRIPT STYLE)
  if("${${part}}" MATCHES "</(script|style)")
    message(FATAL_ERROR "${part} would end its own element")
  endif()
  policy_hash(${part}_HASH "${${part}}")
endforeach()

configure_file(${SOURCE}/page.html ${OUTPUT}.html @ONLY NEWLINE_STYLE UNIX)
file(READ ${OUTPUT}.html hex HEX)
string(REGEX REPLACE "(................................)" "\\1\n" hex "${hex}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
file(WRITE ${OUTPUT} "#include \"programs/${PROGRAM}/page.h\"

namespace ozmo::${PROGRAM} {
namespace {
constexpr unsigned char BYTES[] = {
${bytes}};
}

std::string_view PageTemplate() { return {reinterpret_cast<const char*>(BYTES), sizeof BYTES}; }

}  // namespace ozmo::${PROGRAM}
")
