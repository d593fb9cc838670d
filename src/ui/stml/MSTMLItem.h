#pragma once

#include "foundation/base/MObject.h"
#include "ui/geometry/MRect.h"
#include "ui/stml/MSTMLContext.h"

#include <cstdint>

/// A width that nothing has to fit into, and a height likewise.
inline constexpr int32_t MSTMLUnlimited = 1 << 28;

/// A part of a document: it measures itself for a width and paints itself. Lengths are in pixels. What was
/// measured is kept for as long as contexts have the same mark, so whoever changes an item takes another one.
class MSTMLItem : public MObject {
public:
    /// A copy, which the caller owns.
    [[nodiscard]] virtual MSTMLItem* Clone() const = 0;
    /// Lays the item out, for being painted, and gives its height. `maxHeight` is the room that is left,
    /// of which heights in percent are a share.
    virtual int32_t ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) = 0;
    /// The height without such a room; `outWidth` becomes what the item needs of the width.
    virtual int32_t ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) = 0;
    /// Below this width words are cut or things stand outside.
    [[nodiscard]] virtual int32_t GetMinimalWidth(MSTMLContext& context) = 0;
    /// Above this width nothing changes any more.
    [[nodiscard]] virtual int32_t GetMaximalWidth(MSTMLContext& context) = 0;
    /// Paints what `ComputeHeight` has laid out, in a rectangle of that width.
    virtual void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) = 0;
    /// Whether there is anything to be seen.
    [[nodiscard]] virtual bool HasContent() const = 0;

    /// The last result of `ComputeHeight`.
    [[nodiscard]] int32_t GetHeight() const { return height; }

protected:
    int32_t height = 0;
};

/// A result of measuring, which holds for the mark of a context and for one width.
struct MSTMLMeasure {
    [[nodiscard]] bool Holds(const MSTMLContext& context, int32_t forWidth) const {
        return mark == context.mark && width == forWidth;
    }

    uint32_t mark = 0;  ///< that of no context
    int32_t width = 0;
    int32_t height = 0;
    int32_t outWidth = 0;
};
