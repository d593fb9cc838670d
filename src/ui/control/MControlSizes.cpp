#include "foundation/base/MRaise.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/geometry/MLength.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace {

/// Which sizes of what is inside of a control count.
enum class Sizes { Minimal, Current };

MPoint GetGreater(MPoint a, MPoint b) {
    return {std::max(a.x, b.x), std::max(a.y, b.y)};
}

MPoint GetLesser(MPoint a, MPoint b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y)};
}

MPoint Clamped(MPoint size) {
    return {MClampLength(size.x), MClampLength(size.y)};
}

/// Of the screen's free part, width by height.
double GetScreenRatio() {
    MWindows* const windows = MWindows::GetInstance();
    const MRect area = windows ? windows->GetSystem().GetWorkArea(std::nullopt) : MRect();
    return area.IsEmpty() ? 16.0 / 9 : static_cast<double>(area.GetWidth()) / area.GetHeight();
}

/// A plastic client control is as narrow as it can be or as low as it can be, whichever exceeds less what is
/// free of `needs` anyway.
MPoint GetPlasticClientSize(MControl& client, const MLayoutNeeds& needs) {
    const MPoint narrow{client.minimalSize.x, client.GetPlasticSize(1, client.minimalSize.x)};
    const MPoint low{client.GetPlasticSize(0, client.minimalSize.y), client.minimalSize.y};
    const auto getExcess = [&](MPoint shape) {
        int64_t excess = 0;
        for (const MAxis axis : {MAxis::X, MAxis::Y})
            excess += std::max<int64_t>(
                int64_t{needs.taken[axis]} + MClampLength(shape[axis]) - needs.needed[axis], 0);
        return excess;
    };
    const MPoint chosen = getExcess(low) < getExcess(narrow) ? low : narrow;
    const auto addBorder = [&](MAxis axis) {
        return MClampLength(MClampLength(chosen[axis]) + int64_t{2} * SizeComputer::GetBorder(client, axis));
    };
    return {addBorder(MAxis::X), addBorder(MAxis::Y)};
}

/// How far the children reach that stand in the client area by themselves.
MPoint GetReachOfFreeChildren(MControl& control) {
    MPoint reach;
    for (MControl* child : control.GetChildren()) {
        if (!child->Is(MControlFlag::Visible) || child->IsHeld()) continue;
        const MPoint size =
            Clamped(child->Is(MControlFlag::Plastic) ? child->minimalSize : child->GetShownSize());
        reach = GetGreater(reach, {MClampLength(int64_t{child->position.x} + size.x),
                                   MClampLength(int64_t{child->position.y} + size.y)});
    }
    return reach;
}

MPoint GetMinimalClientSize(const MControl& control) {
    MStyle& style = *control.GetStyle();
    return Clamped({style.ScaleX(control.minClientSize.x), style.ScaleY(control.minClientSize.y)});
}

MPoint GetMaximalSize(const MControl& control) {
    constexpr int32_t Unlimited = MControl::Unlimited;
    MStyle& style = *control.GetStyle();
    const MPoint maximal = control.maximalSize;
    return {maximal.x == Unlimited ? Unlimited : style.ScaleX(maximal.x),
            maximal.y == Unlimited ? Unlimited : style.ScaleY(maximal.y)};
}

