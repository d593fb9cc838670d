#pragma once

#include "ui/window/x11/display/MXConnection.h"
#include "ui/window/x11/display/MXEventQueue.h"

#include <optional>

/// Fetches what other programs offer: of the clipboard, or while something is dragged (ICCCM 2.4), large
/// things piece by piece. A program that does not answer is not waited for longer than `Patience`, with every
/// piece anew.
class MXSelectionReader {
public:
    static constexpr int64_t Patience = 2000;
    static constexpr size_t LargestSize = 1 << 30;  ///< in bytes; more is taken for a failure

    /// The window receives, and hears of changes of its properties.
    MXSelectionReader(const MXConnection& connection, MXEventQueue& queue, xcb_window_t window)
        : connection(connection), queue(queue), window(window) {}

    /// What the owner gives in a form. Nothing if there is no owner, or if it refuses, ends or is too slow.
    [[nodiscard]] std::optional<MXProperty> Read(xcb_atom_t selection, xcb_atom_t form,
                                                 xcb_timestamp_t time) const;

private:
    [[nodiscard]] std::optional<MXProperty> ReadPieces() const;

    const MXConnection& connection;
    MXEventQueue& queue;
    xcb_window_t window;
};
