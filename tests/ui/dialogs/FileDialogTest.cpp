#include "foundation/module/MPlatform.h"
#include "foundation/xml/MXMLItem.h"
#include "tests/support/MScratch.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/dialogs/MDirectoryDialog.h"
#include "ui/dialogs/MFileDialog.h"

#include <functional>

namespace {

/// Dialogs in a scratch folder with "sub/inner.txt", "old.txt" and "noise.wav".
class FileDialogTest : public WidgetTest {
protected:
    FileDialogTest() {
        scratch.WriteFile("sub/inner.txt", "1");
        scratch.WriteFile("old.txt", "1");
        scratch.WriteFile("noise.wav", "1");
        Open(root);
    }
    ~FileDialogTest() noexcept override = default;

    bool AskYesNo(MControl&, const MString& question) override {
        log += Text(question) + " ";
        return yes;
    }
    /// What is chosen when the user does so in an open dialog; "none" if nothing is.
    std::string Run(MFileDialog::Mode mode, const std::function<void(MFileDialog&)>& act) {
        MFileDialog dialog(mode);
        dialog.SetRootPath(scratch.GetPath());
        dialog.AddFilter("Texts", "*.txt");
        dialog.AddFilter("Sounds", "*.wav;*.aif");
        shown.clear();
        system.AdvanceTime(200);
        system.Post([&] {
            Settle(dialog);
            act(dialog);
            Settle(dialog);
            if (dialog.Is(MControlFlag::ModalRunning)) dialog.CloseWindow(MModalValue::Cancel);
        });
        if (dialog.RunModal(&root) != MModalValue::Ok) return "none";
        return Text(MFile::GetRelativePath(dialog.GetFilePath(), scratch.GetPath()));
    }
    void Settle(MFileDialog& dialog) {
        for (int32_t i = 0; i < 3000 && dialog.IsWaiting(); ++i) {
            MPlatform::Sleep(1);
            system.AdvanceTime(50);
        }
    }
    void TypeName(MFileDialog& dialog, const char* name) {
        dialog.SetFileName(name);
        user.PressKey(MKeyEnter);
    }
    void FocusName(MFileDialog& dialog) {
        while (!(dialog.GetRootState().focusedControl->GetName() == "filename")) user.PressKey(MKeyTab);
    }

