#pragma once

#include "ui/control/MLayout.h"

/// A layout of controls that stand in a row or a column.
class MLayoutSideBase : public MLayout {
public:
    using MLayout::MLayout;

    /// "space": the gap behind the control, beside that of the layout.
    void LoadControlParameters(MControl& control, MXMLItem& item) override;
};
