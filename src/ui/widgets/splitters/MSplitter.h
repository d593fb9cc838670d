#pragma once

#include "ui/control/MContainers.h"
#include "ui/geometry/MAxis.h"

#include <array>
#include <cstdint>

class MSplitterBar;

/// Two panels with a bar between them, which the user moves. The panels keep the ratio of their lengths, their
/// `layoutRatio`, when the splitter gets another size. With `SaveValue`, as in the beginning, the window's state
/// has it as "ratio", what the first one has of 10,000.
///
/// By the keyboard the bar, a control of its own, is moved by arrows, to the ends by Home and End.
class MSplitter : public MControl {
public:
    /// `isVertical`: the bar is; the panels stand side by side.
    explicit MSplitter(MControl* parent = nullptr, const MString& name = MString(), bool isVertical = true);

    /// 0 for the one at the left or the top, 1 for the other. They have no look of their own unless they are given a
    /// class that has.
    [[nodiscard]] MPanel& GetPanel(int32_t index) const { return *panels[static_cast<size_t>(index)]; }
    void SetVertical(bool newIsVertical);
    [[nodiscard]] bool IsVertical() const { return axis == MAxis::X; }
    /// Of the first panel to the second one; each at least 1.
    void SetRatio(int32_t first, int32_t second);
    /// Makes the first panel so many pixels long, as far as both get what they need at least.
    void SetFirstLength(int32_t length);
    [[nodiscard]] int32_t GetFirstLength() const { return panels[0]->size[axis]; }

    /// "vertical", "ratio", and up to two items "item" for the panels.
    void LoadFromXml(MXMLItem& item) override;
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void ResetToDefault() override;
    void WriteHelpInfo(MXMLItem& item) override;

private:
    void ApplyDirection();

    MAxis axis = MAxis::X;  ///< along which the panels stand
    std::array<MPanel*, 2> panels;
    MSplitterBar* bar;
};
