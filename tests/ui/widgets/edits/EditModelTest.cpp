#include "tests/ui/widgets/edits/EditFixture.h"

#include <random>
#include <set>

// Edits are compared with a plain text that is changed by the simplest means.

namespace {

constexpr size_t MaximumLength = 90;

/// What a text, its cursor and its selection become.
struct Model {
    bool IsStop(size_t at) const {
        if (at == 0 || at >= text.size()) return true;
        return text[at] != 0xDE00 && (text[at] != 0x301 || text[at - 1] == '\n' || text[at - 1] == '\t');
    }
    size_t Next(size_t at) const {
        if (at < text.size())
            while (!IsStop(++at)) {}
        return at;
    }
    size_t Previous(size_t at) const {
        if (at > 0)
            while (!IsStop(--at)) {}
        return at;
    }
    size_t Start() const { return std::min(cursor, anchor); }
    size_t End() const { return std::max(cursor, anchor); }
    void Move(size_t to, bool isSelecting) {
        cursor = to;
        if (!isSelecting) anchor = to;
    }
    void Replace(size_t start, size_t end, std::u16string with) {
        for (char16_t& unit : with)
            if (unit == '\n' && !isMultiLine) unit = ' ';
        const size_t room = MaximumLength - (text.size() - (end - start));
        if (with.size() > room) with.resize(room > 0 && with[room] == 0xDE00 ? room - 1 : room);
        text.replace(start, end - start, with);
        cursor = start + with.size();
        while (!IsStop(cursor)) --cursor;
        anchor = cursor;
    }
    void Insert(const std::u16string& with) {
        const bool hasRoom =
            text.size() - (End() - Start()) < MaximumLength - (with == u"\U0001F600" ? 1 : 0);
        if (!with.empty() && hasRoom) Replace(Start(), End(), with);
    }

    bool isMultiLine = false;
    std::u16string text = {};
    size_t cursor = 0;
    size_t anchor = 0;
};

class EditModelTest : public EditTest, public testing::WithParamInterface<bool> {
protected:
    ~EditModelTest() noexcept override = default;

    void DoSomething() {
        const bool isShift = random() % 3 == 0;
        const MKeyModifiers shift = isShift ? MModifierShift : MModifierNone;
        const bool isSelected = model.cursor != model.anchor;
        operation = random() % 14;
        switch (operation) {
        case 0:
            Press(MKeyLeft, shift);
            model.Move(isSelected && !isShift ? model.Start() : model.Previous(model.cursor), isShift);
            break;
        case 1:
            Press(MKeyRight, shift);
            model.Move(isSelected && !isShift ? model.End() : model.Next(model.cursor), isShift);
            break;
        case 2:
            Press(MKeyHome, shift | MModifierControl);
            model.Move(0, isShift);
            break;
        case 3:
            Press(MKeyEnd, shift | MModifierControl);
            model.Move(model.text.size(), isShift);
            break;
        case 4:
            Press(MKeyBackspace);
            model.Replace(isSelected ? model.Start() : model.Previous(model.cursor), model.End(), u"");
            break;
        case 5:
            Press(MKeyDelete);
            model.Replace(model.Start(), isSelected ? model.End() : model.Next(model.cursor), u"");
            break;
        case 6: {
            Press(random() % 2 ? 'C' : 'X', MModifierControl);
            const bool wasCut = isSelected && edit->GetLength() != static_cast<int32_t>(model.text.size());
            if (isSelected) clipboard = model.text.substr(model.Start(), model.End() - model.Start());
            if (wasCut) model.Replace(model.Start(), model.End(), u"");
            break;
        }
        case 7:
            Press('V', MModifierControl);
            model.Insert(clipboard);
            break;
        case 8: {
            const size_t anchor = random() % (model.text.size() + 1);
            const size_t cursor = random() % (model.text.size() + 1);
            edit->SetSelection(static_cast<int32_t>(anchor), static_cast<int32_t>(cursor));
            model.anchor = anchor;
            while (!model.IsStop(model.anchor)) --model.anchor;
            model.cursor = cursor;
            while (!model.IsStop(model.cursor)) --model.cursor;
            break;
        }
        case 9:
            Press(MKeyTab, MModifierControl);
            model.Insert(u"\t");
            break;
        case 10:
            Press(MKeyEnter);
            if (model.isMultiLine) model.Insert(u"\n");
            break;
        default: {
            static constexpr const char16_t* Typed[] = {u"a",          u" ", u"W",     u"\u0301",
                                                        u"\U0001F600", u".", u"\u4E00"};
            const std::u16string character = Typed[random() % std::size(Typed)];
            user.Type(Wide(character.c_str()));
            model.Insert(character);
        }
        }
    }
    void Expect(const char* when) {
        ASSERT_EQ(Text(edit->GetText()), Text(Wide(model.text.c_str()))) << when << " by " << operation;
        ASSERT_EQ(edit->GetCursor(), static_cast<int32_t>(model.cursor)) << when << " by " << operation;
        const MTextRange expected{static_cast<int32_t>(model.Start()), static_cast<int32_t>(model.End())};
        ASSERT_TRUE(edit->GetSelection() == expected) << when << " by " << operation;
    }

