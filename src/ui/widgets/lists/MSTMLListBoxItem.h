#pragma once

#include "ui/widgets/lists/MListBox.h"

#include <memory>

/// An item of rich text, which wraps, with an icon in a column of its own before it. The text is parsed when the
/// row comes into view for the first time.
class MSTMLListBoxItem : public MListBoxItem {
public:
    explicit MSTMLListBoxItem(const MString& text = MString()) : MListBoxItem(text) {}
    MSTMLListBoxItem(const MString& text, MStdIcon icon) : MListBoxItem(text), textIcon(icon) {}

    /// The icon is the one in the text.
    void LoadFromXml(MXMLItem& item) override;
    [[nodiscard]] MPoint GetTextSize(MDrawer& drawer, const MContentLook& look, int32_t width) override;
    void PaintText(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;
    [[nodiscard]] MString GetPlainText() const override;

    void SetText(const MString& newText);

private:
    [[nodiscard]] MContentSTML& GetContent();

    std::optional<MStdIcon> textIcon;
    std::unique_ptr<MContentSTML> content;
};
