#pragma once

#include "foundation/base/MList.h"
#include "ui/widgets/buttons/MCheckBox.h"

/// Radio buttons of which one is on at a time. Neither the group nor its buttons own the other; either may
/// end first.
class MCheckBoxGroup final {
public:
    MCheckBoxGroup() = default;
    MCheckBoxGroup(const MCheckBoxGroup&) = delete;
    MCheckBoxGroup& operator=(const MCheckBoxGroup&) = delete;
    ~MCheckBoxGroup();

    /// Makes it a radio button; one that is on turns the others off. It leaves a group that it was in.
    void Add(MCheckBox& box);
    void Remove(MCheckBox& box);
    [[nodiscard]] const MList<MCheckBox, MListPointers>& GetBoxes() const { return boxes; }
    /// The one that is on, or null.
    [[nodiscard]] MCheckBox* GetChosen() const;
    /// The next one from a button in a direction that can be chosen, around the ends; the button itself if
    /// there is no other.
    [[nodiscard]] MCheckBox& FindNext(MCheckBox& box, int32_t direction) const;

private:
    friend class MCheckBox;

    void OnTurnedOn(MCheckBox& box);

    MList<MCheckBox, MListPointers> boxes;
};