    std::mt19937 random{7};
    Model model{GetParam()};
    std::u16string clipboard;
    uint32_t operation = 0;
    MEdit* edit = nullptr;
};

TEST_P(EditModelTest, DoesWhatAPlainTextWould) {
    EditWindow<MMultiLineEdit> window;
    edit = &window.edit;
    edit->SetMultiLine(GetParam());
    edit->SetMaximumLength(MaximumLength);
    Open(window.root);
    std::set<std::u16string> seen{model.text};
    for (int32_t round = 0; round < 20; ++round) {
        edit->SetWrapLines(round % 2);
        for (int32_t step = 0; step < 150; ++step) {
            DoSomething();
            Expect("edited");
            if (HasFatalFailure()) return;
            seen.insert(model.text);
            ASSERT_TRUE(step % 10 || IsPaintedWhole(window.root)) << "round " << round << ", step " << step;
        }
        // Back to the beginning, by what has been there, and forth again.
        const MString after = edit->GetText();
        for (int32_t undone = 0; undone < 150 * (round + 1); ++undone) {
            Press('Z', MModifierControl);
            ASSERT_TRUE(seen.contains(edit->GetText().ToWide().Get())) << undone;
        }
        EXPECT_EQ(edit->GetLength(), 0);
        for (int32_t redone = 0; redone < 150 * (round + 1); ++redone) Press('Y', MModifierControl);
        EXPECT_EQ(Text(edit->GetText()), Text(after));
        model.cursor = model.anchor = static_cast<size_t>(edit->GetCursor());
    }
}

INSTANTIATE_TEST_SUITE_P(Lines, EditModelTest, testing::Bool());

/// Rows of a text that has been changed are those of the same text that is new.
TEST_F(EditTest, RowsAreThoseOfANewText) {
    MColor color;
    MFont& font = *windows.GetStyle()->GetFont(0, 0, false, MDrawEnabled, color);
    std::mt19937 random(11);
    const char16_t* pieces[] = {u"a",
                                u"word ",
                                u"\n",
                                u"   ",
                                u"longlonglonglonglongword",
                                u"\t",
                                u"\u0301",
                                u"\u4E00\u4E8C\u3002",
                                u"\U0001F600",
                                u"two lines\nof it"};
    for (int32_t round = 0; round < 40; ++round) {
        const MEditLook look{&font, font.GetRevision(), round % 4 ? 20 + 25 * (round % 7) : 0,
                             round % 10 == 9 ? U'*' : U'\0'};
        MEditText text;
        MEditRows rows(text);
        (void)rows.SetLook(look);
        for (int32_t step = 0; step < 200; ++step) {
            const int32_t length = text.GetLength();
            const auto start = static_cast<int32_t>(random() % static_cast<uint32_t>(length + 1));
            const int32_t limit = random() % 8 ? 6 : length;
            const int32_t removed =
                random() % 2 ? 0 : static_cast<int32_t>(random() % static_cast<uint32_t>(limit + 1));
            const int32_t count = std::min(removed, length - start);
            const MString inserted = random() % 3 ? Wide(pieces[random() % std::size(pieces)]) : MString();
            const int32_t oldCount = rows.GetCount();
            text.Replace(start, count, inserted);
            const auto changed = rows.Update(start, count, inserted.GetLength());
            MEditRows fresh(text);
            (void)fresh.SetLook(look);
            ASSERT_EQ(rows.GetCount(), fresh.GetCount()) << round << ", " << step;
            ASSERT_EQ(rows.GetCount() - oldCount, changed.added - changed.removed);
            ASSERT_EQ(rows.GetWidth(), fresh.GetWidth());
            for (int32_t row = 0; row < rows.GetCount(); ++row)
                ASSERT_EQ(rows.GetStart(row), fresh.GetStart(row)) << round << ", " << step;
            ASSERT_TRUE(fresh.Fits(look, fresh.GetCount()) && !fresh.Fits(look, fresh.GetCount() - 1));
        }
    }
}

}  // namespace
