#pragma once

#include "ui/widgets/content/MStatic.h"

/// The name of another control, with which it is shown, enabled and hidden. A press on it gives that control
/// the focus.
///
/// Attributes: "linkedcontrol", the name of a control beside it.
class MLabel : public MStatic {
public:
    explicit MLabel(MControl* parent = nullptr, const MString& name = MString());

    /// Neither owns the other.
    void LinkTo(MControl& control);

    void LoadFromXml(MXMLItem& item) override;
    void PrepareContent() override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    bool ProcessEvent(const MSystemEvent& event) override;

private:
    MControlRef target;
    MString targetName;  ///< as long as that control has not been found
};
