/* Replaces the system's schema compiler: records the options and files that it is given, and fails
   once for C:\compiler-fails.txt. */
#include <stdio.h>
#include <string.h>

int main(int argc, char** argv) {
  FILE* log = fopen("C:\\compiled.txt", "a");
  const char* path = argc > 1 ? argv[argc - 1] : "";
  FILE* schema = fopen(path, "r");
  const char* name = strrchr(path, '\\');
  if (argc == 3) fprintf(log, "%s ", argv[1]);
  fprintf(log, "%s%s\n", name ? name + 1 : path, schema ? "" : " is missing");
  return schema && remove("C:\\compiler-fails.txt") ? 0 : 3;
}
