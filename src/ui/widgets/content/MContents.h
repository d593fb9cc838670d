#pragma once

#include "ui/control/MContent.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/stml/MSTML.h"

#include <memory>

// What controls show. Each stands in its rectangle by the alignment of the look.

/// Text in one font. Lines that do not fit end in an ellipsis.
class MContentText final : public MContent {
public:
    MContentText() = default;
    explicit MContentText(const MString& text) : text(text) {}

    [[nodiscard]] MPoint GetSize(MDrawer& drawer, const MContentLook& look) override;
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

    MString text;
    bool isShortenedInside = false;  ///< the ellipsis takes the place of the middle, not of the end
};

/// A picture. What does not fit is clipped.
class MContentPicture : public MContent {
public:
    [[nodiscard]] MPoint GetSize(MDrawer& drawer, const MContentLook& look) override;
    /// As strong as text is in the state.
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

protected:
    /// Null for nothing. Valid for as long as it takes to paint it.
    [[nodiscard]] virtual const MBitmap* FindBitmap(MDrawer& drawer) = 0;
};

/// An icon of the style.
class MContentIcon final : public MContentPicture {
public:
    explicit MContentIcon(MStdIcon icon) : icon(icon) {}

    /// On inverted ground in the colour that text has there.
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

    MStdIcon icon;

protected:
    [[nodiscard]] const MBitmap* FindBitmap(MDrawer& drawer) override;
};

/// A large picture of the style, as message boxes show.
class MContentStdBitmap final : public MContentPicture {
public:
    explicit MContentStdBitmap(MStdBitmap bitmap) : bitmap(bitmap) {}

    MStdBitmap bitmap;

protected:
    [[nodiscard]] const MBitmap* FindBitmap(MDrawer& drawer) override;
};

class MContentBitmap final : public MContentPicture {
public:
    explicit MContentBitmap(const MBitmap& bitmap) : bitmap(bitmap) {}

    MBitmap bitmap;

protected:
    [[nodiscard]] const MBitmap* FindBitmap(MDrawer&) override { return &bitmap; }
};

/// Two contents beside each other, as an icon and its text, with the style's distance between them. Where
/// there is too little room, the second one gets what the first one leaves.
class MContentPair final : public MContent {
public:
    MContentPair(std::unique_ptr<MContent> first, std::unique_ptr<MContent> second)
        : first(std::move(first)), second(std::move(second)) {}

    [[nodiscard]] MPoint GetSize(MDrawer& drawer, const MContentLook& look) override;
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

private:
    std::unique_ptr<MContent> first;
    std::unique_ptr<MContent> second;
};

/// Rich text, which wraps at the width of its rectangle.
class MContentSTML final : public MContent {
public:
    MContentSTML() = default;
    explicit MContentSTML(const MString& text) : document(text) {}

    /// Of the text in as few lines as it can have.
    [[nodiscard]] MPoint GetSize(MDrawer& drawer, const MContentLook& look) override;
    [[nodiscard]] int32_t GetHeightForWidth(MDrawer& drawer, const MContentLook& look,
                                            int32_t width) override;
    [[nodiscard]] int32_t GetWidthForHeight(MDrawer& drawer, const MContentLook& look,
                                            int32_t height) override;
    void Paint(MDrawer& drawer, const MRect& rect, const MContentLook& look) override;

    /// The document, with font, colour and state of the look. Its images and default flags are the caller's.
    [[nodiscard]] MSTML& GetDocument(const MContentLook& look);
    [[nodiscard]] MSTML& GetDocument() { return document; }

private:
    MSTML document;
    MSTMLDefaults defaults;
};
