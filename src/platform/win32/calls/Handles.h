#pragma once

#include <windows.h>

#include <utility>

namespace korvanta {

// Owns one handle and closes it once. `Traits` has the handle's type, the value for no handle, and how to close it.
template <class Traits>
class Handle {
  public:
    using Value = typename Traits::Value;

    Handle() = default;
    explicit Handle(Value value) : value_(value) {}
    Handle(Handle&& other) noexcept : value_(other.Release()) {}
    Handle& operator=(Handle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Reset(); }

    Value Get() const { return value_; }
    explicit operator bool() const { return value_ != Traits::None(); }
    // Gives the open handle to the caller.
    Value Release() { return std::exchange(value_, Traits::None()); }
    // Closes the old handle and takes the new one. False when closing failed; true when there was nothing to close.
    bool Reset(Value value = Traits::None()) {
        const Value old = std::exchange(value_, value);
        return old == Traits::None() || Traits::Close(old);
    }

  private:
    Value value_ = Traits::None();
};

template <class HandleType>
struct NullIsNone {
    using Value = HandleType;
    static Value None() { return nullptr; }
};

template <class HandleType>
struct GraphicsTraits : NullIsNone<HandleType> {
    static bool Close(HandleType handle) { return ::DeleteObject(handle) != 0; }
};

struct FileTraits {
    using Value = HANDLE;
    static Value None() { return INVALID_HANDLE_VALUE; }
    static bool Close(HANDLE handle) { return ::CloseHandle(handle) != 0; }
};

struct KernelTraits : NullIsNone<HANDLE> {
    static bool Close(HANDLE handle) { return ::CloseHandle(handle) != 0; }
};

struct RegistryKeyTraits : NullIsNone<HKEY> {
    static bool Close(HKEY key) { return ::RegCloseKey(key) == ERROR_SUCCESS; }
};

struct MenuTraits : NullIsNone<HMENU> {
    static bool Close(HMENU menu) { return ::DestroyMenu(menu) != 0; }
};

struct IconTraits : NullIsNone<HICON> {
    static bool Close(HICON icon) { return ::DestroyIcon(icon) != 0; }
};

struct ModuleTraits : NullIsNone<HMODULE> {
    static bool Close(HMODULE library) { return ::FreeLibrary(library) != 0; }
};

struct WindowTraits : NullIsNone<HWND> {
    static bool Close(HWND window) { return ::DestroyWindow(window) != 0; }
};

struct MemoryContextTraits : NullIsNone<HDC> {
    static bool Close(HDC context) { return ::DeleteDC(context) != 0; }
};

struct ScreenContextTraits : NullIsNone<HDC> {
    static bool Close(HDC context) { return ::ReleaseDC(nullptr, context) != 0; }
};

using FileHandle = Handle<FileTraits>;
using KernelHandle = Handle<KernelTraits>;
using RegistryKeyHandle = Handle<RegistryKeyTraits>;
using FontHandle = Handle<GraphicsTraits<HFONT>>;
using BrushHandle = Handle<GraphicsTraits<HBRUSH>>;
using PenHandle = Handle<GraphicsTraits<HPEN>>;
using BitmapHandle = Handle<GraphicsTraits<HBITMAP>>;
using MenuHandle = Handle<MenuTraits>;
using IconHandle = Handle<IconTraits>;
using ModuleHandle = Handle<ModuleTraits>;
using WindowHandle = Handle<WindowTraits>;
using MemoryContext = Handle<MemoryContextTraits>;  // from CreateCompatibleDC
using ScreenContext = Handle<ScreenContextTraits>;  // from GetDC(nullptr)

// Selects an object into a drawing context; restores the former one when destroyed.
class Selection {
  public:
    Selection(HDC context, HGDIOBJ object) : context_(context), old_(::SelectObject(context, object)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { ::SelectObject(context_, old_); }

  private:
    HDC context_;
    HGDIOBJ old_;
};

}  // namespace korvanta