/// The client area that a control needs for its layouts, its client control, the children that stand by
/// themselves, and its content.
MPoint MeasureInside(MControl& control, Sizes sizes) {
    MLayoutNeeds needs;
    if (control.Is(MControlFlag::UseLayouts))
        for (MLayout* layout : control.GetLayouts())
            sizes == Sizes::Minimal ? layout->MeasureMinimal(control, needs)
                                    : layout->MeasureCurrent(control, needs);
    needs.needed = GetGreater(needs.needed, GetMinimalClientSize(control));

    if (MControl* const client = control.GetClientControl(); client && client->Is(MControlFlag::Visible)) {
        const MinimalSizeComputer minimal;
        const CurrentSizeComputer current;
        const SizeComputer& computer =
            sizes == Sizes::Minimal ? static_cast<const SizeComputer&>(minimal) : current;
        needs.Fill(client->Is(MControlFlag::Plastic)
                       ? GetPlasticClientSize(*client, needs)
                       : MPoint{computer.GetX(*client), computer.GetY(*client)});
    }

    if (control.Is(MControlFlag::UseOverlays))
        needs.needed = GetGreater(needs.needed, GetReachOfFreeChildren(control));

    MPoint content;
    if (control.Is(MControlFlag::Plastic)) {
        content = control.AdjustPlasticSize();
        // What has to be wider for another reason is lower than that.
        if (needs.needed.x > content.x)
            content = {needs.needed.x, control.ComputePlasticSize(1, needs.needed.x)};
    } else {
        sizes == Sizes::Minimal ? control.GetMinimalContentSize(content.x, content.y)
                                : control.GetContentSize(content.x, content.y);
        if (control.Is(MControlFlag::IgnoreWidthInLayout)) content.x = 0;
        // The gap in front of a content counts as that in front of any other thing.
        if (content.x > 0 && content.y > 0) needs.Fill(MPoint());
    }
    return GetGreater(needs.needed, Clamped(content));
}

}  // namespace

void MControl::GetMinimalContentSize(int32_t& x, int32_t& y) {
    x = 0;
    y = 0;
}

void MControl::GetContentSize(int32_t& x, int32_t& y) {
    x = 0;
    y = 0;
    GetMinimalContentSize(x, y);
}

MFlexibility MControl::GetFlexibility() {
    MFlexibility flexibility = MFlexibleNone;
    if (clientControl && clientControl->Is(MControlFlag::Visible))
        flexibility = clientControl->GetFlexibility();
    for (MLayout* layout : layouts) {
        if (flexibility == MFlexibleBoth) break;
        flexibility = flexibility | layout->GetFlexibility();
    }
    return flexibility;
}

void MControl::ComputeSizes() {
    MControlRoot& state = GetRootState();
    MStyle* const style = GetStyle();
    do root->ComputeMinimalSize();
    while (style && style->FitWindow(*root));
    // From then on present sizes are what the window has made of them.
    if (!std::exchange(state.hasFirstSizes, true)) root->ComputeCurrentSize();
    state.flexibility = root->GetFlexibility();
    root->Set(MControlFlag::SizesValid);
}

void MControl::ComputeMinimalSize() {
    MStyle* const style = GetStyle();
    if (!style) return;
    StoreSize(size);  // A document may have set any size.
    PrepareContent();
    style->AttachControl(*this);
    for (MControl* child : children) child->ComputeMinimalSize();

    MPoint measured = style->ConvertToWindow(*this, MeasureInside(*this, Sizes::Minimal));
    measured = GetGreater(measured, style->GetMinimalSize(*this));
    style->AdjustSize(*this, measured.x, measured.y);
    if (Is(MControlFlag::Collapsed)) {
        collapsedSize = style->GetCollapsedSize(*this);
        measured = GetGreater(measured, collapsedSize);
    }
    measured = GetLesser(measured, GetMaximalSize(*this));
    if (Is(MControlFlag::AutoDetectMinimalSize) && !Is(MControlFlag::MinimalSizeLocked))
        minimalSize = Clamped(measured);
    if (Is(MControlFlag::SaveMinimal)) style->StoreMinimalSize(*this, minimalSize);

    if (!Is(MControlFlag::AdaptSize)) return;
    // Until a window was shown there is nobody who has given a size to what does not stretch.
    const bool isNewRoot = IsRoot() && !Is(MControlFlag::LayoutValid);
    const MFlexibility flexibility = isNewRoot ? GetFlexibility() : MFlexibleBoth;
    const auto adapt = [&](MAxis axis, MFlexibility stretches) {
        return flexibility & stretches ? std::max(size[axis], minimalSize[axis]) : minimalSize[axis];
    };
    StoreSize({Is(MControlFlag::AdaptX) ? adapt(MAxis::X, MFlexibleX) : size.x,
               Is(MControlFlag::AdaptY) ? adapt(MAxis::Y, MFlexibleY) : size.y});
}

