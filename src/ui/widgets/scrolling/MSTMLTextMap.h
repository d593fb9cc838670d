#pragma once

#include "foundation/text/MString.h"
#include "ui/stml/MSTMLContext.h"
#include "ui/widgets/edits/MTextRange.h"

#include <vector>

/// The text of a document as it stands in a rectangle: what it says, where that is, and the web addresses in it.
class MSTMLTextMap final : public MSTMLTextObserver {
public:
    void TakeCharacter(char32_t character, const MRect& cell) override;
    /// All has been told.
    void Finish();

    [[nodiscard]] MString GetText(MTextRange range) const;
    /// Where a text is, without regard to case.
    [[nodiscard]] std::vector<MTextRange> Find(const MString& wanted) const;
    /// In the order of the text.
    [[nodiscard]] const std::vector<MTextRange>& GetLinks() const { return links; }
    /// Null for none.
    [[nodiscard]] const MTextRange* FindLinkAt(MPoint point) const;
    /// What a part of the text covers, line by line.
    [[nodiscard]] std::vector<MRect> GetRectangles(MTextRange range) const;

private:
    MString text;
    std::vector<MRect> cells;  ///< of its units
    std::vector<MTextRange> links;
};
