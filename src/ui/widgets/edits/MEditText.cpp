#include "ui/widgets/edits/MEditText.h"

#include <algorithm>

namespace {

/// The gap that is left behind text for which there was too little room.
constexpr int32_t LeastGap = 256;

}  // namespace

MString MEditText::GetText(int32_t start, int32_t count) const {
    MString text;
    if (count <= 0) return text;
    char16_t* const copied = text.Resize(count);
    const int32_t before = std::clamp(gapStart - start, 0, count);
    std::copy_n(units.begin() + start, before, copied);
    std::copy_n(units.begin() + start + before + (before < count ? gapLength : 0), count - before,
                copied + before);
    return text;
}

void MEditText::Replace(int32_t start, int32_t count, const MString& text) {
    const int32_t inserted = text.GetLength();
    if (inserted > gapLength + count) {
        // The gap grows with the text, so that a text that is typed is copied a few times only.
        const int32_t newGap = inserted + std::max(LeastGap, GetLength() / 2);
        const int32_t added = newGap - gapLength;
        units.insert(units.begin() + gapStart, static_cast<size_t>(added), u'\0');
        gapLength = newGap;
    }
    MoveGap(start);
    gapLength += count;
    for (int32_t i = 0; i < inserted; ++i) units[static_cast<size_t>(gapStart++)] = text[i];
    gapLength -= inserted;
}

void MEditText::MoveGap(int32_t start) {
    const auto gap = units.begin() + gapStart;
    if (start < gapStart)
        std::move_backward(units.begin() + start, gap, gap + gapLength);
    else
        std::move(gap + gapLength, units.begin() + start + gapLength, gap);
    gapStart = start;
}
