#include "foundation/text/MByteSizeText.h"

#include "foundation/text/MStringFormatter.h"

MString MByteSizeText(int64_t bytes) {
    static constexpr const char* Units[] = {"B", "KB", "MB", "GB", "TB", "PB", "EB"};
    constexpr int64_t Step = 1024;
    if (bytes < Step) return MFormat("{0} {1}", bytes > 0 ? bytes : 0, Units[0]);

    int32_t unit = 0;
    int64_t tenths = bytes;
    do {
        // From here on the number has one decimal, cut off, so that no unit ever shows 1024.
        tenths = unit == 0 ? tenths / Step * 10 + tenths % Step * 10 / Step : tenths / Step;
        ++unit;
    } while (tenths >= Step * 10);
    return MFormat("{0}.{1} {2}", tenths / 10, tenths % 10, Units[unit]);
}
