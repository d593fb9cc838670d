#include "ui/widgets/lists/MTypeAhead.h"

#include <algorithm>

int32_t MTypeAhead::Type(char16_t unit, int64_t time, int32_t current, int32_t count,
                         const std::function<MString(int32_t)>& getText) {
    if (MChar(unit).IsControl() || count == 0) return -1;
    if (!IsTyping(time)) typed = MString();
    lastTime = time;
    typed.Append(MChar(unit));

    MString repeated;
    repeated.Append(typed[0], typed.GetLength());
    const bool isOneLetter = typed == repeated;
    const MString wanted = isOneLetter ? typed.Substring(0, 1) : typed;
    // A text that grows may still be that of the present row.
    const int32_t first = std::max(current, 0) + (isOneLetter && current >= 0 ? 1 : 0);
    for (int32_t i = 0; i < count; ++i) {
        const int32_t row = (first + i) % count;
        if (getText(row).Substring(0, wanted.GetLength()) == wanted) return row;
    }
    return -1;
}
