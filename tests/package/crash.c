/* crash.exe MODULE: makes the module read unmapped memory and prints the offset of the instruction in
   the module. */
#include <stdio.h>
#include <windows.h>

static HMODULE module;

static LONG CALLBACK Note(EXCEPTION_POINTERS* pointers) {
  if (pointers->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
  printf("0x%llx\n", (unsigned long long)((char*)pointers->ExceptionRecord->ExceptionAddress - (char*)module));
  fflush(stdout);
  ExitProcess(0);
}

int main(int argc, char** argv) {
  typedef HRESULT(STDAPICALLTYPE * GetClassObject)(const CLSID*, const IID*, void**);
  if (argc != 2) return 2;
  module = LoadLibraryA(argv[1]);
  if (module == NULL) return 3;
  AddVectoredExceptionHandler(1, Note);
  void* object = NULL;
  ((GetClassObject)(void*)GetProcAddress(module, "DllGetClassObject"))((const CLSID*)8, &IID_IUnknown, &object);
  return 4;
}
