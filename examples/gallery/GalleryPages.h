#pragma once

class MControl;

/// Adds to a page what its document cannot say: many rows, texts of tabs and panels, and controls that have no
/// element.
void GalleryCompletePage(MControl& page);
