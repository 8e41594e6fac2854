# SPDX-License-Identifier: Apache-2.0
# cmake -DINPUT=<text file> -DOUTPUT=<.cpp> -DVARIABLE=<name> -P EmbedText.cmake: the text as a C++ string literal.
file(READ "${INPUT}" content)
get_filename_component(name "${INPUT}" NAME)
file(WRITE "${OUTPUT}" "// Made from ${name} by cmake/EmbedText.cmake.
#include <string_view>

namespace ws::embedded {
extern const std::string_view ${VARIABLE};
const std::string_view ${VARIABLE} = R\"embedded(${content})embedded\";
}  // namespace ws::embedded
")
