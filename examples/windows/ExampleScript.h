#pragma once

#include "foundation/text/MString.h"
#include "ui/control/MControl.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

/// Writes a picture as a PNG file. Raises what opening and writing raise.
void ExampleSavePicture(const MBitmap& picture, const MString& path);

/// What a user does, line by line, in a window in memory; points are in the window, where it was
/// when no button was held:
///
///     move X Y            press | release | click X Y | double X Y | right X Y
///     type WORDS          key NUMBER          hold shift | control | none
///     wheel STEPS         wait MILLISECONDS
///     picture FILE.png
///
/// Empty lines and those that begin with "#" are left out.
class ExampleScript final {
public:
    ExampleScript(MWindowSystemHeadless& system, MControl& root) : system(system), root(root) {}

    /// Runs the lines, a twentieth of a second apart, as far as the window stays, and closes it. Raises "{0}
    /// in the script is not understood." (2), and what writing a picture raises.
    void Run(const MString& text);

private:
    void RunLine(const MString& line);

    MWindowSystemHeadless& system;
    MControl& root;
    MPoint origin;  ///< of the window on the screen when no button was held
};
