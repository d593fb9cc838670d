#include "install/definition/MPlatformElement.h"

#include "foundation/module/MPlatform.h"

bool MIsForThisPlatform(const MXMLItem& element) {
    const int32_t windows = element.GetInt32Attribute("windows", 1);
    return element.GetInt32Attribute(MPlatform::GetName(), windows) != 0;
}
