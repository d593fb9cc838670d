#pragma once

#include "foundation/base/MList.h"
#include "ui/widgets/buttons/MCheckBox.h"

/// Radio buttons of which one is on at a time. Tab stops at one of them, and the arrow keys move the choice.
/// Neither the group nor its buttons own the other; either may
/// end first.
class MRadioGroup final {
public:
    MRadioGroup() = default;
    MRadioGroup(const MRadioGroup&) = delete;
    MRadioGroup& operator=(const MRadioGroup&) = delete;
    ~MRadioGroup();

    /// Makes it a radio button; it goes off if another one is on already. It leaves a group that it was in.
    void Add(MCheckBox& box);
    void Remove(MCheckBox& box);
    [[nodiscard]] const MList<MCheckBox, MListPointers>& GetBoxes() const { return boxes; }
    /// The one that is on, or null.
    [[nodiscard]] MCheckBox* GetChosen() const;
    /// Where Tab enters the group: the one that is on, or else the first one that can have the focus; null if
    /// none can.
    [[nodiscard]] MCheckBox* GetTabStop() const;
    /// The next one from a button in a direction that can be chosen, around the ends; the button itself if
    /// there is no other.
    [[nodiscard]] MCheckBox& FindNext(MCheckBox& box, int32_t direction) const;

private:
    friend class MCheckBox;

    void OnTurnedOn(MCheckBox& box);

    MList<MCheckBox, MListPointers> boxes;
};
