// Windows entry point. The library keeps no per-process or per-thread state, so there is nothing
// to set up or tear down at process or thread attach and detach: report success every time.
#if defined(_WIN32)
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }
#endif
