#pragma once

#include "examples/gallery/GalleryWindow.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

/// Writes pictures of all pages of the gallery, which is in memory, and of all dialogs, into a folder: the name in
/// lower case, then a text that is the same for all, as "buttons-dark-100.png". Raises what writing a file raises.
void GalleryDrawScreens(MWindowSystemHeadless& system, GalleryWindow& window, const MString& folder,
                        const MString& suffix);
