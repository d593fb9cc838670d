#pragma once

#include "ui/control/MContainers.h"

/// The window of a page that was taken out of its tab set. While it is open it has what the page had.
class MTabPopup final : public MWindow {
public:
    /// The page outlives it.
    MTabPopup(const MString& name, const MString& caption, MControl& page);
    ~MTabPopup() override;

    /// Takes the page's controls, in a window of a size, or comes to the front.
    void ShowPage(MPoint firstSize);
    [[nodiscard]] bool IsOpen() const { return isOpen; }
    void OnHidden() override;

private:
    void GiveBack();

    MControl& page;
    MContainer* const container;  ///< a child
    bool isOpen = false;
};
