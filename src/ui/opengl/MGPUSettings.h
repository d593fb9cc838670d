#pragma once

#include "ui/opengl/MDrawerOpenGL.h"

/// Whether windows are to be painted by the graphics card: the user's choice, in the file "GPU.xml" of the
/// user's data directory, for all programs of the maker. Its document is `<GPU mode="1"/>`, with the number
/// of an `MGPUMode`.
namespace MGPUSettings {

/// Off where nothing was chosen, or the file cannot be understood.
[[nodiscard]] MGPUMode Load();
/// A file that cannot be written stays as it is.
void Save(MGPUMode mode);

}  // namespace MGPUSettings
