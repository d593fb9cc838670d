#include "ui/widgets/values/MProgressBar.h"

#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <cmath>

MProgressBar::MProgressBar(MControl* parent, const MString& name) : MControl(parent, name) {
    SetControlType(MControlType::ProgressBar);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::AcceptsFocus, false);
}

int64_t MProgressBar::GetPixels() const {
    constexpr int64_t Shades = 256;  // Of the pixel at the end, where a style blends it.
    return std::llround(percent / 100 * static_cast<double>(clientRect.GetWidth() * Shades));
}

void MProgressBar::SetPercent(double newPercent) {
    percent = newPercent > 0 ? std::min(newPercent, 100.0) : 0;
    if (GetPixels() != paintedPixels) Invalidate();
}

void MProgressBar::SetProgress(double maximum, double value) {
    SetPercent(maximum > 0 ? value / maximum * 100 : 0);
    RedrawNow();
}

void MProgressBar::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("value")) SetPercent(MParseDouble(item.GetCachedAttribute()));
    MControl::LoadFromXml(item);
}

void MProgressBar::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr MPoint Least{64, 8};
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(Least.x) : Least.x;
    y = style ? style->ScaleY(Least.y) : Least.y;
}

void MProgressBar::PaintContent(MDrawer& drawer) {
    paintedPixels = GetPixels();
    MValueLook look;
    look.value = percent / 100;
    look.drawState = GetDrawState();
    if (MStyle* const style = GetStyle()) style->PaintValue(*this, drawer, clientRect, look);
}

void MProgressBar::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    MWriteUsage(item,
                "Progressbar shows state during a time consuming operation. The operation shall finish when "
                "the percentage reaches 100%.",
                {});
}
