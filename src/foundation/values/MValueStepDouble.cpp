#include "foundation/values/MValueStepDouble.h"

#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"

#include <cmath>

void MValueStepDouble::LoadDefinition(MXMLItem& item) {
    MValueDouble::LoadDefinition(item);
    if (!item.HasAttribute("step")) return;
    const double step = MParseDouble(item.GetCachedAttribute());
    if (std::isfinite(step)) SetSteps(step, step);
}