    MScratch scratch;
    bool yes = true;
};

TEST_F(FileDialogTest, OpensWhatIsThere) {
    using enum MFileDialog::Mode;
    EXPECT_EQ(Run(Open,
                  [&](MFileDialog&) {
                      user.Type("old");
                      user.PressKey(MKeyEnter);
                  }),
              "old.txt");
    EXPECT_EQ(Run(Open,
                  [&](MFileDialog& dialog) {
                      FocusName(dialog);
                      user.PressKey(MKeyEnter);
                      EXPECT_EQ(shown, "You have to select a file.");
                      shown.clear();
                      TypeName(dialog, "missing.txt");
                      EXPECT_EQ(shown, "You have to select a file.");
                      // The name of a folder leads there, and a path to a file is a name of it.
                      TypeName(dialog, "sub");
                      Settle(dialog);
                      EXPECT_TRUE(dialog.GetSelector().GetPath().IsExactly(scratch.Join("sub")));
                      TypeName(dialog, "../sub/inner.txt");
                  }),
              "sub/inner.txt");
    // A folder that has gone gives way to the one above it. Nothing outside of the root is chosen.
    EXPECT_EQ(Run(Open,
                  [&](MFileDialog& dialog) {
                      dialog.SetPath(scratch.Join("sub/gone/too"));
                      Settle(dialog);
                      EXPECT_TRUE(dialog.GetSelector().GetPath().IsExactly(scratch.Join("sub")));
                      EXPECT_EQ(shown, "");
                      const MScratch other;
                      other.WriteFile("some.txt", "1");
                      FocusName(dialog);
                      TypeName(dialog, Text(other.Join("some.txt")).c_str());
                      EXPECT_EQ(shown, "Sorry, directory " + Text(other.GetPath()) + " is not accessible.");
                  }),
              "none");
    EXPECT_EQ(Run(Open, [&](MFileDialog&) { user.PressKey(MKeyEscape); }), "none");
}

TEST_F(FileDialogTest, SavesOverAFileOnlyWhenTheUserWantsIt) {
    using enum MFileDialog::Mode;
    EXPECT_EQ(Run(Save, [&](MFileDialog& dialog) { TypeName(dialog, "new"); }), "new.txt");
    yes = false;
    EXPECT_EQ(Run(Save, [&](MFileDialog& dialog) { TypeName(dialog, "old.txt"); }), "none");
    EXPECT_EQ(Take(), "Are you sure you want to rewrite file \"old.txt\"?");
}

TEST_F(FileDialogTest, StaysWhereItIsWhenAFolderCannotBeEntered) {
    (void)Run(MFileDialog::Mode::Open, [&](MFileDialog& dialog) {
        while (!(dialog.GetRootState().focusedControl->GetName() == "path")) user.PressKey(MKeyTab);
        auto& edit = static_cast<MEdit&>(*dialog.GetRootState().focusedControl);
        EXPECT_TRUE(edit.GetText().IsExactly(scratch.GetPath()));
        edit.SetText(scratch.Join("missing"));
        user.PressKey(MKeyEnter);
        Settle(dialog);
        EXPECT_EQ(shown, "Sorry, directory " + Text(scratch.Join("missing")) + " is not accessible.");
        EXPECT_TRUE(edit.GetText().IsExactly(scratch.GetPath()));
        const MString outside = MFile::GetDirectory(scratch.GetPath());
        edit.SetText(scratch.Join("sub") + "/../..");
        user.PressKey(MKeyEnter);
        EXPECT_EQ(shown, "Sorry, directory " + Text(outside) + " is not accessible.");
        edit.SetText(scratch.Join("sub"));
        user.PressKey(MKeyEnter);
        Settle(dialog);
        EXPECT_TRUE(dialog.GetSelector().GetPath().IsExactly(scratch.Join("sub")));
    });
}

TEST_F(FileDialogTest, RemembersWhatWasChosen) {
    MXMLItem state("state");
    const auto getCount = [](MFileDialog& dialog) { return dialog.GetSelector().GetList().GetItemCount(); };
    (void)Run(MFileDialog::Mode::Open, [&](MFileDialog& dialog) {
        EXPECT_EQ(getCount(dialog), 2);
        FocusName(dialog);
        user.PressKey(MKeyTab);
        for (const int32_t key : {MKeyEnter, MKeyDown, MKeyDown, MKeyEnter}) user.PressKey(key);
        Settle(dialog);
        EXPECT_EQ(Text(dialog.GetSelector().GetList().GetItem(1)->text), "noise.wav");
        dialog.GetSelector().SetPath(scratch.Join("sub"));
        Settle(dialog);
        dialog.SetFileName("name");
        dialog.SaveState(state);
    });
    EXPECT_EQ(state.GetInt32Attribute("filterindex"), 1);
    MFileDialog other(MFileDialog::Mode::Open);
    other.AddFilter("Texts", "*.txt");
    other.AddFilter("Sounds", "*.wav");
    state.SetAttribute("RootPath", "");
    other.LoadState(state);
    other.OnPrepared();
    Settle(other);
    EXPECT_TRUE(other.GetSelector().GetPath().IsExactly(scratch.Join("sub")));
    EXPECT_EQ(getCount(other), 0);
}

TEST_F(FileDialogTest, AsksForAFolder) {
    MDirectoryDialog dialog;
    dialog.SetRootPath(scratch.GetPath());
    dialog.SetPath(scratch.Join("gone"));
    EXPECT_TRUE(dialog.GetPath().IsExactly(scratch.GetPath()));
    system.Post([&] {
        user.PressKey(MKeyHome);
        for (int32_t i = 0; i < 3000 && dialog.GetTree().GetRowCount() < 2; ++i) {
            user.PressKey(MKeyRight);
            MPlatform::Sleep(1);
            system.AdvanceTime(50);
        }
        user.PressKey(MKeyDown);
        user.PressKey(MKeyTab);
        user.PressKey(MKeyEnter);
    });
    EXPECT_EQ(dialog.RunModal(&root), MModalValue::Ok);
    EXPECT_TRUE(dialog.GetPath().IsExactly(scratch.Join("sub")));
}

}  // namespace
