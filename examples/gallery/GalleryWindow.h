#pragma once

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MContainers.h"
#include "ui/widgets/menus/MMenu.h"
#include "ui/widgets/tabs/MTabSet.h"

#include <functional>

/// The window of the gallery: a tab for each page of its document, which shows controls in all their states. What
/// the user does with them is told line by line. F12 writes what the window shows to capture.png.
class GalleryWindow final : public MWindow {
public:
    using Log = std::function<void(const MString& line)>;

    /// `document` has the pages. Raises what loading a control raises.
    GalleryWindow(MXMLItem& document, Log log);

    [[nodiscard]] MTabSet& GetTabs() { return tabs; }

private:
    /// To a control and all below it.
    void ListenTo(MControl& control);
    void OnClicked(const MOnClickParams& params);
    void OnChanged(const MOnNotifyParams& params);
    void OnMenuItem(const MOnItemParams<MMenuItem>& params);
    void Capture(const MOnKeyboardShortcutParams&);

    Log log;
    MTabSet tabs{this, "tabs"};
};
