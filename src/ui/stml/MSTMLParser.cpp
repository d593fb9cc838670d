#include "ui/stml/MSTMLParser.h"

#include "ui/control/kinds/MStdColor.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/stml/MSTMLAttributes.h"
#include "ui/stml/MSTMLImage.h"
#include "ui/stml/MSTMLShapes.h"

#include <iterator>

namespace {

/// What a tag does. Several do the same with another index: of a font, a colour or an alignment.
enum class Action : uint8_t {
    Font,
    Color,
    Alpha,
    Invert,
    Align,
    Paragraph,
    Header,
    Row,
    Cell,
    ListItem,
    Image,
    Line,
    Rectangle,
    Indicator,
};

struct Tag {
    const char* name;
    Action action;
    int32_t index;

    constexpr Tag(const char* name, Action action, int32_t index = 0)
        : name(name), action(action), index(index) {}
    constexpr Tag(const char* name, MStdFont font, Action action = Action::Font)
        : Tag(name, action, static_cast<int32_t>(font)) {}
    constexpr Tag(const char* name, MStdColor color)
        : Tag(name, Action::Color, static_cast<int32_t>(color)) {}
};

constexpr Tag Tags[] = {{"b", MStdFont::Bold},
                        {"i", MStdFont::Italic},
                        {"s", MStdFont::Small},
                        {"l1", MStdFont::Large1},
                        {"l2", MStdFont::Large2},
                        {"l3", MStdFont::Large3},
                        {"l4", MStdFont::Large4},
                        {"normal", MStdFont::Normal},
                        {"cd", MStdColor::Text},
                        {"cred", MStdColor::Red},
                        {"cgreen", MStdColor::Green},
                        {"cblue", MStdColor::Blue},
                        {"ci", Action::Invert},
                        {"alpha", Action::Alpha},
                        {"left", Action::Align, MSTMLParagraph::Left},
                        {"center", Action::Align, MSTMLParagraph::Center},
                        {"right", Action::Align, MSTMLParagraph::Right},
                        {"justify", Action::Align, MSTMLParagraph::Justify},
                        {"p", Action::Paragraph},
                        {"header1", MStdFont::Large1, Action::Header},
                        {"header2", MStdFont::Large2, Action::Header},
                        {"tr", Action::Row},
                        {"td", Action::Cell},
                        {"li", Action::ListItem},
                        {"img", Action::Image},
                        {"hline", Action::Line},
                        {"rectangle", Action::Rectangle},
                        {"indicator", Action::Indicator}};

int32_t FindTag(const MString& name) {
    for (size_t i = 0; i < std::size(Tags); ++i)
        if (name.IsExactly(Tags[i].name)) return static_cast<int32_t>(i);
    return -1;
}

/// The first entry stays, so a surplus closing tag changes nothing.
template <class T>
void Pop(std::vector<T>& stack) {
    if (stack.size() > 1) stack.pop_back();
}

}  // namespace

MSTMLParser::MSTMLParser(MSTMLContainer& document, uint8_t defaultFlags)
    : defaultFlags(defaultFlags & ~MSTMLParagraph::AlignmentMask),
      defaultAlignment(defaultFlags & MSTMLParagraph::AlignmentMask),
      currentContainer(&document) {}

bool MSTMLParser::OnText(const MString& text) {
    if (!currentContainer) return false;
    if (!currentParagraph) {
        // Blanks between two paragraphs are none.
        if (text.Trimmed().IsEmpty()) return false;
        NewParagraph();
    }
    currentParagraph->AddText(text, GetLook());
    return false;
}

void MSTMLParser::OnTag(const MString& name, const MSTMLAttributes& attributes, bool isClosing) {
    if (const int32_t tag = FindTag(name); tag < 0)
        ReplayTagSet(name, attributes, isClosing);
    else if (isClosing)
        CloseTag(tag);
    else
        OpenTag(tag, attributes);
}

