#include "ui/opengl/MOpenGLSegments.h"

#include <algorithm>

MOpenGLSegments::MOpenGLSegments(const MAxisMap& map, int32_t first, int32_t last, int32_t length,
                                 int32_t tileSize, bool repeats) {
    if (map.IsScaled()) {
        AddScaled(map, first, last, tileSize);
    } else if (map.GetLength() == 1) {
        const int32_t source = map.GetSource(first);
        segments.push_back({first, last, source / tileSize, source + 0.5, source + 0.5});
    } else if (repeats && map.GetLength() == length) {
        const double from = map.GetSource(first);
        segments.push_back({first, last, 0, from, from + (last - first + 1)});
    } else {
        AddRuns(map, first, last, tileSize);
    }
}

void MOpenGLSegments::AddScaled(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize) {
    constexpr double Unit = 0x10000;
    // Positions are whole numbers of this unit. Half of one keeps what falls on the edge of a pixel from
    // being rounded into the one before.
    constexpr double Nudge = 0.5;
    const double halfStep = map.GetStep() / 2.0;
    for (int32_t x = first, end; x <= last; x = end) {
        const int32_t tile = map.GetSource(x) / tileSize;
        for (end = x + 1; end <= last && map.GetSource(end) / tileSize == tile;) ++end;
        segments.push_back({x, end - 1, tile,
                            (static_cast<double>(map.GetPosition(x)) - halfStep + Nudge) / Unit,
                            (static_cast<double>(map.GetPosition(end - 1)) + halfStep + Nudge) / Unit});
    }
}

void MOpenGLSegments::AddRuns(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize) {
    for (int32_t x = first, count; x <= last; x += count) {
        const int32_t source = map.GetSource(x);
        count = std::min({map.GetRunLength(x), last - x + 1, tileSize - source % tileSize});
        segments.push_back({x, x + count - 1, source / tileSize, double(source), double(source + count)});
    }
}
