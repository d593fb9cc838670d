#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/edits/EditFixture.h"
#include "ui/widgets/edits/MComboEdit.h"
#include "ui/widgets/edits/MKeyboardControl.h"

namespace {

/// Writes down what the control raises.
struct Listener : MEventTarget {
    explicit Listener(MEdit& edit) {
        edit.OnString().Connect(this, &Listener::OnString);
        edit.OnChange().Connect(this, &Listener::OnChange);
        edit.OnChange(MControl::Change::Committed).Connect(this, &Listener::OnCommit);
    }
    ~Listener() noexcept override = default;
    void OnString(const MOnStringParams& params) { log += Text(params.text) + ";"; }
    void OnChange(const MOnNotifyParams&) { log += "c"; }
    void OnCommit(const MOnNotifyParams&) { log += "!"; }
    std::string log;
};

TEST_F(EditTest, TypesWithinItsLimitsAndTells) {
    EditWindow<MEdit> window;
    MEdit& edit = window.edit;
    Listener listener(edit);
    Open(window.root);
    edit.SetText("keep");
    edit.SetMaximumLength(6);
    Press(MKeyEnd);
    user.Type(Wide(u"\u00E9\U0001F600x"));  // the pair does not fit any more, the last letter does
    EXPECT_EQ(Text(edit.GetText()), "keep\u00E9x");
    Press(MKeyEnter);
    EXPECT_EQ(listener.log, "keep\u00E9;ckeep\u00E9x;c!");
    edit.SetMaximumLength(0);
    EXPECT_EQ(edit.GetLength(), 0);
    user.Type("a");
    MCopyToClipboard("pasted");
    Press('V', MModifierControl);
    EXPECT_EQ(edit.GetLength(), 0);
    edit.SetMaximumLength(100);
    user.Type("longer");
    for (int32_t i = 0; i < 3; ++i) Press(MKeyBackspace);
    edit.SetMaximumLength(3);
    edit.Undo();
    EXPECT_EQ(edit.GetLength(), 3) << "what does not fit any more does not come back";
    edit.SetMaximumLength(100);
    edit.Clear();

    static const MCharFilter::FloatFilter Float;
    edit.SetFilter(&Float);
    user.Type("1a.5e,");
    MCopyToClipboard("x-7");
    Press('V', MModifierControl);
    EXPECT_EQ(Text(edit.GetText()), "1.5-7");
    edit.SetReadOnly(true);
    user.Type("1");
    for (const int32_t key : {int32_t{'V'}, int32_t{'X'}, int32_t{'Z'}}) Press(key, MModifierControl);
    for (const int32_t key : {MKeyBackspace, MKeyDelete}) Press(key);
    EXPECT_EQ(Text(edit.GetText()), "1.5-7");
    // The third signs of keys come with Ctrl and Alt, commands with Ctrl alone.
    edit.SetReadOnly(false);
    edit.SetFilter(nullptr);
    user.HoldKeys(MModifierControl | MModifierAlt);
    user.Type("{");
    user.HoldKeys(MModifierControl);
    user.Type("q");
    EXPECT_EQ(Text(edit.GetText()), "1.5-7{");
}

TEST_F(EditTest, CleansWhatIsPasted) {
    EditWindow<MMultiLineEdit> window;
    MEdit& edit = window.edit;
    Open(window.root);
    const char16_t raw[] = u"a\0b\r\nc\rd\u2028e\u0085\u007F\tf\xD800g";
    MCopyToClipboard(MString::Copy(raw, static_cast<int32_t>(std::size(raw) - 1)));
    Press('V', MModifierControl);
    EXPECT_EQ(Text(edit.GetText()), "ab\nc\nd\ne\tf\uFFFDg");
    edit.SetMultiLine(false);
    EXPECT_EQ(Text(edit.GetText()), "ab c d e\tf\uFFFDg");
}

TEST_F(EditTest, MovesAndSelectsByWordsRowsAndMouse) {
    EditWindow<MMultiLineEdit> window;
    MEdit& edit = window.edit;
    Open(window.root);
    edit.SetText("one, two_3  four\n\nlast");
    const auto expectStops = [&](int32_t key, const std::vector<int32_t>& stops) {
        for (const int32_t stop : stops) {
            Press(key, MModifierControl);
            EXPECT_EQ(edit.GetCursor(), stop);
        }
    };
    expectStops(MKeyRight, {3, 5, 12, 16, 17, 18, 22, 22});
    expectStops(MKeyLeft, {18, 17, 16, 12, 5, 3, 0});
    Press(MKeyBackspace, MModifierControl);
    Press(MKeyDelete, MModifierControl);
    EXPECT_EQ(Text(edit.GetText()), ", two_3  four\n\nlast");

    // Up and down keep to a place in the row, across shorter ones.
    edit.SetText("abcdef\nab\nabcdef");
    edit.SetSelection(5, 5);
    for (const int32_t stop : {9, 15, 15}) {
        Press(MKeyDown);
        EXPECT_EQ(edit.GetCursor(), stop);
    }
    Press(MKeyUp);
    Press(MKeyUp, MModifierShift);
    EXPECT_TRUE(edit.GetSelection() == (MTextRange{5, 9}));
    Press(MKeyHome, MModifierShift);
    EXPECT_TRUE(edit.GetSelection() == (MTextRange{0, 9}));

    const MPoint origin = edit.GetScreenPoint({8, 10});
    user.Click(origin, 2);
    EXPECT_EQ(Text(edit.GetSelectedText()), "abcdef");
    system.AdvanceTime(1000);
    user.MoveMouse(origin);
    user.PressButton();
    user.MoveMouse(origin + MPoint{0, 20});
    user.ReleaseButton();
    EXPECT_EQ(edit.GetSelection().GetLength(), 7) << "from a letter to the same one below";

    // A drag that rests outside goes on to the end.
    MString lines;
    for (int32_t line = 0; line < 60; ++line) lines += "line\n";
    edit.SetText(lines);
    user.MoveMouse(origin);
    user.PressButton();
    user.MoveMouse(origin + MPoint{0, 100});
    system.AdvanceTime(6000);
    EXPECT_EQ(edit.GetSelection().end, edit.GetLength());
    user.ReleaseButton();
    EXPECT_TRUE(IsPaintedWhole(window.root));
}

TEST_F(EditTest, IsReadByKeysThatScroll) {
    struct Reader : MMultiLineEdit {
        using MMultiLineEdit::MMultiLineEdit;
        int32_t GetPlace() { return GetScroll().y % GetRowHeight() ? -1 : GetScroll().y / GetRowHeight(); }
    };
    EditWindow<Reader> window;
    Reader& edit = window.edit;
    Open(window.root);
    edit.SetText("0\n1\n2\n3\n4\n5\n6\n7\n8\n9");
    edit.SetReadOnly(true);
    std::vector<int32_t> places;
    for (const int32_t key :
         {MKeyDown, MKeyUp, MKeyUp, MKeyPageDown, MKeyEnd, MKeyHome, MKeyEnd, MKeyPageUp}) {
        Press(key);
        places.push_back(edit.GetPlace());
    }
    EXPECT_EQ(places, (std::vector<int32_t>{1, 0, 0, 4, 5, 0, 5, 1}))
        << "by whole rows of which five are seen";
    Press(MKeyDown, MModifierShift);
    Press(MKeyDown);
    EXPECT_EQ(Text(edit.GetSelectedText()), "1\n") << "from what was seen";
}

TEST_F(EditTest, SaysWhatToTypeAsLongAsItIsEmpty) {
    EditWindow<MMultiLineEdit> window;
    Open(window.root);
    window.root.RedrawNow();
    window.edit.infoText = "Comments";
    EXPECT_FALSE(IsPaintedWhole(window.root)) << "it has come";
    user.Type("i");
    EXPECT_TRUE(IsPaintedWhole(window.root)) << "and gone";
    Press(MKeyBackspace);
    EXPECT_TRUE(IsPaintedWhole(window.root));
}

TEST_F(EditTest, KeepsPasswordsSecret) {
    EditWindow<MEdit> window;
    MEdit& edit = window.edit;
    Open(window.root);
    edit.SetShowChar(u'*');
    edit.SetText("two words");
    window.root.RedrawNow();
    MCopyToClipboard("old");
    edit.SelectAll();
    Press('C', MModifierControl);
    Press('X', MModifierControl);
    EXPECT_EQ(Text(MGetClipboardText()), "old");
    Press(MKeyHome);
    Press(MKeyRight, MModifierControl);
    EXPECT_EQ(edit.GetCursor(), 9) << "not where a word ends";
    edit.Set(MControlFlag::SaveValue);
    MXMLItem state("state");
    (void)edit.SaveState(state);
    EXPECT_FALSE(state.HasAttribute("text"));
    edit.SetShowChar(0);
    (void)edit.SaveState(state);
    edit.SetText({});
    edit.LoadState(state);
    EXPECT_EQ(Text(edit.GetText()), "two words");
    EXPECT_TRUE(IsPaintedWhole(window.root));
}

TEST_F(EditTest, TakesWhateverIsPasted) {
    EditWindow<MMultiLineEdit> window;
    MEdit& edit = window.edit;
    Open(window.root);
    constexpr int32_t Long = 5'000'000;
    const MString texts[] = {[] {
                                 MString text;
                                 text.Append(MChar('\n'), Long);
                                 return text;
                             }(),
                             [] {
                                 MString text;
                                 text.Append(MChar('x'), Long);
                                 return text;
                             }(),
                             [] {
                                 MString text;
                                 text.Append(MChar(u'\u0301'), 100'000);
                                 return text;
                             }()};
    for (const MString& text : texts) {
        for (const bool isWrapping : {true, false}) {
            edit.SetWrapLines(isWrapping);
            edit.SetText({});
            edit.Insert(text);
            EXPECT_EQ(edit.GetLength(), text.GetLength());
            user.Type("ab");
            Press(MKeyUp);
            Press(MKeyPageUp);
            edit.SetSelection(1, edit.GetLength());
            Press(MKeyBackspace);
            window.root.RedrawNow();
            Press('Z', MModifierControl);
            Press('Z', MModifierControl);
            EXPECT_EQ(edit.GetLength(), text.GetLength());
        }
    }
}

TEST_F(EditTest, SurvivesItsEndInAHandler) {
    struct Ender : MEventTarget {
        void OnString(const MOnStringParams&) { delete std::exchange(edit, nullptr); }
        MEdit* edit = nullptr;
    };
    MCopyToClipboard("text");
    for (const int32_t way : {0, 1, 2, 3}) {
        MControl root;
        Ender ender;
        ender.edit = new MMultiLineEdit(&root, "edit");
        Place(*ender.edit, {10, 10, 110, 80});
        ender.edit->SetText("abc");
        ender.edit->OnString().Connect(&ender, &Ender::OnString);
        Open(root);
        if (way == 0) user.Type("a");
        if (way == 1) Press('V', MModifierControl);
        if (way == 2) Press(MKeyDelete);
        if (way == 3) {
            user.Click(ender.edit->GetScreenPoint({20, 20}), 1, MModifierRightButton);
            user.PressKey(MKeyDown);
            user.PressKey(MKeyEnter);
        }
        EXPECT_EQ(ender.edit, nullptr) << way;
    }
}

TEST_F(EditTest, OffersAMenuAndAKeyboard) {
    EditWindow<MEdit> window;
    MEdit& edit = window.edit;
    Open(window.root);
    const MRect area = system.GetWorkArea({});
    window.root.SetPosition(MPoint{area.right - 150, area.bottom - 60});
    edit.SetText("text");
    edit.SelectAll();
    const auto choose = [&](int32_t downs) {
        Press(MKeyMenu);
        for (int32_t i = 0; i < downs; ++i) user.PressKey(MKeyDown);
        user.PressKey(MKeyEnter);
    };
    choose(1);  // Copy
    EXPECT_EQ(Text(MGetClipboardText()), "text");
    EXPECT_EQ(Text(edit.GetSelectedText()), "text") << "stays selected beneath the menu";
    choose(2);  // Paste
    choose(1);  // Paste, since nothing is selected to be copied
    EXPECT_EQ(Text(edit.GetText()), "texttext");
    choose(3);
    MControl* const keyboard = system.GetActiveRoot();
    ASSERT_NE(keyboard, &window.root);
    keyboard->RedrawNow();
    EXPECT_TRUE(area.Contains({system.GetFrame(*keyboard).right, system.GetFrame(*keyboard).bottom}))
        << "on the screen as a whole";
    const auto click = [&](const char* caption) {
        const std::function<MControl*(MControl&)> find = [&](MControl& control) -> MControl* {
            if (control.GetCaption().IsExactly(caption)) return &control;
            for (MControl* child : control.GetChildren())
                if (MControl* const found = find(*child)) return found;
            return nullptr;
        };
        MControl* const key = find(*keyboard);
        ASSERT_TRUE(key) << caption;
        system.AdvanceTime(1000);
        user.Click(key->GetScreenPoint({key->size.x / 2, key->size.y / 2}));
    };
    for (const char* key :
         {"H", "i", "!", "Space", " Caps Lock ", "A", "B", "Backspace", " Disabled ", "c", "~"})
        click(key);
    EXPECT_EQ(Text(edit.GetText()), "texttextHi! Ac~");
    user.PressKey(MKeyEscape);
    EXPECT_EQ(system.GetActiveRoot(), &window.root);
}

TEST_F(EditTest, FillsFromAMenu) {
    EditWindow<MComboEdit> window;
    MComboEdit& edit = window.edit;
    MXMLItem item("comboedit");
    item.SetAttribute("text", "first");
    for (const char* text : {"one", "two", "three"}) item.AddSubItem("item")->SetAttribute("text", text);
    edit.LoadFromXml(item);
    Place(edit, {10, 10, 150, 34});
    Listener listener(edit);
    Open(window.root);
    Press(MKeyDown);
    user.PressKey(MKeyDown);
    user.PressKey(MKeyEnter);
    EXPECT_EQ(listener.log, "two;c");
    user.Type("2 ");  // a space is typed where texts are
    edit.SetReadOnly(true);
    user.PressKey(MKeySpace);
    user.PressKey(MKeyEnter);
    user.Click(edit.GetScreenPoint({edit.size.x - 6, 12}));
    user.PressKey(MKeyDown);
    user.PressKey(MKeyDown);
    user.PressKey(MKeyDown);
    user.PressKey(MKeyEnter);
    EXPECT_EQ(listener.log, "two;c2;c2 ;cone;cthree;c");
}

}  // namespace