void MControl::ComputeCurrentSize() {
    MStyle* const style = GetStyle();
    if (!style) return;
    for (MControl* child : children) child->ComputeCurrentSize();
    if (!Is(MControlFlag::AdaptSize) || Is(MControlFlag::Plastic)) return;
    const MPoint needed = style->ConvertToWindow(*this, MeasureInside(*this, Sizes::Current));
    const MPoint measured = GetGreater(size, GetLesser(needed, GetMaximalSize(*this)));
    StoreSize(
        {Is(MControlFlag::AdaptX) ? measured.x : size.x, Is(MControlFlag::AdaptY) ? measured.y : size.y});
}

int32_t MControl::ComputePlasticSize(int32_t, int32_t) {
    MRaise(MExceptionNotImplemented, "Service \"{0}\" is not implemented.", "compute plastic control size");
}

MPoint MControl::MeasureLayouts(std::optional<int32_t> width) {
    MLayoutNeeds needs;
    needs.width = width;
    for (MLayout* layout : layouts) layout->MeasureMinimal(*this, needs);
    if (MControl* const client = clientControl; client && client->Is(MControlFlag::Visible)) {
        const MinimalSizeComputer minimal;
        MPoint wanted{minimal.GetX(*client), minimal.GetY(*client)};
        if (client->Is(MControlFlag::Plastic)) {
            const auto getBorders = [&](MAxis axis) { return 2 * SizeComputer::GetBorder(*client, axis); };
            const int32_t room = needs.GetRoom(wanted.x) - getBorders(MAxis::X);
            wanted.y = MClampLength(int64_t{client->GetPlasticSize(1, room)} + getBorders(MAxis::Y));
        }
        needs.Fill(wanted);
    }
    return GetGreater(GetGreater(needs.needed, GetMinimalClientSize(*this)), GetReachOfFreeChildren(*this));
}

MPoint MControl::AdjustPlasticSize() {
    double wanted = GetScreenRatio() * static_cast<double>(scale);
    if (!(wanted > 0) || !std::isfinite(wanted)) wanted = 1;

    const auto getShape = [&](int32_t height) {
        const int32_t width = MClampLength(ComputePlasticSize(0, height));
        return MPoint{width, MClampLength(ComputePlasticSize(1, width))};
    };
    const auto getRatio = [](MPoint shape) {
        return shape.x <= 1 || shape.y <= 1 ? 1.0 : static_cast<double>(shape.x) / shape.y;
    };
    const auto getDistance = [&](MPoint shape) {
        const double ratio = getRatio(shape) / wanted;
        return std::max(ratio, 1 / ratio);
    };

    // As wide as it can be, and then between that and twice the height that the same area has when it has the
    // wanted shape. Lines that are not full make it higher than that, hardly ever twice.
    MPoint best = getShape(1);
    int32_t low = best.y;
    int32_t high = MClampLength(std::llround(2 * std::sqrt(static_cast<double>(best.x) * best.y / wanted)));
    for (int round = 0; round < 4; ++round) {
        const int32_t middle = low + (high - low) / 2;
        const MPoint shape = getShape(middle);
        if (getDistance(shape) < getDistance(best)) best = shape;
        (getRatio(shape) > wanted ? low : high) = middle;
    }
    return best;
}

int32_t MControl::GetPlasticSize(int32_t dimension, int32_t other) {
    MStyle* const style = GetStyle();
    const MAxis axis = dimension == 0 ? MAxis::X : MAxis::Y;
    MPoint shape;
    shape[Across(axis)] = MClampLength(other);
    if (style) shape = style->ConvertToClient(*this, shape);
    shape[Across(axis)] = MClampLength(shape[Across(axis)]);
    shape[axis] = MClampLength(ComputePlasticSize(dimension, shape[Across(axis)]));
    if (!style) return MClampLength(shape[axis]);
    shape = style->ConvertToWindow(*this, shape);
    return MClampLength(GetLesser(shape, GetMaximalSize(*this))[axis]);
}
