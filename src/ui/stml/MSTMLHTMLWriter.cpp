#include "ui/stml/MSTMLHTMLWriter.h"

#include "foundation/base/MGuard.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "ui/stml/MSTMLAttributes.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* Look = "body{font:15px/1.5 sans-serif;max-width:50em;margin:2em auto;padding:0 1em}"
                             "p{margin:.5em 0}.left{text-align:left}.center{text-align:center}"
                             ".right{text-align:right}.justify{text-align:justify}"
                             ".invert{background:#2b333b;color:#fff;padding:.2em}td{vertical-align:top}"
                             ".b{font-weight:bold}.i{font-style:italic}.s{font-size:80%}"
                             ".l1{font-size:115%}.l2{font-size:130%}.l3{font-size:155%}.l4{font-size:400%}"
                             ".l1,.l2,.l3,.l4{font-weight:bold}"
                             ".cred{color:#b3261e}.cgreen{color:#1b7032}.cblue{color:#1a5fb4}";

// A tag's name is also the class of what it marks.
constexpr const char* Fonts[] = {"b", "i", "s", "l1", "l2", "l3", "l4", "normal"};
constexpr const char* Colors[] = {"cd", "cred", "cgreen", "cblue"};
constexpr const char* Alignments[] = {"left", "center", "right", "justify"};
constexpr const char* Headers[] = {"header1", "header2"};
constexpr const char* HeaderFonts[] = {"l1", "l2"};

template <size_t Count>
int32_t Find(const char* const (&names)[Count], const MString& name) {
    for (size_t i = 0; i < Count; ++i)
        if (name.IsExactly(names[i])) return static_cast<int32_t>(i);
    return -1;
}

/// The first entry stays, so a surplus closing tag changes nothing.
void Change(std::vector<const char*>& stack, const char* entry, bool isClosing) {
    if (!isClosing)
        stack.push_back(entry);
    else if (stack.size() > 1)
        stack.pop_back();
}

}  // namespace

MString MSTMLHTMLWriter::Write(const MString& title, const MString& markup) {
    MSTMLHTMLWriter writer;
    writer.html = MFormat("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>{0}</title>"
                          "<style>{1}</style></head><body>\n",
                          MEntities::Escape(title), Look);
    MGuard("MSTMLHTMLWriter::Write", [&] { writer.ParseText(markup); });
    writer.CloseParagraph();
    while (!writer.blocks.empty()) writer.CloseBlock();
    return writer.html + "</body></html>\n";
}

void MSTMLHTMLWriter::OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) {
    if (const int32_t font = Find(Fonts, name); font >= 0) return Change(fonts, Fonts[font], isClosing);
    if (const int32_t color = Find(Colors, name); color >= 0) return Change(colors, Colors[color], isClosing);
    if (name.IsExactly("tr")) return OnBlock(Block::Row, isClosing);
    if (name.IsExactly("td")) return OnBlock(Block::Cell, isClosing);
    if (name.IsExactly("li")) return OnBlock(Block::Item, isClosing);
    if (name.IsExactly("hline") && !isClosing) {
        CloseParagraph();
        html += "<hr>\n";
    } else if (const int32_t header = Find(Headers, name); header >= 0) {
        NewParagraph(nullptr);
        Change(fonts, HeaderFonts[header], isClosing);
    } else if (const int32_t aligned = Find(Alignments, name); aligned >= 0 || name.IsExactly("p")) {
        if (isClosing) return CloseParagraph();
        if (aligned >= 0) alignment = Alignments[aligned];
        NewParagraph(&attributes);
    } else {
        ReplayTagSet(name, attributes, isClosing);
    }
}

bool MSTMLHTMLWriter::OnText(const MString& text) {
    if (!isInParagraph) {
        if (text.Trimmed().IsEmpty() || (!blocks.empty() && blocks.back() == Block::Row)) return false;
        NewParagraph(nullptr);
    }
    const bool isMarked = fonts.back() || colors.back();
    if (isMarked)
        html += MFormat("<span class=\"{0} {1}\">", fonts.back() ? fonts.back() : "",
                        colors.back() ? colors.back() : "");
    MEntities::Escape(text, html);
    if (isMarked) html += "</span>";
    return false;
}

void MSTMLHTMLWriter::NewParagraph(const MSTMLAttributes* attributes) {
    CloseParagraph();
    if (!blocks.empty() && blocks.back() == Block::Row) return;
    const bool isInverted = attributes && attributes->GetBool("invert");
    html += MFormat("<p class=\"{0}{1}\">", alignment, isInverted ? " invert" : "");
    isInParagraph = true;
}

void MSTMLHTMLWriter::CloseParagraph() {
    if (isInParagraph) html += "</p>\n";
    isInParagraph = false;
}

void MSTMLHTMLWriter::CloseBlock() {
    CloseParagraph();
    const Block block = blocks.back();
    blocks.pop_back();
    html += block == Block::Row ? "</tr></table>\n" : block == Block::Cell ? "</td>" : "</li></ul>\n";
}

/// A cell stands in a row, and ends what stands in the cell before it.
void MSTMLHTMLWriter::OnBlock(Block block, bool isClosing) {
    const auto isOpen = [this](Block wanted) {
        return std::find(blocks.begin(), blocks.end(), wanted) != blocks.end();
    };
    CloseParagraph();
    if (block == Block::Cell && !isOpen(Block::Row)) return;
    if (isClosing) {
        if (!isOpen(block)) return;
        while (blocks.back() != block) CloseBlock();
        return CloseBlock();
    }
    if (block == Block::Cell)
        while (blocks.back() != Block::Row) CloseBlock();
    else if (!blocks.empty() && blocks.back() == Block::Row)
        return;
    blocks.push_back(block);
    html += block == Block::Row ? "<table><tr>" : block == Block::Cell ? "<td>" : "<ul><li>";
}
