#pragma once

#include "ui/stml/MSTMLLook.h"
#include "ui/stml/MSTMLParagraph.h"
#include "ui/stml/MSTMLReader.h"
#include "ui/stml/MSTMLTableRow.h"

#include <cstdint>
#include <memory>
#include <vector>

/// Reads mark-up into a container. Unknown tags are ignored, and so is a closing tag that has nothing to
/// close. Names of tags are compared exactly.
///
/// | tag                                      | meaning                                              |
/// |------------------------------------------|------------------------------------------------------|
/// | `b` `i` `s`                              | bold, italic, small                                  |
/// | `l1` `l2` `l3` `l4`                      | large                                                |
/// | `normal`                                 | the normal font                                      |
/// | `cd` `cred` `cgreen` `cblue`             | colours: text, red, green, blue                      |
/// | `ci`                                     | inverted colours                                     |
/// | `alpha`                                  | of the text, by "value"                              |
/// | `left` `center` `right` `justify`, `p`   | a paragraph; alignments hold for those that follow   |
/// | `header1` `header2`                      | one in large letters, an empty one above it          |
/// | `tr`, `td`                               | a row of a table, a cell                             |
/// | `li`                                     | an item of a list, with a bullet by its "size"       |
/// | `img` `hline` `rectangle` `indicator`    | objects in the line                                  |
/// | `tagset`                                 | records the tags that its "name" stands for          |
///
/// Attributes stand with the classes that take them. Paragraphs have those of `MSTMLFill` and "singleline".
class MSTMLParser final : public MSTMLReader {
public:
    /// Rows in cells of rows: those that are deeper are ignored with all that is in them.
    static constexpr int32_t MaximumRowDepth = 32;

    /// The container outlives the parser. `defaultFlags` are those of a paragraph as long as no tag says more.
    MSTMLParser(MSTMLContainer& document, uint8_t defaultFlags);

protected:
    bool OnText(const MString& text) override;
    void OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) override;

private:
    /// A row that is open, null if it is ignored, and the container in which it stands, null for none.
    struct OpenRow {
        MSTMLTableRow* row;
        MSTMLContainer* container;
    };

    void OpenTag(int32_t tag, const MSTMLAttributes& attributes);
    void CloseTag(int32_t tag);
    [[nodiscard]] MSTMLLook GetLook() const;
    void NewParagraph(const MSTMLAttributes* attributes = nullptr);
    void OpenRowIn(const MSTMLAttributes& attributes);
    void OpenCell(std::unique_ptr<MSTMLTableCell> cell);
    void CloseRow();
    void OpenListItem(int32_t size);
    void AddObject(std::unique_ptr<MSTMLObject> object);

    const uint8_t defaultFlags;
    uint8_t defaultAlignment;
    MSTMLContainer* currentContainer;  ///< null in a row, but outside of its cells
    MSTMLParagraph* currentParagraph = nullptr;
    std::vector<OpenRow> rowStack;
    std::vector<int32_t> fontStack = {-1};
    std::vector<int32_t> colorStack = {-1};
    std::vector<uint8_t> alphaStack = {255};
    int32_t invertDepth = 0;
};
