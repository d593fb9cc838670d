#pragma once

/// The libraries of X, in the order of MXFunctions.inc.
enum class MXLibrary {
    Core,
    SharedMemory,
    RandR,
    Shape,
    Render,
    Xkb,
    Keyboard,
    KeyboardX11,
};
inline constexpr int MXLibraryCount = 8;

/// Opens the libraries of X when the first display is opened, so that a program without windows starts where
/// there are none. The functions of MXFunctions.inc are then called as if they were linked; those of a
/// library that is missing, or lacks one of them, must not be.
///
/// Raises "{0} could not be loaded. Please install it, or run this program without windows." (0) for a
/// library that no window can do without: the core and the keyboard. Any thread may call it, more than once.
void MLoadXLibraries();

/// Whether the functions of a library can be called.
[[nodiscard]] bool MHasXLibrary(MXLibrary library);
