#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MObject.h"
#include "ui/geometry/MRect.h"

#include <cstdint>

class MControl;
class MXMLItem;

/// What one layout after the other of a control adds up while its size is measured, in pixels.
struct MLayoutNeeds {
    int32_t x = 0;
    int32_t y = 0;
    int32_t ratioX = 0;  ///< the largest wish of controls that stretch
    int32_t ratioY = 0;
    int32_t left = 0;  ///< margins that the next layout has to respect
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
};

/// How large a control has to be, with its border; see `MinimalSizeComputer` and `CurrentSizeComputer`.
class SizeComputer {
public:
    virtual ~SizeComputer() = default;
    [[nodiscard]] virtual int32_t GetX(MControl& control) const = 0;
    [[nodiscard]] virtual int32_t GetY(MControl& control) const = 0;
};

/// Which directions something can stretch in, combined with `|`.
enum MFlexibility : uint8_t { MFlexibleNone = 0, MFlexibleX = 1, MFlexibleY = 2, MFlexibleBoth = 3 };

constexpr MFlexibility operator|(MFlexibility left, MFlexibility right) {
    return static_cast<MFlexibility>(static_cast<uint8_t>(left) | static_cast<uint8_t>(right));
}

/// Places some of the children of a control in a part of its client area. The layouts of a control are asked
/// in their order: each takes what it needs of the free rectangle and leaves the rest to the next one.
///
/// Under the tree's lock for writing, on the thread of the user interface.
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
    /// Takes a child of the owner; it is not owned. One that another layout holds leaves that.
    virtual void Attach(MControl& control);
    virtual void Detach(MControl& control);
    virtual void Add(MControl& control);
    virtual void Remove(MControl& control);
    /// `span`: columns of a grid; `reserve`: whether those that follow are left free.
    virtual void SetSpanX(MControl& control, int32_t span, bool reserve);
    /// Places the controls in `rect`; returns what is left of it.
    [[nodiscard]] virtual MRect Arrange(MControl& owner, const MRect& rect);
    virtual void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer);
    virtual void MeasureMinimal(MControl& owner, MLayoutNeeds& needs);
    virtual void MeasureCurrent(MControl& owner, MLayoutNeeds& needs);
    [[nodiscard]] virtual MFlexibility GetFlexibility();

    [[nodiscard]] const MList<MControl, MListPointers>& GetControls() const { return controls; }
    [[nodiscard]] MControl& GetOwner() const { return *owner; }

    int32_t space = 0;        ///< between neighbours, beside what the style says
    int32_t defBorderX = -1;  ///< that controls get when they come; none below 0
    int32_t defBorderY = -1;

protected:
    /// Pixels between neighbours.
    [[nodiscard]] int32_t GetSpace() const;

    MList<MControl, MListPointers> controls;

private:
    friend class MControl;

    MControl* owner;  ///< another one after `MControl::Reparent`
};
