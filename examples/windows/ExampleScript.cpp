#include "examples/windows/ExampleScript.h"

#include "foundation/base/MList.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MNumberText.h"
#include "streams/basic/MStdFileStream.h"

void ExampleSavePicture(const MBitmap& picture, const MString& path) {
    MStdFileStream file;
    file.Open(MFile::Normalize(path), MOpenWrite | MOpenCreate);
    picture.SavePNG(file);
    file.Close();
}

void ExampleScript::RunLine(const MString& line) {
    if (!root.Is(MControlFlag::HasWindow)) return;
    MHeadlessUser& user = system.GetUser();
    const int32_t gap = line.Find(" ");
    const MString word = gap == MString::NotFound ? line : line.Substring(0, gap);
    const MString rest = gap == MString::NotFound ? MString() : line.Substring(gap + 1);
    const int32_t second = rest.Find(" ");
    const int32_t x = static_cast<int32_t>(MParseInt64(rest));
    const int32_t y =
        second == MString::NotFound ? 0 : static_cast<int32_t>(MParseInt64(rest.Substring(second + 1)));
    // While a button is held the window may be moving.
    if (!(user.GetModifiers() & MModifierLeftButton)) origin = system.GetFrame(root).GetTopLeft();
    const MPoint point = MPoint{x, y} + origin;
    if (word == "move") {
        user.MoveMouse(point);
    } else if (word == "press") {
        user.PressButton();
    } else if (word == "release") {
        user.ReleaseButton();
    } else if (word == "click") {
        user.Click(point);
    } else if (word == "double") {
        user.Click(point, 2);
    } else if (word == "right") {
        user.Click(point, 1, MModifierRightButton);
    } else if (word == "hold") {
        user.HoldKeys(rest == "shift"     ? MModifierShift
                      : rest == "control" ? MModifierControl
                                          : MModifierNone);
    } else if (word == "type") {
        user.Type(rest);
    } else if (word == "key") {
        user.PressKey(x);
    } else if (word == "wheel") {
        user.TurnWheel(x * 120);
    } else if (word == "picture") {
        ExampleSavePicture(system.GetPicture(root), rest);
    } else if (word != "wait") {
        MRaise(MExceptionInvalidArgument, "\"{0}\" in the script is not understood.", line);
    }
}

void ExampleScript::Run(const MString& text) {
    constexpr int64_t Pause = 50;
    for (const MString& line : text.Split(u'\n')) {
        const MString step = line.Trimmed();
        if (step.IsEmpty() || step[0] == u'#') continue;
        const bool isWaiting = step.StartsWith("wait ");
        system.Post([this, step] { RunLine(step); }, isWaiting ? MParseInt64(step.Substring(5)) : Pause);
    }
    system.Post([this] { root.CloseWindow(MModalValue::Cancel); }, Pause);
    system.RunApplication();
}
