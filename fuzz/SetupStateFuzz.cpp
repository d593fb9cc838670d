// Removes an installation by a hostile "setup.state", with its directories moved into a scratch folder. What
// lies beside those directories must still be there afterwards.

#include "foundation/base/MException.h"
#include "foundation/files/MFile.h"
#include "install/run/MUninstallRun.h"
#include "setup/console/MTextDialogs.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MScratch.h"

#include <cstddef>
#include <cstdint>

namespace {

class SilentDialogs final : public MUserDialogs {
public:
    bool AskYesNo(const MString&) override { return false; }
    MRetryAnswer AskRetry(const MString&) override { return MRetryAnswer::Refuse; }
    void ShowError(const MString&) override {}
    void ShowInformation(const MString&) override {}
    void ShowText(const MString&, const MString&) override {}
    std::unique_ptr<MProgressView> OpenProgress(const MString&) override { return nullptr; }
};

/// A product in its folder, and beside it what belongs to others.
struct World {
    World() {
        for (const char* name : Beside) scratch.WriteFile(name, "somebody's");
    }

    void Restore() const {
        for (const char* name : {"product/a", "product/sub/b", "product/X.aaxplugin/Contents/c"})
            scratch.WriteFile(name, "the product's");
    }
    void Check() const {
        for (const char* name : Beside)
            if (!MFile::Exists(scratch.Join(name))) __builtin_trap();
    }

    static constexpr const char* Beside[] = {"a", "sub/b", "menus/a", "startmenuprograms/own.url",
                                             "desktop/own.desktop"};

    MScratch scratch;
    MScratchFolders folders{scratch};
};

void MoveInside(MXMLItem& item, const MString& directory) {
    if (!item.GetAttribute("currentpath", "").IsEmpty()) item.SetAttribute("currentpath", directory);
    for (int32_t i = 0; i < item.GetSubItemCount(); ++i) MoveInside(*item.GetSubItem(i), directory);
}

void Remove(const World& world, const uint8_t* data, size_t size) {
    const MString product = world.scratch.Join("product");
    MXMLItem state;
    MMemoryStream stream(data, static_cast<int32_t>(size));
    state.Load(stream);
    state.SetAttribute("mainpath", product);
    MoveInside(state, product);
    world.Restore();
    state.SaveFile(MFile::Join(product, "setup.state"), false, "utf-8");

    SilentDialogs dialogs;
    MInstallViews views;
    views.dialogs = &dialogs;
    MUninstallRun run(product, views);
    run.PerformUninstallation();
    (void)run.GetLeftovers();
    (void)run.GetKeptDirectories();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const World world;
    try {
        Remove(world, data, size);
    } catch (const MException&) {
        // Refusing is right; only taking away what is not the product's is wrong.
    }
    world.Check();
    return 0;
}
