# cmake -D INPUT=file -D OUTPUT=file.h -D NAME=identifier -P EmbedFile.cmake: writes the bytes of a file as a C++ array.

file(READ "${INPUT}" digits HEX)
string(REPEAT "[0-9a-f]" 32 sixteen_bytes)
string(REGEX REPLACE "(${sixteen_bytes})" "\\1\n" digits "${digits}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${digits}")
file(WRITE "${OUTPUT}" "alignas(8) constexpr unsigned char ${NAME}[] = {\n${bytes}\n};\n")
