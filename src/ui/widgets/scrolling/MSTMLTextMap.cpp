#include "ui/widgets/scrolling/MSTMLTextMap.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr const char* LinkBeginnings[] = {"http://", "https://", "www."};

/// Whether a sign belongs to the sentence around an address that it follows.
bool IsClosing(MChar unit) {
    return std::string_view(".,;:!?)]}'\"").find(unit.ToNarrow()) != std::string_view::npos;
}

}  // namespace

void MSTMLTextMap::TakeCharacter(char32_t character, const MRect& cell) {
    if (character >= 0x10000) {
        text.Append(MChar(static_cast<char16_t>(0xD7C0 + (character >> 10))));
        cells.push_back(cell);
        character = 0xDC00 + (character & 0x3FF);
    }
    text.Append(MChar(static_cast<char16_t>(character)));
    cells.push_back(cell);
}

void MSTMLTextMap::Finish() {
    for (const char* beginning : LinkBeginnings) {
        for (MTextRange link : Find(beginning)) {
            const bool isInside = link.start > 0 && !text[link.start - 1].IsBlank() &&
                                  (text[link.start - 1].IsAlphanumeric() || text[link.start - 1] == '/');
            if (isInside) continue;
            const int32_t least = link.end;
            while (link.end < text.GetLength() && text[link.end] > ' ' && text[link.end] < 0x7F) ++link.end;
            while (link.end > least && IsClosing(text[link.end - 1])) --link.end;
            if (link.end > least) links.push_back(link);
        }
    }
    std::ranges::sort(links, {}, &MTextRange::start);
}

MString MSTMLTextMap::GetText(MTextRange range) const {
    return text.Substring(range.start, range.GetLength());
}

std::vector<MTextRange> MSTMLTextMap::Find(const MString& wanted) const {
    std::vector<MTextRange> found;
    if (wanted.IsEmpty()) return found;
    for (int32_t at = text.Find(wanted); at != MString::NotFound; at = text.Find(wanted, found.back().end))
        found.push_back({at, at + wanted.GetLength()});
    return found;
}

const MTextRange* MSTMLTextMap::FindLinkAt(MPoint point) const {
    const auto link = std::ranges::find_if(links, [&](const MTextRange& range) {
        return std::ranges::any_of(GetRectangles(range),
                                   [&](const MRect& rect) { return rect.Contains(point); });
    });
    return link == links.end() ? nullptr : &*link;
}

std::vector<MRect> MSTMLTextMap::GetRectangles(MTextRange range) const {
    std::vector<MRect> rects;
    for (int32_t index = range.start; index < range.end; ++index) {
        const MRect& cell = cells[static_cast<size_t>(index)];
        if (cell.IsEmpty()) continue;
        if (!rects.empty() && rects.back().top == cell.top && rects.back().right < cell.right)
            rects.back() = rects.back().United(cell);
        else
            rects.push_back(cell);
    }
    return rects;
}
