// Loads the DLL the way an application does (its entry point runs at process and thread attach
// and must succeed), resolves every exported name by its plain, undecorated form, makes a few
// calls through the loaded addresses and unloads the DLL again.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <thread>

#include "veks.h"

namespace {

const char* const kNames[] = {
#include "export_names.inc"
};

int failures = 0;

void fail(const char* what, const char* detail) {
    std::printf("FAILED: %s %s\n", what, detail);
    ++failures;
}

template <class F>
F get(HMODULE dll, const char* name) {
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(dll, name)));
}

} // namespace

int main(int argc, char** argv) {
    const char* file = argc > 1 ? argv[1] : "veksm6.dll";
    HMODULE dll = LoadLibraryA(file);
    if (dll == nullptr) {
        std::printf("FAILED: LoadLibrary(%s), error %lu\n", file, GetLastError());
        return 1;
    }

    for (const char* name : kNames)
        if (GetProcAddress(dll, name) == nullptr) fail("no export named", name);
    // The decorated and the internal spellings are not exported.
    for (const char* name : {"_veksFree", "veksFree@4", "DllMain", "DllMain@12"})
        if (GetProcAddress(dll, name) != nullptr) fail("unexpected export", name);

    auto version = get<const VekLibraryVersion* (*)(void)>(dll, "veksGetLibVersion");
    auto message = get<const char* (*)(VekStatus)>(dll, "vekGetStatusString");
    auto alloc = get<Vek32f* (*)(int)>(dll, "veksMalloc_32f");
    auto release = get<void (*)(void*)>(dll, "veksFree");
    if (version && message && alloc && release) {
        const VekLibraryVersion* v = version();
        if (v == nullptr || std::strcmp(v->moduleName, "veksm6") != 0 || v->versionMajor != 2)
            fail("version record", "differs");
        if (std::strcmp(message(vekStsOk), "No error, it's ok") != 0)
            fail("status message for vekStsOk:", message(vekStsOk));
        Vek32f* p = alloc(100);
        if (p == nullptr || reinterpret_cast<uintptr_t>(p) % 32 != 0) fail("veksMalloc_32f", "");
        release(p);
    } else {
        fail("core services", "missing");
    }

    // Thread attach and detach run the entry point again; the DLL must stay usable.
    std::thread([&] {
        if (version && version() == nullptr) fail("veksGetLibVersion on a second thread", "");
    }).join();

    if (!FreeLibrary(dll)) fail("FreeLibrary", "");
    if (failures == 0)
        std::printf("%s: %zu exports resolved, entry point succeeded\n", file,
                    sizeof kNames / sizeof kNames[0]);
    return failures == 0 ? 0 : 1;
}
