#pragma once

#include "tests/support/MTestBytes.h"
#include "ui/image/pixels/MPixelRows.h"

#include <cstring>
#include <vector>

/// The forms of the rows that this processor can run.
inline std::vector<MPixelForm> MGetPixelForms() {
    std::vector<MPixelForm> forms;
    for (const MPixelForm form : {MPixelForm::Plain, MPixelForm::SSE2, MPixelForm::AVX2})
        if (MHasPixelForm(form)) forms.push_back(form);
    return forms;
}

inline const char* MGetPixelFormName(MPixelForm form) {
    constexpr const char* Names[] = {"plain", "SSE2", "AVX2"};
    return Names[static_cast<int>(form)];
}
