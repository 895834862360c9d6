// The system's objects, as far as this directory uses them: a thread's apartment, and an object that is released.
#pragma once

#include <utility>

#include "win32/handles.h"
// After <windows.h>, which it needs.
#include <objbase.h>

namespace platform {

// What these objects need; the thread may have one already. A thread that does not pump takes COINIT_MULTITHREADED: the
// other kind has a window, at which a message to all windows would wait for ever.
class Apartment {
public:
    explicit Apartment(DWORD kind = COINIT_APARTMENTTHREADED) : state(CoInitializeEx(nullptr, kind)) {}
    ~Apartment() {
        if (SUCCEEDED(state)) CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    HRESULT state;
};

template <class Interface>
class Owned {
public:
    Owned() = default;
    Owned(Owned&& other) noexcept : object(std::exchange(other.object, nullptr)) {}
    ~Owned() {
        if (object != nullptr) object->Release();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    explicit operator bool() const { return object != nullptr; }
    Interface* operator->() const { return object; }
    Interface** Place() { return &object; }
    void** UntypedPlace() { return reinterpret_cast<void**>(&object); }

private:
    Interface* object = nullptr;
};

}  // namespace platform
