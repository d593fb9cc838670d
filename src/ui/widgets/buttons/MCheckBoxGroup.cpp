#include "ui/widgets/buttons/MCheckBoxGroup.h"

#include "ui/control/MRemoveFromList.h"

MCheckBoxGroup::~MCheckBoxGroup() {
    for (MCheckBox* box : boxes) box->group = nullptr;
}

void MCheckBoxGroup::Add(MCheckBox& box) {
    if (box.group) box.group->Remove(box);
    boxes.Add(&box);
    box.group = this;
    box.SetRadioButton(true);
    if (box.IsOn()) OnTurnedOn(box);
}

void MCheckBoxGroup::Remove(MCheckBox& box) {
    if (box.group != this) return;
    MRemoveFromList(boxes, &box);
    box.group = nullptr;
}

MCheckBox* MCheckBoxGroup::GetChosen() const {
    for (MCheckBox* box : boxes)
        if (box->IsOn()) return box;
    return nullptr;
}

MCheckBox& MCheckBoxGroup::FindNext(MCheckBox& box, int32_t direction) const {
    const int32_t count = boxes.GetCount();
    int32_t start = 0;
    while (boxes[start] != &box) ++start;
    int32_t index = start;
    do index = (index + direction + count) % count;
    while (index != start && !boxes[index]->CanFocus());
    return *boxes[index];
}

void MCheckBoxGroup::OnTurnedOn(MCheckBox& box) {
    for (MCheckBox* other : boxes)
        if (other != &box) other->Set(MCheckBoxState::Off);
}