void MSTMLParser::OpenTag(int32_t tag, const MSTMLAttributes& attributes) {
    const int32_t index = Tags[tag].index;
    switch (Tags[tag].action) {
    case Action::Font: fontStack.push_back(index); break;
    case Action::Color: colorStack.push_back(index); break;
    case Action::Alpha: alphaStack.push_back(attributes.GetByte("value", 255)); break;
    case Action::Invert: ++invertDepth; break;
    case Action::Align: defaultAlignment = static_cast<uint8_t>(index); [[fallthrough]];
    case Action::Paragraph: NewParagraph(&attributes); break;
    case Action::Header:
        if (currentParagraph) {
            NewParagraph();
            NewParagraph();
        }
        fontStack.push_back(index);
        break;
    case Action::Row: OpenRowIn(attributes); break;
    case Action::Cell: OpenCell(std::make_unique<MSTMLTableCell>(attributes)); break;
    case Action::ListItem: OpenListItem(attributes.GetInteger("size", 2, 0, 3)); break;
    case Action::Image: AddObject(std::make_unique<MSTMLImage>(attributes)); break;
    case Action::Line: AddObject(std::make_unique<MSTMLLine>(attributes)); break;
    case Action::Rectangle: AddObject(std::make_unique<MSTMLRectangle>(attributes)); break;
    case Action::Indicator: AddObject(std::make_unique<MSTMLIndicator>(attributes)); break;
    }
}

void MSTMLParser::CloseTag(int32_t tag) {
    switch (Tags[tag].action) {
    case Action::Font: Pop(fontStack); break;
    case Action::Color: Pop(colorStack); break;
    case Action::Alpha: Pop(alphaStack); break;
    case Action::Invert: invertDepth = std::max(0, invertDepth - 1); break;
    case Action::Align:
    case Action::Paragraph: currentParagraph = nullptr; break;
    case Action::Header:
        Pop(fontStack);
        NewParagraph();
        break;
    case Action::Row:
    case Action::ListItem: CloseRow(); break;
    case Action::Cell:
        if (rowStack.empty()) break;
        currentContainer = nullptr;
        currentParagraph = nullptr;
        break;
    default: break;
    }
}

MSTMLLook MSTMLParser::GetLook() const {
    return {fontStack.back(), colorStack.back(), alphaStack.back(), invertDepth > 0};
}

void MSTMLParser::NewParagraph(const MSTMLAttributes* attributes) {
    if (!currentContainer) return;
    uint8_t flags = defaultFlags | defaultAlignment;
    if (attributes && attributes->GetBool("singleline")) flags |= MSTMLParagraph::SingleLine;
    currentParagraph = &currentContainer->Add(std::make_unique<MSTMLParagraph>(flags, GetLook()));
    if (attributes) currentParagraph->fill.Read(*attributes);
}

void MSTMLParser::OpenRowIn(const MSTMLAttributes& attributes) {
    const bool isTaken = currentContainer && rowStack.size() < MaximumRowDepth;
    MSTMLTableRow* const row =
        isTaken ? &currentContainer->Add(std::make_unique<MSTMLTableRow>(attributes)) : nullptr;
    rowStack.push_back({row, currentContainer});
    currentContainer = nullptr;
    currentParagraph = nullptr;
}

void MSTMLParser::OpenCell(std::unique_ptr<MSTMLTableCell> cell) {
    if (rowStack.empty()) return;
    MSTMLTableRow* const row = rowStack.back().row;
    currentContainer = row ? &row->Add(std::move(cell)) : nullptr;
    currentParagraph = nullptr;
}

void MSTMLParser::CloseRow() {
    if (rowStack.empty()) return;
    currentContainer = rowStack.back().container;
    currentParagraph = nullptr;
    rowStack.pop_back();
}

void MSTMLParser::OpenListItem(int32_t size) {
    const MAttributeList none;
    OpenRowIn(MSTMLAttributes(none));
    auto bullet = std::make_unique<MSTMLTableCell>();
    bullet->autosize = true;
    bullet->valign = MSTMLTableCell::Alignment::Center;
    OpenCell(std::move(bullet));
    const MStdIcon icon = size == 1 ? MStdIcon::Bullet1 : size == 2 ? MStdIcon::Bullet2 : MStdIcon::Bullet3;
    AddObject(std::make_unique<MSTMLImage>(MSTMLImage::Source::Icon, static_cast<int32_t>(icon)));
    OpenCell(std::make_unique<MSTMLTableCell>());
}

void MSTMLParser::AddObject(std::unique_ptr<MSTMLObject> object) {
    if (!currentContainer) return;
    if (!currentParagraph) NewParagraph();
    currentParagraph->AddObject(std::move(object), GetLook());
}
