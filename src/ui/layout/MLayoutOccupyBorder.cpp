#include "ui/layout/MLayoutOccupyBorder.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/geometry/MLength.h"

#include <algorithm>

void MLayoutOccupyBorder::LoadFromXml(MXMLItem& item) {
    MLayout::LoadFromXml(item);
    x1 = item.GetInt32Attribute("x1", x1);
    y1 = item.GetInt32Attribute("y1", y1);
    x2 = item.GetInt32Attribute("x2", x2);
    y2 = item.GetInt32Attribute("y1", y1);
}

void MLayoutOccupyBorder::Attach(MControl&) {
    MRaise(MExceptionNotImplemented, "Service \"{0}\" is not implemented.",
           "add control to occupy-space layout");
}

void MLayoutOccupyBorder::Add(MControl& control) {
    Attach(control);
}

MRect MLayoutOccupyBorder::Arrange(MControl&, const MRect& rect) {
    MRect rest;
    rest.left = MClampPlace(int64_t{rect.left} + MClampLength(x1));
    rest.top = MClampPlace(int64_t{rect.top} + MClampLength(y1));
    rest.right = MClampPlace(std::max(int64_t{rest.left}, int64_t{rect.right} - MClampLength(x2)));
    rest.bottom = MClampPlace(std::max(int64_t{rest.top}, int64_t{rect.bottom} - MClampLength(y2)));
    return rest;
}

void MLayoutOccupyBorder::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer&) {
    needs.Take(MAxis::X, MClampLength(int64_t{MClampLength(x1)} + MClampLength(x2)), GetSpace());
    needs.Take(MAxis::Y, MClampLength(int64_t{MClampLength(y1)} + MClampLength(y2)), GetSpace());
}
