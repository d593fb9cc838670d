#pragma once

#include "ui/drawing/MAxisMap.h"

#include <vector>

/// Pixels side by side along one axis that show one piece of one texture.
struct MOpenGLSegment {
    int32_t first;  ///< in the destination
    int32_t last;
    int32_t tile;  ///< which texture of the picture
    double from;   ///< in the picture: what the left edge of the first pixel shows
    double to;     ///< and the right edge of the last one
};

/// What OpenGL can draw at once of a picture along one axis.
class MOpenGLSegments final {
public:
    /// The pixels from `first` to `last`, of a picture of `length` pixels in tiles of `tileSize`. A picture
    /// that `repeats` is one texture that goes on behind its end with its beginning.
    MOpenGLSegments(const MAxisMap& map, int32_t first, int32_t last, int32_t length, int32_t tileSize,
                    bool repeats);

    [[nodiscard]] auto begin() const { return segments.begin(); }
    [[nodiscard]] auto end() const { return segments.end(); }

private:
    void AddScaled(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize);
    void AddRuns(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize);

    std::vector<MOpenGLSegment> segments;
};
