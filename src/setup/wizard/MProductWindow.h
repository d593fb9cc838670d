#pragma once

#include "ui/control/MContainers.h"
#include "ui/control/MStyle.h"
#include "ui/widgets/buttons/MButton.h"

#include <algorithm>

/// A window that is about a product: what it shows reaches to the edges, where only the line of the frame is
/// left. It remembers nothing from one time to the next.
class MProductWindow : public MWindow {
public:
    explicit MProductWindow(const MString& name, const MString& caption = MString())
        : MWindow(name, caption) {
        Set(MControlFlag::WindowMovable);
        Set(MControlFlag::InTaskbar);
        Set(MControlFlag::ShowHelpKey, false);
        Set(MControlFlag::EnableSaveState, false);
    }

    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override {
        const int32_t line = std::max(GetStyle()->ScaleX(100) / 100, 1);
        newClientRect.left = newWindowRect.left + line;
        newClientRect.right = newWindowRect.right - line;
        newClientRect.bottom = newWindowRect.bottom - line;
    }

protected:
    /// In the row of a bar at the lower edge.
    static MButton& AddButton(MControl& bar, MLayout& row, const char* name, const char* text) {
        auto& button = *new MButton(&bar, name);
        button.SetText(MTranslate(text));
        button.minClientSize.x = 72;
        button.layoutRatio = {0, 0};
        button.layoutBorder = {4, 10};
        row.Add(button);
        return button;
    }
};
