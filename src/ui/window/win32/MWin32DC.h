#pragma once

#include "foundation/win32/MWindowsHeader.h"
#include "ui/geometry/MRect.h"
#include "ui/image/MGDIObject.h"

#include <utility>

class MBitmap;

/// A context through which GDI draws.
class MWin32DC final : public MGDIObject {
public:
    /// Of a window's client area; of the whole desktop for null.
    [[nodiscard]] static MWin32DC OfWindow(HWND window);
    /// One in memory, for a bitmap that is to be selected into it.
    [[nodiscard]] static MWin32DC CompatibleWith(const MWin32DC& other);
    /// Another's, such as that of a paint; it is not released.
    [[nodiscard]] static MWin32DC Borrow(HDC context) { return {context, Origin::Borrowed, nullptr}; }
    ~MWin32DC() override;

    [[nodiscard]] HDC GetContext() const { return reinterpret_cast<HDC>(handle); }

    /// Shows a part of a picture at its own place. The picture may change as soon as this returns.
    void Show(const MBitmap& picture, const MRect& part) const;
    /// Copies from the top left corner into a surface, whose alpha is unspecified then. False if the surface
    /// is in plain memory.
    [[nodiscard]] bool CopyTo(const MBitmap& surface) const;

private:
    enum class Origin { Window, Memory, Borrowed };

    MWin32DC(HDC context, Origin origin, HWND window) : origin(origin), window(window) {
        handle = reinterpret_cast<intptr_t>(context);
    }

    const Origin origin;
    const HWND window;
};

/// A drawing object of GDI is selected into a context for as long as this exists; then the previous one is
/// again.
class MGDIPreObject final {
public:
    MGDIPreObject(const MWin32DC& context, const MGDIObject& object)
        : context(context.GetContext()),
          previous(SelectObject(this->context, reinterpret_cast<HGDIOBJ>(object.GetHandle()))) {}
    MGDIPreObject(const MGDIPreObject&) = delete;
    MGDIPreObject& operator=(const MGDIPreObject&) = delete;
    ~MGDIPreObject() { SelectObject(context, previous); }

private:
    const HDC context;
    const HGDIOBJ previous;
};
