#pragma once

#include "setup/choices/MPageWalk.h"
#include "ui/control/MContainers.h"

class MScroller;
class MSetupWindow;
class MStaticHeader;
class MXMLItem;

/// A page of the setup window. Pages know neither each other nor what the others decide: what they have to
/// say they write into the definition and the session. A page begins hidden.
class MSetupPage : public MPanel, public MWalkPage {
public:
    /// Below a control of the window.
    MSetupPage(MControl& parent, const MString& name);

    [[nodiscard]] MSetupWindow& GetWindow() const;
    [[nodiscard]] MXMLItem& GetDefinition() const;
    [[nodiscard]] MString ExpandMacros(const MString& text) const;

    /// The state of Next, Previous or Exit has changed on this page.
    void UpdateButtons();
    /// The control that gets the keyboard when the page is shown and cannot be left yet; null for the first
    /// one.
    [[nodiscard]] virtual MControl* GetFirstControl() { return nullptr; }

protected:
    /// A line at the top that says what is to be done; `text` has mark-up.
    MStaticHeader& AddHeader(const MString& text);
    /// What the page shows, which scrolls where the window is too small for it.
    MScroller& AddView();
};
