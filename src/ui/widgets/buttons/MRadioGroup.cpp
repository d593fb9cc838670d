#include "ui/widgets/buttons/MRadioGroup.h"

#include "ui/control/MRemoveFromList.h"

MRadioGroup::~MRadioGroup() {
    for (MCheckBox* box : boxes) box->group = nullptr;
}

void MRadioGroup::Add(MCheckBox& box) {
    if (box.group) box.group->Remove(box);
    if (GetChosen()) box.Set(MCheckBoxState::Off);
    boxes.Add(&box);
    box.group = this;
    box.SetRadioButton(true);
}

void MRadioGroup::Remove(MCheckBox& box) {
    if (box.group != this) return;
    MRemoveFromList(boxes, &box);
    box.group = nullptr;
}

MCheckBox* MRadioGroup::GetChosen() const {
    for (MCheckBox* box : boxes)
        if (box->IsOn()) return box;
    return nullptr;
}

MCheckBox* MRadioGroup::GetTabStop() const {
    MCheckBox* stop = nullptr;
    for (MCheckBox* box : boxes)
        if (box->CanFocus() && (!stop || box->IsOn())) stop = box;
    return stop;
}

MCheckBox& MRadioGroup::FindNext(MCheckBox& box, int32_t direction) const {
    const int32_t count = boxes.GetCount();
    int32_t start = 0;
    while (boxes[start] != &box) ++start;
    int32_t index = start;
    do index = (index + direction + count) % count;
    while (index != start && !boxes[index]->CanFocus());
    return *boxes[index];
}

void MRadioGroup::OnTurnedOn(MCheckBox& box) {
    for (MCheckBox* other : boxes)
        if (other != &box) other->Set(MCheckBoxState::Off);
}
