// Usage: gallery DOCUMENT [--scale PERCENT] [--dark | --light] [--gpu] [--screens FOLDER | SCRIPT]
//
// Shows every control in its states, page by page, in the look and the face that travel with the programs, and prints
// what is done with them. Without options the user's settings and the desktop say how large and how dark, and whether
// the graphics card paints. With --screens it draws pictures of everything into a folder; with SCRIPT the window is in
// memory, and the script's lines are what its user does (see ExampleScript.h).

#include "embedded/MProgramBlocks.h"
#include "examples/gallery/GalleryScreens.h"
#include "examples/windows/ExampleScript.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "streams/resources/MResourceLibrary.h"
#include "ui/control/MXmlLoader.h"
#include "ui/control/windows/MWindows.h"
#include "ui/control/windows/MWindowsModule.h"
#include "ui/dialogs/MDialogs.h"
#include "ui/loader/MStandardCreators.h"
#include "ui/opengl/MGPUSettings.h"
#include "ui/opengl/MOpenGLAcceleration.h"
#include "ui/style/MProgramIcons.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/window/MNativeWindowSystem.h"

#include <cstdio>
#include <string_view>

namespace {

struct Options {
    MString document;
    MString script;
    MString screens;
    std::optional<int32_t> scale;
    std::optional<bool> isLight;
    bool isOnGPU = false;
};

Options ReadOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = arguments[i];
        const auto next = [&] { return MDecodeUTF8Exact(i + 1 < count ? arguments[++i] : ""); };
        if (word == "--scale")
            options.scale = static_cast<int32_t>(MParseInt64(next()));
        else if (word == "--dark" || word == "--light")
            options.isLight = word == "--light";
        else if (word == "--gpu")
            options.isOnGPU = true;
        else if (word == "--screens")
            options.screens = MFile::Normalize(next());
        else
            (options.document.IsEmpty() ? options.document : options.script) =
                MFile::Normalize(MDecodeUTF8Exact(word));
    }
    return options;
}

void Print(const MString& line) {
    std::printf("%s\n", MEncodeUTF8Exact(line).c_str());
    std::fflush(stdout);
}

std::unique_ptr<MTexturedStyle> MakeStyle(MWindows& windows, MResourceLibrary& resources,
                                          const Options& options) {
    auto style =
        std::make_unique<MTexturedStyle>(&windows, &resources, MTexturedStyle::FontSource::Traveling);
    style->LoadStyle();
    if (options.scale || options.isLight) {
        MStyleSettings settings;
        settings.resizeX = settings.resizeY = options.scale;
        settings.invertColors = options.isLight;
        style->SetSettings(settings);
    }
    return style;
}

void Run(const Options& options) {
    MWindowsModule module;
    MModule::SetInstance(&module);
    module.SetEmbeddedBlocks(MGetProgramBlocks());
    module.Initialize();

    // A script's window is compared with that on the display of scripts/lib/check-windows: texts that may choose their
    // shape follow that of the screen.
    constexpr MPoint DisplaySize{1280, 1024};
    constexpr MPoint LargeSize{3840, 2160};
    std::unique_ptr<MWindowSystemHeadless> headless;
    if (!options.screens.IsEmpty() || !options.script.IsEmpty())
        headless =
            std::make_unique<MWindowSystemHeadless>(options.script.IsEmpty() ? LargeSize : DisplaySize);
    MWindowSystemHeadless* const memory = headless.get();
    MControl::MXmlLoader::SetFiller(&MAddStandardCreators);
    auto acceleration = std::make_unique<MOpenGLAcceleration>(
        options.isOnGPU ? MGPUMode::On : MGPUSettings::Load(), [](const MString& text) { Print(text); });
    MWindows windows(memory ? std::move(headless)
                            : MCreateNativeWindowSystem(MString(), std::move(acceleration)));
    MDialogs dialogs;
    windows.dialogs = &dialogs;
    MShowProgramIcons(windows, module.GetResources());
    windows.SetStyle(MakeStyle(windows, module.GetResources(), options));

    MXMLItem document;
    MStdFileStream file;
    file.Open(options.document, MOpenRead);
    document.Load(file);
    GalleryWindow window(document, Print);
    window.CreateWindow(nullptr);
    window.ShowModeless(nullptr);
    if (!options.screens.IsEmpty()) {
        const MString suffix = MFormat("-{0}-{1}", options.isLight.value_or(false) ? "light" : "dark",
                                       options.scale.value_or(100));
        GalleryDrawScreens(*memory, window, options.screens, suffix);
    } else if (memory) {
        MStdFileStream steps;
        steps.Open(options.script, MOpenRead);
        ExampleScript(*memory, window).Run(steps.LoadText(false));
    } else {
        windows.GetSystem().RunApplication();
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("Usage: gallery DOCUMENT [--scale PERCENT] [--dark | --light] [--gpu] "
                   "[--screens FOLDER | SCRIPT]\n",
                   stderr);
        return 2;
    }
    try {
        Run(ReadOptions(count, arguments));
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
