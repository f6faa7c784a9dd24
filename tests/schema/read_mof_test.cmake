# A MOF text that the build cannot read stops it with a sentence that names the line. Each row is a text
# and its message; the first row has everything that is supported and gives no message.
cmake_minimum_required(VERSION 3.25)
if(DEFINED MOF)
  include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/ReadMof.cmake)
  read_mof(${MOF})
  return()
endif()

function(read text expected)
  file(WRITE m.mof "${text}")
  execute_process(COMMAND ${CMAKE_COMMAND} -DMOF=m.mof -P ${CMAKE_SCRIPT_MODE_FILE} ERROR_VARIABLE said)
  string(REGEX REPLACE "[ \n]+" " " said "${said}")  # CMake wraps its lines
  string(FIND "${said}" "${expected}" at)
  if(at EQUAL -1 OR (expected STREQUAL "" AND NOT said STREQUAL ""))
    message(SEND_ERROR "of ${text}\nexpected ${expected}\nfound ${said}")
  endif()
endfunction()

read("/* two\nlines */ #pragma namespace(\"x\")\ninstance of __Win32Provider as $P { Name = \"a;\\\"]\"; };
instance of R { Provider = $p; Level = {1, 2}; };
[dynamic: ToInstance ToSubclass, Values{\"[\", \"}\"}, KEY(FALSE)] CLASS A // a comment\n{
  [key, Description(\"a \" \"b)\")] string B[] = {\";\"}; A ref C = NULL; void D();
  uint8 E([in] string F[], [out] A ref G); };" "")
read("\nklass A {};" "m.mof:2: expected #pragma, class or instance, found 'klass'")
read("/*\n*/\n[key" "m.mof:3: expected ']' or ',' after a qualifier, found the end")
read("[key(\")\"" "m.mof:1: expected ')' after a qualifier's value, found the end")
read("[Values{1" "m.mof:1: expected '}' after a qualifier's values, found the end")
read("[key: 5]" "m.mof:1: expected a flavor such as ToInstance, found '5'")
read("class A : B {};" "m.mof:1: expected '{' (a class cannot be derived from another here), found ':'")
read("class A {\n};\nclass" "m.mof:3: expected a class name, found the end")
read("class A {\n  datetime B;\n};" "m.mof:2: expected a data type or CLASS ref, found 'datetime'")
read("class A { void B; };" "m.mof:1: expected '(', found ';'")
read("class A { string B[2]; };" "m.mof:1: expected ']', found '2'")
read("class A {\n  string B\n};" "m.mof:3: expected ';', found '}'")
read("class A { string B = 1" "m.mof:1: expected ';' after a value, found the end")
read("class A { string B([in, out] string C); };"
     "m.mof:1: expected either in or out among the qualifiers of a parameter, found 'string'")
read("class A { string B([in] string C; };" "m.mof:1: expected ',' or ')' after a parameter, found ';'")
read("class A {}" "m.mof:1: expected ';' after a class, found the end")
read("instance of A { Provider = $B; };" "m.mof:1: expected an alias of an earlier instance, found '$B'")
read("instance of A { Name = 5; };" "m.mof:1: expected a text, found '5'")
read("\ninstance of A { B = 5; };" "m.mof:2: expected a value of Name or Provider, found none")
read("#pragma include(\"x\")" "m.mof:1: expected namespace or classflags, found 'include'")
read("class A { string \"B; };" "m.mof:1: expected a property's or method's name, found '\"'")
