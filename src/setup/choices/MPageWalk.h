#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"
#include "ui/control/kinds/MModalValue.h"

/// A page of the walk: what it says about being entered and left, and which pages stand around it.
class MWalkPage {
public:
    virtual ~MWalkPage() noexcept(false) = default;

    /// Asked before the page is shown; `back` is true for a user who comes from the following page. True
    /// skips the page.
    [[nodiscard]] virtual bool ShouldSkip(bool /*back*/) { return false; }
    /// Called after the page has been shown and painted, and also if it was skipped.
    virtual void OnShown() {}
    [[nodiscard]] virtual bool IsNextEnabled() { return true; }
    [[nodiscard]] virtual bool IsPreviousEnabled() { return true; }
    [[nodiscard]] virtual bool IsExitVisible() { return true; }
    /// The page is being left forward, or skipped in either direction; false keeps the user on it.
    virtual bool OnNext() { return true; }
    /// The page is being left backward; false keeps the user on it.
    [[nodiscard]] virtual bool OnPrevious() { return true; }
    /// The walk is being left from this page.
    virtual void OnExit() {}

    MWalkPage* NextPage = nullptr;
    MWalkPage* PreviousPage = nullptr;
    bool IsFinal = false;  ///< ends the walk: the last page of the chain, and those beside it
};

/// What can be done on a page.
struct MWalkButtons {
    bool isNextVisible = false;
    bool isNextEnabled = false;
    bool isPreviousVisible = false;
    bool isPreviousEnabled = false;
    bool isExitVisible = false;
};

/// Where a walk is seen: the window.
class MPageWalkView {
public:
    /// In place of the one before.
    virtual void ShowPage(MWalkPage& page) = 0;
    virtual void ShowButtons(const MWalkButtons& buttons) = 0;
    virtual void Repaint() = 0;
    [[nodiscard]] virtual bool ConfirmExit(MWalkPage& page) = 0;
    virtual void ShowError(const MString& text) = 0;
    virtual void EndWalk(MModalValue result) = 0;

protected:
    ~MPageWalkView() noexcept(false) = default;
};

/// The way through the pages of a wizard: a chain from which pages may leave themselves out, and beside it a
/// page for a walk that is given up and one for a failure. Knows no control.
class MPageWalk final {
public:
    /// The view is not owned and outlives the walk.
    explicit MPageWalk(MPageWalkView& view) : view(view) {}

    /// Puts a page at the end of the chain. Pages are not owned.
    void Add(MWalkPage& page);
    /// Ends the chain, and gives the pages beside it.
    void Finish(MWalkPage& abort, MWalkPage& error);

    /// Goes to the first page.
    void Begin() { Activate(*chain[0], false); }
    /// Shows a page, or goes on to the next one in the direction that does not skip; the walk ends where
    /// there is none. An `MException` leads to the page for failures.
    void Activate(MWalkPage& page, bool back);
    /// The state of the buttons on the present page has changed.
    void UpdateButtons();

    // What the user does on the present page. Does nothing while something of this is still going on: a page
    // that waits for a program leaves the window alive.
    void Next();
    void Previous();
    void Exit();

    /// The page on view; null before the first one.
    [[nodiscard]] MWalkPage* GetCurrentPage() const { return CurrentPage; }
    /// Of a page of the chain; -1 for the others.
    [[nodiscard]] int32_t GetIndex(const MWalkPage& page) const;
    [[nodiscard]] int32_t GetCount() const { return chain.GetCount(); }
    [[nodiscard]] MWalkPage& GetErrorPage() const { return *ErrorPage; }

private:
    /// False if the page cannot be left that way by the user.
    [[nodiscard]] bool CanGoNext();
    [[nodiscard]] bool CanGoPrevious();
    void Enter(MWalkPage& page, bool back);
    void Fail(MWalkPage& page, const MString& text);

    MPageWalkView& view;
    MList<MWalkPage, MListPointers> chain;
    MWalkPage* AbortPage = nullptr;
    MWalkPage* ErrorPage = nullptr;
    MWalkPage* CurrentPage = nullptr;
    bool isGoing = false;  ///< while the user is led somewhere
};
