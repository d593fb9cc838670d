#pragma once

#include "ui/control/kinds/MControlType.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/style/MStyleScale.h"

#include <array>

class MXMLItem;

/// The sizes of a style: metrics, and the default and the minimal size of each class of controls. A size that
/// the definition does not give is 0.
class MSizeTable {
public:
    void Load(MXMLItem& definition);
    void SetScale(MStyleScale newScale) { scale = newScale; }
    void SetIconSize(int32_t size) { iconSize = size; }

    /// Scaled, as all of them; 0 for an index that there is not.
    [[nodiscard]] int32_t GetMetric(int32_t index) const;
    [[nodiscard]] MPoint GetDefaultSize(MControlType type) const { return Get(defaultSizes, type); }
    [[nodiscard]] MPoint GetMinimalSize(MControlType type) const { return Get(minimalSizes, type); }

private:
    using Rows = std::array<MPoint, std::size(MControlTypeNames)>;

    static void LoadRows(MXMLItem& definition, const char* element, Rows& rows);
    [[nodiscard]] MPoint Get(const Rows& rows, MControlType type) const;

    std::array<int32_t, std::size(MStyleMetricNames)> metrics{};
    Rows defaultSizes{};
    Rows minimalSizes{};
    MStyleScale scale;
    int32_t iconSize = 0;
};
