// Usage: windows TEXT.stml FONTS [SCRIPT]
//
// Opens a window with nested layouts, a long text, a draggable, a popup, a drop target and entries that echo
// keys, and prints what happens in it. FONTS is a folder of the system's fonts that has "liberation" in it.
// With SCRIPT the window is in memory, and the script's lines are what its user does (see ExampleScript.h).

#include "examples/windows/ExampleScript.h"
#include "examples/windows/ExampleWindow.h"
#include "examples/windows/MPlainStyle.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MModule.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "ui/control/windows/MWindows.h"
#include "ui/window/MNativeWindowSystem.h"

#include <cstdio>

namespace {

MString ReadText(const char* path) {
    MStdFileStream file;
    file.Open(MFile::Normalize(MDecodeUTF8Exact(path)), MOpenRead);
    std::string bytes(static_cast<size_t>(file.GetSize()), '\0');
    bytes.resize(static_cast<size_t>(file.Read(bytes.data(), static_cast<int32_t>(bytes.size()))));
    return MDecodeUTF8Exact(bytes);
}

void Print(const MString& line) {
    std::printf("%s\n", MEncodeUTF8Exact(line).c_str());
    std::fflush(stdout);
}

void Run(const char* textPath, const char* fonts, const char* scriptPath) {
    std::unique_ptr<MWindowSystem> system;
    MWindowSystemHeadless* memory = nullptr;
    if (scriptPath) {
        auto headless = std::make_unique<MWindowSystemHeadless>();
        memory = headless.get();
        system = std::move(headless);
    } else {
        system = MCreateNativeWindowSystem();
    }
    MWindows windows(std::move(system));
    windows.SetStyle(std::make_unique<MPlainStyle>(&windows, MFile::Normalize(MDecodeUTF8Exact(fonts))));

    ExampleWindow window(ReadText(textPath), Print);
    window.CreateWindow(nullptr);
    window.ShowModeless(nullptr);
    if (memory)
        ExampleScript(*memory, window).Run(ReadText(scriptPath));
    else
        windows.GetSystem().RunApplication();
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3 || count > 4) {
        std::fputs("Usage: windows TEXT.stml FONTS [SCRIPT]\n", stderr);
        return 2;
    }
    try {
        Run(arguments[1], arguments[2], count > 3 ? arguments[3] : nullptr);
        return 0;
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", MEncodeUTF8Exact(exception.GetMessage()).c_str());
        return 1;
    }
}
