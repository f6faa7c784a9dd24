# content_hash(FILE VARIABLE): sets VARIABLE to FILE's hash as a content security policy writes it,
# sha256-BASE64. When FILE changes, CMake runs again.

function(content_hash file variable)
  get_filename_component(input ${file} ABSOLUTE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${input})
  file(SHA256 ${input} hex)
  set(alphabet "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  # 64 digits are ten groups of six and one of four, which is padded with two zeros.
  string(APPEND hex "00")
  set(text "")
  foreach(start RANGE 0 60 6)
    string(SUBSTRING ${hex} ${start} 6 group)
    foreach(shift 18 12 6 0)
      math(EXPR index "(0x${group} >> ${shift}) & 63")
      string(SUBSTRING ${alphabet} ${index} 1 character)
      string(APPEND text ${character})
    endforeach()
  endforeach()
  string(SUBSTRING ${text} 0 43 text)
  set(${variable} "sha256-${text}=" PARENT_SCOPE)
endfunction()
