#include "streams/basic/MMemoryStream.h"
#include "tests/ui/control/ControlFixture.h"
#include "ui/layout/MLayoutGrid.h"
#include "ui/loader/MStandardCreators.h"
#include "ui/widgets/lists/MListBox.h"
#include "ui/widgets/splitters/MSplitter.h"
#include "ui/widgets/tabs/MTabSet.h"
#include "ui/widgets/trees/MTreeControl.h"
#include "ui/widgets/values/MKnob.h"
#include "ui/widgets/values/MTracker.h"

#include <array>

namespace {

/// A tree of controls, from the elements of a document.
class ControlDocumentTest : public ControlTest {
protected:
    ControlDocumentTest() { MControl::MXmlLoader::SetFiller(&MAddStandardCreators); }
    ~ControlDocumentTest() noexcept override = default;

    void Load(const std::string& elements) {
        const std::string text = "<window>" + elements + "</window>";
        MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
        document.Load(stream);
        root.LoadFromXml(document);
    }
    /// The message with which loading fails.
    std::string GetFailure(const std::string& elements) {
        try {
            Load(elements);
        } catch (const MException& failure) {
            return Text(failure.GetMessage());
        }
        return "none";
    }
    /// A tree as its names, those below a control in parentheses.
    static std::string GetTree(const MControl& parent) {
        std::string names;
        for (const MControl* child : parent.GetChildren()) {
            const std::string below = GetTree(*child);
            names += (names.empty() ? "" : " ") + Text(child->GetName()) +
                     (below.empty() ? "" : "(" + below + ")");
        }
        return names;
    }
    [[nodiscard]] MControl& GetChild(int32_t index) const { return *root.GetChildren()[index]; }

    MXMLItem document;
    MControl root{nullptr, "root"};
};

}  // namespace

TEST_F(ControlDocumentTest, HasAControlOfItsClassForEachName) {
    const struct {
        const char* name;
        MControlType type;
    } cases[] = {
        {"control", MControlType::Empty},
        {"panel", MControlType::Panel},
        {"container", MControlType::Panel},
        {"static", MControlType::Static},
        {"label", MControlType::Static},
        {"multilinestatic", MControlType::Static},
        {"button", MControlType::Button},
        {"repeaterbutton", MControlType::Button},
        {"checkbox", MControlType::CheckBox},
        {"comboedit", MControlType::Edit},
        {"edit", MControlType::Edit},
        {"multilineedit", MControlType::Edit},
        {"tabset", MControlType::TabSet},
        {"listbox", MControlType::ListBox},
        {"treecontrol", MControlType::TreeControl},
        {"menubar", MControlType::MenuBar},
        {"progressbar", MControlType::ProgressBar},
        {"scrollbar", MControlType::HScrollBar},
        {"tracker", MControlType::Tracker},
        {"rotator", MControlType::Rotator},
        {"knob", MControlType::Knob},
        {"valuebutton", MControlType::Button},
        {"zoomer", MControlType::HScrollBar},
        {"splitter", MControlType::Empty},
        {"switcher", MControlType::Switcher},
        {"directorytree", MControlType::TreeControl},
        {"coloreditor", MControlType::Empty},
        {"colorselectbutton", MControlType::Button},
        {"filelistbox", MControlType::ListBox},
        {"fileselector", MControlType::Empty},
        {"grapheditor", MControlType::Empty},
        {"signalgeneratoreditor", MControlType::Empty},
        {"vector2deditor", MControlType::Empty},
    };
    std::string elements;
    for (const auto& one : cases) elements += std::string("<") + one.name + " id=\"the " + one.name + "\"/>";
    Load(elements);
    ASSERT_EQ(root.GetChildren().GetCount(), static_cast<int32_t>(std::size(cases)));
    for (size_t i = 0; i < std::size(cases); ++i) {
        const MControl& child = GetChild(static_cast<int32_t>(i));
        EXPECT_EQ(Text(child.GetName()), std::string("the ") + cases[i].name);
        EXPECT_EQ(child.GetControlType(), cases[i].type) << cases[i].name;
    }
    // All of them can be shown.
    Open(root);
    root.RedrawNow();
}

