#include "ui/style/images/MComposite.h"

#include "ui/drawing/MDrawerToMBitmap.h"

#include <algorithm>
#include <vector>

namespace {

MColor PutOver(MColor below, MColor above) {
    if (above.alpha == 0) return below;
    if (above.alpha == 255 || below.alpha == 0) return above;
    const int32_t rest = below.alpha * (255 - above.alpha);
    const int32_t own = above.alpha * 255;
    const int32_t sum = own + rest;
    const auto mix = [&](uint8_t a, uint8_t b) {
        return static_cast<uint8_t>((a * own + b * rest + sum / 2) / sum);
    };
    return {mix(above.blue, below.blue), mix(above.green, below.green), mix(above.red, below.red),
            static_cast<uint8_t>((sum + 127) / 255)};
}

/// A part of a source that a pixel of the target covers, in 1/256 of a pixel of the source.
struct Share {
    int32_t index;
    int32_t weight;
};

std::vector<std::vector<Share>> GetShares(int32_t source, int32_t target) {
    std::vector<std::vector<Share>> all(static_cast<size_t>(target));
    for (int32_t i = 0; i < target; ++i) {
        int64_t begin = int64_t{i} * source * 256 / target;
        int64_t end = int64_t{i + 1} * source * 256 / target;
        // Where the picture grows a pixel still is as wide as one of the source, around its middle: so
        // neighbours flow into each other.
        if (end - begin < 256) {
            begin = std::clamp<int64_t>((begin + end) / 2 - 128, 0, int64_t{source} * 256 - 256);
            end = begin + 256;
        }
        for (int64_t place = begin; place < end;) {
            const int64_t next = std::min((place / 256 + 1) * 256, end);
            all[static_cast<size_t>(i)].push_back(
                {static_cast<int32_t>(place / 256), static_cast<int32_t>(next - place)});
            place = next;
        }
    }
    return all;
}

}  // namespace

void MComposite(MBitmap& bitmap, const MBitmap& layer, MColorOp mode) {
    const bool isExact = mode == MColorOp::None || mode == MColorOp::Alphablend || mode == MColorOp::Overlay;
    if (!isExact) {
        MDrawerToMBitmap(bitmap).BitBltWhole(layer, {}, 255, mode);
        return;
    }
    MColor* const target = bitmap.EditPixels();
    const MColor* const source = layer.GetPixels();
    const int64_t count = int64_t{bitmap.GetWidth()} * bitmap.GetHeight();
    std::transform(target, target + count, source, target, PutOver);
}

MBitmap MResample(const MBitmap& bitmap, MPoint size) {
    if (bitmap.IsEmpty() || size.x < 1 || size.y < 1) return {};
    if (size == MPoint{bitmap.GetWidth(), bitmap.GetHeight()}) return bitmap;
    const auto columns = GetShares(bitmap.GetWidth(), size.x);
    const auto rows = GetShares(bitmap.GetHeight(), size.y);
    MBitmap result(size.x, size.y);
    for (int32_t y = 0; y < size.y; ++y) {
        MColor* const row = result.EditRow(y);
        for (int32_t x = 0; x < size.x; ++x) {
            int64_t blue = 0;
            int64_t green = 0;
            int64_t red = 0;
            int64_t alpha = 0;
            int64_t weights = 0;
            for (const Share& down : rows[static_cast<size_t>(y)]) {
                const MColor* const from = bitmap.GetRow(down.index);
                for (const Share& across : columns[static_cast<size_t>(x)]) {
                    const MColor color = from[across.index];
                    const int64_t weight = int64_t{down.weight} * across.weight;
                    blue += weight * color.alpha * color.blue;
                    green += weight * color.alpha * color.green;
                    red += weight * color.alpha * color.red;
                    alpha += weight * color.alpha;
                    weights += weight;
                }
            }
            if (alpha == 0) continue;
            const auto mean = [](int64_t sum, int64_t count) {
                return static_cast<uint8_t>((sum + count / 2) / count);
            };
            row[x] = {mean(blue, alpha), mean(green, alpha), mean(red, alpha), mean(alpha, weights)};
        }
    }
    return result;
}
