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

// OpenGL computes in floats where a pixel's centre falls. All centres of a segment are moved together so that
// none comes near the edge of a pixel of the picture; where that cannot be, another segment begins.
void MOpenGLSegments::AddScaled(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize) {
    constexpr int64_t Unit = 0x10000;
    constexpr int64_t Margin = Unit / 512;
    for (int32_t x = first, end; x <= last; x = end) {
        const int32_t tile = map.GetSource(x) / tileSize;
        int64_t least = Unit;
        int64_t most = 0;
        for (end = x; end <= last && map.GetSource(end) / tileSize == tile; ++end) {
            const int64_t fraction = map.GetPosition(end) % Unit;
            const int64_t newLeast = std::min(least, fraction);
            const int64_t newMost = std::max(most, fraction);
            if (end > x && newMost - newLeast > Unit - 2 * Margin) break;
            least = newLeast;
            most = newMost;
        }
        const double center = (Unit - 1 - least - most) / 2.0;
        const double halfStep = map.GetStep() / 2.0;
        const auto toPlace = [&](int32_t pixel, double offset) {
            return (static_cast<double>(map.GetPosition(pixel)) + center + offset) / Unit;
        };
        segments.push_back({x, end - 1, tile, toPlace(x, -halfStep), toPlace(end - 1, halfStep)});
    }
}

void MOpenGLSegments::AddRuns(const MAxisMap& map, int32_t first, int32_t last, int32_t tileSize) {
    for (int32_t x = first, count; x <= last; x += count) {
        const int32_t source = map.GetSource(x);
        count = std::min({map.GetRunLength(x), last - x + 1, tileSize - source % tileSize});
        segments.push_back({x, x + count - 1, source / tileSize, double(source), double(source + count)});
    }
}