TEST_F(ControlDocumentTest, HasAValueForEachType) {
    const struct {
        const char* definition;
        const char* text;
    } cases[] = {
        {"type=\"int\" min=\"2\" max=\"9\" value=\"12\"", "9"},
        {"type=\"int32\" value=\"-3\"", "-3"},
        {"type=\"int64\" max=\"5000000000\" value=\"5000000000\"", "5000000000"},
        {"type=\"int16\" value=\"7\"", "7"},
        {"type=\"float\" value=\"0.5\"", "0.5000"},
        {"type=\"double\" value=\"0.5\"", "0.5000"},
        {"type=\"stepdouble\" step=\"0.25\" value=\"0.5\"", "0.5000"},
        {"type=\"percents\" value=\"0.5\"", "50.0%"},
        {"type=\"signalgeneratorshape\" value=\"0.5\"", "0.5000"},
        {"type=\"frequency\" max=\"20000\" value=\"440\"", "440 Hz"},
        {"type=\"frequencylog\" max=\"20000\" value=\"12000\"", "12.0 kHz"},
        {"type=\"frequencylinear\" min=\"0\" value=\"0\"", "0 Hz"},
        {"type=\"volume\" value=\"1\"", "0.00 dB"},
        {"type=\"panorama\" min=\"-1\" value=\"-0.5\"", "50% left"},
        {"type=\"pitch\" max=\"12\" value=\"2\"", "+2.00"},
        {"type=\"timems\" max=\"5\" value=\"0.02\"", "20 ms"},
        {"type=\"stdicon\"", ""},
        {"type=\"stdbitmap\"", ""},
        {"type=\"stdcursor\"", ""},
        {"type=\"stdfont\"", ""},
        {"type=\"stdcolor\"", ""},
        {"type=\"horizontalobjectlayout\"", ""},
        {"type=\"verticalobjectlayout\"", ""},
        {"type=\"language\"", "Other"},
        {"type=\"country\"", "Other"},
        {"type=\"threadpriority\"", ""},
        {"type=\"controltype\"", ""},
        {"type=\"captiontype\"", "none"},
        {"type=\"captiontype\" value=\"large\"", "large"},
        {"type=\"captiontype\" default=\"normal\"", "normal"},
        {"type=\"modalvalue\"", ""},
        {"type=\"checkboxstate\"", "off"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.definition);
        Load(std::string("<knob><value ") + one.definition + "/></knob>");
        const auto& knob = dynamic_cast<MKnob&>(GetChild(root.GetChildren().GetCount() - 1));
        const std::string shown = Text(knob.GetValue().GetText());
        if (*one.text)
            EXPECT_EQ(shown, one.text);
        else
            EXPECT_GT(knob.GetValue().GetDiscreteCount(), 2) << shown;
    }
    // An unknown type leaves a control its own value; and the attribute counts in what is defined.
    Load("<knob value=\"0.5\"><value type=\"mood\" value=\"3\"/></knob>"
         "<KNOB value=\"0.125\"><VALUE TYPE=\"PERCENTS\" min=\"0\" max=\"1\"/></KNOB>");
    const int32_t count = root.GetChildren().GetCount();
    EXPECT_EQ(dynamic_cast<MKnob&>(GetChild(count - 2)).GetValue().GetNormalized(), 0.5);
    EXPECT_EQ(Text(dynamic_cast<MKnob&>(GetChild(count - 1)).GetValue().GetText()), "12.5%");
    Load("<tracker maxvalue=\"0.5\" value=\"0.25\"><value type=\"percents\"/></tracker>");
    EXPECT_EQ(Text(dynamic_cast<MTracker&>(GetChild(count)).GetValueText()), "25.0% - 50.0%");
}

TEST_F(ControlDocumentTest, BuildsTheTreeAndPassesOverWhatItDoesNotKnow) {
    Load(
        "<panel id=\"a\" caption=\"Upper\"><mystery><button id=\"lost\"/></mystery><control id=\"b\"><edit id=\"c\"/>"
        "</control></panel><static id=\"d\" caption=\"Title\" captiontype=\"none\"/><edit id=\"e\" caption=\"none\"/>");
    EXPECT_EQ(GetTree(root), "a(b(c)) d e");
    EXPECT_EQ(Text(GetChild(0).GetCaption()), "Upper");
    EXPECT_EQ(Text(GetChild(2).GetCaption()), "none");
    // What stands in the items of tabs and of splitters lies in their pages.
    Load(
        "<tabset><item text=\"x\"><static id=\"t\"/></item><items><item><edit id=\"u\"/></item></items></tabset>"
        "<splitter><item layoutratiox=\"3\"><static id=\"v\"/></item><item><edit id=\"w\"/></item></splitter>");
    EXPECT_EQ(Text(dynamic_cast<MTabSet&>(GetChild(3)).GetPage(1).GetChildren()[0]->GetName()), "u");
    EXPECT_EQ(Text(dynamic_cast<MSplitter&>(GetChild(4)).GetPanel(0).GetChildren()[0]->GetName()), "v");
    EXPECT_EQ(Text(dynamic_cast<MSplitter&>(GetChild(4)).GetPanel(1).GetChildren()[0]->GetName()), "w");
    // Without "id" a control has the next number.
    Load("<panel/><panel/>");
    EXPECT_EQ(std::stoi(Text(GetChild(5).GetName())) + 1, std::stoi(Text(GetChild(6).GetName())));
}

