#pragma once

#include "foundation/text/MString.h"
#include "ui/window/x11/selections/MXSelectionOwner.h"
#include "ui/window/x11/selections/MXSelectionReader.h"

/// The clipboard of a display. What is put into it can also be pasted by the middle button elsewhere
/// (PRIMARY). Formats are those of `MWindowSystem`; texts are offered under the names that other programs
/// use.
///
/// What it raises, `MWindowSystem` tells.
class MXClipboard {
public:
    MXClipboard(const MXConnection& connection, MXEventQueue& queue);
    MXClipboard(const MXClipboard&) = delete;
    MXClipboard& operator=(const MXClipboard&) = delete;
    /// Leaves what is in it to the clipboard manager, where there is one.
    ~MXClipboard();

    /// `time` is when the user last did something.
    void Set(const MString& format, const MBuffer& data, xcb_timestamp_t time);
    [[nodiscard]] bool Has(const MString& format, xcb_timestamp_t time) const;
    [[nodiscard]] MBuffer Get(const MString& format, xcb_timestamp_t time) const;
    /// Answers other programs; false if an event is about something else.
    bool Process(const xcb_generic_event_t& event);

    /// For what is dragged here.
    [[nodiscard]] const MXSelectionReader& GetReader() const { return reader; }

private:
    /// The longest that the end of the program waits for a clipboard manager, in milliseconds.
    static constexpr int64_t HandOverTime = 1000;

    [[nodiscard]] xcb_window_t MakeWindow() const;
    [[nodiscard]] xcb_timestamp_t GetServerTime();
    [[nodiscard]] xcb_atom_t GetForm(const MString& format) const;
    /// The form in which another program offers a format; none if it does not.
    [[nodiscard]] xcb_atom_t FindOffered(const MString& format, xcb_timestamp_t time) const;
    void HandOver();

    const MXConnection& connection;
    MXEventQueue& queue;
    xcb_window_t window;
    MXSelectionReader reader;
    MXSelectionOwner clipboard;
    MXSelectionOwner primary;
};
