#pragma once

#include "foundation/module/MPlatform.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/widgets/files/MFileSelector.h"

#include <functional>

/// A selector of a scratch folder with the folders "a", which holds "inner", and "b", and some files.
class FileSelectorTest : public WidgetTest {
protected:
    FileSelectorTest() {
        scratch.WriteFile("a/inner/deep.txt", "1");
        scratch.WriteFile("b/x.wav", "1");
        scratch.WriteFile("one.txt", "12345");
        scratch.WriteFile("Two.WAV", "1");
        scratch.WriteFile(MDecodeUTF8Exact("\xC3\xBC"
                                           "ber.txt"),
                          "123");
        scratch.WriteFile(".hidden", "1");
        Place(selector, MRect::FromSize(0, 0, 298, 190));
        selector.OnRefused().Connect(this, &FileSelectorTest::HearRefused);
        selector.OnAccept().Connect(this, &FileSelectorTest::HearAccepted);
        selector.SetRootPath(scratch.GetPath());
        Open(root);
        WaitForFolders();
    }
    ~FileSelectorTest() noexcept override = default;

    void WaitUntil(const std::function<bool()>& isDone) {
        for (int32_t waited = 0; waited < 5000 && !isDone(); ++waited) {
            MPlatform::Sleep(1);
            system.AdvanceTime(50);
        }
    }
    void WaitForFolders() {
        WaitUntil([&] { return !list.IsReading() && !tree.IsReading(); });
    }
    void Go(const MString& name) {
        selector.SetPath(scratch.Join(name));
        WaitForFolders();
    }
    std::string GetFiles() {
        std::string files;
        for (int32_t i = 0; i < list.GetItemCount(); ++i) files += Text(list.GetItem(i)->text) + " ";
        return files;
    }
    std::string GetFolders() {
        std::string folders;
        for (int32_t row = 1; row < tree.GetRowCount(); ++row)
            folders += Text(tree.GetRow(row).text) + (tree.GetRow(row).isSelected ? "* " : " ");
        return folders;
    }
    void Choose(const char* name) {
        list.SetFocus();
        list.SelectName(name);
    }
    void HearRefused(const MOnStringParams& params) {
        log += "refused:" + Text(MFile::GetFileName(params.text)) + " ";
    }
    void HearAccepted(const MOnStringParams& params) {
        log += "accepted:" + Text(MFile::GetFileName(params.text)) + " ";
    }

    MScratch scratch;
    MFileSelector& selector = *new MFileSelector(&root, "selector");
    MDirectoryTreeControl& tree = selector.GetTree();
    MFileListBox& list = selector.GetList();
};
