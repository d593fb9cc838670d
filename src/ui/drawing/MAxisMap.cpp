#include "ui/drawing/MAxisMap.h"

#include <algorithm>

MAxisMap MAxisMap::Straight(int32_t target, int32_t source, int32_t length) {
    return {target, length, source, std::max(length, 1), 0, OneToOne};
}

MAxisMap MAxisMap::Tiled(int32_t target, int32_t targetLength, int32_t source, int32_t length,
                         int32_t phase) {
    const int32_t positive = (phase % length + length) % length;
    return {target, targetLength, source, length, positive, OneToOne};
}

MAxisMap MAxisMap::Scaled(int32_t target, int32_t targetLength, int32_t source, int32_t length) {
    const int64_t step = (int64_t{length} << 16) / std::max(targetLength, 1);
    return {target, targetLength, source, length, 0, step};
}

int32_t MAxisMap::GetSource(int32_t target) const {
    if (IsScaled()) return static_cast<int32_t>(GetPosition(target) >> 16);
    return source + static_cast<int32_t>((int64_t{target} - first + phase) % length);
}

int64_t MAxisMap::GetPosition(int32_t target) const {
    // A pixel shows what lies below its centre.
    return (int64_t{source} << 16) + (int64_t{target} - first) * step + step / 2;
}

int32_t MAxisMap::GetRunLength(int32_t target) const {
    return source + length - GetSource(target);
}
