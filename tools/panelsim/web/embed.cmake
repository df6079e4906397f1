# Turns the web page into a C++ source at build time: cmake -DIN=page -DOUT=file.cpp -P embed.cmake
file(READ "${IN}" bytes HEX)
string(LENGTH "${bytes}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
string(REGEX REPLACE "(0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,)" "\\1\n" bytes "${bytes}")
file(WRITE "${OUT}.tmp" "// Generated from ${IN}: do not edit.\n#include <cstddef>\nnamespace Panelsim {\nextern const char kWebPage[];\nextern const size_t kWebPageSize;\nconst char kWebPage[] = {\n${bytes}0};\nconst size_t kWebPageSize = ${size};\n}  // namespace Panelsim\n")
file(RENAME "${OUT}.tmp" "${OUT}")
