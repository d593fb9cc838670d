#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MObject.h"
#include "ui/control/MLayoutNeeds.h"
#include "ui/control/SizeComputer.h"
#include "ui/control/kinds/MFlexibility.h"
#include "ui/geometry/MRect.h"

#include <cstdint>

class MControl;
class MXMLItem;
enum class MStyleMetric : int32_t;

/// Places some of the children of a control in a part of its client area. The layouts of a control are asked
/// in their order: each takes what it needs of the free rectangle and leaves the rest to the next one.
///
/// What controls say about themselves: `layoutRatio` is a weight per axis. One of 0 (or below) keeps its
/// size, the others share what is left. `layoutBorder` stays free on each side. Only visible controls count.
/// All numbers may come from documents: whatever they are, nothing overflows, and lengths below 0 are 0.
///
/// Where there is room for the minimal size, no control gets less than its own, none overlaps another one,
/// and none leaves the rectangle. Where there is less, stretching controls shrink to nothing, and the others
/// keep their size and go beyond the right or bottom edge.
///
/// Under the tree's lock for writing, on the thread of the user interface. What controls do while they are
/// measured and arranged may not add or remove any.
class MLayout : public MObject {
public:
    /// Becomes the last layout of `owner`, which owns it.
    explicit MLayout(MControl& owner);
    MLayout(const MLayout&) = delete;
    MLayout& operator=(const MLayout&) = delete;
    ~MLayout() override;

    virtual void LoadFromXml(MXMLItem& item);
    /// What an element says about its control in this layout.
    virtual void LoadControlParameters(MControl& control, MXMLItem& item);
    /// Takes a child of the owner; it is not owned. One that another layout holds leaves that. Raises "A
    /// layout can place only what lies in its owner." (2).
    virtual void Attach(MControl& control);
    /// Nothing happens to a control that is not held here.
    virtual void Detach(MControl& control);
    /// As `Attach`, without a gap of its own behind the control.
    virtual void Add(MControl& control);
    virtual void Remove(MControl& control);
    /// `span`: columns of a grid; `reserve`: whether the next control comes behind all of them.
    virtual void SetSpanX(MControl& control, int32_t span, bool reserve);
    /// Places the controls in `rect`; returns what is left of it.
    [[nodiscard]] virtual MRect Arrange(MControl& owner, const MRect& rect);
    /// Adds to what the layouts before this one need.
    virtual void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer);
    virtual void MeasureMinimal(MControl& owner, MLayoutNeeds& needs);
    virtual void MeasureCurrent(MControl& owner, MLayoutNeeds& needs);
    [[nodiscard]] virtual MFlexibility GetFlexibility();

    [[nodiscard]] const MList<MControl, MListPointers>& GetControls() const { return controls; }
    [[nodiscard]] MControl& GetOwner() const { return *owner; }

    int32_t space = 0;        ///< between neighbours, beside what the style says; in pixels of scale 100
    int32_t defBorderX = -1;  ///< that controls get when they come; none below 0
    int32_t defBorderY = -1;

protected:
    enum class Part { OfLayout };
    /// A layout within another one, which owns it; the control does not know of it.
    MLayout(MControl& owner, Part) : owner(&owner) {}
    /// Another control takes the layout and its controls over.
    virtual void SetOwner(MControl& newOwner) { owner = &newOwner; }

    /// Pixels between neighbours: what the style says and `space`, together at least 0.
    [[nodiscard]] int32_t GetSpace() const;
    /// As above, between the columns of a grid.
    [[nodiscard]] int32_t GetGridSpace() const;
    /// What the style says alone.
    [[nodiscard]] int32_t GetStyleSpace() const;

    MList<MControl, MListPointers> controls;

private:
    friend class MControl;

    [[nodiscard]] int32_t GetOwnSpace() const;
    [[nodiscard]] int32_t GetMetric(MStyleMetric metric) const;

    MControl* owner;
};
