#include "ui/control/MControlRef.h"

#include "ui/control/MControl.h"

void MControlRef::Set(MControl* newControl) {
    if (control) {
        (previous ? previous->next : control->references) = next;
        if (next) next->previous = previous;
    }
    control = newControl;
    previous = nullptr;
    next = control ? control->references : nullptr;
    if (next) next->previous = this;
    if (control) control->references = this;
}
