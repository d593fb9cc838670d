#include "foundation/values/MValueScaleSqr.h"

#include <cmath>

double MValueScaleSqr::GetNormalized() const {
    return std::sqrt(inner->GetNormalized());
}

void MValueScaleSqr::SetNormalized(double position) {
    // A negative position would come back positive from the square.
    inner->SetNormalized(position < 0 ? 0 : position * position);
}
