#include "bench/MComparison.h"
#include "examples/windows/MPlainStyle.h"
#include "foundation/base/MException.h"
#include "ui/control/windows/MWindows.h"
#include "ui/widgets/edits/MMultiLineEdit.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <memory>

namespace {

constexpr int Rounds = 41;
constexpr int KeysPerRound = 200;
constexpr const char* FontFolder = "/usr/share/fonts/truetype";
constexpr const char* Sentence = "You may copy the software, and use it as often as you want to. ";

/// A window with a text of several lines, 500 by 300, whose cursor is in the middle of the text.
class Window {
public:
    /// `hasLineFeeds`: or else all of it is one line, which wraps.
    Window(int32_t length, bool hasLineFeeds) {
        MString text;
        while (text.GetLength() < length) {
            text += Sentence;
            if (hasLineFeeds) text.AppendNewline();
        }
        edit.SetText(text);
        root.SetControlType(MControlType::Window);
        root.SetClientControl(&edit);
        root.Set(MControlFlag::AdaptSize, false);
        root.size = {500, 300};
        root.CreateWindow(nullptr);
        root.ShowWindow();
        edit.SetFocus();
        edit.SetSelection(text.GetLength() / 2, text.GetLength() / 2);
        root.RedrawNow();
    }

    /// From the key to the last pixel.
    void Type() {
        for (int key = 0; key < KeysPerRound; ++key) {
            if (key % 2 == 0)
                root.DispatchEvent({.type = MEventType::Character, .character = u'x'});
            else
                root.DispatchEvent({.type = MEventType::KeyDown, .key = MKeyBackspace});
            root.RedrawNow();
        }
    }

private:
    MControl root;
    MMultiLineEdit edit{&root, "edit"};
};

MComparison CompareTyping(bool hasLineFeeds) {
    auto windows = std::make_unique<MWindows>(std::make_unique<MWindowSystemHeadless>());
    windows->SetStyle(std::make_unique<MPlainStyle>(windows.get(), FontFolder));
    Window small(1 << 10, hasLineFeeds);
    Window large(1 << 20, hasLineFeeds);
    MComparison comparison = MCompareSpeeds(Rounds, MClock::Processor, KeysPerRound / 1e3,
                                            {{}, [&] { small.Type(); }}, {{}, [&] { large.Type(); }});
    comparison.unit = "thousand/s";
    comparison.kind = MComparison::Goal::AtMost;
    comparison.goal = 3;
    comparison.note += "; ours is a text of 1 KB, the reference one of 1 MB";
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Edits, a key in 1 MB against 1 KB", [] { return CompareTyping(true); }) &&
    MRegisterComparison("Edits, a key in a line of 1 MB against 1 KB", [] { return CompareTyping(false); });

}  // namespace
