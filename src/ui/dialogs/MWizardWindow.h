#pragma once

#include "ui/control/MContainers.h"
#include "ui/widgets/buttons/MButton.h"

class MLayoutSwitch;
class MTimeLine;

/// A window of pages that the user goes through one after the other. The last one is left by "Finish", which
/// closes the window with `Ok`.
class MWizardWindow : public MWindow {
public:
    MWizardWindow(const MString& name, const MString& caption);

    /// The pages come in the order in which they are added; the first one is shown at first.
    MContainer& AddPage(const MString& name);
    [[nodiscard]] int32_t GetPageCount() const { return pageList.GetCount(); }
    [[nodiscard]] MContainer& GetPage(int32_t index) const { return *pageList[index]; }
    [[nodiscard]] int32_t GetCurrentPage() const { return currentPage; }
    /// An index that there is not is that of the nearest page.
    void SetPage(int32_t index);
    /// To be called when what `CanGoBack` and `CanGoNext` say may have changed.
    void RefreshButtons();

    void OnPrepared() override;

    /// Whether the user can leave the present page.
    [[nodiscard]] virtual bool CanGoBack() { return true; }
    [[nodiscard]] virtual bool CanGoNext() { return true; }

private:
    [[nodiscard]] MButton& AddButton(MLayout& row, const char* name);
    void OnPrevious(const MOnClickParams&) { SetPage(currentPage - 1); }
    void OnNext(const MOnClickParams&);

    MContainer& pages;
    MLayoutSwitch& pageSwitch;
    MList<MContainer, MListPointers> pageList;
    MTimeLine* timeLine;
    MButton* previousButton;
    MButton* nextButton;
    int32_t currentPage = 0;
};
