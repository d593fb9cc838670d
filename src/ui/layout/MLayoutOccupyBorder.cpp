#include "ui/layout/MLayoutOccupyBorder.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
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

MLayoutOccupyBorder::Margins MLayoutOccupyBorder::GetMargins() const {
    MStyle* const style = GetOwner().GetStyle();
    const auto scale = [style](int32_t length, auto function) {
        return MClampLength(style && length > 0 ? (style->*function)(length) : length);
    };
    return {scale(x1, &MStyle::ScaleX), scale(y1, &MStyle::ScaleY), scale(x2, &MStyle::ScaleX),
            scale(y2, &MStyle::ScaleY)};
}

MRect MLayoutOccupyBorder::Arrange(MControl&, const MRect& rect) {
    const Margins margins = GetMargins();
    MRect rest;
    rest.left = MClampPlace(int64_t{rect.left} + margins.left);
    rest.top = MClampPlace(int64_t{rect.top} + margins.top);
    rest.right = MClampPlace(std::max(int64_t{rest.left}, int64_t{rect.right} - margins.right));
    rest.bottom = MClampPlace(std::max(int64_t{rest.top}, int64_t{rect.bottom} - margins.bottom));
    return rest;
}

void MLayoutOccupyBorder::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer&) {
    const Margins margins = GetMargins();
    needs.Take(MAxis::X, MClampLength(int64_t{margins.left} + margins.right), GetSpace());
    needs.Take(MAxis::Y, MClampLength(int64_t{margins.top} + margins.bottom), GetSpace());
}
