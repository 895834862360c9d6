// Libraries of Windows, taken from its own folder and from nowhere else, so that a file of the same name beside the
// program or in the current folder is never run. What is not on every Windows, and what Windows would look for beside
// the program first (winmm, wininet, dsound, ...), is fetched here by name and not linked.
#pragma once

namespace platform {

// For the first line of WinMain: from then on every library is looked for in the system folder alone, those that
// Windows itself loads for us (common dialogs, shell extensions) included. Also lets a crash in a timer procedure
// be a crash: Windows would swallow it and go on.
void HardenProcess();

// The address of a function, nullptr when the library or the function is missing. The library stays loaded.
using AnyFunction = void (*)();
AnyFunction FindSystemFunction(const char* library, const char* function);

// SystemFunction<UINT(WINAPI*)(UINT)>("winmm.dll", "timeBeginPeriod")
template <class FunctionPointer>
FunctionPointer SystemFunction(const char* library, const char* function) {
    return reinterpret_cast<FunctionPointer>(FindSystemFunction(library, function));
}

}  // namespace platform
