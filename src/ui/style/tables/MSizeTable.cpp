#include "ui/style/tables/MSizeTable.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"

#include <algorithm>

namespace {

constexpr int32_t LongestLength = 4096;

/// Metrics come in pairs of x and y but for those of lists and trees, which are heights, and of bars.
bool IsHorizontal(MStyleMetric metric) {
    using enum MStyleMetric;
    switch (metric) {
    case YSpaceInMContent:
    case YBorderInMContent:
    case DefaultListBoxItemHeight:
    case DefaultTreeItemHeight:
    case MaxStdIconSizeY:
    case MaxStdBitmapSizeY:
    case HSplitterSize:
    case WindowBorderSizeY: return false;
    default: return true;
    }
}

}  // namespace

void MSizeTable::Load(MXMLItem& definition) {
    for (size_t i = 0; i < metrics.size(); ++i)
        metrics[i] = std::clamp(definition.GetInt32Attribute(MStyleMetricNames[i], 0), 0, LongestLength);
    LoadRows(definition, "defaultcontrolsizes", defaultSizes);
    LoadRows(definition, "minimalcontrolsizes", minimalSizes);
}

void MSizeTable::LoadRows(MXMLItem& definition, const char* element, Rows& rows) {
    rows = Rows();
    const MXMLItem* const item = definition.FindSubItem(element);
    if (!item) return;
    const auto getLength = [&](const char* type, const char* axis) {
        return std::clamp(item->GetInt32Attribute(MFormat("{0}{1}", type, axis), 0), 0, LongestLength);
    };
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i] = {getLength(MControlTypeNames[i], "x"), getLength(MControlTypeNames[i], "y")};
}

int32_t MSizeTable::GetMetric(int32_t index) const {
    if (index < 0 || index >= static_cast<int32_t>(metrics.size())) return 0;
    const auto metric = static_cast<MStyleMetric>(index);
    const int32_t value = metrics[static_cast<size_t>(index)];
    const bool isIcon = metric == MStyleMetric::MaxStdIconSizeX || metric == MStyleMetric::MaxStdIconSizeY;
    if (isIcon && value == 0) return iconSize;
    return IsHorizontal(metric) ? scale.GetX(value) : scale.GetY(value);
}

MPoint MSizeTable::Get(const Rows& rows, MControlType type) const {
    const auto index = static_cast<size_t>(type);
    return index < rows.size() ? scale.Get(rows[index]) : MPoint();
}
