#include "ui/widgets/edits/MTextClipboard.h"

#include "foundation/base/MBuffer.h"
#include "foundation/base/MGuard.h"
#include "foundation/text/MUnicode.h"
#include "ui/control/windows/MWindows.h"

bool MCopyToClipboard(const MString& text) {
    MWindows* const windows = MWindows::GetInstance();
    return windows && MGuard("MCopyToClipboard", [&] {
               const std::string bytes = MEncodeUTF8Exact(text);
               MBuffer data;
               data.Attach(bytes.data(), static_cast<int32_t>(bytes.size()));
               (void)data.EditBlock();
               windows->GetSystem().SetClipboard(MWindowSystem::TextFormat, data);
           });
}

bool MHasClipboardText() {
    MWindows* const windows = MWindows::GetInstance();
    bool hasText = false;
    MGuard("MHasClipboardText",
           [&] { hasText = windows && windows->GetSystem().HasClipboard(MWindowSystem::TextFormat); });
    return hasText;
}

MString MGetClipboardText() {
    MString text;
    if (!MHasClipboardText()) return text;
    MGuard("MGetClipboardText", [&] {
        const MBuffer data = MWindows::GetInstance()->GetSystem().GetClipboard(MWindowSystem::TextFormat);
        text = MDecodeUTF8Exact(
            {static_cast<const char*>(data.GetBlock()), static_cast<size_t>(data.GetSize())});
    });
    return text;
}
