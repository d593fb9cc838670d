#include "ui/drawing/MGradient.h"

#include <algorithm>
#include <utility>

namespace {

uint8_t Mix(uint8_t from, uint8_t to, int64_t position, int64_t last) {
    return static_cast<uint8_t>((from * (last - position) + to * position + last / 2) / last);
}

}  // namespace

MGradient::MGradient(MColor from, MColor to, MGradientDirection direction, const MRect& area)
    : from(from),
      to(to),
      isHorizontal(direction >= MGradientDirection::Horizontal),
      isDouble((static_cast<int32_t>(direction) & 2) != 0),
      last(std::max(isHorizontal ? area.GetWidth() : area.GetHeight(), 1) - 1) {
    if (static_cast<int32_t>(direction) & 1) std::swap(this->from, this->to);
}

MColor MGradient::GetColor(int32_t position) const {
    // Of an even count of pixels the two in the middle share the end colour.
    const int32_t end = isDouble ? last / 2 : last;
    position = std::clamp(position, 0, last);
    if (isDouble) position = std::min(position, last - position);
    if (end == 0) return from;
    return {Mix(from.blue, to.blue, position, end), Mix(from.green, to.green, position, end),
            Mix(from.red, to.red, position, end), Mix(from.alpha, to.alpha, position, end)};
}