TEST_F(ControlDocumentTest, ATreeHasTheRootThatItIsGiven) {
    constexpr const char* Items =
        "<item text=\"a\" open=\"1\"><item text=\"b\"/></item><item text=\"c\"/></treecontrol>";
    const std::pair<const char*, const char*> cases[] = {
        {"", "abc"}, {" showroot=\"0\"", "abc"}, {" showroot=\"1\"", "ab"}};
    for (int32_t index = 0; const auto& [attribute, rows] : cases) {
        Load(std::string("<treecontrol") + attribute + ">" + Items);
        auto& tree = dynamic_cast<MTreeControl&>(GetChild(index++));
        std::string shown;
        for (int32_t row = 0; row < tree.GetRowCount(); ++row) shown += Text(tree.GetItem(row)->text);
        EXPECT_EQ(shown, rows) << attribute;
    }
    // What is selected in a branch that is closed is no row; another one is where the keyboard begins.
    Load("<treecontrol><item text=\"a\"><item text=\"b\" selected=\"1\"/></item></treecontrol>"
         "<listbox><item text=\"a\"/><item text=\"b\" selected=\"1\"/></listbox>");
    EXPECT_EQ(dynamic_cast<MTreeControl&>(GetChild(3)).GetSelectedItem(), nullptr);
    EXPECT_EQ(dynamic_cast<MListBox&>(GetChild(4)).GetFocusedRow(), 1);
}

TEST_F(ControlDocumentTest, LayoutsPlaceTheirControlsInTheOrderOfTheDocument) {
    const std::string sizes =
        " sizex=\"40\" sizey=\"20\" layoutratiox=\"0\" layoutratioy=\"0\" adaptsize=\"0\"";
    Load(
        "<top layoutspace=\"2\"><panel id=\"a\"" + sizes + " space=\"5\"/><mystery/><panel id=\"b\"" + sizes +
        "/></top><grid columns=\"3\"><panel id=\"c\" hspan=\"2\"/><panel id=\"d\"/><panel id=\"e\" vspan=\"2\"/></grid>"
        "<vertical deflayoutborderx=\"4\"><panel id=\"f\"><left><panel id=\"g\"/></left></panel></vertical>");
    EXPECT_EQ(GetTree(root), "a b c d e f(g)");
    Open(root);
    EXPECT_EQ(GetChild(0).layoutSpaceAfter, 5);
    EXPECT_GE(GetChild(1).position.x, GetChild(0).position.x + 40 + 5);
    EXPECT_EQ(GetChild(2).spanX, 2);
    EXPECT_EQ(GetChild(4).spanY, 2);
    EXPECT_EQ(GetChild(2).position.y, GetChild(3).position.y);
    EXPECT_GT(GetChild(4).position.y, GetChild(3).position.y);
    EXPECT_EQ(GetChild(5).layoutBorder.x, 4);
    EXPECT_GT(GetChild(5).position.y, GetChild(4).position.y);
    EXPECT_TRUE(GetChild(5).GetChildren()[0]->parentLayout != nullptr);
}

TEST_F(ControlDocumentTest, FailuresComeOutAndLeaveAWholeTree) {
    EXPECT_EQ(GetFailure("<panel id=\"a\" layoutplacement=\"above\"/><panel/>"),
              "Invalid MAlignment identifier to parse (above).");
    EXPECT_EQ(GetFailure("<corner><panel id=\"b\" target=\"9\"/></corner>"),
              "Invalid target for corner layout.");
    EXPECT_EQ(GetFailure("<occupyborder><panel id=\"c\"/></occupyborder>"),
              "Service \"add control to occupy-space layout\" is not implemented.");
    EXPECT_EQ(GetFailure("<panel id=\"d\" posx=\"many\" visible=\"perhaps\"/>"), "none");
    EXPECT_EQ(GetTree(root), "a b c d");
    EXPECT_EQ(GetChild(3).position.x, 0);
    EXPECT_FALSE(GetChild(3).Is(MControlFlag::Visible));
    Open(root);
    root.RedrawNow();
}
