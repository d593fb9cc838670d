#pragma once

#include "setup/choices/MPageWalk.h"
#include "ui/control/MContainers.h"

class MCheckBox;
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
    static constexpr int32_t LeastWidth = 400;  ///< of a page, at 100 percent

    /// Has a text, or what holds texts, wrap at the width of the page, which gets no wider for it.
    static void LetWrap(MControl& text);
    /// A tick box with a text that wraps, which has mark-up.
    static MCheckBox& AddBox(MControl& parent, const MString& name, const MString& markup);
    /// A line at the top that says what is to be done; `text` has mark-up.
    MStaticHeader& AddHeader(const MString& text);
    /// What the page shows, which scrolls where the window is too small for it.
    MScroller& AddView();
};
