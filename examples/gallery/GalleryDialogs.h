#pragma once

#include "foundation/text/MString.h"

#include <span>

class MControl;

/// A dialog of the toolkit with what it shows in the gallery.
struct GalleryDialog {
    const char* name;
    const char* caption;
    /// Opens it over a window and gives what came of it, as soon as it was closed.
    MString (*run)(MControl& owner);
    /// Whether it shows the same on every machine: not what is in a folder.
    bool hasPicture = true;
    /// Waits until it has got what it shows from another thread; null if there is none.
    void (*settle)() = nullptr;
};

[[nodiscard]] std::span<const GalleryDialog> GalleryGetDialogs();
