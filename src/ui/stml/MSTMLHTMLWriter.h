#pragma once

#include "ui/stml/MSTMLReader.h"

#include <cstdint>
#include <vector>

/// Writes mark-up (MSTMLParser.h) as a page for a web browser: HTML 5, whose look is in it. Objects in lines
/// are left out but for lines, and so is what only a style can say. What the page says is escaped, so no text
/// of a document becomes a tag.
class MSTMLHTMLWriter final : public MSTMLReader {
public:
    /// What a syntax error leaves unread is not there.
    [[nodiscard]] static MString Write(const MString& title, const MString& markup);

protected:
    bool OnText(const MString& text) override;
    void OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) override;

private:
    enum class Block : uint8_t { Row, Cell, Item };

    void OnBlock(Block block, bool isClosing);
    void NewParagraph(const MSTMLAttributes* attributes);
    void CloseParagraph();
    void CloseBlock();

    MString html;
    std::vector<const char*> fonts{nullptr};  ///< classes of the page's look
    std::vector<const char*> colors{nullptr};
    std::vector<Block> blocks;
    const char* alignment = "left";
    bool isInParagraph = false;
};
