#pragma once

#include "ui/stml/MSTMLFill.h"
#include "ui/stml/MSTMLItem.h"
#include "ui/stml/MSTMLLineBreaker.h"

#include <cstdint>
#include <memory>
#include <vector>

/// Text and objects, broken into lines. The lines are kept until the width or a font changes.
class MSTMLParagraph final : public MSTMLItem {
public:
    /// The alignment is in the low two bits of the flags.
    enum Alignment : uint8_t { Left, Center, Right, Justify };
    static constexpr uint8_t AlignmentMask = 3;
    enum Flag : uint8_t {
        Bottom = 4,  ///< in a rectangle that is higher than the text
        Middle = 8,
        SingleLine = 16,  ///< never broken
    };

    /// `look` is that of the text that an empty paragraph would have.
    MSTMLParagraph(uint8_t flags, MSTMLLook look);
    MSTMLParagraph(const MSTMLParagraph& other);
    MSTMLParagraph& operator=(const MSTMLParagraph&) = delete;

    /// Adds text to the last run, or as a run of its own if that looks otherwise. Blanks at the beginning of
    /// the paragraph are dropped.
    void AddText(const MString& text, MSTMLLook look);
    /// Adds an object as a run of its own, behind a blank if there is text before it.
    void AddObject(std::unique_ptr<MSTMLObject> object, MSTMLLook look);

    [[nodiscard]] MSTMLParagraph* Clone() const override;
    int32_t ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) override;
    int32_t ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) override;
    [[nodiscard]] int32_t GetMinimalWidth(MSTMLContext& context) override;
    [[nodiscard]] int32_t GetMaximalWidth(MSTMLContext& context) override;
    void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) override;
    [[nodiscard]] bool HasContent() const override;

    MSTMLFill fill;

private:
    template <class TakeLine>
    [[nodiscard]] MSTMLMeasure BreakLines(MSTMLContext& context, int32_t width, TakeLine takeLine) const;
    void Layout(MSTMLContext& context, int32_t width);
    void PaintLine(MSTMLContext& context, MSTMLCursor& cursor, const MSTMLBrokenLine& line,
                   const MRect& rect) const;

    MSTMLRunList runs;
    uint8_t flags;
    std::vector<MSTMLBrokenLine> lines;
    MSTMLMeasure layout;   ///< of the lines
    MSTMLMeasure natural;  ///< without limit
    MSTMLMeasure minimal;  ///< of which only `outWidth` counts
};
