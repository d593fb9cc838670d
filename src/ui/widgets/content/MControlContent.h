#pragma once

#include "ui/control/MControl.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/widgets/content/MContents.h"

#include <memory>

/// A control that shows something: a content of its own, or else its caption as text. The caption of a panel,
/// unless it is of the type `None`, stands in a strip, which the style paints.
///
/// Attributes: "icon", shown beside the caption. A "caption" without "captiontype" is text.
class MControlContent : public MControl {
public:
    explicit MControlContent(MControl* parent = nullptr, const MString& name = MString());

    /// What is shown has changed. The window is arranged anew if that has not enough room.
    virtual void OnContentChanged();
    /// Where the content is painted, in own coordinates; moved while the control is pressed.
    [[nodiscard]] virtual MRect GetContentRectangle();
    [[nodiscard]] virtual MAlignment GetContentAlignment() { return contentAlignment; }
    /// What is shown now, or null. Valid until it changes.
    [[nodiscard]] virtual MContent* GetContent();

    /// Null for the caption.
    void SetContent(std::unique_ptr<MContent> newContent);
    /// Shows text, which becomes the caption, without a strip.
    virtual void SetText(const MString& text);
    void SetIcon(MStdIcon icon);
    void SetIconAndText(MStdIcon icon, const MString& text);
    void SetContentAlignment(MAlignment alignment);
    /// An `MStdColor` for text.
    void SetContentColor(int32_t color);

    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    /// Of a `Plastic` control: by its content, for the client area.
    [[nodiscard]] int32_t ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) override;
    void PaintContent(MDrawer& drawer) override;

protected:
    [[nodiscard]] virtual MContentLook GetContentLook();
    /// Between the client area and the content, on each side.
    [[nodiscard]] virtual MPoint GetContentBorder();
    /// What a content, or null, needs with the border.
    [[nodiscard]] MPoint GetNeededSize(MContent* shown);

private:
    std::unique_ptr<MContent> content;
    MContentText captionText;
    MContentText* shownCaption = &captionText;  ///< that, or the one beside an icon in the content
    int32_t contentColor = 0;
    MAlignment contentAlignment = MAlignCenter;
};
