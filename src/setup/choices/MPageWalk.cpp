#include "setup/choices/MPageWalk.h"

#include "foundation/base/MException.h"

namespace {

/// Sets something for the length of a block, however that ends.
class GoingScope final {
public:
    explicit GoingScope(bool& flag) : isGoing(flag) { isGoing = true; }
    GoingScope(const GoingScope&) = delete;
    GoingScope& operator=(const GoingScope&) = delete;
    ~GoingScope() { isGoing = false; }

private:
    bool& isGoing;
};

}  // namespace

void MPageWalk::Add(MWalkPage& page) {
    if (!chain.IsEmpty()) {
        MWalkPage& last = *chain[chain.GetCount() - 1];
        last.NextPage = &page;
        page.PreviousPage = &last;
    }
    chain.Add(&page);
}

void MPageWalk::Finish(MWalkPage& abort, MWalkPage& error) {
    AbortPage = &abort;
    ErrorPage = &error;
    for (MWalkPage* last : {chain[chain.GetCount() - 1], AbortPage, ErrorPage}) last->IsFinal = true;
}

void MPageWalk::Activate(MWalkPage& page, bool back) {
    try {
        Enter(page, back);
    } catch (const MException& exception) {
        return Fail(page, exception.GetMessage());
    }
    view.Repaint();
    page.OnShown();
}

void MPageWalk::Enter(MWalkPage& page, bool back) {
    if (!page.ShouldSkip(back)) {
        CurrentPage = &page;
        view.ShowPage(page);
        return UpdateButtons();
    }
    MWalkPage* const target = back ? page.PreviousPage : page.NextPage;
    if (!target) return view.EndWalk(MModalValue::Ok);
    // What a page that nobody sees decides counts as well.
    (void)page.OnNext();
    Activate(*target, back);
}

/// A failure of the page for failures itself has nowhere to lead.
void MPageWalk::Fail(MWalkPage& page, const MString& text) {
    if (&page != ErrorPage) Activate(*ErrorPage, false);
    // Whoever has told of it already gives no text.
    if (!text.IsEmpty()) view.ShowError(text);
    if (&page == ErrorPage) view.EndWalk(MModalValue::Ok);
}

void MPageWalk::UpdateButtons() {
    MWalkPage& page = *CurrentPage;
    const bool isInChain = !page.IsFinal;
    view.ShowButtons({isInChain, CanGoNext(), isInChain, CanGoPrevious(), page.IsExitVisible()});
}

int32_t MPageWalk::GetIndex(const MWalkPage& page) const {
    for (int32_t i = 0; i < chain.GetCount(); ++i)
        if (chain[i] == &page) return i;
    return -1;
}

bool MPageWalk::CanGoNext() {
    return !CurrentPage->IsFinal && CurrentPage->IsNextEnabled();
}

bool MPageWalk::CanGoPrevious() {
    return !CurrentPage->IsFinal && CurrentPage->PreviousPage && CurrentPage->IsPreviousEnabled();
}

void MPageWalk::Next() {
    if (isGoing) return;
    const GoingScope going(isGoing);
    MWalkPage& page = *CurrentPage;
    if (!CanGoNext() || !page.OnNext()) return;
    Activate(*page.NextPage, false);
}

void MPageWalk::Previous() {
    if (isGoing) return;
    const GoingScope going(isGoing);
    MWalkPage& page = *CurrentPage;
    if (!CanGoPrevious() || !page.OnPrevious()) return;
    Activate(*page.PreviousPage, true);
}

void MPageWalk::Exit() {
    if (isGoing) return;
    const GoingScope going(isGoing);
    MWalkPage& page = *CurrentPage;
    if (page.IsFinal) {
        page.OnExit();
        return view.EndWalk(MModalValue::Cancel);
    }
    if (!page.IsExitVisible() || !view.ConfirmExit(page)) return;
    page.OnExit();
    Activate(*AbortPage, false);
}
